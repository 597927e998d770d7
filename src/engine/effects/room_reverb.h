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
//   distance, so it is accepted but changes nothing.
//
// set() applies at the next frame. A unit that carries on from another (continueFrom) starts
// from that unit's delays and mixing instead and glides to its own over kRampFrames: every
// delay is read at both its old and its new length, cross-faded, and the diffusion and the
// lines' filters ramp. The program rebuilds the chain on every move of a slider, and a tail
// carried into settings that jump would keep the corner of the jump, recirculating, long
// after the mixer's cross-fade has hidden the first one. The delays fade rather than slide
// because a sliding delay shifts the pitch of what it carries, and a shifted tail beats
// against the dry sound.
class RoomReverb final : public EffectUnit {
  public:
    static constexpr int kLines = 8;
    // How long the delays, the mixing and the lines' filters take to reach new settings.
    static constexpr int kRampFrames = 512;

    explicit RoomReverb(double sampleRate);

    EffectKind kind() const override { return EffectKind::Reverb; }
    // No allocation. Values outside their I3DL2 ranges are clamped into them.
    void set(const ReverbParams& p);
    void process(float* io, int frames) override;
    void reset() override;
    void continueFrom(const EffectUnit& other) override;

  private:
    // Runs up to `frames` frames and returns how many it ran: all of them when settled, or
    // up to the frame where a glide reaches its settings.
    template <bool kGliding>
    int run(float* io, int frames);
    // Moves the fades and ramps one frame on; true once all of them stand at their settings.
    bool glideOn();
    void settle();

    static constexpr int kTapsPerSide = 6;
    static constexpr int kAllPassesPerSide = 3;

    double sampleRate_;

    // Input after room level and HF cut: a ring of stereo frames, left then right.
    std::vector<float> in_;
    unsigned inMask_ = 0;
    unsigned inPos_ = 0;
    float roomGain_ = 0.0f;
    BiquadLanes roomHf_;
    BiquadState roomHfState_;  // lane 0 left, lane 1 right

    // Early reflections per output side: where each tap reads in the stereo ring, as an
    // offset from twice the write position (its input side in the lowest bit), and its gain.
    std::array<unsigned, kTapsPerSide> tapLeftOffset_{};
    std::array<unsigned, kTapsPerSide> tapRightOffset_{};
    std::array<float, kTapsPerSide> tapLeftGain_{};
    std::array<float, kTapsPerSide> tapRightGain_{};

    unsigned lateTap_ = 0;
    unsigned firstTap_ = 0;  // the first reflection's delay, in frames

    // The delays a fade reads, in frames: the first reflection's, the late tap's and each
    // line's length.
    struct Delays {
        unsigned first = 0;
        unsigned late = 0;
        std::array<unsigned, kLines> line{};
        bool operator==(const Delays&) const = default;
    };
    Delays settings() const;

    // While gliding: the delays fading from fadeFrom_ to fadeTo_, fadeAt_ frames of
    // kRampFrames in; a fade toward delays other than this unit's is followed by one toward
    // them. The mixing and filters as they stand, stepping by *Step_ for rampLeft_ more
    // frames toward *Target_.
    bool gliding_ = false;
    Delays fadeFrom_;
    Delays fadeTo_;
    int fadeAt_ = 0;
    int rampLeft_ = 0;
    float diffuserGainTarget_ = 0.0f;
    float diffuserGainStep_ = 0.0f;
    float mixTanTarget_ = 0.0f;
    float mixTanStep_ = 0.0f;
    std::array<BiquadLanes, 2> lineDecayTarget_{};
    std::array<BiquadLanes, 2> lineDecayStep_{};
    std::array<Float4, 2> lineInputTarget_{};
    std::array<Float4, 2> lineInputStep_{};

    // Schroeder all-passes, (-g + z^-D) / (1 - g z^-D), three per side in series: rings of
    // diffuserSize_ each, left ones first, sharing one write position.
    std::vector<float> diffusers_;
    unsigned diffuserSize_ = 0;
    unsigned diffuserPos_ = 0;
    std::array<unsigned, 2 * kAllPassesPerSide> diffuserDelay_{};
    float diffuserGain_ = 0.0f;

    // The network: lines 0-3 in the lanes of the first Float4 of each pair, 4-7 in the second.
    std::vector<float> lines_;  // kLines rings of lineSize_ each
    unsigned lineSize_ = 0;
    unsigned lineMask_ = 0;
    unsigned linePos_ = 0;
    std::array<unsigned, kLines> lineLength_{};
    std::array<Float4, 2> lineInput_{};
    std::array<BiquadLanes, 2> lineDecay_{};
    std::array<BiquadState, 2> lineDecayState_{};
    float mixTan_ = 0.0f;
    float lateGain_ = 0.0f;
};

}  // namespace brevane
