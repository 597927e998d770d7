#pragma once
// The program's look, in one place: Qt's Fusion style painted from a colour scheme,
// a small set of font sizes and spacing steps, and the crossing between the colour
// numbers the files keep (0x00BBGGRR) and QColor. Views take their sizes and
// gaps from here instead of choosing their own.
//
// Colours. A scheme (shell/colour_scheme.h) becomes one palette and one style sheet,
// and paint() gives both to a window: the palette carries the roles every widget reads
// (panels and labels, text boxes, lists and combos, selections), the style sheet what a
// palette cannot say (buttons with their Rollover, slider fills in the gradient pair,
// borders in Line Color). Every window is painted this way and no other; until its
// panel is painted it shows the program's own look, the stock scheme "Default".

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>

#include "base/controls.h"
#include "shell/colour_scheme.h"

class QLayout;
class QWidget;

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

// The palette and the style sheet of a window in `scheme`.
QPalette schemePalette(const ColourScheme& scheme);
QString schemeStyleSheet(const ColourScheme& scheme);
// Paints `widget` and everything in it in `scheme`: a window, or a part of one that
// shows a scheme of its own (the scheme panel's sample). Its menus and tool tips follow
// it, and so do the program's dialogs (ui/platform/qt_dialogs.cpp).
void paint(QWidget& widget, const ColourScheme& scheme);

// Sets the style, palette and font of the whole program: the program's own look.
// Call once, after the QApplication exists and before any window is made.
void applyToProgram();

}  // namespace brevane::style
