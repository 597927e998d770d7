#include "engine/decode_cache.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/temp_tree.h"
#include "engine/mixer_engine.h"
#include "test_sounds.h"

namespace brevane {
namespace {

using Clock = DecodeCache::Clock;

DecodedSample frames(std::size_t count, float value) {
    return DecodedSample{std::vector<float>(count, value), 44100};
}

FileIdentity fileNamed(const char* name) {
    return FileIdentity{name, 1, {}};
}

TEST(DecodeCache, HandsOutEachDecodeOnceWithinItsBudgetAndTime) {
    // 100 floats of budget: room for two decodes of 40.
    DecodeCache cache(100 * sizeof(float), std::chrono::seconds(5));
    const Clock::time_point t0{};
    cache.keep(fileNamed("a"), frames(40, 0.1f), t0);
    cache.keep(fileNamed("b"), frames(40, 0.2f), t0);
    cache.keep(fileNamed("c"), frames(40, 0.3f), t0);      // the oldest, a, makes room
    cache.keep(fileNamed("huge"), frames(101, 0.4f), t0);  // larger than the budget: never kept
    EXPECT_EQ(cache.size(), 2u);
    EXPECT_EQ(cache.bytes(), 80 * sizeof(float));
    EXPECT_FALSE(cache.take(fileNamed("a"), t0));
    EXPECT_FALSE(cache.take(fileNamed("huge"), t0));

    const auto b = cache.take(fileNamed("b"), t0);
    ASSERT_TRUE(b);
    EXPECT_EQ(b->frames, frames(40, 0.2f).frames);
    EXPECT_FALSE(cache.take(fileNamed("b"), t0)) << "a decode is handed out once";

    // The same name with another size or time is another file.
    EXPECT_FALSE(cache.take(FileIdentity{"c", 2, {}}, t0));
    EXPECT_FALSE(cache.take(fileNamed("c"), t0 + std::chrono::seconds(6)));
    EXPECT_EQ(cache.bytes(), 0u);

    // 16-bit frames count two bytes each: 150 of them and 20 floats fit in the budget,
    // and 200 more of them (exactly the budget) make room by dropping both.
    cache.keep(fileNamed("d"), DecodedSample{std::vector<std::int16_t>(150, 7), 44100}, t0);
    cache.keep(fileNamed("e"), frames(20, 0.5f), t0);
    EXPECT_EQ(cache.size(), 2u);
    EXPECT_EQ(cache.bytes(), 380u);
    cache.keep(fileNamed("f"), DecodedSample{std::vector<std::int16_t>(200, 9), 44100}, t0);
    EXPECT_EQ(cache.size(), 1u);
    EXPECT_EQ(cache.bytes(), 400u);
    const auto f = cache.take(fileNamed("f"), t0);
    ASSERT_TRUE(f);
    EXPECT_EQ(f->frames, SampleFrames{std::vector<std::int16_t>(200, 9)});
    EXPECT_EQ(cache.bytes(), 0u);
}

TEST(DecodeCache, AReloadedFileIsTheFileOnDiskNow) {
    TempTree tree;
    MixerEngine engine{MixerEngine::Output::Offline};
    const auto path = test::writeMono(tree.root(), "loop.wav", test::constant(0.25f, 4410), 44100);
    const auto firstTime = std::filesystem::last_write_time(path);

    // Freed and loaded again, before and after the mixer lets go of it.
    for (const bool released : {false, true}) {
        const SampleHandle first = engine.loadSample(path);
        engine.freeSample(first);
        if (released) {
            engine.render(256);
        }
        const SampleHandle again = engine.loadSample(path);
        ASSERT_NE(again, 0u);
        EXPECT_EQ(engine.sampleFrames(again), 4410u);
        engine.freeSample(again);
        engine.render(256);
    }

    // Rewritten with the same length and its old time: the kept decode is what comes
    // back, which shows the restart of a loop does not decode it again.
    test::writeMono(tree.root(), "loop.wav", test::constant(0.5f, 4410), 44100);
    std::filesystem::last_write_time(path, firstTime);
    const SampleHandle kept = engine.loadSample(path);
    const ChannelHandle c = engine.play(kept);
    EXPECT_NEAR(test::peak(engine.render(512)), 0.25 * 0.70710678, 1e-4);
    engine.stop(c);
    engine.freeSample(kept);
    engine.render(256);

    // A file changed on disk (another time) is decoded afresh.
    std::filesystem::last_write_time(path, firstTime + std::chrono::seconds(2));
    const SampleHandle fresh = engine.loadSample(path);
    engine.play(fresh);
    EXPECT_NEAR(test::peak(engine.render(512)), 0.5 * 0.70710678, 1e-4);
}

}  // namespace
}  // namespace brevane
