#include "engine/decode_pool.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>

#include "base/temp_tree.h"
#include "engine/mixer.h"
#include "engine/mixer_engine.h"
#include "test_sounds.h"

namespace brevane {
namespace {

constexpr int kBlock = 4 * kSubBlockFrames;

MixCommand command(MixCommand::Op op, SampleRecord* sample, int channel, int value = 0) {
    MixCommand c;
    c.op = op;
    c.channel = static_cast<std::uint8_t>(channel);
    c.generation = 1;
    c.sample = sample;
    c.value = value;
    return c;
}

std::vector<float> render(Mixer& mixer, int frames) {
    std::vector<float> out(2 * static_cast<std::size_t>(frames));
    mixer.render(out.data(), frames);
    return out;
}

// A channel started on a sample still being decoded waits, silent and at its start,
// and then plays exactly what it would have played had the frames been there: its own
// rate taken from the sample, a frequency set meanwhile kept.
TEST(BackgroundDecoding, AChannelWaitsForItsFramesThenPlaysThemFromTheStart) {
    const std::vector<float> tone = test::sine(441.0, 22050, 8000);
    const auto frames = [&tone] { return SampleFrames{tone}; };

    for (const bool frequencySet : {false, true}) {
        SampleRecord ready;
        ready.frames = frames();
        ready.rate = 22050;
        SampleRecord pending;
        pending.state = SampleState::Pending;
        Mixer reference;
        Mixer waiting;
        reference.post(command(MixCommand::Op::Play, &ready, 0));
        waiting.post(command(MixCommand::Op::Play, &pending, 0));
        if (frequencySet) {
            reference.post(command(MixCommand::Op::Frequency, nullptr, 0, 30000));
            waiting.post(command(MixCommand::Op::Frequency, nullptr, 0, 30000));
        }

        EXPECT_EQ(test::peak(render(waiting, kBlock)), 0.0);
        EXPECT_NE(waiting.endedGeneration(0), 1u) << "a waiting channel is still playing";

        pending.frames = frames();
        pending.rate = 22050;
        pending.state.store(SampleState::Ready, std::memory_order_release);
        const std::vector<float> expected = render(reference, kBlock);
        const std::vector<float> heard = render(waiting, kBlock);
        EXPECT_GT(test::peak(heard), 0.3);
        EXPECT_EQ(0, std::memcmp(expected.data(), heard.data(), expected.size() * sizeof(float)))
            << "frequency set: " << frequencySet;
    }

    // Stopped before its frames come, it ends at once; a failed decode ends it too.
    SampleRecord stopped;
    stopped.state = SampleState::Pending;
    SampleRecord failed;
    failed.state = SampleState::Pending;
    Mixer mixer;
    mixer.post(command(MixCommand::Op::Play, &stopped, 0));
    mixer.post(command(MixCommand::Op::Play, &failed, 1));
    render(mixer, kBlock);
    mixer.post(command(MixCommand::Op::Stop, nullptr, 0));
    failed.state.store(SampleState::Failed, std::memory_order_release);
    render(mixer, kBlock);
    EXPECT_EQ(mixer.endedGeneration(0), 1u);
    EXPECT_EQ(mixer.endedGeneration(1), 1u);
}

// One decode serves every record asking for the same file; a record taken back is
// never written, and a decode nobody wants any more is kept for a reload.
TEST(BackgroundDecoding, ThePoolSharesADecodeAndNeverWritesAWithdrawnRecord) {
    TempTree tree;
    const auto loop = test::writeMono(tree.root(), "loop.wav", test::constant(0.25f, 44100), 44100);
    const auto shot = test::writeMono(tree.root(), "shot.wav", test::constant(0.5f, 4410), 22050);
    const auto bad = tree.root() / "bad.wav";
    { std::ofstream(bad) << "not a sound"; }

    // One worker, with a minute of sound queued ahead of the short one: its decode has
    // almost surely not begun when it is withdrawn. Either way, nothing may be written to
    // it from then on.
    const auto minute =
        test::writeMono(tree.root(), "minute.wav", test::constant(0.1f, 60 * 44100), 44100);
    DecodePool pool(1);
    SampleRecord ahead, first, second, withdrawn, broken;
    pool.request(*FileIdentity::of(minute), &ahead);
    pool.request(*FileIdentity::of(loop), &first);
    pool.request(*FileIdentity::of(loop), &second);
    pool.request(*FileIdentity::of(shot), &withdrawn);
    pool.request(*FileIdentity::of(bad), &broken);
    pool.hurry(&second);
    pool.withdraw(&withdrawn);
    const SampleState atWithdrawal = withdrawn.state.load();
    const std::size_t framesAtWithdrawal = frameCount(withdrawn.frames);
    pool.waitIdle();

    EXPECT_EQ(pool.outstanding(), 0u);
    for (const SampleRecord* r : {&first, &second}) {
        EXPECT_EQ(r->state.load(), SampleState::Ready);
        EXPECT_EQ(frameCount(r->frames), 44100u);
    }
    EXPECT_EQ(withdrawn.state.load(), atWithdrawal);
    EXPECT_EQ(frameCount(withdrawn.frames), framesAtWithdrawal);
    EXPECT_EQ(broken.state.load(), SampleState::Failed);
    // Withdrawn before or after its decode began: dropped, or kept for a reload.
    for (const auto& [file, decoded] : pool.takeUnclaimed()) {
        EXPECT_EQ(file, *FileIdentity::of(shot));
        EXPECT_EQ(decoded.rate, 22050);
    }
}

// Through the engine: a load returns at once, a file there that does not decode plays
// nothing and ends, and the offline render waits for every decode, so what is heard
// is the same as if each load had decoded on the spot.
TEST(BackgroundDecoding, TheEngineLoadsWithoutWaitingAndRendersAsIfItHad) {
    TempTree tree;
    const auto loop =
        test::writeMono(tree.root(), "loop.wav", test::sine(330.0, 44100, 44100), 44100);
    const auto bad = tree.root() / "bad.wav";
    { std::ofstream(bad) << "not a sound"; }
    MixerEngine engine(MixerEngine::Output::Offline);
    const SampleHandle sample = engine.loadSample(loop);
    const SampleHandle broken = engine.loadSample(bad);
    ASSERT_NE(broken, 0u);
    EXPECT_EQ(engine.loadCheckedSample(bad), 0u);
    const ChannelHandle c = engine.play(sample);
    engine.setLoopMode(c, LoopMode::Normal);
    const ChannelHandle silent = engine.play(broken);
    const std::vector<float> heard = engine.render(kBlock);
    EXPECT_FALSE(engine.isPlaying(silent));
    EXPECT_TRUE(engine.isPlaying(c));
    EXPECT_EQ(engine.soundingSamplesAwaitingDecode(), 0);

    MixerEngine checked(MixerEngine::Output::Offline);
    const ChannelHandle d = checked.play(checked.loadCheckedSample(loop));
    checked.setLoopMode(d, LoopMode::Normal);
    const std::vector<float> expected = checked.render(kBlock);
    EXPECT_EQ(0, std::memcmp(expected.data(), heard.data(), expected.size() * sizeof(float)));
}

}  // namespace
}  // namespace brevane
