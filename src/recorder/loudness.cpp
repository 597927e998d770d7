#include "recorder/loudness.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace brevane {

namespace {

double loudnessOf(double meanSquare) {
    return -0.691 + 10.0 * std::log10(meanSquare);
}

constexpr double kAbsoluteGate = -70.0;
constexpr double kRelativeGate = -10.0;

}  // namespace

LoudnessMeter::LoudnessMeter(int rate)
    : stepFrames_(static_cast<std::size_t>(rate) / 10), shelf_{}, highPass_{} {
    // The two stages of the K-weighting, designed for any rate from their analogue
    // prototypes; at 48 kHz they give the published coefficients.
    const double fs = rate;
    double f0 = 1681.974450955533;
    double q = 0.7071752369554196;
    double k = std::tan(std::numbers::pi * f0 / fs);
    const double vh = std::pow(10.0, 3.999843853973347 / 20.0);
    const double vb = std::pow(vh, 0.4996667741545416);
    double a0 = 1.0 + k / q + k * k;
    const Biquad shelf{(vh + vb * k / q + k * k) / a0, 2.0 * (k * k - vh) / a0,
                       (vh - vb * k / q + k * k) / a0, 2.0 * (k * k - 1.0) / a0,
                       (1.0 - k / q + k * k) / a0};
    f0 = 38.13547087602444;
    q = 0.5003270373238773;
    k = std::tan(std::numbers::pi * f0 / fs);
    a0 = 1.0 + k / q + k * k;
    const Biquad highPass{1.0, -2.0, 1.0, 2.0 * (k * k - 1.0) / a0, (1.0 - k / q + k * k) / a0};
    for (int c = 0; c < 2; ++c) {
        shelf_[c] = shelf;
        highPass_[c] = highPass;
    }
}

void LoudnessMeter::add(const float* interleaved, std::size_t frames) {
    for (std::size_t i = 0; i < frames; ++i) {
        for (int c = 0; c < 2; ++c) {
            const double y = highPass_[c].run(shelf_[c].run(interleaved[2 * i + c]));
            stepSum_ += y * y;
        }
        if (++stepFill_ < stepFrames_) {
            continue;
        }
        steps_[stepCount_++ % 4] = stepSum_;
        stepSum_ = 0;
        stepFill_ = 0;
        if (stepCount_ >= 4) {
            blocks_.push_back((steps_[0] + steps_[1] + steps_[2] + steps_[3]) /
                              static_cast<double>(4 * stepFrames_));
        }
    }
}

std::optional<double> LoudnessMeter::integrated() const {
    const auto meanAbove = [this](double gate) -> std::optional<double> {
        double sum = 0;
        std::size_t n = 0;
        for (const double z : blocks_) {
            if (z > 0 && loudnessOf(z) > gate) {
                sum += z;
                ++n;
            }
        }
        return n == 0 ? std::nullopt : std::optional<double>(sum / static_cast<double>(n));
    };
    const auto ungated = meanAbove(kAbsoluteGate);
    if (!ungated) {
        return std::nullopt;
    }
    const auto gated = meanAbove(std::max(kAbsoluteGate, loudnessOf(*ungated) + kRelativeGate));
    return loudnessOf(gated.value_or(*ungated));
}

}  // namespace brevane
