#pragma once
// frmmain: the main console. It owns start-up and shutdown and fans each group
// slider out to every panel that follows it.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/controls.h"
#include "base/event_loop.h"
#include "core/lcd_display.h"
#include "core/menu.h"
#include "core/mix_group.h"
#include "core/session_files.h"
#include "scenarios/scenario_files.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class Frmmain {
  public:
    static constexpr int kIntroFadeMs = 60;
    // The intro fade's ceiling when no session gives one.
    static constexpr int kBuiltInMasterLevel = 60;
    static constexpr const char* kEngineFailedText =
        "There was a problem initializing the sound engine. Please restart the application. "
        "If the problem persists, please contact support.";
    static constexpr const char* kReallyQuitText = "Really Quit?";

    explicit Frmmain(Application& app);

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();

    // The six MixGroup sliders, in the order the session keeps them. Each change is
    // written into every follower's copy (Application::groupFollowers()).
    GroupSlider Master{MixGroup::Master};
    GroupSlider Background{MixGroup::Background};
    GroupSlider Random{MixGroup::Random};
    GroupSlider MP3{MixGroup::MP3};
    GroupSlider CD{MixGroup::CD};
    GroupSlider Bwaves{MixGroup::Bwaves};

    // "Background 1", "Background 2", "Custom Background": show frmback, frmback2,
    // frmbackcustom.
    CommandButton background1Button;
    CommandButton background2Button;
    CommandButton customBackgroundButton;
    // "Random": shows the random bank CurrentRandomBank names.
    CommandButton randomButton;
    // "Identify": shows Frmsoundindent.
    CommandButton identifyButton;
    // "Master Stop": silences the banks, leaving the engine open and Master where it is.
    CommandButton masterStopButton;
    // The quit command; the tray menu's "Quit App" clicks it too.
    CommandButton QuitCommand;

    // The console's two fields for the latest sound fired, its name and its location,
    // kept current by Frmsoundindent's timer.
    TextBox latestSoundName;
    TextBox latestSoundLocation;

    // Raises Master one step a tick up to SavedMasterLevel, then stops itself.
    Timer TimerIntroVolFade;

    // ---- The session (frmmain_session.cpp) ----
    static constexpr int kFirstRunMs = 2000;
    static constexpr int kShowOldFormMs = 200;
    static constexpr int kMinimizeMs = 100;
    static constexpr const char* kFirstRunScenario = "Summer Storm";
    // The hidden restore command: every bank's session copy, then recallprevious.
    CommandButton restoreCommand;
    // First run: one shot after the load, shows the tips.
    Timer Timer4;
    // One shot after recallprevious: brings back the remote view, or the console.
    Timer Timershowoldform;
    // "Minimize on startup": one shot, hides the console and the remote.
    Timer Timer10;
    // The session's values whose panels are not in the program yet.
    SessionCarry carry;
    // Restores the visible panels from states.tmp and main.tmp.
    void recallprevious();

    // ---- The console's face (frmmain_console.cpp, frmmain_status.cpp) ----
    static constexpr int kClockMs = 1000;
    static constexpr int kCustomLcdUpdateMs = 3000;
    static constexpr int kPresetButtons = 14;
    static constexpr const char* kRecorderProgram = "recorder";
    static constexpr const char* kRecorderMissingText =
        "The recorder could not be found. Please re-install the program.";
    static constexpr const char* kManual = "help/index.html";
    static constexpr const char* kNoInformationText =
        "There is currently no information for this scenario.";
    static constexpr const char* kTrayToolTip = "Brevane";

    // Later panels follow a group slider here beyond their copies: the MP3 player's
    // volume, the beat generator on Bwaves and Master, the remote's mute button on
    // Master. A hook runs after every copy is written (and, for Master, every bank's
    // channels are updated), with the slider's value, in the order hooks were added.
    // Hooks stay for the whole run, as the panels do.
    using GroupHook = std::function<void(int value)>;
    void onGroupMoved(MixGroup group, GroupHook hook);

    // Mute, the tray menu's "Mute": the first click keeps the Master level and puts
    // Master (and every copy) at 0, below the hand's lower end; the next click, or any
    // move of Master meanwhile, brings the kept level back.
    void mute();
    bool muted() const;

    // The status panel. Lines 1 and 2 of each display hold its captions, lines 3 and 4
    // the live text beside them.
    LcdDisplay LCD1;  // "Scenario": the current scenario; "Previous": the one before
    LcdDisplay LCD2;  // "Time": Timer2's clock; "Alarm": the alarm state
    LcdDisplay LCD3;  // "Scheduler": its state; "Playlist": interval or playlist name
    LcdDisplay LCD4;  // "Weather", "Night": the generators' status words
    LcdDisplay LCD5;  // "Preset": "Presets: " and the list name; the preset's name
    LcdDisplay LCD6;  // "Reverb", "Equalizer": the effect presets, "Disabled" when off
    LcdDisplay LCD7;  // "Bank": the latest random sound; where it sits
    LcdDisplay LCD8;  // "Bwaves": the beat generator's list text; its range
    std::array<LcdDisplay*, 8> displays();

    // Rewrites the live lines from the state of every panel.
    void checklcd();
    // The Bwaves display: "Disabled", or the beat generator's preset while it plays,
    // with the range the beat generator last named.
    void dobrainwavecheck();
    // The beat's range as the beat generator names it, "None" before it has.
    Label brainwaveRange;
    // Rewrites display 4 from the weather and night status words.
    void updatelcd4();
    // Shows the scheduler's playlist name in the "Playlist" field.
    void updatelcdplaylist(const std::string& playlistName);
    // The fixed captions of displays 1, 2, 4 and 6.
    void loadlcd1();
    void loadlcd2();
    void loadlcd4();
    void loadlcd6();

    // Writes the time of day on LCD2 every second from the load.
    Timer Timer2;
    // One shot after a custom bank changes: checklcd.
    Timer Timercustomlcdupdate;
    // Arms Timercustomlcdupdate (again). Runs whenever a slot of a custom bank takes
    // another sound or name.
    void customBankChanged();

    // The command buttons, by caption. Those whose panel is not in the program yet
    // stand disabled in their place.
    CommandButton brainwavesButton;          // "Brainwaves": frmbwave
    CommandButton evolveButton;              // "Evolve": frmevolve
    CommandButton mp3Button;                 // "MP3": frmmainmp3
    CommandButton cdButton;                  // "CD": frmcd
    CommandButton effectsButton;             // "Effects": frmeffects
    CommandButton scheduleButton;            // "Schedule": Timers
    CommandButton alarmSettingsButton;       // "..." beside the alarm: Alarm
    CommandButton alarmOnButton;             // "Alarm On"
    CommandButton alarmOffButton;            // "Alarm Off"
    CommandButton colorsButton;              // "Colors": frmDemo
    CommandButton optionsButton;             // "Options": FRMOPTIONS
    CommandButton importButton;              // "Import": Frmimport
    CommandButton exportButton;              // "Export": formexportscen
    CommandButton loadButton;                // scenario "Load"
    CommandButton saveButton;                // scenario "Save"
    CommandButton saveAsButton;              // scenario "Save As"
    CommandButton deleteButton;              // scenario "Delete"
    CommandButton presetAssignButton;        // "Assign"
    CommandButton presetClearButton;         // "Clear"
    CommandButton presetSaveAsButton;        // the presets' "Save As"
    CommandButton presetLoadButton;          // the presets' "Load"
    CommandButton switchToControllerButton;  // "Switch to controller": frmremote2
    CommandButton recButton;                 // "Rec": the companion recorder
    CommandButton helpButton;                // "Help": the manual
    // "Info": shows and hides the scenario information area.
    ToggleButton infoButton;
    std::array<CommandButton, kPresetButtons> presetButtons;

    // The scenarios of config/scenarios, by name, and the information about the one
    // loaded.
    ListBox scenarioList;
    TextBox information;

    // The tray icon and its menu mnutray: "Slideshow", "Movie", "Panoramic", a
    // separator, "Scenario" (one entry per scenario, "Load Random Scenario", "Load
    // Scenario From Disk"), "Mute", "Show Remote", "Show Main", "Quit App".
    TrayIcon trayIcon;
    MenuEntry mnutray;
    MenuEntry& mnuMute() { return *mnuMute_; }
    MenuEntry& mnuScenario() { return *mnuScenario_; }
    // Rebuilds the "Scenario" entries from the scenario list.
    void buildScenarioMenu();

    // "Rec": starts the recorder beside the program, or says it is missing.
    void startRecorder();
    // "Help": opens the manual with the desktop's handler.
    void openManual();

    // ---- Scenarios (frmmain_scenarios.cpp) ----
    static constexpr const char* kWaitingText = "Waiting....";
    static constexpr const char* kNoPreviousScenario = "N/A";
    static constexpr const char* kRemoteScenarioPrefix = "Scenario: ";
    static constexpr const char* kDefaultSlideshow = "Default";
    static constexpr const char* kScenarioNamePrompt =
        "Please type a name to identify this scenario";
    static constexpr const char* kOverwriteScenarioText =
        "A preset already exists with this name. Overwrite?";
    static constexpr const char* kNotSavedText = "Not saved";
    static constexpr const char* kSelectToDeleteText =
        "Please select the scenario you wish to delete from the list to the left.";
    static constexpr const char* kDeleteScenarioText = "This will delete the scenario -";
    static constexpr const char* kDeleteScenarioQuestion = " .Do you wish to continue?";
    static constexpr const char* kScenarioFilter = "Brevane 6.0 Scenario Files (*.scn)| *.scn";
    static constexpr const char* kLoadFromDiskTitle = "Load Scenario From Disk";
    // The scenario folder, config/scenarios.
    std::filesystem::path scenarioFolder() const;
    // The road of one scenario load. A name with no members changes nothing but the
    // names on the status display. `folder` is config/scenarios unless given.
    void doload(const std::string& name, const std::filesystem::path& folder = {});
    // The information text and the main settings of a scenario.
    void loadmainsettings(const std::string& name, const std::filesystem::path& folder = {});
    // Writes the whole family under `name`, without asking; the name becomes current.
    // False when a member could not be written.
    bool dosave(const std::string& name);
    // "Save As": asks for the name, and before writing over another scenario.
    void saveScenarioAs();
    // "Save": over the current scenario.
    void saveScenario();
    // "Delete": the scenario selected in the list, after asking.
    void deleteScenario();
    // "Load": the scenario selected in the list.
    void loadSelectedScenario();
    // The tray's "Load Random Scenario" and "Load Scenario From Disk".
    void loadRandomScenario();
    void loadScenarioFromDisk();
    // Rebuilds the scenario list, and the tray's entries with it, from the markers.
    void refreshscenariolist();

    // ---- Presets (frmmain_presets.cpp) ----
    static constexpr int kFlashMs = 600;
    static constexpr int kPresetStatusMs = 3000;
    static constexpr Colour kFlashWhite = 16777215;
    static constexpr Colour kFlashRed = 255;
    static constexpr const char* kUnassigned = "Currently Unassigned";
    static constexpr const char* kFlashing = "flashing";
    static constexpr const char* kNotFlashing = "notflashing";
    static constexpr const char* kAssignTitle =
        "Select the scenario file to be assigned to the preset";
    static constexpr const char* kPresetFilter = "Brevane Preset Files (*.pst)| *.pst";
    static constexpr const char* kClearPresetsText = "This will clear all presets. Continue?";
    static constexpr const char* kPresetListUnreadableText = "The preset file could not be opened.";
    static constexpr const char* kPresetListNotSavedText = "The preset list could not be saved.";
    // The list the program starts with on a first run, in config/presets.
    static constexpr const char* kStockPresetList = "Starter";
    // The loaded preset list's name: "None" once cleared, empty before any.
    std::string PresetListName;
    // "flashing" while an assignment waits for its button, else "notflashing".
    std::string PresetFlashState = kNotFlashing;
    // The scenario file an assignment under way has chosen, and its folder.
    std::string PendingScenarioFile;
    std::string PendingScenarioFolder;
    // Alternates the fourteen captions between white and red while an assignment waits.
    Timer Timerflash;
    // Clears the preset line of the display a while after a preset command showed it.
    Timer timerpresetstatus;
    // A preset button's caption: the scenario it loads, or "Currently Unassigned".
    const std::string& presetCaption(int index) const;
    PresetCaptions presetCaptions() const;
    void setPresetCaptions(const PresetCaptions& captions);
    // A press of preset button `index`, 0 to 13: assigns while an assignment waits,
    // else loads its scenario.
    void cmdpreset_Click(int index);
    // The pointer over preset button `index`: its scenario on the preset line.
    void presetHover(int index);
    // "Assign", "Clear", and the presets' "Save As" and "Load".
    void assignPreset();
    void clearPresets();
    void savePresetList();
    void loadPresetList();
    // Reads a preset list onto the fourteen buttons; false, changing nothing, when the
    // file is missing, short or damaged.
    bool readPresetListFile(const std::filesystem::path& file);

    GroupSlider& group(MixGroup which);

    // The console's load: the whole of start-up after the splash, step by step.
    void load();
    // Quit without the confirmation question: for a request to end from outside the
    // program (a termination signal), and the tail of QuitCommand.
    void quitWithoutAsking();
    // From the start of the quit to the end of the program.
    bool quitting() const { return quitting_; }
    // Master Stop.
    void masterStop();
    // The "Random" button: shows frmrandommain to frmrandommain4, or frmcustom, by
    // CurrentRandomBank.
    void showRandomBank();

    void unload();

  private:
    // The session (frmmain_session.cpp).
    void wireSession();
    void readMainAtLoad();
    void readMainbAtLoad();
    void restorePreviousSession();
    void firstRunTick();
    void showOldFormTick();
    void minimizeTick();
    void trackMainShown();
    void writeSessionStates();
    void writeSessionFiles();
    MainRecord mainRecord() const;
    MainbRecord mainbRecord() const;
    bool shownBefore_ = false;
    // The session flags as recallprevious read them, for Timershowoldform.
    bool recalledRemoteShown_ = false;
    bool recalledMainShown_ = false;
    // The load has run to its end: the last session is read and applied.
    bool sessionLoaded_ = false;

    // The console's face (frmmain_console.cpp, frmmain_status.cpp).
    void wireConsole();
    void wireStatus();
    void buildTrayMenu();
    void clockTick();
    void watchCustomBanks();
    void unmute();
    // Moves the lower end of Master and of every copy of it: 0 while muted.
    void setMasterFloor(int low);
    std::array<std::vector<GroupHook>, kMixGroups.size()> groupHooks_;
    int mutedMasterLevel_ = 0;
    MenuEntry* mnuMute_ = nullptr;
    MenuEntry* mnuScenario_ = nullptr;

    // Scenarios and presets (frmmain_scenarios.cpp, frmmain_presets.cpp).
    void wireScenarios();
    void wirePresets();
    void setScenarioControlsEnabled(bool enabled);
    // A scenario marker chosen in the file dialog, starting in the scenario folder.
    std::optional<std::filesystem::path> chooseScenarioFile(const char* title);
    ScenarioMainRecord scenarioMainRecord() const;
    void showPresetStatus(const std::string& text);
    void flashTick();
    bool flashRed_ = false;

    void groupChanged(MixGroup which);
    void introFadeTick();
    void readSoundCard();

    Application& app_;
    bool quitting_ = false;
};

}  // namespace brevane
