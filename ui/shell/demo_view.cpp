#include "ui/shell/demo_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

#include "shell/frmdemo.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/lcd_display_widget.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

constexpr int kSwatchWidth = 46;
constexpr int kSampleLcdColumns = 24;
constexpr int kSampleLcdCaptionColumns = 9;

// The sample: one of each kind of control, painted in the scheme being edited.
QGroupBox* sampleSection(Frmdemo& panel, QWidget* parent) {
    auto* box = new QGroupBox(QStringLiteral("Sample"), parent);
    auto* grid = new QGridLayout(box);
    style::applySpacing(*grid);
    grid->setHorizontalSpacing(style::kSectionGap);

    auto* label = new QLabel(box);
    bindWidget(panel.sampleLabel, *label);
    grid->addWidget(label, 0, 0, 1, 2);

    auto* buttons = new QHBoxLayout();
    buttons->setSpacing(style::kSpacing);
    buttons->addWidget(bound<QPushButton>(panel.sampleButton, box));
    buttons->addWidget(bound<QPushButton>(panel.sampleToggle, box));
    buttons->addStretch(1);
    grid->addLayout(buttons, 1, 0, 1, 2);

    auto* choices = new QVBoxLayout();
    choices->setSpacing(style::kSpacing);
    choices->addWidget(bound<QCheckBox>(panel.sampleCheck, box));
    choices->addWidget(bound<QRadioButton>(panel.sampleOption1, box));
    choices->addWidget(bound<QRadioButton>(panel.sampleOption2, box));
    choices->addStretch(1);
    grid->addLayout(choices, 2, 0);

    auto* boxes = new QVBoxLayout();
    boxes->setSpacing(style::kSpacing);
    auto* text = bound<QLineEdit>(panel.sampleText, box);
    text->setAccessibleName(QStringLiteral("Sample text box"));
    boxes->addWidget(text);
    auto* list = bound<QListWidget>(panel.sampleList, box);
    list->setAccessibleName(QStringLiteral("Sample list"));
    list->setFixedHeight(list->fontMetrics().lineSpacing() * 3 + 4 * style::kSpacing);
    boxes->addWidget(list);
    grid->addLayout(boxes, 2, 1);

    auto* slider = new QSlider(Qt::Horizontal, box);
    slider->setAccessibleName(QStringLiteral("Sample slider"));
    bindWidget(panel.sampleSlider, *slider);
    grid->addWidget(slider, 3, 0, 1, 2);

    auto* display = new LcdDisplayWidget(panel.sampleDisplay, LcdDisplayWidget::Layout::Captioned,
                                         kSampleLcdColumns, kSampleLcdCaptionColumns, box);
    grid->addWidget(display, 4, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    // The sample shows the scheme being edited, not the window's.
    followColours(panel.sample, *box);
    return box;
}

QPushButton* stepper(CommandButton& control, const QString& name, QWidget* parent) {
    auto* b = bound<QPushButton>(control, parent);
    b->setAccessibleName(name);
    b->setFixedWidth(b->fontMetrics().horizontalAdvance(QStringLiteral("<")) + 6 * style::kSpacing);
    return b;
}

// A list with its two steppers: the named schemes, or the display palettes.
QHBoxLayout* steppedList(ComboBox& list, CommandButton& previous, CommandButton& next,
                         const QString& name, QWidget* parent) {
    auto* row = new QHBoxLayout();
    row->setSpacing(style::kSpacing);
    auto* box = new QComboBox(parent);
    box->setAccessibleName(name);
    box->setMinimumWidth(180);
    bindWidget(list, *box);
    row->addWidget(box, 1);
    row->addWidget(stepper(previous, name + QStringLiteral(" before"), parent));
    row->addWidget(stepper(next, name + QStringLiteral(" after"), parent));
    return row;
}

QGroupBox* schemeSection(Frmdemo& panel, QWidget* parent) {
    auto* box = new QGroupBox(QStringLiteral("Color Schemes"), parent);
    auto* layout = new QVBoxLayout(box);
    style::applySpacing(*layout);
    layout->addLayout(steppedList(panel.schemeList, panel.previousSchemeButton,
                                  panel.nextSchemeButton, QStringLiteral("Scheme"), box));
    auto* files = new QHBoxLayout();
    files->setSpacing(style::kSpacing);
    files->addWidget(bound<QPushButton>(panel.saveButton, box));
    files->addWidget(bound<QPushButton>(panel.saveAsButton, box));
    files->addWidget(bound<QPushButton>(panel.deleteButton, box));
    layout->addLayout(files);
    layout->addWidget(bound<QPushButton>(panel.restoreDefaultButton, box));
    layout->addWidget(bound<QPushButton>(panel.revertButton, box));

    layout->addSpacing(style::kSpacing);
    auto* caption = new QLabel(QStringLiteral("Display palette"), box);
    layout->addWidget(caption);
    layout->addLayout(steppedList(panel.paletteList, panel.previousPaletteButton,
                                  panel.nextPaletteButton, QStringLiteral("Display palette"), box));
    layout->addStretch(1);
    layout->addWidget(bound<QPushButton>(panel.advancedButton, box));
    return box;
}

// One swatch: its colour on a small button, its caption beside it.
void swatchRow(QGridLayout& grid, int row, int column, Frmdemo& panel, int target,
               QWidget* parent) {
    CommandButton& control = panel.swatches[static_cast<std::size_t>(target - 1)];
    auto* swatch = new QPushButton(parent);
    const QString caption = qtText(control.toolTip());
    swatch->setAccessibleName(caption);
    swatch->setFixedWidth(kSwatchWidth);
    bindWidget(control, *swatch);
    grid.addWidget(swatch, row, column);
    grid.addWidget(new QLabel(caption, parent), row, column + 1);
}

// The single swatches, by what they paint.
QWidget* advancedSection(Frmdemo& panel, QWidget* parent) {
    auto* frame = new QWidget(parent);
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(style::kSectionGap);
    struct Group {
        const char* title;
        std::initializer_list<int> targets;
    };
    const Group groups[] = {
        {"Main Colors", {8, 10, 9, 11}}, {"Button Colors", {5, 6, 7}}, {"Text Boxes", {12, 13}},
        {"Sliders", {14, 15}},           {"Display", {1, 2, 3, 4}},
    };
    for (const Group& g : groups) {
        auto* box = new QGroupBox(QString::fromLatin1(g.title), frame);
        auto* grid = new QGridLayout(box);
        style::applySpacing(*grid);
        int r = 0;
        for (const int target : g.targets) {
            swatchRow(*grid, r++, 0, panel, target, box);
        }
        grid->setRowStretch(r, 1);
        row->addWidget(box);
    }
    bindWidget(panel.advancedFrame, *frame);
    return frame;
}

}  // namespace

DemoView::DemoView(Frmdemo& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(style::kSectionGap, style::kSectionGap, style::kSectionGap,
                             style::kMargin);
    root->setSpacing(style::kSectionGap);

    auto* top = new QHBoxLayout();
    top->setSpacing(style::kSectionGap);
    top->addWidget(sampleSection(panel, this), 3);
    top->addWidget(schemeSection(panel, this), 2);
    root->addLayout(top);
    root->addWidget(advancedSection(panel, this));

    auto* foot = new QHBoxLayout();
    foot->setSpacing(style::kSpacing);
    foot->addStretch(1);
    foot->addWidget(bound<QPushButton>(panel.applyButton, this));
    foot->addWidget(bound<QPushButton>(panel.closeButton, this));
    root->addLayout(foot);
    // The window's height follows the advanced part as it shows and hides.
    root->setSizeConstraint(QLayout::SetFixedSize);

    followColours(panel.colours, *this);
    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
