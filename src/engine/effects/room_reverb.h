#pragma once

#include <array>
#include <vector>

#include "engine/effects/effect_unit.h"
#include "engine/effects/filters.h"

namespace brevane {

// A room reverb on stereo sound, driven by the I3DL2 parameters.
//
// The output is the dry sound unchanged plus the reverberant sound:
// - the input is scaled by `room` and cut at `hfReference` by `roomHF`, then delayed;
// - early reflections: a fixed pattern of taps on both sides over about 21 ms, the first at
//   `reflectionsDelay` after the direct sound, at level `room` + `reflections`;
// - late reverb: a feedback delay network of eight lines whose first echo arrives
//   `reverbDelay` after the first reflection (or, when the two delays together are shorter
//   than the network's shortest line, after that line), at level `room` + `reverb`. Its energy
//   is normalised so that `reverb` sets the level whatever the decay. Each line loses
//   60 dB per `decayTime` at low frequencies and per `decayTime` x `decayHFRatio` at
//   `hfReference`, so the whole tail decays at those rates. `diffusion` sets the all-pass
//   diffusers before the network and how much the lines mix into each other (0 gives
//   separate, audible echoes); `density` scales the line lengths and so the number of modes.
// - `roomRolloffFactor` scales distance attenuation of a source; the whole mix has no
//   distance, so it is taken and kept but changes nothing.
//
// Changes of setting apply at the next frame, without a glide: the program pauses the sound
// around them.
class RoomReverb final : public EffectUnit {
  public:
    static constexpr int kLines = 8;

    explicit RoomReverb(double sampleRate);

    EffectKind kind() const override { return EffectKind::Reverb; }
    // No allocation. Values outside their I3DL2 ranges are clamped into them.
    void set(const ReverbParams& p);
    void process(float* io, int frames) override;
    void reset() override;

    // The settings in force, after clamping.
    const ReverbParams& params() const { return params_; }

  private:
    struct Tap {
        int delay = 0;  // samples after the direct sound
        bool fromRight = false;
        float gain = 0.0f;
    };
    static constexpr int kTapsPerSide = 6;

    // Schroeder all-pass: (-g + z^-D) / (1 - g z^-D).
    struct AllPass {
        std::vector<float> buffer;
        int mask = 0;
        int delay = 1;
        int pos = 0;

        float process(float x, float g) {
            const float delayed = buffer[static_cast<unsigned>(pos - delay) & mask];
            const float w = x + g * delayed;
            buffer[static_cast<unsigned>(pos)] = w;
            pos = (pos + 1) & mask;
            return delayed - g * w;
        }
    };
    static constexpr int kAllPassesPerSide = 3;

    double sampleRate_;
    ReverbParams params_;

    // Input after room level and HF cut, one ring per side.
    std::vector<float> inLeft_;
    std::vector<float> inRight_;
    int inMask_ = 0;
    int inPos_ = 0;
    float roomGain_ = 0.0f;
    BiquadCoefficients roomHf_;
    BiquadState roomHfLeft_;
    BiquadState roomHfRight_;

    std::array<Tap, kTapsPerSide> tapsLeft_{};
    std::array<Tap, kTapsPerSide> tapsRight_{};

    int lateTap_ = 0;
    float diffuserGain_ = 0.0f;
    std::array<AllPass, kAllPassesPerSide> diffuseLeft_;
    std::array<AllPass, kAllPassesPerSide> diffuseRight_;

    std::vector<float> lines_;  // kLines rings of lineSize_ each
    int lineSize_ = 0;
    int lineMask_ = 0;
    int linePos_ = 0;
    std::array<int, kLines> lineLength_{};
    std::array<float, kLines> lineInput_{};
    std::array<BiquadCoefficients, kLines> lineDecay_{};
    std::array<BiquadState, kLines> lineDecayState_{};
    float mixCos_ = 1.0f;
    float mixSin_ = 0.0f;
    float lateGain_ = 0.0f;
};

}  // namespace brevane
