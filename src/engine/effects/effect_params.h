#pragma once

// Parameters of the effects on the whole mix: the equalizer bands, the room reverb and the
// echo. Plain values, no behaviour beyond clamping; safe to copy between threads by value.

namespace brevane {

// What an effect id of the chain stands for.
enum class EffectKind { Equalizer, Reverb, Echo };

// One peaking band of the equalizer.
struct EqualizerBandParams {
    float centreHz = 1000.0f;          // centre frequency, Hz
    float bandwidthSemitones = 18.0f;  // width of the band, semitones
    float gainDb = 0.0f;               // gain at the centre, dB; acts within -15..+15
};

// The room reverb, in the units of the I3DL2 interface. The initialisers are the I3DL2
// defaults. The comment after each member gives the range it acts in; a value outside is
// clamped into that range when the reverb takes it (see clampedToRange).
struct ReverbParams {
    float room = -1000.0f;            // mB, -10000..0: level of the reverberant sound
    float roomHF = -100.0f;           // mB, -10000..0: its cut at hfReference
    float roomRolloffFactor = 0.0f;   // 0..10: distance roll-off; the mix has no distance
    float decayTime = 1.49f;          // s, 0.1..20: late decay at low frequencies
    float decayHFRatio = 0.83f;       // 0.1..2: decay at hfReference over decayTime
    float reflections = -2602.0f;     // mB, -10000..1000: level of the early reflections
    float reflectionsDelay = 0.007f;  // s, 0..0.3: first reflection after the direct sound
    float reverb = 200.0f;            // mB, -10000..2000: level of the late reverb
    float reverbDelay = 0.011f;       // s, 0..0.1: late reverb after the first reflection
    float diffusion = 100.0f;         // %, 0..100: echo density of the late reverb
    float density = 100.0f;           // %, 0..100: modal density of the late reverb
    float hfReference = 5000.0f;      // Hz, 20..20000: reference frequency of the HF values
};

// A stereo echo.
struct EchoParams {
    float wetDryMix = 50.0f;      // %, 0..100: share of the echoed sound in the output
    float feedback = 50.0f;       // %, 0..100: share of each repeat fed into the next
    float leftDelayMs = 500.0f;   // ms, 1..2000: delay of the left repeats
    float rightDelayMs = 500.0f;  // ms, 1..2000: delay of the right repeats
    bool panDelay = false;        // repeats swap sides on each pass
};

// The same parameters with every value brought into the range it acts in. Values outside a
// range are clamped, never refused, so that every setting of the effects panel has an effect;
// a NaN takes the default. A reflections level of +11000 mB or more is the effects panel's
// Reflections slider, sent as value + 11000: it is read as value - 10000, then clamped.
EqualizerBandParams clampedToRange(const EqualizerBandParams& p);
ReverbParams clampedToRange(const ReverbParams& p);
EchoParams clampedToRange(const EchoParams& p);

}  // namespace brevane
