// The music bus on the real mixer, rendered offline.
#include "engine/music_stream.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/temp_tree.h"
#include "engine/mixer_engine.h"
#include "test_sounds.h"

namespace brevane {
namespace {

using test::rms;
using test::side;

constexpr int kRate = 44100;

// A slow rise from 0.1 to 0.4 over the file, so that every frame tells where in the
// file it came from.
std::vector<float> rise(std::size_t frames) {
    std::vector<float> x(frames);
    for (std::size_t i = 0; i < frames; ++i) {
        x[i] = 0.1f + 0.3f * static_cast<float>(i) / static_cast<float>(frames);
    }
    return x;
}

class MusicBus : public ::testing::Test {
  protected:
    MediaPlayer& music() { return *engine.mediaPlayer(); }

    TempTree tree;
    MixerEngine engine{MixerEngine::Output::Offline};
};

TEST_F(MusicBus, PlaysSeeksPausesAndTellsItsEndOnce) {
    const std::size_t frames = 2 * kRate;
    const auto file = test::writeMono(tree.root(), "rise.wav", rise(frames), kRate);
    ASSERT_TRUE(music().setFile(file));
    EXPECT_NEAR(music().duration(), 2.0, 1e-3);
    EXPECT_EQ(music().position(), 0.0);

    // Opened paused: nothing is heard until play.
    EXPECT_EQ(test::peak(engine.render(4096)), 0.0);
    music().play();
    const std::vector<float> start = engine.render(kRate / 2);
    EXPECT_NEAR(music().position(), 0.5, 1e-3);
    // Both sides carry the file, in step with its own frames (past the opening ramp).
    const double scale = side(start, 0)[1000] / rise(frames)[1000];
    EXPECT_GT(scale, 0.5);
    for (std::size_t i : {1000u, 10000u, 22000u}) {
        EXPECT_NEAR(side(start, 0)[i], scale * rise(frames)[i], 1e-4) << i;
        EXPECT_NEAR(side(start, 1)[i], side(start, 0)[i], 1e-6) << i;
    }

    // A pause holds the position; nothing sounds once its short fade is done.
    music().pause();
    const std::vector<float> paused = engine.render(8192);
    EXPECT_EQ(test::peak(side(paused, 0, 512)), 0.0);
    EXPECT_NEAR(music().position(), 0.5, 0.01);

    // A seek lands on the frame asked for.
    music().setPosition(1.5);
    music().play();
    const std::vector<float> later = engine.render(4096);
    EXPECT_NEAR(side(later, 0)[2000],
                scale * rise(frames)[static_cast<std::size_t>(1.5 * kRate) + 2000], 1e-4);
    EXPECT_FALSE(music().takeEnded());

    // Played to its end: silence after, and the end told once.
    const std::vector<float> end = engine.render(kRate);
    EXPECT_EQ(test::peak(side(end, 0, kRate / 2)), 0.0);
    EXPECT_TRUE(music().takeEnded());
    EXPECT_FALSE(music().takeEnded());
    EXPECT_NEAR(music().position(), 2.0, 1e-3);
}

TEST_F(MusicBus, VolumeIsInHundredthsOfADecibel) {
    const auto file =
        test::writeMono(tree.root(), "tone.flac", test::sine(441, kRate, 3 * kRate, 0.5f), kRate,
                        SoundFileFormat::Flac16);
    ASSERT_TRUE(music().setFile(file));
    music().play();
    engine.render(4096);
    const double full = rms(side(engine.render(kRate / 4), 0));
    ASSERT_GT(full, 0.1);
    for (const auto& [volume, gain] : {std::pair{-600, 0.5012}, {-2500, 0.05623}, {-10000, 0.0}}) {
        music().setVolume(volume);
        engine.render(1024);
        EXPECT_NEAR(rms(side(engine.render(kRate / 4), 0)) / full, gain, 2e-3) << volume;
    }
    music().setVolume(500);  // above full acts as full
    engine.render(1024);
    EXPECT_NEAR(rms(side(engine.render(kRate / 4), 0)) / full, 1.0, 2e-3);
}

TEST_F(MusicBus, AFileThatIsNotSoundLeavesNothingPlaying) {
    const auto text = tree.root() / "notes.mp3";
    std::FILE* f = std::fopen(text.c_str(), "w");
    std::fputs("not a sound", f);
    std::fclose(f);
    EXPECT_FALSE(music().setFile(text));
    EXPECT_FALSE(music().setFile(tree.root() / "missing.mp3"));
    EXPECT_EQ(music().position(), -1.0);
    music().play();
    EXPECT_FALSE(music().playing());
    EXPECT_EQ(test::peak(engine.render(4096)), 0.0);
}

}  // namespace
}  // namespace brevane
