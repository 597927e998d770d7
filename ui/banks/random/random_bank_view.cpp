#include "ui/banks/random/random_bank_view.h"

#include <algorithm>
#include <array>

#include <QFontMetrics>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "banks/random/random_bank.h"
#include "ui/banks/group_strip.h"
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

// A row's sliders are named by the sound the row shows ("Owl volume"), following it
// when the slot takes another sound.
QSlider* rowSlider(Slider& control, Control& row, const QString& what, const QString& slotNumber,
                   QWidget* parent) {
    auto* slider = new QSlider(Qt::Horizontal, parent);
    slider->setMinimumWidth(110);
    slider->setPageStep(25);
    nameAfter(row, *slider, QLatin1Char(' ') + what);
    slider->setAccessibleDescription(slotNumber);
    bindWidget(control, *slider);
    return slider;
}

// One column of 14 slots: "Sound", "Volume", "Frequency" over the rows. The custom
// bank's rows also have a file chooser beside the name, and a right click on the name
// renames the row.
QWidget* slotColumn(RandomBank& bank, int firstSlot, QWidget* parent) {
    auto* column = new QWidget(parent);
    auto* grid = new QGridLayout(column);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(style::kSectionGap);
    grid->setVerticalSpacing(2);
    const int volumeColumn = bank.custom() ? 2 : 1;
    grid->addWidget(columnHeading(QStringLiteral("Sound"), column), 0, 0);
    grid->addWidget(columnHeading(QStringLiteral("Volume"), column), 0, volumeColumn);
    grid->addWidget(columnHeading(QStringLiteral("Frequency"), column), 0, volumeColumn + 1);

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
        // The custom bank's captions repeat ("Not Set"): its rows also say their number.
        const QString slotNumber = bank.custom() ? QStringLiteral("Slot %1").arg(s) : QString();
        name->setAccessibleDescription(slotNumber);
        grid->addWidget(name, row, 0);
        if (bank.custom()) {
            name->setContextMenuPolicy(Qt::CustomContextMenu);
            QObject::connect(name, &QWidget::customContextMenuRequested, name,
                             [&bank, s] { bank.renameSlot(s); });
            auto* chooser = new QPushButton(column);
            chooser->setFixedWidth(chooser->fontMetrics().horizontalAdvance(QStringLiteral("...")) +
                                   16);
            nameAfter(slot.name, *chooser, QStringLiteral(" file"));
            chooser->setAccessibleDescription(slotNumber);
            chooser->setToolTip(QStringLiteral("Choose this slot's sound file"));
            bindWidget(slot.chooser, *chooser);
            grid->addWidget(chooser, row, 1);
        }
        grid->addWidget(
            rowSlider(slot.volume, slot.name, QStringLiteral("volume"), slotNumber, column), row,
            volumeColumn);
        grid->addWidget(
            rowSlider(slot.frequency, slot.name, QStringLiteral("frequency"), slotNumber, column),
            row, volumeColumn + 1);
    }
    grid->setColumnStretch(volumeColumn, 1);
    grid->setColumnStretch(volumeColumn + 1, 1);
    return column;
}

QPushButton* button(CommandButton& control, QWidget* parent, const QString& name = {}) {
    auto* b = new QPushButton(parent);
    if (!name.isEmpty()) {
        b->setAccessibleName(name);
    }
    bindWidget(control, *b);
    return b;
}

// A column's bulk buttons side by side under its name.
template <std::size_t N>
QGroupBox* bulkButtons(std::array<CommandButton, N>& buttons, const QString& column,
                       QWidget* parent) {
    auto* box = new QGroupBox(column, parent);
    auto* row = new QHBoxLayout(box);
    style::applySpacing(*row);
    row->setSpacing(2);
    for (std::size_t b = 0; b < N; ++b) {
        QPushButton* w =
            button(buttons[b], box, column + QStringLiteral(" bulk ") + QString::number(b + 1));
        w->setFixedWidth(w->fontMetrics().horizontalAdvance(QStringLiteral("Max")) + 18);
        row->addWidget(w);
    }
    return box;
}

// Auto's state is its colour. Off, its colour is the scheme's button face, and the
// button shows as every other of its window, rollover and all; on, the highlight.
void showAutoState(RandomBank& bank, QPushButton& widget) {
    const auto show = [&bank, &widget] {
        if (!bank.autoOn()) {
            widget.setPalette(QPalette());
            widget.setAutoFillBackground(false);
            widget.setStyleSheet(QString());
        }
    };
    const Control::WatchId id = bank.autoButton.watch(show);
    QObject::connect(&widget, &QObject::destroyed, [&bank, id] { bank.autoButton.unwatch(id); });
    show();
}

// The commands of the bank: the bulk buttons, "All", Randomize and its repeat, the
// bank file and, on the custom bank, "Reset All".
QHBoxLayout* commandRow(RandomBank& bank, QWidget* parent) {
    auto* row = new QHBoxLayout();
    row->setSpacing(style::kSectionGap);
    row->addWidget(bulkButtons(bank.volumeButtons, QStringLiteral("Volume"), parent));
    QGroupBox* frequency = bulkButtons(bank.frequencyButtons, QStringLiteral("Frequency"), parent);
    auto* all = new QPushButton(frequency);
    all->setAccessibleName(QStringLiteral("All"));
    bindWidget(bank.allButton, *all);
    frequency->layout()->addWidget(all);
    row->addWidget(frequency);

    auto* randomize = new QGroupBox(QStringLiteral("Randomize"), parent);
    auto* randomizeRow = new QHBoxLayout(randomize);
    style::applySpacing(*randomizeRow);
    randomizeRow->setSpacing(2);
    randomizeRow->addWidget(button(bank.randomizeButton, randomize));
    auto* autoButton = new QPushButton(randomize);
    bindWidget(bank.autoButton, *autoButton);
    showAutoState(bank, *autoButton);
    randomizeRow->addWidget(autoButton);
    QPushButton* settings =
        button(bank.settingsButton, randomize, QStringLiteral("Randomize settings"));
    settings->setFixedWidth(settings->fontMetrics().horizontalAdvance(QStringLiteral("...")) + 18);
    randomizeRow->addWidget(settings);
    row->addWidget(randomize);

    auto* file = new QGroupBox(QStringLiteral("Bank"), parent);
    auto* fileRow = new QHBoxLayout(file);
    style::applySpacing(*fileRow);
    fileRow->setSpacing(2);
    fileRow->addWidget(button(bank.loadButton, file));
    fileRow->addWidget(button(bank.saveButton, file));
    if (bank.custom()) {
        fileRow->addWidget(button(bank.resetAllButton, file));
        fileRow->addWidget(button(bank.selectSoundsButton, file));
    }
    row->addWidget(file);
    row->addStretch(1);
    return row;
}

// The way to the other panels, each taking this window's place.
QHBoxLayout* navigationRow(RandomBank& bank, QWidget* parent) {
    auto* row = new QHBoxLayout();
    row->setSpacing(style::kSpacing);
    for (CommandButton* control :
         {&bank.back2Button, &bank.customBackgroundButton, &bank.randomButton}) {
        row->addWidget(button(*control, parent));
    }
    row->addSpacing(style::kSectionGap);
    for (CommandButton& control : bank.bankButtons) {
        row->addWidget(button(control, parent));
    }
    row->addWidget(button(bank.customButton, parent));
    row->addStretch(1);
    row->addWidget(button(bank.identifyButton, parent));
    row->addWidget(button(bank.mainButton, parent));
    return row;
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
    body->addWidget(
        groupStrip({bank.MP3, bank.CD, bank.Background, bank.maxvol, bank.Bwaves, bank.Master},
                   MixGroup::Random, this));
    root->addLayout(body, 1);

    root->addLayout(commandRow(bank, this));
    root->addLayout(navigationRow(bank, this));

    followColours(bank.colours, *this);

    followPanelWindow(bank.window, *this, OnClose::HidePanel);
}

}  // namespace brevane
