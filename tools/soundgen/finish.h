// Turning a rendered buffer into a stock file's samples: loop closing, the choice of a
// loop's start, loudness and peak normalisation, peak limiting and the 16-bit form.
#pragma once

#include <cstdint>
#include <vector>

#include "dsp.h"

namespace brevane::soundgen {

// Loudness of a loop, and the peak of a one-shot, in dB below full scale.
inline constexpr double kLoopRmsDbfs = -20.0;
inline constexpr double kOneShotPeakDbfs = -3.0;
// Highest peak a loop may keep after limiting.
inline constexpr double kLoopCeilingDbfs = -1.0;
// How far a loop's RMS may move from kLoopRmsDbfs to even out loudness as heard.
inline constexpr double kLoudnessRoomDb = 1.5;

// For a recipe that renders in a straight line: `rendered` holds loopLength samples plus
// an overlap; the overlap is laid over the start with equal-power curves, so the loop's
// last sample runs on into its first. Returns loopLength samples (the input itself when
// it has no overlap).
Buffer closeLoopByCrossfade(const Buffer& rendered, std::size_t loopLength);

// The best place to begin a ring: where the level in the 50 ms before and after matches
// most closely and the step between the two neighbouring samples is small.
std::size_t steadyLoopStart(const Buffer& ring);
// Rotates so that `start` becomes sample 0.
void rotate(Buffer& b, std::size_t start);

// Lowers the gain around every peak above `ceiling` (linear) so none is left, with
// smooth gain changes over `window` samples on each side; a ring is treated as a ring.
void limitPeaks(Buffer& b, double ceiling, Edge edge, std::size_t window);

// The float-to-16-bit step: rounds, and keeps one step short of full scale.
std::vector<std::int16_t> toPcm16(const Buffer& b);

// The level a loudness meter's K-weighting (a high shelf of +4 dB above 1.7 kHz, a
// high-pass at 38 Hz) gives the ring, in dB against its plain RMS: low for dull sounds,
// high for bright ones.
double loudnessTilt(const Buffer& ring);

// A loop ring: mean removed; RMS at kLoopRmsDbfs, moved by up to kLoudnessRoomDb so that
// dull and bright loops sound alike in loudness (by loudnessTilt against pink noise);
// peaks under kLoopCeilingDbfs; started at its steadiest point.
std::vector<std::int16_t> finishLoop(Buffer ring);
// A one-shot: starts at its onset (the first sample within 28 dB of the peak), ends in a
// fade to silence once it has died away, peak at kOneShotPeakDbfs.
std::vector<std::int16_t> finishOneShot(Buffer b);
// A ring that must keep its start (a chime): mean removed, peak at kOneShotPeakDbfs.
std::vector<std::int16_t> finishChime(Buffer ring);

}  // namespace brevane::soundgen
