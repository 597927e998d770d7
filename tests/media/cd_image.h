#pragma once
// A disc image for the CD player's tests: raw CD audio sectors of tones, one tone a
// track, and the cue sheet that names the tracks, as libcdio reads a real image.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

#include "media/cd_drive.h"

namespace brevane::test {

struct ImageTrack {
    double hz;
    int seconds;
};

// Writes disc.bin and disc.cue in `dir`: each track a stereo tone at half scale.
inline std::string writeCdImage(const std::filesystem::path& dir,
                                const std::vector<ImageTrack>& tracks) {
    std::ofstream bin(dir / "disc.bin", std::ios::binary);
    std::ofstream cue(dir / "disc.cue");
    cue << "FILE \"disc.bin\" BINARY\n";
    int start = 0;
    for (std::size_t t = 0; t < tracks.size(); ++t) {
        char line[96];
        std::snprintf(line, sizeof line, "  TRACK %02zu AUDIO\n    INDEX 01 %02d:%02d:00\n", t + 1,
                      start / 60, start % 60);
        cue << line;
        const int frames = tracks[t].seconds * kCdSectorsPerSecond * kCdFramesPerSector;
        for (int i = 0; i < frames; ++i) {
            const auto v = static_cast<std::int16_t>(
                std::lround(16384 * std::sin(2 * std::numbers::pi * tracks[t].hz * i / 44100)));
            const char bytes[4] = {static_cast<char>(v & 0xff), static_cast<char>(v >> 8),
                                   static_cast<char>(v & 0xff), static_cast<char>(v >> 8)};
            bin.write(bytes, sizeof bytes);
        }
        start += tracks[t].seconds;
    }
    return (dir / "disc.cue").string();
}

}  // namespace brevane::test
