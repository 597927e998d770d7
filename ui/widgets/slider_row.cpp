#include "ui/widgets/slider_row.h"

#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <algorithm>

#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {
constexpr int kSliderWidth = 180;
}

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

}  // namespace brevane
