#include "engine/mixer_engine.h"
#include "engine/mixer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <numbers>
#include <random>

#include "base/temp_tree.h"
#include "test_sounds.h"

namespace brevane {
namespace {

using test::constant;
using test::largestStep;
using test::measureFrequency;
using test::peak;
using test::side;
using test::sine;

constexpr double kCentre = 0.70710678118654752;  // each side at centre pan

class OfflineMix : public ::testing::Test {
  protected:
    SampleHandle load(const char* name, const std::vector<float>& frames, int rate = 44100) {
        const SampleHandle h = engine.loadSample(test::writeMono(tree.root(), name, frames, rate));
        EXPECT_NE(h, 0u) << name;
        return h;
    }
    ChannelHandle playLoop(SampleHandle sample) {
        const ChannelHandle c = engine.play(sample);
        engine.setLoopMode(c, LoopMode::Normal);
        return c;
    }

    TempTree tree;
    MixerEngine engine{MixerEngine::Output::Offline};
};

TEST_F(OfflineMix, VolumeIsLinearInAmplitudeAndHeldToItsRange) {
    const SampleHandle dc = load("dc.wav", constant(0.5f, 4410));
    const struct {
        int volume;
        double gain;
    } cases[] = {{255, 1.0}, {128, 128.0 / 255}, {64, 64.0 / 255}, {1, 1.0 / 255},
                 {0, 0.0},   {300, 1.0},         {256, 1.0},       {-20, 0.0}};
    for (const auto& c : cases) {
        const ChannelHandle ch = playLoop(dc);
        engine.setVolume(ch, c.volume);
        const std::vector<float> out = engine.render(1024);
        for (int s = 0; s < 2; ++s) {
            for (float v : side(out, s, 512)) {
                ASSERT_NEAR(v, 0.5 * kCentre * c.gain, 1e-6) << "volume " << c.volume;
            }
        }
        engine.stop(ch);
        engine.render(512);
    }
}

TEST_F(OfflineMix, AMixPastFullScaleBendsBelowItAndItsQuietPartsPassUntouched) {
    // Four loud loops sum to 4 x 0.9 x 0.707 = 2.5 on each side: far past full scale.
    const SampleHandle loud = load("loud.wav", sine(220, 44100, 44100, 0.9f));
    for (int i = 0; i < 4; ++i) {
        playLoop(loud);
    }
    const std::vector<float> out = engine.render(8192);
    const double top = peak(out);
    EXPECT_LT(top, 1.0);
    EXPECT_GT(top, 0.95) << "the limiter should bend, not duck the whole mix";
    // Rising through the knee never folds back: the limited wave keeps its shape's order.
    const std::vector<float> left = side(out, 0, 0, 200);
    for (std::size_t i = 1; i < 50; ++i) {
        ASSERT_GE(left[i], left[i - 1]) << "frame " << i;
    }
    // The limit is a curve of the sample alone: identical below the knee, continuous at it.
    EXPECT_EQ(Mixer::softLimit(0.5f), 0.5f);
    EXPECT_EQ(Mixer::softLimit(-0.8f), -0.8f);
    EXPECT_NEAR(Mixer::softLimit(0.8001f), 0.8001f, 1e-6);
    EXPECT_LT(Mixer::softLimit(1.0f), 1.0f);
    EXPECT_EQ(Mixer::softLimit(-3.0f), -Mixer::softLimit(3.0f));
}

TEST_F(OfflineMix, PanIsEqualPowerWithTheFarSideSilentAtEitherEnd) {
    const SampleHandle dc = load("dc.wav", constant(0.5f, 4410));
    double lastLeft = 1.0;
    for (const int pan : {-10, 0, 1, 64, 127, 128, 129, 192, 254, 255, 400}) {
        const ChannelHandle ch = playLoop(dc);
        engine.setPan(ch, pan);
        const std::vector<float> out = engine.render(1024);
        const std::vector<float> left = side(out, 0);
        const std::vector<float> right = side(out, 1);
        const double l = left.back();
        const double r = right.back();
        EXPECT_NEAR(l * l + r * r, 0.25, 1e-6) << "pan " << pan;
        EXPECT_LE(l, lastLeft + 1e-9) << "pan " << pan;
        lastLeft = l;
        if (pan <= 0) {
            EXPECT_EQ(peak(right), 0.0) << "pan " << pan;  // exactly, from the first frame
        }
        if (pan >= 255) {
            EXPECT_EQ(peak(left), 0.0) << "pan " << pan;
        }
        if (pan == 128) {
            EXPECT_EQ(l, r);
            EXPECT_NEAR(l, 0.5 * kCentre, 1e-6);
        }
        engine.stop(ch);
        engine.render(512);
    }
}

TEST_F(OfflineMix, LoopWrapsSampleAccuratelyWithNoGap) {
    // 44 whole periods: a seamless loop, so the output must be one unbroken sine.
    test::writeMono(tree.root(), "tone.wav", sine(441.0, 44100, 4400), 44100);
    for (const int rate : {44100, 66150, 29400}) {
        MixerEngine fresh(MixerEngine::Output::Offline);
        const SampleHandle t = fresh.loadSample(tree.root() / "tone.wav");
        const ChannelHandle ch = fresh.play(t);
        fresh.setLoopMode(ch, LoopMode::Normal);
        fresh.setFrequency(ch, rate);
        const std::vector<float> out = fresh.render(44100);  // ten wraps and more
        const std::vector<float> left = side(out, 0);
        const double hz = 441.0 * rate / 44100.0;
        double worst = 0.0;
        for (std::size_t i = 256; i < left.size(); ++i) {
            const double ideal =
                0.5 * kCentre *
                std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(i) / 44100.0);
            worst = std::max(worst, std::fabs(left[i] - ideal));
        }
        // Exact at the own rate; within the interpolation error otherwise. One frame lost
        // or repeated at a wrap would put the rest a whole step out of phase.
        EXPECT_LT(worst, rate == 44100 ? 1e-6 : 2e-4) << "rate " << rate;
    }
}

TEST_F(OfflineMix, ChannelsAtCloseRatesKeepTheirExactDifference) {
    // A 441 Hz tone played at 44100 Hz and at 44130 Hz: 441.0 Hz and 441.3 Hz, one in
    // each ear, so the listener hears a 0.3 Hz beat.
    const SampleHandle tone = load("tone.wav", sine(441.0, 44100, 44100));
    const ChannelHandle a = playLoop(tone);
    const ChannelHandle b = playLoop(tone);
    engine.setPan(a, 0);
    engine.setPan(b, 255);
    engine.setFrequency(b, 44130);
    const std::vector<float> out = engine.render(44100 * 30);
    const double left = measureFrequency(side(out, 0, 4410), 44100);
    const double right = measureFrequency(side(out, 1, 4410), 44100);
    EXPECT_NEAR(left, 441.0, 1e-4);
    EXPECT_NEAR(right - left, 0.3, 0.3 * 0.005);
    // And still so at the end of the render, not only on average.
    const std::size_t tail = out.size() / 2 - 44100 * 5;
    const double lateLeft = measureFrequency(side(out, 0, tail), 44100);
    const double lateRight = measureFrequency(side(out, 1, tail), 44100);
    EXPECT_NEAR(lateRight - lateLeft, 0.3, 0.3 * 0.005);
}

TEST_F(OfflineMix, FrequencyStartsAtTheSampleRateAndFollowsTheCalls) {
    // 441 Hz recorded at 22050 Hz.
    const SampleHandle tone = load("tone22.wav", sine(441.0, 22050, 22050), 22050);
    const ChannelHandle ch = playLoop(tone);
    EXPECT_NEAR(measureFrequency(side(engine.render(44100), 0, 512), 44100), 441.0, 0.05);
    const struct {
        int hz;
        double expected;
    } cases[] = {{44100, 882.0}, {1000, 20.0}, {50'000'000, 14112.0}};
    for (const auto& c : cases) {
        engine.setFrequency(ch, c.hz);
        engine.render(512);  // the change lands at the next sub-block
        const double hz = measureFrequency(side(engine.render(88200), 0), 44100);
        EXPECT_NEAR(hz, c.expected, c.expected * 1e-3) << c.hz << " Hz";
    }
}

TEST_F(OfflineMix, AOneShotPlaysOnceAndItsHandleThenGoesStale) {
    const SampleHandle shot = load("shot.wav", constant(0.5f, 1000));
    const SampleHandle dc = load("dc.wav", constant(0.5f, 4410));
    const ChannelHandle first = engine.play(shot);
    ASSERT_NE(first, 0u);
    EXPECT_TRUE(engine.isPlaying(first));
    const std::vector<float> out = engine.render(2048);
    EXPECT_NEAR(out[2 * 900], 0.5 * kCentre, 1e-6);
    EXPECT_EQ(peak(side(out, 0, 1000)), 0.0);
    EXPECT_FALSE(engine.isPlaying(first));

    // The channel is free again; the old handle must not reach the new sound.
    const ChannelHandle second = playLoop(dc);
    EXPECT_NE(second, first);
    engine.setVolume(first, 0);
    engine.setPaused(first, true);
    engine.stop(first);
    std::vector<float> later = engine.render(1024);
    EXPECT_NEAR(later[2 * 1000], 0.5 * kCentre, 1e-6);
    EXPECT_NEAR(later[2 * 1000 + 1], 0.5 * kCentre, 1e-6);

    // A stopped channel's handle is stale at once.
    engine.stop(second);
    EXPECT_FALSE(engine.isPlaying(second));
    engine.setVolume(second, 255);
    engine.setPaused(second, false);
    later = engine.render(1024);
    EXPECT_EQ(peak(side(later, 0, 512)), 0.0);
}

TEST_F(OfflineMix, AFullMixGivesUpTheEarliestOneShotThenTheEarliestLoop) {
    const SampleHandle dc = load("dc.wav", constant(0.01f, 441000));
    std::vector<ChannelHandle> loops;
    std::vector<ChannelHandle> shots;
    for (int i = 0; i < 16; ++i) {
        loops.push_back(playLoop(dc));
    }
    for (int i = 0; i < 16; ++i) {
        shots.push_back(engine.play(dc));
    }
    engine.render(512);
    const ChannelHandle third = engine.play(dc);
    const ChannelHandle fourth = engine.play(dc);
    EXPECT_TRUE(engine.isPlaying(third) && engine.isPlaying(fourth));
    for (std::size_t i = 0; i < shots.size(); ++i) {
        EXPECT_EQ(engine.isPlaying(shots[i]), i >= 2) << i;
        EXPECT_TRUE(engine.isPlaying(loops[i])) << i;
    }

    // Only loops left: the loop that started first gives way.
    for (std::size_t i = 2; i < shots.size(); ++i) {
        engine.stop(shots[i]);
    }
    engine.stop(third);
    engine.stop(fourth);
    std::vector<ChannelHandle> more;
    for (int i = 0; i < 16; ++i) {
        more.push_back(playLoop(dc));
    }
    engine.render(512);
    const ChannelHandle taker = engine.play(dc);
    EXPECT_TRUE(engine.isPlaying(taker));
    for (std::size_t i = 0; i < loops.size(); ++i) {
        EXPECT_EQ(engine.isPlaying(loops[i]), i >= 1) << i;
    }
    // The taken sound fades out rather than stopping dead.
    const std::vector<float> out = engine.render(1024);
    EXPECT_LT(largestStep(side(out, 0)), 0.01 * kCentre / 256 * 1.05 + 1e-7);
}

TEST_F(OfflineMix, PauseAllHoldsEveryPositionUntilResumed) {
    // A rising ramp: the output value tells the playback position.
    const std::size_t length = 441000;
    std::vector<float> ramp(length);
    for (std::size_t i = 0; i < length; ++i) {
        ramp[i] = static_cast<float>(i) / static_cast<float>(length);
    }
    const SampleHandle r = load("ramp.wav", ramp);
    const ChannelHandle a = playLoop(r);
    const ChannelHandle b = playLoop(r);
    engine.setPan(a, 0);
    engine.setPan(b, 255);
    // Renders in whole sub-blocks, so that each call lands on the first frame of the next.
    engine.render(4096);
    engine.setAllPaused(true);
    const std::vector<float> held = engine.render(44160);
    EXPECT_EQ(peak(side(held, 0, 256)), 0.0);
    EXPECT_EQ(peak(side(held, 1, 256)), 0.0);
    EXPECT_TRUE(engine.isPlaying(a));
    EXPECT_TRUE(engine.isPlaying(b));

    engine.setAllPaused(false);
    const std::vector<float> resumed = engine.render(4096);
    // Playback went on during the fade out (256 frames), then stood still.
    for (std::size_t k = 256; k < 4096; k += 97) {
        const double expected = static_cast<double>(4096 + 256 + k) / length;
        EXPECT_NEAR(resumed[2 * k], expected, 1e-6) << k;
        EXPECT_NEAR(resumed[2 * k + 1], expected, 1e-6) << k;
    }
}

TEST_F(OfflineMix, PausingOneChannelLeavesTheOthersPlaying) {
    const SampleHandle dc = load("dc.wav", constant(0.5f, 4410));
    const ChannelHandle left = playLoop(dc);
    const ChannelHandle right = playLoop(dc);
    engine.setPan(left, 0);
    engine.setPan(right, 255);
    engine.setPaused(left, true);
    std::vector<float> out = engine.render(1024);
    EXPECT_EQ(out[2 * 1000], 0.0f);
    EXPECT_NEAR(out[2 * 1000 + 1], 0.5, 1e-6);
    engine.setPaused(left, false);
    out = engine.render(1024);
    EXPECT_NEAR(out[2 * 1000], 0.5, 1e-6);
}

TEST_F(OfflineMix, FreeingAPlayingSampleStopsItsChannelsAndGivesTheMemoryBack) {
    const SampleHandle dc = load("dc.wav", constant(0.5f, 4410));
    const ChannelHandle a = playLoop(dc);
    const ChannelHandle b = playLoop(dc);
    engine.render(1024);
    engine.freeSample(dc);
    EXPECT_FALSE(engine.isPlaying(a));
    EXPECT_FALSE(engine.isPlaying(b));
    for (const SampleHandle bad : {SampleHandle{0}, dc, SampleHandle{12345}}) {
        EXPECT_EQ(engine.play(bad), 0u) << bad;
    }
    EXPECT_EQ(engine.samplesAwaitingRelease(), 1u);
    const std::vector<float> out = engine.render(1024);
    EXPECT_LT(largestStep(side(out, 0)), 2 * 0.5 * kCentre / 256 * 1.05);  // faded, no click
    EXPECT_EQ(peak(side(out, 0, 256)), 0.0);
    engine.freeSample(dc);  // a second free does nothing
    load("other.wav", constant(0.1f, 100));
    EXPECT_EQ(engine.samplesAwaitingRelease(), 0u);
}

TEST_F(OfflineMix, StartsStopsAndChangesRampWithoutAClick) {
    const SampleHandle dc = load("dc.wav", constant(0.5f, 4410));
    const double full = 0.5 * kCentre;
    const double maxStep = full / 256 * 1.01 + 1e-7;  // a full swing spread over 256 frames
    const ChannelHandle ch = playLoop(dc);
    std::vector<float> out = engine.render(1024);
    EXPECT_EQ(out[0], 0.0f);
    EXPECT_LT(largestStep(side(out, 0)), maxStep);
    EXPECT_NEAR(out[2 * 300], full, 1e-6);  // there within a few milliseconds

    for (const int volume : {0, 255, 100, 255}) {
        engine.setVolume(ch, volume);
        out = engine.render(1024);
        EXPECT_LT(largestStep(side(out, 0)), maxStep) << volume;
    }
    engine.setPan(ch, 255);
    out = engine.render(1024);
    EXPECT_LT(largestStep(side(out, 0)), maxStep);
    EXPECT_LT(largestStep(side(out, 1)), maxStep);
    engine.stop(ch);
    out = engine.render(1024);
    EXPECT_LT(largestStep(side(out, 1)), 0.5 / 256 * 1.01);
    EXPECT_EQ(peak(side(out, 1, 256)), 0.0);
}

// Plays a small scene with calls between renders of the given sizes.
std::vector<float> scene(const std::filesystem::path& dir, const std::vector<int>& chunks) {
    MixerEngine e(MixerEngine::Output::Offline);
    const SampleHandle tone = e.loadSample(dir / "tone.wav");
    const SampleHandle shot = e.loadSample(dir / "shot.wav");
    const ChannelHandle a = e.play(tone);
    e.setLoopMode(a, LoopMode::Normal);
    e.setPan(a, 40);
    std::vector<float> out;
    int step = 0;
    for (const int n : chunks) {
        switch (step++ % 4) {
            case 0:
                e.setVolume(a, 90 + step);
                break;
            case 1:
                e.setPan(e.play(shot), 200);
                break;
            case 2:
                e.setFrequency(a, 30000 + 1000 * step);
                break;
            case 3:
                e.setPaused(a, step % 8 == 3);
                break;
        }
        const std::vector<float> part = e.render(n);
        out.insert(out.end(), part.begin(), part.end());
    }
    return out;
}

TEST_F(OfflineMix, TheSameCallsRenderTheSameSamplesWithEitherMixingLoop) {
    test::writeMono(tree.root(), "tone.wav", sine(330.0, 48000, 48000), 48000);
    test::writeMono(tree.root(), "shot.wav", sine(1000.0, 22050, 5000), 22050);
    const std::vector<int> chunks = {1000, 333, 4410, 64, 1, 7777, 2048, 100, 3000, 999, 44100};
    const std::vector<float> a = scene(tree.root(), chunks);
    const std::vector<float> b = scene(tree.root(), chunks);
    Mixer::allowWideLoop(false);
    const std::vector<float> narrow = scene(tree.root(), chunks);
    Mixer::allowWideLoop(true);
    EXPECT_GT(peak(a), 0.1);
    for (const auto* other : {&b, &narrow}) {
        ASSERT_EQ(a.size(), other->size());
        EXPECT_EQ(std::memcmp(a.data(), other->data(), a.size() * sizeof(float)), 0);
    }

    // Calls made once up front: how the render is cut up changes nothing.
    auto upFront = [&](const std::vector<int>& sizes) {
        MixerEngine e(MixerEngine::Output::Offline);
        const ChannelHandle ch = e.play(e.loadSample(tree.root() / "tone.wav"));
        e.setPan(ch, 90);
        std::vector<float> out;
        for (const int n : sizes) {
            const std::vector<float> part = e.render(n);
            out.insert(out.end(), part.begin(), part.end());
        }
        return out;
    };
    const std::vector<float> whole = upFront({20000});
    const std::vector<float> pieces = upFront({1, 63, 64, 5000, 4872, 10000});
    ASSERT_EQ(whole.size(), pieces.size());
    EXPECT_EQ(std::memcmp(whole.data(), pieces.data(), whole.size() * sizeof(float)), 0);
}

// A 16-bit file is kept as 16-bit frames and made float only in the mixing loop; the mix
// must come out as from the same frames kept as floats (what a 16-bit file decoded to
// before), with either mixing loop.
TEST_F(OfflineMix, SixteenBitFramesMixAsTheSameFramesKeptAsFloats) {
    // Integer steps of a loud, bright sound, two seconds of stereo at 22050 Hz.
    constexpr std::size_t kFrames = 44100;
    std::mt19937 random(20240917);
    std::uniform_int_distribution<int> noise(-1500, 1500);
    std::vector<int> steps(2 * kFrames);
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const double t = static_cast<double>(i / 2) / 22050;
        const double tone = std::sin(2 * std::numbers::pi * (i % 2 == 0 ? 3100 : 470) * t);
        steps[i] = static_cast<int>(std::lrint(23000 * tone)) + noise(random);
    }
    // The same steps in a 16-bit file and in a float file, as the decoder made floats of
    // a 16-bit file before.
    auto write = [&](const char* name, int channels, SoundFileFormat format) {
        std::vector<float> x(kFrames * static_cast<std::size_t>(channels));
        for (std::size_t i = 0; i < x.size(); ++i) {
            x[i] = static_cast<float>(steps[channels == 2 ? i : 2 * i]) / kInt16FullScale;
        }
        const auto file = tree.root() / name;
        EXPECT_TRUE(writeSoundFile(file, x, channels, 22050, format)) << name;
        return file;
    };
    const auto mono16 = write("mono16.wav", 1, SoundFileFormat::Wav16);
    const auto decoded = decodeSampleFile(mono16);
    ASSERT_TRUE(decoded);
    const auto* kept = std::get_if<std::vector<std::int16_t>>(&decoded->frames);
    ASSERT_NE(kept, nullptr) << "a 16-bit file keeps 16-bit frames";
    ASSERT_EQ(kept->size(), kFrames);
    for (std::size_t i = 0; i < kFrames; ++i) {
        ASSERT_EQ((*kept)[i], steps[2 * i]) << "frame " << i;
    }

    // A loop at full volume and full left, at an odd rate, across its end many times.
    auto render = [](const std::filesystem::path& file) {
        MixerEngine e(MixerEngine::Output::Offline);
        const ChannelHandle c = e.play(e.loadSample(file));
        e.setLoopMode(c, LoopMode::Normal);
        e.setPan(c, 0);
        e.setFrequency(c, 31007);
        return e.render(100000);
    };
    const auto mono = write("mono.wav", 1, SoundFileFormat::WavFloat);
    const auto stereo16 = write("stereo16.wav", 2, SoundFileFormat::Wav16);
    const auto stereo = write("stereo.wav", 2, SoundFileFormat::WavFloat);
    for (const bool wide : {true, false}) {
        Mixer::allowWideLoop(wide);
        // Mono: the very same frames, and the full scale a power of two: the same to the bit.
        const std::vector<float> a = render(mono16);
        const std::vector<float> b = render(mono);
        EXPECT_GT(peak(a), 0.6);
        ASSERT_EQ(a.size(), b.size());
        EXPECT_EQ(std::memcmp(a.data(), b.data(), a.size() * sizeof(float)), 0) << wide;
        // Stereo: the mean of two channels is rounded to the nearest 16-bit step, half a
        // step at most. The interpolation weighs four frames by at most 1.25 in all (at
        // half-way), the gain is 1 and the output stage never steepens: 0.625 of a step,
        // with room for the rounding of floats near full scale.
        const std::vector<float> c = render(stereo16);
        const std::vector<float> d = render(stereo);
        ASSERT_EQ(c.size(), d.size());
        double worst = 0.0;
        for (std::size_t i = 0; i < c.size(); ++i) {
            worst = std::max(worst, std::fabs(static_cast<double>(c[i]) - d[i]));
        }
        EXPECT_LE(worst, 0.625 / 32768 + 1e-7) << wide;
        EXPECT_GT(worst, 0.0) << "the means should differ in rounding somewhere";
    }
    Mixer::allowWideLoop(true);
}

TEST_F(OfflineMix, ClosingReleasesEverythingAndLeavesTheEngineUsable) {
    const SampleHandle dc = load("dc.wav", constant(0.5f, 4410));
    const ChannelHandle ch = playLoop(dc);
    engine.enableEffect(EffectKind::Echo);
    engine.render(512);
    engine.close();
    EXPECT_FALSE(engine.isPlaying(ch));
    EXPECT_EQ(engine.sampleFrames(dc), 0u);
    EXPECT_EQ(engine.chainsHeld(), 0u);
    EXPECT_EQ(peak(engine.render(1024)), 0.0);
    EXPECT_TRUE(engine.start(0));
    const ChannelHandle again = playLoop(load("dc2.wav", constant(0.5f, 4410)));
    EXPECT_NEAR(engine.render(1024)[2000], 0.5 * kCentre, 1e-6);
    EXPECT_TRUE(engine.isPlaying(again));
}

}  // namespace
}  // namespace brevane
