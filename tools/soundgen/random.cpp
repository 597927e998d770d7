#include "random.h"

#include <cmath>
#include <numbers>

namespace brevane::soundgen {

Rng::Rng(std::uint64_t seed) : random_(seed) {}

Rng Rng::fromName(std::string_view name, std::uint64_t salt) {
    std::uint64_t h = 0xCBF29CE484222325ull;
    for (char c : name) {
        h ^= static_cast<unsigned char>(c);
        h *= 0x100000001B3ull;
    }
    return Rng(h ^ (salt * 0x9E3779B97F4A7C15ull));
}

double Rng::uniform() {
    return random_.next();
}

double Rng::uniform(double lo, double hi) {
    return lo + (hi - lo) * uniform();
}

int Rng::below(int n) {
    return random_.roll(n);
}

double Rng::normal() {
    const double u1 = 1.0 - uniform();  // (0, 1]: log stays finite
    const double u2 = uniform();
    return std::sqrt(-2.0 * std::log(u1)) * std::cos(2.0 * std::numbers::pi * u2);
}

double Rng::exponential(double mean) {
    return -mean * std::log(1.0 - uniform());
}

double Rng::logUniform(double lo, double hi) {
    return lo * std::exp(std::log(hi / lo) * uniform());
}

Rng Rng::fork() {
    return Rng(static_cast<std::uint64_t>(uniform() * 0x1.0p64));
}

}  // namespace brevane::soundgen
