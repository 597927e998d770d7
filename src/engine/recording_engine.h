// A stand-in for the sound engine that records every call, for tests of the order and
// arguments of engine calls.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "engine/sound_engine.h"

namespace brevane {

// Records each call with its arguments (as given, before any clamping) and its result,
// in order. Plays no sound and reads no file: every load succeeds unless the path was
// named by failLoading(). Sample and channel handles count up from 1 and are never
// reused. A channel plays until it is stopped, its sample is freed, endChannel() ends it
// or the engine closes; calls on a stale or 0 handle are recorded and change nothing.
// Effect ids count up from 0 and start again at 0 after disableEffects().
//
// Thread: one thread, like the engine it stands for.
class RecordingEngine final : public SoundEngine {
  public:
    enum class Op {
        DriverCount,
        DriverName,
        Start,
        Close,
        LoadSample,
        FreeSample,
        Play,
        Stop,
        SetVolume,
        SetPan,
        SetLoopMode,
        SetFrequency,
        SetPaused,
        SetAllPaused,
        IsPlaying,
        EnableEffect,
        DisableEffects,
        SetEqualizerBand,
        SetReverb,
        SetEcho,
    };
    using EffectParams =
        std::variant<std::monostate, EqualizerBandParams, ReverbParams, EchoParams>;

    struct Call {
        Op op;
        std::filesystem::path path;  // LoadSample
        // First integer argument: driver, sample, channel, effect id or kind; else 0.
        std::int64_t a = 0;
        // Second integer argument: volume, pan, loop mode (0 Off, 1 Normal), Hz, or a flag
        // (0 or 1); else 0.
        std::int64_t b = 0;
        // What the call returned: a handle, an id, a count, 0 or 1 for a truth; else 0.
        std::int64_t result = 0;
        EffectParams params;
        // The call as one line of text, e.g. "setVolume(3, 200)" or "play(1) -> 2".
        std::string text() const;
    };

    // How a channel stands after the calls so far.
    struct ChannelState {
        SampleHandle sample = 0;
        int volume = 255;
        int pan = 128;
        LoopMode loop = LoopMode::Off;
        int frequency = 0;  // 0: the sample's own rate
        bool paused = false;
        bool playing = true;
    };

    // ---- scripting ----
    void failLoading(const std::filesystem::path& file) { failing_.insert(file); }
    void setStartResult(bool ok) { startResult_ = ok; }
    void setDrivers(std::vector<std::string> names) { drivers_ = std::move(names); }
    // The channel's sound ends by itself (as a one-shot does at its end).
    void endChannel(ChannelHandle channel);

    // ---- what was called ----
    const std::vector<Call>& calls() const { return calls_; }
    std::vector<Call> callsOf(Op op) const;
    // The calls as text, one per line, for failure messages. Queries (driverCount,
    // driverName, isPlaying) are left out unless asked for.
    std::string dump(bool withQueries = false) const;
    std::vector<std::string> lines(bool withQueries = false) const;
    void clearCalls() { calls_.clear(); }

    // ---- state ----
    // Null for a handle that was never given out; `playing` tells whether it still plays.
    const ChannelState* channel(ChannelHandle channel) const;
    bool isLoaded(SampleHandle sample) const { return loaded_.count(sample) != 0; }
    std::size_t loadedCount() const { return loaded_.size(); }
    std::size_t playingCount() const;
    bool started() const { return started_; }
    const std::vector<EffectKind>& effects() const { return effects_; }

    // ---- SoundEngine ----
    int driverCount() override;
    std::string driverName(int driver) override;
    bool start(int driver) override;
    void close() override;
    SampleHandle loadSample(const std::filesystem::path& file) override;
    // Recorded as a load like any other: the double has no decoding to wait for.
    SampleHandle loadCheckedSample(const std::filesystem::path& file) override {
        return loadSample(file);
    }
    void freeSample(SampleHandle sample) override;
    ChannelHandle play(SampleHandle sample) override;
    void stop(ChannelHandle channel) override;
    void setVolume(ChannelHandle channel, int volume) override;
    void setPan(ChannelHandle channel, int pan) override;
    void setLoopMode(ChannelHandle channel, LoopMode mode) override;
    void setFrequency(ChannelHandle channel, int hz) override;
    void setPaused(ChannelHandle channel, bool paused) override;
    void setAllPaused(bool paused) override;
    bool isPlaying(ChannelHandle channel) override;
    int enableEffect(EffectKind kind) override;
    void disableEffects() override;
    void setEqualizerBand(int id, const EqualizerBandParams& p) override;
    void setReverb(int id, const ReverbParams& p) override;
    void setEcho(int id, const EchoParams& p) override;

  private:
    Call& record(Op op, std::int64_t a = 0, std::int64_t b = 0);
    ChannelState* live(ChannelHandle channel);

    std::vector<Call> calls_;
    std::set<std::filesystem::path> failing_;
    std::vector<std::string> drivers_{"Default device"};
    bool startResult_ = true;
    bool started_ = false;
    std::set<SampleHandle> loaded_;
    std::map<ChannelHandle, ChannelState> channels_;
    SampleHandle nextSample_ = 1;
    ChannelHandle nextChannel_ = 1;
    std::vector<EffectKind> effects_;
};

}  // namespace brevane
