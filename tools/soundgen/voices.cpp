#include "voices.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "grains.h"

namespace brevane::soundgen {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * kPi;
// Nothing of a voice is made at or above this: the top octave only aliases.
constexpr double kTopHz = 20000.0;

double wrapPhase(double p) {
    return p >= kTwoPi ? p - kTwoPi * std::floor(p / kTwoPi) : p;
}

void normalisePeak(Buffer& b) {
    const double p = peakOf(b);
    if (p > 0.0) {
        scale(b, 1.0 / p);
    }
}

// Random wobble: a new target `hz` times a second, approached smoothly; -1..1 roughly.
class Wobble {
  public:
    Wobble(Rng& rng, double hz) : rng_(rng), every_(std::max<std::size_t>(1, samples(1.0 / hz))) {
        smooth_.set(hz);
    }
    double operator()() {
        if (count_++ % every_ == 0) {
            target_ = rng_.uniform(-1.0, 1.0);
        }
        return smooth_(static_cast<float>(target_));
    }

  private:
    Rng& rng_;
    std::size_t every_;
    std::size_t count_ = 0;
    double target_ = 0.0;
    OnePole smooth_;
};

// A bank of band-passes in parallel, each at 0 dB peak times its level, centres following
// their curves: the resonances of a vocal tract.
class FormantBank {
  public:
    FormantBank(std::size_t n, const std::vector<Formant>& formants) {
        for (const auto& f : formants) {
            hz_.push_back(curveOf(n, f.hz, 1000.0));
            q_.push_back(std::max(f.q, 0.3));
            gain_.push_back(dbToGain(f.db) / std::max(f.q, 0.3));
            svf_.emplace_back(hz_.back().empty() ? 1000.0 : hz_.back()[0], q_.back());
        }
    }
    float operator()(float x, std::size_t i) {
        if (svf_.empty()) {
            return x;
        }
        double y = 0.0;
        for (std::size_t k = 0; k < svf_.size(); ++k) {
            if (i % 16 == 0) {
                svf_[k].set(hz_[k][i], q_[k]);
            }
            y += gain_[k] * svf_[k](x).band;
        }
        return static_cast<float>(y);
    }

  private:
    std::vector<Buffer> hz_;
    std::vector<double> q_, gain_;
    std::vector<Svf> svf_;
};

// The glottal flow of one period at phase p (0..1): a smooth opening, a quicker closing,
// then closed (Rosenberg's shape).
double glottalFlow(double p, double open, double closing) {
    const double tp = open * (1.0 - closing), tn = open * closing;
    if (p < tp) {
        return 0.5 * (1.0 - std::cos(kPi * p / tp));
    }
    if (p < tp + tn) {
        return std::cos(0.5 * kPi * (p - tp) / tn);
    }
    return 0.0;
}

}  // namespace

Buffer curveOf(std::size_t n, const Curve& c, double otherwise) {
    if (c.empty()) {
        return Buffer(n, static_cast<float>(otherwise));
    }
    return envelope(n, c);
}

Curve glide(double seconds, double from, double to) {
    return {{0.0, from}, {seconds, to}};
}

Curve chevron(double seconds, double from, double peak, double to) {
    return {{0.0, from}, {0.4 * seconds, peak}, {seconds, to}};
}

Curve swell(double seconds, double attack, double release) {
    const double total = attack + release;
    if (total > seconds && total > 0.0) {
        attack *= seconds / total;
        release *= seconds / total;
    }
    return {{0.0, 0.0}, {attack, 1.0}, {seconds - release, 1.0}, {seconds, 0.0}};
}

Buffer syllable(Rng& rng, const Syllable& s) {
    const std::size_t n = samples(s.seconds);
    Buffer tonal(n, 0.0f);
    if (n == 0) {
        return tonal;
    }
    const Buffer hz = curveOf(n, s.hz, 1000.0);
    const Buffer level = curveOf(n,
                                 s.level.empty() ? swell(s.seconds, std::min(0.01, 0.3 * s.seconds),
                                                         std::min(0.02, 0.4 * s.seconds))
                                                 : s.level,
                                 1.0);
    double norm = 0.0;
    for (double p : s.partials) {
        norm += p * p;
    }
    norm = norm > 0.0 ? 1.0 / std::sqrt(norm / 2.0) : 0.0;
    Wobble rough(rng, s.roughHz);
    double phase = rng.uniform(0.0, kTwoPi), vib = rng.uniform(0.0, kTwoPi), fm = 0.0, trem = 0.0;
    Buffer freq(n), shape(n);
    for (std::size_t i = 0; i < n; ++i) {
        double f = hz[i] * (1.0 + s.vibratoDepth * std::sin(vib));
        if (s.roughness > 0.0) {
            f *= 1.0 + s.roughness * rough();
        }
        f = std::clamp(f, 20.0, kTopHz);
        freq[i] = static_cast<float>(f);
        const double mod = s.fmIndex > 0.0 ? s.fmIndex * std::sin(fm) : 0.0;
        double v = 0.0;
        for (std::size_t k = 0; k < s.partials.size(); ++k) {
            const double h = static_cast<double>(k + 1);
            if (h * f * (1.0 + s.fmRatio * s.fmIndex) >= kTopHz) {
                break;
            }
            v += s.partials[k] * std::sin(h * phase + h * mod);
        }
        shape[i] =
            static_cast<float>(level[i] * (1.0 - s.tremoloDepth * 0.5 * (1.0 - std::cos(trem))));
        tonal[i] = static_cast<float>(v * norm * shape[i]);
        phase = wrapPhase(phase + kTwoPi * f / kRate);
        fm = wrapPhase(fm + kTwoPi * f * s.fmRatio / kRate);
        vib = wrapPhase(vib + kTwoPi * s.vibratoHz / kRate);
        trem = wrapPhase(trem + kTwoPi * s.tremoloHz / kRate);
    }
    if (s.breath > 0.0) {
        // Noise that follows the pitch, with the tone's own level shape; two band-passes in
        // a row, so that the noise stays round the tone instead of hazing the whole band.
        Buffer noise = whiteNoise(rng, n);
        Svf band1(freq[0], s.breathQ), band2(freq[0], s.breathQ);
        for (std::size_t i = 0; i < n; ++i) {
            if (i % 16 == 0) {
                band1.set(freq[i], s.breathQ);
                band2.set(freq[i], s.breathQ);
            }
            noise[i] = band2(band1(noise[i]).band).band;
        }
        normaliseRms(noise);
        for (std::size_t i = 0; i < n; ++i) {
            tonal[i] =
                static_cast<float>((1.0 - s.breath) * tonal[i] + s.breath * noise[i] * shape[i]);
        }
    }
    normalisePeak(tonal);
    return tonal;
}

Buffer voice(Rng& rng, const Voice& v) {
    const std::size_t n = samples(v.seconds);
    Buffer out(n, 0.0f);
    if (n == 0) {
        return out;
    }
    const Buffer f0 = curveOf(n, v.f0, 120.0);
    const Buffer level = curveOf(n, v.level.empty() ? swell(v.seconds, 0.04, 0.08) : v.level, 1.0);
    const Buffer voicing = curveOf(n, v.voicing, 1.0);
    Buffer voiced(n), noise = whiteNoise(rng, n);
    double p = 0.0, prev = 0.0, vib = rng.uniform(0.0, kTwoPi), trem = 0.0;
    double jitter = 1.0, amp = 1.0;
    bool odd = false;
    const double open = std::clamp(v.openQuotient, 0.1, 0.95);
    const double closing = std::clamp(v.closing, 0.05, 0.95);
    for (std::size_t i = 0; i < n; ++i) {
        double f = f0[i] * jitter * (1.0 + v.vibratoDepth * std::sin(vib));
        if (odd) {
            f /= 1.0 + 0.3 * v.roughness;
        }
        f = std::clamp(f, 10.0, 5000.0);
        p += f / kRate;
        if (p >= 1.0) {
            p -= std::floor(p);
            jitter = 1.0 + v.jitter * rng.normal();
            amp = std::max(0.0, 1.0 + v.shimmer * rng.normal());
            odd = !odd;
            if (odd) {
                amp *= 1.0 - 0.6 * v.roughness;
            }
        }
        const double flow = amp * glottalFlow(p, open, closing);
        // The lips radiate the flow's slope; per period, so the level does not climb with pitch.
        voiced[i] = static_cast<float>((flow - prev) * kRate / f);
        prev = flow;
        // Air through the open folds: louder while they are open.
        noise[i] = static_cast<float>(noise[i] * (0.35 + 0.65 * flow));
        vib = wrapPhase(vib + kTwoPi * v.vibratoHz / kRate);
    }
    normaliseRms(voiced);
    normaliseRms(noise);
    FormantBank tract(n, v.formants);
    for (std::size_t i = 0; i < n; ++i) {
        const double gate = 1.0 - v.tremoloDepth * 0.5 * (1.0 - std::cos(trem));
        trem = wrapPhase(trem + kTwoPi * v.tremoloHz / kRate);
        const double w = std::clamp(static_cast<double>(voicing[i]), 0.0, 1.0);
        const double x = w * voiced[i] + (v.breath + (1.0 - w)) * noise[i];
        out[i] = tract(static_cast<float>(x * gate * level[i]), i);
    }
    normalisePeak(out);
    return out;
}

Buffer buzz(Rng& rng, const Buzz& b) {
    const std::size_t n = samples(b.seconds);
    Buffer out(n, 0.0f);
    if (n == 0) {
        return out;
    }
    const Buffer hz = curveOf(n, b.hz, 200.0);
    const Buffer level = curveOf(n, b.level.empty() ? swell(b.seconds, 0.05, 0.1) : b.level, 1.0);
    Buffer air = whiteNoise(rng, n);
    Wobble drift(rng, 3.0);
    double phase = rng.uniform(0.0, kTwoPi), wob = rng.uniform(0.0, kTwoPi);
    for (std::size_t i = 0; i < n; ++i) {
        const double f = std::clamp(
            hz[i] * (1.0 + b.wobble * std::sin(wob) + 0.5 * b.wobble * drift()), 20.0, 5000.0);
        // Harmonics fall by `a` each: at most -60 dB by the top of the band, so nothing folds.
        const double a = std::min(b.sharpness, std::exp(-6.9 * f / (0.5 * kRate)));
        const double c = std::cos(phase), s = std::sin(phase);
        const double wave = a * s / (1.0 - 2.0 * a * c + a * a) * (1.0 - a);
        out[i] = static_cast<float>(wave);
        air[i] = static_cast<float>(air[i] * (0.3 + std::fabs(wave)));
        phase = wrapPhase(phase + kTwoPi * f / kRate);
        wob = wrapPhase(wob + kTwoPi * b.wobbleHz / kRate);
    }
    normaliseRms(out);
    filter(air, Edge::Linear, {Biquad::highpass(600.0), Biquad::lowpass(7000.0)});
    normaliseRms(air);
    mixInto(out, air, b.air);
    if (!b.body.empty()) {
        Buffer shaped = out;
        sweep(shaped, Edge::Linear, curveOf(n, b.body), 1.5, Pass::Band);
        normaliseRms(shaped);
        for (std::size_t i = 0; i < n; ++i) {
            out[i] = 0.5f * out[i] + shaped[i];
        }
    }
    multiply(out, level);
    normalisePeak(out);
    return out;
}

Buffer strikes(std::size_t n, std::span<const Strike> s, Edge edge) {
    Buffer out(n, 0.0f);
    for (const auto& k : s) {
        if (k.t < 0.0) {
            continue;
        }
        addGrain(out, samples(k.t), bump(k.width), k.gain, edge);
    }
    return out;
}

void ring(Buffer& b, std::span<const Mode> modes, Edge edge) {
    ModalBody body(modes);
    process(b, edge, [&body](float x, std::size_t) { return body(x); });
}

std::vector<double> rhythm(Rng& rng, double from, double to, int perGroup, double pulseGap,
                           double groupGap, double jitter) {
    std::vector<double> out;
    const auto gap = [&](double g) { return g * (1.0 + jitter * rng.uniform(-1.0, 1.0)); };
    for (double start = from; start < to; start += std::max(gap(groupGap), 1e-3)) {
        double t = start;
        for (int k = 0; k < perGroup && t < to; ++k) {
            out.push_back(t);
            t += std::max(gap(pulseGap), 1e-4);
        }
    }
    return out;
}

void place(Buffer& out, double t, std::span<const float> event, double gain) {
    const std::size_t at = samples(std::max(t, 0.0));
    if (out.size() < at + event.size()) {
        out.resize(at + event.size(), 0.0f);
    }
    addGrain(out, at, event, gain, Edge::Linear);
}

void distance(Buffer& b, const Curve& nearness, Edge edge) {
    const std::size_t n = b.size();
    const Buffer near = curveOf(n, nearness, 1.0);
    Buffer hz(n);
    for (std::size_t i = 0; i < n; ++i) {
        const double k = std::clamp(static_cast<double>(near[i]), 0.0, 1.0);
        hz[i] = static_cast<float>(500.0 * std::pow(20000.0 / 500.0, k));
        b[i] = static_cast<float>(b[i] * dbToGain(-30.0 * (1.0 - k)));
    }
    sweep(b, edge, hz, 0.6, Pass::Low);
}

Buffer inSpace(Buffer b, double t60, double sizeMs, double dampHz, double wet) {
    b.resize(b.size() + samples(t60), 0.0f);
    reverberate(b, Edge::Linear, t60, sizeMs, dampHz, wet);
    return b;
}

}  // namespace brevane::soundgen
