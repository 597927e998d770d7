// Measurements the creature tests judge sounds by: where a sound's spectrum peaks, how much
// of its power lies in a band, the pitch it repeats at, and where its events begin.
#pragma once

#include <span>
#include <vector>

#include "dsp.h"

namespace brevane::soundgen::probe {

// Frequency of the strongest spectral peak between lo and hi Hz.
double peakHz(std::span<const float> x, double lo, double hi);
// Share of the power between lo and hi Hz, in dB (0 all of it).
double bandShareDb(std::span<const float> x, double lo, double hi);
// The pitch the waveform repeats at, searched between minHz and maxHz, and how strongly it
// repeats there (normalised autocorrelation, 1 exact).
struct Pitch {
    double hz = 0.0;
    double strength = 0.0;
};
Pitch pitch(std::span<const float> x, double minHz, double maxHz);
// Starts of events (seconds): moments where the 5 ms level leaps 12 dB above the quietest of
// the 30 ms before it and stands within `rangeDb` of the loudest moment, no closer than
// `merge` seconds to the previous start.
std::vector<double> onsets(std::span<const float> x, double merge, double rangeDb = 40.0);
// The stretch from `from` to `to` seconds, cut short at the end of the sound.
std::span<const float> stretch(std::span<const float> x, double from, double to);
// RMS of a stretch in seconds.
double rmsBetween(std::span<const float> x, double from, double to);

}  // namespace brevane::soundgen::probe
