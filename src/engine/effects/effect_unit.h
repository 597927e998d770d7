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
};

}  // namespace brevane
