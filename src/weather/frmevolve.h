#pragma once
// frmevolve: the soundscape changing by itself. Rain showers come and go on background
// bank one, thunderstorms rise, hold and fall on random bank four, and after a delay the
// day's birds, insects and loops give way to night sounds. The panel plays nothing: it
// writes what a hand could write on the banks (a loop on or off, a level, drift limits
// and speed, a frequency) and the banks' own drift and schedulers do the rest.
//
// Rain has no state of its own: each tick of Timerevolve reads it back from the bank
// (Clear: slots 3, 4 and 5 off; Shower: one on with limits 20 to the maximum;
// Dissipating: limits at 0, falling). Thunder's state is which timer runs: Timerthun
// waiting, thundervolume rising, Timerthunderlength holding, timerthundervolumefade
// falling. The night runs one way: nighttimer counts the delay, nightfadeout takes the
// day out, nightfadein brings the chosen night groups up and keeps them there.
//
// Kept as the panel has always behaved: the rise ends one step above Max Volume; a
// thunder frequency left above 0 after a storm reads as a storm under way, so the next
// trigger only runs one fade tick; a storm already rising outlives the switch; the third
// rain slot takes the rain's speed with no random part; slot 14 of random banks one and
// three is left out of the night's end test; slots 25 to 28 of the frogs follow slot 24.
//
// The settings record (dosave, doload): one line of 30 fields, shared by the presets
// (config/evolve/<name>.rvf), evo.ini and a scenario's 14.scs member.
//
// Not thread-safe: a panel lives on the event thread.

#include <filesystem>
#include <optional>
#include <string>

#include "base/controls.h"
#include "base/event_loop.h"
#include "base/preset_folder.h"
#include "base/settings_store.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;
class BackgroundBank;

class Frmevolve {
  public:
    static constexpr int kTickMs = 10000;
    static constexpr int kThunderHoldMs = 30000;
    static constexpr int kNightMinuteMs = 60000;
    static constexpr int kNightFadeInMs = 5000;
    static constexpr int kRecordFields = 30;
    static constexpr const char* kSettingsSection = "Settings10";
    static constexpr int kTopOffset = 60;
    static constexpr const char* kSessionFile = "evo.ini";
    static constexpr const char* kPresetFolder = "config/evolve";
    static constexpr const char* kPresetExtension = ".rvf";
    static constexpr const char* kEnableWeather = "Enable Changeable Weather";
    static constexpr const char* kDisableWeather = "Disable Changeable Weather";
    static constexpr const char* kEnableNight = "Enable Night Transition";
    static constexpr const char* kDisableNight = "Disable Night Transition";

    explicit Frmevolve(Application& app);
    Frmevolve(const Frmevolve&) = delete;
    Frmevolve& operator=(const Frmevolve&) = delete;

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();

    // ---- Rain and thunder ----
    Slider hscrollrain{0, 100, 80};             // Occurence (rain)
    Slider hscrollsevrain{1, 3, 3};             // Severity (rain)
    Slider Hscrollweatherspeed{0, 995, 850};    // Rate of Vol Change (rain)
    Slider Hscrollduration{2800, 4950, 3800};   // Length of Event (rain)
    Slider hscrollmaxrain{20, 250, 200};        // Max Volume (rain)
    Slider hscrollthunder{0, 100, 80};          // Occurence (thunder)
    Slider hscrollsevthun{0, 255, 255};         // Severity (thunder)
    Slider hscrollthunderspeed{0, 950, 950};    // Rate of Vol Change (thunder)
    Slider hscrollthunderlength{0, 1000, 500};  // Length of Event (thunder)
    Slider hscrollmaxthunder{20, 250, 200};     // Max Volume (thunder)
    // "Enable Changeable Weather" / "Disable Changeable Weather".
    ToggleButton masterevolve;
    // What the slider last moved means, in words.
    TextBox hintBox;
    // The cached copies of three rain sliders; only rainMaxLevel is read again.
    int rainChance = 80;
    int rainLength = 3800;
    int rainMaxLevel = 200;

    Timer Timerevolve;
    Timer Timerthun;
    Timer thundervolume;
    Timer Timerthunderlength;
    Timer timerthundervolumefade;

    // ---- Night ----
    Slider delay{1, 120, 30};  // minutes before the transition
    Label delayMinutes;        // the delay, as the minutes display shows it
    Slider Ratetonight{10, 700, 200};
    CheckBox Frogs;
    Slider frogsfreq{0, 100, 100};
    Slider frogsvolume{0, 250, 120};
    CheckBox Insects;
    Slider Insectsfreq{0, 100, 100};
    Slider insectsvolume{0, 250, 120};
    CheckBox nightbirdscheck;
    Slider Nightfreq{0, 100, 100};
    Slider nightbirdsvolume{0, 250, 120};
    CheckBox Crickets;
    Slider cricketsvolume{0, 250, 125};
    CheckBox Campfire;
    Slider campfirevolume{0, 250, 125};
    // Kept in the record and driving nothing; campfiresize is not even kept.
    Slider spareSize1{0, 5000, 2500};
    Slider spareSize2{0, 5000, 2500};
    Slider campfiresize{0, 5000, 2500};
    // "Enable Night Transition" / "Disable Night Transition".
    ToggleButton masternight;
    int minuteCounter = 0;

    Timer nighttimer;
    Timer nightfadeout;
    Timer nightfadein;

    // ---- Presets ----
    ComboBox presetBox;
    // The presets of config/evolve, listed in presetBox.
    PresetFolder presets;
    CommandButton saveButton;
    CommandButton saveAsButton;
    CommandButton deleteButton;
    CommandButton defaultsButton;
    CommandButton previousButton;
    CommandButton nextButton;
    CommandButton closeButton;

    // The window's position, from the settings store at load and back at unload.
    std::optional<WindowPosition> position;

    // Panel creation: the preset list, evo.ini, the kept position. Unload writes both.
    void load();
    void unload();

    // The two toggles' work, by their state. The scenario load runs them too.
    void MasterEvolve_Click();
    void Masternight_Click();
    // A scenario load's weather and night entries.
    void scenarioLoaded();

    // The settings record, CR LF included.
    std::string record() const;
    // Writes the record whole; false when it cannot be written.
    bool dosave(const std::filesystem::path& file);
    // Reads a record as far as it goes and applies fields 1 to 27, then the preset box
    // text; the toggles stay as they stand. Missing or short files change what they do
    // not reach not at all.
    void doload(const std::filesystem::path& file);

    // The ticks.
    void evolveTick();
    void thunderTick();
    void thunderRiseTick();
    void thunderHoldTick();
    void thunderFadeTick();
    void nightMinuteTick();
    void nightFadeOutTick();
    void nightFadeInTick();

  private:
    struct Values;
    void apply(const Values& v, int fields);
    bool readPreset(const std::filesystem::path& file);
    void refreshCaches();
    void setWeatherSlidersEnabled(bool enabled);
    void setNightControlsEnabled(bool enabled);
    void showHint(const std::string& text);
    void startRainSlot(int s, int speed);
    void startNightLoop(int first, int second, int high);
    void weatherSpeedChanged();
    void maxThunderChanged();
    int roll(int n);

    Application& app_;
    BackgroundBank& rainBank_;
    BackgroundBank& nightBank_;
};

}  // namespace brevane
