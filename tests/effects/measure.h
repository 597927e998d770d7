#pragma once

// Measurements on rendered sound for the effects tests: responses, band filters, decay times.
// Everything here runs in double precision and is independent of the filters under test.

#include <vector>

#include "engine/effects/effects_chain.h"

namespace brevane::testing {

constexpr int kRate = 44100;

// Renders `frames` stereo frames of the chain's answer to a unit impulse at frame 0 on the
// chosen sides, in blocks of `block` frames. Interleaved.
std::vector<float> renderImpulse(EffectsChain& chain, int frames, bool left = true,
                                 bool right = true, int block = 1024);

// Runs interleaved `input` through the chain in blocks of `block` frames; returns the output.
std::vector<float> render(EffectsChain& chain, std::vector<float> input, int block = 1024);

// One side (0 left, 1 right) of an interleaved buffer.
std::vector<double> side(const std::vector<float>& interleaved, int which);

// Magnitude in dB of the response at `hz` of the impulse response `ir`.
double responseDb(const std::vector<double>& ir, double hz);

// `x` through a band-pass of constant 0 dB peak at `centreHz` with quality `q`, made of
// `stages` equal second-order sections: steep skirts keep a slower decay beside the band from
// leaking into the measurement.
std::vector<double> bandPass(const std::vector<double>& x, double centreHz, double q,
                             int stages = 2);

// Reverberation time from the backward-integrated energy decay of `ir`: a straight line fitted
// from `fromDb` to `toDb` below the total energy, extended to -60 dB. Seconds; 0 if the decay
// never reaches `toDb`.
double rt60(const std::vector<double>& ir, double fromDb = -5.0, double toDb = -35.0);

// Index of the first sample whose magnitude exceeds `threshold`, or -1.
int firstAbove(const std::vector<double>& x, double threshold);

// Sum of squares of x[from, to).
double energy(const std::vector<double>& x, int from, int to);

// Stereo white noise, uniform in [-amplitude, amplitude), fixed seed.
std::vector<float> noise(int frames, float amplitude = 0.5f, unsigned seed = 7);

}  // namespace brevane::testing
