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

// Where the bus's music comes from: an open file, or a disc read sector by sector.
//
// Thread: made on the interface thread (duration() is asked there, once, before the
// hand-over); from setSource on, only the bus's decoder thread uses it, and destroys it.
// So read and seek may block on a disk or a drive: never on the mixing thread.
class FrameSource {
  public:
    virtual ~FrameSource() = default;
    // Length in seconds; 0 when unknown.
    virtual double duration() const = 0;
    // Up to `frames` interleaved stereo frames at the mix rate into `out`; 0 only at the
    // end (or on a read error that ends the music there).
    virtual int read(float* out, int frames) = 0;
    // Moves to `seconds` from the start, so that the next read begins there; false when
    // the source cannot move (reads then go on from the start of what it can).
    virtual bool seek(double seconds) = 0;
};

// What the music players need of a playback layer: one source at a time, its position,
// its length, a pause, a volume in hundredths of a decibel and the news that it ended.
// The MP3 and CD players share it: the last to load it holds it, and each knows by
// sourceSerial() whether it still does.
//
// Thread: every member on the interface thread.
class MediaPlayer {
  public:
    virtual ~MediaPlayer() = default;
    // Opens the file, paused at its start; false (and nothing playing) when it does not
    // open as sound. Any container and codec FFmpeg reads.
    virtual bool setFile(const std::filesystem::path& file) = 0;
    // Takes `source` in place of what played, paused at its start.
    virtual void setSource(std::unique_ptr<FrameSource> source) = 0;
    // Changes with every setFile, setSource and clear.
    virtual std::uint64_t sourceSerial() const = 0;
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

// The engine's music bus. A decoder thread reads the source (a file through FFmpeg,
// resampled to stereo at the mix rate, or a disc) and fills a lock-free ring of a few
// seconds; the mixing thread
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
    void setSource(std::unique_ptr<FrameSource> source) override;
    std::uint64_t sourceSerial() const override { return serial_; }
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

  private:
    // Where the ring's content changes meaning: a new file or a seek starts at `index`
    // with the frame `firstFrame` of the file; or the file ends at `index`.
    struct Mark {
        std::uint64_t index = 0;
        std::int64_t firstFrame = 0;
        bool end = false;
        bool live = false;  // a start with a source behind it
        // The change of the interface thread that the start answers.
        std::uint32_t epoch = 0;
    };

    void run();
    // Decoder thread: reads and writes one piece; false at the end of the source.
    bool fill(FrameSource& source);
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
    std::uint64_t serial_ = 0;

    // Between the interface thread and the decoder thread.
    std::mutex mutex_;
    std::condition_variable wake_;    // a change for the decoder
    std::condition_variable filled_;  // the decoder wrote or took up a change
    std::unique_ptr<FrameSource> incoming_;
    bool replace_ = false;
    bool seek_ = false;
    double seekTo_ = 0.0;
    std::uint32_t requestEpoch_ = 0;
    bool quit_ = false;
    bool atEnd_ = false;
    bool hasSource_ = false;
    std::uint64_t epochStart_ = 0;

    // Decoder-thread state: the piece being read, allocated once.
    std::vector<float> piece_;

    std::thread thread_;  // last: started once everything above is built
};

}  // namespace brevane
