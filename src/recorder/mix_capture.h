#pragma once
// Record mode: the program's own mix, as it plays, into a sound file.

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "engine/mix_share.h"
#include "engine/sound_file_writer.h"
#include "recorder/loudness.h"

namespace brevane {

// Connects to the program's mix share and writes what arrives on a thread of its own,
// so the window never waits on the disk. The file keeps a temporary name until stop().
//
// Thread: start() and stop() on one thread; the read-outs from any.
class MixCapture {
  public:
    MixCapture() = default;
    ~MixCapture();
    MixCapture(const MixCapture&) = delete;
    MixCapture& operator=(const MixCapture&) = delete;

    enum class Start { Started, NoProgram, FileFailed };
    Start start(const std::string& address, const std::filesystem::path& file,
                SoundFileFormat format);
    // Ends the recording and gives the file its name. False when a write failed; the
    // file is then gone.
    bool stop();

    // False once the program has gone or a write has failed: the recording then waits
    // for stop() to keep what it has.
    bool live() const { return live_.load(std::memory_order_acquire); }
    bool active() const { return file_ != nullptr; }
    std::uint64_t frames() const { return frames_.load(std::memory_order_relaxed); }
    std::uintmax_t bytes() const { return file_ ? file_->sizeOnDisk() : 0; }
    // The highest level of each channel in the latest piece received, 0 to 1.
    float peak(int channel) const { return peaks_[channel & 1].load(std::memory_order_relaxed); }
    // Of the last recording, once stopped.
    std::optional<double> loudness() const { return loudness_; }

  private:
    void run();

    MixShareClient client_;
    std::unique_ptr<SoundFileStream> file_;
    std::unique_ptr<LoudnessMeter> meter_;
    std::thread thread_;
    std::atomic<bool> live_{false};
    std::atomic<bool> writeFailed_{false};
    std::atomic<std::uint64_t> frames_{0};
    std::atomic<float> peaks_[2] = {0.0f, 0.0f};
    std::optional<double> loudness_;
};

}  // namespace brevane
