#pragma once

#include <vector>

#include "engine/effects/effect_unit.h"

namespace brevane {

// A stereo echo: each side repeats after its own delay, each repeat `feedback` percent of the
// one before. The output is (100 - wetDryMix)% of the input plus wetDryMix% of the repeats.
// With panDelay, each repeat moves to the other side: a sound on the left comes back left
// after leftDelayMs, then right after rightDelayMs more, and so on.
//
// Feedback of 100% would let a sustained sound build up without limit over hours; the loop
// gain therefore stops at kMaxLoopGain.
class StereoEcho final : public EffectUnit {
  public:
    static constexpr float kMaxLoopGain = 0.995f;

    explicit StereoEcho(double sampleRate);

    EffectKind kind() const override { return EffectKind::Echo; }
    // No allocation. Out-of-range values are clamped (delays to 1..2000 ms).
    void set(const EchoParams& p);
    void process(float* io, int frames) override;
    void reset() override;
    void continueFrom(const EffectUnit& other) override;

  private:
    double sampleRate_;
    std::vector<float> left_;
    std::vector<float> right_;
    int mask_ = 0;
    int pos_ = 0;
    int leftDelay_ = 1;
    int rightDelay_ = 1;
    float wet_ = 0.5f;
    float dry_ = 0.5f;
    float feedback_ = 0.5f;
    bool crossed_ = false;
};

}  // namespace brevane
