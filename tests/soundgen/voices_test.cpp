// The creature voice toolkit: syllables, voiced calls through formants, wing buzz, strikes
// through bodies, rhythms, distance, placing and space.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "analysis.h"
#include "grains.h"
#include "voice_probe.h"
#include "voices.h"

namespace brevane::soundgen {
namespace {

using probe::bandShareDb;
using probe::peakHz;

std::span<const float> stretch(const Buffer& b, double from, double to) {
    const std::size_t a = std::min(b.size(), samples(from));
    const std::size_t e = std::min(b.size(), samples(to));
    return std::span<const float>(b).subspan(a, e - a);
}

TEST(Syllable, FollowsItsPitchContourWithinItsExactLengthAndUnitPeak) {
    Rng r(1);
    Syllable s;
    s.seconds = 0.4;
    s.hz = glide(0.4, 2000.0, 4000.0);
    const Buffer b = syllable(r, s);
    ASSERT_EQ(b.size(), samples(0.4));
    EXPECT_NEAR(peakOf(b), 1.0, 1e-6);
    // The contour's segments are raised-cosine: slow to leave the start, slow to land.
    EXPECT_NEAR(peakHz(stretch(b, 0.02, 0.06), 1500, 5000), 2050, 100);
    EXPECT_NEAR(peakHz(stretch(b, 0.18, 0.22), 1500, 5000), 3000, 150);
    EXPECT_NEAR(peakHz(stretch(b, 0.34, 0.38), 1500, 5000), 3950, 100);
    // The default level shape starts and ends in silence.
    EXPECT_LT(std::fabs(b.front()), 0.01);
    EXPECT_LT(std::fabs(b.back()), 0.01);
}

TEST(Syllable, PartialsStandInTheirRatiosAndNothingIsMadeAboveTheTop) {
    Rng r(2);
    Syllable s;
    s.seconds = 0.5;
    s.hz = {{0.0, 1000.0}};
    s.partials = {1.0, 0.5, 0.25};
    const Buffer b = syllable(r, s);
    const double h1 = bandShareDb(b, 950, 1050), h2 = bandShareDb(b, 1950, 2050),
                 h3 = bandShareDb(b, 2950, 3050);
    EXPECT_NEAR(h2 - h1, -6.0, 1.0);
    EXPECT_NEAR(h3 - h1, -12.0, 1.0);
    // At 8 kHz a third harmonic would stand at 24 kHz and fold back to 20.1 kHz.
    Syllable high;
    high.seconds = 0.5;
    high.hz = {{0.0, 8000.0}};
    high.partials = {1.0, 1.0, 1.0};
    const Buffer hb = syllable(r, high);
    EXPECT_GT(bandShareDb(hb, 15900, 16100), -10.0);
    EXPECT_LT(bandShareDb(hb, 19900, 20300), -60.0);
}

TEST(Syllable, TremoloPulsesTheLevelAtItsRate) {
    Rng r(3);
    Syllable s;
    s.seconds = 1.0;
    s.hz = {{0.0, 3000.0}};
    s.tremoloHz = 10.0;
    s.tremoloDepth = 1.0;
    s.level = {{0.0, 1.0}};
    const Buffer b = syllable(r, s);
    // Crests every 100 ms from the start, troughs half way between.
    for (double crest : {0.2, 0.7}) {
        const double top = probe::rmsBetween(b, crest - 0.005, crest + 0.005);
        const double low = probe::rmsBetween(b, crest + 0.045, crest + 0.055);
        EXPECT_GT(gainToDb(top / low), 20.0) << "at " << crest << " s";
    }
}

TEST(Syllable, BreathStaysAroundThePitchInsteadOfHazingTheBand) {
    Rng r(4);
    Syllable s;
    s.seconds = 1.0;
    s.hz = {{0.0, 1000.0}};
    s.breath = 1.0;
    s.breathQ = 4.0;
    const Buffer b = syllable(r, s);
    EXPECT_GT(bandShareDb(b, 700, 1400), -1.5);
    EXPECT_LT(bandShareDb(b, 5000, 20000), -40.0);
}

TEST(Syllable, IsFixedByItsStreamAndNewForEveryDraw) {
    Syllable s;
    s.seconds = 0.2;
    s.hz = {{0.0, 3000.0}};
    s.breath = 0.2;
    Rng a(5), b(5);
    EXPECT_EQ(syllable(a, s), syllable(b, s));
    EXPECT_NE(syllable(a, s), syllable(a, s));
}

TEST(Voice, PulsesAtItsPitchThroughItsFormant) {
    Rng r(6);
    Voice v;
    v.seconds = 1.0;
    v.f0 = {{0.0, 150.0}};
    v.jitter = 0.0;
    v.shimmer = 0.0;
    v.breath = 0.0;
    v.formants = {{{{0.0, 1200.0}}, 8.0, 0.0}};
    const Buffer b = voice(r, v);
    ASSERT_EQ(b.size(), samples(1.0));
    const auto p = probe::pitch(stretch(b, 0.2, 0.8), 100, 250);
    EXPECT_NEAR(p.hz, 150.0, 3.0);
    EXPECT_GT(p.strength, 0.9);
    // The tract's resonance stands out of the harmonics around it.
    const double at = bandShareDb(b, 1050, 1350);
    EXPECT_GT(at - bandShareDb(b, 450, 750), 10.0);
    EXPECT_GT(at - bandShareDb(b, 2250, 2550), 10.0);
}

TEST(Voice, FormantsMoveAlongTheirCurves) {
    Rng r(7);
    Voice v;
    v.seconds = 1.0;
    v.f0 = {{0.0, 120.0}};
    v.breath = 0.3;
    v.level = {{0.0, 1.0}};
    v.formants = {{glide(1.0, 500.0, 2500.0), 8.0, 0.0}};
    const Buffer b = voice(r, v);
    EXPECT_NEAR(peakHz(stretch(b, 0.0, 0.15), 200, 4000), 600, 200);
    EXPECT_NEAR(peakHz(stretch(b, 0.85, 1.0), 200, 4000), 2400, 250);
}

TEST(Voice, WithoutVoicingIsBreathWithoutPitch) {
    Voice v;
    v.seconds = 0.6;
    v.f0 = {{0.0, 200.0}};
    v.formants = {{{{0.0, 900.0}}, 3.0, 0.0}};
    Rng a(8), b(8);
    const Buffer voiced = voice(a, v);
    v.voicing = {{0.0, 0.0}};
    const Buffer whisper = voice(b, v);
    EXPECT_GT(probe::pitch(stretch(voiced, 0.1, 0.5), 150, 260).strength, 0.7);
    EXPECT_LT(probe::pitch(stretch(whisper, 0.1, 0.5), 150, 260).strength, 0.4);
}

TEST(Voice, RoughnessBringsInTheSubharmonic) {
    Voice v;
    v.seconds = 1.0;
    v.f0 = {{0.0, 300.0}};
    v.jitter = 0.0;
    v.shimmer = 0.0;
    v.breath = 0.0;
    Rng a(9), b(9);
    const Buffer clean = voice(a, v);
    v.roughness = 1.0;
    const Buffer rough = voice(b, v);
    // Every other period is longer and weaker: a line appears under the pitch.
    const double f = probe::pitch(stretch(clean, 0.2, 0.8), 200, 400).hz;
    const double lineClean = bandShareDb(clean, f * 0.4, f * 0.5);
    const double lineRough = bandShareDb(rough, f * 0.4, f * 0.5);
    EXPECT_GT(lineRough - lineClean, 20.0);
}

TEST(Buzz, SoundsItsWingbeatWithHarmonicsAndFoldsNothingBack) {
    Rng r(10);
    Buzz z;
    z.seconds = 1.0;
    z.hz = {{0.0, 200.0}};
    z.wobble = 0.0;
    z.air = 0.0;
    const Buffer b = buzz(r, z);
    EXPECT_NEAR(probe::pitch(stretch(b, 0.2, 0.8), 120, 400).hz, 200.0, 3.0);
    EXPECT_GT(bandShareDb(b, 1900, 2100), -30.0);  // the tenth harmonic is there
    // A fast, sharp wingbeat: harmonics of 3 kHz; anything between them is folded junk.
    z.hz = {{0.0, 3000.0}};
    z.sharpness = 0.95;
    const Buffer fast = buzz(r, z);
    double between = -200.0;
    for (int k = 1; k < 7; ++k) {
        between = std::max(between, bandShareDb(fast, 3000.0 * k + 700, 3000.0 * k + 2300));
    }
    EXPECT_LT(between, -50.0);
}

TEST(Strikes, RingTheBodyAtItsModeAndWrapRoundARing) {
    const std::size_t n = samples(0.5);
    const Strike s[] = {{0.1, 1.0, 0.0002}, {0.4999, 1.0, 0.001}};
    Buffer line = strikes(n, s, Edge::Linear);
    Buffer loop = strikes(n, s, Edge::Circular);
    // The second push runs past the end: dropped from a line, carried round a ring.
    EXPECT_EQ(peakOf(std::span<const float>(line).first(samples(0.005))), 0.0);
    EXPECT_GT(peakOf(std::span<const float>(loop).first(samples(0.005))), 0.1);
    const Mode m[] = {{1500.0, 0.1, 1.0}};
    ring(line, m, Edge::Linear);
    EXPECT_NEAR(peakHz(line, 200, 10000), 1500, 15);
    EXPECT_EQ(peakOf(std::span<const float>(line).first(samples(0.09))), 0.0);
}

TEST(Rhythm, LaysGroupsOfPulsesWithGapsInsideTheirJitter) {
    Rng r(11);
    const auto t = rhythm(r, 0.5, 5.0, 3, 0.1, 1.0, 0.1);
    ASSERT_GE(t.size(), 12u);
    EXPECT_NEAR(t.front(), 0.5, 1e-9);
    for (std::size_t i = 1; i < t.size(); ++i) {
        const double gap = t[i] - t[i - 1];
        EXPECT_LT(t[i], 5.0);
        if (i % 3 == 0) {  // from the last pulse of a group to the next group
            EXPECT_GT(gap, 0.9 - 0.22 - 1e-9);
            EXPECT_LT(gap, 1.1 - 0.18 + 1e-9);
        } else {
            EXPECT_GE(gap, 0.09 - 1e-9);
            EXPECT_LE(gap, 0.11 + 1e-9);
        }
    }
}

TEST(Distance, FarIsThirtyDecibelsDownAndDarker) {
    Rng r(12);
    const Buffer noise = whiteNoise(r, samples(1.0));
    Buffer near = noise, far = noise;
    distance(near, {{0.0, 1.0}}, Edge::Linear);
    distance(far, {{0.0, 0.0}}, Edge::Linear);
    EXPECT_NEAR(gainToDb(rmsOf(near) / rmsOf(noise)), 0.0, 1.0);
    EXPECT_LT(gainToDb(rmsOf(far) / rmsOf(noise)), -30.0);
    EXPECT_LT(spectralCentroid(far), 0.25 * spectralCentroid(near));
    // Along a path the level follows the nearness.
    Buffer path = noise;
    distance(path, {{0.0, 0.0}, {0.5, 1.0}, {1.0, 0.0}}, Edge::Linear);
    EXPECT_GT(probe::rmsBetween(path, 0.45, 0.55), 10.0 * probe::rmsBetween(path, 0.0, 0.1));
}

TEST(Place, GrowsTheTakeAndAddsAtItsTime) {
    Buffer out;
    const Buffer one(samples(0.1), 1.0f);
    place(out, 0.5, one, 0.5);
    ASSERT_EQ(out.size(), samples(0.6));
    EXPECT_EQ(out[samples(0.5) - 1], 0.0f);
    EXPECT_EQ(out[samples(0.5)], 0.5f);
    place(out, 0.55, one, 0.5);
    EXPECT_EQ(out.size(), samples(0.65));
    EXPECT_EQ(out[samples(0.58)], 1.0f);
}

TEST(InSpace, LeavesATailRingingAfterTheSound) {
    Buffer click = bump(0.0005);
    click.resize(samples(0.01), 0.0f);
    const Buffer wet = inSpace(click, 1.0, 50.0, 5000.0, 0.5);
    ASSERT_EQ(wet.size(), samples(1.01));
    EXPECT_GT(probe::rmsBetween(wet, 0.1, 0.3), 0.0);
    EXPECT_GT(probe::rmsBetween(wet, 0.1, 0.3), 10.0 * probe::rmsBetween(wet, 0.8, 1.0));
}

}  // namespace
}  // namespace brevane::soundgen
