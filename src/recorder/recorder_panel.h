#pragma once
// The recorder's window, headless: two modes on one panel.
//
// Record: the program's own mix, captured while it plays, into FLAC, Ogg Vorbis or WAV,
// with a level meter per channel, the time recorded and the size written.
// Render: a saved scenario, a length from a minute to twelve hours and the generators
// to include, rendered on a worker thread far faster than it would play, with a
// progress bar, the time left and a cancel that leaves no file behind.
//
// Thread: the panel and its controls live on the event thread; the worker and the
// capture thread are its own, and Timerwatch brings what they do to the controls.

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>

#include "base/app_path.h"
#include "base/controls.h"
#include "base/dialogs.h"
#include "base/event_loop.h"
#include "base/settings_store.h"
#include "engine/sound_file_writer.h"
#include "recorder/mix_capture.h"
#include "recorder/scenario_render.h"

namespace brevane {

// A length as typed or picked: "90", "90 minutes", "2 hours", "1:30". Nothing for any
// other text or a length outside a minute to twelve hours.
std::optional<std::int64_t> parseRenderLength(const std::string& text);
// "About 2 min left", from the wall time spent on `done` of `total`.
std::string timeLeftText(double secondsSpent, std::uint64_t done, std::uint64_t total);
// "1:02:03"
std::string durationText(std::uint64_t frames, int rate);

class RecorderPanel {
  public:
    static constexpr const char* kTitle = "Brevane Recorder";
    static constexpr int kWatchMs = 100;
    static constexpr int kQuietestLevel = -60;  // dBFS at the meter's bottom

    // `tree`: the program's folder, whose scenarios are rendered. `saveFolder`: where
    // files go unless the user chooses another. `shareAddress`: the program's mix.
    RecorderPanel(const AppPath& tree, EventLoop& loop, Dialogs& dialogs,
                  std::filesystem::path saveFolder, std::string shareAddress);
    // Cancels a render and ends a recording (which keeps its file).
    ~RecorderPanel();
    RecorderPanel(const RecorderPanel&) = delete;
    RecorderPanel& operator=(const RecorderPanel&) = delete;

    PanelWindow window;
    OptionGroup modes;
    OptionButton recordMode;  // "Record what Brevane plays"
    OptionButton renderMode;  // "Render a scenario"
    ComboBox formatBox;       // "FLAC", "Ogg Vorbis", "WAV"
    TextBox fileBox;          // the file to write
    CommandButton browseButton;

    // Record mode.
    Control recordFrame;
    CommandButton recordButton;
    CommandButton stopButton;
    Slider levelLeft{kQuietestLevel, 0, kQuietestLevel};
    Slider levelRight{kQuietestLevel, 0, kQuietestLevel};
    Label elapsedLabel;
    Label sizeLabel;

    // Render mode.
    Control renderFrame;
    ComboBox scenarioBox;
    ComboBox lengthBox;  // editable: a listed length or one typed
    CheckBox weatherCheck;
    CheckBox nightCheck;
    CheckBox equalizerCheck;
    CheckBox reverbCheck;
    CheckBox brainwavesCheck;
    CheckBox fadeInCheck;
    CheckBox fadeOutCheck;
    TextBox seedBox;
    CommandButton renderButton;
    CommandButton cancelButton;
    Slider progress{0, 1000, 0};
    Label timeLeftLabel;

    // What happened last: the file written, its length and loudness, or why not.
    Label statusLabel;
    CommandButton closeButton;

    // Follows the capture or the render while one runs.
    Timer Timerwatch;

    // Where the window stands, kept from one run to the next under kSettingsSection.
    static constexpr const char* kSettingsSection = "Recorder";
    std::optional<WindowPosition> position;

    void show();
    // The window's close: ends what runs, then hides.
    void close();
    bool busy() const { return capture_.active() || worker_.joinable(); }
    // The format of formatBox's entry.
    SoundFileFormat format() const;

  private:
    void fillScenarios();
    void modeChanged();
    void formatChanged();
    void suggestFile();
    void browse();
    // False when the user would rather not replace the file, or none is given.
    bool fileChosen();
    void startRecording();
    void stopRecording();
    void startRender();
    void watch();
    void finishRender();
    void setBusy(bool busy);
    void reportWritten(std::uint64_t frames, std::optional<double> loudness);

    AppPath tree_;
    Dialogs& dialogs_;
    std::filesystem::path saveFolder_;
    std::string shareAddress_;

    MixCapture capture_;

    RenderProgress progress_;
    RenderResult result_;
    std::atomic<bool> workerDone_{false};
    std::thread worker_;
    std::chrono::steady_clock::time_point renderStarted_;
};

}  // namespace brevane
