#include "sound_gates.h"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "analysis.h"

namespace brevane::soundgen::gates {

namespace {

std::string fmt(const char* f, double a, double b = 0.0, double c = 0.0) {
    char buf[256];
    std::snprintf(buf, sizeof buf, f, a, b, c);
    return buf;
}

Verdict verdict(bool ok, std::string why) {
    return {ok, std::move(why)};
}

double dbfs(double v) {
    return 20.0 * std::log10(std::max(v, 1e-12));
}

// The step from the last sample to the first against the 99.9th percentile of the steps
// inside the ring.
struct WrapStep {
    double wrap, limit;
};
WrapStep wrapStep(std::span<const float> x) {
    std::vector<double> jumps(x.size() - 1);
    for (std::size_t i = 1; i < x.size(); ++i) {
        jumps[i - 1] = std::fabs(static_cast<double>(x[i]) - x[i - 1]);
    }
    return {std::fabs(static_cast<double>(x[0]) - x.back()), percentile(jumps, 99.9)};
}

}  // namespace

Verdict format(const SoundData& d, bool wantWav) {
    const int major = wantWav ? SF_FORMAT_WAV : SF_FORMAT_FLAC;
    const bool ok = d.rate == 44100 && d.channels == 1 && d.subtype == SF_FORMAT_PCM_16 &&
                    d.majorFormat == major;
    return verdict(ok, fmt("rate %.0f, channels %.0f, ", d.rate, d.channels) +
                           (d.subtype == SF_FORMAT_PCM_16 ? "16-bit, " : "not 16-bit, ") +
                           (d.majorFormat == SF_FORMAT_WAV    ? "WAV"
                            : d.majorFormat == SF_FORMAT_FLAC ? "FLAC"
                                                              : "other container"));
}

Verdict loopLength(std::size_t frames) {
    const double s = static_cast<double>(frames) / kRate;
    return verdict(s >= 20.0 && s <= 40.0, fmt("loop lasts %.2f s", s));
}

Verdict seamlessWrap(std::span<const float> x) {
    const std::size_t n = x.size();
    const std::size_t w = samples(0.05);
    if (n < 2 * w + 2) {
        return verdict(false, "too short to judge a wrap");
    }
    const auto [wrap, limit] = wrapStep(x);
    const double before = rmsOf(x.subspan(n - w, w)), after = rmsOf(x.subspan(0, w));
    const double step = std::fabs(dbfs(before) - dbfs(after));
    return verdict(
        wrap <= limit && step <= 1.0,
        fmt("wrap jump %.5f (99.9th percentile %.5f), level step %.2f dB", wrap, limit, step));
}

Verdict noClickAtWrap(std::span<const float> x) {
    if (x.size() < 3) {
        return verdict(false, "too short to judge a wrap");
    }
    const auto [wrap, limit] = wrapStep(x);
    return verdict(wrap <= limit, fmt("wrap jump %.5f (99.9th percentile %.5f)", wrap, limit));
}

Verdict noInnerRepetition(std::span<const float> x) {
    const auto r = innerRepetition(x, samples(0.25));
    return verdict(r.score < 0.05, fmt("repetition score %.4f at a lag of %.3f s (limit 0.05)",
                                       r.score, static_cast<double>(r.lag) / kRate));
}

Verdict loopLoudness(std::span<const float> x) {
    const double db = dbfs(rmsOf(x));
    return verdict(std::fabs(db + 20.0) <= 2.0, fmt("RMS %.2f dBFS", db));
}

Verdict oneShotPeak(std::span<const float> x) {
    const double db = dbfs(peakOf(x));
    return verdict(std::fabs(db + 3.0) <= 1.0, fmt("peak %.2f dBFS", db));
}

Verdict noFullScale(std::span<const std::int16_t> pcm) {
    const auto count = std::count_if(pcm.begin(), pcm.end(),
                                     [](std::int16_t v) { return v >= 32767 || v <= -32767; });
    return verdict(count == 0, fmt("%.0f samples at full scale", static_cast<double>(count)));
}

Verdict dcOffset(std::span<const std::int16_t> pcm) {
    double sum = 0.0;
    for (auto v : pcm) {
        sum += v;
    }
    const double mean = pcm.empty() ? 0.0 : sum / static_cast<double>(pcm.size());
    const double share = std::fabs(mean) / 32768.0 * 100.0;
    return verdict(share < 0.1, fmt("DC offset %.4f%% of full scale", share));
}

Verdict onsetAtStart(std::span<const float> x) {
    const double peak = peakOf(x);
    const double early = peakOf(x.subspan(0, std::min(x.size(), samples(0.005))));
    const double db = dbfs(early) - dbfs(peak);
    return verdict(peak > 0.0 && db >= -30.0, fmt("first 5 ms reach %.1f dB under the peak", -db));
}

Verdict fadesToSilence(std::span<const float> x) {
    const double peak = peakOf(x);
    if (peak <= 0.0 || x.size() < samples(0.02)) {
        return verdict(false, "silent or too short");
    }
    const std::size_t w = samples(0.02);
    const double tail = dbfs(rmsOf(x.subspan(x.size() - w, w))) - dbfs(peak);
    const double last = std::fabs(x.back()) * 32768.0;
    std::size_t quiet = 0;
    const double floor = peak * dbToGain(-60.0);
    while (quiet < x.size() && std::fabs(x[x.size() - 1 - quiet]) < floor) {
        ++quiet;
    }
    const double trailing = static_cast<double>(quiet) / kRate;
    return verdict(
        tail <= -50.0 && last <= 16.0 && trailing <= 0.5,
        fmt("last 20 ms at %.1f dB under the peak, last sample %.0f steps, ", -tail, last) +
            fmt("%.2f s of trailing near silence", trailing));
}

Fingerprint fingerprint(std::span<const float> x) {
    return {frameRms(x, samples(0.02)), bandLevelsDb(x)};
}

Verdict notAlike(const Fingerprint& a, const Fingerprint& b, bool loops) {
    auto ea = a.envelope, eb = b.envelope;
    if (loops) {
        const std::size_t m = std::min(ea.size(), eb.size());
        ea.resize(m);
        eb.resize(m);
    } else {
        const std::size_t m = std::max(ea.size(), eb.size());
        ea.resize(m, 0.0);
        eb.resize(m, 0.0);
    }
    const double env = pearson(ea, eb);
    const double spec = pearson(a.spectrum, b.spectrum);
    return verdict(env < 0.95 || spec < 0.95,
                   fmt("envelope correlation %.3f, spectrum correlation %.3f", env, spec));
}

Verdict exactPeriod(std::span<const std::int16_t> pcm, std::size_t period) {
    if (period == 0 || pcm.empty() || pcm.size() % period != 0) {
        return verdict(false, fmt("%.0f samples is not a whole number of %.0f-sample periods",
                                  static_cast<double>(pcm.size()), static_cast<double>(period)));
    }
    std::size_t mismatches = 0;
    for (std::size_t i = 0; i < pcm.size(); ++i) {
        if (pcm[i] != pcm[(i + period) % pcm.size()]) {
            ++mismatches;
        }
    }
    // The period must be the tone's own, not a multiple of a shorter one (a constant or a
    // tone an octave up would repeat at `period` too).
    std::size_t shorter = 0;
    for (std::size_t d = 1; d < period; ++d) {
        if (period % d != 0) {
            continue;
        }
        bool same = true;
        for (std::size_t i = 0; i < period && same; ++i) {
            same = pcm[i] == pcm[(i + d) % pcm.size()];
        }
        if (same) {
            shorter = d;
            break;
        }
    }
    return verdict(
        mismatches == 0 && shorter == 0,
        fmt("%.0f samples differ from the one a period later", static_cast<double>(mismatches)) +
            (shorter ? fmt(", and it already repeats after %.0f", static_cast<double>(shorter))
                     : std::string()));
}

}  // namespace brevane::soundgen::gates
