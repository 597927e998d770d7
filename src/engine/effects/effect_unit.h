#pragma once

#include "engine/effects/effect_params.h"

namespace brevane {

// One effect of the chain, working in place on interleaved stereo frames.
//
// Thread: process() and reset() never allocate, lock or make system calls, so they may run on
// the audio thread; the constructor allocates every buffer the unit will ever use. A unit is
// used by one thread at a time.
class EffectUnit {
  public:
    virtual ~EffectUnit() = default;
    virtual EffectKind kind() const = 0;
    // `frames` >= 0 stereo frames at `io`; any count, including 0 and odd ones.
    virtual void process(float* io, int frames) = 0;
    // Clears every tail and history: the next output depends only on the next input.
    virtual void reset() = 0;
    // Carries on from where `other` stands: takes its tails and histories and keeps this
    // unit's own settings, so that a chain rebuilt with new settings goes on sounding
    // instead of starting from silence. `other` is a unit of the same kind built for the
    // same rate; anything else leaves this unit as it is. No allocation.
    virtual void continueFrom(const EffectUnit& other) = 0;
};

}  // namespace brevane
