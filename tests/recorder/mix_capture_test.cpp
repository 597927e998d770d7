// Record mode: the program's mix, handed over its local socket, captured to a file that
// matches what the program rendered in the same moments.

#include <gtest/gtest.h>

#include <unistd.h>

#include <chrono>
#include <cmath>
#include <thread>

#include "core/headless_program.h"
#include "engine/mix_share.h"
#include "engine/mixer_engine.h"
#include "recorder/mix_capture.h"
#include "recorder/sound_files.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

// The program playing its first-run soundscape on the stock sounds, on virtual time,
// its mixer rendering offline as a device would ask.
class Capture : public ::testing::Test {
  protected:
    Capture() : address("brevane-test-mix-" + std::to_string(::getpid())) { program.started(); }

    // Waits, a few seconds at most, for the capture thread to catch up.
    template <class Done>
    static void waitFor(Done done) {
        for (int i = 0; i < 1000 && !done(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    // Plays 100 ms at a time, keeping what was played.
    void play(int buffers, std::vector<float>& played) {
        for (int i = 0; i < buffers; ++i) {
            program.loop.advance(100);
            const std::vector<float> b = program.engine.render(4410);
            played.insert(played.end(), b.begin(), b.end());
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }

    test::StockTree tree;
    std::string address;
    HeadlessProgram<MixerEngine> program{tree.root(), 11, MixerEngine::Output::Offline};
    MixerEngine& engine = program.engine;
};

TEST_F(Capture, TheFileHoldsWhatWasPlayedInTheSameMomentsAndNothingMore) {
    MixShare share(engine.mixer(), address);
    ASSERT_TRUE(share.listening());
    std::vector<float> before;
    play(3, before);  // played before the recording: not in the file

    MixCapture capture;
    ASSERT_EQ(capture.start(address, tree.root() / "rec.flac", SoundFileFormat::Flac16),
              MixCapture::Start::Started);
    std::vector<float> played;
    play(30, played);
    waitFor([&] { return capture.frames() >= played.size() / 2; });
    EXPECT_GT(capture.peak(0), 0.05f);
    EXPECT_FALSE(fs::exists(tree.root() / "rec.flac"));  // under its temporary name until the end
    ASSERT_TRUE(capture.stop());

    const test::ReadBack file = test::readBack(tree.root() / "rec.flac");
    EXPECT_EQ(file.format, SF_FORMAT_FLAC);
    ASSERT_EQ(file.samples.size(), played.size());
    float worst = 0;
    for (std::size_t i = 0; i < played.size(); ++i) {
        worst = std::max(worst, std::fabs(file.samples[i] - played[i]));
    }
    // Within the 16-bit step of the file.
    EXPECT_LE(worst, 1.0f / 32768.0f);
    EXPECT_TRUE(capture.loudness().has_value());
}

TEST_F(Capture, WithoutTheProgramThereIsNothingToRecordAndWhenItGoesTheFileIsKept) {
    MixCapture capture;
    EXPECT_EQ(capture.start(address, tree.root() / "none.wav", SoundFileFormat::Wav16),
              MixCapture::Start::NoProgram);
    EXPECT_FALSE(fs::exists(tree.root() / "none.wav"));

    auto share = std::make_unique<MixShare>(engine.mixer(), address);
    EXPECT_EQ(capture.start(address, tree.root() / "no folder/kept.wav", SoundFileFormat::Wav16),
              MixCapture::Start::FileFailed);
    ASSERT_EQ(capture.start(address, tree.root() / "kept.wav", SoundFileFormat::Wav16),
              MixCapture::Start::Started);
    std::vector<float> played;
    play(5, played);
    waitFor([&] { return capture.frames() >= played.size() / 2; });
    share.reset();  // the program quits
    waitFor([&] { return !capture.live(); });
    EXPECT_FALSE(capture.live());
    ASSERT_TRUE(capture.stop());
    EXPECT_EQ(test::readBack(tree.root() / "kept.wav").samples.size(), played.size());
}

}  // namespace
}  // namespace brevane
