// The generator's deterministic random source. Every sound draws from its own Rng,
// seeded from its file name, so a sound's bytes never depend on which thread made it
// or on which other sounds exist.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/random.h"

namespace brevane::soundgen {

// The program's random source (brevane::Random) with the draws sound design needs on
// top. Not thread-safe: one instance per user.
class Rng {
  public:
    explicit Rng(std::uint64_t seed);
    // A stream fixed by a name (FNV-1a of the text) and an optional salt.
    static Rng fromName(std::string_view name, std::uint64_t salt = 0);

    // Uniform in [0, 1).
    double uniform();
    // Uniform in [lo, hi).
    double uniform(double lo, double hi);
    // Uniform integer in [0, n); 0 when n <= 0.
    int below(int n);
    bool chance(double p) { return uniform() < p; }
    // Standard normal (Box-Muller, no cached second value, so draws stay in step).
    double normal();
    // Exponential with the given mean.
    double exponential(double mean);
    // Uniform on a log scale in [lo, hi), for frequencies and sizes.
    double logUniform(double lo, double hi);
    // An independent child stream: the parent advances by one draw.
    Rng fork();

  private:
    brevane::Random random_;
};

}  // namespace brevane::soundgen
