// The effects panel heard through the real mixer, rendering offline: a raised band
// raises its centre, and a reverb slider dragged across its range while a tone plays
// leaves no click, gap or step. (The decay time's slider reaches the room as the panel's
// tests show, and the room decays at it as the reverb's own tests measure.)

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/app_harness.h"
#include "core/application.h"
#include "engine/mixer_engine.h"
#include "engine/test_sounds.h"

namespace brevane {
namespace {

using test::largestStep;
using test::rms;
using test::side;

constexpr int kRate = 44100;
// Renders in whole sub-blocks, so each slider move lands on the first frame of the next.
constexpr int kStepFrames = 448;

double db(double ratio) {
    return 20.0 * std::log10(ratio);
}

class EffectsSound : public ::testing::Test {
  protected:
    void SetUp() override {
        h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
        app = &h.startAndLoad();
    }
    // A tone looping at `volume`, quiet enough to stay below the output limiter.
    ChannelHandle loop(double hz, int volume) {
        const SampleHandle s = h.engine.loadSample(
            test::writeMono(h.tree.root(), "tone.wav", test::sine(hz, kRate, kRate), kRate));
        const ChannelHandle c = h.engine.play(s);
        h.engine.setLoopMode(c, LoopMode::Normal);
        h.engine.setVolume(c, volume);
        return c;
    }
    double level(int frames = kRate / 2) {
        const std::vector<float> out = h.engine.render(frames);
        return rms(side(out, 0, static_cast<std::size_t>(frames / 2)));
    }
    Frmeffects& fx() { return app->frmeffects; }

    test::AppHarness<MixerEngine> h{3, MixerEngine::Output::Offline};
    Application* app = nullptr;
};

TEST_F(EffectsSound, ABandAtPlusTenRaisesItsCentreByTenDecibels) {
    loop(1000.0, 40);
    const double dry = level();
    ASSERT_GT(dry, 0.01);
    fx().check_eq.setChecked(true);
    EXPECT_NEAR(db(level() / dry), 0.0, 0.1);
    fx().VScroll1[4].setValue(25);  // 1000 Hz
    EXPECT_NEAR(db(level() / dry), 10.0, 0.3);
    // The bottom band, three octaves and more below, leaves the tone nearly alone.
    fx().VScroll1[4].setValue(Frmeffects::kFlat);
    fx().VScroll1[0].setValue(25);
    EXPECT_LT(std::abs(db(level() / dry)), 1.0);
}

// The lowest level over 128-frame windows: a pause left open shows as a dip.
double lowestLevel(const std::vector<float>& mono) {
    constexpr std::size_t kWindow = 128;
    double lowest = 1e9;
    for (std::size_t start = 0; start + kWindow <= mono.size(); start += kWindow) {
        lowest = std::min(lowest, rms(std::span<const float>(mono).subspan(start, kWindow)));
    }
    return lowest;
}

TEST_F(EffectsSound, AReverbSliderDraggedAcrossItsRangeLeavesNoGapAndNoJump) {
    loop(330.0, 60);
    const double dry = level();
    fx().check_eq.setChecked(true);
    fx().check_rev3d.setChecked(true);
    fx().hscroll101[0].setValue(8000);  // the room well below the tone
    fx().hscroll101[6].setValue(60);
    h.engine.render(2 * kRate);
    const double stillStep = largestStep(side(h.engine.render(kRate / 2), 0));

    // Each slider of the room across its whole range in a hundred moves ten milliseconds
    // apart, every move a rebuild of the chain. The ones that reshape the room's delays,
    // Reflections Delay, Reverb Delay, Diffusion and Density, would leave a corner in the
    // carried tail on a pure tone were the delays and the mixing not to glide.
    for (const std::size_t element : {0u, 1u, 4u, 6u, 7u, 8u, 9u, 10u, 11u, 12u, 13u, 14u}) {
        Slider& s = fx().hscroll101[element];
        const int before = s.value();
        std::vector<float> dragged;
        for (int k = 0; k <= 100; ++k) {
            s.setValue(s.low() + (s.high() - s.low()) * k / 100);
            const std::vector<float> out = side(h.engine.render(kStepFrames), 0);
            dragged.insert(dragged.end(), out.begin(), out.end());
        }
        // The pause around each rebuild never opens: the tone stays up...
        EXPECT_GT(lowestLevel(dragged), 0.5 * dry) << s.caption();
        // ...and no jump stands out from the tone's own movement.
        EXPECT_LT(largestStep(dragged), 5 * stillStep) << s.caption();
        // Back to this test's room, not the panel's default: at Room 9000 the room comes near
        // the tone's level, and at the longest delays a pure tone then meets its own
        // reflections in a notch below half its level, steady, whatever the glide.
        s.setValue(before);
        h.engine.render(kRate / 2);
    }
}

}  // namespace
}  // namespace brevane
