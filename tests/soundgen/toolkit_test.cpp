// The generator's toolkit: random source, filters, noise colours, curves, grains, loop
// closing, limiting, finishing and file access.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>

#include <unistd.h>

#include "analysis.h"
#include "finish.h"
#include "grains.h"
#include "sound_file.h"
#include "sound_gates.h"

namespace brevane::soundgen {
namespace {

constexpr double kPi = std::numbers::pi;

Buffer tone(double hz, double seconds, double amp = 1.0) {
    Buffer b(samples(seconds));
    for (std::size_t i = 0; i < b.size(); ++i) {
        b[i] = static_cast<float>(amp * std::sin(2 * kPi * hz * static_cast<double>(i) / kRate));
    }
    return b;
}

TEST(Random, StreamsAreFixedByTheirSeedAndNameAndStayInRange) {
    Rng a = Rng::fromName("bin/1.isz"), b = Rng::fromName("bin/1.isz"),
        c = Rng::fromName("bin/2.isz");
    bool differs = false;
    for (int i = 0; i < 1000; ++i) {
        const double x = a.uniform();
        ASSERT_EQ(x, b.uniform());
        ASSERT_TRUE(x >= 0.0 && x < 1.0) << x;
        differs |= x != c.uniform();
    }
    EXPECT_TRUE(differs);
    Rng r(3);
    double sum = 0, sq = 0;
    constexpr int kN = 100000;
    for (int i = 0; i < kN; ++i) {
        const double v = r.normal();
        sum += v;
        sq += v * v;
        const int k = r.below(7);
        const double l = r.logUniform(100, 1000);
        ASSERT_TRUE(k >= 0 && k < 7 && l >= 100 && l < 1000) << k << " " << l;
    }
    EXPECT_NEAR(sum / kN, 0.0, 0.02);
    EXPECT_NEAR(sq / kN, 1.0, 0.03);
}

TEST(Filters, BiquadShapesHaveTheirGainsWhereTheySayTheyDo) {
    const auto lp = Biquad::lowpass(1000);
    EXPECT_NEAR(lp.magnitudeAt(10), 1.0, 1e-3);
    EXPECT_NEAR(gainToDb(lp.magnitudeAt(1000)), -3.01, 0.05);
    EXPECT_LT(gainToDb(lp.magnitudeAt(8000)), -35.0);
    const auto hp = Biquad::highpass(1000);
    EXPECT_LT(gainToDb(hp.magnitudeAt(125)), -35.0);
    EXPECT_NEAR(hp.magnitudeAt(15000), 1.0, 0.01);
    const auto bp = Biquad::bandpass(2000, 4.0);
    EXPECT_NEAR(bp.magnitudeAt(2000), 1.0, 1e-3);
    EXPECT_LT(bp.magnitudeAt(500), 0.1);
    EXPECT_NEAR(gainToDb(Biquad::peaking(500, 1.0, 6.0).magnitudeAt(500)), 6.0, 0.01);
    EXPECT_NEAR(gainToDb(Biquad::lowShelf(200, -8.0).magnitudeAt(20)), -8.0, 0.2);
    EXPECT_NEAR(gainToDb(Biquad::highShelf(5000, 4.0).magnitudeAt(18000)), 4.0, 0.3);
    // Frequencies past the top are held just under it, never turned into a bad filter.
    EXPECT_TRUE(std::isfinite(Biquad::lowpass(30000).magnitudeAt(1000)));
}

TEST(Noise, ColoursHaveTheirSlopeAcrossOctaves) {
    Rng rng(2);
    const std::size_t n = samples(8.0);
    // Octave bands: white rises 3 dB an octave, pink is level, brown falls 3 dB.
    auto slope = [](const Buffer& b) {
        const auto bands = bandLevelsDb(b, 1);  // 31.5 Hz .. 16 kHz
        return (bands[7] - bands[3]) / 4.0;     // 4 kHz against 250 Hz
    };
    const Buffer white = whiteNoise(rng, n), pink = pinkNoise(rng, n, Edge::Linear),
                 brown = brownNoise(rng, n, Edge::Linear);
    EXPECT_NEAR(slope(white), 3.0, 0.5);
    EXPECT_NEAR(slope(pink), 0.0, 0.5);
    EXPECT_NEAR(slope(brown), -3.0, 0.6);
    for (const auto* b : {&white, &pink, &brown}) {
        EXPECT_NEAR(rmsOf(*b), 1.0, 1e-3);
    }
}

TEST(Rings, CircularProcessingStartsInTheStateTheRingEndsIn) {
    // Filtering a ring must give what the filter gives on its second time round an
    // endless repeat of the ring.
    Rng rng(4);
    const Buffer ring = whiteNoise(rng, 30000);
    Buffer circ = ring;
    filter(circ, Edge::Circular, {Biquad::lowpass(200), Biquad::highpass(40)});
    Buffer twice = ring;
    twice.insert(twice.end(), ring.begin(), ring.end());
    twice.insert(twice.end(), ring.begin(), ring.end());
    filter(twice, Edge::Linear, {Biquad::lowpass(200), Biquad::highpass(40)});
    for (std::size_t i = 0; i < ring.size(); i += 97) {
        ASSERT_NEAR(circ[i], twice[2 * ring.size() + i], 1e-4) << "at " << i;
    }
}

TEST(Rings, CircularNoiseCurvesAndGrainsWrapWithoutASeam) {
    Rng rng(5);
    const std::size_t n = samples(21.0);
    // The step across the wrap is an ordinary step of the noise, which a straight render
    // of the same length, cut, rarely gives for dark noise.
    Buffer pink = pinkNoise(rng, n, Edge::Circular);
    filter(pink, Edge::Circular, {Biquad::lowpass(200)});
    std::vector<double> steps;
    for (std::size_t i = 1; i < n; ++i) {
        steps.push_back(std::fabs(pink[i] - pink[i - 1]));
    }
    EXPECT_LE(std::fabs(pink[0] - pink[n - 1]), percentile(steps, 99.0));

    const Buffer curve = wander(rng, n, 3.0, 0.2, 0.9, Edge::Circular);
    float steepest = 0.0f;
    for (std::size_t i = 1; i < n; ++i) {
        steepest = std::max(steepest, std::fabs(curve[i] - curve[i - 1]));
        ASSERT_GE(curve[i], 0.2f);
        ASSERT_LE(curve[i], 0.9f);
    }
    EXPECT_LE(std::fabs(curve[0] - curve[n - 1]), steepest * 1.01f);

    Buffer ring(1000, 0.0f), line(1000, 0.0f);
    const Buffer grain(300, 1.0f);
    addGrain(ring, 900, grain, 0.5, Edge::Circular);
    addGrain(line, 900, grain, 0.5, Edge::Linear);
    EXPECT_FLOAT_EQ(ring[950], 0.5f);
    EXPECT_FLOAT_EQ(ring[150], 0.5f);  // wrapped
    EXPECT_FLOAT_EQ(ring[250], 0.0f);
    EXPECT_FLOAT_EQ(line[150], 0.0f);  // dropped
}

TEST(Rings, CrossfadeClosesAStraightRenderIntoASeamlessLoop) {
    Rng rng(6);
    const std::size_t loop = samples(20.0);
    Buffer rendered = pinkNoise(rng, loop + samples(1.0), Edge::Linear);
    filter(rendered, Edge::Linear, {Biquad::lowpass(800)});
    const Buffer closed = closeLoopByCrossfade(rendered, loop);
    ASSERT_EQ(closed.size(), loop);
    EXPECT_TRUE(gates::seamlessWrap(closed)) << gates::seamlessWrap(closed).why;
    // Past the overlap the loop is the render itself.
    EXPECT_EQ(closed[loop - 1], rendered[loop - 1]);
    // Equal power: the overlap keeps the loudness of the rest.
    const auto overlap = std::span(closed).subspan(0, samples(1.0));
    const auto rest = std::span(closed).subspan(samples(5.0), samples(10.0));
    EXPECT_NEAR(gainToDb(rmsOf(overlap) / rmsOf(rest)), 0.0, 1.0);
}

TEST(Curves, EnvelopeAndDecayPassThroughTheirPoints) {
    const std::vector<Point> pts{{0.1, 0.0}, {0.2, 1.0}, {0.5, 0.25}};
    const Buffer e = envelope(samples(1.0), pts);
    EXPECT_FLOAT_EQ(e[0], 0.0f);
    EXPECT_NEAR(e[samples(0.2)], 1.0, 1e-3);
    EXPECT_NEAR(e[samples(0.15)], 0.5, 0.01);  // raised-cosine midpoint
    EXPECT_NEAR(e[samples(0.9)], 0.25, 1e-6);
    const Buffer d = decay(samples(2.0), 1.0);
    EXPECT_NEAR(gainToDb(d[samples(1.0)]), -60.0, 0.1);
}

TEST(Grains, RingSchedulesKeepEveryGapInRangeRoundTheWrap) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        Rng rng(seed);
        const std::size_t n = samples(33.0);
        const auto times = ringSchedule(rng, n, 6.0, 12.0);
        ASSERT_GE(times.size(), 3u);
        ASSERT_TRUE(std::is_sorted(times.begin(), times.end()));
        for (std::size_t i = 0; i < times.size(); ++i) {
            const std::size_t next = i + 1 < times.size() ? times[i + 1] : times[0] + n;
            const double gap = static_cast<double>(next - times[i]) / kRate;
            EXPECT_GE(gap, 6.0 * 0.97) << "seed " << seed;
            EXPECT_LE(gap, 12.0 * 1.03) << "seed " << seed;
        }
    }
}

TEST(Filters, SweepFollowsItsMovingFrequency) {
    // A low-pass swept from 200 Hz up to 8 kHz lets a 4 kHz tone through only at the end.
    Buffer x = tone(4000.0, 1.0);
    Buffer hz(x.size());
    for (std::size_t i = 0; i < hz.size(); ++i) {
        hz[i] = static_cast<float>(
            200.0 * std::pow(40.0, static_cast<double>(i) / static_cast<double>(hz.size())));
    }
    sweep(x, Edge::Linear, hz, 0.7, Pass::Low);
    const double start = rmsOf(std::span(x).subspan(samples(0.05), samples(0.1)));
    const double end = rmsOf(std::span(x).subspan(samples(0.88), samples(0.1)));
    EXPECT_LT(gainToDb(start), -40.0);
    EXPECT_GT(gainToDb(end / (1.0 / std::sqrt(2.0))), -1.5);
}

TEST(Finishing, LimiterTreatsARingAsARing) {
    // A peak on the last sample lowers the gain of the first ones too, so the wrap stays smooth.
    Buffer ring = tone(441.0, 1.0, 0.3);
    ring.back() = 2.0f;
    Buffer line = ring;
    limitPeaks(ring, 0.8, Edge::Circular, samples(0.004));
    limitPeaks(line, 0.8, Edge::Linear, samples(0.004));
    EXPECT_LE(peakOf(ring), 0.8 + 1e-6);
    EXPECT_LT(std::fabs(ring[10]), std::fabs(line[10]));
    EXPECT_FLOAT_EQ(line[10], tone(441.0, 1.0, 0.3)[10]);
}

TEST(Finishing, LoopsAreLevelledAndStartWhereTheWrapIsSteady) {
    Rng rng(8);
    // A ring whose level steps up by 6 dB for its middle third: a start at either step
    // would fail the wrap's level rule.
    Buffer ring = pinkNoise(rng, samples(21.0), Edge::Circular);
    for (std::size_t i = ring.size() / 3; i < 2 * ring.size() / 3; ++i) {
        ring[i] *= 2.0f;
    }
    ring[samples(3.0)] += 40.0f;  // a peak far above the rest
    std::rotate(ring.begin(), ring.begin() + static_cast<std::ptrdiff_t>(ring.size() / 3),
                ring.end());
    const auto pcm = finishLoop(ring);
    const Buffer x = fromPcm16(pcm);
    EXPECT_TRUE(gates::seamlessWrap(x)) << gates::seamlessWrap(x).why;
    EXPECT_TRUE(gates::loopLoudness(x)) << gates::loopLoudness(x).why;
    EXPECT_LE(gainToDb(peakOf(x)), kLoopCeilingDbfs + 0.01);
    EXPECT_TRUE(gates::dcOffset(pcm));
}

TEST(Finishing, DullLoopsGetALittleMoreLevelThanBrightOnesWithinTheLoudnessWindow) {
    Rng rng(12);
    Buffer dull = pinkNoise(rng, samples(20.0), Edge::Circular);
    Buffer bright = dull, pink = dull;
    filter(dull, Edge::Circular, {Biquad::lowpass(300)});
    filter(bright, Edge::Circular, {Biquad::highpass(3000)});
    EXPECT_LT(loudnessTilt(dull), loudnessTilt(pink));
    EXPECT_GT(loudnessTilt(bright), loudnessTilt(pink));
    const double dullDb = gainToDb(rmsOf(fromPcm16(finishLoop(dull))));
    const double brightDb = gainToDb(rmsOf(fromPcm16(finishLoop(bright))));
    const double pinkDb = gainToDb(rmsOf(fromPcm16(finishLoop(pink))));
    EXPECT_NEAR(pinkDb, kLoopRmsDbfs, 0.1);
    EXPECT_NEAR(dullDb, kLoopRmsDbfs + kLoudnessRoomDb, 0.1);
    EXPECT_NEAR(brightDb, kLoopRmsDbfs - kLoudnessRoomDb, 0.1);
}

TEST(Finishing, OneShotsLoseLeadingAndTrailingSilenceAndPeakAtMinusThree) {
    Rng rng(9);
    Buffer b(samples(0.3), 0.0f);
    const Buffer burst = noiseBurst(rng, 0.002, 0.8);
    b.insert(b.end(), burst.begin(), burst.end());
    b.resize(b.size() + samples(2.0), 0.0f);
    const Buffer x = fromPcm16(finishOneShot(b));
    EXPECT_TRUE(gates::onsetAtStart(x)) << gates::onsetAtStart(x).why;
    EXPECT_TRUE(gates::fadesToSilence(x)) << gates::fadesToSilence(x).why;
    EXPECT_TRUE(gates::oneShotPeak(x)) << gates::oneShotPeak(x).why;
    EXPECT_LT(static_cast<double>(x.size()) / kRate, 1.2);
}

TEST(Finishing, SixteenBitFormRoundsAndStaysShortOfFullScale) {
    const auto pcm = toPcm16(Buffer{0.0f, 0.5f, -0.5f, 1.0f, -1.0f, 3.0f, -3.0f});
    EXPECT_EQ(pcm, (std::vector<std::int16_t>{0, 16384, -16384, 32766, -32766, 32766, -32766}));
}

class SoundFiles : public testing::Test {
  protected:
    void TearDown() override { std::filesystem::remove_all(dir_); }
    const std::filesystem::path dir_ =
        std::filesystem::temp_directory_path() /
        ("soundgen_test_" + std::to_string(::getpid()) + "_" +
         ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(SoundFiles, WriteFlacUnderAnyNameAndWavUnderDotWavAndReadBackExactlyAndAlike) {
    const auto pcm = toPcm16(tone(441.0, 0.5, 0.3));
    for (const char* name : {"bin/7.isz", "bin/7.raz", "bin/1.BWZ", "alarms/a.wav"}) {
        const auto file = dir_ / name;
        ASSERT_EQ(writeSound(file, pcm), "") << name;
        const auto back = readSound(file);
        ASSERT_TRUE(back.has_value()) << name;
        EXPECT_EQ(back->samples, pcm) << name;
        EXPECT_TRUE(gates::format(*back, wantsWav(file)))
            << name << ": " << gates::format(*back, wantsWav(file)).why;
    }
    // The same samples give the same bytes, so a rebuilt library is byte for byte the same.
    ASSERT_EQ(writeSound(dir_ / "again.isz", pcm), "");
    auto bytes = [](const std::filesystem::path& p) {
        std::string data(std::filesystem::file_size(p), '\0');
        std::ifstream(p, std::ios::binary)
            .read(data.data(), static_cast<std::streamsize>(data.size()));
        return data;
    };
    EXPECT_EQ(bytes(dir_ / "again.isz"), bytes(dir_ / "bin/7.isz"));
}

TEST_F(SoundFiles, MissingOrBrokenFilesReadAsNothing) {
    EXPECT_FALSE(readSound(dir_ / "none.isz").has_value());
    std::filesystem::create_directories(dir_);
    std::ofstream(dir_ / "junk.isz") << "not a sound at all";
    EXPECT_FALSE(readSound(dir_ / "junk.isz").has_value());
    EXPECT_NE(writeSound("/proc/cannot/write/here.isz", {1, 2, 3}), "");
}

}  // namespace
}  // namespace brevane::soundgen
