#pragma once
// frmeffects: the ten-band equalizer and the room reverb over everything the program
// plays. Both live in the engine's one effects chain on the whole mix, the equalizer
// first.
//
// The rebuild. A change of the chain's shape (a toggle, a preset, a reverb slider)
// pauses every channel, drops every effect, builds the chain again from the toggles
// and resumes. The engine makes that inaudible: the pause and the resume meet within
// one ramp, and the new chain takes over the old one's tails. An equalizer slider
// writes straight to its band, with no rebuild.
//
// Ids. The engine's effect ids of one rebuild die with the next; the panel keeps the
// latest ten band ids and the reverb's, and a call on a dead id does nothing.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "base/controls.h"
#include "base/preset_folder.h"
#include "base/settings_store.h"
#include "engine/sound_engine.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

class Frmeffects {
  public:
    static constexpr int kBands = 10;
    static constexpr int kReverbSliders = 16;
    // The reverb's files and records hold elements 0 to 14.
    static constexpr int kReverbFileFields = 15;
    static constexpr int kRecordFields = kBands + kReverbFileFields + 4;
    // A band's slider value at 0 dB, and its ends (-15 and +15 dB).
    static constexpr int kFlat = 15;
    static constexpr int kBandTop = 30;
    static constexpr float kBandwidthSemitones = 18.0f;
    // The centres the filters use, Hz, band 0 first; the captions name the octave bands.
    static constexpr std::array<int, kBands> kCentreHz = {80,   170,  310,   600,   1000,
                                                          3000, 6000, 12000, 14000, 16000};
    static constexpr std::array<const char*, kBands> kBandCaptions = {
        "31Hz", "62", "125", "250", "500", "1Khz", "2Khz", "4Khz", "8Khz", "16Khz"};
    static constexpr const char* kSettingsSection = "Settings17";
    static constexpr const char* kSessionFile = "effects.tmp";
    static constexpr const char* kEqFolder = "config/fx/EQ Presets";
    static constexpr const char* kEqExtension = ".eqf";
    static constexpr const char* kReverbFolder = "config/fx/Reverb Presets";
    static constexpr const char* kReverbExtension = ".rvf";
    static constexpr const char* kCustom = "Custom";
    static constexpr const char* kDisabled = "Disabled";
    // What a fresh panel's boxes read: the stock presets its sliders stand on.
    static constexpr const char* kFlatPreset = "Flat";
    static constexpr const char* kDefaultPreset = "Default";

    // One reverb slider: its caption, range and default. Elements without a caption
    // are kept in the files and drive nothing.
    struct ReverbSlider {
        const char* caption;
        int min;
        int max;
        int value;
    };
    static constexpr std::array<ReverbSlider, kReverbSliders> kReverbSliderTable = {{
        {"Room", 0, 10000, 9000},
        {"RoomHF", 0, 10000, 10000},
        {"", 10, 200, 83},
        {"", 10, 200, 83},
        {"Roll off Factor", 0, 10, 10},
        {"", 10, 200, 83},
        {"Decay Time", 1, 100, 20},
        {"Decay HF Ratio", 10, 200, 83},
        {"Reflections", 0, 11000, 7398},
        {"Reflections Delay", 0, 3000, 7},
        {"Reverb", 0, 100, 11},
        {"Reverb Delay", 0, 2000, 1},
        {"Diffusion", 0, 100, 100},
        {"Density", 0, 100, 100},
        {"HF Reference", 20, 20000, 5000},
        {"", 10, 200, 83},
    }};

    explicit Frmeffects(Application& app);
    Frmeffects(const Frmeffects&) = delete;
    Frmeffects& operator=(const Frmeffects&) = delete;

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();

    // The equalizer: gain in dB is value - 15.
    std::array<Slider, kBands> VScroll1;
    // The reverb, elements 0 to 15 of the table.
    std::array<Slider, kReverbSliders> hscroll101;
    CheckBox check_eq;     // "On / Off"
    CheckBox check_rev3d;  // "On / Off"

    ComboBox Combo1;  // equalizer presets
    ComboBox Combo2;  // reverb presets
    PresetFolder eqPresets;
    PresetFolder reverbPresets;
    CommandButton eqSaveButton;
    CommandButton eqDeleteButton;
    CommandButton eqDefaultsButton;
    CommandButton eqPreviousButton;
    CommandButton eqNextButton;
    CommandButton reverbSaveButton;
    CommandButton reverbDeleteButton;
    CommandButton reverbDefaultsButton;
    CommandButton reverbPreviousButton;
    CommandButton reverbNextButton;
    // The spare echo: a chain of its own until the next rebuild.
    CommandButton Command3;
    CommandButton closeButton;

    // The latest rebuild's ids; -1 before the first.
    std::array<int, kBands> eqIds;
    int reverbId = -1;

    std::optional<WindowPosition> position;

    // Panel load: the preset lists, effects.tmp's toggles and presets, one rebuild.
    void load();
    // Program end: effects.tmp, the position, the engine shut.
    void unload();

    // Pause, drop every effect, build the chain from the toggles, resume.
    void rebuild();
    // A band's filter at its centre with `gainDb`.
    void FXSetEQ(int band, float gainDb);
    // The reverb's parameters from its sliders.
    ReverbParams reverbParams() const;
    static ReverbParams reverbParams(const std::array<int, kReverbSliders>& values);

    // The settings record, 29 fields: bands, reverb elements 0-14, the toggles, the
    // boxes' texts.
    std::string record() const;
    bool dosave(const std::filesystem::path& file);
    void doload(const std::filesystem::path& file);

  private:
    struct Values;
    void eqToggled();
    void reverbToggled();
    void eqSliderMoved(int band);
    void reverbSliderMoved();
    void setReverb();
    void enableEqualizer();
    void enableReverb();
    void enableControls();
    void presetPicked(ComboBox& box, PresetFolder& presets);
    bool readEqPreset(const std::filesystem::path& file);
    bool readReverbPreset(const std::filesystem::path& file);
    void setBandsQuietly(const std::array<int, kBands>& values);
    void setReverbQuietly(const std::array<int, kReverbSliders>& values, int count);
    // The console's Reverb and Equalizer lines.
    void showOnConsole();
    void restoreSession();

    Application& app_;
    // Set while a preset or a record moves the sliders: their handlers leave the chain
    // and the boxes to the one rebuild that follows.
    bool applying_ = false;
};

}  // namespace brevane
