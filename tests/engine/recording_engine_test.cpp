#include "engine/recording_engine.h"

#include <gtest/gtest.h>

namespace brevane {
namespace {

using Op = RecordingEngine::Op;

TEST(RecordingEngine, RecordsEachCallWithItsArgumentsAsGivenInOrder) {
    RecordingEngine engine;
    ASSERT_TRUE(engine.start(0));
    const SampleHandle s = engine.loadSample("bin/1.isz");
    const ChannelHandle c = engine.play(s);
    engine.setPan(c, 128);
    engine.setVolume(c, 301);  // recorded as computed, acts as 255
    engine.setLoopMode(c, LoopMode::Normal);
    engine.setFrequency(c, 44130);
    engine.setAllPaused(true);
    EXPECT_TRUE(engine.isPlaying(c));
    engine.stop(c);
    engine.freeSample(s);
    engine.close();

    const std::vector<std::string> expected = {"start(0) -> 1",
                                               "loadSample(\"bin/1.isz\") -> 1",
                                               "play(1) -> 1",
                                               "setPan(1, 128)",
                                               "setVolume(1, 301)",
                                               "setLoopMode(1, Normal)",
                                               "setFrequency(1, 44130)",
                                               "setAllPaused(true)",
                                               "stop(1)",
                                               "freeSample(1)",
                                               "close()"};
    EXPECT_EQ(engine.lines(), expected) << engine.dump();
    EXPECT_EQ(engine.lines(true).size(), expected.size() + 1);  // with isPlaying
    ASSERT_EQ(engine.callsOf(Op::SetVolume).size(), 1u);
    EXPECT_EQ(engine.callsOf(Op::SetVolume)[0].b, 301);
    const RecordingEngine::ChannelState* state = engine.channel(c);
    ASSERT_NE(state, nullptr);
    EXPECT_EQ(state->volume, 255);
    EXPECT_EQ(state->loop, LoopMode::Normal);
    EXPECT_EQ(state->frequency, 44130);
    EXPECT_TRUE(state->paused);
    EXPECT_FALSE(state->playing);
}

TEST(RecordingEngine, AFailingPathAndStaleHandlesChangeNothingAndHandlesAreNeverReused) {
    RecordingEngine engine;
    engine.failLoading("bin/7.raz");
    EXPECT_EQ(engine.loadSample("bin/7.raz"), 0u);
    EXPECT_EQ(engine.play(0), 0u);
    engine.setVolume(0, 100);
    EXPECT_FALSE(engine.isPlaying(0));

    const SampleHandle s = engine.loadSample("bin/8.raz");
    const ChannelHandle c = engine.play(s);
    engine.setVolume(c, 100);
    engine.endChannel(c);  // the one-shot reached its end
    EXPECT_FALSE(engine.isPlaying(c));
    engine.setVolume(c, 7);
    EXPECT_EQ(engine.channel(c)->volume, 100);
    EXPECT_EQ(engine.callsOf(Op::SetVolume).size(), 3u);

    // Freeing a sample stops its channels; the freed handle plays nothing.
    const ChannelHandle d = engine.play(s);
    engine.freeSample(s);
    EXPECT_FALSE(engine.isPlaying(d));
    EXPECT_EQ(engine.play(s), 0u);
    EXPECT_EQ(engine.playingCount(), 0u);
    // Handles count up and are never reused.
    EXPECT_EQ(s, 1u);
    EXPECT_EQ(d, 2u);
    EXPECT_EQ(engine.loadSample("bin/8.raz"), 2u);
    EXPECT_EQ(engine.play(2), 3u);
}

TEST(RecordingEngine,
     StartCanBeMadeToFailDriversScriptedAndEffectIdsCountFromZeroAfterEachDisable) {
    RecordingEngine engine;
    engine.setDrivers({"Speakers", "Headset"});
    engine.setStartResult(false);
    EXPECT_EQ(engine.driverCount(), 2);
    EXPECT_EQ(engine.driverName(1), "Headset");
    EXPECT_EQ(engine.driverName(2), "");
    EXPECT_FALSE(engine.start(1));
    EXPECT_FALSE(engine.started());
    EXPECT_EQ(engine.dump(true),
              "driverCount() -> 2\ndriverName(1)\ndriverName(2)\nstart(1) -> 0\n");
    // Effect ids count from zero after each disable.
    RecordingEngine effects;
    EXPECT_EQ(effects.enableEffect(EffectKind::Equalizer), 0);
    EXPECT_EQ(effects.enableEffect(EffectKind::Reverb), 1);
    effects.setEqualizerBand(0, {80.0f, 18.0f, -15.0f});
    effects.setReverb(1, ReverbParams{});
    effects.disableEffects();
    EXPECT_TRUE(effects.effects().empty());
    EXPECT_EQ(effects.enableEffect(EffectKind::Echo), 0);
    const auto lines = effects.lines();
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[0], "enableEffect(Equalizer) -> 0");
    EXPECT_EQ(lines[2], "setEqualizerBand(0, 80 Hz, 18 st, -15 dB)");
    EXPECT_EQ(lines[4], "disableEffects()");
    const auto reverb = effects.callsOf(Op::SetReverb);
    ASSERT_EQ(reverb.size(), 1u);
    EXPECT_FLOAT_EQ(std::get<ReverbParams>(reverb[0].params).decayTime, 1.49f);
}

}  // namespace
}  // namespace brevane
