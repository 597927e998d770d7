// Grain clouds: many short events (drops, clicks, bubbles, pebbles) scattered in time.
// Events are placed with Poisson timing; a grain that runs past the end of a circular
// buffer comes round to its start, so clouds in loops have no seam.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "dsp.h"

namespace brevane::soundgen {

// Event times (sample positions, ascending) of a Poisson process of `rate` events per
// second over n samples. With a density curve (values 0..1, length n) the rate at each
// sample is rate * density, by thinning.
std::vector<std::size_t> poissonTimes(Rng& rng, std::size_t n, double rate,
                                      const Buffer* density = nullptr);

// Start times of events spread round a ring of n samples with gaps between minGap and
// maxGap seconds, the gap from the last event round to the first included: surges of
// the sea, calls in a living loop. The first event comes at a random place.
std::vector<std::size_t> ringSchedule(Rng& rng, std::size_t n, double minGap, double maxGap);

// Adds gain * grain into out starting at pos. Linear: the part past the end is dropped.
// Circular: it wraps round to the start.
void addGrain(Buffer& out, std::size_t pos, std::span<const float> grain, double gain, Edge edge);
// Adds a single value at pos (an impulse for a resonator's excitation), wrapping like addGrain.
void addImpulse(Buffer& out, std::size_t pos, double value, Edge edge);

// A short burst of white noise under a fast-attack exponential decay: the body of a tick,
// a splash or a crackle. attack and t60 in seconds; unit peak envelope.
Buffer noiseBurst(Rng& rng, double attack, double t60);

// A noise burst through a band-pass at hz (quality q): a tap, a splat or a crackle.
Buffer bandBurst(Rng& rng, double attack, double t60, double hz, double q);

// An air bubble in water: a sine whose pitch rises as it rings (hz at the start, rising by
// `rise` times per second), dying by 60 dB over t60 seconds. Unit peak amplitude.
Buffer bubble(double hz, double rise, double t60);

// A soft click: one cycle of a raised cosine `width` seconds wide, unit peak.
Buffer bump(double width);

// Scatters grains: for each event time, make(rng) gives the grain and its gain.
struct Grain {
    Buffer samples;
    double gain = 1.0;
};
void scatter(Buffer& out, Rng& rng, double rate, const Buffer* density, Edge edge,
             const std::function<Grain(Rng&, std::size_t)>& make);

}  // namespace brevane::soundgen
