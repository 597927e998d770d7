#include "engine/music_stream.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>

#include "engine/ffmpeg_reader.h"
#include "engine/mix_format.h"

extern "C" {
#include <libavutil/channel_layout.h>
}

namespace brevane {

namespace {

// A sound file and its conversion to the mix's stereo floats.
class FileSource final : public FrameSource {
  public:
    bool open(const std::filesystem::path& file) { return reader.open(file); }
    ~FileSource() override { av_channel_layout_uninit(&swrLayout); }

    double duration() const override { return reader.durationSeconds(); }

    int read(float* out, int frames) override {
        int written = 0;
        while (written < frames) {
            if (pendingPos * 2 >= pending.size()) {
                if (drained) {
                    break;
                }
                const AVFrame* f = reader.next();
                if (f == nullptr) {
                    drained = true;
                }
                if (!convert(f) && f == nullptr) {
                    break;
                }
                continue;
            }
            const std::size_t count = std::min<std::size_t>(
                static_cast<std::size_t>(frames - written), pending.size() / 2 - pendingPos);
            std::copy_n(pending.data() + 2 * pendingPos, 2 * count, out + 2 * written);
            pendingPos += count;
            written += static_cast<int>(count);
        }
        return written;
    }

    bool seek(double seconds) override {
        pending.clear();
        pendingPos = 0;
        toDrop = 0;
        drained = false;
        const bool moved = reader.seek(seconds);
        dropUntil = moved ? seconds : -1.0;
        return moved;
    }

  private:
    FfmpegReader reader;
    std::unique_ptr<SwrContext, SwrFreer> swr;
    AVChannelLayout swrLayout{};
    int swrRate = 0;
    int swrFormat = -1;
    std::vector<float> pending;  // converted frames not yet in the ring, interleaved
    std::size_t pendingPos = 0;  // in frames
    // Frames still to drop after a seek, which lands on the key frame before the target.
    std::int64_t toDrop = 0;
    double dropUntil = -1.0;  // seconds; set by a seek, turned into toDrop by the first frame
    bool drained = false;     // the resampler gave its tail

    bool convert(const AVFrame* f) {
        const int inFrames = f == nullptr ? 0 : f->nb_samples;
        if (f != nullptr && (!swr || av_channel_layout_compare(&swrLayout, &f->ch_layout) != 0 ||
                             swrRate != f->sample_rate || swrFormat != f->format)) {
            av_channel_layout_uninit(&swrLayout);
            av_channel_layout_copy(&swrLayout, &f->ch_layout);
            SwrContext* s = nullptr;
            AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
            const int r = swr_alloc_set_opts2(&s, &stereo, AV_SAMPLE_FMT_FLT, kMixRate, &swrLayout,
                                              static_cast<AVSampleFormat>(f->format),
                                              f->sample_rate, 0, nullptr);
            swr.reset(s);
            if (r < 0 || !swr || swr_init(swr.get()) < 0) {
                swr.reset();
                return false;
            }
            swrRate = f->sample_rate;
            swrFormat = f->format;
        }
        if (!swr) {
            return true;
        }
        const int room = swr_get_out_samples(swr.get(), inFrames);
        if (room <= 0) {
            return true;
        }
        pending.resize(2 * static_cast<std::size_t>(room));
        auto* out = reinterpret_cast<std::uint8_t*>(pending.data());
        const int got = swr_convert(
            swr.get(), &out, room,
            f == nullptr ? nullptr : const_cast<const std::uint8_t**>(f->extended_data), inFrames);
        if (got < 0) {
            pending.clear();
            pendingPos = 0;
            return false;
        }
        pending.resize(2 * static_cast<std::size_t>(got));
        pendingPos = 0;
        for (float& x : pending) {
            if (!std::isfinite(x)) {
                x = 0.0f;  // a damaged file must not reach the mix as garbage
            }
        }
        if (dropUntil >= 0.0 && f != nullptr) {
            const std::int64_t pts = f->best_effort_timestamp;
            const double at = pts == AV_NOPTS_VALUE
                                  ? dropUntil
                                  : static_cast<double>(pts) * av_q2d(reader.stream().time_base);
            toDrop = std::max<std::int64_t>(0, std::llround((dropUntil - at) * kMixRate));
            dropUntil = -1.0;
        }
        const auto frames = static_cast<std::int64_t>(pending.size() / 2);
        const std::int64_t dropped = std::min(toDrop, frames);
        pendingPos = static_cast<std::size_t>(dropped);
        toDrop -= dropped;
        return true;
    }
};

}  // namespace

// Frames the decoder reads from its source at a time.
constexpr int kPieceFrames = 4096;

MusicStream::MusicStream()
    : ring_(2 * kRingFrames, 0.0f), piece_(2 * kPieceFrames), thread_([this] { run(); }) {}

MusicStream::~MusicStream() {
    {
        std::lock_guard lock(mutex_);
        quit_ = true;
    }
    wake_.notify_all();
    thread_.join();
}

template <typename Change>
void MusicStream::request(std::int64_t firstFrame, Change change) {
    ++requested_;
    requestedFrame_ = firstFrame;
    endTaken_ = false;
    {
        std::lock_guard lock(mutex_);
        change();
        requestEpoch_ = requested_;
    }
    wake_.notify_all();
}

bool MusicStream::setFile(const std::filesystem::path& file) {
    auto source = std::make_unique<FileSource>();
    if (!source->open(file)) {
        clear();
        return false;
    }
    setSource(std::move(source));
    return true;
}

void MusicStream::setSource(std::unique_ptr<FrameSource> source) {
    if (!source) {
        clear();
        return;
    }
    duration_ = source->duration();
    paused_.store(true, std::memory_order_relaxed);
    open_ = true;
    ++serial_;
    request(0, [&] {
        incoming_ = std::move(source);
        replace_ = true;
        seek_ = false;
    });
}

void MusicStream::clear() {
    paused_.store(true, std::memory_order_relaxed);
    open_ = false;
    duration_ = 0.0;
    ++serial_;
    request(-1, [&] {
        incoming_.reset();
        replace_ = true;
        seek_ = false;
    });
}

void MusicStream::play() {
    if (open_) {
        paused_.store(false, std::memory_order_relaxed);
    }
}

void MusicStream::pause() {
    paused_.store(true, std::memory_order_relaxed);
}

bool MusicStream::playing() const {
    return open_ && !paused_.load(std::memory_order_relaxed);
}

double MusicStream::position() const {
    if (!open_) {
        return -1.0;
    }
    // Until the mixer reaches the latest change, the position is the one asked for.
    const bool heard = heardEpoch_.load(std::memory_order_acquire) == requested_;
    const std::int64_t frame =
        heard ? positionFrames_.load(std::memory_order_relaxed) : requestedFrame_;
    return static_cast<double>(frame) / kMixRate;
}

void MusicStream::setPosition(double seconds) {
    if (!open_) {
        return;
    }
    seconds = std::clamp(seconds, 0.0, std::max(duration_, 0.0));
    request(std::llround(seconds * kMixRate), [&] {
        seek_ = true;
        seekTo_ = seconds;
    });
}

double MusicStream::duration() const {
    return open_ ? duration_ : 0.0;
}

void MusicStream::setVolume(int hundredthsDb) {
    volume_ = std::clamp(hundredthsDb, -10000, 0);
    const float gain =
        volume_ <= -10000 ? 0.0f : static_cast<float>(std::pow(10.0, volume_ / 2000.0));
    gain_.store(gain, std::memory_order_relaxed);
}

int MusicStream::volume() const {
    return volume_;
}

bool MusicStream::takeEnded() {
    if (endTaken_ || endedEpoch_.load(std::memory_order_acquire) != requested_) {
        return false;
    }
    endTaken_ = true;
    return open_;
}

void MusicStream::waitFilled(int frames) {
    const std::uint64_t want =
        std::min<std::uint64_t>(static_cast<std::uint64_t>(std::max(frames, 0)), kRingFrames);
    std::unique_lock lock(mutex_);
    const auto ready = [&] {
        if (replace_ || seek_) {
            return false;
        }
        if (!hasSource_ || atEnd_) {
            return true;
        }
        const std::uint64_t from = std::max(read_.load(std::memory_order_acquire), epochStart_);
        return write_.load(std::memory_order_relaxed) - from >= want;
    };
    for (;;) {
        // The caller mixes: it drops what a newer file or seek left unheard, so that the
        // decoder has the whole ring for the sound to come.
        read_.store(takeMarks(read_.load(std::memory_order_relaxed)), std::memory_order_release);
        if (ready()) {
            return;
        }
        wake_.notify_all();
        filled_.wait_for(lock, std::chrono::milliseconds(10));
    }
}

void MusicStream::startEpoch(std::int64_t firstFrame, bool live) {
    epochStart_ = write_.load(std::memory_order_relaxed);
    atEnd_ = false;
    hasSource_ = live;
    // The queue is sized far beyond what the mixer can leave unread between two blocks;
    // a full queue would only mean the mixer has stopped, and the mark can wait.
    while (!marks_.push(Mark{epochStart_, firstFrame, false, live, requestEpoch_})) {
        std::this_thread::yield();
    }
}

void MusicStream::run() {
    std::unique_ptr<FrameSource> source;
    std::unique_lock lock(mutex_);
    for (;;) {
        if (quit_) {
            return;
        }
        if (replace_) {
            replace_ = false;
            std::unique_ptr<FrameSource> old = std::move(source);
            source = std::move(incoming_);
            startEpoch(0, source != nullptr);
            filled_.notify_all();
            lock.unlock();
            old.reset();  // a close may touch the disk or the drive: outside the lock
            lock.lock();
            continue;
        }
        if (seek_) {
            seek_ = false;
            if (source) {
                const double to = seekTo_;
                source->seek(to);
                startEpoch(std::llround(to * kMixRate), true);
            }
            filled_.notify_all();
            continue;
        }
        const std::uint64_t used =
            write_.load(std::memory_order_relaxed) - read_.load(std::memory_order_acquire);
        if (!source || atEnd_ || used >= kRingFrames) {
            wake_.wait_for(lock, std::chrono::milliseconds(10));
            continue;
        }
        lock.unlock();
        const bool more = fill(*source);
        lock.lock();
        if (!more && !replace_ && !seek_) {
            atEnd_ = true;
            while (!marks_.push(Mark{write_.load(std::memory_order_relaxed), 0, true, true})) {
                std::this_thread::yield();
            }
        }
        filled_.notify_all();
    }
}

bool MusicStream::fill(FrameSource& source) {
    const std::uint64_t w = write_.load(std::memory_order_relaxed);
    const std::uint64_t free = kRingFrames - (w - read_.load(std::memory_order_acquire));
    const int want = static_cast<int>(std::min<std::uint64_t>(free, kPieceFrames));
    const int got = source.read(piece_.data(), want);
    if (got <= 0) {
        return false;
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(got); ++i) {
        const std::size_t at = static_cast<std::size_t>((w + i) % kRingFrames);
        ring_[2 * at] = piece_[2 * i];
        ring_[2 * at + 1] = piece_[2 * i + 1];
    }
    write_.store(w + static_cast<std::uint64_t>(got), std::memory_order_release);
    return true;
}

std::uint64_t MusicStream::takeMarks(std::uint64_t read) {
    Mark m;
    while (marks_.pop(m)) {
        if (m.end) {
            endIndex_ = m.index;
        } else {
            startIndex_ = m.index;
            frameAtStart_ = m.firstFrame;
            live_ = m.live;
            endIndex_ = UINT64_MAX;
            endCounted_ = false;
            markEpoch_ = m.epoch;
            read = std::max(read, m.index);
            positionFrames_.store(frameAtStart_ + static_cast<std::int64_t>(read - startIndex_),
                                  std::memory_order_relaxed);
            heardEpoch_.store(markEpoch_, std::memory_order_release);
        }
    }
    return read;
}

void MusicStream::mixInto(float* out, int frames) {
    // The write index first: any frames it shows were preceded by their marks.
    const std::uint64_t written = write_.load(std::memory_order_acquire);
    std::uint64_t read = takeMarks(read_.load(std::memory_order_relaxed));
    const float target = paused_.load(std::memory_order_relaxed) || !live_
                             ? 0.0f
                             : gain_.load(std::memory_order_relaxed);
    if (target == 0.0f && currentGain_ == 0.0f) {
        read_.store(read, std::memory_order_release);
        return;
    }
    // A mark may name a start beyond the write index read above: nothing to take yet.
    const std::uint64_t limit = std::min(written, endIndex_);
    const std::uint64_t available = limit > read ? limit - read : 0;
    const auto count =
        static_cast<int>(std::min<std::uint64_t>(available, static_cast<std::uint64_t>(frames)));
    const float step = (target - currentGain_) / static_cast<float>(std::max(frames, 1));
    float g = currentGain_;
    for (int i = 0; i < count; ++i) {
        g += step;
        const std::size_t at =
            static_cast<std::size_t>((read + static_cast<std::uint64_t>(i)) % kRingFrames);
        out[2 * i] += g * ring_[2 * at];
        out[2 * i + 1] += g * ring_[2 * at + 1];
    }
    currentGain_ = count == frames ? target : (count > 0 ? g : currentGain_);
    read += static_cast<std::uint64_t>(count);
    read_.store(read, std::memory_order_release);
    positionFrames_.store(frameAtStart_ + static_cast<std::int64_t>(read - startIndex_),
                          std::memory_order_relaxed);
    if (read >= endIndex_ && !endCounted_) {
        endCounted_ = true;
        endedEpoch_.store(markEpoch_, std::memory_order_release);
    }
}

}  // namespace brevane
