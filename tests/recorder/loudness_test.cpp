// Integrated loudness against the broadcasters' own reference signals.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "recorder/loudness.h"

namespace brevane {
namespace {

// `seconds` of a 1 kHz sine at `dbfs` peak, on the left channel, or both.
void feedSine(LoudnessMeter& m, int rate, double seconds, double dbfs, bool bothChannels) {
    const double a = std::pow(10.0, dbfs / 20.0);
    const auto frames = static_cast<std::size_t>(seconds * rate);
    std::vector<float> x(2 * frames);
    for (std::size_t i = 0; i < frames; ++i) {
        const double s =
            a * std::sin(2.0 * std::numbers::pi * 1000.0 * static_cast<double>(i) / rate);
        x[2 * i] = static_cast<float>(s);
        x[2 * i + 1] = bothChannels ? static_cast<float>(s) : 0.0f;
    }
    // In odd pieces, as a render hands them over.
    for (std::size_t at = 0; at < frames; at += 1237) {
        m.add(x.data() + 2 * at, std::min<std::size_t>(1237, frames - at));
    }
}

TEST(Loudness, AFullScaleSineOnOneChannelReadsMinus3Point01AtEitherRate) {
    for (const int rate : {44100, 48000}) {
        LoudnessMeter m(rate);
        feedSine(m, rate, 5.0, 0.0, false);
        ASSERT_TRUE(m.integrated().has_value());
        EXPECT_NEAR(*m.integrated(), -3.01, 0.02) << rate;
    }
}

TEST(Loudness, QuietPassagesAreGatedOutAndSilenceHasNoLoudness) {
    // -36, -23, -36 dBFS for 10, 60 and 10 s in stereo: the quiet ends lie more than
    // 10 LU below and are gated out, leaving -23 LUFS.
    LoudnessMeter m(48000);
    feedSine(m, 48000, 10, -36, true);
    feedSine(m, 48000, 60, -23, true);
    feedSine(m, 48000, 10, -36, true);
    ASSERT_TRUE(m.integrated().has_value());
    EXPECT_NEAR(*m.integrated(), -23.0, 0.1);

    LoudnessMeter silent(44100);
    feedSine(silent, 44100, 3, -200, true);
    EXPECT_FALSE(silent.integrated().has_value());
}

}  // namespace
}  // namespace brevane
