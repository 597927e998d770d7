#pragma once
// Rows of horizontal sliders as the generator panels lay them out: a caption, the
// slider, and its value on the right. Each slider's accessible name is its caption.

#include <QString>

#include "base/controls.h"

class QGridLayout;
class QLabel;
class QSlider;
class QWidget;

namespace brevane {

// A horizontal slider bound to `control`, a tenth of its range to a page.
QSlider* horizontalSlider(Slider& control, const QString& name, QWidget* parent);
// The control's value as a number, right-aligned, as wide as `widest`.
QLabel* valueLabel(RangeControl& control, QWidget* parent,
                   const QString& widest = QStringLiteral("0000"));
// Caption, slider and value in columns 0, 1 and 2 of `row`.
void sliderRow(QGridLayout& grid, int row, Slider& control, const QString& caption,
               QWidget* parent);
// One fader of the mix: its value above, the vertical slider at least `height` tall,
// its name below.
QWidget* verticalFader(Slider& control, const QString& name, int height, QWidget* parent);
// A caption in bold, heading a group of rows.
QLabel* boldLabel(const QString& text, QWidget* parent);

}  // namespace brevane
