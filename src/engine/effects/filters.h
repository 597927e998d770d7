#pragma once

// Small filter designs and their processing state, shared by the effect units.
// Designs run in double precision and may use the maths library, but never allocate: they
// may be called on the audio thread. Processing is single-sample and inline.

#include <cmath>

#include "engine/effects/float4.h"

namespace brevane {

// Coefficients of y = b0 x + b1 x[-1] + b2 x[-2] - a1 y[-1] - a2 y[-2] (a0 normalised to 1).
struct BiquadCoefficients {
    float b0 = 1.0f, b1 = 0.0f, b2 = 0.0f, a1 = 0.0f, a2 = 0.0f;
};

// Peaking filter of the audio equalizer cookbook (bilinear transform, bandwidth in octaves
// between the half-gain points of the analog prototype): gain `gainDb` at `centreHz`, unity
// far from it. centreHz must lie in (0, sampleRate/2); the caller clamps.
BiquadCoefficients peakingCoefficients(double sampleRate, double centreHz, double bandwidthOctaves,
                                       double gainDb);

// Magnitude of the filter's response at `hz`, for tests and designs.
double magnitudeAt(const BiquadCoefficients& c, double sampleRate, double hz);

// Up to four biquads run side by side, one per lane, each with its own coefficients.
struct BiquadLanes {
    Float4 b0{}, b1{}, b2{}, a1{}, a2{};
};

// The same biquad in every lane.
inline BiquadLanes inAllLanes(const BiquadCoefficients& c) {
    BiquadLanes l;
    l.b0 = Float4{} + c.b0;
    l.b1 = Float4{} + c.b1;
    l.b2 = Float4{} + c.b2;
    l.a1 = Float4{} + c.a1;
    l.a2 = Float4{} + c.a2;
    return l;
}

// Transposed direct form II state of four lanes of biquads.
struct BiquadState {
    Float4 z1{}, z2{};

    Float4 process(const BiquadLanes& c, Float4 x) {
        const Float4 y = c.b0 * x + z1;
        z1 = c.b1 * x - c.a1 * y + z2;
        z2 = c.b2 * x - c.a2 * y;
        return y;
    }

    // Zeroes a state that has decayed to nothing. Called once per block: near the smallest
    // floats, flushing single products to zero can unbalance the recursion and keep it
    // ringing at about 1e-37 for ever; cutting it off well above that lets a tail end in
    // exact zeros.
    void flushTiny() {
        if (allBelow(z1, kTiny) && allBelow(z2, kTiny)) {
            z1 = Float4{};
            z2 = Float4{};
        }
    }
    static constexpr float kTiny = 1e-30f;
};

// High shelf of the audio equalizer cookbook with the steepest slope free of overshoot (S = 1):
// unity at 0 Hz, `plateauDb` far above `cornerHz`, half of it at the corner.
BiquadCoefficients highShelfCoefficients(double sampleRate, double cornerHz, double plateauDb);

// A filter whose gain is `gainLow` at low frequencies and exactly `gainAtRef` at `refHz`, and
// stays near that value above it: a high shelf with its corner an octave below refHz and its
// plateau chosen to meet gainAtRef. Two octaves below refHz the gain is within a few percent
// (in dB) of gainLow. Gains are positive; refHz lies in (0, sampleRate/2). The response is
// monotonic, its largest gain max(gainLow, plateau); the plateau never exceeds
// max(gainLow, 1 - 1e-4) when gainAtRef < 1, so a loop through it decays.
BiquadCoefficients referenceShelfCoefficients(double sampleRate, double refHz, double gainLow,
                                              double gainAtRef);

// Gain of a level in millibels. -10000 mB and below is silence, exactly 0.
inline float millibelsToGain(float mB) {
    if (!(mB > -10000.0f)) {
        return 0.0f;
    }
    return static_cast<float>(std::pow(10.0, static_cast<double>(mB) / 2000.0));
}

}  // namespace brevane
