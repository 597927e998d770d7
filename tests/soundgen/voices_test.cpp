// The creature voice toolkit: syllables, voiced calls through formants, wing buzz, and
// distance.
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

}  // namespace
}  // namespace brevane::soundgen
