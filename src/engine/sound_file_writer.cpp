#include "engine/sound_file_writer.h"

#include <sndfile.h>

namespace brevane {

bool writeSoundFile(const std::filesystem::path& file, std::span<const float> frames, int channels,
                    int rate, SoundFileFormat format) {
    if (channels <= 0 || rate <= 0 || frames.size() % static_cast<std::size_t>(channels) != 0) {
        return false;
    }
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    switch (format) {
        case SoundFileFormat::Wav16:
            info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
            break;
        case SoundFileFormat::WavFloat:
            info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
            break;
        case SoundFileFormat::Flac16:
            info.format = SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
            break;
    }
    SNDFILE* f = sf_open(file.c_str(), SFM_WRITE, &info);
    if (f == nullptr) {
        return false;
    }
    // Float input beyond full scale is clipped rather than wrapped in integer formats.
    sf_command(f, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    const auto count = static_cast<sf_count_t>(frames.size() / static_cast<std::size_t>(channels));
    const bool written = sf_writef_float(f, frames.data(), count) == count;
    const bool closed = sf_close(f) == 0;
    return written && closed;
}

}  // namespace brevane
