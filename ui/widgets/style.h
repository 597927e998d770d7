#pragma once
// The program's look, in one place: a calm light palette on Qt's Fusion style, a
// small set of font sizes and spacing steps, and the crossing between the colour
// numbers the files keep (0x00BBGGRR) and QColor. Views take their sizes and
// gaps from here instead of choosing their own.

#include <QColor>
#include <QFont>

#include "base/controls.h"

class QLayout;

namespace brevane::style {

// Gaps between controls and around a panel's edge, in pixels.
inline constexpr int kSpacing = 6;
inline constexpr int kMargin = 10;
inline constexpr int kSectionGap = 14;

// Font sizes in points: panel text, small print (captions under sliders, status
// lines), and a panel's heading.
inline constexpr int kBodyPointSize = 10;
inline constexpr int kSmallPointSize = 9;
inline constexpr int kHeadingPointSize = 14;

// A stored colour on the screen; the top byte is ignored, as the files ignore it.
QColor toQColor(Colour colour);
// A screen colour as the files store it; alpha is dropped.
Colour fromQColor(const QColor& colour);

QFont bodyFont();
QFont smallFont();
QFont headingFont();

// Gives a layout the program's spacing and margins.
void applySpacing(QLayout& layout);

// Sets the style, palette and font of the whole program. Call once, after the
// QApplication exists and before any window is made.
void applyToProgram();

}  // namespace brevane::style
