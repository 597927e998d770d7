#include "engine/sample_decoder.h"

#include <cmath>
#include <memory>
#include <mutex>
#include <system_error>
#include <type_traits>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/log.h>
#include <libavutil/opt.h>
#include <libswresample/swresample.h>
}

namespace brevane {

namespace {

// Owners of the FFmpeg objects, so every way out of the decoder frees them.
struct FormatCloser {
    void operator()(AVFormatContext* f) const { avformat_close_input(&f); }
};
struct CodecFreer {
    void operator()(AVCodecContext* c) const { avcodec_free_context(&c); }
};
struct FrameFreer {
    void operator()(AVFrame* f) const { av_frame_free(&f); }
};
struct PacketFreer {
    void operator()(AVPacket* p) const { av_packet_free(&p); }
};
struct SwrFreer {
    void operator()(SwrContext* s) const { swr_free(&s); }
};

// Longest sample accepted: an hour at 192 kHz. Guards against a damaged header that
// claims an endless stream.
constexpr std::size_t kMaxFrames = std::size_t{192000} * 3600;

class Decoder {
  public:
    bool open(const std::filesystem::path& file) {
        AVFormatContext* raw = nullptr;
        if (avformat_open_input(&raw, file.c_str(), nullptr, nullptr) < 0) {
            return false;
        }
        format_.reset(raw);
        const AVCodec* codec = nullptr;
        stream_ = av_find_best_stream(format_.get(), AVMEDIA_TYPE_AUDIO, -1, -1, &codec, 0);
        // Most audio files say all we need in their header; reading ahead to learn more
        // (which decodes seconds of sound) is only for those that do not.
        if (stream_ < 0 || codec == nullptr || !complete(format_->streams[stream_]->codecpar)) {
            if (avformat_find_stream_info(format_.get(), nullptr) < 0) {
                return false;
            }
            stream_ = av_find_best_stream(format_.get(), AVMEDIA_TYPE_AUDIO, -1, -1, &codec, 0);
        }
        if (stream_ < 0 || codec == nullptr) {
            return false;
        }
        // The container is known now. Left at its default, the probe size also has FFmpeg
        // look again at the first megabytes of the sound, packet by packet, for another
        // codec hidden inside (S/PDIF in WAV): most of the cost of loading a WAV file.
        format_->probesize = 2048;
        codec_.reset(avcodec_alloc_context3(codec));
        if (!codec_) {
            return false;
        }
        const AVStream* st = format_->streams[stream_];
        if (avcodec_parameters_to_context(codec_.get(), st->codecpar) < 0) {
            return false;
        }
        codec_->thread_count = 1;
        if (avcodec_open2(codec_.get(), codec, nullptr) < 0) {
            return false;
        }
        if (codec_->sample_rate <= 0 || codec_->ch_layout.nb_channels <= 0) {
            return false;
        }
        frame_.reset(av_frame_alloc());
        packet_.reset(av_packet_alloc());
        return frame_ && packet_;
    }

    // Whether the codec gives 16 bits or fewer per sample, which 16-bit frames keep
    // exactly (but for the rounding of a mean of channels).
    bool sixteenBits() const {
        const AVSampleFormat f = av_get_packed_sample_fmt(codec_->sample_fmt);
        return f == AV_SAMPLE_FMT_U8 || f == AV_SAMPLE_FMT_S16;
    }

    // Reads every packet of the stream into frames of type T (std::int16_t or float). A
    // read error part-way ends the stream: what was decoded until then is kept.
    template <typename T>
    bool decodeAll(std::vector<T>& out, int& rate) {
        rate = codec_->sample_rate;
        // Room for the whole sound at once when the container tells its length.
        const AVStream* st = format_->streams[stream_];
        if (st->duration > 0 && st->time_base.num > 0) {
            const std::int64_t frames =
                av_rescale_q(st->duration, st->time_base, AVRational{1, rate});
            if (frames > 0 && static_cast<std::uint64_t>(frames) < kMaxFrames) {
                out.reserve(static_cast<std::size_t>(frames) + 1024);
            }
        }
        while (av_read_frame(format_.get(), packet_.get()) >= 0) {
            const bool ours = packet_->stream_index == stream_;
            const int sent = ours ? avcodec_send_packet(codec_.get(), packet_.get()) : 0;
            av_packet_unref(packet_.get());
            if (sent < 0 && sent != AVERROR(EAGAIN) && sent != AVERROR_INVALIDDATA) {
                break;
            }
            if (!drain(out)) {
                return false;
            }
        }
        avcodec_send_packet(codec_.get(), nullptr);
        return drain(out);
    }

  private:
    static bool complete(const AVCodecParameters* p) {
        return p->codec_id != AV_CODEC_ID_NONE && p->codec_id != AV_CODEC_ID_PROBE &&
               p->sample_rate > 0 && p->ch_layout.nb_channels > 0;
    }

    template <typename T>
    bool drain(std::vector<T>& out) {
        for (;;) {
            const int r = avcodec_receive_frame(codec_.get(), frame_.get());
            if (r == AVERROR(EAGAIN) || r == AVERROR_EOF) {
                return true;
            }
            if (r < 0) {
                return r == AVERROR_INVALIDDATA;  // a damaged frame is skipped
            }
            const bool ok = convert(out);
            av_frame_unref(frame_.get());
            if (!ok) {
                return false;
            }
        }
    }

    // Converts one decoded frame to planar T and appends the mean of its channels.
    template <typename T>
    bool convert(std::vector<T>& out) {
        constexpr bool kInt16 = std::is_same_v<T, std::int16_t>;
        constexpr AVSampleFormat kPlanar = kInt16 ? AV_SAMPLE_FMT_S16P : AV_SAMPLE_FMT_FLTP;
        AVFrame* f = frame_.get();
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

    std::unique_ptr<AVFormatContext, FormatCloser> format_;
    std::unique_ptr<AVCodecContext, CodecFreer> codec_;
    std::unique_ptr<AVFrame, FrameFreer> frame_;
    std::unique_ptr<AVPacket, PacketFreer> packet_;
    std::unique_ptr<SwrContext, SwrFreer> swr_;
    int swrChannels_ = 0;
    AVSampleFormat swrFormat_ = AV_SAMPLE_FMT_NONE;
    std::vector<std::int16_t> int16Planes_;
    std::vector<float> floatPlanes_;
    std::vector<std::uint8_t*> pointers_;
    int stream_ = -1;
};

}  // namespace

std::optional<DecodedSample> decodeSampleFile(const std::filesystem::path& file) {
    static std::once_flag quiet;
    std::call_once(quiet, [] { av_log_set_level(AV_LOG_QUIET); });

    std::error_code ec;
    // Only plain files: a folder, a pipe or a device would fail or never end.
    if (!std::filesystem::is_regular_file(file, ec) || ec) {
        return std::nullopt;
    }
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
