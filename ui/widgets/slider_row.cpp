#include "ui/widgets/slider_row.h"

#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {
constexpr int kSliderWidth = 180;
constexpr int kFaderWidth = 62;
}  // namespace

QSlider* horizontalSlider(Slider& control, const QString& name, QWidget* parent) {
    auto* s = new QSlider(Qt::Horizontal, parent);
    s->setMinimumWidth(kSliderWidth);
    s->setAccessibleName(name);
    s->setPageStep(std::max(1, (control.high() - control.low()) / 10));
    bindWidget(control, *s);
    return s;
}

QLabel* valueLabel(RangeControl& control, QWidget* parent, const QString& widest) {
    auto* value = new QLabel(parent);
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(widest) + style::kSpacing);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    showValue(control, *value);
    return value;
}

void sliderRow(QGridLayout& grid, int row, Slider& control, const QString& caption,
               QWidget* parent) {
    grid.addWidget(new QLabel(caption, parent), row, 0);
    grid.addWidget(horizontalSlider(control, caption, parent), row, 1);
    grid.addWidget(valueLabel(control, parent), row, 2);
}

QLabel* boldLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

QWidget* verticalFader(Slider& control, const QString& name, int height, QWidget* parent) {
    auto* column = new QWidget(parent);
    column->setMinimumWidth(
        std::max(kFaderWidth, column->fontMetrics().horizontalAdvance(name) + style::kSpacing));
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(style::kSpacing);

    auto* value = new QLabel(column);
    value->setAlignment(Qt::AlignHCenter);
    value->setFont(style::smallFont());
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("00000")));
    showValue(control, *value);

    auto* slider = new QSlider(Qt::Vertical, column);
    slider->setMinimumHeight(height);
    slider->setTickPosition(QSlider::TicksRight);
    // Ten steps of ticks whatever the range: the MP3 fader runs to 5000.
    slider->setTickInterval(std::max(1, (control.high() - control.low() + 1) / 10));
    slider->setAccessibleName(name);
    slider->setToolTip(name);
    bindWidget(control, *slider);

    auto* caption = new QLabel(name, column);
    caption->setAlignment(Qt::AlignHCenter);

    layout->addWidget(value);
    layout->addWidget(slider, 1, Qt::AlignHCenter);
    layout->addWidget(caption);
    return column;
}

}  // namespace brevane
