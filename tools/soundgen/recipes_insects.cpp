// Insects, lizards and frogs: wing buzzes moved along a flight, tone pulses of crickets,
// tymbal clicks of cicadas, noisy rasps of katydids, clicks of geckos and the pulsed croaks
// of frogs. Random bank two holds them as one-shots; the living loops sing them in chorus.
#include <algorithm>
#include <cmath>

#include "calls.h"
#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace calls {

Buffer flight(Rng& r, const Flight& f) {
    const std::size_t n = samples(f.seconds);
    const Buffer near = curveOf(n, f.nearness, 1.0);
    // Darting: the wingbeat surges for a moment as the insect shoots to a new place.
    std::vector<double> darts;
    for (int k = 0; k < f.darts; ++k) {
        darts.push_back(r.uniform(0.15, 0.85) * f.seconds);
    }
    Buzz b;
    b.seconds = f.seconds;
    b.sharpness = f.sharpness;
    b.wobble = f.wobble;
    b.wobbleHz = r.uniform(4, 9);
    b.air = 0.12;
    b.body = {{0.0, f.bodyHz}};
    // Pitch and level every 20 ms: the wingbeat with its darts, shifted up while the insect
    // comes nearer and down while it goes (Doppler).
    Curve loud;
    const double step = 0.02;
    const std::size_t w = samples(0.1);
    for (double t = 0.0; t <= f.seconds + 1e-9; t += step) {
        double surge = 0.0;
        for (double d : darts) {
            const double u = (t - d) / 0.35;
            if (u > -0.15 && u < 1.0) {
                surge = std::max(surge, u < 0.0 ? 1.0 + u / 0.15 : 1.0 - u);
            }
        }
        const std::size_t i = std::min(n - 1, samples(t));
        const std::size_t lo = i > w ? i - w : 0, hi = std::min(n - 1, i + w);
        const double speed =
            (near[hi] - near[lo]) / std::max(1e-3, static_cast<double>(hi - lo) / kRate);
        const double shift = 1.0 + std::clamp(0.06 * speed, -0.06, 0.06);
        b.hz.push_back({t, f.wingHz * (1.0 + 0.22 * surge) * shift});
        loud.push_back({t, 1.0 + 0.6 * surge});
    }
    // Take-off is sudden: the buzz starts at once.
    b.level = {{0.0, 0.0}, {0.004, 1.0}, {f.seconds - 0.06, 1.0}, {f.seconds, 0.0}};
    Buffer out = buzz(r, b);
    multiply(out, curveOf(n, loud));
    distance(out, f.nearness, Edge::Linear);
    return out;
}

Buffer cricketChirp(Rng& r, const Cricket& c) {
    Buffer out;
    double t = 0.0;
    for (int k = 0; k < c.pulses; ++k) {
        Syllable s;
        s.seconds = c.pulseLength * r.uniform(0.9, 1.1);
        s.hz = glide(s.seconds, c.carrier * 1.01, c.carrier * 0.97);
        s.partials = {1.0, 0.04, 0.015};
        s.level = {{0.0, 0.0}, {0.002, 1.0}, {0.7 * s.seconds, 0.8}, {s.seconds, 0.0}};
        s.breath = c.noise;
        s.breathQ = 3.0;
        place(out, t, syllable(r, s), k == 0 ? 0.8 : r.uniform(0.9, 1.0));
        t += (1.0 / c.pulseRate) * r.uniform(0.97, 1.03);
    }
    return out;
}

Buffer cicadaSong(Rng& r, const Cicada& c, Edge edge, const Buffer* levelCurve,
                  const Buffer* paceCurve) {
    const std::size_t n = samples(c.seconds);
    const Buffer level = levelCurve ? *levelCurve : curveOf(n, c.level, 1.0);
    const Buffer pace = paceCurve ? *paceCurve : curveOf(n, c.pace, 1.0);
    // A ring's pulsing must come round whole.
    double pulseHz = c.pulseHz;
    if (edge == Edge::Circular && pulseHz > 0.0) {
        pulseHz = std::max(1.0, std::round(pulseHz * c.seconds)) / c.seconds;
    }
    Buffer clicks(n, 0.0f);
    double phase = r.uniform(), interval = 1.0;
    for (std::size_t i = 0; i < n; ++i) {
        phase += c.clickHz * std::max(0.05f, pace[i]) / kRate / interval;
        if (phase >= 1.0) {
            phase -= 1.0;
            interval = 1.0 + 0.04 * r.normal();
            clicks[i] = static_cast<float>(r.uniform(0.7, 1.0));
        }
    }
    // The clicks ring the body's resonances, which may glide as the song goes; only the
    // body's band carries, the clicks themselves are not heard.
    const Buffer glideBy = curveOf(n, c.glide, 1.0);
    Buffer hz(n), upperHz(n), hissHz(n);
    const double upper = r.uniform(1.35, 1.5);
    for (std::size_t i = 0; i < n; ++i) {
        hz[i] = static_cast<float>(c.carrier * glideBy[i]);
        upperHz[i] = static_cast<float>(hz[i] * upper);
        hissHz[i] = static_cast<float>(hz[i] * 1.05);
    }
    Buffer body = clicks;
    sweep(body, edge, hz, 14.0, Pass::Band);
    normaliseRms(body);
    sweep(clicks, edge, upperHz, 10.0, Pass::Band);
    normaliseRms(clicks);
    mixInto(body, clicks, 0.35);
    clicks = std::move(body);
    Buffer hiss = whiteNoise(r, n);
    sweep(hiss, edge, hissHz, 2.0, Pass::Band);
    sweep(hiss, edge, hissHz, 2.0, Pass::Band);
    normaliseRms(hiss);
    mixInto(clicks, hiss, c.rasp);
    for (std::size_t i = 0; i < n; ++i) {
        const double t = static_cast<double>(i) / kRate;
        const double gate =
            1.0 - c.pulseDepth * 0.5 * (1.0 - std::cos(2.0 * 3.14159265358979 * pulseHz * t));
        clicks[i] = static_cast<float>(clicks[i] * gate * level[i]);
    }
    return clicks;
}

Buffer katydidRasp(Rng& r, double carrier, int pulses, double pulseRate) {
    Buffer out;
    for (int k = 0; k < pulses; ++k) {
        Buffer p = noiseBurst(r, r.uniform(0.003, 0.006), r.uniform(0.012, 0.02));
        filter(p, Edge::Linear,
               {Biquad::bandpass(carrier * r.uniform(0.95, 1.05), 2.5),
                Biquad::bandpass(carrier * r.uniform(1.2, 1.5), 1.5)});
        normaliseRms(p);
        place(out, k / pulseRate * r.uniform(0.95, 1.05), p, 0.6 + 0.4 * (k + 1) / pulses);
    }
    return out;
}

Buffer geckoChirps(Rng& r, int count, double hz) {
    Buffer out;
    double t = 0.0, gap = r.uniform(0.09, 0.12);
    for (int k = 0; k < count; ++k) {
        Syllable s;
        s.seconds = r.uniform(0.025, 0.04);
        const double f = hz * r.uniform(0.95, 1.05) * (1.0 - 0.015 * k);
        s.hz = chevron(s.seconds, f * 0.8, f * 1.15, f * 0.7);
        s.partials = {1.0, 0.8, 0.5, 0.3, 0.15};
        s.breath = 0.3;
        s.breathQ = 2.0;
        s.level = {{0.0, 0.0}, {0.002, 1.0}, {s.seconds, 0.0}};
        place(out, t, syllable(r, s), std::pow(0.92, k));
        t += gap;
        gap *= r.uniform(1.04, 1.1);
    }
    return out;
}

Buffer croak(Rng& r, const Croak& c) {
    const std::size_t n = samples(c.seconds + 0.1);
    std::vector<Strike> pulses;
    for (double t = 0.0; t < c.seconds; t += (1.0 / c.pulseRate) * r.uniform(0.95, 1.05)) {
        pulses.push_back({t, r.uniform(0.75, 1.0), 0.0004});
    }
    Buffer out = strikes(n, pulses, Edge::Linear);
    multiply(out, curveOf(n, swell(c.seconds, std::min(0.015, 0.2 * c.seconds),
                                   std::min(0.04, 0.3 * c.seconds))));
    const std::vector<Mode> sac{{c.carrier, c.ringing, 1.0},
                                {c.second, c.ringing * 0.7, 0.5},
                                {c.carrier * 0.5, c.ringing * 1.2, 0.25}};
    ring(out, sac, Edge::Linear);
    return out;
}

Buffer greenFrogGunk(Rng& r) {
    Voice v;
    v.seconds = r.uniform(0.3, 0.4);
    const double f = r.uniform(105, 130);
    v.f0 = glide(v.seconds, f * 1.05, f * 0.9);
    v.level = {{0.0, 0.0}, {0.004, 1.0}, {0.08, 0.55}, {0.25, 0.12}, {v.seconds, 0.0}};
    v.closing = 0.1;
    v.openQuotient = 0.45;
    v.breath = 0.04;
    v.formants = {{{{0.0, 450}}, 3, 0}, {{{0.0, 1100}}, 5, -3}, {{{0.0, 2300}}, 6, -8}};
    return voice(r, v);
}

}  // namespace calls

namespace {

using namespace calls;

// Among grass and leaves in the open.
Buffer field(Buffer b) {
    return inSpace(std::move(b), 0.5, 30.0, 7000.0, 0.08);
}
// In a warm wood at night.
Buffer night(Buffer b) {
    return inSpace(std::move(b), 1.2, 60.0, 5000.0, 0.18);
}

Buffer bumbleBee(Take& t) {
    Flight f;
    f.seconds = 6.0;
    f.wingHz = t.rng.uniform(135, 150);
    f.sharpness = 0.9;
    f.bodyHz = 600.0;
    f.wobble = 0.03;
    f.darts = 2;
    f.nearness = {{0.0, 0.45}, {1.5, 0.95}, {3.0, 0.8}, {4.0, 1.0}, {6.0, 0.0}};
    return field(flight(t.rng, f));
}

Buffer wasp(Take& t) {
    Flight f;
    f.seconds = 4.5;
    f.wingHz = t.rng.uniform(190, 215);
    f.sharpness = 0.75;
    f.bodyHz = 2000.0;
    f.wobble = 0.06;
    f.darts = 4;
    f.nearness = {{0.0, 0.5}, {0.8, 1.0}, {1.6, 0.6}, {2.4, 0.95}, {3.4, 0.5}, {4.5, 0.0}};
    return field(flight(t.rng, f));
}

// Hoverflies: one whine, four takes of its hanging in the air and darting off.
Buffer hoverfly(Take& t, double seconds, int darts, Curve nearness, double pitch) {
    Flight f;
    f.seconds = seconds;
    f.wingHz = pitch * t.rng.uniform(0.98, 1.02);
    f.sharpness = 0.7;
    f.bodyHz = 1400.0;
    f.wobble = 0.012;
    f.darts = darts;
    f.nearness = std::move(nearness);
    return field(flight(t.rng, f));
}

// Crickets: chirps laid out in their own rhythm, every gap a little different.
Buffer chirping(Take& t, const Cricket& c, double seconds, double chirpGap, double jitter) {
    Buffer out;
    for (double at = 0.0; at < seconds;
         at += chirpGap * t.rng.uniform(1.0 - jitter, 1.0 + jitter)) {
        place(out, at, cricketChirp(t.rng, c), t.rng.uniform(0.85, 1.0));
    }
    return out;
}

Buffer cicada(Take& t, Cicada c) {
    c.rasp *= t.rng.uniform(0.9, 1.1);
    return field(cicadaSong(t.rng, c, Edge::Linear, nullptr, nullptr));
}

Buffer africanCicada(Take& t) {
    Cicada c;
    c.seconds = 6.0;
    c.carrier = 5200.0;
    c.clickHz = 340.0;
    c.level = {{0.0, 0.0}, {0.005, 0.6}, {1.0, 1.0}, {5.0, 0.9}, {6.0, 0.0}};
    c.pulseHz = 7.5;
    c.pulseDepth = 0.85;
    c.rasp = 0.35;
    return cicada(t, c);
}

Buffer prairieCicada(Take& t) {
    Cicada c;
    c.seconds = 6.5;
    c.carrier = 4200.0;
    c.clickHz = 210.0;
    c.level = {{0.0, 0.0}, {0.005, 0.35}, {3.0, 1.0}, {5.0, 0.8}, {6.5, 0.0}};
    c.pace = {{0.0, 0.8}, {3.0, 1.1}, {6.5, 0.7}};
    c.rasp = 0.6;
    return cicada(t, c);
}

Buffer grasslandCicada(Take& t) {
    // Short ticking phrases: "tsip-tsip-tsip".
    Buffer out;
    for (double at : rhythm(t.rng, 0.0, 4.0, 1, 0.0, 0.32, 0.06)) {
        Cicada c;
        c.seconds = t.rng.uniform(0.07, 0.1);
        c.carrier = 7200.0;
        c.clickHz = 450.0;
        c.level = swell(c.seconds, 0.004, 0.02);
        c.rasp = 0.3;
        place(out, at, cicadaSong(t.rng, c, Edge::Linear, nullptr, nullptr),
              t.rng.uniform(0.8, 1.0));
    }
    return field(std::move(out));
}

Buffer indianCicada(Take& t) {
    // Ticks gathering into a piercing siren that rises and holds.
    Cicada c;
    c.seconds = 7.5;
    c.carrier = 4400.0;
    c.clickHz = 260.0;
    c.level = {{0.0, 0.0}, {0.004, 0.5}, {1.5, 0.8}, {3.0, 1.0}, {6.5, 1.0}, {7.5, 0.0}};
    c.pace = {{0.0, 0.06}, {1.5, 0.5}, {2.5, 1.0}, {6.5, 1.1}, {7.5, 0.8}};
    // The body's ring climbs as the song grows.
    c.glide = {{0.0, 0.8}, {1.5, 0.85}, {4.0, 1.12}, {7.5, 1.15}};
    c.rasp = 0.25;
    return field(cicadaSong(t.rng, c, Edge::Linear, nullptr, nullptr));
}

Buffer brownCicada(Take& t) {
    // Slow "chk-chk" beats quickening into a buzz, then dying.
    Buffer out;
    double at = 0.0, gap = 0.3;
    while (gap > 0.05) {
        Cicada c;
        c.seconds = 0.05;
        c.carrier = 3000.0;
        c.clickHz = 180.0;
        c.level = swell(0.05, 0.003, 0.02);
        place(out, at, cicadaSong(t.rng, c, Edge::Linear, nullptr, nullptr), 0.7);
        at += gap;
        gap *= 0.88;
    }
    Cicada c;
    c.seconds = 2.5;
    c.carrier = 3000.0;
    c.clickHz = 190.0;
    c.level = {{0.0, 0.0}, {0.05, 1.0}, {1.8, 0.9}, {2.5, 0.0}};
    c.pace = {{0.0, 1.0}, {1.8, 0.9}, {2.5, 0.4}};
    c.rasp = 0.5;
    place(out, at, cicadaSong(t.rng, c, Edge::Linear, nullptr, nullptr));
    return field(std::move(out));
}

Buffer treeCricket(Take& t) {
    Cricket c{2700.0, 7, 55.0, 0.012, 0.02};
    return night(chirping(t, c, 5.0, 0.5, 0.03));
}

Buffer raspyCricket(Take& t) {
    Buffer out;
    double at = 0.0;
    while (at < 4.0) {
        const int pulses = 5 + t.rng.below(8);
        place(out, at, katydidRasp(t.rng, t.rng.uniform(3200, 3800), pulses, 32.0),
              t.rng.uniform(0.7, 1.0));
        at += pulses / 32.0 + t.rng.uniform(0.15, 0.5);
    }
    return field(std::move(out));
}

Buffer creekHopper(Take& t) {
    // A grasshopper's crackling flight: bursts of dry snaps, its wings whirring.
    Buffer out;
    double at = 0.0;
    for (int burst = 0; burst < 3; ++burst) {
        const double len = t.rng.uniform(0.4, 0.8);
        const double rate = t.rng.uniform(30, 45);
        for (double s = 0.0; s < len; s += (1.0 / rate) * t.rng.uniform(0.7, 1.3)) {
            place(out, at + s,
                  bandBurst(t.rng, 0.0001, t.rng.uniform(0.0015, 0.004), t.rng.uniform(3000, 7000),
                            2.0),
                  t.rng.uniform(0.4, 1.0));
        }
        Buzz w;
        w.seconds = len;
        w.hz = {{0.0, t.rng.uniform(28, 36)}};
        w.sharpness = 0.95;
        w.air = 0.6;
        w.level = swell(len, 0.01, 0.05);
        place(out, at, buzz(t.rng, w), 0.1);
        at += len + t.rng.uniform(0.5, 0.9);
    }
    filter(out, Edge::Linear, {Biquad::highpass(1500.0), Biquad::highpass(1500.0)});
    return field(std::move(out));
}

Buffer leafCricket(Take& t) {
    // A thin, fast trill high in the leaves: trills of a second or two with pauses.
    Buffer out;
    double at = 0.0;
    for (int k = 0; k < 3; ++k) {
        const double len = t.rng.uniform(1.0, 1.6);
        Cricket c{t.rng.uniform(6300, 6800), static_cast<int>(len * 40.0), 40.0, 0.012, 0.05};
        place(out, at, cricketChirp(t.rng, c));
        at += len + t.rng.uniform(0.4, 0.7);
    }
    return field(std::move(out));
}

Buffer indianCricket(Take& t) {
    Cricket c{4600.0, 4, 30.0, 0.02, 0.04};
    return night(chirping(t, c, 5.0, 0.42, 0.05));
}

Buffer spottedKatydid(Take& t) {
    Buffer out;
    for (double at : rhythm(t.rng, 0.0, 5.0, 2, 0.09, 0.55, 0.05)) {
        place(out, at, katydidRasp(t.rng, t.rng.uniform(11000, 12500), 3, 120.0));
    }
    return night(std::move(out));
}

Buffer commonKatydid(Take& t) {
    // "ka-ty-did": groups of two to four rasps.
    Buffer out;
    double at = 0.0;
    while (at < 5.5) {
        const int rasps = 2 + t.rng.below(3);
        for (int k = 0; k < rasps; ++k) {
            place(out, at, katydidRasp(t.rng, t.rng.uniform(4800, 5300), 6, 80.0),
                  t.rng.uniform(0.85, 1.0));
            at += t.rng.uniform(0.14, 0.17);
        }
        at += t.rng.uniform(0.45, 0.6);
    }
    return night(std::move(out));
}

Buffer leafRoller(Take& t) {
    // Drumming on a rolled leaf: soft runs of ticks, and the leaf rustling.
    Buffer out;
    double at = 0.0;
    for (int run = 0; run < 4; ++run) {
        const int ticks = 5 + t.rng.below(8);
        const double rate = t.rng.uniform(14, 22);
        for (int k = 0; k < ticks; ++k) {
            Buffer tick = bump(t.rng.uniform(0.0006, 0.001));
            tick.resize(samples(0.05), 0.0f);
            const std::vector<Mode> leaf{{t.rng.uniform(1400, 1800), 0.02, 1.0},
                                         {t.rng.uniform(2800, 3400), 0.012, 0.6}};
            ring(tick, leaf, Edge::Linear);
            place(out, at + k / rate, tick, t.rng.uniform(0.7, 1.0));
        }
        Buffer rustle = noiseBurst(t.rng, 0.02, t.rng.uniform(0.15, 0.3));
        filter(rustle, Edge::Linear, {Biquad::highpass(2500.0), Biquad::lowpass(9000.0)});
        place(out, at + ticks / rate, rustle, 0.015);
        at += ticks / rate + t.rng.uniform(0.3, 0.7);
    }
    filter(out, Edge::Linear, {Biquad::highpass(900.0), Biquad::highpass(900.0)});
    return field(std::move(out));
}

Buffer brownLizard1(Take& t) {
    return night(geckoChirps(t.rng, 8, 2600.0));
}

Buffer brownLizard2(Take& t) {
    Buffer out = geckoChirps(t.rng, 5, 2500.0);
    place(out, static_cast<double>(out.size()) / kRate + 0.6, geckoChirps(t.rng, 6, 2450.0), 0.9);
    return night(std::move(out));
}

Buffer branchClimber(Take& t) {
    // Claws scrambling up bark: quick runs of scratchy steps, pausing.
    Buffer out;
    double at = 0.0;
    for (int run = 0; run < 3; ++run) {
        const int steps = 6 + t.rng.below(8);
        const double rate = t.rng.uniform(9, 14);
        for (int k = 0; k < steps; ++k) {
            for (int c = 0; c < 2 + t.rng.below(3); ++c) {
                place(out, at + k / rate + t.rng.uniform(0.0, 0.02),
                      bandBurst(t.rng, 0.001, t.rng.uniform(0.01, 0.03), t.rng.uniform(2000, 6000),
                                0.9),
                      t.rng.uniform(0.5, 1.0));
            }
        }
        at += steps / rate + t.rng.uniform(0.4, 0.8);
    }
    return field(std::move(out));
}

Buffer treeLizard(Take& t) {
    // Squeaky chirps, a scratch of claws between.
    Buffer out;
    double at = 0.0;
    for (int k = 0; k < 4; ++k) {
        Syllable s;
        s.seconds = t.rng.uniform(0.05, 0.09);
        const double f = t.rng.uniform(3000, 3600);
        s.hz = glide(s.seconds, f, f * t.rng.uniform(1.3, 1.5));
        s.partials = {1.0, 0.3, 0.1};
        s.breath = 0.2;
        place(out, at, syllable(t.rng, s));
        if (t.rng.chance(0.5)) {
            place(out, at + 0.15, bandBurst(t.rng, 0.001, 0.02, t.rng.uniform(2500, 5000), 0.8),
                  0.4);
        }
        at += t.rng.uniform(0.3, 0.6);
    }
    return night(std::move(out));
}

Buffer greenFrog(Take& t) {
    Buffer out;
    place(out, 0.0, greenFrogGunk(t.rng));
    place(out, 0.7, greenFrogGunk(t.rng), 0.85);
    place(out, 1.7, greenFrogGunk(t.rng), 0.95);
    return night(std::move(out));
}

// Marsh frogs: the laughing "rek-ek-ek-ek" run, ending in a long purr.
Buffer marshRun(Rng& r, int croaks, double pitch) {
    Buffer out;
    double at = 0.0;
    for (int k = 0; k < croaks; ++k) {
        Croak c;
        c.seconds = r.uniform(0.1, 0.14);
        c.pulseRate = r.uniform(45, 60);
        c.carrier = pitch * r.uniform(0.95, 1.05);
        c.second = c.carrier * 2.1;
        c.ringing = 0.015;
        place(out, at, croak(r, c), k == 0 ? 1.0 : r.uniform(0.75, 0.95));
        at += r.uniform(0.2, 0.26);
    }
    Croak purr;
    purr.seconds = r.uniform(0.5, 0.8);
    purr.pulseRate = 38.0;
    purr.carrier = pitch * 0.9;
    purr.second = purr.carrier * 2.2;
    place(out, at, croak(r, purr), 0.8);
    return out;
}

Buffer marshFrog1(Take& t) {
    return night(marshRun(t.rng, 10, 850.0));
}

Buffer marshFrog2(Take& t) {
    Buffer out = marshRun(t.rng, 5, 800.0);
    place(out, static_cast<double>(out.size()) / kRate + 0.5, marshRun(t.rng, 7, 820.0), 0.9);
    return night(std::move(out));
}

Buffer treeFrog1(Take& t) {
    // A fast, loud "krek-krek-krek".
    Buffer out;
    double at = 0.0;
    for (int k = 0; k < 14; ++k) {
        Croak c;
        c.seconds = t.rng.uniform(0.04, 0.055);
        c.pulseRate = t.rng.uniform(100, 120);
        c.carrier = t.rng.uniform(1900, 2100);
        c.second = c.carrier * 1.5;
        c.ringing = 0.01;
        place(out, at, croak(t.rng, c), t.rng.uniform(0.85, 1.0));
        at += t.rng.uniform(0.13, 0.16);
    }
    return night(std::move(out));
}

Buffer treeFrog2(Take& t) {
    // "rib-bit": a two-part call, the second part rising.
    Buffer out;
    double at = 0.0;
    for (int k = 0; k < 6; ++k) {
        Croak a;
        a.seconds = 0.07;
        a.pulseRate = 90.0;
        a.carrier = t.rng.uniform(1500, 1650);
        a.second = a.carrier * 1.9;
        a.ringing = 0.012;
        Croak b = a;
        b.seconds = 0.11;
        b.pulseRate = 110.0;
        b.carrier = a.carrier * 1.15;
        place(out, at, croak(t.rng, a), 0.85);
        place(out, at + 0.1, croak(t.rng, b));
        at += t.rng.uniform(0.55, 0.75);
    }
    return night(std::move(out));
}

}  // namespace

void addInsectRecipes(std::vector<Recipe>& out) {
    const auto add = [&](int file, const char* name, double seconds, const char* summary,
                         std::function<Buffer(Take&)> render) {
        out.push_back({"bin/" + std::to_string(file) + ".raz", name, kRandomTwo, Kind::OneShot,
                       seconds, summary, std::move(render)});
    };
    add(51, "Bumble bee 1", 6.0,
        "a bumble bee taking off, coming close, darting twice round a flower and flying off: a "
        "wingbeat pulse train near 140 Hz with vibrato, its level, brightness and pitch following "
        "the flight.",
        bumbleBee);
    add(52, "Wasp", 4.5,
        "a wasp: a thinner, nastier buzz near 200 Hz, darting four times to and fro.", wasp);
    add(53, "Hoverfly 1", 4.0,
        "a hoverfly's whine near 240 Hz hanging in the air, then darting off.", [](Take& t) {
            return hoverfly(t, 4.0, 1, {{0.0, 0.8}, {3.0, 0.9}, {3.4, 0.6}, {4.0, 0.0}}, 240.0);
        });
    add(54, "Hoverfly 2", 5.0, "the hoverfly coming in, hovering with two darts.", [](Take& t) {
        return hoverfly(t, 5.0, 2, {{0.0, 0.5}, {1.0, 1.0}, {4.2, 0.9}, {5.0, 0.0}}, 235.0);
    });
    add(55, "Hoverfly 3", 2.5, "the hoverfly passing by close.", [](Take& t) {
        return hoverfly(t, 2.5, 0, {{0.0, 0.4}, {1.1, 1.0}, {2.5, 0.0}}, 250.0);
    });
    add(56, "Hoverfly 4", 6.0, "the hoverfly close at the ear, restless, darting often.",
        [](Take& t) {
            return hoverfly(t, 6.0, 5, {{0.0, 0.9}, {2.0, 1.0}, {4.0, 0.85}, {6.0, 0.2}}, 245.0);
        });
    add(57, "African cicada", 6.5,
        "tymbal clicks 340 a second ringing near 5.2 kHz, the song pulsing seven times a second.",
        africanCicada);
    add(58, "Prarie cicada", 7.0,
        "a hissing buzz near 4.2 kHz, clicks 210 a second, swelling and fading.", prairieCicada);
    add(59, "Grassland cicada", 4.5, "short high \"tsip\"s near 7 kHz, three a second.",
        grasslandCicada);
    add(60, "Indian cicada", 8.0,
        "ticks quickening into a piercing siren near 4-5 kHz that rises and holds.", indianCicada);
    add(61, "Brown Cicada", 6.0,
        "slow low \"chk\"s near 3 kHz quickening into a buzz that dies away.", brownCicada);
    add(62, "Tree cricket", 5.5,
        "a tree cricket's soft pure \"treet\"s near 2.7 kHz, two a second.", treeCricket);
    add(63, "Raspy cricket", 4.5, "uneven raspy runs of noisy scrapes near 3.5 kHz.", raspyCricket);
    add(64, "Creek hopper", 4.0,
        "a grasshopper's crackling flight: bursts of dry snaps with a whir of wings.", creekHopper);
    add(65, "Leaf cricket", 5.5, "a thin fast trill near 6.5 kHz, 40 pulses a second, in runs.",
        leafCricket);
    add(66, "Indian cricket", 5.5,
        "a field cricket's \"cri-cri\": chirps of four pulses near 4.6 kHz, two and a half a "
        "second.",
        indianCricket);
    add(67, "Spotted katydid", 5.5, "high paired \"zip-zip\" rasps near 12 kHz.", spottedKatydid);
    add(68, "Common katydid", 6.5, "\"ka-ty-did\": groups of two to four noisy rasps near 5 kHz.",
        commonKatydid);
    add(69, "Leaf roller ", 5.0, "soft runs of ticks drummed on a leaf, and the leaf rustling.",
        leafRoller);
    add(70, "Brown lizard 1", 2.5, "a gecko's run of eight clicking chirps, slowing.",
        brownLizard1);
    add(71, "Brown lizard 2", 3.0, "the gecko again, two shorter runs.", brownLizard2);
    add(72, "Branch climber", 4.5, "claws scrambling up bark in quick runs of scratchy steps.",
        branchClimber);
    add(73, "Tree lizard", 3.0, "squeaky rising chirps near 3-5 kHz with a scratch of claws.",
        treeLizard);
    add(74, "Green frog 2", 3.0,
        "a green frog's \"gunk\" three times: a plucked, twanging voice near 120 Hz.", greenFrog);
    add(75, "Marsh frog 1", 4.0,
        "a marsh frog's laughing \"rek-ek-ek\": ten pulsed croaks near 850 Hz and a purr.",
        marshFrog1);
    add(76, "Marsh frog 2", 5.0, "the marsh frog again, two shorter runs.", marshFrog2);
    add(77, "Tree frog 1", 3.0,
        "a tree frog's loud fast \"krek-krek\": fourteen short pulsed calls near 2 kHz.",
        treeFrog1);
    add(78, "Tree frog 2", 4.5, "a chorus frog's two-part \"rib-bit\", six times.", treeFrog2);
}

}  // namespace brevane::soundgen
