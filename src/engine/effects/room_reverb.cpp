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
// right; lengths share no common factor once rounded at usual rates, so their modes
// interleave.
constexpr std::array<double, RoomReverb::kLines> kLineMs{29.7, 37.1, 41.1, 43.7,
                                                         53.3, 59.9, 67.1, 73.7};
// Density 0 shortens the lines to this share of their length.
constexpr double kShortestLineShare = 0.25;

// All-pass diffusers before the network, ms, per side.
constexpr std::array<double, 3> kDiffuserLeftMs{2.9, 4.3, 6.1};
constexpr std::array<double, 3> kDiffuserRightMs{3.1, 4.7, 6.4};
constexpr double kMaxDiffuserGain = 0.7;

// Output signs per line. Each output takes every line; the two patterns are orthogonal, so
// left and right tails are uncorrelated.
constexpr std::array<float, RoomReverb::kLines> kLeftSign{1, 1, -1, -1, 1, 1, -1, -1};
constexpr std::array<float, RoomReverb::kLines> kRightSign{1, 1, 1, 1, -1, -1, -1, -1};

int powerOfTwoAbove(int n) {
    int size = 1;
    while (size <= n) {
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
    const int inSize = powerOfTwoAbove(
        samplesOf(longest.reflectionsDelay + longest.reverbDelay + kLongestTapMs / 1000.0,
                  sampleRate_) +
        2);
    inLeft_.assign(static_cast<std::size_t>(inSize), 0.0f);
    inRight_.assign(static_cast<std::size_t>(inSize), 0.0f);
    inMask_ = inSize - 1;

    for (int i = 0; i < kAllPassesPerSide; ++i) {
        auto prepare = [&](AllPass& ap, double ms) {
            ap.delay = std::max(1, samplesOf(ms / 1000.0, sampleRate_));
            const int size = powerOfTwoAbove(ap.delay);
            ap.buffer.assign(static_cast<std::size_t>(size), 0.0f);
            ap.mask = size - 1;
        };
        prepare(diffuseLeft_[static_cast<std::size_t>(i)],
                kDiffuserLeftMs[static_cast<std::size_t>(i)]);
        prepare(diffuseRight_[static_cast<std::size_t>(i)],
                kDiffuserRightMs[static_cast<std::size_t>(i)]);
    }

    lineSize_ = powerOfTwoAbove(samplesOf(kLineMs.back() / 1000.0, sampleRate_) + 1);
    lineMask_ = lineSize_ - 1;
    lines_.assign(static_cast<std::size_t>(lineSize_) * kLines, 0.0f);

    set(ReverbParams{});
}

void RoomReverb::set(const ReverbParams& p) {
    // Every value outside its I3DL2 range is clamped into it here, never refused, so that each
    // slider of the effects panel acts; the panel's Reflections slider reaches above the top
    // of its range and then stands at the top.
    params_ = clampedToRange(p);
    const ReverbParams& q = params_;

    const double refHz = std::min(double{q.hfReference}, 0.45 * sampleRate_);

    roomGain_ = millibelsToGain(q.room);
    roomHf_ = referenceShelfCoefficients(sampleRate_, refHz, 1.0,
                                         std::max(double{millibelsToGain(q.roomHF)}, 1e-5));

    // Early reflections, their energy normalised to the level asked for.
    const int first = samplesOf(q.reflectionsDelay, sampleRate_);
    const double earlyGain = millibelsToGain(q.reflections);
    auto placeTaps = [&](const std::array<TapShape, 6>& shape, std::array<Tap, 6>& taps,
                         bool rightSide) {
        double energy = 0.0;
        for (const TapShape& s : shape) {
            energy += s.gain * s.gain;
        }
        const double norm = earlyGain / std::sqrt(energy);
        for (std::size_t i = 0; i < shape.size(); ++i) {
            taps[i].delay = first + samplesOf(shape[i].ms / 1000.0, sampleRate_);
            taps[i].fromRight = rightSide != shape[i].crossed;
            taps[i].gain = static_cast<float>(shape[i].gain * norm);
        }
    };
    placeTaps(kLeftTaps, tapsLeft_, false);
    placeTaps(kRightTaps, tapsRight_, true);

    // Late network.
    const double share = kShortestLineShare + (1.0 - kShortestLineShare) * q.density / 100.0;
    const double decayLow = q.decayTime;
    const double decayHigh = q.decayTime * q.decayHFRatio;
    for (std::size_t i = 0; i < kLines; ++i) {
        const int length = std::max(1, samplesOf(kLineMs[i] * share / 1000.0, sampleRate_));
        lineLength_[i] = length;
        // 60 dB per decay time: the gain of one pass through a line of `length` samples.
        const double seconds = length / sampleRate_;
        const double gainLow = std::pow(10.0, -3.0 * seconds / decayLow);
        const double gainRef = std::pow(10.0, -3.0 * seconds / decayHigh);
        lineDecay_[i] = referenceShelfCoefficients(sampleRate_, refHz, gainLow, gainRef);
        // Each input side feeds half of the lines; a line's recirculation adds up to
        // 1 / (1 - g^2) in energy, which this cancels.
        lineInput_[i] = static_cast<float>(std::sqrt((1.0 - gainLow * gainLow) / (kLines / 2)));
    }
    const int shortest = *std::min_element(lineLength_.begin(), lineLength_.end());
    // The network's first echo comes one shortest line after its input: take the input that
    // much earlier, as far as the direct sound allows.
    lateTap_ =
        std::max(0, samplesOf(double{q.reflectionsDelay} + q.reverbDelay, sampleRate_) - shortest);
    lateGain_ = millibelsToGain(q.reverb);

    diffuserGain_ = static_cast<float>(kMaxDiffuserGain * q.diffusion / 100.0);
    const double angle = std::numbers::pi / 4.0 * q.diffusion / 100.0;
    mixCos_ = static_cast<float>(std::cos(angle));
    mixSin_ = static_cast<float>(std::sin(angle));
}

void RoomReverb::process(float* io, int frames) {
    if (frames <= 0) {
        return;
    }
    float* const inL = inLeft_.data();
    float* const inR = inRight_.data();
    float* const lines = lines_.data();
    const unsigned inMask = static_cast<unsigned>(inMask_);
    const unsigned lineMask = static_cast<unsigned>(lineMask_);
    const float c = mixCos_;
    const float s = mixSin_;
    const float room = roomGain_;
    const float late = lateGain_;
    const float diffusion = diffuserGain_;
    unsigned inPos = static_cast<unsigned>(inPos_);
    unsigned linePos = static_cast<unsigned>(linePos_);

    for (int frame = 0; frame < frames; ++frame) {
        const float dryL = io[2 * frame];
        const float dryR = io[2 * frame + 1];
        inL[inPos] = roomHfLeft_.process(roomHf_, dryL * room);
        inR[inPos] = roomHfRight_.process(roomHf_, dryR * room);

        float earlyL = 0.0f;
        float earlyR = 0.0f;
        for (int t = 0; t < kTapsPerSide; ++t) {
            const Tap& tl = tapsLeft_[static_cast<std::size_t>(t)];
            const Tap& tr = tapsRight_[static_cast<std::size_t>(t)];
            const unsigned il = (inPos - static_cast<unsigned>(tl.delay)) & inMask;
            const unsigned ir = (inPos - static_cast<unsigned>(tr.delay)) & inMask;
            earlyL += tl.gain * (tl.fromRight ? inR[il] : inL[il]);
            earlyR += tr.gain * (tr.fromRight ? inR[ir] : inL[ir]);
        }

        const unsigned lateAt = (inPos - static_cast<unsigned>(lateTap_)) & inMask;
        float feedL = inL[lateAt];
        float feedR = inR[lateAt];
        for (int a = 0; a < kAllPassesPerSide; ++a) {
            feedL = diffuseLeft_[static_cast<std::size_t>(a)].process(feedL, diffusion);
            feedR = diffuseRight_[static_cast<std::size_t>(a)].process(feedR, diffusion);
        }

        std::array<float, kLines> x;
        float lateL = 0.0f;
        float lateR = 0.0f;
        for (std::size_t i = 0; i < kLines; ++i) {
            const unsigned at = (linePos - static_cast<unsigned>(lineLength_[i])) & lineMask;
            x[i] = lines[i * static_cast<std::size_t>(lineSize_) + at];
            lateL += kLeftSign[i] * x[i];
            lateR += kRightSign[i] * x[i];
        }
        for (std::size_t i = 0; i < kLines; ++i) {
            x[i] = lineDecayState_[i].process(lineDecay_[i], x[i]);
        }
        // Three butterfly stages of plane rotations: an orthogonal mix, so the network loses
        // energy only through the decay filters. At 45 degrees every line reaches every other.
        for (std::size_t stride = 1; stride < kLines; stride *= 2) {
            for (std::size_t i = 0; i < kLines; ++i) {
                if ((i & stride) == 0) {
                    const float a = x[i];
                    const float b = x[i + stride];
                    x[i] = c * a + s * b;
                    x[i + stride] = c * b - s * a;
                }
            }
        }
        for (std::size_t i = 0; i < kLines; ++i) {
            const float feed = (i % 2 == 0) ? feedL : feedR;
            const float v = x[i] + lineInput_[i] * feed;
            // A tail that has decayed to nothing becomes exact silence (see flushTiny).
            lines[i * static_cast<std::size_t>(lineSize_) + linePos] =
                std::abs(v) < BiquadState::kTiny ? 0.0f : v;
        }

        io[2 * frame] = dryL + earlyL + late * lateL;
        io[2 * frame + 1] = dryR + earlyR + late * lateR;
        inPos = (inPos + 1) & inMask;
        linePos = (linePos + 1) & lineMask;
    }
    inPos_ = static_cast<int>(inPos);
    linePos_ = static_cast<int>(linePos);
    roomHfLeft_.flushTiny();
    roomHfRight_.flushTiny();
    for (BiquadState& state : lineDecayState_) {
        state.flushTiny();
    }
}

void RoomReverb::reset() {
    std::fill(inLeft_.begin(), inLeft_.end(), 0.0f);
    std::fill(inRight_.begin(), inRight_.end(), 0.0f);
    std::fill(lines_.begin(), lines_.end(), 0.0f);
    for (AllPass& ap : diffuseLeft_) {
        std::fill(ap.buffer.begin(), ap.buffer.end(), 0.0f);
    }
    for (AllPass& ap : diffuseRight_) {
        std::fill(ap.buffer.begin(), ap.buffer.end(), 0.0f);
    }
    roomHfLeft_ = {};
    roomHfRight_ = {};
    lineDecayState_ = {};
}

}  // namespace brevane
