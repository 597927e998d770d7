#include "engine/effects/effects_chain.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "engine/effects/denormals.h"
#include "engine/effects/equalizer_band.h"
#include "engine/effects/room_reverb.h"
#include "engine/effects/stereo_echo.h"

namespace brevane {

EffectsChain::EffectsChain(int sampleRate) : sampleRate_(std::clamp(sampleRate, 8000, 192000)) {
    effects_.reserve(kMaxEffects);
    bands_.reserve(kMaxEffects);
}

EffectsChain::~EffectsChain() = default;

int EffectsChain::enable(EffectKind kind) {
    if (effectCount() >= kMaxEffects) {
        return -1;
    }
    std::unique_ptr<EffectUnit> unit;
    EqualizerBand* band = nullptr;
    const double rate = sampleRate_;
    switch (kind) {
        case EffectKind::Equalizer: {
            auto made = std::make_unique<EqualizerBand>(rate);
            band = made.get();
            unit = std::move(made);
            break;
        }
        case EffectKind::Reverb:
            unit = std::make_unique<RoomReverb>(rate);
            break;
        case EffectKind::Echo:
            unit = std::make_unique<StereoEcho>(rate);
            break;
    }
    if (!unit) {
        return -1;
    }
    const int id = nextId_;
    nextId_ = (nextId_ == INT_MAX) ? 1 : nextId_ + 1;
    effects_.push_back(Entry{id, std::move(unit)});
    bands_.push_back(band);
    return id;
}

void EffectsChain::disableAll() {
    effects_.clear();
    bands_.clear();
}

EffectUnit* EffectsChain::find(int id, EffectKind kind) {
    for (Entry& e : effects_) {
        if (e.id == id) {
            return e.unit->kind() == kind ? e.unit.get() : nullptr;
        }
    }
    return nullptr;
}

void EffectsChain::setEqualizerBand(int id, const EqualizerBandParams& p) {
    if (EffectUnit* u = find(id, EffectKind::Equalizer)) {
        static_cast<EqualizerBand*>(u)->set(p);
    }
}

void EffectsChain::setReverb(int id, const ReverbParams& p) {
    if (EffectUnit* u = find(id, EffectKind::Reverb)) {
        static_cast<RoomReverb*>(u)->set(p);
    }
}

void EffectsChain::setEcho(int id, const EchoParams& p) {
    if (EffectUnit* u = find(id, EffectKind::Echo)) {
        static_cast<StereoEcho*>(u)->set(p);
    }
}

void EffectsChain::process(float* interleavedStereo, int frames) {
    if (interleavedStereo == nullptr || frames <= 0 || effects_.empty()) {
        return;
    }
    const ScopedFlushDenormals flush;
    const std::size_t count = effects_.size();
    for (std::size_t i = 0; i < count;) {
        if (bands_[i] == nullptr) {
            effects_[i].unit->process(interleavedStereo, frames);
            ++i;
            continue;
        }
        std::size_t run = 1;
        while (i + run < count && bands_[i + run] != nullptr &&
               run < std::size_t{EqualizerBand::kMaxSeries}) {
            ++run;
        }
        EqualizerBand::processSeries(&bands_[i], static_cast<int>(run), interleavedStereo, frames);
        i += run;
    }
    // x * 0 is 0 for every finite x and NaN for infinities and NaNs: one pass finds them.
    float probe = 0.0f;
    for (int i = 0; i < 2 * frames; ++i) {
        probe += interleavedStereo[i] * 0.0f;
    }
    if (probe != 0.0f) {
        std::fill(interleavedStereo, interleavedStereo + 2 * frames, 0.0f);
        reset();
    }
}

void EffectsChain::reset() {
    for (Entry& e : effects_) {
        e.unit->reset();
    }
}

void EffectsChain::continueFrom(const EffectsChain& other) {
    if (&other == this) {
        return;
    }
    for (std::size_t i = 0; i < effects_.size(); ++i) {
        EffectUnit& unit = *effects_[i].unit;
        // Which effect of its kind this one is, and the same one in the other chain.
        int nth = 0;
        for (std::size_t j = 0; j < i; ++j) {
            nth += effects_[j].unit->kind() == unit.kind() ? 1 : 0;
        }
        for (const Entry& theirs : other.effects_) {
            if (theirs.unit->kind() == unit.kind() && nth-- == 0) {
                unit.continueFrom(*theirs.unit);
                break;
            }
        }
    }
}

}  // namespace brevane
