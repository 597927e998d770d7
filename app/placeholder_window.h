#pragma once
// Stands in for the main console until the console exists: a window titled
// "Brevane" that shows the loop's time of day, so a glance shows the program alive
// and its timers running. Laid out as every panel is: the headless side holds the
// state, the window only binds to it and must go first.

#include <QMainWindow>

#include "base/controls.h"
#include "base/event_loop.h"

namespace brevane {

struct PlaceholderPanel {
    explicit PlaceholderPanel(EventLoop& loop);
    Label clock;
    Timer tick;
};

class PlaceholderWindow : public QMainWindow {
  public:
    explicit PlaceholderWindow(PlaceholderPanel& panel);
};

}  // namespace brevane
