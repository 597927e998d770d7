#pragma once
// The program's one random source: uniform in [0, 1), seedable so tests repeat.
// Not thread-safe: it belongs to the event thread.

#include <cstdint>

namespace brevane {

class Random {
  public:
    explicit Random(std::uint64_t seed = 0x5eed5eedULL) { seed_(seed); }

    void seed(std::uint64_t seed) { seed_(seed); }
    // A fresh sequence from the time, as the program does once at start.
    void reseedFromClock();

    // Uniform in [0, 1), 53 bits.
    double next();
    // "Roll n": floor(r x n), an integer in [0, n) for n > 0; 0 for n <= 0.
    int roll(int n);

  private:
    void seed_(std::uint64_t seed);
    std::uint64_t s_[4];
};

}  // namespace brevane
