#pragma once
// STARTUP: the splash the program starts in. Its one-shot timer hands over to the
// console's load, which does all the real work and closes the splash near its end.

#include "base/controls.h"
#include "base/event_loop.h"

namespace brevane {

class Application;

class StartupSplash {
  public:
    // The delay lets the splash be painted before the load blocks the event thread.
    static constexpr int kHandOverMs = 50;

    explicit StartupSplash(Application& app);

    PanelWindow window;
    // One shot: loads the console, then stays off.
    Timer Timer1;

    // Shows the splash and arms the timer: the program's first act.
    void show();
    void unload();

  private:
    Application& app_;
};

}  // namespace brevane
