#include "base/random.h"

#include <chrono>
#include <cmath>

namespace brevane {

namespace {
std::uint64_t splitmix(std::uint64_t& x) {
    std::uint64_t z = (x += 0x9e3779b97f4a7c15ULL);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
}
std::uint64_t rotl(std::uint64_t x, int k) {
    return (x << k) | (x >> (64 - k));
}
}  // namespace

void Random::seed_(std::uint64_t seed) {
    for (auto& s : s_) {
        s = splitmix(seed);
    }
}

void Random::reseedFromClock() {
    seed_(static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) ^
          static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count()));
}

double Random::next() {
    // xoshiro256**
    const std::uint64_t result = rotl(s_[1] * 5, 7) * 9;
    const std::uint64_t t = s_[1] << 17;
    s_[2] ^= s_[0];
    s_[3] ^= s_[1];
    s_[1] ^= s_[2];
    s_[0] ^= s_[3];
    s_[2] ^= t;
    s_[3] = rotl(s_[3], 45);
    return static_cast<double>(result >> 11) * 0x1.0p-53;
}

int Random::roll(int n) {
    if (n <= 0) {
        return 0;
    }
    return static_cast<int>(std::floor(next() * n));
}

}  // namespace brevane
