// The real sound engine: our mixer on a sound device, or rendering into memory.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <variant>
#include <vector>

#include "engine/decode_cache.h"
#include "engine/decode_pool.h"
#include "engine/device_backend.h"
#include "engine/device_output.h"
#include "engine/mixer.h"
#include "engine/music_stream.h"
#include "engine/sound_engine.h"

namespace brevane {

// SoundEngine on our own mixer.
//
// Output::Device plays through SDL2, mixing on its audio thread. Output::Offline mixes
// only when render() is called: the same mixer, for tests, benchmarks and recording.
// Calls take effect at the next sub-block boundary of the render, so the same calls and
// renders always give the same samples.
//
// Thread: every member on the interface thread (render() too, in offline mode). No
// member waits on the mixing thread, except close() and the destructor, which stop it.
class MixerEngine final : public SoundEngine {
  public:
    enum class Output { Device, Offline };
    // Driver 0 on a device output: whatever the system plays through by default, followed
    // as the sound server's default changes. Drivers 1 on are the backend's devices.
    static constexpr const char* kDefaultOutputName = "the system's default output";
    explicit MixerEngine(Output output);
    // Device output on the given backend (tests supply one without hardware).
    explicit MixerEngine(std::unique_ptr<DeviceBackend> backend);
    ~MixerEngine() override;
    MixerEngine(const MixerEngine&) = delete;
    MixerEngine& operator=(const MixerEngine&) = delete;

    int driverCount() override;
    std::string driverName(int driver) override;
    bool start(int driver) override;
    void close() override;

    SampleHandle loadSample(const std::filesystem::path& file) override;
    SampleHandle loadCheckedSample(const std::filesystem::path& file) override;
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
    MediaPlayer* mediaPlayer() override { return music_.get(); }

    // Offline output only: renders `frames` interleaved stereo frames into `out`, once
    // every load asked for so far is decoded, and piece by piece as the music streams,
    // so that the same calls always give the same samples. Does nothing in device
    // output.
    void render(float* out, int frames);
    std::vector<float> render(int frames);

    // The mixer itself, for the recorder's tap on what it plays.
    Mixer& mixer() { return *mixer_; }

    // Frames mixed since construction, on any output.
    std::uint64_t framesRendered() const { return mixer_->framesRendered(); }
    // Length in frames and own rate of a loaded sample, once decoded (these wait for
    // the decode); 0 for no sample.
    std::size_t sampleFrames(SampleHandle sample);
    int sampleRate(SampleHandle sample);
    // Samples held by a sounding channel whose frames are not in yet: while this is
    // above 0 some of what should be heard is not.
    int soundingSamplesAwaitingDecode() const;
    // Decodes asked for and not finished.
    std::size_t decodesOutstanding() { return decoder_.outstanding(); }
    // Freed samples whose memory the mixer has not given back yet.
    std::size_t samplesAwaitingRelease() const { return freedSamples_.size(); }
    // Effects chains built and not yet given back by the mixer (the sounding one included).
    std::size_t chainsHeld() const { return chains_.size(); }

  private:
    struct Channel {
        std::uint32_t generation = 0;
        SampleHandle sample = 0;
        std::uint64_t serial = 0;  // order of starting
        bool loop = false;
        bool live = false;  // not stopped nor freed (it may have ended by itself)
    };
    struct Effect {
        EffectKind kind;
        std::variant<std::monostate, EqualizerBandParams, ReverbParams, EchoParams> params;
    };

    // The channel index of a handle that is still current, or -1.
    int channelOf(ChannelHandle handle) const;
    bool busy(int channel) const;
    int pickChannel() const;
    void send(const MixCommand& command);
    void sendToChannel(ChannelHandle handle, MixCommand::Op op, int value);
    bool mixingElsewhere() const;
    void collectReleased();
    // A decode of this very file that is already at hand: a loaded or just-freed sample
    // of it, or one kept a moment ago.
    std::optional<DecodedSample> decodeAtHand(const FileIdentity& file);
    // Whether a loaded sample, or a freed one the mixer still reads, is of this file.
    bool heldElsewhere(const FileIdentity& file) const;
    // The record of a sample, or null.
    SampleRecord* recordOf(SampleHandle sample) const;
    SampleHandle keepRecord(std::unique_ptr<SampleRecord> record, FileIdentity file);
    std::unique_ptr<ChainBox> buildChain(const std::vector<Effect>& effects) const;
    // Hands a built chain to the mixer, which fades to it; null does nothing.
    void swapInChain(std::unique_ptr<ChainBox> box);
    // Keeps the settings of effect `id` for the chains built later; false when `id` is
    // not an effect of that kind in the chain.
    bool keepParams(
        int id, EffectKind kind,
        const std::variant<std::monostate, EqualizerBandParams, ReverbParams, EchoParams>& params);

    Output output_;
    // Before the mixer: the mixing stops before the stream goes.
    std::unique_ptr<MusicStream> music_;
    std::unique_ptr<Mixer> mixer_;
    std::unique_ptr<DeviceBackend> backend_;
    std::unique_ptr<DeviceOutput> device_;

    std::array<Channel, kChannelCount> channels_{};
    std::uint32_t nextGeneration_ = 1;
    std::uint64_t nextSerial_ = 1;

    std::unordered_map<SampleHandle, std::unique_ptr<SampleRecord>> samples_;
    SampleHandle nextSample_ = 1;
    std::vector<std::unique_ptr<SampleRecord>> freedSamples_;
    // The file behind each sample above, loaded or awaiting release.
    std::unordered_map<const SampleRecord*, FileIdentity> sampleFiles_;
    // Room for a whole bank of half-minute loops between a bank's stop and its restart.
    DecodeCache recentDecodes_{std::size_t{128} << 20, std::chrono::seconds(5)};
    // Last of the sample members: destroyed first, so no worker writes a record that has
    // gone.
    DecodePool decoder_{DecodePool::defaultWorkers()};

    std::vector<Effect> effects_;
    std::vector<std::unique_ptr<ChainBox>> chains_;  // sent to the mixer, until it releases them
};

}  // namespace brevane
