#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "engine/effects/effects_chain.h"
#include "measure.h"

namespace brevane {
namespace {

using testing::kRate;

constexpr EqualizerBandParams kLoudKilohertz{1000.0f, 18.0f, 12.0f};

double gainAtKilohertz(EffectsChain& chain) {
    chain.reset();
    return testing::responseDb(testing::side(testing::renderImpulse(chain, 8192), 0), 1000.0);
}

TEST(EffectsChain, IdsDieAtDisableAndCallsOnThemOrOnAnotherKindsIdDoNothing) {
    EffectsChain chain(kRate);
    const int old = chain.enable(EffectKind::Equalizer);
    chain.setEqualizerBand(old, kLoudKilohertz);
    EXPECT_NEAR(gainAtKilohertz(chain), 12.0, 0.01);

    chain.disableAll();
    EXPECT_TRUE(chain.empty());
    const int fresh = chain.enable(EffectKind::Equalizer);
    EXPECT_NE(fresh, old);
    chain.setEqualizerBand(old, kLoudKilohertz);
    EXPECT_NEAR(gainAtKilohertz(chain), 0.0, 0.01);
    chain.setEqualizerBand(fresh, kLoudKilohertz);
    EXPECT_NEAR(gainAtKilohertz(chain), 12.0, 0.01);

    // Calls with an id of another kind do nothing either.
    chain.disableAll();
    const int band = chain.enable(EffectKind::Equalizer);
    const int echo = chain.enable(EffectKind::Echo);
    chain.setEcho(echo, {0.0f, 0.0f, 10.0f, 10.0f, false});  // all dry
    chain.setEqualizerBand(echo, kLoudKilohertz);
    chain.setReverb(band, ReverbParams{});
    chain.setEcho(band, {100.0f, 0.0f, 10.0f, 10.0f, false});
    const std::vector<float> input = testing::noise(4096);
    EXPECT_EQ(testing::render(chain, input), input);
}

TEST(EffectsChain, RefusesEffectsBeyondItsLimitAndLeavesTheBufferAloneWithNothingToDo) {
    EffectsChain chain(kRate);
    for (int i = 0; i < EffectsChain::kMaxEffects; ++i) {
        EXPECT_GT(chain.enable(EffectKind::Equalizer), 0);
    }
    EXPECT_EQ(chain.enable(EffectKind::Reverb), -1);
    EXPECT_EQ(chain.effectCount(), EffectsChain::kMaxEffects);
    // Nothing to do leaves the buffer alone.
    chain.process(nullptr, 128);
    std::vector<float> one = {0.25f, -0.25f};
    chain.process(one.data(), 0);
    chain.process(one.data(), -5);
    EXPECT_EQ(one, (std::vector<float>{0.25f, -0.25f}));
}

// The panel's chain: ten bands, then the reverb; here with an echo after them.
void buildFullChain(EffectsChain& chain) {
    const float centres[] = {80, 170, 310, 600, 1000, 3000, 6000, 12000, 14000, 16000};
    for (float c : centres) {
        chain.setEqualizerBand(chain.enable(EffectKind::Equalizer),
                               {c, 18.0f, c < 1000 ? 5.0f : -4.0f});
    }
    chain.setReverb(chain.enable(EffectKind::Reverb), ReverbParams{});
    chain.setEcho(chain.enable(EffectKind::Echo), {30.0f, 40.0f, 120.0f, 170.0f, true});
}

TEST(EffectsChain, OutputDoesNotDependOnHowTheSoundIsCut) {
    const std::vector<float> input = testing::noise(kRate);
    EffectsChain whole(kRate);
    buildFullChain(whole);
    const std::vector<float> expected = testing::render(whole, input, kRate);

    EffectsChain cut(kRate);
    buildFullChain(cut);
    std::vector<float> output = input;
    const int sizes[] = {1, 7, 0, 64, 513, 2, 4096, 33};
    int done = 0;
    for (int k = 0; done < kRate; ++k) {
        const int n = std::min(sizes[k % 8], kRate - done);
        cut.process(output.data() + 2 * done, n);
        done += n;
    }
    EXPECT_EQ(output, expected);
}

TEST(EffectsChain, ResetAndRebuildClearEveryTailAndResetKeepsTheSettings) {
    EffectsChain chain(kRate);
    buildFullChain(chain);
    const std::vector<float> input = testing::noise(kRate / 4);
    const std::vector<float> first = testing::render(chain, input);
    chain.reset();
    const std::vector<float> silence(2 * 4096, 0.0f);
    EXPECT_EQ(testing::render(chain, silence), silence);
    chain.reset();
    EXPECT_EQ(testing::render(chain, input), first);
    // A chain built again after disabling everything carries no stale tail either.
    chain.disableAll();
    buildFullChain(chain);
    EXPECT_EQ(testing::render(chain, silence), silence);
}

TEST(EffectsChain, ANonFiniteSampleDoesNotPoisonTheTails) {
    EffectsChain chain(kRate);
    buildFullChain(chain);
    std::vector<float> bad = testing::noise(1024);
    bad[300] = std::numeric_limits<float>::quiet_NaN();
    bad[301] = std::numeric_limits<float>::infinity();
    chain.process(bad.data(), 1024);
    for (float v : bad) {
        ASSERT_TRUE(std::isfinite(v));
    }
    const std::vector<float> silence(2 * 4096, 0.0f);
    EXPECT_EQ(testing::render(chain, silence), silence);
    const std::vector<float> after = testing::render(chain, testing::noise(4096));
    for (float v : after) {
        ASSERT_TRUE(std::isfinite(v));
    }
}

}  // namespace
}  // namespace brevane
