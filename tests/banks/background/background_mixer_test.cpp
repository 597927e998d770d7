// A background loop through the real mixer, rendering offline: it loops, follows its
// Volume slider and balance, fades with the drift and falls silent when switched off.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "core/app_harness.h"
#include "engine/mixer_engine.h"
#include "engine/sound_file_writer.h"

namespace brevane {
namespace {

struct Levels {
    double left = 0;
    double right = 0;
};

// RMS of each side over `seconds` of the program, advancing the loop and rendering in
// step, 100 ms at a time.
Levels run(test::AppHarness<MixerEngine>& h, double seconds) {
    double left = 0;
    double right = 0;
    std::size_t frames = 0;
    for (int i = 0; i < static_cast<int>(seconds * 10); ++i) {
        h.loop.advance(100);
        const auto block = h.engine.render(4410);
        for (std::size_t f = 0; f + 1 < block.size(); f += 2) {
            left += block[f] * block[f];
            right += block[f + 1] * block[f + 1];
        }
        frames += block.size() / 2;
    }
    return {std::sqrt(left / static_cast<double>(frames)),
            std::sqrt(right / static_cast<double>(frames))};
}

TEST(BackgroundBankMixer, ALoopPlaysPastItsEndFollowsItsSlidersAndStops) {
    test::AppHarness<MixerEngine> h(5, MixerEngine::Output::Offline);
    // A half-second tone: anything heard after that comes from looping.
    std::vector<float> tone(22050);
    for (std::size_t i = 0; i < tone.size(); ++i) {
        tone[i] = 0.5f * static_cast<float>(std::sin(2.0 * std::numbers::pi * 441.0 *
                                                     static_cast<double>(i) / 44100.0));
    }
    std::filesystem::create_directories(h.tree.root() / "bin");
    ASSERT_TRUE(writeSoundFile(h.tree.root() / "bin/66.isz", tone, 1, 44100));
    Application& app = h.startAndLoad();
    app.frmmain.Master.setValue(100);
    app.frmmain.Background.setValue(100);

    BackgroundSoundSlot& sl = app.frmback2.slot(16);  // bin/66.isz
    sl.rate.setValue(0);                              // no drift yet
    sl.volume.setValue(200);
    sl.balance.setValue(128);
    sl.on.setValue(1);
    run(h, 1.0);
    const Levels centre = run(h, 2.0);
    EXPECT_GT(centre.left, 0.05);
    EXPECT_NEAR(centre.left, centre.right, centre.left * 0.05);

    // Full left: the right side falls silent.
    sl.balance.setValue(0);
    run(h, 0.3);
    const Levels left = run(h, 1.0);
    EXPECT_GT(left.left, centre.left);
    EXPECT_LT(left.right, 1e-3);

    // Half the slider, half the amplitude.
    sl.volume.setValue(100);
    run(h, 0.3);
    const Levels half = run(h, 1.0);
    EXPECT_NEAR(half.left / left.left, 0.5, 0.03);

    // The drift walks it down to a range of 50 to 50 at 200 steps a second, and holds.
    sl.highLimitBar.setValue(200);
    sl.lowLimitBar.setValue(200);
    sl.rate.setValue(999);
    run(h, 0.5);
    EXPECT_EQ(sl.volume.value(), 50);
    const Levels quieter = run(h, 1.0);
    EXPECT_NEAR(quieter.left / half.left, 0.5, 0.03);

    sl.on.setValue(0);
    run(h, 0.3);
    const Levels off = run(h, 1.0);
    EXPECT_LT(off.left, 1e-4);
}

}  // namespace
}  // namespace brevane
