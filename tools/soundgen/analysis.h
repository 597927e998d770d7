// Measurements of sounds: the figures the quality gates judge and the spectrograms of
// the sheets. Pure functions on float samples at 44100 Hz (full scale 1.0).
#pragma once

#include <complex>
#include <cstdint>
#include <span>
#include <vector>

#include "dsp.h"

namespace brevane::soundgen {

// In-place radix-2 FFT; the size must be a power of two. The inverse is scaled by 1/n.
void fft(std::vector<std::complex<double>>& a, bool inverse);

// 16-bit samples as floats, full scale 1.0 (divides by 32768).
Buffer fromPcm16(std::span<const std::int16_t> pcm);

// RMS of consecutive frames of `frame` samples (the last partial frame included).
std::vector<double> frameRms(std::span<const float> x, std::size_t frame);

// Power per band, in dB, in bands `1/bandsPerOctave` octave wide from 31.5 Hz to 16 kHz,
// from a Hann-windowed average spectrum. Silent bands read -200 dB.
std::vector<double> bandLevelsDb(std::span<const float> x, int bandsPerOctave = 3);

// Pearson correlation over the shorter length; 0 when either side is constant.
double pearson(std::span<const double> a, std::span<const double> b);

// The p-th percentile (0..100) by nearest rank.
double percentile(std::vector<double> v, double p);

// Centroid of the power spectrum, in Hz.
double spectralCentroid(std::span<const float> x);

// How strongly a ring repeats itself: the highest circular autocorrelation, as a fraction
// of the ring's power, at lags from minLag samples to (size - minLag). The spectrum is
// flattened first (and held to a ceiling), so tones and colour do not count, only
// stretches of the same waveform coming back. Noise reads about 0.005; a ring made of
// a part and its copy reads the copy's share of the ring.
struct Repetition {
    double score = 0.0;
    std::size_t lag = 0;
};
Repetition innerRepetition(std::span<const float> ring, std::size_t minLag);

// Magnitude spectrogram in dB (full-scale sine = 0 dB): `columns` frames of fftSize
// Hann-windowed samples spread evenly over the sound; bins 0..fftSize/2. A ring's frames
// wrap round its ends; a line's see silence beyond them.
struct Spectrogram {
    std::size_t columns = 0, bins = 0;
    std::vector<float> db;  // column-major: db[c * bins + k]
};
Spectrogram spectrogram(std::span<const float> x, std::size_t columns, std::size_t fftSize,
                        Edge edge = Edge::Linear);

}  // namespace brevane::soundgen
