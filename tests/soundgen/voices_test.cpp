// The creature voice toolkit where a fault would pass the creature tests unheard: partials
// and wingbeat harmonics stand where they should and nothing folds back from above the top.
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
using probe::stretch;

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

}  // namespace
}  // namespace brevane::soundgen
