// A stock scenario rendered to a file as the recorder does it: the whole program on
// virtual time through the real mixer, on the stock sounds.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

#include "base/file_io.h"
#include "recorder/loudness.h"
#include "recorder/scenario_render.h"
#include "recorder/sound_files.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

class ScenarioRender : public ::testing::Test {
  protected:
    RenderOptions options(const std::string& file, std::uint64_t seed = 3) const {
        RenderOptions o;
        o.scenario = "Summer Storm";
        o.lengthMs = 2 * 60 * 1000;
        o.weather = true;
        o.reverb = true;
        o.equalizer = true;
        o.fadeIn = true;
        o.fadeOut = true;
        o.seed = seed;
        o.file = out.root() / file;
        return o;
    }
    RenderResult render(const RenderOptions& o) {
        RenderProgress progress;
        return renderScenario(AppPath(tree.root()), o, progress);
    }
    std::string bytes(const std::string& file) const {
        return readWholeFile(out.root() / file, std::uintmax_t{1} << 30).value_or("");
    }

    test::StockTree tree;
    TempTree out;
};

TEST_F(ScenarioRender, TwoMinutesOfAStockScenarioGiveTheSameFileForTheSameSeed) {
    const RenderResult first = render(options("a.flac"));
    ASSERT_EQ(first.outcome, RenderResult::Outcome::Done) << first.error;
    const test::ReadBack file = test::readBack(out.root() / "a.flac");
    EXPECT_EQ(file.format, SF_FORMAT_FLAC);
    EXPECT_EQ(file.channels, 2);
    EXPECT_EQ(file.rate, 44100);
    EXPECT_EQ(file.samples.size(), 2u * 120 * 44100);

    // Heard, faded at both ends, and as loud as reported.
    const auto peakOf = [&](std::size_t from, std::size_t count) {
        float p = 0;
        for (std::size_t i = from; i < from + count; ++i) {
            p = std::max(p, std::fabs(file.samples[i]));
        }
        return p;
    };
    EXPECT_GT(peakOf(2 * 44100 * 30, 2 * 44100 * 60), 0.02f);
    EXPECT_LT(peakOf(0, 64), 0.001f);
    EXPECT_LT(peakOf(file.samples.size() - 64, 64), 0.001f);
    ASSERT_TRUE(first.loudness.has_value());
    EXPECT_GT(*first.loudness, -45.0);
    EXPECT_LT(*first.loudness, -10.0);
    LoudnessMeter again(44100);
    again.add(file.samples.data(), file.samples.size() / 2);
    EXPECT_NEAR(*again.integrated(), *first.loudness, 0.05);

    // Byte for byte the same with the same seed; another seed fires other sounds.
    ASSERT_EQ(render(options("b.flac")).outcome, RenderResult::Outcome::Done);
    EXPECT_EQ(bytes("a.flac"), bytes("b.flac"));
    ASSERT_EQ(render(options("c.flac", 4)).outcome, RenderResult::Outcome::Done);
    EXPECT_NE(bytes("a.flac"), bytes("c.flac"));
}

TEST_F(ScenarioRender, ACancelLeavesNoFileAndTheOneThereUntouched) {
    ASSERT_TRUE(writeFileAtomically(out.root() / "kept.wav", "the user's own file"));
    RenderOptions o = options("kept.wav");
    o.format = SoundFileFormat::Wav16;
    o.lengthMs = 60 * 60 * 1000;
    RenderProgress progress;
    RenderResult result;
    std::thread worker([&] { result = renderScenario(AppPath(tree.root()), o, progress); });
    while (progress.framesDone.load() < 44100u * 5) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    progress.cancel.store(true);
    worker.join();
    EXPECT_EQ(result.outcome, RenderResult::Outcome::Cancelled);
    EXPECT_EQ(bytes("kept.wav"), "the user's own file");
    EXPECT_EQ(std::distance(fs::directory_iterator(out.root()), fs::directory_iterator()), 1);

    // A scenario that is not there says so, and writes nothing either.
    o.scenario = "No Such Place";
    const RenderResult missing = render(o);
    EXPECT_EQ(missing.outcome, RenderResult::Outcome::Failed);
    EXPECT_EQ(missing.error, "The scenario \"No Such Place\" could not be found.");
    EXPECT_EQ(bytes("kept.wav"), "the user's own file");
}

}  // namespace
}  // namespace brevane
