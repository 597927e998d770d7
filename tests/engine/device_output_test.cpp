#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <random>
#include <thread>

#include "base/temp_tree.h"
#include "engine/mixer_engine.h"
#include "test_sounds.h"

namespace brevane {
namespace {

using namespace std::chrono_literals;

// Waits up to `limit` for `done`, checking every few milliseconds.
bool eventually(const std::function<bool()>& done, std::chrono::milliseconds limit = 5000ms) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (std::chrono::steady_clock::now() < end) {
        if (done()) {
            return true;
        }
        std::this_thread::sleep_for(5ms);
    }
    return done();
}

// A device that can be unplugged: its own thread calls back every 2 ms while open.
class FakeBackend final : public DeviceBackend {
  public:
    struct State {
        std::mutex mutex;
        std::vector<int> opened;  // index of each open
        bool available = true;    // whether the default device can be opened
        std::atomic<bool> plugged{true};
        std::atomic<long> callbacks{0};
    };
    explicit FakeBackend(std::shared_ptr<State> state) : state_(std::move(state)) {}
    ~FakeBackend() override { close(); }

    int deviceCount() override { return 2; }
    std::string deviceName(int index) override {
        return index == 0 ? "Speakers" : index == 1 ? "Headset" : "";
    }
    bool open(int index, int, RenderCallback callback, void* user) override {
        close();
        {
            std::lock_guard lock(state_->mutex);
            if (!state_->available) {
                return false;
            }
            state_->opened.push_back(index);
        }
        state_->plugged = true;
        running_ = true;
        thread_ = std::thread([this, callback, user] {
            std::vector<float> buffer(2 * 256);
            while (running_) {
                if (state_->plugged) {
                    callback(user, buffer.data(), 256);
                    ++state_->callbacks;
                }
                std::this_thread::sleep_for(2ms);
            }
        });
        return true;
    }
    bool alive() override { return thread_.joinable() && state_->plugged; }
    void close() override {
        running_ = false;
        if (thread_.joinable()) {
            thread_.join();
        }
    }

  private:
    std::shared_ptr<State> state_;
    std::atomic<bool> running_{false};
    std::thread thread_;
};

TEST(DeviceOutput, DriverZeroIsTheDefaultOutputAndAnUnknownNumberFallsBackToIt) {
    auto state = std::make_shared<FakeBackend::State>();
    MixerEngine engine(std::make_unique<FakeBackend>(state));
    // The default first, then the devices, so a row of the list is its driver number.
    EXPECT_EQ(engine.driverCount(), 3);
    EXPECT_EQ(engine.driverName(0), MixerEngine::kDefaultOutputName);
    EXPECT_EQ(engine.driverName(1), "Speakers");
    EXPECT_EQ(engine.driverName(2), "Headset");
    EXPECT_EQ(engine.driverName(3), "");
    for (int driver : {2, 0, 3, -4}) {
        ASSERT_TRUE(engine.start(driver));
        engine.close();
    }
    {
        std::lock_guard lock(state->mutex);
        EXPECT_EQ(state->opened, (std::vector<int>{1, -1, -1, -1}));
        state->available = false;
    }
    EXPECT_FALSE(engine.start(0));
}

TEST(DeviceOutput, ALostDeviceKeepsTheMixGoingAndItResumesOnTheDefaultDevice) {
    TempTree tree;
    auto state = std::make_shared<FakeBackend::State>();
    MixerEngine engine(std::make_unique<FakeBackend>(state));
    ASSERT_TRUE(engine.start(2));
    ASSERT_TRUE(eventually([&] { return state->callbacks > 10; }));

    // A one-shot of 0.3 s; the headset goes at once, and no device is there for a while.
    const SampleHandle shot = engine.loadSample(
        test::writeMono(tree.root(), "shot.wav", test::constant(0.5f, 13230), 44100));
    const ChannelHandle ch = engine.play(shot);
    {
        std::lock_guard lock(state->mutex);
        state->available = false;
    }
    state->plugged = false;
    const long before = state->callbacks;
    // The sound still runs its course, as if heard.
    EXPECT_TRUE(eventually([&] { return !engine.isPlaying(ch); }));
    EXPECT_LE(state->callbacks - before, 1);
    const std::uint64_t rendered = engine.framesRendered();
    EXPECT_TRUE(eventually([&] { return engine.framesRendered() > rendered + 4410; }));

    {
        std::lock_guard lock(state->mutex);
        state->available = true;
    }
    EXPECT_TRUE(eventually([&] { return state->callbacks > before + 10; }));
    {
        std::lock_guard lock(state->mutex);
        EXPECT_EQ(state->opened.back(), -1);
    }
    engine.close();
}

// The SDL output with its "dummy" driver, which plays to nowhere at the real pace.
class SdlDummyOutput : public ::testing::Test {
  protected:
    void SetUp() override { setenv("SDL_AUDIODRIVER", "dummy", 0); }
};

TEST_F(SdlDummyOutput, MixesOnTheDeviceThreadUntilClosed) {
    TempTree tree;
    MixerEngine engine(MixerEngine::Output::Device);
    ASSERT_TRUE(engine.start(0));
    EXPECT_TRUE(eventually([&] { return engine.framesRendered() > 44100 / 4; }));
    // A one-shot ends on the device thread and its channel is freed.
    const ChannelHandle ch = engine.play(engine.loadSample(
        test::writeMono(tree.root(), "short.wav", test::constant(0.3f, 441), 44100)));
    ASSERT_NE(ch, 0u);
    EXPECT_TRUE(eventually([&] { return !engine.isPlaying(ch); }));
    engine.close();
    const std::uint64_t stopped = engine.framesRendered();
    std::this_thread::sleep_for(200ms);
    EXPECT_EQ(engine.framesRendered(), stopped);
}

// Interface calls of every kind while the device thread mixes; run under
// ThreadSanitizer this is the check that the two sides share nothing unguarded.
TEST_F(SdlDummyOutput, InterfaceCallsStayConsistentWhileTheDeviceMixes) {
    TempTree tree;
    const std::filesystem::path shortShot =
        test::writeMono(tree.root(), "short.wav", test::constant(0.3f, 441), 44100);
    const std::filesystem::path loop =
        test::writeMono(tree.root(), "loop.wav", test::sine(220.0, 22050, 22050), 22050);
    MixerEngine engine(MixerEngine::Output::Device);
    ASSERT_TRUE(engine.start(0));

    std::mt19937 random(7);
    std::vector<SampleHandle> samples = {engine.loadSample(shortShot), engine.loadSample(loop)};
    std::vector<ChannelHandle> channels;
    const auto end = std::chrono::steady_clock::now() + 1500ms;
    int calls = 0;
    while (std::chrono::steady_clock::now() < end) {
        const SampleHandle s = samples[random() % samples.size()];
        const ChannelHandle ch = engine.play(s);
        ASSERT_NE(ch, 0u);
        channels.push_back(ch);
        const ChannelHandle any = channels[random() % channels.size()];
        switch (random() % 5) {
            case 0:
                engine.setVolume(any, static_cast<int>(random() % 300));
                engine.setPan(any, static_cast<int>(random() % 256));
                engine.setFrequency(any, 8000 + static_cast<int>(random() % 80000));
                break;
            case 1:
                engine.setLoopMode(any, LoopMode::Normal);
                engine.setPaused(any, random() % 2 == 0);
                break;
            case 2:
                engine.stop(any);
                EXPECT_FALSE(engine.isPlaying(any));
                break;
            case 3: {
                // Free a sample while it may play, and load it again.
                const std::size_t k = random() % samples.size();
                engine.freeSample(samples[k]);
                samples[k] = engine.loadSample(k == 0 ? shortShot : loop);
                ASSERT_NE(samples[k], 0u);
                break;
            }
            case 4:
                engine.setAllPaused(true);
                engine.disableEffects();
                engine.setReverb(engine.enableEffect(EffectKind::Reverb), ReverbParams{});
                engine.setAllPaused(false);
                break;
        }
        ++calls;
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 2000));
    }
    EXPECT_GT(calls, 100);
    EXPECT_GT(engine.framesRendered(), 44100u / 2);
    engine.close();
    EXPECT_EQ(engine.samplesAwaitingRelease(), 0u);
}

}  // namespace
}  // namespace brevane
