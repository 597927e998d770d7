// Sound files made by the tests, and measurements of rendered output.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <vector>

#include "engine/sample_decoder.h"
#include "engine/sound_file_writer.h"

namespace brevane::test {

// `frames` frames of a sine of `hz` at `rate`, peak `amplitude`.
std::vector<float> sine(double hz, int rate, std::size_t frames, float amplitude = 0.5f);
// `frames` frames all at `value`.
std::vector<float> constant(float value, std::size_t frames);

// Writes mono frames to `dir / name` and returns the path; fails the test on error.
std::filesystem::path writeMono(const std::filesystem::path& dir, const char* name,
                                const std::vector<float>& frames, int rate,
                                SoundFileFormat format = SoundFileFormat::WavFloat);

// Decoded frames as floats of full scale 1, however they are kept.
std::vector<float> asFloats(const SampleFrames& frames);

// One side of interleaved stereo: 0 left, 1 right, frames [from, to).
std::vector<float> side(std::span<const float> stereo, int which, std::size_t from = 0,
                        std::size_t to = static_cast<std::size_t>(-1));
double rms(std::span<const float> x);
double peak(std::span<const float> x);
// Largest change between neighbouring values: a click shows as a jump.
double largestStep(std::span<const float> x);
// Frequency of a clean periodic signal from its rising zero crossings, interpolated
// between samples; 0 when fewer than two crossings.
double measureFrequency(std::span<const float> x, int rate);

}  // namespace brevane::test
