// The volume drift on virtual time: the walk, its speed, its targets, and how limit
// and rate changes steer it.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "background_harness.h"
#include "base/random.h"
#include "core/slot_volume.h"

namespace brevane {
namespace {

using test::Op;

class BackgroundDriftTest : public ::testing::Test, public test::BackgroundBankFixture {
  protected:
    // The target the next draw gives for the limits low..high.
    int nextTarget(int low, int high) const {
        brevane::Random peek = h.random;
        return static_cast<int>(std::nearbyint(peek.next() * (high - low) + low));
    }
    // Sets a slot's limits by their bars.
    static void setLimits(BackgroundSoundSlot& sl, int low, int high) {
        sl.highLimitBar.setValue(250 - high);
        sl.lowLimitBar.setValue(250 - low);
    }
};

TEST_F(BackgroundDriftTest, ADefaultSlotWalksDownAStepASecondToZeroThenWandersInsideItsRange) {
    BackgroundSoundSlot& sl = app->frmback.slot(1);
    sl.volume.setValue(100);
    sl.on.setValue(1);
    EXPECT_EQ(sl.driftTarget, 0);
    const ChannelHandle channel = sl.channel;

    for (int second = 1; second <= 99; ++second) {
        h.loop.advance(1000);
        ASSERT_EQ(sl.volume.value(), 100 - second) << "after " << second << " s";
        ASSERT_EQ(sl.driftTarget, 0);
    }
    // Each step is heard: the running loop's volume follows the slider.
    EXPECT_EQ(h.engine.channel(channel)->volume, slotVolume(100, 100, 1));

    // The tick that reaches 0 draws the next target at once.
    const int expected = nextTarget(0, 250);
    h.loop.advance(1000);
    EXPECT_EQ(sl.volume.value(), 0);
    EXPECT_EQ(sl.driftTarget, expected);

    // From here it wanders: one step a tick, never outside 0..250, drawing a new target
    // each time it reaches one.
    int previous = 0;
    std::set<int> targets;
    for (int second = 0; second < 3000; ++second) {
        h.loop.advance(1000);
        const int v = sl.volume.value();
        ASSERT_LE(std::abs(v - previous), 1);
        ASSERT_TRUE(v >= 0 && v <= 250 && sl.driftTarget >= 0 && sl.driftTarget <= 250);
        targets.insert(sl.driftTarget);
        previous = v;
    }
    EXPECT_GE(targets.size(), 5u);
}

TEST_F(BackgroundDriftTest, RateZeroHoldsTheLevelAndEqualLimitsWalkToTheirLevelAndHoldIt) {
    BackgroundSoundSlot& sl = app->frmback.slot(8);
    setLimits(sl, 200, 200);
    sl.on.setValue(1);
    h.loop.advance(10'000);
    EXPECT_EQ(sl.volume.value(), 10);

    sl.rate.setValue(0);
    EXPECT_TRUE(sl.timer.enabled());
    EXPECT_EQ(sl.timer.interval(), 0);
    h.loop.advance(600'000);
    EXPECT_EQ(sl.volume.value(), 10);
    EXPECT_EQ(sl.driftTarget, 200);

    sl.rate.setValue(990);  // (1000 - 990) x 5 = 50 ms a step
    h.loop.advance(1000);
    EXPECT_EQ(sl.volume.value(), 30);
    h.loop.advance(9000);
    EXPECT_EQ(sl.volume.value(), 200);
    // Holding sets nothing on the engine.
    const auto before = h.engine.callsOf(Op::SetVolume).size();
    h.loop.advance(60'000);
    EXPECT_EQ(sl.volume.value(), 200);
    EXPECT_EQ(sl.driftTarget, 200);
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume).size(), before);
    // The hand moves it; the next ticks walk it back.
    sl.volume.setValue(205);
    h.loop.advance(250);
    EXPECT_EQ(sl.volume.value(), 200);

    sl.rate.setValue(1);  // the slowest
    EXPECT_EQ(sl.timer.interval(), 4995);
}

TEST_F(BackgroundDriftTest, ALimitChangeDrawsATargetAtOnceAndTurnsTheWalk) {
    // Even with the slot off, and for a text written from outside (the night does so):
    // the low text's draw comes first, then the high text's.
    BackgroundSoundSlot& off = app->frmback.slot(11);
    const int first = nextTarget(40, 250);
    off.lowLimitBar.setValue(210);
    EXPECT_EQ(off.driftTarget, first);
    brevane::Random peek = h.random;
    peek.next();
    const int expected = static_cast<int>(std::nearbyint(peek.next() * 5));
    off.lowLimitText.setText("0");
    off.highLimitText.setText("5");
    EXPECT_EQ(off.driftTarget, expected);

    BackgroundSoundSlot& sl = app->frmback2.slot(12);
    setLimits(sl, 230, 250);
    sl.on.setValue(1);
    h.loop.advance(100'000);
    ASSERT_EQ(sl.volume.value(), 100);  // still climbing
    setLimits(sl, 0, 20);
    EXPECT_LE(sl.driftTarget, 20);
    h.loop.advance(1000);
    EXPECT_EQ(sl.volume.value(), 99);
    // A level outside the range is walked back in, step by step, and stays in.
    h.loop.advance(79'000);
    EXPECT_EQ(sl.volume.value(), 20);
    for (int i = 0; i < 300; ++i) {
        h.loop.advance(1000);
        ASSERT_LE(sl.volume.value(), 20);
    }
}

TEST_F(BackgroundDriftTest, BothLimitsComeUpAtAboutHalfTheChanceOfAnInnerValue) {
    BackgroundSoundSlot& sl = app->frmback.slot(1);
    setLimits(sl, 20, 30);
    std::map<int, int> counts;
    constexpr int kDraws = 200'000;
    for (int i = 0; i < kDraws; ++i) {
        app->frmback.drawTarget(1);
        ++counts[sl.driftTarget];
    }
    ASSERT_EQ(counts.size(), 11u);
    EXPECT_EQ(counts.begin()->first, 20);
    EXPECT_EQ(counts.rbegin()->first, 30);
    // Ten equal spans: each inner value takes a whole one, each end half of one.
    const double inner = kDraws / 10.0;
    for (const auto& [value, n] : counts) {
        const double expected = (value == 20 || value == 30) ? inner / 2 : inner;
        EXPECT_NEAR(n, expected, expected * 0.05) << value;
    }
}

}  // namespace
}  // namespace brevane
