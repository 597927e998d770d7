#pragma once

#include "engine/effects/effect_unit.h"
#include "engine/effects/filters.h"

namespace brevane {

// One peaking band of the equalizer on both channels.
//
// A change of setting while sound runs glides to the new filter over about 12 ms, so a slider
// moved on a playing mix does not click. Every filter on the way is stable: the stable
// second-order denominators form a convex set, and the glide moves along a straight line
// between two of them.
class EqualizerBand final : public EffectUnit {
  public:
    explicit EqualizerBand(double sampleRate);

    EffectKind kind() const override { return EffectKind::Equalizer; }
    // No allocation. Out-of-range values are clamped (gain to -15..+15 dB).
    void set(const EqualizerBandParams& p);
    void process(float* io, int frames) override;
    void reset() override;

    // The filter the band is gliding towards.
    const BiquadCoefficients& target() const { return target_; }

  private:
    static constexpr int kGlideBlock = 32;  // frames between coefficient steps
    static constexpr int kGlideSteps = 16;  // steps of one glide

    double sampleRate_;
    BiquadCoefficients current_;
    BiquadCoefficients target_;
    BiquadCoefficients step_;
    int glideLeft_ = 0;       // steps still to take
    int glideCountdown_ = 0;  // frames until the next step
    // No sound has gone through since construction or reset: a setting applies at once.
    bool idle_ = true;
    BiquadState left_;
    BiquadState right_;
};

}  // namespace brevane
