#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "engine/effects/effects_chain.h"
#include "engine/effects/stereo_echo.h"
#include "measure.h"

namespace brevane {
namespace {

using testing::kRate;

std::vector<float> echoImpulse(const EchoParams& p, double seconds, bool left, bool right) {
    EffectsChain chain(kRate);
    chain.setEcho(chain.enable(EffectKind::Echo), p);
    return testing::renderImpulse(chain, static_cast<int>(seconds * kRate), left, right, 333);
}

// Positions and values of the samples of `x` above 1e-6, in order.
std::vector<std::pair<int, double>> peaks(const std::vector<double>& x) {
    std::vector<std::pair<int, double>> out;
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (std::abs(x[i]) > 1e-6) {
            out.emplace_back(static_cast<int>(i), x[i]);
        }
    }
    return out;
}

TEST(StereoEcho, EachSideRepeatsAfterItsOwnDelayFallingByTheFeedback) {
    const std::vector<float> ir =
        echoImpulse({40.0f, 50.0f, 100.0f, 250.0f, false}, 1.0, true, true);
    const auto left = peaks(testing::side(ir, 0));
    const auto right = peaks(testing::side(ir, 1));
    ASSERT_GE(left.size(), 4u);
    ASSERT_GE(right.size(), 3u);
    // Dry share first, then the repeats at the wet share, each half the one before.
    EXPECT_FLOAT_EQ(left[0].second, 0.6);
    for (std::size_t k = 1; k < 4; ++k) {
        EXPECT_EQ(left[k].first, static_cast<int>(k) * 4410);
        EXPECT_NEAR(left[k].second, 0.4 * std::pow(0.5, double(k) - 1), 1e-6);
    }
    for (std::size_t k = 1; k < 3; ++k) {
        EXPECT_EQ(right[k].first, static_cast<int>(k) * 11025);
        EXPECT_NEAR(right[k].second, 0.4 * std::pow(0.5, double(k) - 1), 1e-6);
    }
}

TEST(StereoEcho, PanDelaySwapsSidesOnEachRepeat) {
    // A sound on the left only: back on the left after 100 ms, then on the right 250 ms later,
    // then on the left 100 ms after that.
    const std::vector<float> ir =
        echoImpulse({100.0f, 80.0f, 100.0f, 250.0f, true}, 0.8, true, false);
    const auto left = peaks(testing::side(ir, 0));
    const auto right = peaks(testing::side(ir, 1));
    ASSERT_EQ(left.size(), 2u);
    ASSERT_EQ(right.size(), 2u);
    EXPECT_EQ(left[0].first, 4410);
    EXPECT_NEAR(left[0].second, 1.0, 1e-6);
    EXPECT_EQ(right[0].first, 4410 + 11025);
    EXPECT_NEAR(right[0].second, 0.8, 1e-6);
    EXPECT_EQ(left[1].first, 2 * 4410 + 11025);
    EXPECT_NEAR(left[1].second, 0.64, 1e-6);
    EXPECT_EQ(right[1].first, 2 * 4410 + 2 * 11025);
}

TEST(StereoEcho, WetDryMixZeroPassesTheSoundUnchanged) {
    EffectsChain chain(kRate);
    chain.setEcho(chain.enable(EffectKind::Echo), {0.0f, 90.0f, 30.0f, 40.0f, true});
    const std::vector<float> input = testing::noise(kRate / 2);
    EXPECT_EQ(testing::render(chain, input), input);
}

TEST(StereoEcho, FullFeedbackNeverBuildsUpWithoutLimit) {
    // The spare button's echo: all wet, 100 % feedback, two seconds each side, panned.
    const std::vector<float> ir =
        echoImpulse({100.0f, 100.0f, 2000.0f, 2000.0f, true}, 21.0, true, false);
    const auto left = peaks(testing::side(ir, 0));
    ASSERT_GE(left.size(), 5u);
    for (std::size_t k = 1; k < left.size(); ++k) {
        EXPECT_EQ(left[k].first - left[k - 1].first, 2 * 88200);
        EXPECT_NEAR(left[k].second / left[k - 1].second,
                    StereoEcho::kMaxLoopGain * StereoEcho::kMaxLoopGain, 1e-5);
    }
}

}  // namespace
}  // namespace brevane
