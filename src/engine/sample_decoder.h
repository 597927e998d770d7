// Decoding of whole sound files into mono samples.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <variant>
#include <vector>

namespace brevane {

// Mono frames, the mean of the file's channels; never empty. A file of 16 bits or fewer
// (nearly every sound file) is kept as 16-bit integers, full scale 32768, at half the
// memory of floats; a deeper or a float file keeps floats, full scale 1, so that its
// extra depth is not lost.
using SampleFrames = std::variant<std::vector<std::int16_t>, std::vector<float>>;

// Full scale of a frame kept as a 16-bit integer.
inline constexpr float kInt16FullScale = 32768.0f;

inline std::size_t frameCount(const SampleFrames& frames) {
    return std::visit([](const auto& f) { return f.size(); }, frames);
}
// Memory the frames take.
inline std::size_t byteCount(const SampleFrames& frames) {
    return std::visit([](const auto& f) { return f.size() * sizeof f[0]; }, frames);
}

struct DecodedSample {
    SampleFrames frames;
    int rate = 0;  // the file's own rate, Hz
};

// Decodes the whole file with FFmpeg: any container and codec it reads. Returns nothing
// for a missing or unreadable file, a folder, a file that is not audio or holds no
// frames; never throws and writes no message. A file cut short inside its audio data
// gives the frames that are there. Runs on the caller's thread; thread-safe.
std::optional<DecodedSample> decodeSampleFile(const std::filesystem::path& file);

}  // namespace brevane
