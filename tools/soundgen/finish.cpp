#include "finish.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <numbers>

namespace brevane::soundgen {

Buffer closeLoopByCrossfade(const Buffer& rendered, std::size_t loopLength) {
    if (rendered.size() <= loopLength) {
        return rendered;
    }
    const std::size_t overlap = std::min(rendered.size() - loopLength, loopLength);
    Buffer out(rendered.begin(), rendered.begin() + static_cast<std::ptrdiff_t>(loopLength));
    for (std::size_t i = 0; i < overlap; ++i) {
        const double u = (static_cast<double>(i) + 0.5) / static_cast<double>(overlap);
        const double in = std::sin(u * std::numbers::pi / 2);
        const double outGain = std::cos(u * std::numbers::pi / 2);
        out[i] = static_cast<float>(in * rendered[i] + outGain * rendered[loopLength + i]);
    }
    return out;
}

std::size_t steadyLoopStart(const Buffer& ring) {
    const std::size_t n = ring.size();
    const std::size_t w = samples(0.05);
    if (n < 4 * w) {
        return 0;
    }
    // Prefix sums of squares over the ring doubled, so any window is a difference.
    std::vector<double> pre(2 * n + 1, 0.0);
    for (std::size_t i = 0; i < 2 * n; ++i) {
        const double v = ring[i % n];
        pre[i + 1] = pre[i] + v * v;
    }
    auto energy = [&](std::size_t from, std::size_t len) { return pre[from + len] - pre[from]; };
    std::vector<float> jumps(n);
    for (std::size_t i = 0; i < n; ++i) {
        jumps[i] = std::fabs(ring[i] - ring[(i + n - 1) % n]);
    }
    std::vector<float> sorted = jumps;
    std::nth_element(sorted.begin(), sorted.begin() + static_cast<std::ptrdiff_t>(n / 2),
                     sorted.end());
    const float median = sorted[n / 2];

    std::size_t best = 0;
    double bestCost = 1e300;
    const std::size_t step = samples(0.001);
    for (std::size_t s = w; s < n + w; s += step) {
        const double before = energy(s - w, w), after = energy(s, w);
        if (before <= 0.0 || after <= 0.0) {
            continue;
        }
        const double cost = std::fabs(10.0 * std::log10(before / after));
        if (cost < bestCost) {
            bestCost = cost;
            best = s % n;
        }
    }
    // Settle on the smoothest sample step near the chosen place.
    std::size_t pick = best;
    for (std::size_t d = 0; d <= step; ++d) {
        const std::size_t j = (best + d) % n;
        if (jumps[j] <= median) {
            pick = j;
            break;
        }
    }
    return pick;
}

void rotate(Buffer& b, std::size_t start) {
    if (!b.empty()) {
        std::rotate(b.begin(), b.begin() + static_cast<std::ptrdiff_t>(start % b.size()), b.end());
    }
}

void limitPeaks(Buffer& b, double ceiling, Edge edge, std::size_t window) {
    const std::size_t n = b.size();
    if (n == 0 || peakOf(b) <= ceiling) {
        return;
    }
    const std::size_t w = std::max<std::size_t>(1, window);
    // Needed gain over the buffer extended by 2w on each side (a ring wraps, a line is 1).
    const std::size_t ext = n + 4 * w;
    std::vector<double> need(ext);
    for (std::size_t k = 0; k < ext; ++k) {
        const auto i = static_cast<std::ptrdiff_t>(k) - static_cast<std::ptrdiff_t>(2 * w);
        double v;
        if (i >= 0 && i < static_cast<std::ptrdiff_t>(n)) {
            v = b[static_cast<std::size_t>(i)];
        } else if (edge == Edge::Circular) {
            const auto m = static_cast<std::ptrdiff_t>(n);
            v = b[static_cast<std::size_t>(((i % m) + m) % m)];
        } else {
            v = 0.0;
        }
        const double a = std::fabs(v);
        need[k] = a > ceiling ? ceiling / a : 1.0;
    }
    // Sliding minimum over 2w+1 samples, then a moving average over the same span: the
    // average at a peak only takes values at or below the gain that peak needs.
    std::vector<double> minimum(ext, 1.0);
    std::deque<std::size_t> q;
    for (std::size_t k = 0; k < ext; ++k) {
        while (!q.empty() && need[q.back()] >= need[k]) {
            q.pop_back();
        }
        q.push_back(k);
        if (q.front() + 2 * w < k) {
            q.pop_front();
        }
        if (k >= w) {
            minimum[k - w] = need[q.front()];
        }
    }
    std::vector<double> sum(ext + 1, 0.0);
    for (std::size_t k = 0; k < ext; ++k) {
        sum[k + 1] = sum[k] + minimum[k];
    }
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t k = i + 2 * w;
        const double g = (sum[k + w + 1] - sum[k - w]) / static_cast<double>(2 * w + 1);
        b[i] = static_cast<float>(b[i] * g);
    }
}

std::vector<std::int16_t> toPcm16(const Buffer& b) {
    std::vector<std::int16_t> out(b.size());
    for (std::size_t i = 0; i < b.size(); ++i) {
        const double v = std::round(static_cast<double>(b[i]) * 32767.0);
        out[i] = static_cast<std::int16_t>(std::clamp(v, -32766.0, 32766.0));
    }
    return out;
}

namespace {

void removeMean(Buffer& b) {
    if (b.empty()) {
        return;
    }
    double sum = 0.0;
    for (float v : b) {
        sum += v;
    }
    const auto mean = static_cast<float>(sum / static_cast<double>(b.size()));
    for (float& v : b) {
        v -= mean;
    }
}

}  // namespace

double loudnessTilt(const Buffer& x) {
    Buffer k = x;
    filter(k, Edge::Circular, {Biquad::highShelf(1682.0, 4.0), Biquad::highpass(38.0, 0.5)});
    const double plain = rmsOf(x), weighted = rmsOf(k);
    return plain > 0.0 && weighted > 0.0 ? gainToDb(weighted / plain) : 0.0;
}

std::vector<std::int16_t> finishLoop(Buffer ring) {
    removeMean(ring);
    // Pink noise sets the reference: a loop duller than pink sounds quieter at the same
    // RMS, so it is given a little more level, a brighter one a little less.
    static const double pinkTilt = [] {
        Rng rng(1);
        return loudnessTilt(pinkNoise(rng, samples(4.0), Edge::Circular));
    }();
    const double lift =
        std::clamp(pinkTilt - loudnessTilt(ring), -kLoudnessRoomDb, kLoudnessRoomDb);
    const double target = dbToGain(kLoopRmsDbfs + lift);
    const double ceiling = dbToGain(kLoopCeilingDbfs);
    for (int pass = 0; pass < 4; ++pass) {
        normaliseRms(ring, target);
        if (peakOf(ring) <= ceiling) {
            break;
        }
        limitPeaks(ring, ceiling * 0.98, Edge::Circular, samples(0.004));
    }
    limitPeaks(ring, ceiling, Edge::Circular, samples(0.004));
    rotate(ring, steadyLoopStart(ring));
    return toPcm16(ring);
}

std::vector<std::int16_t> finishOneShot(Buffer b) {
    filter(b, Edge::Linear, {Biquad::highpass(10.0)});
    const double peak = peakOf(b);
    if (peak <= 0.0) {
        return toPcm16(b);
    }
    // Begin just before the first sample within 28 dB of the peak: a one-shot is heard
    // the moment it is fired, and whatever crept in more quietly before that is lost in
    // any soundscape it plays over.
    std::size_t first = 0;
    while (first < b.size() && std::fabs(b[first]) < peak * dbToGain(-28.0)) {
        ++first;
    }
    const std::size_t start = first - std::min(first, samples(0.0005));
    std::size_t last = b.size() - 1;
    while (last > start && std::fabs(b[last]) < peak * dbToGain(-54.0)) {
        --last;
    }
    const std::size_t end = std::min(b.size(), last + samples(0.01));
    Buffer out(b.begin() + static_cast<std::ptrdiff_t>(start),
               b.begin() + static_cast<std::ptrdiff_t>(end));
    const std::size_t in = std::min(out.size(), samples(0.0005));
    for (std::size_t i = 0; i < in; ++i) {
        out[i] *= static_cast<float>(static_cast<double>(i) / static_cast<double>(in));
    }
    const std::size_t fade =
        std::min(out.size(), std::clamp(out.size() / 6, samples(0.05), samples(1.0)));
    for (std::size_t i = 0; i < fade; ++i) {
        const double u = static_cast<double>(i + 1) / static_cast<double>(fade);
        out[out.size() - fade + i] *=
            static_cast<float>(0.5 + 0.5 * std::cos(u * std::numbers::pi));
    }
    scale(out, dbToGain(kOneShotPeakDbfs) / peakOf(out));
    return toPcm16(out);
}

std::vector<std::int16_t> finishChime(Buffer ring) {
    removeMean(ring);
    const double peak = peakOf(ring);
    if (peak > 0.0) {
        scale(ring, dbToGain(kOneShotPeakDbfs) / peak);
    }
    return toPcm16(ring);
}

}  // namespace brevane::soundgen
