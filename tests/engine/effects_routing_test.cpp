// How the engine hands effect calls to the chain on the mix; the effects' own sound is
// tested with the effects.
#include <gtest/gtest.h>

#include <cmath>

#include "base/temp_tree.h"
#include "engine/mixer_engine.h"
#include "test_sounds.h"

namespace brevane {
namespace {

using test::largestStep;
using test::peak;
using test::rms;
using test::side;

double db(double ratio) {
    return 20.0 * std::log10(ratio);
}

class EffectsRouting : public ::testing::Test {
  protected:
    void SetUp() override {
        // 1 kHz, 441 whole periods: a seamless loop.
        tone = engine.loadSample(
            test::writeMono(tree.root(), "tone.wav", test::sine(1000.0, 44100, 44100), 44100));
        ASSERT_NE(tone, 0u);
    }
    // Level of the left side over the last half of `frames` rendered frames.
    double level(int frames = 22050) {
        const std::vector<float> out = engine.render(frames);
        return rms(side(out, 0, static_cast<std::size_t>(frames / 2)));
    }
    ChannelHandle playLoop() {
        const ChannelHandle c = engine.play(tone);
        engine.setLoopMode(c, LoopMode::Normal);
        return c;
    }
    static ReverbParams bigRoom() {
        ReverbParams p;
        p.room = 0.0f;
        p.roomHF = 0.0f;
        p.decayTime = 5.0f;
        p.reverb = 1000.0f;
        return p;
    }

    TempTree tree;
    MixerEngine engine{MixerEngine::Output::Offline};
    SampleHandle tone = 0;
};

TEST_F(EffectsRouting, EqualizerBandsReachTheMixByTheirIdsAndOtherIdsChangeNothing) {
    // Quiet enough that a 15 dB boost stays below the output limiter's knee.
    engine.setVolume(playLoop(), 32);
    const double dry = level();
    ASSERT_GT(dry, 0.01);

    const int low = engine.enableEffect(EffectKind::Equalizer);
    const int mid = engine.enableEffect(EffectKind::Equalizer);
    EXPECT_EQ(low, 0);
    EXPECT_EQ(mid, 1);
    EXPECT_NEAR(db(level() / dry), 0.0, 0.1);  // fresh bands are flat

    engine.setEqualizerBand(mid, {1000.0f, 18.0f, 15.0f});
    EXPECT_NEAR(db(level() / dry), 15.0, 1.0);
    engine.setEqualizerBand(low, {80.0f, 18.0f, -15.0f});  // far from the tone
    EXPECT_NEAR(db(level() / dry), 15.0, 1.0);
    engine.setEqualizerBand(mid, {1000.0f, 18.0f, -15.0f});
    EXPECT_NEAR(db(level() / dry), -15.0, 1.0);

    // A later enable rebuilds the chain; the bands keep their settings.
    engine.enableEffect(EffectKind::Echo);
    EXPECT_EQ(engine.enableEffect(EffectKind::Equalizer), 3);
    engine.setEcho(2, EchoParams{0.0f, 0.0f, 10.0f, 10.0f, false});  // all dry
    EXPECT_NEAR(db(level() / dry), -15.0, 1.0);

    // Calls with another kind's id or an unknown id change nothing.
    engine.setReverb(mid, bigRoom());
    engine.setEqualizerBand(7, {1000.0f, 18.0f, 15.0f});
    engine.setEqualizerBand(-1, {1000.0f, 18.0f, 15.0f});
    EXPECT_NEAR(db(level() / dry), -15.0, 1.0);

    // Ids die with the chain, and numbering starts again.
    engine.disableEffects();
    engine.setEqualizerBand(mid, {1000.0f, 18.0f, 15.0f});
    EXPECT_NEAR(db(level() / dry), 0.0, 0.01);
    EXPECT_EQ(engine.enableEffect(EffectKind::Reverb), 0);
}

TEST_F(EffectsRouting, ARebuildCarriesTheTailOnAndOnlyADroppedEffectLetsItGo) {
    playLoop();
    const int reverb = engine.enableEffect(EffectKind::Reverb);
    engine.setReverb(reverb, bigRoom());
    // Whole sub-blocks, so that each call lands on the first frame of the next render.
    engine.render(44160);

    // The panel's rebuild while paused: drop every effect, build the chain again.
    engine.setAllPaused(true);
    const std::vector<float> before = engine.render(4096);  // only the tail sounds now
    const std::vector<float> tailOnly = side(before, 0, 1024);
    ASSERT_GT(rms(tailOnly), 1e-3);
    engine.disableEffects();
    ReverbParams darker = bigRoom();
    darker.roomHF = -600.0f;
    engine.setReverb(engine.enableEffect(EffectKind::Reverb), darker);
    const std::vector<float> after = engine.render(4096);

    // No jump at the hand-over larger than the tail makes by itself, and the room rings
    // on through the new settings instead of starting from silence.
    std::vector<float> across(tailOnly.end() - 64, tailOnly.end());
    const std::vector<float> next = side(after, 0, 0, 512);
    across.insert(across.end(), next.begin(), next.end());
    EXPECT_LT(largestStep(across), 1.5 * largestStep(tailOnly));
    EXPECT_GT(rms(side(after, 0, 2048)), 0.5 * rms(side(before, 0, 2048)));

    // A chain without the reverb lets the tail go within the fade.
    engine.disableEffects();
    engine.enableEffect(EffectKind::Equalizer);
    const std::vector<float> dropped = engine.render(4096);
    EXPECT_EQ(peak(side(dropped, 0, 256)), 0.0);
    EXPECT_EQ(peak(side(dropped, 1, 256)), 0.0);

    engine.setAllPaused(false);
    EXPECT_GT(rms(side(engine.render(8192), 0, 4096)), 0.1);
}

TEST_F(EffectsRouting, ReplacedChainsAreGivenBack) {
    playLoop();
    for (int i = 0; i < 20; ++i) {
        engine.disableEffects();
        engine.enableEffect(EffectKind::Reverb);
        engine.enableEffect(EffectKind::Equalizer);
    }
    EXPECT_EQ(engine.chainsHeld(), 40u);
    engine.render(1024);
    engine.enableEffect(EffectKind::Echo);
    EXPECT_EQ(engine.chainsHeld(), 2u);  // the sounding chain and the one just built
}

}  // namespace
}  // namespace brevane
