#pragma once

#include "engine/effects/effect_unit.h"
#include "engine/effects/filters.h"

namespace brevane {

// One peaking band of the equalizer on both channels.
//
// A change of setting while sound runs glides to the new filter over about 12 ms, so a slider
// moved on a playing mix does not click. Every filter on the way is stable: the stable
// second-order denominators form a convex set, and the glide moves along a straight line
// between two of them. The glide advances with the sound, not with the calls: the output does
// not depend on how the caller cuts its blocks.
class EqualizerBand final : public EffectUnit {
  public:
    // Most bands processSeries() takes at once.
    static constexpr int kMaxSeries = 32;

    explicit EqualizerBand(double sampleRate);

    EffectKind kind() const override { return EffectKind::Equalizer; }
    // No allocation. Out-of-range values are clamped (gain to -15..+15 dB).
    void set(const EqualizerBandParams& p);
    void process(float* io, int frames) override;
    void reset() override;
    void continueFrom(const EffectUnit& other) override;

    // Runs `count` (1..kMaxSeries) bands one after the other on the sound in a single pass
    // over it, so that the bands' recursions overlap in the processor instead of waiting on
    // each other. The output is that of running them one by one.
    static void processSeries(EqualizerBand* const* bands, int count, float* io, int frames);

  private:
    static constexpr int kGlideBlock = 32;  // frames between coefficient steps
    static constexpr int kGlideSteps = 16;  // steps of one glide

    void stepGlide();

    double sampleRate_;
    BiquadCoefficients current_;
    BiquadCoefficients target_;
    BiquadCoefficients step_;
    int glideLeft_ = 0;       // steps still to take
    int glideCountdown_ = 0;  // frames until the next step
    // No sound has gone through since construction or reset: a setting applies at once.
    bool idle_ = true;
    BiquadLanes lanes_;  // current_ in the left and right lanes
    BiquadState state_;  // lane 0 left, lane 1 right
};

}  // namespace brevane
