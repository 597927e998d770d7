// Reading of sound files with FFmpeg, frame by frame: shared by the whole-file decoder of
// the samples and the music stream. Only the engine's own sources include this header.
#pragma once

#include <filesystem>
#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswresample/swresample.h>
}

namespace brevane {

// Owners of the FFmpeg objects, so every way out frees them.
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

// The best audio stream of one file and its decoder. Not thread-safe: one thread at a
// time uses a reader (it may be handed to another with a synchronised hand-over).
class FfmpegReader {
  public:
    // False for a missing or unreadable file, a folder, a pipe, a file with no audio
    // stream or one no codec here decodes. Never throws, writes no message.
    bool open(const std::filesystem::path& file);

    // The next decoded frame, valid until the next call; null at the end of the stream.
    // A damaged frame is skipped; a read error part-way ends the stream there.
    AVFrame* next();
    // Whether the stream ended on a decoding error rather than its end.
    bool failed() const { return failed_; }
    // Moves to `seconds` from the start (to the key frame at or before it); the next
    // frame is read from there. False when the file cannot seek.
    bool seek(double seconds);

    const AVCodecContext& codec() const { return *codec_; }
    const AVStream& stream() const { return *format_->streams[stream_]; }
    // The length the container tells, in seconds; 0 when it tells none.
    double durationSeconds() const;

  private:
    std::unique_ptr<AVFormatContext, FormatCloser> format_;
    std::unique_ptr<AVCodecContext, CodecFreer> codec_;
    std::unique_ptr<AVFrame, FrameFreer> frame_;
    std::unique_ptr<AVPacket, PacketFreer> packet_;
    int stream_ = -1;
    bool flushed_ = false;  // the last packet was read; the codec gives what it holds
    bool failed_ = false;
};

}  // namespace brevane
