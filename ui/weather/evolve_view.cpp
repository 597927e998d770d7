#include "ui/weather/evolve_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/style.h"
#include "weather/frmevolve.h"

namespace brevane {

namespace {

QWidget* weatherSection(Frmevolve& panel, QWidget* parent) {
    auto* box = new QGroupBox(QStringLiteral("Rain and thunder"), parent);
    auto* layout = new QVBoxLayout(box);
    style::applySpacing(*layout);
    auto* grid = new QGridLayout();
    grid->setHorizontalSpacing(style::kSectionGap);
    grid->setVerticalSpacing(style::kSpacing);
    struct Row {
        Slider* control;
        const char* caption;
    };
    int row = 0;
    const auto rows = [&](const QString& title, std::initializer_list<Row> list) {
        grid->addWidget(boldLabel(title, box), row++, 0, 1, 3);
        for (const Row& r : list) {
            sliderRow(*grid, row++, *r.control, QString::fromUtf8(r.caption), box);
        }
    };
    rows(QStringLiteral("Rain"), {{&panel.hscrollrain, "Occurence"},
                                  {&panel.hscrollsevrain, "Severity"},
                                  {&panel.Hscrollweatherspeed, "Rate of Vol Change"},
                                  {&panel.Hscrollduration, "Length of Event"},
                                  {&panel.hscrollmaxrain, "Max Volume"}});
    rows(QStringLiteral("Thunder"), {{&panel.hscrollthunder, "Occurence"},
                                     {&panel.hscrollsevthun, "Severity"},
                                     {&panel.hscrollthunderspeed, "Rate of Vol Change"},
                                     {&panel.hscrollthunderlength, "Length of Event"},
                                     {&panel.hscrollmaxthunder, "Max Volume"}});
    layout->addLayout(grid);
    layout->addStretch(1);
    auto* toggle = new QPushButton(box);
    bindWidget(panel.masterevolve, *toggle);
    layout->addWidget(toggle);
    return box;
}

QWidget* nightSection(Frmevolve& panel, QWidget* parent) {
    auto* box = new QGroupBox(QStringLiteral("Night"), parent);
    auto* layout = new QVBoxLayout(box);
    style::applySpacing(*layout);

    auto* timing = new QGridLayout();
    timing->setHorizontalSpacing(style::kSectionGap);
    timing->addWidget(new QLabel(QStringLiteral("Delay before Transition"), box), 0, 0);
    timing->addWidget(horizontalSlider(panel.delay, QStringLiteral("Delay before Transition"), box),
                      0, 1);
    auto* minutes = new QLabel(box);
    minutes->setMinimumWidth(minutes->fontMetrics().horizontalAdvance(QStringLiteral("120 min")));
    minutes->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    bindWidget(panel.delayMinutes, *minutes);
    timing->addWidget(minutes, 0, 2);
    sliderRow(*timing, 1, panel.Ratetonight, QStringLiteral("Rate of Transition"), box);
    layout->addLayout(timing);
    layout->addSpacing(style::kSectionGap);

    // What the night brings: each group with how much of it and how loud.
    auto* groups = new QGridLayout();
    groups->setHorizontalSpacing(style::kSectionGap);
    groups->addWidget(boldLabel(QStringLiteral("Amount"), box), 0, 1, 1, 2);
    groups->addWidget(boldLabel(QStringLiteral("Volume"), box), 0, 3, 1, 2);
    struct Group {
        CheckBox* check;
        Slider* amount;
        Slider* volume;
    };
    const Group list[] = {
        {&panel.Frogs, &panel.frogsfreq, &panel.frogsvolume},
        {&panel.Insects, &panel.Insectsfreq, &panel.insectsvolume},
        {&panel.nightbirdscheck, &panel.Nightfreq, &panel.nightbirdsvolume},
        {&panel.Crickets, nullptr, &panel.cricketsvolume},
        {&panel.Campfire, nullptr, &panel.campfirevolume},
    };
    int row = 1;
    for (const Group& g : list) {
        auto* check = new QCheckBox(box);
        bindWidget(*g.check, *check);
        const QString name = check->text();
        groups->addWidget(check, row, 0);
        if (g.amount != nullptr) {
            groups->addWidget(horizontalSlider(*g.amount, name + QStringLiteral(" amount"), box),
                              row, 1);
            groups->addWidget(valueLabel(*g.amount, box, QStringLiteral("000")), row, 2);
        }
        groups->addWidget(horizontalSlider(*g.volume, name + QStringLiteral(" volume"), box), row,
                          3);
        groups->addWidget(valueLabel(*g.volume, box, QStringLiteral("000")), row, 4);
        ++row;
    }
    layout->addLayout(groups);
    layout->addStretch(1);
    auto* toggle = new QPushButton(box);
    bindWidget(panel.masternight, *toggle);
    layout->addWidget(toggle);
    return box;
}

}  // namespace

EvolveView::EvolveView(Frmevolve& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(style::kSectionGap, style::kSectionGap, style::kSectionGap,
                             style::kMargin);
    root->setSpacing(style::kSectionGap);

    auto* sections = new QHBoxLayout();
    sections->setSpacing(style::kSectionGap);
    sections->addWidget(weatherSection(panel, this), 1);
    sections->addWidget(nightSection(panel, this), 1);
    root->addLayout(sections);

    auto* hint = new QPlainTextEdit(this);
    hint->setAccessibleName(QStringLiteral("Hint"));
    hint->setFixedHeight(hint->fontMetrics().lineSpacing() * 3 + 2 * style::kSpacing);
    hint->setPlaceholderText(QStringLiteral("Move a slider to read what it does."));
    bindWidget(panel.hintBox, *hint);
    root->addWidget(hint);

    auto* presets = new QHBoxLayout();
    presets->setSpacing(style::kSpacing);
    presets->addWidget(new QLabel(QStringLiteral("Preset"), this));
    auto* box = new QComboBox(this);
    // The box shows the preset's name even when no entry is selected: the name the
    // last session kept, or one typed for Save.
    box->setEditable(true);
    box->setAccessibleName(QStringLiteral("Preset"));
    box->setMinimumWidth(180);
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
    presets->addWidget(bound<QPushButton>(panel.saveButton, this));
    presets->addWidget(bound<QPushButton>(panel.saveAsButton, this));
    presets->addWidget(bound<QPushButton>(panel.deleteButton, this));
    presets->addWidget(bound<QPushButton>(panel.defaultsButton, this));
    presets->addStretch(1);
    presets->addWidget(bound<QPushButton>(panel.closeButton, this));
    root->addLayout(presets);

    followColours(panel.colours, *this);

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
