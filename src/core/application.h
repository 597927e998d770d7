#pragma once
// The Application: every panel of the program, created once and in being until exit,
// built on a Platform. Panels reach each other through it, by the names the program's
// panels have always had: app.frmmain.Master, app.frmrandommain.maxvol,
// app.Frmsoundindent.soundPlaying.
//
// Life: start() shows the splash; its timer runs the console's load (Frmmain::load);
// then timers and user events drive everything until the console's quit. The
// Application does not end the process itself: it reports that it wants to end
// through onExit, and the host (the program's main, or a test) acts on it.
//
// Not thread-safe: the Application and its panels live on the event thread.

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "banks/background/background_bank.h"
#include "banks/random/identify_panel.h"
#include "banks/random/random_bank.h"
#include "banks/random/randomize_settings.h"
#include "banks/random/select_sounds.h"
#include "brainwaves/frmbwave.h"
#include "core/frmmain.h"
#include "core/media_control.h"
#include "core/mix_group.h"
#include "core/options_panel.h"
#include "core/platform.h"
#include "core/remote.h"
#include "core/startup_splash.h"
#include "core/tips_panel.h"
#include "fx/frmeffects.h"
#include "media/cd_player.h"
#include "media/mp3_player.h"
#include "scenarios/export_wizard.h"
#include "scenarios/import_panel.h"
#include "scheduling/alarm_panel.h"
#include "scheduling/scheduler_panel.h"
#include "shell/colour_picker.h"
#include "shell/colour_scheme.h"
#include "shell/frmdemo.h"
#include "shell/panel_colours.h"
#include "visuals/panoramic.h"
#include "visuals/slideshow.h"
#include "weather/frmevolve.h"

namespace brevane {

enum class ExitKind {
    // The sound engine could not start: end at once, nothing cleaned up or written.
    Immediate,
    // The quit ran its course: panels unloaded, session written.
    AfterCleanUp,
};

class Application {
  public:
    explicit Application(const Platform& platform);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // The platform every panel uses. The random source is the program's only one.
    const AppPath appPath;
    SoundEngine& engine;
    EventLoop& loop;
    Dialogs& dialogs;
    SettingsStore& settings;
    brevane::Random& random;
    AutostartEntry* const autostart;
    ProgramLauncher& launcher;
    DesktopServices& desktop;
    SystemPower& power;

    // Values the panels share.
    // Which random bank the console's "Random" button shows: 1 to 4, 5 the custom bank.
    int CurrentRandomBank = 1;
    // The output device the engine opens, from scard.tmp.
    int SoundCardIndex = 0;
    // The ceiling of the intro fade of Master, from the session. Without a saved level
    // (a first run, or a session started afresh) the fade rises to a level at which the
    // soundscape is plainly heard.
    int SavedMasterLevel = Frmmain::kBuiltInMasterLevel;
    // Which panel was shown last, as the console reads it; the custom background bank
    // sets 3.
    int PanelMarker = 0;
    // The sound selection panel's hand-over to the custom banks: the files chosen, in
    // order, the rest empty.
    std::array<std::string, 28> handOverFiles{};
    // The program's colour scheme, which every panel's docolors paints from: the
    // built-in values until the session's (mainb.tmp, colors.tmp) replace them and
    // frmDemo applies them at start; then whatever frmDemo applies.
    ColourScheme scheme = builtInScheme();
    // The session flags, kept in states.tmp in this order. RemoteShown: the compact
    // remote stands in for the console. MainShown: the console has come to the front.
    bool RemoteShown = false;
    bool MainShown = false;
    bool PanoramicShown = false;
    bool SlideshowShown = false;
    bool VisualFlag5 = false;
    // "True" when the alarm was armed at the end of the last session.
    std::string AlarmArmed;
    // The scenario named on the status display and kept in the session files.
    std::string CurrentScenarioName;
    std::string LoadedScenarioName;
    // The weather and night generators' status words, shown on the console's display.
    std::string weatherStatus = "Static";
    std::string nightStatus = "Disabled";
    // The options' inactivity time, taken at start.
    int InactivitySeconds = 0;
    // Loop time of the user's last key or pointer movement, which the visuals' inactivity
    // watch measures from.
    std::int64_t lastInputMs = 0;
    void noteInput() { lastInputMs = loop.now(); }

    // The panels. Constructors only wire handlers; each panel's load does its work.
    StartupSplash STARTUP;
    Frmmain frmmain;
    BackgroundBank frmback;
    BackgroundBank frmback2;
    BackgroundBank frmbackcustom;
    RandomBank frmrandommain;
    RandomBank frmrandommain2;
    RandomBank frmrandommain3;
    RandomBank frmrandommain4;
    RandomBank frmcustom;
    // Randomize settings: Form3 for the four fixed banks, Form33 for frmcustom.
    RandomizeSettings Form3;
    RandomizeSettings Form33;
    IdentifyPanel Frmsoundindent;
    // "Select Sounds", which fills the custom banks in one go.
    SelectSoundsPanel Form2;
    OptionsPanel FRMOPTIONS;
    TipsPanel Formtips;
    // Rain, thunder and the night, driving bank one, bank two and the random banks.
    Frmevolve frmevolve;
    // The beat generator.
    Frmbwave frmbwave;
    // The equalizer and the reverb over all the sound.
    Frmeffects frmeffects;
    // The alarm clock.
    AlarmPanel Alarm;
    // The scheduler, and its folder chooser.
    SchedulerPanel Timers;
    ScenarioFolderPanel frmaddscenariodirectory;
    // Installs scenario packages.
    ImportPanel Frmimport;
    // Packs the current scenario for another installation.
    ExportWizard formexportscen;
    // The colour schemes, and their colour picker.
    Frmdemo frmDemo;
    ColourPicker Frmcolorpicker;
    // The MP3 player, its playlist and folder chooser.
    Frmmainmp3 frmmainmp3;
    // The CD player.
    Frmcd frmcd;
    // The soundscape as the desktop's media keys and player applets see it.
    MediaControl media;
    // The compact remote, which can stand in for the console.
    Frmremote2 frmremote2;
    // The visuals: the slideshow and its selector, and the panoramic view.
    Slideshow Form1;
    SlideshowSelector Formfolderselect;
    Panoramic form999;

    // The program's first act: the splash, whose timer starts the load.
    void start();

    // Program end. onExit is told once; exitRequested() keeps the answer for a host
    // that polls.
    std::function<void(ExitKind)> onExit;
    std::optional<ExitKind> exitRequested() const { return exitRequested_; }
    void requestExit(ExitKind kind);

    // frmrandommain to frmrandommain4, bank 1 first.
    std::array<RandomBank*, 4> randomBanks();
    // Bank `number`, 1 to 4, or frmcustom for 5 (CurrentRandomBank's values); nullptr
    // for any other number.
    RandomBank* randomBank(int number);

    // frmback, frmback2, frmbackcustom.
    std::array<BackgroundBank*, 3> backgroundBanks();

    // Every panel following the console's group sliders, in the order the console
    // writes to them.
    std::vector<MixGroupFollower*> groupFollowers();

    // Every panel painted from the colour scheme, the console first; the splash, shown
    // before any scheme is read, keeps the program's own look.
    std::vector<PanelColours*> paintedPanels();
    // The scheme panel's Apply: frmDemo and the console paint from the scheme, and every
    // other panel that is open. A closed panel paints itself when it opens.
    void applyScheme();

    // Hides every bank panel (the Identify panel's bank buttons).
    void hideBanks();

    // One panel taking another's place on screen: `target` moves to where `reference`
    // stands. Positions belong to the interface, which sets placeWindow; without it
    // (headless) nothing moves.
    std::function<void(const PanelWindow& target, const PanelWindow& reference)> placeWindow;
    void placeLike(const PanelWindow& target, const PanelWindow& reference);

    // Holds the machine awake while the alarm or the scheduler has something to do,
    // and lets it go when neither has.
    void keepAwake();

    // The last act of the quit: every panel unloads in turn.
    void unloadPanels();

  private:
    std::optional<ExitKind> exitRequested_;
};

}  // namespace brevane
