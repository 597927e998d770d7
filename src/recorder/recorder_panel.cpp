#include "recorder/recorder_panel.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "base/file_io.h"
#include "base/preset_folder.h"
#include "core/session_files.h"
#include "engine/mix_format.h"
#include "scenarios/scenario_files.h"

namespace brevane {

namespace {

namespace fs = std::filesystem;

struct FormatEntry {
    const char* caption;
    const char* extension;
    SoundFileFormat format;
};
constexpr std::array<FormatEntry, 3> kFormats = {{
    {"FLAC", ".flac", SoundFileFormat::Flac16},
    {"Ogg Vorbis", ".ogg", SoundFileFormat::OggVorbis},
    {"WAV", ".wav", SoundFileFormat::Wav16},
}};
constexpr const char* kFileFilter = "FLAC|*.flac|Ogg Vorbis|*.ogg|WAV|*.wav";
constexpr std::array<const char*, 10> kLengths = {"10 minutes", "30 minutes", "1 hour",  "2 hours",
                                                  "3 hours",    "4 hours",    "6 hours", "8 hours",
                                                  "10 hours",   "12 hours"};
constexpr const char* kRecordingName = "Brevane recording";

constexpr std::int64_t kMinuteMs = 60'000;

std::optional<std::int64_t> number(std::string_view text) {
    std::int64_t n = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), n);
    if (ec != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return n;
}

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    const auto last = text.find_last_not_of(' ');
    return first == std::string::npos ? std::string() : text.substr(first, last - first + 1);
}

std::string cannotWrite(const std::string& file) {
    return "The file " + file + " could not be written. Please choose another folder.";
}

std::string megabytes(std::uintmax_t bytes) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f MB", static_cast<double>(bytes) / 1e6);
    return text;
}

}  // namespace

std::optional<std::int64_t> parseRenderLength(const std::string& typed) {
    const std::string text = trimmed(typed);
    std::optional<std::int64_t> ms;
    if (const auto colon = text.find(':'); colon != std::string::npos) {
        const auto h = number(std::string_view(text).substr(0, colon));
        const auto m = number(std::string_view(text).substr(colon + 1));
        if (h && m && *m < 60 && text.size() - colon == 3) {
            ms = (*h * 60 + *m) * kMinuteMs;
        }
    } else {
        const auto space = text.find(' ');
        const std::string unit = space == std::string::npos ? "" : trimmed(text.substr(space));
        const auto n = number(std::string_view(text).substr(0, space));
        if (n && (unit.empty() || unit == "minute" || unit == "minutes" || unit == "min")) {
            ms = *n * kMinuteMs;
        } else if (n && (unit == "hour" || unit == "hours" || unit == "h")) {
            ms = *n * 60 * kMinuteMs;
        }
    }
    if (!ms || *ms < kMinuteMs || *ms > kMaxRenderMs) {
        return std::nullopt;
    }
    return ms;
}

std::string timeLeftText(double secondsSpent, std::uint64_t done, std::uint64_t total) {
    if (done == 0 || done >= total || secondsSpent <= 0) {
        return "";
    }
    const double left =
        secondsSpent * static_cast<double>(total - done) / static_cast<double>(done);
    const auto whole = std::max(1L, static_cast<long>(std::ceil(left)));
    return whole < 60 ? "About " + std::to_string(whole) + " s left"
                      : "About " + std::to_string((whole + 30) / 60) + " min left";
}

std::string durationText(std::uint64_t frames, int rate) {
    const std::uint64_t s = frames / static_cast<std::uint64_t>(rate);
    char text[32];
    std::snprintf(
        text, sizeof text, "%llu:%02llu:%02llu", static_cast<unsigned long long>(s / 3600),
        static_cast<unsigned long long>(s / 60 % 60), static_cast<unsigned long long>(s % 60));
    return text;
}

RecorderPanel::RecorderPanel(const AppPath& tree, EventLoop& loop, Dialogs& dialogs,
                             fs::path saveFolder, std::string shareAddress)
    : Timerwatch(loop, kWatchMs),
      tree_(tree),
      dialogs_(dialogs),
      saveFolder_(std::move(saveFolder)),
      shareAddress_(std::move(shareAddress)) {
    window.setCaption(kTitle);
    recordMode.setCaption("Record what Brevane plays");
    renderMode.setCaption("Render a scenario");
    modes.add(recordMode);
    modes.add(renderMode);
    recordMode.onClick = [this] { modeChanged(); };
    renderMode.onClick = [this] { modeChanged(); };

    formatBox.setCaption("Format");
    for (const FormatEntry& f : kFormats) {
        formatBox.addItem(f.caption);
    }
    formatBox.onClick = [this] { formatChanged(); };
    fileBox.setCaption("File");
    browseButton.setCaption("Browse...");
    browseButton.onClick = [this] { browse(); };

    recordButton.setCaption("Record");
    recordButton.onClick = [this] { startRecording(); };
    stopButton.setCaption("Stop");
    stopButton.onClick = [this] { stopRecording(); };
    levelLeft.setCaption("Left");
    levelRight.setCaption("Right");
    elapsedLabel.setCaption(durationText(0, kMixRate));
    sizeLabel.setCaption(megabytes(0));

    scenarioBox.setCaption("Scenario");
    scenarioBox.onClick = [this] { suggestFile(); };
    lengthBox.setCaption("Length");
    for (const char* l : kLengths) {
        lengthBox.addItem(l);
    }
    lengthBox.setListIndex(2);
    weatherCheck.setCaption("Weather");
    nightCheck.setCaption("Night");
    equalizerCheck.setCaption("Equalizer");
    reverbCheck.setCaption("Reverb");
    brainwavesCheck.setCaption("Brainwaves");
    fadeInCheck.setCaption("Fade in");
    fadeOutCheck.setCaption("Fade out");
    seedBox.setCaption("Seed");
    seedBox.setText("1");
    renderButton.setCaption("Render");
    renderButton.onClick = [this] { startRender(); };
    cancelButton.setCaption("Cancel");
    cancelButton.onClick = [this] { progress_.cancel.store(true); };
    progress.setCaption("Progress");
    closeButton.setCaption("Close");
    closeButton.onClick = [this] { close(); };

    Timerwatch.onTick = [this] { watch(); };
    fillScenarios();
    formatBox.setListIndex(0);
    renderMode.setValue(true);
    setBusy(false);
}

RecorderPanel::~RecorderPanel() {
    progress_.cancel.store(true);
    if (worker_.joinable()) {
        worker_.join();
    }
    capture_.stop();
}

void RecorderPanel::show() {
    window.show();
}

void RecorderPanel::close() {
    if (capture_.active()) {
        stopRecording();
    }
    if (worker_.joinable()) {
        progress_.cancel.store(true);
        finishRender();
    }
    window.hide();
}

SoundFileFormat RecorderPanel::format() const {
    const int i = std::max(0, formatBox.listIndex());
    return kFormats[static_cast<std::size_t>(i)].format;
}

void RecorderPanel::fillScenarios() {
    fillList(scenarioBox, folderNames(tree_ / kScenarioFolder, kScenarioMarkerExtension));
    // The scenario the program played last comes first to hand.
    int current = scenarioBox.count() > 0 ? 0 : -1;
    if (const auto main = readWholeFile(tree_ / kMainFile)) {
        const auto read = readMainFile(*main, 2);
        if (read.has(2) && scenarioBox.find(read.record.scenarioName) >= 0) {
            current = scenarioBox.find(read.record.scenarioName);
        }
    }
    scenarioBox.setListIndex(current);
}

void RecorderPanel::modeChanged() {
    const bool rendering = renderMode.value();
    renderFrame.setVisible(rendering);
    recordFrame.setVisible(!rendering);
    suggestFile();
}

void RecorderPanel::suggestFile() {
    const fs::path folder =
        fileBox.text().empty() ? saveFolder_ : fs::path(fileBox.text()).parent_path();
    const std::string name = renderMode.value() && !scenarioBox.text().empty()
                                 ? scenarioBox.text()
                                 : std::string(kRecordingName);
    const int i = std::max(0, formatBox.listIndex());
    fileBox.setText((folder / (name + kFormats[static_cast<std::size_t>(i)].extension)).string());
}

void RecorderPanel::formatChanged() {
    if (fileBox.text().empty()) {
        suggestFile();
        return;
    }
    fs::path file(fileBox.text());
    file.replace_extension(
        kFormats[static_cast<std::size_t>(std::max(0, formatBox.listIndex()))].extension);
    fileBox.setText(file.string());
}

void RecorderPanel::browse() {
    const fs::path current(fileBox.text());
    FileDialogRequest request;
    request.title = "Save the recording as";
    request.startFolder = current.has_parent_path() ? current.parent_path() : saveFolder_;
    request.filter = kFileFilter;
    request.fileName = current.filename().string();
    const auto chosen = dialogs_.saveFile(request);
    if (!chosen) {
        return;
    }
    for (std::size_t i = 0; i < kFormats.size(); ++i) {
        if (chosen->extension() == kFormats[i].extension) {
            formatBox.setListIndex(static_cast<int>(i));
        }
    }
    fileBox.setText(chosen->string());
    // A name typed without an ending gets the format's.
    formatChanged();
}

bool RecorderPanel::fileChosen() {
    if (trimmed(fileBox.text()).empty()) {
        dialogs_.message(MessageKind::Exclamation, "Please choose a file to write.");
        return false;
    }
    std::error_code ec;
    if (fs::exists(fileBox.text(), ec)) {
        return dialogs_.askYesNo("The file " + fileBox.text() +
                                 " already exists. Do you want to replace it?");
    }
    return true;
}

void RecorderPanel::setBusy(bool busy) {
    for (Control* c : std::initializer_list<Control*>{
             &recordMode, &renderMode, &formatBox, &fileBox, &browseButton, &recordButton,
             &scenarioBox, &lengthBox, &weatherCheck, &nightCheck, &equalizerCheck, &reverbCheck,
             &brainwavesCheck, &fadeInCheck, &fadeOutCheck, &seedBox}) {
        c->setEnabled(!busy);
    }
    renderButton.setEnabled(!busy && scenarioBox.count() > 0);
    stopButton.setEnabled(busy && capture_.active());
    cancelButton.setEnabled(busy && worker_.joinable());
    Timerwatch.setEnabled(busy);
}

void RecorderPanel::reportWritten(std::uint64_t frames, std::optional<double> loudness) {
    char lufs[48] = "silent";
    if (loudness) {
        std::snprintf(lufs, sizeof lufs, "loudness %.1f LUFS", *loudness);
    }
    statusLabel.setCaption("Written: " + fs::path(fileBox.text()).filename().string() + ", " +
                           durationText(frames, kMixRate) + ", " + lufs + ".");
}

// ---- record ----

void RecorderPanel::startRecording() {
    if (!fileChosen()) {
        return;
    }
    switch (capture_.start(shareAddress_, fileBox.text(), format())) {
        case MixCapture::Start::Started:
            break;
        case MixCapture::Start::NoProgram:
            dialogs_.message(MessageKind::Exclamation,
                             "Brevane could not be heard. Start Brevane, or end the recording "
                             "another recorder is making, then press Record again.");
            return;
        case MixCapture::Start::FileFailed:
            dialogs_.message(MessageKind::Exclamation, cannotWrite(fileBox.text()));
            return;
    }
    statusLabel.setCaption("Recording...");
    setBusy(true);
}

void RecorderPanel::stopRecording() {
    const std::uint64_t frames = capture_.frames();
    if (capture_.stop()) {
        reportWritten(frames, capture_.loudness());
    } else {
        statusLabel.setCaption("The recording could not be written: the disk may be full.");
    }
    levelLeft.setValue(kQuietestLevel);
    levelRight.setValue(kQuietestLevel);
    setBusy(false);
}

// ---- render ----

void RecorderPanel::startRender() {
    const auto length = parseRenderLength(lengthBox.text());
    if (!length) {
        dialogs_.message(MessageKind::Exclamation,
                         "Please give a length from 1 minute to 12 hours, such as \"90 minutes\" "
                         "or \"2 hours\".");
        return;
    }
    const auto seed = number(trimmed(seedBox.text()));
    if (!seed || *seed < 0) {
        dialogs_.message(MessageKind::Exclamation, "The seed must be a whole number.");
        return;
    }
    if (scenarioBox.listIndex() < 0 || !fileChosen()) {
        return;
    }
    RenderOptions o;
    o.scenario = scenarioBox.text();
    o.lengthMs = *length;
    o.weather = weatherCheck.checked();
    o.night = nightCheck.checked();
    o.equalizer = equalizerCheck.checked();
    o.reverb = reverbCheck.checked();
    o.brainwaves = brainwavesCheck.checked();
    o.fadeIn = fadeInCheck.checked();
    o.fadeOut = fadeOutCheck.checked();
    o.seed = static_cast<std::uint64_t>(*seed);
    o.format = format();
    o.file = fileBox.text();

    progress_.cancel.store(false);
    progress_.framesDone.store(0);
    workerDone_.store(false);
    progress.setValue(0);
    timeLeftLabel.setCaption("");
    statusLabel.setCaption("Rendering \"" + o.scenario + "\"...");
    renderStarted_ = std::chrono::steady_clock::now();
    worker_ = std::thread([this, o] {
        result_ = renderScenario(tree_, o, progress_);
        workerDone_.store(true, std::memory_order_release);
    });
    setBusy(true);
}

void RecorderPanel::finishRender() {
    if (worker_.joinable()) {
        worker_.join();
    }
    progress.setValue(0);
    timeLeftLabel.setCaption("");
    switch (result_.outcome) {
        case RenderResult::Outcome::Done:
            progress.setValue(progress.max());
            reportWritten(result_.frames, result_.loudness);
            break;
        case RenderResult::Outcome::Cancelled:
            statusLabel.setCaption("Cancelled: no file was written.");
            break;
        case RenderResult::Outcome::Failed:
            statusLabel.setCaption(result_.error);
            dialogs_.message(MessageKind::Exclamation, result_.error);
            break;
    }
    setBusy(false);
}

// ---- both ----

void RecorderPanel::watch() {
    if (capture_.active()) {
        const auto level = [](float peak) {
            return peak <= 0.0f ? kQuietestLevel
                                : static_cast<int>(std::lround(20.0 * std::log10(peak)));
        };
        levelLeft.setValue(level(capture_.peak(0)));
        levelRight.setValue(level(capture_.peak(1)));
        elapsedLabel.setCaption(durationText(capture_.frames(), kMixRate));
        sizeLabel.setCaption(megabytes(capture_.bytes()));
        if (!capture_.live()) {
            // Brevane has gone (or the disk is full): what was recorded is kept.
            stopRecording();
        }
        return;
    }
    if (!worker_.joinable()) {
        return;
    }
    if (workerDone_.load(std::memory_order_acquire)) {
        finishRender();
        return;
    }
    const std::uint64_t done = progress_.framesDone.load();
    const std::uint64_t total = progress_.framesTotal.load();
    if (total > 0) {
        progress.setValue(static_cast<int>(done * 1000 / total));
        const double spent =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - renderStarted_)
                .count();
        timeLeftLabel.setCaption(timeLeftText(spent, done, total));
    }
}

}  // namespace brevane
