#pragma once
// FRMOPTIONS: the program-wide settings. Loaded at start-up and in being for the whole
// run; other panels read its check boxes directly (app.FRMOPTIONS.confirmExit).
//
// Four pages, one shown at a time, chosen with "Startup Options", "Program Options",
// "Soundcard Select" and "Hotkeys".
//
// opti.tmp keeps the nine settings, in this order: colourWithScenario,
// colourOnRemote, startHidden, autoHide, previousScenario (check boxes, 1 or 0),
// inactivityTime (text), confirmExit, brainwaveWithScenario, dragContents. It is read
// at load, after the defaults, and written at unload. A file that reads only part of
// the way applies the settings it holds, in order.
//
// settings.ini keeps "Launch program automatically on boot"; the check box makes or
// removes the desktop's autostart entry (core/autostart.h) as it changes.
//
// Soundcard Select lists the output devices so that a row's index is its driver
// number. "Apply" keeps the chosen device for the next start (SoundCardIndex and
// scard.tmp); the running engine is not touched.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <string>

#include "base/controls.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class OptionsPanel {
  public:
    static constexpr std::array<const char*, 7> kInactivityTimes = {"30",  "60",  "90", "120",
                                                                    "180", "240", "300"};
    static constexpr const char* kDefaultInactivity = "60";
    static constexpr const char* kCurrentSoundcard = "Current Soundcard: ";
    static constexpr const char* kRestartText =
        "Please restart the application for the change to take effect.";
    static constexpr const char* kOptionsFile = "opti.tmp";
    static constexpr const char* kLaunchFile = "settings.ini";

    explicit OptionsPanel(Application& app);

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();

    // The page buttons, and the four pages: a page is shown while its frame is visible.
    CommandButton startupOptionsButton;
    CommandButton programOptionsButton;
    CommandButton soundcardSelectButton;
    CommandButton hotkeysButton;
    Label startupFrame;
    Label programFrame;
    Label soundcardFrame;
    Label hotkeysFrame;

    // The nine settings of opti.tmp, in file order.
    CheckBox colourWithScenario;
    CheckBox colourOnRemote;
    CheckBox startHidden;
    CheckBox autoHide;
    CheckBox previousScenario;
    Label inactivityLabel;
    ComboBox inactivityTime;
    CheckBox confirmExit;
    CheckBox brainwaveWithScenario;
    CheckBox dragContents;

    CheckBox launchOnBoot;
    // "Show visuals on monitor 2 ( Dual monitor setup only )": the slideshow and the
    // panoramic fill the second screen when there is one. Kept in the settings store.
    CheckBox secondMonitor;
    static constexpr const char* kVisualsSection = "Visuals";
    static constexpr const char* kSecondMonitorKey = "SecondMonitor";

    // Soundcard Select.
    ListBox soundDevices;
    CommandButton applyButton;
    Label currentSoundcard;

    // The program's keys, one line each.
    ListBox hotkeys;

    CommandButton closeButton;

    // Panel creation: lists, defaults, then opti.tmp and settings.ini.
    void load();
    // Program end: opti.tmp is written.
    void unload();

    // The inactivity time as a number of seconds; 0 when the text holds none.
    int inactivitySeconds() const;

    // The text of opti.tmp for the settings as they stand.
    std::string optionsRecord() const;

  private:
    void showPage(Label& frame);
    void apply();
    void readOptionsFile();
    void readLaunchFile();
    void launchOnBootClicked();
    void setInactivityText(const std::string& text);

    Application& app_;
    // Set while load applies settings.ini, so the entry is only made or removed when
    // the setting really changes.
    bool loading_ = false;
};

}  // namespace brevane
