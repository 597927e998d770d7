#include "dsp.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace brevane::soundgen {

namespace {

constexpr double kPi = std::numbers::pi;

double clampHz(double hz) {
    return std::clamp(hz, 1.0, 0.49 * kRate);
}

}  // namespace

std::size_t samples(double seconds) {
    return seconds <= 0.0 ? 0 : static_cast<std::size_t>(std::llround(seconds * kRate));
}

double dbToGain(double db) {
    return std::pow(10.0, db / 20.0);
}

double gainToDb(double gain) {
    return 20.0 * std::log10(std::max(gain, 1e-12));
}

double rmsOf(std::span<const float> x) {
    if (x.empty()) {
        return 0.0;
    }
    double sum = 0.0;
    for (float v : x) {
        sum += static_cast<double>(v) * v;
    }
    return std::sqrt(sum / static_cast<double>(x.size()));
}

double peakOf(std::span<const float> x) {
    double p = 0.0;
    for (float v : x) {
        p = std::max(p, static_cast<double>(std::fabs(v)));
    }
    return p;
}

void scale(Buffer& b, double gain) {
    for (float& v : b) {
        v = static_cast<float>(v * gain);
    }
}

void mixInto(Buffer& out, const Buffer& in, double gain) {
    const std::size_t n = std::min(out.size(), in.size());
    for (std::size_t i = 0; i < n; ++i) {
        out[i] += static_cast<float>(gain * in[i]);
    }
}

void multiply(Buffer& out, const Buffer& env) {
    const std::size_t n = std::min(out.size(), env.size());
    for (std::size_t i = 0; i < n; ++i) {
        out[i] *= env[i];
    }
}

void normaliseRms(Buffer& b, double rms) {
    const double r = rmsOf(b);
    if (r > 0.0) {
        scale(b, rms / r);
    }
}

void addLayer(Buffer& mix, Buffer layer, double db) {
    normaliseRms(layer);
    mixInto(mix, layer, dbToGain(db));
}

// ---- Biquad --------------------------------------------------------------------------

Biquad::Biquad(double b0, double b1, double b2, double a0, double a1, double a2)
    : b0_(b0 / a0), b1_(b1 / a0), b2_(b2 / a0), a1_(a1 / a0), a2_(a2 / a0) {}

Biquad Biquad::lowpass(double hz, double q) {
    const double w = 2 * kPi * clampHz(hz) / kRate, c = std::cos(w), al = std::sin(w) / (2 * q);
    return Biquad((1 - c) / 2, 1 - c, (1 - c) / 2, 1 + al, -2 * c, 1 - al);
}

Biquad Biquad::highpass(double hz, double q) {
    const double w = 2 * kPi * clampHz(hz) / kRate, c = std::cos(w), al = std::sin(w) / (2 * q);
    return Biquad((1 + c) / 2, -(1 + c), (1 + c) / 2, 1 + al, -2 * c, 1 - al);
}

Biquad Biquad::bandpass(double hz, double q) {
    const double w = 2 * kPi * clampHz(hz) / kRate, c = std::cos(w), al = std::sin(w) / (2 * q);
    return Biquad(al, 0, -al, 1 + al, -2 * c, 1 - al);
}

Biquad Biquad::peaking(double hz, double q, double db) {
    const double w = 2 * kPi * clampHz(hz) / kRate, c = std::cos(w), al = std::sin(w) / (2 * q);
    const double a = std::pow(10.0, db / 40.0);
    return Biquad(1 + al * a, -2 * c, 1 - al * a, 1 + al / a, -2 * c, 1 - al / a);
}

Biquad Biquad::lowShelf(double hz, double db) {
    const double w = 2 * kPi * clampHz(hz) / kRate, c = std::cos(w);
    const double a = std::pow(10.0, db / 40.0), al = std::sin(w) / 2 * std::sqrt(2.0);
    const double s = 2 * std::sqrt(a) * al;
    return Biquad(a * ((a + 1) - (a - 1) * c + s), 2 * a * ((a - 1) - (a + 1) * c),
                  a * ((a + 1) - (a - 1) * c - s), (a + 1) + (a - 1) * c + s,
                  -2 * ((a - 1) + (a + 1) * c), (a + 1) + (a - 1) * c - s);
}

Biquad Biquad::highShelf(double hz, double db) {
    const double w = 2 * kPi * clampHz(hz) / kRate, c = std::cos(w);
    const double a = std::pow(10.0, db / 40.0), al = std::sin(w) / 2 * std::sqrt(2.0);
    const double s = 2 * std::sqrt(a) * al;
    return Biquad(a * ((a + 1) + (a - 1) * c + s), -2 * a * ((a - 1) + (a + 1) * c),
                  a * ((a + 1) + (a - 1) * c - s), (a + 1) - (a - 1) * c + s,
                  2 * ((a - 1) - (a + 1) * c), (a + 1) - (a - 1) * c - s);
}

double Biquad::magnitudeAt(double hz) const {
    const std::complex<double> z1 = std::polar(1.0, -2 * kPi * hz / kRate);
    const std::complex<double> z2 = z1 * z1;
    return std::abs((b0_ + b1_ * z1 + b2_ * z2) / (1.0 + a1_ * z1 + a2_ * z2));
}

void filter(Buffer& b, Edge edge, std::vector<Biquad> chain) {
    // One pass per section: a ring's sections each settle on the ring the one before made.
    for (auto& f : chain) {
        process(b, edge, [&f](float x, std::size_t) { return f(x); });
    }
}

void sweep(Buffer& b, Edge edge, const Buffer& hz, double q, Pass pass) {
    Svf svf(hz.empty() ? 1000.0 : hz[0], q);
    process(b, edge, [&](float x, std::size_t i) {
        if (i % 16 == 0 && i < hz.size()) {
            svf.set(hz[i], q);
        }
        const auto o = svf(x);
        return pass == Pass::Low ? o.low : pass == Pass::Band ? o.band : o.high;
    });
}

// ---- Svf, OnePole --------------------------------------------------------------------

void Svf::set(double hz, double q) {
    const double g = std::tan(kPi * clampHz(hz) / kRate);
    k_ = 1.0 / std::max(q, 0.05);
    a1_ = 1.0 / (1.0 + g * (g + k_));
    a2_ = g * a1_;
    a3_ = g * a2_;
}

Svf::Out Svf::operator()(float x) {
    const double v3 = x - ic2_;
    const double v1 = a1_ * ic1_ + a2_ * v3;
    const double v2 = ic2_ + a2_ * ic1_ + a3_ * v3;
    ic1_ = 2 * v1 - ic1_;
    ic2_ = 2 * v2 - ic2_;
    return {static_cast<float>(v2), static_cast<float>(v1), static_cast<float>(x - k_ * v1 - v2)};
}

void OnePole::set(double hz) {
    a_ = 1.0 - std::exp(-2 * kPi * clampHz(hz) / kRate);
}

// ---- noise ---------------------------------------------------------------------------

Buffer whiteNoise(Rng& rng, std::size_t n) {
    Buffer b(n);
    const double s = std::sqrt(3.0);
    for (auto& v : b) {
        v = static_cast<float>(s * (2.0 * rng.uniform() - 1.0));
    }
    return b;
}

Buffer pinkNoise(Rng& rng, std::size_t n, Edge edge) {
    Buffer b = whiteNoise(rng, n);
    double p0 = 0, p1 = 0, p2 = 0, p3 = 0, p4 = 0, p5 = 0, p6 = 0;
    // Kellet's sum of first-order sections: -3 dB per octave within 0.05 dB above 10 Hz.
    process(b, edge, [&](float w, std::size_t) {
        p0 = 0.99886 * p0 + w * 0.0555179;
        p1 = 0.99332 * p1 + w * 0.0750759;
        p2 = 0.96900 * p2 + w * 0.1538520;
        p3 = 0.86650 * p3 + w * 0.3104856;
        p4 = 0.55000 * p4 + w * 0.5329522;
        p5 = -0.7616 * p5 - w * 0.0168980;
        const double y = p0 + p1 + p2 + p3 + p4 + p5 + p6 + w * 0.5362;
        p6 = w * 0.115926;
        return static_cast<float>(y);
    });
    filter(b, edge, {Biquad::highpass(12.0)});
    normaliseRms(b);
    return b;
}

Buffer brownNoise(Rng& rng, std::size_t n, Edge edge) {
    Buffer b = whiteNoise(rng, n);
    double y = 0.0;
    process(b, edge, [&](float w, std::size_t) {
        y = 0.998 * y + w;
        return static_cast<float>(y);
    });
    filter(b, edge, {Biquad::highpass(12.0)});
    normaliseRms(b);
    return b;
}

// ---- control curves ------------------------------------------------------------------

Buffer wander(Rng& rng, std::size_t n, double spacing, double lo, double hi, Edge edge) {
    Buffer out(n);
    if (n == 0) {
        return out;
    }
    const double span = std::max(1.0, spacing * kRate);
    std::vector<double> t, p;  // knot times (samples) and values, covering [-span, n + span]
    auto value = [&] { return rng.uniform(lo, hi); };
    if (edge == Edge::Circular) {
        const int k = std::max(2, static_cast<int>(std::lround(static_cast<double>(n) / span)));
        const double s = static_cast<double>(n) / k;
        std::vector<double> bt(k), bp(k);
        for (int i = 0; i < k; ++i) {
            bt[i] = (i + rng.uniform(-0.3, 0.3)) * s;
            bp[i] = value();
        }
        bt[0] = std::max(bt[0], 0.0);
        t.push_back(bt[k - 1] - static_cast<double>(n));
        p.push_back(bp[k - 1]);
        for (int i = 0; i < k; ++i) {
            t.push_back(bt[i]);
            p.push_back(bp[i]);
        }
        for (int i = 0; i < 2; ++i) {
            t.push_back(bt[i] + static_cast<double>(n));
            p.push_back(bp[i]);
        }
    } else {
        const int k = static_cast<int>(std::ceil(static_cast<double>(n) / span)) + 3;
        for (int i = 0; i < k; ++i) {
            t.push_back((i - 1 + (i > 0 ? rng.uniform(-0.3, 0.3) : 0.0)) * span);
            p.push_back(value());
        }
    }
    auto slope = [&](std::size_t i) {
        if (i == 0 || i + 1 >= t.size()) {
            return 0.0;
        }
        return (p[i + 1] - p[i - 1]) / (t[i + 1] - t[i - 1]);
    };
    std::size_t seg = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const double x = static_cast<double>(i);
        while (seg + 2 < t.size() && t[seg + 1] <= x) {
            ++seg;
        }
        const double h = t[seg + 1] - t[seg];
        const double u = std::clamp((x - t[seg]) / h, 0.0, 1.0);
        const double u2 = u * u, u3 = u2 * u;
        const double v = (2 * u3 - 3 * u2 + 1) * p[seg] + (u3 - 2 * u2 + u) * h * slope(seg) +
                         (-2 * u3 + 3 * u2) * p[seg + 1] + (u3 - u2) * h * slope(seg + 1);
        out[i] = static_cast<float>(std::clamp(v, std::min(lo, hi), std::max(lo, hi)));
    }
    return out;
}

Buffer envelope(std::size_t n, std::span<const Point> points) {
    Buffer out(n, 0.0f);
    if (points.empty()) {
        return out;
    }
    std::size_t seg = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const double t = static_cast<double>(i) / kRate;
        while (seg + 1 < points.size() && points[seg + 1].t <= t) {
            ++seg;
        }
        double v;
        if (t <= points.front().t) {
            v = points.front().v;
        } else if (seg + 1 >= points.size()) {
            v = points.back().v;
        } else {
            const auto& a = points[seg];
            const auto& b = points[seg + 1];
            const double u = (t - a.t) / std::max(b.t - a.t, 1e-9);
            v = a.v + (b.v - a.v) * (1 - std::cos(kPi * u)) / 2;
        }
        out[i] = static_cast<float>(v);
    }
    return out;
}

Buffer decay(std::size_t n, double t60) {
    Buffer out(n);
    const double k = std::exp(-6.907755 / (std::max(t60, 1e-4) * kRate));
    double v = 1.0;
    for (auto& s : out) {
        s = static_cast<float>(v);
        v *= k;
    }
    return out;
}

Buffer sine(std::span<const float> hz, double phase) {
    Buffer out(hz.size());
    for (std::size_t i = 0; i < hz.size(); ++i) {
        out[i] = static_cast<float>(std::sin(phase));
        phase += 2 * kPi * hz[i] / kRate;
        if (phase > 2 * kPi) {
            phase -= 2 * kPi;
        }
    }
    return out;
}

// ---- resonators ----------------------------------------------------------------------

Resonator::Resonator(double hz, double t60) {
    const double w = 2 * kPi * clampHz(hz) / kRate;
    const double r = std::exp(-6.907755 / (std::max(t60, 1e-4) * kRate));
    b0_ = std::sin(w);
    c1_ = 2 * r * std::cos(w);
    c2_ = r * r;
}

ModalBody::ModalBody(std::span<const Mode> modes) {
    for (const auto& m : modes) {
        res_.emplace_back(m.hz, m.t60);
        gain_.push_back(static_cast<float>(m.gain));
    }
}

float ModalBody::operator()(float x) {
    float y = 0.0f;
    for (std::size_t i = 0; i < res_.size(); ++i) {
        y += gain_[i] * res_[i](x);
    }
    return y;
}

// ---- Room ----------------------------------------------------------------------------

Room::Room(double t60, double sizeMs, double dampHz, std::uint64_t seed) {
    static constexpr double kRatios[kLines] = {1.00, 1.13, 1.27, 1.41, 1.59, 1.73, 1.91, 2.07};
    Rng rng(seed);
    const double base = std::max(1.0, sizeMs * kRate / 1000.0);
    for (int i = 0; i < kLines; ++i) {
        const auto len = static_cast<std::size_t>(base * kRatios[i] * rng.uniform(0.95, 1.05)) | 1u;
        line_[i].assign(len, 0.0f);
        gain_[i] = std::pow(10.0, -3.0 * static_cast<double>(len) / (t60 * kRate));
        damp_[i].set(dampHz);
    }
}

float Room::operator()(float x) {
    double o[kLines];
    for (int i = 0; i < kLines; ++i) {
        o[i] = damp_[i](line_[i][pos_[i]]);
    }
    // Fast Walsh-Hadamard: an orthogonal mix, so the decay is set by the line gains alone.
    for (int h = 1; h < kLines; h *= 2) {
        for (int i = 0; i < kLines; i += 2 * h) {
            for (int j = i; j < i + h; ++j) {
                const double a = o[j], b = o[j + h];
                o[j] = a + b;
                o[j + h] = a - b;
            }
        }
    }
    const double norm = 1.0 / std::sqrt(static_cast<double>(kLines));
    double y = 0.0;
    for (int i = 0; i < kLines; ++i) {
        const float in = line_[i][pos_[i]];
        y += (i % 2 == 0 ? in : -in);
        line_[i][pos_[i]] = static_cast<float>((x + o[i] * norm) * gain_[i]);
        if (++pos_[i] == line_[i].size()) {
            pos_[i] = 0;
        }
    }
    return static_cast<float>(y * 0.25);
}

void reverberate(Buffer& b, Edge edge, double t60, double sizeMs, double dampHz, double wet) {
    Room room(t60, sizeMs, dampHz);
    Buffer tail = b;
    const auto warm = std::max(kWarmup, samples(t60 * 1.5));
    process(
        tail, edge, [&room](float x, std::size_t) { return room(x); }, warm);
    mixInto(b, tail, wet);
}

}  // namespace brevane::soundgen
