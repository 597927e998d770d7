#pragma once
// Frmsoundindent, "Identify Playing Sounds": what the random banks have just played,
// so that a user who hears something can find the row that made it.
//
// Every firing appends the slot's name to the Sound Playing list and its location to
// the Location list (one slot puts its location at the top instead; the panel does
// not repair the drift). Every 200 ms Timer1 selects the last row of each list, copies
// both to the console's latest-sound fields, and trims each list by its first row
// while it holds more than 20.
//
// The window's position is kept in the settings store, section "Settings25".
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <optional>
#include <string>

#include "base/controls.h"
#include "base/event_loop.h"
#include "base/settings_store.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class IdentifyPanel {
  public:
    static constexpr int kRefreshMs = 200;
    // Rows a list keeps before each refresh trims its first.
    static constexpr int kMaxRows = 20;
    static constexpr const char* kWaiting = "Waiting...";
    static constexpr const char* kSettingsSection = "Settings25";

    explicit IdentifyPanel(Application& app);

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();
    ListBox soundPlaying;
    ListBox location;
    // "Clear List": empties both lists and puts "Waiting..." back in each.
    CommandButton clearList;
    // "Bank 1" to "Bank 4" and "Custom": hide every bank and the console, show that
    // bank.
    std::array<CommandButton, 4> bankButtons;
    CommandButton customButton;

    Timer Timer1;

    // The window position, in twips, as read at load; views keep it current.
    std::optional<WindowPosition> position;

    void load();
    void unload();
    // One refresh of Timer1.
    void refresh();

  private:
    void clear();
    void showBank(int number);

    Application& app_;
};

}  // namespace brevane
