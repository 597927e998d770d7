// Loudness of a sound as broadcasters measure it: K-weighted, gated, in LUFS.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace brevane {

// The integrated loudness of a stereo stream, fed piece by piece: each channel through
// the K-weighting (a high shelf for the head, then a high pass), mean squares over
// 400 ms blocks overlapping by 300 ms, blocks below -70 LUFS dropped, then those more
// than 10 LU below the loudness of the rest. Left and right weigh 1 each, so a full-scale
// 1 kHz sine on one channel reads -3.01 LUFS.
//
// Memory: 8 bytes per 100 ms of sound (under 3.5 MB for 12 hours). Not thread-safe.
class LoudnessMeter {
  public:
    explicit LoudnessMeter(int rate);

    // `frames` interleaved stereo frames.
    void add(const float* interleaved, std::size_t frames);
    // Nothing for a sound with no block above the absolute gate (silence, or shorter
    // than one block).
    std::optional<double> integrated() const;

  private:
    struct Biquad {
        double b0, b1, b2, a1, a2;
        double z1 = 0, z2 = 0;
        double run(double x) {
            const double y = b0 * x + z1;
            z1 = b1 * x - a1 * y + z2;
            z2 = b2 * x - a2 * y;
            return y;
        }
    };
    std::size_t stepFrames_;
    Biquad shelf_[2];
    Biquad highPass_[2];
    // The sum of squares of the current 100 ms step, and of the last four steps.
    double stepSum_ = 0;
    std::size_t stepFill_ = 0;
    double steps_[4] = {};
    std::size_t stepCount_ = 0;
    // Mean square of every whole block, both channels summed.
    std::vector<double> blocks_;
};

}  // namespace brevane
