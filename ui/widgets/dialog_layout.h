#pragma once
// The frame of the small dialog-like panels: their margins, and the row of buttons at
// their foot that ends in the accepting and the closing button.

#include <QString>

class QVBoxLayout;
class QWidget;

namespace brevane {

class CommandButton;

// The window's top-level column, with the program's margins and spacing.
QVBoxLayout* panelLayout(QWidget* window);
// Adds the foot row to `root`: the buttons at the right, `accept` the default.
void addDialogButtons(QVBoxLayout& root, CommandButton& accept, CommandButton& close,
                      QWidget* parent);

}  // namespace brevane
