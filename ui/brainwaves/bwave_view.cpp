#include "ui/brainwaves/bwave_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "brainwaves/frmbwave.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/lcd_display_widget.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

constexpr int kLcdColumns = 18;
constexpr int kLcdCaptionColumns = 7;

QLabel* textLabel(TextBox& control, QWidget* parent, const char* unit = "") {
    auto* label = new QLabel(parent);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("88.2000 Hz")));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    bindWidget(control, *label, QString::fromUtf8(unit));
    return label;
}

QComboBox* minutesBox(ComboBox& control, const QString& name, QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setAccessibleName(name);
    bindWidget(control, *box);
    return box;
}

// A frequency slider with its value in Hz beside it.
void frequencyRow(QGridLayout& grid, int row, Slider& control, TextBox& text,
                  const QString& caption, QWidget* parent) {
    grid.addWidget(new QLabel(caption, parent), row, 0);
    grid.addWidget(horizontalSlider(control, caption, parent), row, 1);
    grid.addWidget(textLabel(text, parent, " Hz"), row, 2);
}

QGroupBox* glideSection(const QString& title, Slider& start, TextBox& startText, CheckBox& glide,
                        Slider& end, TextBox& endText, ComboBox& minutes, QWidget* parent,
                        TextBox* startRange = nullptr, TextBox* endRange = nullptr) {
    auto* box = new QGroupBox(title, parent);
    auto* grid = new QGridLayout(box);
    grid->setHorizontalSpacing(style::kSectionGap);
    frequencyRow(*grid, 0, start, startText, QStringLiteral("Start"), box);
    if (startRange != nullptr) {
        grid->addWidget(textLabel(*startRange, box), 0, 3);
    }
    auto* check = new QCheckBox(box);
    bindWidget(glide, *check);
    grid->addWidget(check, 1, 0, 1, 4);
    frequencyRow(*grid, 2, end, endText, QStringLiteral("End"), box);
    if (endRange != nullptr) {
        grid->addWidget(textLabel(*endRange, box), 2, 3);
    }
    auto* time = new QHBoxLayout();
    time->addWidget(new QLabel(QStringLiteral("Select transition time"), box));
    time->addWidget(minutesBox(minutes, title + QStringLiteral(" transition time"), box));
    time->addWidget(new QLabel(QStringLiteral("minutes"), box));
    time->addStretch(1);
    grid->addLayout(time, 3, 0, 1, 4);
    return box;
}

}  // namespace

BwaveView::BwaveView(Frmbwave& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(style::kSectionGap, style::kSectionGap, style::kSectionGap,
                             style::kMargin);
    root->setSpacing(style::kSectionGap);

    auto* displays = new QHBoxLayout();
    displays->setSpacing(style::kSectionGap);
    for (LcdDisplay* lcd : {&panel.LCD1, &panel.LCD2, &panel.LCD3}) {
        displays->addWidget(new LcdDisplayWidget(*lcd, LcdDisplayWidget::Layout::Captioned,
                                                 kLcdColumns, kLcdCaptionColumns, this));
    }
    root->addLayout(displays);

    auto* glides = new QHBoxLayout();
    glides->setSpacing(style::kSectionGap);
    glides->addWidget(glideSection(QStringLiteral("Base frequency"), panel.basestart,
                                   panel.baseStartText, panel.Check100, panel.baseend,
                                   panel.baseEndText, panel.baseminutes, this));
    glides->addWidget(glideSection(QStringLiteral("Beat frequency"), panel.beatstart,
                                   panel.beatStartText, panel.Check101, panel.beatend,
                                   panel.beatEndText, panel.beatminutes, this, &panel.startRange,
                                   &panel.endRange));
    root->addLayout(glides);

    // The fade, the wait's minutes standing in the blank of its caption.
    auto* fade = new QGroupBox(QStringLiteral("At the end of the beat's glide"), this);
    auto* fadeLayout = new QVBoxLayout(fade);
    auto* immediate = new QCheckBox(fade);
    bindWidget(panel.fadeimmediate, *immediate);
    fadeLayout->addWidget(immediate);
    auto* afterRow = new QHBoxLayout();
    auto* after = new QCheckBox(fade);
    bindWidget(panel.fadeafter, *after);
    const QString caption = qtText(panel.fadeafter.caption());
    const qsizetype gap = caption.indexOf(QStringLiteral("  "));
    after->setText(caption.left(gap).trimmed());
    afterRow->addWidget(after);
    afterRow->addWidget(minutesBox(panel.fadewaitminutes, QStringLiteral("Fade after"), fade));
    afterRow->addWidget(new QLabel(caption.mid(gap).trimmed(), fade));
    afterRow->addStretch(1);
    fadeLayout->addLayout(afterRow);
    root->addWidget(fade);

    auto* playRow = new QGridLayout();
    playRow->setHorizontalSpacing(style::kSectionGap);
    sliderRow(*playRow, 0, panel.maxvol, QStringLiteral("Volume"), this);
    auto* play = new QPushButton(this);
    play->setMinimumWidth(120);
    bindWidget(panel.playtoggle, *play);
    playRow->addWidget(play, 0, 3);
    playRow->setColumnStretch(1, 1);
    root->addLayout(playRow);

    auto* presets = new QHBoxLayout();
    presets->setSpacing(style::kSpacing);
    presets->addWidget(new QLabel(QStringLiteral("Preset"), this));
    auto* box = new QComboBox(this);
    box->setEditable(true);
    box->setAccessibleName(QStringLiteral("Preset"));
    box->setMinimumWidth(200);
    bindWidget(panel.presetBox, *box);
    presets->addWidget(box);
    for (CommandButton* step : {&panel.previousButton, &panel.nextButton}) {
        QPushButton* b = bound<QPushButton>(*step, this);
        b->setAccessibleName(qtText(step->toolTip()));
        b->setFixedWidth(b->fontMetrics().horizontalAdvance(QStringLiteral("<")) +
                         6 * style::kSpacing);
        presets->addWidget(b);
    }
    presets->addSpacing(style::kSectionGap);
    for (CommandButton* b :
         {&panel.saveButton, &panel.saveAsButton, &panel.deleteButton, &panel.defaultButton}) {
        presets->addWidget(bound<QPushButton>(*b, this));
    }
    presets->addStretch(1);
    presets->addWidget(bound<QPushButton>(panel.closeButton, this));
    root->addLayout(presets);

    followColours(panel.colours, *this);

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
