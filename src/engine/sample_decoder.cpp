#include "engine/sample_decoder.h"

#include <cmath>
#include <memory>
#include <type_traits>

#include "engine/ffmpeg_reader.h"

extern "C" {
#include <libavutil/channel_layout.h>
}

namespace brevane {

namespace {

// Longest sample accepted: an hour at 192 kHz. Guards against a damaged header that
// claims an endless stream.
constexpr std::size_t kMaxFrames = std::size_t{192000} * 3600;

class Decoder {
  public:
    bool open(const std::filesystem::path& file) { return reader_.open(file); }

    // Whether the codec gives 16 bits or fewer per sample, which 16-bit frames keep
    // exactly (but for the rounding of a mean of channels).
    bool sixteenBits() const {
        const AVSampleFormat f = av_get_packed_sample_fmt(codec().sample_fmt);
        return f == AV_SAMPLE_FMT_U8 || f == AV_SAMPLE_FMT_S16;
    }

    // Reads every packet of the stream into frames of type T (std::int16_t or float). A
    // read error part-way ends the stream: what was decoded until then is kept.
    template <typename T>
    bool decodeAll(std::vector<T>& out, int& rate) {
        rate = codec().sample_rate;
        // Room for the whole sound at once when the container tells its length.
        const AVStream& st = reader_.stream();
        if (st.duration > 0 && st.time_base.num > 0) {
            const std::int64_t frames =
                av_rescale_q(st.duration, st.time_base, AVRational{1, rate});
            if (frames > 0 && static_cast<std::uint64_t>(frames) < kMaxFrames) {
                out.reserve(static_cast<std::size_t>(frames) + 1024);
            }
        }
        while (AVFrame* frame = reader_.next()) {
            if (!convert(*frame, out)) {
                return false;
            }
        }
        return !reader_.failed();
    }

  private:
    const AVCodecContext& codec() const { return reader_.codec(); }

  private:
    // Converts one decoded frame to planar T and appends the mean of its channels.
    template <typename T>
    bool convert(AVFrame& frame, std::vector<T>& out) {
        constexpr bool kInt16 = std::is_same_v<T, std::int16_t>;
        constexpr AVSampleFormat kPlanar = kInt16 ? AV_SAMPLE_FMT_S16P : AV_SAMPLE_FMT_FLTP;
        AVFrame* f = &frame;
        const int channels = f->ch_layout.nb_channels;
        if (channels <= 0 || f->nb_samples <= 0) {
            return true;
        }
        const auto format = static_cast<AVSampleFormat>(f->format);
        if (!swr_ || channels != swrChannels_ || format != swrFormat_) {
            SwrContext* s = nullptr;
            AVChannelLayout layout;
            av_channel_layout_default(&layout, channels);
            // Same layout, rate and channel count on both sides: a pure format change.
            const int r = swr_alloc_set_opts2(&s, &layout, kPlanar, f->sample_rate, &layout, format,
                                              f->sample_rate, 0, nullptr);
            av_channel_layout_uninit(&layout);
            swr_.reset(s);
            if (r < 0 || !swr_ || swr_init(swr_.get()) < 0) {
                swr_.reset();
                return false;
            }
            swrChannels_ = channels;
            swrFormat_ = format;
        }
        if (out.size() + static_cast<std::size_t>(f->nb_samples) > kMaxFrames) {
            return false;
        }
        // The planes one after another in one buffer.
        std::vector<T>& planes = [this]() -> std::vector<T>& {
            if constexpr (kInt16) {
                return int16Planes_;
            } else {
                return floatPlanes_;
            }
        }();
        const auto length = static_cast<std::size_t>(f->nb_samples);
        planes.resize(static_cast<std::size_t>(channels) * length);
        pointers_.resize(static_cast<std::size_t>(channels));
        for (std::size_t c = 0; c < pointers_.size(); ++c) {
            pointers_[c] = reinterpret_cast<std::uint8_t*>(planes.data() + c * length);
        }
        const int got =
            swr_convert(swr_.get(), pointers_.data(), f->nb_samples,
                        const_cast<const std::uint8_t**>(f->extended_data), f->nb_samples);
        if (got < 0) {
            return false;
        }
        const std::size_t base = out.size();
        out.resize(base + static_cast<std::size_t>(got));
        const float scale = 1.0f / static_cast<float>(channels);
        for (std::size_t i = 0; i < static_cast<std::size_t>(got); ++i) {
            // Sums of 16-bit channels are exact in a float (below 2^24 for up to 256
            // channels), so the only rounding of a mean is the last one, to the nearest.
            float sum = 0.0f;
            for (std::size_t c = 0; c < pointers_.size(); ++c) {
                sum += static_cast<float>(planes[c * length + i]);
            }
            if constexpr (kInt16) {
                out[base + i] = static_cast<std::int16_t>(std::lrint(sum * scale));
            } else {
                out[base + i] = sum * scale;
            }
        }
        return true;
    }

    FfmpegReader reader_;
    std::unique_ptr<SwrContext, SwrFreer> swr_;
    int swrChannels_ = 0;
    AVSampleFormat swrFormat_ = AV_SAMPLE_FMT_NONE;
    std::vector<std::int16_t> int16Planes_;
    std::vector<float> floatPlanes_;
    std::vector<std::uint8_t*> pointers_;
};

}  // namespace

std::optional<DecodedSample> decodeSampleFile(const std::filesystem::path& file) {
    Decoder decoder;
    if (!decoder.open(file)) {
        return std::nullopt;
    }
    DecodedSample out;
    if (decoder.sixteenBits()) {
        out.frames.emplace<std::vector<std::int16_t>>();
    } else {
        out.frames.emplace<std::vector<float>>();
    }
    const bool decoded =
        std::visit([&](auto& frames) { return decoder.decodeAll(frames, out.rate); }, out.frames);
    if (!decoded || frameCount(out.frames) == 0 || out.rate <= 0) {
        return std::nullopt;
    }
    if (auto* floats = std::get_if<std::vector<float>>(&out.frames)) {
        for (float& x : *floats) {
            if (!std::isfinite(x)) {
                x = 0.0f;  // a float file may carry garbage; the mix must stay finite
            }
        }
    }
    return out;
}

}  // namespace brevane
