// Creature voices: the sources and shapers that birds, insects, frogs and farm animals are
// made of. Each function renders one sound event (a syllable, a cry, a buzz, a run of
// strikes) into a fresh buffer that starts at its onset; recipes place events in time with
// addGrain. Plain single-threaded code: every call draws only from the Rng it is given.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "dsp.h"

namespace brevane::soundgen {

// A control curve over an event's own time: (seconds, value) breakpoints, joined smoothly
// and held flat past either end (see envelope()).
using Curve = std::vector<Point>;

// Samples a curve over n samples; a one-point curve is a constant, an empty one `otherwise`.
Buffer curveOf(std::size_t n, const Curve& c, double otherwise = 0.0);

// A straight run from one value to another over `seconds`.
Curve glide(double seconds, double from, double to);
// Up to a peak two fifths of the way, then on to `to`.
Curve chevron(double seconds, double from, double peak, double to);

// A gate that swells from silence over `attack` seconds, holds at 1 and dies away over
// `release` seconds by the end of `seconds`: the default level of an event.
Curve swell(double seconds, double attack, double release);

// ---- tonal syllables: birdsong, hoots, whistles, cries ----------------------------------

struct Syllable {
    double seconds = 0.1;
    Curve hz;                   // pitch contour
    Curve level;                // amplitude contour; empty: swell(seconds, 10 ms, 20 ms) or less
    double vibratoHz = 0.0;     // pitch wobble...
    double vibratoDepth = 0.0;  // ...as a fraction of the pitch
    double tremoloHz = 0.0;     // level pulsing (a rattling trill, an owl's quaver)...
    double tremoloDepth = 0.0;  // ...0 none, 1 down to silence at every trough
    // Amplitudes of harmonics 1, 2, 3...; harmonics at or above 20 kHz are left out.
    std::vector<double> partials{1.0};
    // Sine modulation of the phase at fmRatio times the pitch: buzzy and nasal notes.
    double fmRatio = 0.0, fmIndex = 0.0;
    // Random wobble of the pitch (a fraction of it, changing `roughHz` times a second):
    // harsh screeches and cries.
    double roughness = 0.0, roughHz = 300.0;
    // Noise that follows the pitch through a band-pass of quality breathQ, as a share of
    // the whole (0 pure tone, 1 all noise): breathy coos, hissing screeches.
    double breath = 0.0, breathQ = 4.0;
};
// Unit peak; exactly samples(seconds) long.
Buffer syllable(Rng& rng, const Syllable& s);

// ---- voiced calls through a vocal tract: moos, bleats, meows, crows, honks, barks --------

struct Formant {
    Curve hz;         // centre, moving as the mouth opens and closes
    double q = 5.0;   // sharpness of the resonance
    double db = 0.0;  // its level
};

struct Voice {
    double seconds = 0.5;
    Curve f0;     // pitch of the glottal pulses
    Curve level;  // empty: swell(seconds, 40 ms, 80 ms)
    double vibratoHz = 0.0, vibratoDepth = 0.0;
    double tremoloHz = 0.0, tremoloDepth = 0.0;
    double jitter = 0.006;      // random change of every period, fraction
    double shimmer = 0.05;      // random change of every pulse's strength, fraction
    double openQuotient = 0.6;  // share of a period the folds are open
    double closing = 0.3;       // share of the open phase spent closing: smaller is brighter
    // 0..1: every other period longer and weaker, the subharmonic of a rough, strained voice.
    double roughness = 0.0;
    double breath = 0.08;  // aspiration noise beside the voiced part
    Curve voicing;         // 0..1 voiced share over time; empty: voiced throughout
    std::vector<Formant> formants;
};
// Unit peak; exactly samples(seconds) long.
Buffer voice(Rng& rng, const Voice& v);

// ---- wings --------------------------------------------------------------------------------

struct Buzz {
    double seconds = 1.0;
    Curve hz;               // wingbeat rate
    Curve level;            // empty: swell(seconds, 50 ms, 100 ms)
    double wobbleHz = 6.0;  // the slow wavering of a hovering wingbeat...
    double wobble = 0.02;   // ...as a fraction of the rate
    // 0..0.95: how sharp each wing stroke is; higher is richer in harmonics, buzzier.
    double sharpness = 0.8;
    double air = 0.1;  // turbulent noise riding on the strokes
    Curve body;        // centre of a broad resonance of the body, Hz; empty: none
};
// A pulse train at the wingbeat rate (band-limited by a geometric fall of its harmonics),
// with vibrato and air noise. Unit peak.
Buffer buzz(Rng& rng, const Buzz& b);

// ---- strikes through resonant bodies: clicks, rasps, tymbals, croaks, hooves -----------------

struct Strike {
    double t = 0.0;  // seconds from the buffer's start
    double gain = 1.0;
    double width = 0.0003;  // of the raised-cosine push; wider is softer and darker
};
// The pushes of the strikes, for a body to ring; those past the end wrap round a
// circular buffer, or are dropped from a linear one.
Buffer strikes(std::size_t n, std::span<const Strike> s, Edge edge);
// Rings a buffer through a modal body (in place).
void ring(Buffer& b, std::span<const Mode> modes, Edge edge);

// Onsets (seconds) of a rhythm of groups: each group `perGroup` pulses `pulseGap` apart,
// groups `groupGap` apart from start to start, every gap stretched or shrunk at random by up
// to `jitter` (a fraction), all between `from` and `to`.
std::vector<double> rhythm(Rng& rng, double from, double to, int perGroup, double pulseGap,
                           double groupGap, double jitter);

// ---- place and space ----------------------------------------------------------------------

// Adds gain * event into out from `t` seconds on, growing out when the event runs past its
// end: how calls are laid out into a take.
void place(Buffer& out, double t, std::span<const float> event, double gain = 1.0);

// Moves a sound through distance along `nearness` (0 far, 1 close, over the buffer's own
// time): far away it is 30 dB lower and dull (a low-pass near 500 Hz, opening an octave
// for every tenth of nearness or so), close it is full and open.
void distance(Buffer& b, const Curve& nearness, Edge edge);
// A one-shot heard in a space: pads the sound with `t60` of silence and adds `wet` of a
// room's tail. Far calls over water or in a wood.
Buffer inSpace(Buffer b, double t60, double sizeMs, double dampHz, double wet);

}  // namespace brevane::soundgen
