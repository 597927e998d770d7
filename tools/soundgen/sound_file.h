// Reading and writing the stock files through libsndfile: 44100 Hz mono 16-bit, FLAC
// content whatever the name's extension, except names ending in ".wav", which get WAV.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace brevane::soundgen {

// Encodes in memory and writes the file whole (a temporary file and a rename), creating
// missing folders, so a reader never sees half a file. Returns an error text, empty on
// success.
std::string writeSound(const std::filesystem::path& file, const std::vector<std::int16_t>& pcm);

struct SoundData {
    int rate = 0;
    int channels = 0;
    int majorFormat = 0;                // SF_FORMAT_FLAC, SF_FORMAT_WAV, ... (libsndfile's values)
    int subtype = 0;                    // SF_FORMAT_PCM_16, ...
    std::vector<std::int16_t> samples;  // interleaved if channels > 1
};

// Nothing when the file is missing or unreadable.
std::optional<SoundData> readSound(const std::filesystem::path& file);

// True when the file's name says WAV content.
bool wantsWav(const std::filesystem::path& file);

}  // namespace brevane::soundgen
