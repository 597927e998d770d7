// The gates themselves: each must pass a good sound and catch the fault it is there for.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <numbers>

#include "finish.h"
#include "grains.h"
#include "sound_gates.h"

namespace brevane::soundgen {
namespace {

Buffer noiseRing(std::uint64_t seed, double seconds, double rms = 0.1) {
    Rng rng(seed);
    Buffer b = pinkNoise(rng, samples(seconds), Edge::Circular);
    normaliseRms(b, rms);
    return b;
}

TEST(Gates, FormatWantsMono16BitAt44100InTheRightContainer) {
    SoundData d;
    d.rate = 44100;
    d.channels = 1;
    d.subtype = SF_FORMAT_PCM_16;
    d.majorFormat = SF_FORMAT_FLAC;
    EXPECT_TRUE(gates::format(d, false));
    EXPECT_FALSE(gates::format(d, true)) << "FLAC content where WAV is wanted";
    for (auto spoil : {+[](SoundData& x) { x.rate = 48000; }, +[](SoundData& x) { x.channels = 2; },
                       +[](SoundData& x) { x.subtype = SF_FORMAT_PCM_24; }}) {
        SoundData bad = d;
        spoil(bad);
        EXPECT_FALSE(gates::format(bad, false)) << gates::format(bad, false).why;
    }
}

TEST(Gates, LoopLengthIsTwentyToFortySeconds) {
    EXPECT_TRUE(gates::loopLength(samples(20.0)));
    EXPECT_TRUE(gates::loopLength(samples(40.0)));
    EXPECT_FALSE(gates::loopLength(samples(19.9)));
    EXPECT_FALSE(gates::loopLength(samples(40.1)));
}

TEST(Gates, SeamlessWrapCatchesAClickOrALevelStepAtTheWrap) {
    const Buffer ring = noiseRing(1, 5.0);
    EXPECT_TRUE(gates::seamlessWrap(ring)) << gates::seamlessWrap(ring).why;

    Buffer click = ring;
    click.back() = click.front() + 0.8f;
    EXPECT_FALSE(gates::seamlessWrap(click));
    EXPECT_FALSE(gates::noClickAtWrap(click));

    Buffer louder = ring;
    for (std::size_t i = louder.size() - samples(0.05); i < louder.size(); ++i) {
        louder[i] *= 1.5f;  // +3.5 dB over the last 50 ms
    }
    EXPECT_FALSE(gates::seamlessWrap(louder));
    EXPECT_TRUE(gates::noClickAtWrap(louder)) << "a level step alone is no click";

    // A smooth, dark sound whose end lies far from its start: a jump that would pass
    // unnoticed in bright noise is a click here.
    Rng rng(7);
    Buffer line = pinkNoise(rng, samples(5.0), Edge::Linear);
    Biquad lp = Biquad::lowpass(300.0);
    for (auto& v : line) {
        v = lp(v);
    }
    line.back() = line.front() + 0.5f * static_cast<float>(peakOf(line));
    EXPECT_FALSE(gates::seamlessWrap(line));
}

TEST(Gates, InnerRepetitionFindsCopiedStretchesButNotTonesOrColour) {
    const Buffer fresh = noiseRing(2, 24.0);
    EXPECT_TRUE(gates::noInnerRepetition(fresh)) << gates::noInnerRepetition(fresh).why;

    // A steady tone and a strong colour on top of the noise are not repetition.
    Buffer toned = fresh;
    for (std::size_t i = 0; i < toned.size(); ++i) {
        toned[i] += 0.3f * static_cast<float>(std::sin(2 * std::numbers::pi * 440.0 *
                                                       static_cast<double>(i) / kRate));
    }
    filter(toned, Edge::Circular, {Biquad::lowpass(500.0)});
    EXPECT_TRUE(gates::noInnerRepetition(toned)) << gates::noInnerRepetition(toned).why;

    // Half a loop played twice.
    Buffer twice = noiseRing(3, 12.0);
    twice.insert(twice.end(), twice.begin(), twice.end());
    EXPECT_FALSE(gates::noInnerRepetition(twice));

    // A three-second stretch pasted elsewhere into the loop.
    Buffer pasted = fresh;
    std::copy_n(pasted.begin() + static_cast<std::ptrdiff_t>(samples(2.0)), samples(3.0),
                pasted.begin() + static_cast<std::ptrdiff_t>(samples(15.0)));
    const auto v = gates::noInnerRepetition(pasted);
    EXPECT_FALSE(v) << v.why;
}

TEST(Gates, LoudnessAndPeakHoldTheirWindows) {
    EXPECT_TRUE(gates::loopLoudness(noiseRing(4, 2.0, dbToGain(-20.0))));
    EXPECT_TRUE(gates::loopLoudness(noiseRing(4, 2.0, dbToGain(-21.8))));
    EXPECT_FALSE(gates::loopLoudness(noiseRing(4, 2.0, dbToGain(-22.5))));
    EXPECT_FALSE(gates::loopLoudness(noiseRing(4, 2.0, dbToGain(-17.5))));

    Buffer shot = decay(samples(1.0), 0.5);
    scale(shot, dbToGain(-3.0));
    EXPECT_TRUE(gates::oneShotPeak(shot));
    scale(shot, dbToGain(-1.5));
    EXPECT_FALSE(gates::oneShotPeak(shot));
}

TEST(Gates, FullScaleAndDcAreCaughtInTheSamples) {
    std::vector<std::int16_t> pcm(1000, 0);
    pcm[10] = 32766;
    pcm[11] = -32766;
    EXPECT_TRUE(gates::noFullScale(pcm));
    pcm[12] = 32767;
    EXPECT_FALSE(gates::noFullScale(pcm));
    pcm[12] = -32768;
    EXPECT_FALSE(gates::noFullScale(pcm));

    std::vector<std::int16_t> offset(1000, 20);
    EXPECT_TRUE(gates::dcOffset(offset));  // 0.06%
    std::fill(offset.begin(), offset.end(), -40);
    EXPECT_FALSE(gates::dcOffset(offset));  // 0.12%
}

TEST(Gates, OneShotMustStartAtOnceAndFadeOutWithoutTrailingSilence) {
    Rng rng(5);
    Buffer shot = noiseBurst(rng, 0.001, 0.6);
    EXPECT_TRUE(gates::onsetAtStart(shot));
    EXPECT_TRUE(gates::fadesToSilence(shot)) << gates::fadesToSilence(shot).why;

    Buffer late(samples(0.01), 0.0f);
    late.insert(late.end(), shot.begin(), shot.end());
    EXPECT_FALSE(gates::onsetAtStart(late));

    Buffer cut(shot.begin(), shot.begin() + static_cast<std::ptrdiff_t>(samples(0.2)));
    EXPECT_FALSE(gates::fadesToSilence(cut)) << "an abrupt end";

    Buffer padded = shot;
    padded.resize(shot.size() + samples(1.0), 0.0f);
    EXPECT_FALSE(gates::fadesToSilence(padded)) << "a second of silence at the end";
}

TEST(Gates, NotAlikeTellsACopyFromAnotherSound) {
    const Buffer a = noiseRing(6, 21.0);
    Buffer quieter = a;
    scale(quieter, 0.7);
    using gates::fingerprint;
    EXPECT_FALSE(gates::notAlike(fingerprint(a), fingerprint(quieter), true))
        << "a quieter copy is the same sound";

    Rng rng(8);
    Buffer other = brownNoise(rng, samples(23.0), Edge::Circular);
    const auto v = gates::notAlike(fingerprint(a), fingerprint(other), true);
    EXPECT_TRUE(v) << v.why;

    // Two one-shots of one shape but different lengths are compared padded with silence.
    Buffer s1 = decay(samples(2.0), 1.0), s2 = decay(samples(2.0), 1.0);
    Rng r1(9), r2(10);
    multiply(s1, whiteNoise(r1, s1.size()));
    multiply(s2, whiteNoise(r2, s2.size()));
    EXPECT_FALSE(gates::notAlike(fingerprint(s1), fingerprint(s2), false))
        << "two takes of the same burst";
    Buffer s3 = envelope(samples(4.0), std::vector<Point>{{0.0, 0.05}, {2.5, 1.0}, {4.0, 0.0}});
    Rng r3(11);
    multiply(s3, brownNoise(r3, s3.size(), Edge::Linear));
    const auto w = gates::notAlike(fingerprint(s1), fingerprint(s3), false);
    EXPECT_TRUE(w) << w.why;
}

TEST(Gates, ExactPeriodWantsEveryPeriodIdenticalAndNoShorterOne) {
    auto tone = [](std::size_t period, std::size_t n) {
        Buffer b(n);
        for (std::size_t i = 0; i < n; ++i) {
            b[i] = static_cast<float>(
                0.3 * std::sin(2 * std::numbers::pi * static_cast<double>(i % period) /
                               static_cast<double>(period)));
        }
        return toPcm16(b);
    };
    EXPECT_TRUE(gates::exactPeriod(tone(100, 44100), 100));
    EXPECT_FALSE(gates::exactPeriod(tone(100, 44150), 100)) << "not a whole number of periods";
    EXPECT_FALSE(gates::exactPeriod(tone(50, 44100), 100)) << "an octave too high";
    auto flawed = tone(100, 44100);
    flawed[31337] += 1;
    EXPECT_FALSE(gates::exactPeriod(flawed, 100));
    EXPECT_FALSE(gates::exactPeriod(std::vector<std::int16_t>(44100, 0), 100))
        << "silence is no tone";
}

}  // namespace
}  // namespace brevane::soundgen
