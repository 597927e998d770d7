#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "engine/effects/effects_chain.h"
#include "measure.h"

namespace brevane {
namespace {

using testing::kRate;

// The centres the effects panel gives its ten bands, all 18 semitones wide.
constexpr std::array<float, 10> kCentres{80, 170, 310, 600, 1000, 3000, 6000, 12000, 14000, 16000};

// Ten bands enabled in order, as the panel does, each at its centre and 0 dB.
std::vector<int> enableTenBands(EffectsChain& chain) {
    std::vector<int> ids;
    for (float centre : kCentres) {
        ids.push_back(chain.enable(EffectKind::Equalizer));
        chain.setEqualizerBand(ids.back(), {centre, 18.0f, 0.0f});
    }
    return ids;
}

TEST(EqualizerBand, GainAtEachCentreMatchesTheSettingWithinFifteenDb) {
    for (std::size_t band = 0; band < kCentres.size(); ++band) {
        // Gains beyond 15 dB act as 15 dB.
        for (const auto& [asked, acts] : {std::pair{15.0f, 15.0f}, std::pair{-9.0f, -9.0f},
                                          std::pair{40.0f, 15.0f}, std::pair{-100.0f, -15.0f}}) {
            EffectsChain chain(kRate);
            const std::vector<int> ids = enableTenBands(chain);
            chain.setEqualizerBand(ids[band], {kCentres[band], 18.0f, asked});
            const std::vector<float> ir = testing::renderImpulse(chain, kRate);
            for (int s = 0; s < 2; ++s) {
                EXPECT_NEAR(testing::responseDb(testing::side(ir, s), kCentres[band]), acts, 0.5)
                    << "band " << band << " at " << kCentres[band] << " Hz, side " << s;
            }
        }
    }
}

TEST(EqualizerBand, AllBandsAtZeroDbAreFlatFrom20HzTo20kHz) {
    EffectsChain chain(kRate);
    enableTenBands(chain);
    const std::vector<double> ir = testing::side(testing::renderImpulse(chain, kRate), 0);
    for (double hz = 20.0; hz <= 20000.0; hz *= 1.07) {
        EXPECT_NEAR(testing::responseDb(ir, hz), 0.0, 0.1) << hz << " Hz";
    }
}

TEST(EqualizerBand, AChangeWhilePlayingGlidesToTheNewGainWithinAFewMilliseconds) {
    // A 1 kHz tone plays through a flat band; at 0.5 s the band goes to +12 dB.
    EffectsChain chain(kRate);
    const int id = chain.enable(EffectKind::Equalizer);
    chain.setEqualizerBand(id, {1000.0f, 18.0f, 0.0f});
    const int frames = kRate;
    std::vector<float> tone(2 * static_cast<std::size_t>(frames));
    for (int i = 0; i < frames; ++i) {
        tone[2 * static_cast<std::size_t>(i)] =
            0.1f * static_cast<float>(std::sin(2.0 * std::numbers::pi * 1000.0 * i / kRate));
        tone[2 * static_cast<std::size_t>(i) + 1] = tone[2 * static_cast<std::size_t>(i)];
    }
    const int half = frames / 2;
    chain.process(tone.data(), half);
    chain.setEqualizerBand(id, {1000.0f, 18.0f, 12.0f});
    // Odd blocks: the glide must not depend on how the sound is cut.
    for (int done = half; done < frames; done += 37) {
        chain.process(tone.data() + 2 * done, std::min(37, frames - done));
    }
    const std::vector<double> out = testing::side(tone, 0);
    auto peakIn = [&](int from, int to) {
        double peak = 0.0;
        for (int i = from; i < to; ++i) {
            peak = std::max(peak, std::abs(out[static_cast<std::size_t>(i)]));
        }
        return 20.0 * std::log10(peak / 0.1);
    };
    EXPECT_NEAR(peakIn(half - 441, half), 0.0, 0.05);
    // One period right after the change is still near the old level: no jump.
    EXPECT_LT(peakIn(half, half + 44), 3.0);
    // 20 ms later the new gain stands.
    EXPECT_NEAR(peakIn(half + 882, half + 1323), 12.0, 0.1);
}

}  // namespace
}  // namespace brevane
