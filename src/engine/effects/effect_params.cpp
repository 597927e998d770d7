#include "engine/effects/effect_params.h"

#include <algorithm>
#include <cmath>

namespace brevane {

namespace {

// Brings v into [lo, hi]; a NaN takes `fallback`.
float clampOr(float v, float lo, float hi, float fallback) {
    if (std::isnan(v)) {
        return fallback;
    }
    return std::clamp(v, lo, hi);
}

// The effects panel sends its Reflections slider, 0 to 11000, as value + 11000: always
// above this range, where a plain clamp would pin every setting at +1000 mB, ten
// decibels of early reflections over the room whatever the slider says. Such a level is
// read as the slider's own span laid on the range, value - 10000 mB, so the slider acts
// over the whole range and its default of 7398 gives the I3DL2 default of -2602 mB.
constexpr float kPanelReflectionsFloor = 11000.0f;
constexpr float kPanelReflectionsShift = 21000.0f;

}  // namespace

EqualizerBandParams clampedToRange(const EqualizerBandParams& p) {
    const EqualizerBandParams d;
    EqualizerBandParams r;
    // The centre stays below the Nyquist frequency of any rate we run at; the width between a
    // semitone fraction and eight octaves keeps the filter well formed.
    r.centreHz = clampOr(p.centreHz, 10.0f, 20000.0f, d.centreHz);
    r.bandwidthSemitones = clampOr(p.bandwidthSemitones, 0.1f, 96.0f, d.bandwidthSemitones);
    r.gainDb = clampOr(p.gainDb, -15.0f, 15.0f, d.gainDb);
    return r;
}

ReverbParams clampedToRange(const ReverbParams& p) {
    const ReverbParams d;
    ReverbParams r;
    // Every value outside its I3DL2 range is clamped into it rather than refused, so each
    // slider of the effects panel acts.
    r.room = clampOr(p.room, -10000.0f, 0.0f, d.room);
    r.roomHF = clampOr(p.roomHF, -10000.0f, 0.0f, d.roomHF);
    r.roomRolloffFactor = clampOr(p.roomRolloffFactor, 0.0f, 10.0f, d.roomRolloffFactor);
    r.decayTime = clampOr(p.decayTime, 0.1f, 20.0f, d.decayTime);
    r.decayHFRatio = clampOr(p.decayHFRatio, 0.1f, 2.0f, d.decayHFRatio);
    r.reflections =
        clampOr(p.reflections >= kPanelReflectionsFloor ? p.reflections - kPanelReflectionsShift
                                                        : p.reflections,
                -10000.0f, 1000.0f, d.reflections);
    r.reflectionsDelay = clampOr(p.reflectionsDelay, 0.0f, 0.3f, d.reflectionsDelay);
    r.reverb = clampOr(p.reverb, -10000.0f, 2000.0f, d.reverb);
    r.reverbDelay = clampOr(p.reverbDelay, 0.0f, 0.1f, d.reverbDelay);
    r.diffusion = clampOr(p.diffusion, 0.0f, 100.0f, d.diffusion);
    r.density = clampOr(p.density, 0.0f, 100.0f, d.density);
    r.hfReference = clampOr(p.hfReference, 20.0f, 20000.0f, d.hfReference);
    return r;
}

EchoParams clampedToRange(const EchoParams& p) {
    const EchoParams d;
    EchoParams r;
    r.wetDryMix = clampOr(p.wetDryMix, 0.0f, 100.0f, d.wetDryMix);
    r.feedback = clampOr(p.feedback, 0.0f, 100.0f, d.feedback);
    r.leftDelayMs = clampOr(p.leftDelayMs, 1.0f, 2000.0f, d.leftDelayMs);
    r.rightDelayMs = clampOr(p.rightDelayMs, 1.0f, 2000.0f, d.rightDelayMs);
    r.panDelay = p.panDelay;
    return r;
}

}  // namespace brevane
