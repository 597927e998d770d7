#include "voice_probe.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

#include "analysis.h"

namespace brevane::soundgen::probe {

namespace {

// Power spectrum of a Hann-windowed, zero-padded copy; bin k is k * rate / size Hz.
std::vector<double> power(std::span<const float> x, double& binHz) {
    std::size_t size = 8192;
    while (size < x.size()) {
        size <<= 1;
    }
    std::vector<std::complex<double>> a(size);
    const double last = static_cast<double>(std::max<std::size_t>(x.size(), 2) - 1);
    for (std::size_t i = 0; i < x.size(); ++i) {
        const double w =
            0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * static_cast<double>(i) / last);
        a[i] = x[i] * w;
    }
    fft(a, false);
    binHz = static_cast<double>(kRate) / static_cast<double>(size);
    std::vector<double> p(size / 2 + 1);
    for (std::size_t k = 0; k < p.size(); ++k) {
        p[k] = std::norm(a[k]);
    }
    return p;
}

}  // namespace

double peakHz(std::span<const float> x, double lo, double hi) {
    double binHz = 0.0;
    const auto p = power(x, binHz);
    std::size_t best = 0;
    for (std::size_t k = 1; k < p.size(); ++k) {
        const double f = static_cast<double>(k) * binHz;
        if (f >= lo && f <= hi && (best == 0 || p[k] > p[best])) {
            best = k;
        }
    }
    return static_cast<double>(best) * binHz;
}

double bandShareDb(std::span<const float> x, double lo, double hi) {
    double binHz = 0.0;
    const auto p = power(x, binHz);
    double in = 0.0, all = 0.0;
    for (std::size_t k = 1; k < p.size(); ++k) {
        const double f = static_cast<double>(k) * binHz;
        all += p[k];
        if (f >= lo && f <= hi) {
            in += p[k];
        }
    }
    return 10.0 * std::log10(std::max(in, 1e-30) / std::max(all, 1e-30));
}

Pitch pitch(std::span<const float> x, double minHz, double maxHz) {
    const auto lo = static_cast<std::size_t>(kRate / maxHz);
    const auto hi = static_cast<std::size_t>(kRate / minHz);
    Pitch best;
    if (x.size() <= hi + 1) {
        return best;
    }
    const std::size_t n = x.size() - hi;
    for (std::size_t d = lo; d <= hi; ++d) {
        double xy = 0.0, xx = 0.0, yy = 0.0;
        for (std::size_t i = 0; i < n; ++i) {
            xy += static_cast<double>(x[i]) * x[i + d];
            xx += static_cast<double>(x[i]) * x[i];
            yy += static_cast<double>(x[i + d]) * x[i + d];
        }
        const double r = xy / std::sqrt(std::max(xx * yy, 1e-30));
        if (r > best.strength) {
            best = {static_cast<double>(kRate) / static_cast<double>(d), r};
        }
    }
    return best;
}

std::vector<double> onsets(std::span<const float> x, double merge, double rangeDb) {
    const std::size_t frame = samples(0.005);
    const auto levels = frameRms(x, frame);
    if (levels.empty()) {
        return {};
    }
    const double floor = *std::max_element(levels.begin(), levels.end()) * dbToGain(-rangeDb);
    std::vector<double> out;
    bool rising = false;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        // Before the start is silence.
        const double before =
            i < 6 ? 0.0
                  : *std::min_element(levels.begin() + static_cast<std::ptrdiff_t>(i - 6),
                                      levels.begin() + static_cast<std::ptrdiff_t>(i));
        const double t = static_cast<double>(i * frame) / kRate;
        // Only the first frame of a leap starts an event; a sound staying loud is not a new one.
        const bool leap = levels[i] > floor && levels[i] > 4.0 * before;
        if (leap && !rising && (out.empty() || t - out.back() > merge)) {
            out.push_back(t);
        }
        rising = leap;
    }
    return out;
}

std::span<const float> stretch(std::span<const float> x, double from, double to) {
    const std::size_t a = std::min(x.size(), samples(from));
    const std::size_t b = std::min(x.size(), samples(to));
    return x.subspan(a, b > a ? b - a : 0);
}

double rmsBetween(std::span<const float> x, double from, double to) {
    const auto s = stretch(x, from, to);
    return s.empty() ? 0.0 : rmsOf(s);
}

}  // namespace brevane::soundgen::probe
