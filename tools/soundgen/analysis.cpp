#include "analysis.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace brevane::soundgen {

namespace {

constexpr double kPi = std::numbers::pi;

std::size_t nextPow2(std::size_t n) {
    std::size_t p = 1;
    while (p < n) {
        p <<= 1;
    }
    return p;
}

std::vector<double> hann(std::size_t n) {
    std::vector<double> w(n);
    for (std::size_t i = 0; i < n; ++i) {
        w[i] = 0.5 - 0.5 * std::cos(2 * kPi * static_cast<double>(i) / static_cast<double>(n));
    }
    return w;
}

// Welch average of |X|^2 over Hann frames of n samples, half overlapping; n/2+1 bins.
std::vector<double> averagePower(std::span<const float> x, std::size_t n) {
    std::vector<double> power(n / 2 + 1, 0.0);
    const auto w = hann(n);
    std::vector<std::complex<double>> buf(n);
    std::size_t frames = 0;
    for (std::size_t start = 0; frames == 0 || start + n <= x.size(); start += n / 2) {
        for (std::size_t i = 0; i < n; ++i) {
            buf[i] = start + i < x.size() ? w[i] * x[start + i] : 0.0;
        }
        fft(buf, false);
        for (std::size_t k = 0; k <= n / 2; ++k) {
            power[k] += std::norm(buf[k]);
        }
        ++frames;
    }
    for (auto& p : power) {
        p /= static_cast<double>(frames);
    }
    return power;
}

}  // namespace

void fft(std::vector<std::complex<double>>& a, bool inverse) {
    const std::size_t n = a.size();
    for (std::size_t i = 1, j = 0; i < n; ++i) {
        std::size_t bit = n >> 1;
        for (; j & bit; bit >>= 1) {
            j ^= bit;
        }
        j ^= bit;
        if (i < j) {
            std::swap(a[i], a[j]);
        }
    }
    for (std::size_t len = 2; len <= n; len <<= 1) {
        const double ang = 2 * kPi / static_cast<double>(len) * (inverse ? 1 : -1);
        const std::size_t half = len / 2;
        std::vector<std::complex<double>> tw(half);
        for (std::size_t k = 0; k < half; ++k) {
            tw[k] = std::polar(1.0, ang * static_cast<double>(k));
        }
        for (std::size_t i = 0; i < n; i += len) {
            for (std::size_t k = 0; k < half; ++k) {
                const auto u = a[i + k];
                const auto v = a[i + k + half] * tw[k];
                a[i + k] = u + v;
                a[i + k + half] = u - v;
            }
        }
    }
    if (inverse) {
        for (auto& v : a) {
            v /= static_cast<double>(n);
        }
    }
}

Buffer fromPcm16(std::span<const std::int16_t> pcm) {
    Buffer b(pcm.size());
    for (std::size_t i = 0; i < pcm.size(); ++i) {
        b[i] = static_cast<float>(pcm[i] / 32768.0);
    }
    return b;
}

std::vector<double> frameRms(std::span<const float> x, std::size_t frame) {
    std::vector<double> out;
    for (std::size_t s = 0; s < x.size(); s += frame) {
        out.push_back(rmsOf(x.subspan(s, std::min(frame, x.size() - s))));
    }
    return out;
}

std::vector<double> bandLevelsDb(std::span<const float> x, int bandsPerOctave) {
    constexpr std::size_t kFft = 8192;
    const auto power = averagePower(x, kFft);
    const double binHz = static_cast<double>(kRate) / kFft;
    std::vector<double> out;
    const double step = std::pow(2.0, 1.0 / bandsPerOctave);
    for (double centre = 31.5; centre <= 16000.0 * 1.001; centre *= step) {
        const double lo = centre / std::sqrt(step), hi = centre * std::sqrt(step);
        double sum = 0.0;
        for (auto k = static_cast<std::size_t>(std::ceil(lo / binHz));
             k <= static_cast<std::size_t>(hi / binHz) && k < power.size(); ++k) {
            sum += power[k];
        }
        out.push_back(sum > 0.0 ? 10.0 * std::log10(sum) : -200.0);
    }
    return out;
}

double pearson(std::span<const double> a, std::span<const double> b) {
    const std::size_t n = std::min(a.size(), b.size());
    if (n < 2) {
        return 0.0;
    }
    double ma = 0, mb = 0;
    for (std::size_t i = 0; i < n; ++i) {
        ma += a[i];
        mb += b[i];
    }
    ma /= static_cast<double>(n);
    mb /= static_cast<double>(n);
    double sab = 0, saa = 0, sbb = 0;
    for (std::size_t i = 0; i < n; ++i) {
        sab += (a[i] - ma) * (b[i] - mb);
        saa += (a[i] - ma) * (a[i] - ma);
        sbb += (b[i] - mb) * (b[i] - mb);
    }
    if (saa <= 0.0 || sbb <= 0.0) {
        return 0.0;
    }
    return sab / std::sqrt(saa * sbb);
}

double percentile(std::vector<double> v, double p) {
    if (v.empty()) {
        return 0.0;
    }
    const auto rank = static_cast<std::size_t>(std::clamp(
        std::ceil(p / 100.0 * static_cast<double>(v.size())), 1.0, static_cast<double>(v.size())));
    std::nth_element(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(rank - 1), v.end());
    return v[rank - 1];
}

double spectralCentroid(std::span<const float> x) {
    constexpr std::size_t kFft = 4096;
    const auto power = averagePower(x, kFft);
    double num = 0.0, den = 0.0;
    for (std::size_t k = 0; k < power.size(); ++k) {
        const double hz = static_cast<double>(k) * kRate / kFft;
        num += hz * power[k];
        den += power[k];
    }
    return den > 0.0 ? num / den : 0.0;
}

Repetition innerRepetition(std::span<const float> ring, std::size_t minLag) {
    // A quarter of the rate keeps everything below 5 kHz, which is plenty to recognise
    // a waveform coming back, at a sixteenth of the cost.
    constexpr std::size_t kDecimate = 4;
    Buffer low(ring.begin(), ring.end());
    filter(low, Edge::Circular, {Biquad::lowpass(4500.0), Biquad::lowpass(4500.0)});
    const std::size_t n = low.size() / kDecimate;
    const std::size_t lag0 = minLag / kDecimate;
    if (n < 4 || 2 * lag0 >= n) {
        return {};
    }
    const std::size_t size = nextPow2(2 * n);
    std::vector<std::complex<double>> a(size);
    for (std::size_t i = 0; i < n; ++i) {
        a[i] = low[i * kDecimate];
    }
    fft(a, false);
    // Flatten the spectrum by its own average over about 30 Hz, drop everything under
    // 30 Hz, and hold every bin to at most 4 times its neighbourhood.
    const double binHz = static_cast<double>(kRate) / kDecimate / static_cast<double>(size);
    const auto radius = std::max<std::size_t>(1, static_cast<std::size_t>(15.0 / binHz));
    const std::size_t half = size / 2;
    std::vector<double> mag(half + 1), sum(half + 2, 0.0);
    for (std::size_t k = 0; k <= half; ++k) {
        mag[k] = std::abs(a[k]);
        sum[k + 1] = sum[k] + mag[k];
    }
    const double floor = 1e-12 * (sum[half + 1] / static_cast<double>(half + 1) + 1e-30);
    const auto cut = static_cast<std::size_t>(30.0 / binHz);
    std::vector<std::complex<double>> p(size, 0.0);
    for (std::size_t k = cut; k <= half; ++k) {
        const std::size_t lo = k > radius ? k - radius : 0, hi = std::min(half, k + radius);
        const double avg = (sum[hi + 1] - sum[lo]) / static_cast<double>(hi - lo + 1);
        const double wm = std::min(mag[k] / std::max(avg, floor), 4.0);
        p[k] = wm * wm;
        if (k > 0 && k < half) {
            p[size - k] = p[k];
        }
    }
    fft(p, true);
    const double r0 = p[0].real();
    Repetition best;
    if (r0 <= 0.0) {
        return best;
    }
    for (std::size_t d = lag0; d + lag0 <= n; ++d) {
        const double r = (p[d].real() + p[n - d].real()) / r0;
        if (r > best.score) {
            best.score = r;
            best.lag = d * kDecimate;
        }
    }
    return best;
}

Spectrogram spectrogram(std::span<const float> x, std::size_t columns, std::size_t fftSize,
                        Edge edge) {
    Spectrogram s;
    s.columns = columns;
    s.bins = fftSize / 2 + 1;
    s.db.assign(s.columns * s.bins, -200.0f);
    const auto w = hann(fftSize);
    const double wsum = std::accumulate(w.begin(), w.end(), 0.0);
    std::vector<std::complex<double>> buf(fftSize);
    for (std::size_t c = 0; c < columns; ++c) {
        const double centre = (static_cast<double>(c) + 0.5) * static_cast<double>(x.size()) /
                              static_cast<double>(columns);
        const auto start =
            static_cast<std::ptrdiff_t>(centre) - static_cast<std::ptrdiff_t>(fftSize / 2);
        for (std::size_t i = 0; i < fftSize; ++i) {
            const auto size = static_cast<std::ptrdiff_t>(x.size());
            auto j = start + static_cast<std::ptrdiff_t>(i);
            if (edge == Edge::Circular && size > 0) {
                j = ((j % size) + size) % size;
            }
            buf[i] = (j >= 0 && j < size) ? w[i] * x[static_cast<std::size_t>(j)] : 0.0;
        }
        fft(buf, false);
        for (std::size_t k = 0; k < s.bins; ++k) {
            const double amp = 2.0 * std::abs(buf[k]) / wsum;
            s.db[c * s.bins + k] = static_cast<float>(20.0 * std::log10(amp + 1e-10));
        }
    }
    return s;
}

}  // namespace brevane::soundgen
