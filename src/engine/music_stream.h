// Music beside the soundscape: one file streamed from disk, never decoded whole.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "engine/spsc_queue.h"

namespace brevane {

// What the music players need of a playback layer: one file at a time, its position,
// its length, a pause, a volume in hundredths of a decibel and the news that it ended.
//
// Thread: every member on the interface thread.
class MediaPlayer {
  public:
    virtual ~MediaPlayer() = default;
    // Opens the file, paused at its start; false (and nothing playing) when it does not
    // open as sound. Any container and codec FFmpeg reads.
    virtual bool setFile(const std::filesystem::path& file) = 0;
    // Stops and forgets the file.
    virtual void clear() = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    virtual bool playing() const = 0;
    // Seconds from the start of the file; -1 when no file is open.
    virtual double position() const = 0;
    virtual void setPosition(double seconds) = 0;
    // Length in seconds; 0 when unknown or no file is open.
    virtual double duration() const = 0;
    // Hundredths of a decibel: 0 full, -10000 silent; above 0 acts as 0.
    virtual void setVolume(int hundredthsDb) = 0;
    virtual int volume() const = 0;
    // True once for each time the file has played to its end, from the call after the
    // last of its sound was heard.
    virtual bool takeEnded() = 0;
};

// The engine's music bus. A decoder thread reads the file with FFmpeg, resamples it to
// stereo at the mix rate and fills a lock-free ring of a few seconds; the mixing thread
// adds the ring's frames to the mix after the effects, before the output stage. A file
// of any length costs the ring and the decoder's own buffers, a few megabytes.
//
// The mixing side (mixInto) never blocks, allocates or touches disk: it only copies
// from the ring and reads marks the decoder leaves in a second lock-free queue (where a
// seek or a new file starts in the ring, where the file ends).
class MusicStream final : public MediaPlayer {
  public:
    // Frames the ring holds: about three seconds.
    static constexpr std::size_t kRingFrames = std::size_t{1} << 17;

    MusicStream();
    ~MusicStream() override;
    MusicStream(const MusicStream&) = delete;
    MusicStream& operator=(const MusicStream&) = delete;

    bool setFile(const std::filesystem::path& file) override;
    void clear() override;
    void play() override;
    void pause() override;
    bool playing() const override;
    double position() const override;
    void setPosition(double seconds) override;
    double duration() const override;
    void setVolume(int hundredthsDb) override;
    int volume() const override;
    bool takeEnded() override;

    // Offline render: waits until every change asked for is taken up by the decoder and
    // the ring holds `frames` frames of the stream (or its end), so that the same calls
    // always give the same samples. Only on the thread that mixes (the interface thread
    // of an offline engine).
    void waitFilled(int frames);

    // Mixing thread: adds `frames` interleaved stereo frames of music to `out`.
    void mixInto(float* out, int frames);

    struct Source;

  private:
    // Where the ring's content changes meaning: a new file or a seek starts at `index`
    // with the frame `firstFrame` of the file; or the file ends at `index`.
    struct Mark {
        std::uint64_t index = 0;
        std::int64_t firstFrame = 0;
        bool end = false;
        bool live = false;  // a start with a file behind it
        // The change of the interface thread that the start answers.
        std::uint32_t epoch = 0;
    };

    void run();
    // Decoder thread: decodes and writes one piece; false at the end of the file.
    bool fill(Source& source);
    void startEpoch(std::int64_t firstFrame, bool live);
    // Mixing thread: takes the decoder's marks; returns the read index, past what a
    // newer start leaves unheard.
    std::uint64_t takeMarks(std::uint64_t read);
    // Interface thread: a new file, a seek or a clear, made by `change` under the lock
    // together with its number, so the decoder always takes the two as one.
    template <typename Change>
    void request(std::int64_t firstFrame, Change change);

    std::vector<float> ring_;
    std::atomic<std::uint64_t> write_{0};  // frames written, by the decoder
    std::atomic<std::uint64_t> read_{0};   // frames taken, by the mixing thread
    SpscQueue<Mark> marks_{64};

    std::atomic<bool> paused_{true};
    std::atomic<float> gain_{1.0f};
    std::atomic<std::int64_t> positionFrames_{-1};
    // The change whose start the mixer has reached, and the one whose end it has heard:
    // a position or an end of an older change is never taken for the present one.
    std::atomic<std::uint32_t> heardEpoch_{0};
    std::atomic<std::uint32_t> endedEpoch_{0};

    // Mixing-thread state.
    std::uint64_t endIndex_ = UINT64_MAX;
    std::int64_t frameAtStart_ = 0;
    std::uint64_t startIndex_ = 0;
    bool live_ = false;
    bool endCounted_ = false;
    std::uint32_t markEpoch_ = 0;
    float currentGain_ = 0.0f;

    // Interface-thread state.
    int volume_ = 0;
    double duration_ = 0.0;
    bool open_ = false;
    std::uint32_t requested_ = 0;
    std::int64_t requestedFrame_ = -1;
    bool endTaken_ = true;

    // Between the interface thread and the decoder thread.
    std::mutex mutex_;
    std::condition_variable wake_;    // a change for the decoder
    std::condition_variable filled_;  // the decoder wrote or took up a change
    std::unique_ptr<Source> incoming_;
    bool replace_ = false;
    bool seek_ = false;
    double seekTo_ = 0.0;
    std::uint32_t requestEpoch_ = 0;
    bool quit_ = false;
    bool atEnd_ = false;
    bool hasSource_ = false;
    std::uint64_t epochStart_ = 0;

    std::thread thread_;  // last: started once everything above is built
};

}  // namespace brevane
