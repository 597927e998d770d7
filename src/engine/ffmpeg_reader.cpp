#include "engine/ffmpeg_reader.h"

#include <mutex>
#include <system_error>

extern "C" {
#include <libavutil/log.h>
}

namespace brevane {

namespace {

bool complete(const AVCodecParameters* p) {
    return p->codec_id != AV_CODEC_ID_NONE && p->codec_id != AV_CODEC_ID_PROBE &&
           p->sample_rate > 0 && p->ch_layout.nb_channels > 0;
}

}  // namespace

bool FfmpegReader::open(const std::filesystem::path& file) {
    static std::once_flag quiet;
    std::call_once(quiet, [] { av_log_set_level(AV_LOG_QUIET); });

    std::error_code ec;
    // Only plain files: a folder, a pipe or a device would fail or never end.
    if (!std::filesystem::is_regular_file(file, ec) || ec) {
        return false;
    }
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

AVFrame* FfmpegReader::next() {
    av_frame_unref(frame_.get());
    for (;;) {
        const int r = avcodec_receive_frame(codec_.get(), frame_.get());
        if (r >= 0) {
            return frame_.get();
        }
        if (r == AVERROR_EOF) {
            return nullptr;
        }
        if (r == AVERROR_INVALIDDATA) {
            continue;  // a damaged frame is skipped
        }
        if (r != AVERROR(EAGAIN)) {
            failed_ = true;
            return nullptr;
        }
        if (flushed_) {
            return nullptr;
        }
        bool sent = false;
        while (!sent) {
            if (av_read_frame(format_.get(), packet_.get()) < 0) {
                avcodec_send_packet(codec_.get(), nullptr);
                flushed_ = true;
                break;
            }
            if (packet_->stream_index == stream_) {
                const int s = avcodec_send_packet(codec_.get(), packet_.get());
                av_packet_unref(packet_.get());
                if (s < 0 && s != AVERROR(EAGAIN) && s != AVERROR_INVALIDDATA) {
                    avcodec_send_packet(codec_.get(), nullptr);
                    flushed_ = true;
                }
                sent = true;
            } else {
                av_packet_unref(packet_.get());
            }
        }
    }
}

bool FfmpegReader::seek(double seconds) {
    const AVStream& st = stream();
    const std::int64_t target = av_rescale_q(static_cast<std::int64_t>(seconds * AV_TIME_BASE),
                                             AVRational{1, AV_TIME_BASE}, st.time_base);
    if (av_seek_frame(format_.get(), stream_, target, AVSEEK_FLAG_BACKWARD) < 0 &&
        av_seek_frame(format_.get(), stream_, target, AVSEEK_FLAG_ANY) < 0) {
        return false;
    }
    avcodec_flush_buffers(codec_.get());
    flushed_ = false;
    failed_ = false;
    return true;
}

double FfmpegReader::durationSeconds() const {
    const AVStream& st = stream();
    if (st.duration > 0 && st.time_base.num > 0) {
        return static_cast<double>(st.duration) * av_q2d(st.time_base);
    }
    if (format_->duration > 0) {
        return static_cast<double>(format_->duration) / AV_TIME_BASE;
    }
    return 0.0;
}

}  // namespace brevane
