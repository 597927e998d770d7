#pragma once
// frmmain: the main console. It owns start-up and shutdown and fans each group
// slider out to every panel that follows it.
//
// Not thread-safe: a panel lives on the event thread.

#include <string>

#include "base/controls.h"
#include "base/event_loop.h"
#include "core/mix_group.h"
#include "core/session_files.h"

namespace brevane {

class Application;

class Frmmain {
  public:
    static constexpr int kIntroFadeMs = 60;
    static constexpr const char* kEngineFailedText =
        "There was a problem initializing the sound engine. Please restart the application. "
        "If the problem persists, please contact support.";
    static constexpr const char* kReallyQuitText = "Really Quit?";

    explicit Frmmain(Application& app);

    PanelWindow window;

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

    GroupSlider& group(MixGroup which);

    // The console's load: the whole of start-up after the splash, step by step.
    void load();
    // Quit without the confirmation question: for a request to end from outside the
    // program (a termination signal), and the tail of QuitCommand.
    void quitWithoutAsking();
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

    void groupChanged(MixGroup which);
    void introFadeTick();
    void readSoundCard();

    Application& app_;
    bool quitting_ = false;
};

}  // namespace brevane
