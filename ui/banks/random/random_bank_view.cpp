#include "ui/banks/random/random_bank_view.h"

#include <algorithm>

#include <QFontMetrics>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "banks/random/random_bank.h"
#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

QLabel* columnHeading(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    QFont font = style::smallFont();
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    return label;
}

QSlider* rowSlider(Slider& control, const QString& name, QWidget* parent) {
    auto* slider = new QSlider(Qt::Horizontal, parent);
    slider->setMinimumWidth(110);
    slider->setPageStep(25);
    slider->setAccessibleName(name);
    bindWidget(control, *slider);
    return slider;
}

// One column of 14 slots: "Sound", "Volume", "Frequency" over the rows.
QWidget* slotColumn(RandomBank& bank, int firstSlot, QWidget* parent) {
    auto* column = new QWidget(parent);
    auto* grid = new QGridLayout(column);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(style::kSectionGap);
    grid->setVerticalSpacing(2);
    grid->addWidget(columnHeading(QStringLiteral("Sound"), column), 0, 0);
    grid->addWidget(columnHeading(QStringLiteral("Volume"), column), 0, 1);
    grid->addWidget(columnHeading(QStringLiteral("Frequency"), column), 0, 2);

    for (int row = 1; row <= kRandomRowsPerColumn; ++row) {
        const int s = firstSlot + row - 1;
        RandomSoundSlot& slot = bank.slot(s);
        // The name is a flat button: clicking it plays the sound once.
        auto* name = new QPushButton(column);
        name->setFlat(true);
        name->setCursor(Qt::PointingHandCursor);
        name->setStyleSheet(QStringLiteral("QPushButton { text-align: left; padding: 2px 6px; }"));
        name->setMinimumWidth(
            name->fontMetrics().horizontalAdvance(QStringLiteral("Horse canter past 2")) + 16);
        bindWidget(slot.name, *name);
        const QString label = name->text();
        grid->addWidget(name, row, 0);
        grid->addWidget(rowSlider(slot.volume, label + QStringLiteral(" volume"), column), row, 1);
        grid->addWidget(rowSlider(slot.frequency, label + QStringLiteral(" frequency"), column),
                        row, 2);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    return column;
}

// The strip of the panel's copies of the six group sliders.
QGroupBox* groupStrip(RandomBank& bank, QWidget* parent) {
    auto* box = new QGroupBox(QStringLiteral("Mix"), parent);
    auto* grid = new QGridLayout(box);
    style::applySpacing(*grid);
    const std::pair<Slider*, QString> faders[] = {{&bank.MP3, QStringLiteral("MP3")},
                                                  {&bank.CD, QStringLiteral("CD")},
                                                  {&bank.Background, QStringLiteral("Background")},
                                                  {&bank.maxvol, QStringLiteral("Random")},
                                                  {&bank.Bwaves, QStringLiteral("Bwaves")},
                                                  {&bank.Master, QStringLiteral("Master")}};
    // Equal columns, however long a fader's name.
    int columnWidth = 0;
    for (const auto& fader : faders) {
        columnWidth =
            std::max(columnWidth, QFontMetrics(style::smallFont()).horizontalAdvance(fader.second));
    }
    int column = 0;
    for (const auto& [control, name] : faders) {
        grid->setColumnMinimumWidth(column, columnWidth);
        auto* value = new QLabel(box);
        value->setFont(style::smallFont());
        value->setAlignment(Qt::AlignHCenter);
        showValue(*control, *value);
        auto* slider = new QSlider(Qt::Vertical, box);
        slider->setMinimumHeight(140);
        slider->setAccessibleName(name);
        bindWidget(*control, *slider);
        auto* caption = new QLabel(name, box);
        caption->setFont(style::smallFont());
        caption->setAlignment(Qt::AlignHCenter);
        grid->addWidget(value, 0, column, Qt::AlignHCenter);
        grid->addWidget(slider, 1, column, Qt::AlignHCenter);
        grid->addWidget(caption, 2, column, Qt::AlignHCenter);
        ++column;
    }
    grid->setRowStretch(1, 1);
    return box;
}

}  // namespace

RandomBankView::RandomBankView(RandomBank& bank, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    style::applySpacing(*root);

    auto* heading = new QLabel(this);
    heading->setFont(style::headingFont());
    bindWidget(bank.heading, *heading);
    root->addWidget(heading);

    auto* body = new QHBoxLayout();
    body->setSpacing(style::kSectionGap);
    auto* sounds = new QFrame(this);
    sounds->setFrameShape(QFrame::StyledPanel);
    auto* columns = new QHBoxLayout(sounds);
    style::applySpacing(*columns);
    columns->setSpacing(style::kSectionGap);
    columns->addWidget(slotColumn(bank, 1, sounds), 1);
    auto* divider = new QFrame(sounds);
    divider->setFrameShape(QFrame::VLine);
    divider->setFrameShadow(QFrame::Sunken);
    columns->addWidget(divider);
    columns->addWidget(slotColumn(bank, kRandomRowsPerColumn + 1, sounds), 1);
    body->addWidget(sounds, 1);
    body->addWidget(groupStrip(bank, this));
    root->addLayout(body, 1);

    auto* buttons = new QHBoxLayout();
    buttons->setSpacing(style::kSpacing);
    for (CommandButton& control : bank.bankButtons) {
        auto* b = new QPushButton(this);
        bindWidget(control, *b);
        buttons->addWidget(b);
    }
    buttons->addStretch(1);
    for (CommandButton* control : {&bank.identifyButton, &bank.mainButton}) {
        auto* b = new QPushButton(this);
        bindWidget(*control, *b);
        buttons->addWidget(b);
    }
    root->addLayout(buttons);

    followPanelWindow(bank.window, *this, OnClose::HidePanel);
}

}  // namespace brevane
