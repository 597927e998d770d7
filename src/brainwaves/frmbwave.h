#pragma once
// frmbwave: the beat generator. Two looping tones, one hard left and one hard right,
// play at slightly different rates, and the listener hears a beat at the difference.
// The user sets a base frequency and a beat; the panel turns them into the two rates,
// names the beat's range ("Alpha", "Theta" ...) and can glide both from a start to an
// end value over minutes, then fade out and stop.
//
// The rates. The tones (bin/1.BWZ, bin/2.BWZ) hold a sine of exactly 100 samples a
// period, so a playback rate of r Hz sounds at r / 100 Hz. The left rate is basefreq
// / 10 and the right (basefreq - slideroffset) / 10, so the beat heard is
// slideroffset / 1000 Hz: the number the beat display shows.
//
// Glides step in whole slider units twice a second by half the per-second step,
// rounded by the slider; a step that rounds to 0 never arrives, as it always has. Only
// a rising base glide may start the fade; a rising beat glide asks "enable fade" or
// "starting fade wait" before it starts the fade or its wait.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "base/controls.h"
#include "base/event_loop.h"
#include "base/preset_folder.h"
#include "base/settings_store.h"
#include "core/lcd_display.h"
#include "engine/sound_engine.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class Frmbwave {
  public:
    static constexpr int kTransitionMs = 500;
    static constexpr int kFadeMs = 2000;
    static constexpr int kFadeWaitMs = 60000;
    static constexpr int kPresetFields = 9;
    static constexpr int kSessionFields = 13;
    static constexpr const char* kSettingsSection = "Settings27";
    static constexpr const char* kSessionFile = "bwave.tmp";
    static constexpr const char* kPresetFolder = "config/bwaves";
    static constexpr const char* kPresetExtension = ".rvf";
    static constexpr const char* kLeftTone = "bin/1.BWZ";
    static constexpr const char* kRightTone = "bin/2.BWZ";
    static constexpr const char* kNoRange = "None";
    static constexpr const char* kEnableFadeText = "enable fade";
    static constexpr const char* kFadeWaitText = "starting fade wait";
    static constexpr std::array<const char*, 11> kTransitionMinutes = {
        "1", "2", "3", "4", "5", "7", "10", "15", "20", "25", "30"};
    static constexpr std::array<const char*, 6> kFadeWaitMinutes = {"1",  "2",  "5",
                                                                    "10", "15", "20"};

    explicit Frmbwave(Application& app);
    Frmbwave(const Frmbwave&) = delete;
    Frmbwave& operator=(const Frmbwave&) = delete;

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();

    // Frequencies in slider units: base / 10000 Hz, beat / 1000 Hz.
    Slider basefreq{20000, 882000, 20000};
    Slider rightfreq{0, 882000, 0};
    Slider slideroffset{0, 17000, 0};
    Slider basestart{200000, 882000, 200000};
    Slider baseend{200000, 882000, 200000};
    Slider beatstart{3000, 17000, 3000};
    Slider beatend{3000, 17000, 3000};
    // "Volume". The fade takes it to 0, below a hand's lowest, to stop the sound.
    Slider maxvol{1, 70, 70};

    // "Play": down while the tones play.
    ToggleButton playtoggle;
    CheckBox Check100;  // "Change base frequency over time"
    ComboBox baseminutes;
    CheckBox Check101;  // "Change beat frequency over time"
    ComboBox beatminutes;
    CheckBox fadeimmediate;
    CheckBox fadeafter;
    ComboBox fadewaitminutes;

    // The frequencies as texts, in Hz.
    TextBox baseStartText;
    TextBox baseEndText;
    TextBox beatStartText;
    TextBox beatEndText;
    TextBox currentBaseText;
    TextBox currentBeatText;
    // The beat's range at the start, at the end and now; the status word.
    TextBox startRange;
    TextBox endRange;
    TextBox currentRange;
    TextBox statusWord;

    // The current base, the current beat, the current range.
    LcdDisplay LCD1;
    LcdDisplay LCD2;
    LcdDisplay LCD3;

    ComboBox presetBox;
    PresetFolder presets;
    CommandButton saveButton;
    CommandButton saveAsButton;
    CommandButton deleteButton;
    CommandButton defaultButton;
    CommandButton previousButton;
    CommandButton nextButton;
    CommandButton closeButton;

    Timer Timertrans1;
    Timer Timertrans2;
    Timer Timerfade;
    Timer Timerfadewait;

    // The glides' arithmetic, and the beat last given to the right channel.
    int baseDistance = 0;
    int baseSeconds = 0;
    int baseStep = 0;
    int beatDistance = 0;
    int beatSeconds = 0;
    int beatStep = 0;
    int offsetCache = 0;
    int fadeWaitCounter = 0;

    SampleHandle leftSample = 0;
    SampleHandle rightSample = 0;
    ChannelHandle leftChannel = 0;
    ChannelHandle rightChannel = 0;

    std::optional<WindowPosition> position;

    // Panel creation: the tones, the presets, bwave.tmp's preset, the displays.
    void load();
    // Program end: the preset's name to bwave.tmp, the position kept.
    void unload();

    bool playing() const { return playtoggle.value(); }
    // The play button's work, by its state.
    void Command1_Click();
    void STOPSOUNDS();
    // The glides set up again from the sliders (an end value moved).
    void CHECKTRANS();
    // The pair's level from Volume and the console's Bwaves and Master.
    void applyVolume();
    int volume() const;

    // A beat text's range name; nothing above 17 Hz.
    static std::optional<std::string> rangeName(const std::string& beatText);
    // A slider value as the displays show it: value / divisor, shortest decimal form.
    static std::string frequencyText(int value, int divisor);

    // The session record (13 fields), written as a scenario's 13.scs; doload changes
    // nothing when its preset name is the box's.
    std::string record() const;
    bool dosave(const std::filesystem::path& file);
    void doload(const std::filesystem::path& file);

    void transitionBaseTick();
    void transitionBeatTick();
    void fadeTick();
    void fadeWaitTick();

  private:
    struct Values;
    void setupTransitions(bool fromCheckTrans);
    void runFrequencyHandlers();
    void basefreqChanged();
    void slideroffsetChanged();
    void beatstartChanged();
    void beatendChanged();
    void showCurrentRange(const std::string& beatText);
    void check100Changed();
    void check101Changed();
    void applyValues(const Values& v);
    bool readPreset(const std::filesystem::path& file);
    void setPresetCommandsEnabled(bool enabled);

    Application& app_;
};

}  // namespace brevane
