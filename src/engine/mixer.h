// The mixing core: 32 channels of mono samples summed to stereo, then the effects chain.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

#include "engine/effects/effect_params.h"
#include "engine/mix_format.h"
#include "engine/mix_ring.h"
#include "engine/sample_decoder.h"
#include "engine/spsc_queue.h"

namespace brevane {

class EffectsChain;
class MusicStream;

// Where a sample's frames are. A pending sample is being decoded: a channel playing it
// waits, silent and at its start, and begins when the frames arrive. A failed one has
// no frames and ends at once, like any empty sample.
enum class SampleState : std::uint8_t { Ready, Pending, Failed };

// A decoded sample, owned by the interface thread and lent to the mixing thread.
struct SampleRecord {
    // Written before `state` leaves Pending (release); read only once it has (acquire).
    SampleFrames frames;
    int rate = kMixRate;  // the file's own rate, Hz
    std::atomic<SampleState> state{SampleState::Ready};

    // Mixing-thread bookkeeping: written only by the thread that mixes.
    int voiceRefs = 0;
    bool freeRequested = false;
    // Set by the mixing thread once a freed sample is no longer read by any voice. The
    // interface thread may delete the record from then on; the mixing thread never touches
    // it again.
    std::atomic<bool> released{false};
};

// An effects chain built on the interface thread and handed to the mixing thread whole.
struct ChainBox {
    ChainBox();
    ~ChainBox();
    std::unique_ptr<EffectsChain> chain;
    // Per effect, in chain order: its kind and the chain's own id for it.
    std::vector<EffectKind> kinds;
    std::vector<int> ids;
    // Set by the mixing thread once the chain no longer sounds, as for SampleRecord.
    std::atomic<bool> released{false};
};

// A change sent from the interface thread to the mixing thread. Changes take effect at
// the next sub-block boundary, in the order sent.
struct MixCommand {
    enum class Op : std::uint8_t {
        Play,        // channel, generation, sample
        Stop,        // channel, generation
        Volume,      // channel, generation, value 0..255
        Pan,         // channel, generation, value 0..255
        Loop,        // channel, generation, value 0 or 1
        Frequency,   // channel, generation, value in Hz
        Pause,       // channel, generation, value 0 or 1
        PauseAll,    // value 0 or 1
        StopSample,  // sample: stops its voices; the sample is then released
        SwapChain,   // chain (null: no effects)
        // value: position in the chain, params. Only a band is changed in place (it
        // glides); a room or an echo comes in a new chain.
        SetEqualizerBand,
    };
    Op op = Op::Stop;
    std::uint8_t channel = 0;
    std::uint32_t generation = 0;
    int value = 0;
    SampleRecord* sample = nullptr;
    ChainBox* chain = nullptr;
    std::variant<std::monostate, EqualizerBandParams, ReverbParams, EchoParams> params;
};

// The mixer itself. Two sides:
//  - the interface thread posts commands and reads what the mixer publishes;
//  - one mixing thread at a time renders (the device callback, or the caller of an
//    offline render). render() never allocates, never locks, never touches disk and
//    flushes denormals on its thread.
class Mixer {
  public:
    Mixer();
    ~Mixer();
    Mixer(const Mixer&) = delete;
    Mixer& operator=(const Mixer&) = delete;

    // ---- interface thread ----
    // False when the queue is full (the command is then not queued).
    bool post(const MixCommand& command);
    // The generation of the latest sound on `channel` that has ended by itself or after
    // a stop; a handle of that generation is then stale.
    std::uint32_t endedGeneration(int channel) const {
        return ended_[static_cast<std::size_t>(channel)].load(std::memory_order_acquire);
    }
    // Frames rendered since construction; any thread.
    std::uint64_t framesRendered() const { return framesRendered_.load(std::memory_order_relaxed); }

    // The music bus, added after the effects and before the output stage; null for none.
    // Only before mixing starts; the stream must outlive the mixing.
    void attachMusic(MusicStream* music) { music_ = music; }

    // ---- mixing thread ----
    // Renders `frames` interleaved stereo frames into `out` (overwritten).
    void render(float* out, int frames);
    // Applies every queued command without rendering. Only while no other thread mixes.
    void applyPending();
    // Drops every voice and effect at once and releases what they held. Only while no
    // other thread mixes.
    void reset();

    // A copy of everything rendered, for the recorder. The ring lives as long as the
    // mixer; the copy is made only while tapping is on, which the ring's one reader
    // switches (any thread). Copying never blocks: a full ring drops what it cannot take.
    MixRing& tapRing() { return tapRing_; }
    void setTapping(bool on) { tapping_.store(on, std::memory_order_release); }

    // Whether the mixing loop may use AVX2 where the processor has it (it does by
    // default). Either way gives the same samples; tests switch it off to check that.
    // Any thread.
    static void allowWideLoop(bool allowed);

    // The output stage: the identity below 0.8, bending smoothly above it towards 0.98,
    // so that no mix, however loud, reaches full scale.
    static float softLimit(float x);

  private:
    struct Voice {
        SampleRecord* sample = nullptr;
        std::uint32_t generation = 0;
        // Playback position and step per output frame, in input frames, fixed point
        // with 32 fraction bits. The step is off by at most 2^-33 frames: a rate error
        // below 1e-5 Hz, so two channels keep their rate difference for days.
        std::uint64_t pos = 0;
        std::uint64_t step = std::uint64_t{1} << 32;
        int volume = 255;
        int pan = 128;
        bool loop = false;
        bool paused = false;
        bool stopping = false;
        bool dirty = false;
        // Its sample was still being decoded when it started: it waits for the frames,
        // and takes its step from the sample's rate then, unless a frequency was set.
        bool waiting = false;
        bool rateUnknown = false;
        float gainL = 0.0f, gainR = 0.0f;
        float targetL = 0.0f, targetR = 0.0f;
        float stepL = 0.0f, stepR = 0.0f;
        int rampLeft = 0;
    };
    static constexpr int kTailVoices = kChannelCount;
    static constexpr int kVoices = kChannelCount + kTailVoices;

    void renderSubBlock(float* out);
    void apply(const MixCommand& c);
    Voice* channelVoice(const MixCommand& c);
    void retarget(Voice& v);
    void moveToTail(Voice& v);
    void finish(int index);
    void mixVoice(int index);
    bool advanceSilently(Voice& v, int count);
    void runEffects();
    void swapChain(ChainBox* box);
    void retire(ChainBox* box);

    SpscQueue<MixCommand> queue_;
    std::array<std::atomic<std::uint32_t>, kChannelCount> ended_{};
    std::atomic<std::uint64_t> framesRendered_{0};
    // Two seconds of the mix: room for the reader to be late by a scheduling hiccup.
    MixRing tapRing_{2 * 2 * kMixRate};
    std::atomic<bool> tapping_{false};

    // Mixing-thread state.
    std::array<Voice, kVoices> voices_{};
    alignas(64) std::array<float, kSubBlockFrames> left_{};
    alignas(64) std::array<float, kSubBlockFrames> right_{};
    alignas(64) std::array<float, 2 * kSubBlockFrames> mix_{};
    alignas(64) std::array<float, 2 * kSubBlockFrames> fadeMix_{};
    alignas(64) std::array<float, 2 * kSubBlockFrames> stash_{};
    int stashPos_ = 0;
    int stashLeft_ = 0;
    MusicStream* music_ = nullptr;
    ChainBox* chain_ = nullptr;
    bool chainHasPlayed_ = false;
    bool fading_ = false;  // the previous chain still sounds, fading out
    ChainBox* fadingChain_ = nullptr;
    int fadePos_ = 0;
};

}  // namespace brevane
