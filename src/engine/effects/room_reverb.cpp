#include "engine/effects/room_reverb.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace brevane {

namespace {

// Early reflection pattern, ms after the first reflection: alternating sides, falling off.
struct TapShape {
    double ms;
    bool crossed;  // taken from the other side's input
    double gain;
};
constexpr std::array<TapShape, 6> kLeftTaps{{{0.0, false, 1.0},
                                             {2.3, true, 0.84},
                                             {5.9, false, 0.71},
                                             {9.7, true, 0.59},
                                             {14.1, false, 0.5},
                                             {19.3, true, 0.42}}};
constexpr std::array<TapShape, 6> kRightTaps{{{0.0, false, 1.0},
                                              {3.1, true, 0.84},
                                              {6.7, false, 0.71},
                                              {10.9, true, 0.59},
                                              {15.3, false, 0.5},
                                              {20.9, true, 0.42}}};
constexpr double kLongestTapMs = 20.9;

// Line lengths at full density, ms. Lines 0, 2, 4, 6 take the left input, the others the
// right. The lengths are spread unevenly so that echoes of different lines seldom coincide.
constexpr std::array<double, RoomReverb::kLines> kLineMs{29.7, 37.1, 41.1, 43.7,
                                                         53.3, 59.9, 67.1, 73.7};
// Density 0 shortens the lines to this share of their length.
constexpr double kShortestLineShare = 0.25;

// All-pass diffusers before the network, ms, per side.
constexpr std::array<double, 3> kDiffuserLeftMs{2.9, 4.3, 6.1};
constexpr std::array<double, 3> kDiffuserRightMs{3.1, 4.7, 6.4};
constexpr double kMaxDiffuserGain = 0.7;

// The sample `w` of the way from a to b.
float between(float a, float b, float w) {
    return a + w * (b - a);
}

unsigned powerOfTwoAbove(int n) {
    unsigned size = 1;
    while (size <= static_cast<unsigned>(std::max(n, 0))) {
        size *= 2;
    }
    return size;
}

int samplesOf(double seconds, double sampleRate) {
    return static_cast<int>(std::lround(seconds * sampleRate));
}

}  // namespace

RoomReverb::RoomReverb(double sampleRate) : sampleRate_(sampleRate) {
    // Rings long enough for the longest delays the parameters can ask for.
    ReverbParams longest;
    longest.reflectionsDelay = 1e9f;
    longest.reverbDelay = 1e9f;
    longest = clampedToRange(longest);
    const unsigned inSize = powerOfTwoAbove(
        samplesOf(longest.reflectionsDelay + longest.reverbDelay + kLongestTapMs / 1000.0,
                  sampleRate_) +
        2);
    in_.assign(2 * std::size_t{inSize}, 0.0f);
    inMask_ = inSize - 1;

    for (std::size_t i = 0; i < kAllPassesPerSide; ++i) {
        diffuserDelay_[i] =
            static_cast<unsigned>(std::max(1, samplesOf(kDiffuserLeftMs[i] / 1000.0, sampleRate_)));
        diffuserDelay_[i + kAllPassesPerSide] = static_cast<unsigned>(
            std::max(1, samplesOf(kDiffuserRightMs[i] / 1000.0, sampleRate_)));
    }
    diffuserSize_ = powerOfTwoAbove(
        static_cast<int>(*std::max_element(diffuserDelay_.begin(), diffuserDelay_.end())));
    diffusers_.assign(std::size_t{diffuserSize_} * diffuserDelay_.size(), 0.0f);

    lineSize_ = powerOfTwoAbove(samplesOf(kLineMs.back() / 1000.0, sampleRate_) + 1);
    lineMask_ = lineSize_ - 1;
    lines_.assign(std::size_t{lineSize_} * kLines, 0.0f);

    set(ReverbParams{});
}

void RoomReverb::set(const ReverbParams& p) {
    // Every value outside its I3DL2 range is clamped into it here, never refused, so that each
    // slider of the effects panel acts (see clampedToRange for its Reflections slider).
    const ReverbParams q = clampedToRange(p);

    const double refHz = std::min(double{q.hfReference}, 0.45 * sampleRate_);

    roomGain_ = millibelsToGain(q.room);
    roomHf_ = inAllLanes(referenceShelfCoefficients(
        sampleRate_, refHz, 1.0, std::max(double{millibelsToGain(q.roomHF)}, 1e-5)));

    // Early reflections, their energy normalised to the level asked for.
    const int first = samplesOf(q.reflectionsDelay, sampleRate_);
    firstTap_ = static_cast<unsigned>(first);
    const double earlyGain = millibelsToGain(q.reflections);
    auto placeTaps = [&](const std::array<TapShape, 6>& shape, std::array<unsigned, 6>& offsets,
                         std::array<float, 6>& gains, unsigned ownSide) {
        double energy = 0.0;
        for (const TapShape& s : shape) {
            energy += s.gain * s.gain;
        }
        const double norm = earlyGain / std::sqrt(energy);
        for (std::size_t i = 0; i < shape.size(); ++i) {
            const auto delay =
                static_cast<unsigned>(first + samplesOf(shape[i].ms / 1000.0, sampleRate_));
            const unsigned side = shape[i].crossed ? 1 - ownSide : ownSide;
            offsets[i] = side - 2 * delay;  // modulo 2^32, masked at use
            gains[i] = static_cast<float>(shape[i].gain * norm);
        }
    };
    placeTaps(kLeftTaps, tapLeftOffset_, tapLeftGain_, 0);
    placeTaps(kRightTaps, tapRightOffset_, tapRightGain_, 1);

    // The lines mix through three butterfly stages of plane rotations by `angle`, each
    // written as c (a + t b), c (b - t a) with t = tan(angle): the three factors c are taken
    // out of the loop into the decay filters.
    const double angle = std::numbers::pi / 4.0 * q.diffusion / 100.0;
    mixTanTarget_ = static_cast<float>(std::tan(angle));
    const double mixScale = std::pow(std::cos(angle), 3.0);

    // Late network.
    const double share = kShortestLineShare + (1.0 - kShortestLineShare) * q.density / 100.0;
    const double decayLow = q.decayTime;
    const double decayHigh = q.decayTime * q.decayHFRatio;
    for (std::size_t i = 0; i < kLines; ++i) {
        const int length = std::max(1, samplesOf(kLineMs[i] * share / 1000.0, sampleRate_));
        lineLength_[i] = static_cast<unsigned>(length);
        // 60 dB per decay time: the gain of one pass through a line of `length` samples.
        const double seconds = length / sampleRate_;
        const double gainLow = std::pow(10.0, -3.0 * seconds / decayLow);
        const double gainRef = std::pow(10.0, -3.0 * seconds / decayHigh);
        BiquadCoefficients c = referenceShelfCoefficients(sampleRate_, refHz, gainLow, gainRef);
        c.b0 = static_cast<float>(c.b0 * mixScale);
        c.b1 = static_cast<float>(c.b1 * mixScale);
        c.b2 = static_cast<float>(c.b2 * mixScale);
        BiquadLanes& lanes = lineDecayTarget_[i / 4];
        const std::size_t lane = i % 4;
        lanes.b0[lane] = c.b0;
        lanes.b1[lane] = c.b1;
        lanes.b2[lane] = c.b2;
        lanes.a1[lane] = c.a1;
        lanes.a2[lane] = c.a2;
        // Each input side feeds half of the lines; a line's recirculation adds up to
        // 1 / (1 - g^2) in energy, which this cancels.
        lineInputTarget_[i / 4][lane] =
            static_cast<float>(std::sqrt((1.0 - gainLow * gainLow) / (kLines / 2)));
    }
    const unsigned shortest = *std::min_element(lineLength_.begin(), lineLength_.end());
    // The network's first echo comes one shortest line after its input: take the input that
    // much earlier, as far as the direct sound allows.
    lateTap_ = static_cast<unsigned>(
        std::max(0, samplesOf(double{q.reflectionsDelay} + q.reverbDelay, sampleRate_) -
                        static_cast<int>(shortest)));
    lateGain_ = millibelsToGain(q.reverb);
    diffuserGainTarget_ = static_cast<float>(kMaxDiffuserGain * q.diffusion / 100.0);
    settle();
}

void RoomReverb::settle() {
    gliding_ = false;
    rampLeft_ = 0;
    fadeFrom_ = settings();
    fadeTo_ = fadeFrom_;
    fadeAt_ = kRampFrames;
    diffuserGain_ = diffuserGainTarget_;
    mixTan_ = mixTanTarget_;
    lineDecay_ = lineDecayTarget_;
    lineInput_ = lineInputTarget_;
}

RoomReverb::Delays RoomReverb::settings() const {
    return Delays{firstTap_, lateTap_, lineLength_};
}

bool RoomReverb::glideOn() {
    bool settled = false;
    if (fadeAt_ < kRampFrames) {
        ++fadeAt_;
    } else if (fadeTo_ == settings()) {
        settled = true;
    } else {
        // A fade taken over from another unit has ended on that unit's delays: on to these.
        fadeFrom_ = fadeTo_;
        fadeTo_ = settings();
        fadeAt_ = 0;
    }
    if (rampLeft_ > 0 && --rampLeft_ > 0) {
        diffuserGain_ += diffuserGainStep_;
        mixTan_ += mixTanStep_;
        for (std::size_t j = 0; j < 2; ++j) {
            BiquadLanes& now = lineDecay_[j];
            const BiquadLanes& step = lineDecayStep_[j];
            now.b0 += step.b0;
            now.b1 += step.b1;
            now.b2 += step.b2;
            now.a1 += step.a1;
            now.a2 += step.a2;
            lineInput_[j] += lineInputStep_[j];
        }
        return false;
    }
    // The ramp's last frame lands exactly on the settings.
    diffuserGain_ = diffuserGainTarget_;
    mixTan_ = mixTanTarget_;
    lineDecay_ = lineDecayTarget_;
    lineInput_ = lineInputTarget_;
    return settled;
}

void RoomReverb::process(float* io, int frames) {
    int done = 0;
    while (done < frames) {
        // Settled, each delay is read once and nothing ramps: the glide costs nothing once
        // it is over.
        done += gliding_ ? run<true>(io + 2 * done, frames - done)
                         : run<false>(io + 2 * done, frames - done);
    }
    roomHfState_.flushTiny();
    for (BiquadState& state : lineDecayState_) {
        state.flushTiny();
    }
}

template <bool kGliding>
int RoomReverb::run(float* io, int frames) {
    float* const in = in_.data();
    float* const lines = lines_.data();
    const unsigned inMask = inMask_;
    const unsigned lineMask = lineMask_;
    const std::size_t size = lineSize_;
    const float room = roomGain_;
    const float late = lateGain_;
    float diffusion = diffuserGain_;
    float t = mixTan_;
    Float4 halfTurn = Float4{1.0f, 1.0f, -1.0f, -1.0f} * t;
    Float4 pairTurn = Float4{1.0f, -1.0f, 1.0f, -1.0f} * t;
    const Float4 leftSigns{1.0f, 1.0f, -1.0f, -1.0f};
    unsigned inPos = inPos_;
    unsigned linePos = linePos_;
    const unsigned stereoMask = 2 * inMask + 1;
    float* const diffusers = diffusers_.data();
    const unsigned diffuserMask = diffuserSize_ - 1;
    unsigned diffuserPos = diffuserPos_;
    auto allPass = [&](std::size_t which, float x) {
        float* const ring = diffusers + which * diffuserSize_;
        const float delayed = ring[(diffuserPos - diffuserDelay_[which]) & diffuserMask];
        const float w = x + diffusion * delayed;
        ring[diffuserPos] = w;
        return delayed - diffusion * w;
    };

    constexpr float kFadeStep = 1.0f / kRampFrames;
    float fade = static_cast<float>(fadeAt_) * kFadeStep;
    int frame = 0;
    while (frame < frames) {
        const float dryL = io[2 * frame];
        const float dryR = io[2 * frame + 1];
        const Float4 wet = roomHfState_.process(roomHf_, Float4{dryL * room, dryR * room, 0, 0});
        in[2 * inPos] = wet[0];
        in[2 * inPos + 1] = wet[1];

        // Frame k of the ring sits at 2k (left) and 2k + 1 (right): with an even offset from
        // 2 inPos, masking by 2 inMask + 1 wraps whole frames and keeps the side bit.
        const unsigned here = 2 * inPos;
        float earlyL = 0.0f;
        float earlyR = 0.0f;
        float feedL = 0.0f;
        float feedR = 0.0f;
        if constexpr (kGliding) {
            // Every tap stands as far from its setting as the first reflection does.
            const unsigned from = here + 2 * (firstTap_ - fadeFrom_.first);
            const unsigned to = here + 2 * (firstTap_ - fadeTo_.first);
            float fromL = 0.0f;
            float fromR = 0.0f;
            for (std::size_t k = 0; k < kTapsPerSide; ++k) {
                fromL += tapLeftGain_[k] * in[(from + tapLeftOffset_[k]) & stereoMask];
                fromR += tapRightGain_[k] * in[(from + tapRightOffset_[k]) & stereoMask];
                earlyL += tapLeftGain_[k] * in[(to + tapLeftOffset_[k]) & stereoMask];
                earlyR += tapRightGain_[k] * in[(to + tapRightOffset_[k]) & stereoMask];
            }
            earlyL = between(fromL, earlyL, fade);
            earlyR = between(fromR, earlyR, fade);
            const unsigned lateFrom = 2 * ((inPos - fadeFrom_.late) & inMask);
            const unsigned lateTo = 2 * ((inPos - fadeTo_.late) & inMask);
            feedL = between(in[lateFrom], in[lateTo], fade);
            feedR = between(in[lateFrom + 1], in[lateTo + 1], fade);
        } else {
            for (std::size_t k = 0; k < kTapsPerSide; ++k) {
                earlyL += tapLeftGain_[k] * in[(here + tapLeftOffset_[k]) & stereoMask];
                earlyR += tapRightGain_[k] * in[(here + tapRightOffset_[k]) & stereoMask];
            }
            const unsigned lateAt = 2 * ((inPos - lateTap_) & inMask);
            feedL = in[lateAt];
            feedR = in[lateAt + 1];
        }
        for (std::size_t a = 0; a < kAllPassesPerSide; ++a) {
            feedL = allPass(a, feedL);
            feedR = allPass(a + kAllPassesPerSide, feedR);
        }
        diffuserPos = (diffuserPos + 1) & diffuserMask;

        auto tapLine = [&](std::size_t i) {
            const float* const ring = lines + i * size;
            if constexpr (kGliding) {
                return between(ring[(linePos - fadeFrom_.line[i]) & lineMask],
                               ring[(linePos - fadeTo_.line[i]) & lineMask], fade);
            } else {
                return ring[(linePos - lineLength_[i]) & lineMask];
            }
        };
        Float4 x0{tapLine(0), tapLine(1), tapLine(2), tapLine(3)};
        Float4 x1{tapLine(4), tapLine(5), tapLine(6), tapLine(7)};
        // Each output takes every line, with signs: left + + - - + + - -, right + + + + - - - -.
        // The two patterns are orthogonal, so left and right tails are uncorrelated.
        const float lateL = sumOf((x0 + x1) * leftSigns);
        const float lateR = sumOf(x0 - x1);

        x0 = lineDecayState_[0].process(lineDecay_[0], x0);
        x1 = lineDecayState_[1].process(lineDecay_[1], x1);
        // Butterflies between lines 4 apart, then 2 apart, then neighbours.
        Float4 a = x0 + t * x1;
        Float4 b = x1 - t * x0;
        a += swapHalves(a) * halfTurn;
        b += swapHalves(b) * halfTurn;
        a += swapNeighbours(a) * pairTurn;
        b += swapNeighbours(b) * pairTurn;
        // Even lines take the left input, odd lines the right. A tail that has decayed to
        // nothing becomes exact silence (see BiquadState::flushTiny).
        const Float4 feed{feedL, feedR, feedL, feedR};
        a = flushBelow(a + lineInput_[0] * feed, BiquadState::kTiny);
        b = flushBelow(b + lineInput_[1] * feed, BiquadState::kTiny);
        for (std::size_t i = 0; i < 4; ++i) {
            lines[i * size + linePos] = a[i];
            lines[(i + 4) * size + linePos] = b[i];
        }

        io[2 * frame] = dryL + earlyL + late * lateL;
        io[2 * frame + 1] = dryR + earlyR + late * lateR;
        inPos = (inPos + 1) & inMask;
        linePos = (linePos + 1) & lineMask;
        ++frame;
        if constexpr (kGliding) {
            if (glideOn()) {
                settle();
                break;
            }
            fade = static_cast<float>(fadeAt_) * kFadeStep;
            diffusion = diffuserGain_;
            t = mixTan_;
            halfTurn = Float4{1.0f, 1.0f, -1.0f, -1.0f} * t;
            pairTurn = Float4{1.0f, -1.0f, 1.0f, -1.0f} * t;
        }
    }
    inPos_ = inPos;
    linePos_ = linePos;
    diffuserPos_ = diffuserPos;
    return frame;
}

void RoomReverb::reset() {
    std::fill(in_.begin(), in_.end(), 0.0f);
    std::fill(lines_.begin(), lines_.end(), 0.0f);
    std::fill(diffusers_.begin(), diffusers_.end(), 0.0f);
    roomHfState_ = {};
    lineDecayState_ = {};
}

void RoomReverb::continueFrom(const EffectUnit& other) {
    if (other.kind() != EffectKind::Reverb) {
        return;
    }
    const auto& room = static_cast<const RoomReverb&>(other);
    if (room.sampleRate_ != sampleRate_) {
        return;
    }
    // The rings are sized by the rate alone, so they match; the new settings read them
    // from their own taps and lengths.
    std::copy(room.in_.begin(), room.in_.end(), in_.begin());
    std::copy(room.lines_.begin(), room.lines_.end(), lines_.begin());
    std::copy(room.diffusers_.begin(), room.diffusers_.end(), diffusers_.begin());
    inPos_ = room.inPos_;
    linePos_ = room.linePos_;
    diffuserPos_ = room.diffuserPos_;
    roomHfState_ = room.roomHfState_;
    lineDecayState_ = room.lineDecayState_;

    // The delays and the mixing start where the other unit's stand and glide to this one's.
    fadeFrom_ = room.fadeFrom_;
    fadeTo_ = room.fadeTo_;
    fadeAt_ = room.fadeAt_;
    diffuserGain_ = room.diffuserGain_;
    mixTan_ = room.mixTan_;
    lineDecay_ = room.lineDecay_;
    lineInput_ = room.lineInput_;
    constexpr float kShare = 1.0f / kRampFrames;
    diffuserGainStep_ = (diffuserGainTarget_ - diffuserGain_) * kShare;
    mixTanStep_ = (mixTanTarget_ - mixTan_) * kShare;
    for (std::size_t j = 0; j < 2; ++j) {
        const BiquadLanes& to = lineDecayTarget_[j];
        const BiquadLanes& now = lineDecay_[j];
        lineDecayStep_[j] = BiquadLanes{(to.b0 - now.b0) * kShare, (to.b1 - now.b1) * kShare,
                                        (to.b2 - now.b2) * kShare, (to.a1 - now.a1) * kShare,
                                        (to.a2 - now.a2) * kShare};
        lineInputStep_[j] = (lineInputTarget_[j] - lineInput_[j]) * kShare;
    }
    rampLeft_ = kRampFrames;
    gliding_ = true;
}

}  // namespace brevane
