#pragma once

#include <memory>
#include <vector>

#include "engine/effects/effect_params.h"
#include "engine/effects/effect_unit.h"

namespace brevane {

class EqualizerBand;

// The effects on the whole mix: equalizer bands, room reverb and echo, run in the order they
// were enabled, in place on interleaved stereo.
//
// Ids. enable() returns a new positive id, never one given before in this chain's life (ids
// repeat only after 2^31 enables). disableAll() removes every effect; their ids are dead from
// then on, and every call with a dead id, an id never given, or an id of another kind of
// effect does nothing.
//
// Threads. The chain is not thread-safe: one thread at a time calls into it, and the caller
// hands it between threads.
// - Constructor, destructor, enable() and disableAll() allocate or free memory: interface
//   thread, while the audio thread is not processing this chain.
// - setEqualizerBand(), setReverb(), setEcho(), process(), reset() and the queries never
//   allocate, lock or wait, so they may run on the audio thread, between calls of process().
//
// Sound. process() is denormal-safe (subnormal values are flushed to zero while it runs), takes
// any frame count, and never lets a non-finite value live on in a tail: a block that comes out
// non-finite is replaced by silence and every tail is cleared.
class EffectsChain {
  public:
    // Effects beyond this many are refused; the program uses at most eleven.
    static constexpr int kMaxEffects = 32;

    // `sampleRate` in Hz; values outside 8000..192000 are clamped.
    explicit EffectsChain(int sampleRate = 44100);
    ~EffectsChain();
    EffectsChain(const EffectsChain&) = delete;
    EffectsChain& operator=(const EffectsChain&) = delete;

    // Appends a fresh effect of `kind` with its default settings (an equalizer band at
    // 1000 Hz, 18 semitones, 0 dB; the I3DL2 default room; the default echo) and no tail.
    // Returns its id, or -1 when kMaxEffects are enabled already.
    int enable(EffectKind kind);
    // Removes every effect; all ids given so far die.
    void disableAll();

    // Sets an equalizer band, a reverb or an echo. Out-of-range values are clamped.
    void setEqualizerBand(int id, const EqualizerBandParams& p);
    void setReverb(int id, const ReverbParams& p);
    void setEcho(int id, const EchoParams& p);

    // Runs every effect, in enabling order, on `frames` interleaved stereo frames at
    // `interleavedStereo` (2 * frames floats). Does nothing for a null pointer or frames <= 0.
    void process(float* interleavedStereo, int frames);
    // Clears every tail; settings and ids stay.
    void reset();
    // Carries on from `other`'s sound: the n-th effect of each kind here takes the tails of
    // the n-th effect of that kind there, keeping its own settings (see
    // EffectUnit::continueFrom); an effect without a counterpart stays silent. Lets a chain
    // rebuilt with new settings, or with an effect more or less, go on without a gap in its
    // tails. Never allocates; same thread rules as process().
    void continueFrom(const EffectsChain& other);

    int sampleRate() const { return sampleRate_; }
    int effectCount() const { return static_cast<int>(effects_.size()); }
    bool empty() const { return effects_.empty(); }

  private:
    struct Entry {
        int id;
        std::unique_ptr<EffectUnit> unit;
    };

    EffectUnit* find(int id, EffectKind kind);

    int sampleRate_;
    int nextId_ = 1;
    std::vector<Entry> effects_;
    // Per entry, the band when it is an equalizer band, else null: runs of bands are
    // processed together.
    std::vector<EqualizerBand*> bands_;
};

}  // namespace brevane
