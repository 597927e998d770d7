#include "engine/sound_file_writer.h"

#include <sndfile.h>

#include <system_error>

#include "base/file_io.h"

namespace brevane {

namespace {

int formatCode(SoundFileFormat format) {
    switch (format) {
        case SoundFileFormat::Wav16:
            return SF_FORMAT_WAV | SF_FORMAT_PCM_16;
        case SoundFileFormat::WavFloat:
            return SF_FORMAT_WAV | SF_FORMAT_FLOAT;
        case SoundFileFormat::Flac16:
            return SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
        case SoundFileFormat::OggVorbis:
            break;
    }
    return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
}

SNDFILE* openForWriting(const std::filesystem::path& file, int channels, int rate,
                        SoundFileFormat format) {
    if (channels <= 0 || rate <= 0) {
        return nullptr;
    }
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    info.format = formatCode(format);
    SNDFILE* f = sf_open(file.c_str(), SFM_WRITE, &info);
    if (f == nullptr) {
        return nullptr;
    }
    // Float input beyond full scale is clipped rather than wrapped in integer formats.
    sf_command(f, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    if (format == SoundFileFormat::OggVorbis) {
        // 0 is the best quality, 1 the smallest file: 0.3 is about 160 kbit/s in stereo,
        // where rain and wind keep their grain.
        double quality = 0.3;
        sf_command(f, SFC_SET_VBR_ENCODING_QUALITY, &quality, sizeof quality);
    }
    return f;
}

}  // namespace

bool writeSoundFile(const std::filesystem::path& file, std::span<const float> frames, int channels,
                    int rate, SoundFileFormat format) {
    if (channels <= 0 || frames.size() % static_cast<std::size_t>(channels) != 0) {
        return false;
    }
    SNDFILE* f = openForWriting(file, channels, rate, format);
    if (f == nullptr) {
        return false;
    }
    const auto count = static_cast<sf_count_t>(frames.size() / static_cast<std::size_t>(channels));
    const bool written = sf_writef_float(f, frames.data(), count) == count;
    const bool closed = sf_close(f) == 0;
    return written && closed;
}

SoundFileStream::SoundFileStream(const std::filesystem::path& file, int channels, int rate,
                                 SoundFileFormat format)
    : target_(file), temporary_(temporaryNameFor(file)) {
    file_ = openForWriting(temporary_, channels, rate, format);
}

SoundFileStream::~SoundFileStream() {
    abandon();
}

bool SoundFileStream::write(const float* interleaved, std::size_t frames) {
    if (!ok()) {
        return false;
    }
    const auto count = static_cast<sf_count_t>(frames);
    failed_ = sf_writef_float(static_cast<SNDFILE*>(file_), interleaved, count) != count;
    frames_ += failed_ ? 0 : frames;
    return !failed_;
}

bool SoundFileStream::finish() {
    if (file_ == nullptr) {
        return false;
    }
    const bool closed = sf_close(static_cast<SNDFILE*>(file_)) == 0;
    file_ = nullptr;
    std::error_code ec;
    if (!closed || failed_) {
        std::filesystem::remove(temporary_, ec);
        return false;
    }
    std::filesystem::rename(temporary_, target_, ec);
    if (ec) {
        std::filesystem::remove(temporary_, ec);
        return false;
    }
    return true;
}

void SoundFileStream::abandon() {
    if (file_ != nullptr) {
        sf_close(static_cast<SNDFILE*>(file_));
        file_ = nullptr;
    }
    std::error_code ec;
    std::filesystem::remove(temporary_, ec);
}

std::uintmax_t SoundFileStream::sizeOnDisk() const {
    std::error_code ec;
    const std::uintmax_t size = std::filesystem::file_size(temporary_, ec);
    return ec ? 0 : size;
}

}  // namespace brevane
