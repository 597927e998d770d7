#include "ui/core/main_window.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "core/frmmain.h"
#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

// One fader of the mix: its value above, the slider, its name below.
QWidget* fader(Slider& control, const QString& name, QWidget* parent) {
    auto* column = new QWidget(parent);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(style::kSpacing);

    auto* value = new QLabel(column);
    value->setAlignment(Qt::AlignHCenter);
    value->setFont(style::smallFont());
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
    showValue(control, *value);

    auto* slider = new QSlider(Qt::Vertical, column);
    slider->setMinimumHeight(160);
    slider->setTickPosition(QSlider::TicksRight);
    slider->setTickInterval(10);
    slider->setAccessibleName(name);
    bindWidget(control, *slider);

    auto* caption = new QLabel(name, column);
    caption->setAlignment(Qt::AlignHCenter);

    layout->addWidget(value);
    layout->addWidget(slider, 1, Qt::AlignHCenter);
    layout->addWidget(caption);
    return column;
}

QPushButton* button(CommandButton& control, QWidget* parent) {
    auto* b = new QPushButton(parent);
    b->setMinimumWidth(120);
    bindWidget(control, *b);
    return b;
}

}  // namespace

MainWindow::MainWindow(Frmmain& console, QWidget* parent) : QMainWindow(parent) {
    auto* central = new QWidget(this);
    auto* root = new QVBoxLayout(central);
    style::applySpacing(*root);

    auto* top = new QHBoxLayout();
    top->setSpacing(style::kSectionGap);

    auto* mix = new QGroupBox(QStringLiteral("Mix"), central);
    auto* faders = new QHBoxLayout(mix);
    style::applySpacing(*faders);
    faders->addWidget(fader(console.Master, QStringLiteral("Master"), mix));
    faders->addWidget(fader(console.Random, QStringLiteral("Random"), mix));
    top->addWidget(mix, 1);

    auto* panels = new QGroupBox(QStringLiteral("Panels"), central);
    auto* buttons = new QVBoxLayout(panels);
    style::applySpacing(*buttons);
    buttons->addWidget(button(console.randomButton, panels));
    buttons->addWidget(button(console.identifyButton, panels));
    buttons->addStretch(1);
    buttons->addWidget(button(console.masterStopButton, panels));
    top->addWidget(panels);
    root->addLayout(top, 1);

    auto* latest = new QGroupBox(QStringLiteral("Latest sound"), central);
    auto* form = new QFormLayout(latest);
    style::applySpacing(*form);
    auto* name = new QLineEdit(latest);
    name->setReadOnly(true);
    name->setFocusPolicy(Qt::NoFocus);
    bindWidget(console.latestSoundName, *name);
    auto* location = new QLineEdit(latest);
    location->setReadOnly(true);
    location->setFocusPolicy(Qt::NoFocus);
    bindWidget(console.latestSoundLocation, *location);
    form->addRow(QStringLiteral("Sound"), name);
    form->addRow(QStringLiteral("Location"), location);
    root->addWidget(latest);

    setCentralWidget(central);
    setMinimumSize(360, 320);
    resize(440, 400);
    // Closing the console is the program's quit, which the quit routine handles.
    followPanelWindow(console.window, *this, OnClose::Leave);
}

}  // namespace brevane
