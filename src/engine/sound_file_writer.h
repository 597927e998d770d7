// Writing rendered audio to sound files.
#pragma once

#include <filesystem>
#include <span>

namespace brevane {

enum class SoundFileFormat {
    Wav16,     // WAV, 16-bit PCM; values beyond full scale are clipped
    WavFloat,  // WAV, 32-bit float
    Flac16,    // FLAC, 16-bit
};

// Writes `frames`, interleaved with `channels` values per frame, at `rate` Hz. False on
// any failure (bad arguments, a folder that does not exist, a full disk); the file may
// then be partly written. Thread-safe.
bool writeSoundFile(const std::filesystem::path& file, std::span<const float> frames, int channels,
                    int rate, SoundFileFormat format = SoundFileFormat::Wav16);

}  // namespace brevane
