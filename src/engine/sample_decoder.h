// Decoding of whole sound files into mono samples.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace brevane {

struct DecodedSample {
    std::vector<float> frames;  // mono, the mean of the file's channels; never empty
    int rate = 0;               // the file's own rate, Hz
};

// Decodes the whole file with FFmpeg: any container and codec it reads. Returns nothing
// for a missing or unreadable file, a folder, a file that is not audio or holds no
// frames; never throws and writes no message. A file cut short inside its audio data
// gives the frames that are there. Runs on the caller's thread; thread-safe.
std::optional<DecodedSample> decodeSampleFile(const std::filesystem::path& file);

}  // namespace brevane
