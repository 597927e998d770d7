#pragma once
// Formtips: a few words on getting started, shown once, at the first run, on the
// console's Timer4. "Next Tip" walks the tips round; "Close" hides the panel.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>

#include "base/controls.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class TipsPanel {
  public:
    static constexpr std::array<const char*, 4> kTips = {
        "Welcome to Brevane. A soundscape here is called a scenario: a mix of looping "
        "background sounds, sounds that come at random, weather, and more; "
        "whatever you change plays at once, and the whole session comes back at the next "
        "start.",

        "To load a scenario, pick its name in the scenario list of the main console and "
        "press \"Load\". \"Save\" keeps your own mix as a scenario of its own, and the "
        "preset buttons bring back a scenario with one click.",

        "To mix a bank, press \"Background 1\", \"Background 2\" or \"Random\". In a "
        "background bank, tick a sound to start its loop, then set its Volume and Balance; "
        "its Volume Range and Rate Of Change let the level wander by itself. In a random "
        "bank, raise a sound's Frequency slider to hear it more often, and its Volume "
        "slider to hear it louder. The sliders of the main console set the level of each "
        "whole group.",

        "To use the weather, press \"Evolve\": rain comes and goes with thunder, and day "
        "turns to night, each at the rate you choose, by moving the banks' own sliders as "
        "you would. Turn it off again to keep your mix as it stands.",
    };

    explicit TipsPanel(Application& app);

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();
    Label tipText;
    // "Tip 1 of 4".
    Label tipNumber;
    CommandButton nextButton;
    CommandButton closeButton;

    // Shows the panel at the first tip.
    void show();
    // Index of the tip shown, 0 first.
    int tipIndex() const { return tip_; }

  private:
    void showTip(int index);
    Application& app_;
    int tip_ = 0;
};

}  // namespace brevane
