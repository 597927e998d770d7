#include "ui/fx/effects_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "fx/frmeffects.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

constexpr int kBandHeight = 160;

QPushButton* button(CommandButton& control, QWidget* parent) {
    auto* b = bound<QPushButton>(control, parent);
    if (!control.toolTip().empty()) {
        b->setAccessibleName(qtText(control.toolTip()));
        b->setFixedWidth(b->fontMetrics().horizontalAdvance(QStringLiteral("<")) +
                         6 * style::kSpacing);
    }
    return b;
}

// A band's gain as the listener reads it: "+3 dB", "0 dB", "-6 dB".
QLabel* gainLabel(Slider& band, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("+15 dB")));
    const auto show = [label, &band] {
        const int db = band.value() - Frmeffects::kFlat;
        label->setText((db > 0 ? QStringLiteral("+") : QString()) + QString::number(db) +
                       QStringLiteral(" dB"));
        label->setEnabled(band.enabled());
    };
    show();
    const Control::WatchId id = band.watch(show);
    QObject::connect(label, &QObject::destroyed, [&band, id] { band.unwatch(id); });
    return label;
}

// The box, the step buttons, then the commands.
QHBoxLayout* presetRow(ComboBox& box, const QString& name,
                       std::initializer_list<CommandButton*> steps,
                       std::initializer_list<CommandButton*> commands, QWidget* parent) {
    auto* row = new QHBoxLayout();
    row->setSpacing(style::kSpacing);
    row->addWidget(new QLabel(QStringLiteral("Preset"), parent));
    auto* combo = new QComboBox(parent);
    combo->setEditable(true);
    combo->setAccessibleName(name);
    combo->setMinimumWidth(180);
    bindWidget(box, *combo);
    row->addWidget(combo, 1);
    for (CommandButton* b : steps) {
        row->addWidget(button(*b, parent));
    }
    row->addSpacing(style::kSectionGap);
    for (CommandButton* b : commands) {
        row->addWidget(button(*b, parent));
    }
    return row;
}

QCheckBox* toggle(CheckBox& control, const QString& name, QWidget* parent) {
    auto* check = new QCheckBox(parent);
    bindWidget(control, *check);
    check->setAccessibleName(name);
    return check;
}

}  // namespace

EffectsView::EffectsView(Frmeffects& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(style::kSectionGap, style::kSectionGap, style::kSectionGap,
                             style::kMargin);
    root->setSpacing(style::kSectionGap);

    // The equalizer: louder upwards, the gain over each band and its caption under it.
    auto* eq = new QGroupBox(QStringLiteral("Equalizer"), this);
    auto* eqLayout = new QVBoxLayout(eq);
    eqLayout->addWidget(toggle(panel.check_eq, QStringLiteral("Equalizer on / off"), eq));
    auto* bands = new QGridLayout();
    bands->setHorizontalSpacing(style::kSectionGap);
    for (int i = 0; i < Frmeffects::kBands; ++i) {
        Slider& band = panel.VScroll1[static_cast<std::size_t>(i)];
        const QString caption = qtText(band.caption());
        bands->addWidget(gainLabel(band, eq), 0, i, Qt::AlignHCenter);
        auto* slider = new QSlider(Qt::Vertical, eq);
        slider->setMinimumHeight(kBandHeight);
        slider->setTickPosition(QSlider::TicksBothSides);
        slider->setTickInterval(Frmeffects::kFlat);
        slider->setPageStep(3);
        slider->setAccessibleName(caption);
        bindWidget(band, *slider);
        bands->addWidget(slider, 1, i, Qt::AlignHCenter);
        auto* label = new QLabel(caption, eq);
        label->setAlignment(Qt::AlignHCenter);
        bands->addWidget(label, 2, i, Qt::AlignHCenter);
    }
    eqLayout->addLayout(bands);
    eqLayout->addLayout(
        presetRow(panel.Combo1, QStringLiteral("Equalizer preset"),
                  {&panel.eqPreviousButton, &panel.eqNextButton},
                  {&panel.eqSaveButton, &panel.eqDeleteButton, &panel.eqDefaultsButton}, eq));
    root->addWidget(eq);

    // The reverb: the sliders that act, in two columns. A slider takes effect where the
    // hand lets it go: each change rebuilds the chain.
    auto* reverb = new QGroupBox(QStringLiteral("Reverb"), this);
    auto* reverbLayout = new QVBoxLayout(reverb);
    reverbLayout->addWidget(toggle(panel.check_rev3d, QStringLiteral("Reverb on / off"), reverb));
    auto* columns = new QGridLayout();
    columns->setHorizontalSpacing(style::kSectionGap);
    int shown = 0;
    for (Slider& s : panel.hscroll101) {
        if (!s.visible()) {
            continue;
        }
        const int column = shown < 6 ? 0 : 4;
        const int row = shown % 6;
        const QString caption = qtText(s.caption());
        columns->addWidget(new QLabel(caption, reverb), row, column);
        QSlider* slider = horizontalSlider(s, caption, reverb);
        slider->setTracking(false);
        columns->addWidget(slider, row, column + 1);
        columns->addWidget(valueLabel(s, reverb, QStringLiteral("00000")), row, column + 2);
        ++shown;
    }
    columns->setColumnMinimumWidth(3, style::kSectionGap);
    columns->setColumnStretch(1, 1);
    columns->setColumnStretch(5, 1);
    reverbLayout->addLayout(columns);
    reverbLayout->addLayout(presetRow(
        panel.Combo2, QStringLiteral("Reverb preset"),
        {&panel.reverbPreviousButton, &panel.reverbNextButton},
        {&panel.reverbSaveButton, &panel.reverbDeleteButton, &panel.reverbDefaultsButton}, reverb));
    root->addWidget(reverb);

    auto* bottom = new QHBoxLayout();
    bottom->addStretch(1);
    bottom->addWidget(button(panel.closeButton, this));
    root->addLayout(bottom);

    followColours(panel.colours, *this);

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
