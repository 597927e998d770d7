#pragma once
// Form3 and Form33: the settings of Randomize and its automatic repeat. Form3 serves
// the four fixed random banks, Form33 the custom bank.
//
// The period list holds minutes ("1" to "60"); a bank's `timerautorandom` runs at the
// period's number x 1000 ms and Randomizes on every 60th tick. The threshold slider is
// the upper range of Randomize (0 to 245).
//
// "Close" re-times and restarts the repeat of one bank only (frmrandommain for Form3,
// frmcustom for Form33), whatever its Auto button shows, and hides the panel: the other
// fixed banks keep the interval they had.
//
// Form3 keeps its window position in the settings store, section "Settings4", in the
// units the store has always held (twips, 15 to a pixel at 96 dpi). The top is read
// with 500 added and written back as it stands, so the window creeps down by that much
// from one session to the next.
//
// Not thread-safe: a panel lives on the event thread.

#include <optional>
#include <string>

#include "base/controls.h"
#include "base/settings_store.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;
class RandomBank;

class RandomizeSettings {
  public:
    static constexpr int kThresholdMax = 245;
    static constexpr int kAutoTickMs = 1000;
    static constexpr int kTopOffset = 500;

    // `closeTarget` is the bank "Close" acts on; it must outlive the panel.
    // `settingsSection` empty: the panel keeps no position.
    RandomizeSettings(Application& app, RandomBank& closeTarget, std::string caption,
                      std::string settingsSection);

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();
    Label periodLabel;
    Label thresholdLabel;
    // "Randomize every ... minutes": empty until the user picks.
    ComboBox period;
    // "Frequency threshold".
    Slider threshold{0, kThresholdMax, 0};
    CommandButton closeButton;

    // The window position, in twips, as read at load; views keep it current.
    using Position = WindowPosition;
    std::optional<Position> position;

    // The repeat's interval for the period shown: its number x 1000 ms, 0 when the box
    // holds no number.
    int autoIntervalMs() const;

    void load();
    void unload();

  private:
    void close();

    Application& app_;
    RandomBank& closeTarget_;
    std::string settingsSection_;
};

}  // namespace brevane
