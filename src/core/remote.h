#pragma once
// frmremote2, the compact remote: a small panel that can stand in for the console. It
// mirrors the six group sliders and the console's status, and offers the scenario,
// preset and visual commands in short form; every control calls the console's own
// command, so the remote owns no sound logic.
//
// It also holds what the visuals read: the slideshow folder and its picture names, the
// time per picture in minutes or seconds, the panoramic's name and its speed. Those are
// kept in mainb.tmp with the session.
//
// Not thread-safe: the panel lives on the event thread.

#include <array>
#include <optional>
#include <string>

#include "base/controls.h"
#include "base/event_loop.h"
#include "base/settings_store.h"
#include "core/mix_group.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class Frmremote2 : public MixGroupFollower {
  public:
    static constexpr int kRefreshMs = 50;
    static constexpr int kPresetButtons = 14;
    static constexpr const char* kNoMp3 = "No MP3 currently selected";
    static constexpr const char* kDefaultTime = "1";

    explicit Frmremote2(Application& app);
    Frmremote2(const Frmremote2&) = delete;
    Frmremote2& operator=(const Frmremote2&) = delete;

    PanelWindow window;
    PanelColours colours{window, [this] { docolors(); }};

    // The console's six group sliders, mirrored both ways.
    GroupSlider Master{MixGroup::Master};
    GroupSlider Background{MixGroup::Background};
    GroupSlider Random{MixGroup::Random};
    GroupSlider MP3{MixGroup::MP3};
    GroupSlider CD{MixGroup::CD};
    GroupSlider Bwaves{MixGroup::Bwaves};

    // The status captions.
    Label scenarioCaption;    // "Scenario: " and the name
    Label presetsCaption;     // "Presets: " and the list
    Label brainwavesCaption;  // "Brainwaves: Inactive", or the beat playing
    Label alarmCaption;       // "Alarm: Not Set", "Alarm: 07:30:00", "Alarm Playing"
    Label mp3Caption;         // the MP3 player's track
    Label schedulerCaption;   // "Scheduler Off", "Scheduler: On - Next: 5mins"

    // The scenario commands: the list, "Load" and "Random".
    ComboBox scenarios;
    CommandButton loadButton;
    CommandButton randomButton;
    // The console's fourteen preset buttons, by number; the tool tip names the scenario.
    std::array<CommandButton, kPresetButtons> presetButtons;
    ToggleButton muteButton;   // "Mute", as the console's Mute
    CommandButton mainButton;  // "Main": the console comes back

    // The visuals.
    CommandButton slideshowButton;     // "Slideshow"
    CommandButton slideshowSetButton;  // "Slides...": Formfolderselect
    CommandButton panoramicButton;     // "Panoramic"
    CommandButton panoramicSetButton;  // "Change": another panoramic
    // The slideshow folder, under visual/slideshow, and the names of its pictures.
    TextBox slideshowFolder;
    ListBox pictureNames;
    // The time each picture shows, and its unit.
    TextBox Text1;
    OptionGroup unit;
    OptionButton Option1;  // "Minutes"
    OptionButton Option2;  // "Seconds"
    // The panoramic's name, without ".jpg".
    TextBox Text2;
    // The panoramic's speed, mirrored with the panoramic's own.
    Slider speed;

    // The console refreshes the remote through this one shot.
    Timer Timer3;
    static constexpr const char* kSettingsSection = "Remote";
    std::optional<WindowPosition> position;

    void load();
    void unload();
    void docolors();
    // The remote's show entry.
    void showRemote();
    // "Switch to controller": the remote stands in for the console and the banks.
    void switchToController();
    // "Main": the console comes back in the remote's place.
    void showMain();
    // Asks for a refresh a moment from now.
    void refreshSoon();
    // Rewrites the captions and lists from the console and the panels.
    void refresh();

    // Points the slideshow at folder `name` (under visual/slideshow) and reads its
    // pictures; a folder that is not there leaves an empty list.
    void pointAtSlideshow(const std::string& name);
    // The panoramic's name; empty or "Default" is the default picture.
    std::string panoramicName() const { return Text2.text(); }
    void setPanoramic(const std::string& name);

    Slider* groupCopy(MixGroup group) override;

  private:
    Application& app_;
};

}  // namespace brevane
