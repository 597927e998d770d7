#pragma once
// A saved scenario rendered to a sound file, far faster than it would play: the whole
// program runs headless on virtual time, with the offline mixer, on a scratch copy of
// the tree, so the file holds what the program plays for that scenario and that random
// seed; drift, random firings, weather and night all follow the virtual clock.
//
// The render runs on the thread that calls it (the recorder's worker); the program it
// builds lives and dies on that thread. Progress and cancel cross threads through
// RenderProgress.

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "base/app_path.h"
#include "engine/sound_file_writer.h"

namespace brevane {

struct RenderOptions {
    std::string scenario;
    std::int64_t lengthMs = 60 * 60 * 1000;
    // Each generator as the program's session last left its settings, on or off here.
    bool weather = false;
    bool night = false;
    bool equalizer = false;
    bool reverb = false;
    bool brainwaves = false;
    // The ends faded over kFadeMs (or a quarter of a short render).
    bool fadeIn = false;
    bool fadeOut = false;
    std::uint64_t seed = 1;
    SoundFileFormat format = SoundFileFormat::Flac16;
    std::filesystem::path file;
};

// Shared between the rendering thread and the one that watches it.
struct RenderProgress {
    std::atomic<std::uint64_t> framesDone{0};
    std::atomic<std::uint64_t> framesTotal{0};
    std::atomic<bool> cancel{false};
};

struct RenderResult {
    enum class Outcome { Done, Cancelled, Failed };
    Outcome outcome = Outcome::Failed;
    // Why a render failed, in words for the user.
    std::string error;
    std::uint64_t frames = 0;
    // Integrated loudness of the file, LUFS; nothing for silence.
    std::optional<double> loudness;
};

inline constexpr std::int64_t kFadeMs = 10'000;
inline constexpr std::int64_t kMaxRenderMs = 12LL * 60 * 60 * 1000;

// Renders options.scenario of the tree at `tree` into options.file. The file appears
// only when the render is whole; a cancel or a failure leaves nothing, and a file of the
// same name stays as it was until then.
RenderResult renderScenario(const AppPath& tree, const RenderOptions& options,
                            RenderProgress& progress);

}  // namespace brevane
