#pragma once
// Ties a headless control to the Qt widget that shows it, both ways, so that a
// view is one line per control and holds no state of its own:
//
//   bindWidget(panel.hscrollrain, *rainBar);
//
// - A widget edit (drag, click, typing, a pick from a list) goes to the control's
//   one setter, so the control's handler does the work exactly as when code sets
//   it. The widget then shows what the control made of it: a clamped or refused
//   value, or the value a handler set instead.
// - A change of the control (value, range, entries, enabled, visible, caption,
//   tool tip, colours) is shown by the widget with its signals blocked, so showing
//   never echoes back as an edit.
// - The widget's own look stays until the control is given colours; clearing the
//   colours gives the look back.
//
// Ownership: the binding lives as long as the widget and stops watching the control
// when the widget is destroyed. The control must outlive the widget. Event thread
// only. Make a combo box editable, and choose a slider's orientation and direction,
// before binding it.

#include <QString>

#include "base/controls.h"

class QAbstractSlider;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QWidget;

namespace brevane {

// Any slider-like widget (QSlider, QDial, a custom QAbstractSlider). A range that
// runs from a larger min to a smaller max flips the widget's direction.
void bindWidget(Slider& control, QAbstractSlider& widget);
// The bar takes the keyboard's focus, as a slider does.
void bindWidget(ScrollBar& control, QScrollBar& widget);
void bindWidget(CheckBox& control, QCheckBox& widget);
// Exclusivity comes from the control's option group, so the widget's own
// auto-exclusivity is switched off; clicking a set button leaves it set.
void bindWidget(OptionButton& control, QRadioButton& widget);
// The button is made checkable.
void bindWidget(ToggleButton& control, QPushButton& widget);
void bindWidget(CommandButton& control, QPushButton& widget);
void bindWidget(TextBox& control, QLineEdit& widget);
// A text to read, not to type: the widget is made read-only.
void bindWidget(TextBox& control, QPlainTextEdit& widget);
// A text typed over several lines; its line breaks reach the control as CR LF, the
// way the program's files break lines.
void bindTypedText(TextBox& control, QPlainTextEdit& widget);
// A text shown as a label, with `suffix` (a unit) after it.
void bindWidget(TextBox& control, QLabel& widget, const QString& suffix = {});
// Editable or not; an editable box never adds typed text to its list, the list is
// the control's.
void bindWidget(ComboBox& control, QComboBox& widget);
void bindWidget(ListBox& control, QListWidget& widget);
// The caption is shown as plain text.
void bindWidget(Label& control, QLabel& widget);
// A read-out of a value (progress, a level): the bar follows the range and the value
// and is named after the control's caption.
void bindWidget(RangeControl& control, QProgressBar& widget);
// A frame or page of a panel: only shown or hidden, enabled or not.
void bindWidget(Control& control, QWidget& widget);

// A new widget of kind W under `parent`, bound to `control`: how a view makes most of
// its widgets, `bound<QPushButton>(panel.Command1, this)`.
template <class W, class C>
W* bound(C& control, QWidget* parent) {
    auto* widget = new W(parent);
    bindWidget(control, *widget);
    return widget;
}

// The widget's accessible name follows the control's caption, `suffix` after it: a
// bank row's slider is named by the sound the row shows ("Light rain volume").
void nameAfter(Control& control, QWidget& widget, const QString& suffix = {});

// Gives the push buttons of `window` each a letter of their caption to answer Alt
// with, in the order they were made, word starts first, never one letter twice. Flat
// buttons and those marked below keep their caption as it is.
void giveMnemonics(QWidget& window);
// A button whose caption is the user's (a preset's name) gets no letter.
void withoutMnemonic(QWidget& widget);

}  // namespace brevane
