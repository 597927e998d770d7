#include "grains.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace brevane::soundgen {

std::vector<std::size_t> poissonTimes(Rng& rng, std::size_t n, double rate, const Buffer* density) {
    std::vector<std::size_t> times;
    if (rate <= 0.0 || n == 0) {
        return times;
    }
    const double mean = kRate / rate;
    double t = rng.exponential(mean);
    while (t < static_cast<double>(n)) {
        const auto i = static_cast<std::size_t>(t);
        const double keep =
            density ? std::clamp(static_cast<double>((*density)[i]), 0.0, 1.0) : 1.0;
        // One draw per candidate whatever the density, so the stream stays in step.
        if (rng.uniform() < keep) {
            times.push_back(i);
        }
        t += rng.exponential(mean);
    }
    return times;
}

std::vector<std::size_t> ringSchedule(Rng& rng, std::size_t n, double minGap, double maxGap) {
    const double total = static_cast<double>(n) / kRate;
    const double mean = 0.5 * (minGap + maxGap);
    const int count = std::max(1, static_cast<int>(std::lround(total / mean)));
    // Draw the gaps, then stretch them together to fill the ring exactly; a stretch that
    // pushes a gap out of its range is spread over the others by drawing again.
    std::vector<double> gaps(static_cast<std::size_t>(count));
    for (int attempt = 0; attempt < 64; ++attempt) {
        double sum = 0.0;
        for (auto& g : gaps) {
            g = rng.uniform(minGap, maxGap);
            sum += g;
        }
        const double k = total / sum;
        bool fits = true;
        for (auto& g : gaps) {
            g *= k;
            fits = fits && g >= minGap * 0.97 && g <= maxGap * 1.03;
        }
        if (fits) {
            break;
        }
    }
    std::vector<std::size_t> times;
    double at = rng.uniform(0.0, total);
    for (double g : gaps) {
        times.push_back(samples(std::fmod(at, total)) % n);
        at += g;
    }
    std::sort(times.begin(), times.end());
    return times;
}

void addGrain(Buffer& out, std::size_t pos, std::span<const float> grain, double gain, Edge edge) {
    const std::size_t n = out.size();
    if (n == 0) {
        return;
    }
    const auto g = static_cast<float>(gain);
    if (edge == Edge::Linear) {
        for (std::size_t k = 0; k < grain.size() && pos + k < n; ++k) {
            out[pos + k] += g * grain[k];
        }
        return;
    }
    std::size_t j = pos % n;
    for (float v : grain) {
        out[j] += g * v;
        if (++j == n) {
            j = 0;
        }
    }
}

void addImpulse(Buffer& out, std::size_t pos, double value, Edge edge) {
    if (out.empty()) {
        return;
    }
    if (edge == Edge::Circular) {
        pos %= out.size();
    } else if (pos >= out.size()) {
        return;
    }
    out[pos] += static_cast<float>(value);
}

Buffer noiseBurst(Rng& rng, double attack, double t60) {
    const std::size_t a = std::max<std::size_t>(1, samples(attack));
    const std::size_t n = a + samples(t60);
    Buffer b(n);
    const double k = std::exp(-6.907755 / (std::max(t60, 1e-4) * kRate));
    double env = 1.0;
    for (std::size_t i = 0; i < n; ++i) {
        double e;
        if (i < a) {
            e = static_cast<double>(i + 1) / static_cast<double>(a);
        } else {
            e = env;
            env *= k;
        }
        b[i] = static_cast<float>(e * (2.0 * rng.uniform() - 1.0));
    }
    return b;
}

Buffer bandBurst(Rng& rng, double attack, double t60, double hz, double q) {
    Buffer b = noiseBurst(rng, attack, t60);
    Biquad bp = Biquad::bandpass(hz, q);
    for (auto& v : b) {
        v = bp(v);
    }
    return b;
}

Buffer bubble(double hz, double rise, double t60) {
    const std::size_t n = samples(t60);
    Buffer b(n);
    const double k = std::exp(-6.907755 / (std::max(t60, 1e-4) * kRate));
    double env = 1.0, phase = 0.0;
    const std::size_t attack = std::max<std::size_t>(1, samples(0.0004));
    for (std::size_t i = 0; i < n; ++i) {
        const double t = static_cast<double>(i) / kRate;
        const double f = hz * (1.0 + rise * t);
        const double a = i < attack ? static_cast<double>(i) / static_cast<double>(attack) : 1.0;
        b[i] = static_cast<float>(a * env * std::sin(phase));
        phase += 2 * std::numbers::pi * f / kRate;
        env *= k;
    }
    const double peak = peakOf(b);
    if (peak > 0.0) {
        scale(b, 1.0 / peak);
    }
    return b;
}

Buffer bump(double width) {
    const std::size_t n = std::max<std::size_t>(2, samples(width));
    Buffer b(n);
    for (std::size_t i = 0; i < n; ++i) {
        b[i] =
            static_cast<float>(0.5 - 0.5 * std::cos(2 * std::numbers::pi * static_cast<double>(i) /
                                                    static_cast<double>(n - 1)));
    }
    return b;
}

void scatter(Buffer& out, Rng& rng, double rate, const Buffer* density, Edge edge,
             const std::function<Grain(Rng&, std::size_t)>& make) {
    for (std::size_t t : poissonTimes(rng, out.size(), rate, density)) {
        const Grain g = make(rng, t);
        addGrain(out, t, g.samples, g.gain, edge);
    }
}

}  // namespace brevane::soundgen
