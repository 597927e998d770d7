#pragma once
// What the slideshow and the panoramic view share while one of them fills the screen:
// the pointer hidden over the picture, the interface hidden after a while without input,
// the picture's context menu, and the way out by Esc that brings back the panel the user
// came from.
//
// Not thread-safe: the visuals live on the event thread.

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "base/controls.h"
#include "base/event_loop.h"
#include "core/menu.h"

namespace brevane {

class Application;

class VisualMode {
  public:
    static constexpr int kInactivityCheckMs = 10000;
    static constexpr int kHideCursorMs = 500;
    static constexpr const char* kShowMain = "Show Main";
    static constexpr const char* kShowRemote = "Show Remote";
    static constexpr const char* kExitVisualMode = "Exit Visual Mode";
    static constexpr const char* kExitApplication = "Exit Application";

    // `menuEntries`: the captions of the picture's context menu, in order. `leave` ends
    // the visual (its unload); the mode calls it for Esc and "Exit Visual Mode".
    VisualMode(Application& app, std::initializer_list<const char*> menuEntries,
               std::function<void()> leave);

    // Shown while the pointer shows over the picture; hidden while it is the blank one.
    Label pointer;
    MenuEntry contextMenu;
    // Every ten seconds: past the options' inactivity time, the interface hides.
    Timer Timerinactivity;
    // One shot after the visual opens: the pointer hides.
    Timer Timerhidecursor;
    // Whether the visual is on screen.
    bool running() const { return running_; }

    // The visual opens: the panel on screen (the console, else the remote) is kept to
    // come back to, the pointer hides a moment later, the inactivity watch begins.
    void begin();
    // The visual closes: the pointer shows, the watch stops.
    void end();
    // Esc on the picture: the pointer shows, the visual ends and the kept panel returns.
    void escape();
    // A key (other than Esc) or a movement of the pointer over the picture.
    void input();
    void hidecursor();
    void showcursor();
    // Hides the console, the remote and every other open panel.
    void hideInterface();

  private:
    void checkInactivity();
    void showKeptPanel();
    Application& app_;
    std::function<void()> leave_;
    bool running_ = false;
    // 1 the console, 2 the remote, 0 neither was on screen when the visual opened.
    int keptPanel_ = 0;
};

}  // namespace brevane
