#pragma once
// Top-level windows that follow their panel's window state, and small read-outs of a
// control's value. Views hold no state: the panel says shown or hidden, and the
// window shows it.
//
// Ownership: the helpers are children of the widget and stop watching the control
// when it is destroyed; the control must outlive the widget. Event thread only.

#include <QWidget>

#include <functional>

#include "base/controls.h"
#include "shell/panel_colours.h"

class QLabel;

namespace brevane {

enum class OnClose {
    // Closing the window by its frame hides the panel; the panel lives on.
    HidePanel,
    // The frame's close is left to someone else (the program's quit routine).
    Leave,
};

// Shows or hides `window` with the panel, and titles it with the panel's caption.
void followPanelWindow(PanelWindow& panel, QWidget& window, OnClose onClose);
// The same, with the frame's close running the panel's own close command, which may
// keep the window open (to ask for something first).
void followPanelWindow(PanelWindow& panel, QWidget& window, std::function<void()> closeCommand);

// Paints `widget` (a panel's window, or a part of one) in the scheme `paint` holds,
// each time it changes (ui/widgets/style.h). Until the first painting the widget keeps
// the program's own look.
void followColours(SchemePaint& paint, QWidget& widget);

// Runs `onChange` on every change of `control` for as long as `owner` lives.
void followControl(Control& control, QObject& owner, std::function<void()> onChange);

// Keeps `label` showing the control's value as a number.
void showValue(RangeControl& control, QLabel& label);

}  // namespace brevane
