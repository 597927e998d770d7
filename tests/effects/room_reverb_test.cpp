#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

#include "engine/effects/effects_chain.h"
#include "engine/effects/room_reverb.h"
#include "measure.h"

namespace brevane {
namespace {

using testing::kRate;

// The reverberant part of the chain's answer to an impulse on both sides: output less the
// direct sound, which passes unchanged.
struct Response {
    std::vector<double> left;
    std::vector<double> right;
};

Response wetImpulse(const ReverbParams& p, double seconds) {
    EffectsChain chain(kRate);
    chain.setReverb(chain.enable(EffectKind::Reverb), p);
    const std::vector<float> ir = testing::renderImpulse(chain, static_cast<int>(seconds * kRate));
    Response r{testing::side(ir, 0), testing::side(ir, 1)};
    r.left[0] -= 1.0;
    r.right[0] -= 1.0;
    return r;
}

class ReverbDecay : public ::testing::TestWithParam<float> {};

TEST_P(ReverbDecay, Rt60FollowsDecayTime) {
    ReverbParams p;
    p.decayTime = GetParam();
    const Response r = wetImpulse(p, 1.5 * p.decayTime + 0.5);
    // Low frequencies decay in decayTime; measure an octave around 500 Hz.
    for (const std::vector<double>* s : {&r.left, &r.right}) {
        const double t = testing::rt60(testing::bandPass(*s, 500.0, 1.41));
        EXPECT_NEAR(t, p.decayTime, 0.15 * p.decayTime);
    }
}

INSTANTIATE_TEST_SUITE_P(DecayTimes, ReverbDecay, ::testing::Values(0.5f, 1.49f, 5.0f));

TEST(RoomReverb, BandAroundHfReferenceDecaysByDecayHfRatio) {
    for (float ratio : {0.3f, 0.6f, 1.5f}) {
        for (float hfReference : {2000.0f, 5000.0f}) {
            ReverbParams p;
            p.decayTime = 2.0f;
            p.decayHFRatio = ratio;
            p.hfReference = hfReference;
            const Response r = wetImpulse(p, 2.0 * ratio * p.decayTime + 0.7);
            // Low frequencies: three octaves below the reference.
            const double low = testing::rt60(testing::bandPass(r.left, hfReference / 8, 1.41));
            // A third of an octave around the reference frequency.
            const double high = testing::rt60(testing::bandPass(r.left, hfReference, 4.32));
            EXPECT_NEAR(high / low, ratio, 0.2 * ratio)
                << "ratio " << ratio << " at " << hfReference << " Hz";
        }
    }
}

TEST(RoomReverb, FirstReflectionArrivesAtReflectionsDelay) {
    // 0.5 s lies beyond the range and acts as its top, 0.3 s.
    for (const auto& [asked, expected] : {std::pair{0.005f, 0.005}, std::pair{0.04f, 0.04},
                                          std::pair{0.3f, 0.3}, std::pair{0.5f, 0.3}}) {
        ReverbParams p;
        p.reflectionsDelay = asked;
        p.reflections = 0.0f;
        const Response r = wetImpulse(p, 0.5);
        for (const std::vector<double>* s : {&r.left, &r.right}) {
            const int first = testing::firstAbove(*s, 1e-6);
            EXPECT_NEAR(first / double{kRate}, expected, 0.001) << "asked " << asked;
        }
    }
}

TEST(RoomReverb, ValuesOutsideTheirRangesStandAtTheNearestEnd) {
    // The panel's Reflections slider arrives 21000 mB high: its default 7398 + 11000 is the
    // I3DL2 default, -2602; just above the top is the top.
    auto wetWith = [](auto change) {
        ReverbParams p;
        change(p);
        return wetImpulse(p, 0.3).left;
    };
    const auto atTop = wetWith([](ReverbParams& p) { p.reflections = 1000.0f; });
    EXPECT_EQ(wetWith([](ReverbParams& p) { p.reflections = 1500.0f; }), atTop);
    EXPECT_EQ(wetWith([](ReverbParams& p) { p.reflections = 18398.0f; }),
              wetWith([](ReverbParams& p) { p.reflections = -2602.0f; }));
    EXPECT_EQ(wetWith([](ReverbParams& p) { p.reflections = 22000.0f; }), atTop);
    EXPECT_NE(wetWith([](ReverbParams& p) { p.reflections = 0.0f; }), atTop);
    EXPECT_EQ(wetWith([](ReverbParams& p) { p.decayTime = 0.0f; }),
              wetWith([](ReverbParams& p) { p.decayTime = 0.1f; }));
    EXPECT_EQ(wetWith([](ReverbParams& p) { p.hfReference = 1.0f; }),
              wetWith([](ReverbParams& p) { p.hfReference = 20.0f; }));
    EXPECT_EQ(wetWith([](ReverbParams& p) { p.diffusion = -5.0f; }),
              wetWith([](ReverbParams& p) { p.diffusion = 0.0f; }));
    EXPECT_EQ(wetWith([](ReverbParams& p) { p.room = 500.0f; }),
              wetWith([](ReverbParams& p) { p.room = 0.0f; }));
}

TEST(RoomReverb, ReverbLevelHoldsWhateverTheDecayTime) {
    // `reverb` sets the level of the late tail: its energy stays within 3 dB from a short
    // room to a long hall, instead of growing with the number of passes.
    auto lateEnergyDb = [](float decay) {
        ReverbParams p;
        p.reflections = -10000.0f;
        p.decayTime = decay;
        p.decayHFRatio = 1.0f;
        const Response r = wetImpulse(p, 2.0 * decay + 0.5);
        return 10.0 * std::log10(testing::energy(r.left, 0, static_cast<int>(r.left.size())));
    };
    const double shortRoom = lateEnergyDb(0.3f);
    EXPECT_NEAR(lateEnergyDb(3.0f), shortRoom, 3.0);
    EXPECT_NEAR(lateEnergyDb(12.0f), shortRoom, 3.0);
}

TEST(RoomReverb, LongSilentTailEndsInExactZerosWithoutSubnormals) {
    // The program's whole chain: ten bands, the reverb and, beside them, an echo.
    EffectsChain chain(kRate);
    for (float centre : {80, 170, 310, 600, 1000, 3000, 6000, 12000, 14000, 16000}) {
        chain.setEqualizerBand(chain.enable(EffectKind::Equalizer), {centre, 18.0f, 6.0f});
    }
    chain.setReverb(chain.enable(EffectKind::Reverb), ReverbParams{});
    chain.setEcho(chain.enable(EffectKind::Echo), EchoParams{50.0f, 20.0f, 300.0f, 500.0f, true});
    // A second of loud noise, then a minute of silence.
    std::vector<float> input = testing::noise(kRate, 0.9f);
    input.resize(2 * 61 * static_cast<std::size_t>(kRate), 0.0f);
    const std::vector<float> out = testing::render(chain, std::move(input), 512);
    std::size_t subnormal = 0;
    for (float v : out) {
        subnormal += std::fpclassify(v) == FP_SUBNORMAL ? 1 : 0;
    }
    EXPECT_EQ(subnormal, 0u);
    // By the last ten seconds every tail has fallen below the smallest float.
    std::size_t nonZero = 0;
    for (std::size_t i = out.size() - 2 * 10 * kRate; i < out.size(); ++i) {
        nonZero += out[i] != 0.0f ? 1 : 0;
    }
    EXPECT_EQ(nonZero, 0u);
}

// A room carrying on from another whose delays or diffusion differ, as the mixer has it on
// every rebuild of the chain: on a steady tone, the wet sound (output less the tone) moves
// no faster from sample to sample than the wet sound of either room left alone. A delay or
// an all-pass gain that jumps leaves a corner in the tail, which recirculates.
class ReverbCarriedOn : public ::testing::Test {
  protected:
    static constexpr int kBlock = 64;
    // The tone, 330 Hz on both sides, for `frames` frames from `start`.
    static std::vector<float> tone(int start, int frames) {
        std::vector<float> io(2 * static_cast<std::size_t>(frames));
        for (int i = 0; i < frames; ++i) {
            const double x = 0.3 * std::sin(2.0 * std::numbers::pi * 330.0 * (start + i) / kRate);
            io[2 * static_cast<std::size_t>(i)] = static_cast<float>(x);
            io[2 * static_cast<std::size_t>(i) + 1] = static_cast<float>(x);
        }
        return io;
    }
    // Runs `room` on the tone from frame `at` for `frames` frames, in blocks; returns the
    // largest step of the left wet sound. `at` moves on.
    static double run(RoomReverb& room, int& at, int frames) {
        double largest = 0.0;
        float last = 0.0f;
        bool first = true;
        for (int done = 0; done < frames; done += kBlock) {
            const std::vector<float> dry = tone(at, kBlock);
            std::vector<float> io = dry;
            room.process(io.data(), kBlock);
            for (int i = 0; i < kBlock; ++i) {
                const auto k = 2 * static_cast<std::size_t>(i);
                const float wet = io[k] - dry[k];
                if (!first) {
                    largest = std::max(largest, double{std::abs(wet - last)});
                }
                last = wet;
                first = false;
            }
            at += kBlock;
        }
        return largest;
    }
    // The largest wet step of a room left alone with `p`, once steady.
    static double steadyStep(const ReverbParams& p) {
        RoomReverb room(kRate);
        room.set(p);
        int at = 0;
        run(room, at, 2 * kRate);
        return run(room, at, kRate / 2);
    }
};

TEST_F(ReverbCarriedOn, ADelayOrDiffusionChangeLeavesNoCornerInTheTailEvenHalfwayThroughAnother) {
    ReverbParams before;
    before.room = 0.0f;
    before.decayTime = 1.0f;
    const std::vector<std::pair<const char*, std::function<void(ReverbParams&)>>> changes{
        {"reflections delay", [](ReverbParams& p) { p.reflectionsDelay = 0.3f; }},
        {"reverb delay", [](ReverbParams& p) { p.reverbDelay = 0.1f; }},
        {"diffusion", [](ReverbParams& p) { p.diffusion = 0.0f; }},
        {"density", [](ReverbParams& p) { p.density = 0.0f; }},
    };
    for (const auto& [what, change] : changes) {
        ReverbParams after = before;
        change(after);
        RoomReverb old(kRate);
        old.set(before);
        int at = 0;
        run(old, at, 2 * kRate);
        RoomReverb next(kRate);
        next.set(after);
        next.continueFrom(old);
        // Long enough for every line to pass its start round several times.
        const double step = run(next, at, kRate / 2);
        const double alone = std::max(steadyStep(before), steadyStep(after));
        EXPECT_LT(step, 1.5 * alone) << what;
    }

    // Three settings in quick succession: the last room starts from the middle of the second
    // one's glide, then goes on to its own.
    ReverbParams p = before;
    RoomReverb first(kRate);
    first.set(p);
    int at = 0;
    run(first, at, 2 * kRate);
    double alone = steadyStep(p);
    p.density = 30.0f;
    p.diffusion = 40.0f;
    alone = std::max(alone, steadyStep(p));
    RoomReverb second(kRate);
    second.set(p);
    second.continueFrom(first);
    double step = run(second, at, 4 * kBlock);
    p.density = 60.0f;
    p.reflectionsDelay = 0.1f;
    alone = std::max(alone, steadyStep(p));
    RoomReverb third(kRate);
    third.set(p);
    third.continueFrom(second);
    step = std::max(step, run(third, at, kRate / 2));
    EXPECT_LT(step, 1.5 * alone);
}

}  // namespace
}  // namespace brevane
