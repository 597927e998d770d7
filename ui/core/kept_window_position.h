#pragma once
// A panel window at the place the settings store keeps for it: the window opens at the
// panel's position, brought inside a screen, and the position follows the window as
// the user moves it, so the panel writes where it was at the end of the session.
//
// Ownership: the helper is a child of the window; `position` belongs to the panel and
// must outlive the window. Event thread only.

#include <optional>

#include "base/settings_store.h"

class QWidget;

namespace brevane {

void keepWindowPosition(QWidget& window, std::optional<WindowPosition>& position);

}  // namespace brevane
