#pragma once
// Alarm ("Alarm Configuration"): at a chosen hour and minute it plays a sound over the
// soundscape, or closes the program, or powers the machine off. Armed and disarmed from
// the console's "Alarm On" and "Alarm Off"; its clock test runs from start to end,
// shown or not.
//
// Kept as the alarm has always behaved: it fires only in the second :00 of its minute
// (a tick that misses that second waits for the next day); the spinners run upside
// down, so a kept time comes back mirrored after a restart (h:m as 23-h:59-m, a zero part
// staying 00); "Stop Test" puts the displays out but leaves an armed alarm due; a fade
// from volume 0 never meets its target and climbs to the top; the play lasts one second
// longer than the duration says.
//
// While an alarm is due the machine is held awake, so it does not sleep through it.
//
// Not thread-safe: a panel lives on the event thread.

#include <filesystem>
#include <optional>
#include <string>

#include "base/controls.h"
#include "base/event_loop.h"
#include "base/settings_store.h"
#include "engine/sound_engine.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class AlarmPanel {
  public:
    static constexpr int kClockMs = 1000;
    static constexpr int kFadeMs = 50;
    static constexpr int kCountdownMs = 1000;
    static constexpr int kTestVolume = 3000;
    static constexpr int kPowerOffDelaySeconds = 30;
    static constexpr const char* kSessionFile = "alarm.tmp";
    static constexpr const char* kSettingsSection = "Settings41";
    static constexpr const char* kDefaultSound = "config/alarms/default.wav";
    static constexpr const char* kSoundFilter =
        "All Supported Samples (*.wav, *.mp3, *.ogg, *.wma)|*.wav;*.ogg;*.mp3;*.wma";
    static constexpr const char* kDisabledStatus = "Disabled ";
    static constexpr const char* kPlayingStatus = "Alarm: Playing";

    explicit AlarmPanel(Application& app);
    AlarmPanel(const AlarmPanel&) = delete;
    AlarmPanel& operator=(const AlarmPanel&) = delete;

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();

    // The time: two-digit texts, and the spinners beside them, upside down.
    TextBox Text1;  // hour
    TextBox Text2;  // minute
    ScrollBar VScroll1{0, 23, 0};
    ScrollBar VScroll2{0, 59, 0};
    // "Play alarm for                    secs".
    Label durationLabel;
    ComboBox scombobox1;
    CheckBox repeatCheck;        // "Repeat alarm continuously"
    CheckBox fadeCheck;          // "Fade in alarm volume"
    CheckBox closeProgramCheck;  // "Close program when alarm time is reached "
    CheckBox shutdownCheck;      // "Shutdown computer when alarm time is reached "
    // "Max Alarm Volume", in the engine's channel volume.
    Slider hscroll2{0, 255, 0};
    // The sound to play, by its full path.
    Label wavname;

    CommandButton testButton;        // "Test Alarm"
    CommandButton stopTestButton;    // "Stop Test"
    CommandButton chooseButton;      // "Choose Alarm"
    CommandButton useDefaultButton;  // "Use Default"
    CommandButton stopAlarmButton;   // "Stop Alarm"
    CommandButton closeButton;       // "Close"

    // The clock test, always running; the fade; the end of the play.
    Timer Timer1;
    Timer Timer3;
    Timer Timercountdown;

    // The only thing the clock test looks at: 1 while the alarm is due.
    int armed = 0;
    int fadeTarget = 0;
    int countdown = 0;
    std::string soundFile;
    SampleHandle sample = 0;
    ChannelHandle channel = 0;

    std::optional<WindowPosition> position;

    // Panel creation: the default sound, the durations, alarm.tmp; the clock starts.
    void load();
    // Program end: alarm.tmp and the position.
    void unload();

    // The console's "Alarm On" and "Alarm Off", and what both refresh.
    void alarmOn();
    void alarmOff();
    void refresh();
    // After the time texts change: the displays follow.
    void checkalarms();

    void clockTick();
    void fadeTick();
    void countdownTick();
    void testAlarm();
    void stopTest();
    void chooseAlarm();
    void useDefault();
    void stopAlarm();

    // The window was resized: while minimized its title is the time it went down, so the
    // task bar shows when it was put away; else "Alarm Clock".
    void resized(bool minimized);

    // "HH:MM:00" from the two texts.
    std::string alarmTime() const;

  private:
    void setArmed(int value);
    void loadSound();
    void readSession();

    Application& app_;
};

}  // namespace brevane
