#include "ui/scheduling/alarm_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "scheduling/alarm_panel.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

// A two-digit time field and its spinner; the spinner's top is the field's highest.
void timePart(QHBoxLayout& row, TextBox& text, ScrollBar& spinner, const QString& name,
              QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setMaxLength(2);
    field->setAlignment(Qt::AlignCenter);
    QFont large = field->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    field->setFont(large);
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("000")) +
                         2 * style::kSpacing);
    field->setAccessibleName(name);
    bindWidget(text, *field);
    auto* spin = new QScrollBar(Qt::Vertical, parent);
    spin->setFixedHeight(field->sizeHint().height());
    spin->setAccessibleName(name);
    bindWidget(spinner, *spin);
    row.addWidget(field);
    row.addWidget(spin);
}

QCheckBox* check(CheckBox& control, QWidget* parent) {
    auto* c = new QCheckBox(parent);
    bindWidget(control, *c);
    return c;
}

}  // namespace

AlarmView::AlarmView(AlarmPanel& panel, QWidget* parent)
    : QWidget(parent, Qt::Window), panel_(panel) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(style::kSectionGap, style::kSectionGap, style::kSectionGap,
                             style::kMargin);
    root->setSpacing(style::kSectionGap);

    auto* timeBox = new QGroupBox(QStringLiteral("Alarm time"), this);
    auto* time = new QHBoxLayout(timeBox);
    timePart(*time, panel.Text1, panel.VScroll1, QStringLiteral("Hour"), timeBox);
    time->addWidget(new QLabel(QStringLiteral(":"), timeBox));
    timePart(*time, panel.Text2, panel.VScroll2, QStringLiteral("Minute"), timeBox);
    time->addStretch(1);
    root->addWidget(timeBox);

    auto* playBox = new QGroupBox(QStringLiteral("When the alarm time is reached"), this);
    auto* play = new QVBoxLayout(playBox);
    // "Play alarm for [ 60 ] secs": the list stands in the blank of the caption.
    const QString caption = qtText(panel.durationLabel.caption());
    const qsizetype gap = caption.indexOf(QStringLiteral("  "));
    auto* duration = new QHBoxLayout();
    duration->addWidget(new QLabel(caption.left(gap).trimmed(), playBox));
    auto* seconds = new QComboBox(playBox);
    seconds->setAccessibleName(QStringLiteral("Play alarm for"));
    bindWidget(panel.scombobox1, *seconds);
    duration->addWidget(seconds);
    duration->addWidget(new QLabel(caption.mid(gap).trimmed(), playBox));
    duration->addStretch(1);
    play->addLayout(duration);
    for (CheckBox* c :
         {&panel.repeatCheck, &panel.fadeCheck, &panel.closeProgramCheck, &panel.shutdownCheck}) {
        play->addWidget(check(*c, playBox));
    }
    auto* volume = new QGridLayout();
    sliderRow(*volume, 0, panel.hscroll2, QStringLiteral("Max Alarm Volume"), playBox);
    play->addLayout(volume);
    root->addWidget(playBox);

    auto* soundBox = new QGroupBox(QStringLiteral("Sound"), this);
    auto* sound = new QVBoxLayout(soundBox);
    auto* file = new QLabel(soundBox);
    file->setWordWrap(true);
    file->setAccessibleName(QStringLiteral("Current File to be played"));
    bindWidget(panel.wavname, *file);
    sound->addWidget(file);
    auto* soundButtons = new QHBoxLayout();
    for (CommandButton* b :
         {&panel.chooseButton, &panel.useDefaultButton, &panel.testButton, &panel.stopTestButton}) {
        soundButtons->addWidget(bound<QPushButton>(*b, soundBox));
    }
    sound->addLayout(soundButtons);
    root->addWidget(soundBox);

    auto* foot = new QHBoxLayout();
    foot->addWidget(bound<QPushButton>(panel.stopAlarmButton, this));
    foot->addStretch(1);
    foot->addWidget(bound<QPushButton>(panel.closeButton, this));
    root->addLayout(foot);

    followColours(panel.colours, *this);

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    keepWindowPosition(*this, panel.position);
}

void AlarmView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange) {
        panel_.resized(isMinimized());
    }
    QWidget::changeEvent(event);
}

void AlarmView::showEvent(QShowEvent* event) {
    panel_.resized(isMinimized());
    QWidget::showEvent(event);
}

}  // namespace brevane
