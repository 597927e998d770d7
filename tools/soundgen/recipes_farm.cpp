// Farm animals by source and filter: a glottal pulse train with vibrato and breath through
// moving formants for moos, meows, crows, bleats, whinnies and honks; short voiced noisy
// bursts for barks; resonant strikes in each gait's rhythm for hooves. Random bank three
// holds them; the country loops hear them from afar.
#include <algorithm>
#include <cmath>

#include "calls.h"
#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace calls {

Buffer cowMoo(Rng& r, double pitch, double seconds, double strain) {
    Voice v;
    v.seconds = seconds;
    const double p = pitch * (1.0 + 0.3 * strain) * r.uniform(0.97, 1.03);
    const double s = seconds;
    v.f0 = {{0.0, p * 0.8}, {0.25 * s, p}, {0.7 * s, p * 1.05}, {s, p * 0.75}};
    v.vibratoHz = 4.0;
    v.vibratoDepth = 0.01;
    v.jitter = 0.012;
    v.roughness = 0.15 + 0.5 * strain;
    v.breath = 0.12 + 0.1 * strain;
    v.closing = 0.35 - 0.15 * strain;
    v.openQuotient = 0.65;
    v.level = {{0.0, 0.0}, {0.15 * s, 0.8}, {0.5 * s, 1.0}, {0.85 * s, 0.8}, {s, 0.0}};
    // The mouth opens out of the hum and closes again at the end.
    const auto mouth = [&](double closed, double open) {
        return Curve{{0.0, closed},
                     {0.35 * s, open},
                     {0.8 * s, closed + 0.8 * (open - closed)},
                     {s, closed + 0.2 * (open - closed)}};
    };
    v.formants = {{mouth(250, 700), 3.0, 0.0},
                  {mouth(700, 1100), 4.0, -4.0},
                  {mouth(2100, 2400), 5.0, -10.0},
                  {{{0.0, 3300}}, 6.0, -16.0}};
    return voice(r, v);
}

Buffer catMeow(Rng& r, double pitch, double seconds, bool asking) {
    Voice v;
    const double s = seconds, p = pitch * r.uniform(0.97, 1.03);
    v.seconds = s;
    v.f0 = {{0.0, p * 0.85},
            {0.35 * s, p * 1.25},
            {0.75 * s, p * 1.1},
            {s, asking ? p * 1.3 : p * 0.8}};
    v.vibratoHz = 6.0;
    v.vibratoDepth = 0.012;
    v.breath = 0.12;
    v.closing = 0.25;
    v.level = {{0.0, 0.0}, {0.06, 0.7}, {0.45 * s, 1.0}, {0.8 * s, 0.8}, {s, 0.0}};
    // "m" - "i" - "a" - "ow".
    v.formants = {
        {{{0.0, 500}, {0.2 * s, 650}, {0.5 * s, 1100}, {0.85 * s, 750}, {s, 550}}, 4.0, 0.0},
        {{{0.0, 1600}, {0.2 * s, 2300}, {0.5 * s, 1800}, {0.85 * s, 1200}, {s, 1100}}, 5.0, -3.0},
        {{{0.0, 3000}, {0.5 * s, 3400}, {s, 2900}}, 6.0, -9.0}};
    return voice(r, v);
}

Buffer roosterCrow(Rng& r, double pitch, double held) {
    Buffer out;
    double t = 0.0;
    const auto part = [&](double seconds, Curve f0, double gain) {
        Voice v;
        v.seconds = seconds;
        v.f0 = std::move(f0);
        v.roughness = 0.45;
        v.jitter = 0.025;
        v.breath = 0.25;
        v.closing = 0.12;
        v.openQuotient = 0.5;
        v.level = swell(seconds, 0.01, std::min(0.05, 0.3 * seconds));
        v.formants = {{{{0.0, r.uniform(900, 1100)}}, 3.0, 0.0},
                      {{{0.0, 2200}}, 4.0, -3.0},
                      {{{0.0, 3500}}, 5.0, -8.0}};
        if (seconds > 0.5) {
            v.vibratoHz = 9.0;
            v.vibratoDepth = 0.02;
            v.level = {{0.0, 0.0}, {0.02, 1.0}, {0.6 * seconds, 0.9}, {seconds, 0.0}};
        }
        place(out, t, voice(r, v), gain);
        t += seconds + r.uniform(0.025, 0.045);
    };
    const double p = pitch * r.uniform(0.97, 1.03);
    part(0.13, glide(0.13, p * 0.85, p * 0.95), 0.8);
    part(0.09, glide(0.09, p, p * 1.02), 0.75);
    part(0.18, glide(0.18, p * 1.05, p * 1.12), 0.95);
    part(0.12, glide(0.12, p * 1.08, p * 1.0), 0.85);
    part(held, {{0.0, p * 1.1}, {0.2, p * 1.22}, {0.7 * held, p * 1.15}, {held, p * 0.85}}, 1.0);
    return out;
}

Buffer dogBark(Rng& r, double size) {
    const double small = 1.0 - size;
    const double f = (260.0 + 440.0 * small) * r.uniform(0.93, 1.07);
    Voice v;
    const double s = (0.11 + 0.09 * size) * r.uniform(0.9, 1.1);
    v.seconds = s;
    v.f0 = {{0.0, f * 1.15}, {0.25 * s, f * 1.2}, {s, f * 0.7}};
    v.roughness = 0.55;
    v.jitter = 0.04;
    v.breath = 0.35;
    v.closing = 0.15;
    v.openQuotient = 0.5;
    v.level = {{0.0, 0.0}, {0.006, 1.0}, {0.35 * s, 0.8}, {s, 0.0}};
    v.voicing = {{0.0, 0.6}, {0.03, 1.0}, {0.7 * s, 0.8}, {s, 0.3}};
    const double k = 1.0 + 0.3 * small;
    v.formants = {{{{0.0, 400 + 200 * small}, {0.3 * s, 800 + 300 * small}, {s, 500}}, 3.0, 0.0},
                  {{{0.0, 1100 * k}, {0.3 * s, 1500 * k}, {s, 1200 * k}}, 4.0, -3.0},
                  {{{0.0, 2600 * (1.0 + 0.2 * small)}}, 5.0, -8.0}};
    return voice(r, v);
}

Buffer dogGrowl(Rng& r, double seconds) {
    Voice v;
    v.seconds = seconds;
    v.f0 = {{0.0, 85}, {0.5 * seconds, 95}, {seconds, 80}};
    v.jitter = 0.06;
    v.roughness = 0.9;
    v.breath = 0.5;
    v.tremoloHz = 5.0;
    v.tremoloDepth = 0.3;
    v.level = swell(seconds, 0.08, 0.1);
    v.formants = {
        {{{0.0, 400}}, 3.0, 0.0}, {{{0.0, 1000}}, 4.0, -4.0}, {{{0.0, 2400}}, 5.0, -10.0}};
    return voice(r, v);
}

Buffer bleat(Rng& r, double pitch, double seconds, double quaver, double harsh, double open) {
    Voice v;
    const double s = seconds, p = pitch * r.uniform(0.96, 1.04);
    v.seconds = s;
    v.f0 = {{0.0, p * 0.9}, {0.15 * s, p * 1.05}, {0.7 * s, p}, {s, p * 0.85}};
    v.vibratoHz = 6.5 + 5.0 * quaver;
    v.vibratoDepth = 0.02 + 0.05 * quaver;
    v.tremoloHz = v.vibratoHz;
    v.tremoloDepth = 0.2 + 0.5 * quaver;
    v.roughness = 0.1 + 0.5 * harsh;
    v.jitter = 0.01 + 0.02 * harsh;
    v.breath = 0.1 + 0.15 * harsh;
    v.closing = 0.2;
    v.level = {{0.0, 0.0}, {0.05, 0.8}, {0.3 * s, 1.0}, {0.8 * s, 0.85}, {s, 0.0}};
    // From a hum into "eh" or "aa".
    v.formants = {
        {{{0.0, 350}, {0.12 * s, 500 + 300 * open}, {0.8 * s, 480 + 280 * open}, {s, 400}},
         3.5,
         0.0},
        {{{0.0, 1500}, {0.12 * s, 1900 - 600 * open}, {0.8 * s, 1850 - 550 * open}, {s, 1500}},
         5.0,
         -4.0},
        {{{0.0, 2700}}, 6.0, -10.0},
        {{{0.0, 3600}}, 6.0, -14.0}};
    return voice(r, v);
}

Buffer horseWhinny(Rng& r, double pitch, double seconds) {
    Buffer out;
    const double p = pitch * r.uniform(0.96, 1.04);
    // The squeal: high, shaking hard, falling away.
    Voice v;
    v.seconds = seconds;
    v.f0 = {{0.0, p * 0.95},
            {0.15 * seconds, p * 1.1},
            {0.55 * seconds, p * 0.95},
            {seconds, p * 0.55}};
    v.vibratoHz = r.uniform(11, 14);
    v.vibratoDepth = 0.07;
    v.tremoloHz = v.vibratoHz;
    v.tremoloDepth = 0.4;
    v.roughness = 0.2;
    v.breath = 0.15;
    v.closing = 0.2;
    v.level = {{0.0, 0.0}, {0.03, 0.9}, {0.3 * seconds, 1.0}, {0.8 * seconds, 0.7}, {seconds, 0.0}};
    v.formants = {
        {{{0.0, 1000}}, 3.0, 0.0}, {{{0.0, 2200}}, 4.0, -3.0}, {{{0.0, 3200}}, 5.0, -8.0}};
    place(out, 0.0, voice(r, v));
    // The nickers: low breathy "huh-huh-huh".
    double t = seconds + 0.02;
    const int count = 3 + r.below(3);
    for (int k = 0; k < count; ++k) {
        Voice n;
        n.seconds = r.uniform(0.07, 0.1);
        n.f0 = glide(n.seconds, p * 0.24, p * 0.2);
        n.breath = 0.6;
        n.voicing = {{0.0, 0.5}};
        n.roughness = 0.4;
        n.level = swell(n.seconds, 0.01, 0.04);
        n.formants = {{{{0.0, 500}}, 3.0, 0.0}, {{{0.0, 1300}}, 4.0, -5.0}};
        place(out, t, voice(r, n), 0.55 * std::pow(0.85, k));
        t += r.uniform(0.1, 0.13);
    }
    return out;
}

Buffer horseSnort(Rng& r) {
    // The nostrils flutter in the blast of air: the flow pulses thirty times a second.
    Voice v;
    v.seconds = r.uniform(0.6, 0.9);
    v.f0 = {{0.0, r.uniform(28, 36)}, {v.seconds, r.uniform(22, 28)}};
    v.jitter = 0.08;
    v.voicing = {{0.0, 0.15}};
    v.breath = 1.0;
    v.openQuotient = 0.5;
    v.level = {{0.0, 0.0}, {0.015, 1.0}, {0.2 * v.seconds, 0.8}, {v.seconds, 0.0}};
    v.formants = {{{{0.0, 500}}, 1.5, 0.0}, {{{0.0, 1500}}, 2.0, -2.0}, {{{0.0, 3500}}, 2.0, -6.0}};
    return voice(r, v);
}

Buffer hoofStrike(Rng& r, double hard) {
    const std::size_t n = samples(0.25);
    const Strike hit{0.0, 1.0, 0.0004 + 0.003 * (1.0 - hard)};
    Buffer out = strikes(n, std::span<const Strike>(&hit, 1), Edge::Linear);
    // A knock of the ground, and the ring of the hoof wall and shoe on hard going.
    const std::vector<Mode> modes{{r.uniform(90, 130), 0.08, 1.0},
                                  {r.uniform(250, 400), 0.04, 0.6},
                                  {r.uniform(900, 1400), 0.03, 1.2 * hard},
                                  {r.uniform(2000, 3200), 0.02, 0.8 * hard},
                                  {r.uniform(3500, 5000), 0.012, 0.5 * hard}};
    ring(out, modes, Edge::Linear);
    normaliseRms(out);
    Buffer grit = bandBurst(r, 0.0005, 0.03, r.uniform(2500, 4000), 0.7);
    normaliseRms(grit);
    mixInto(out, grit, 0.2 + 0.5 * hard);
    const double peak = peakOf(out);
    if (peak > 0.0) {
        scale(out, 1.0 / peak);
    }
    return out;
}

Buffer gooseHonk(Rng& r, double pitch) {
    Voice v;
    const double s = r.uniform(0.18, 0.3), p = pitch * r.uniform(0.95, 1.05);
    v.seconds = s;
    v.f0 = {{0.0, p * 0.9}, {0.3 * s, p * 1.08}, {s, p * 0.85}};
    v.roughness = 0.35;
    v.closing = 0.1;
    v.openQuotient = 0.45;
    v.breath = 0.12;
    v.level = swell(s, 0.012, 0.05);
    v.formants = {{{{0.0, 700}, {0.4 * s, 1000}, {s, 800}}, 3.0, 0.0},
                  {{{0.0, 2000}}, 5.0, -2.0},
                  {{{0.0, 3100}}, 6.0, -6.0}};
    return voice(r, v);
}

}  // namespace calls

namespace {

using namespace calls;

// A farmyard: walls and barns give a short slap back.
Buffer farmyard(Buffer b) {
    return inSpace(std::move(b), 0.9, 55.0, 5000.0, 0.15);
}
// Open pasture: little but air.
Buffer pasture(Buffer b) {
    return inSpace(std::move(b), 0.6, 40.0, 6000.0, 0.08);
}

Buffer far(Buffer b, double nearness) {
    distance(b, {{0.0, nearness}}, Edge::Linear);
    return b;
}

Buffer cow1(Take& t) {
    return pasture(cowMoo(t.rng, 118.0, 1.9, 0.1));
}

Buffer cow2(Take& t) {
    return pasture(cowMoo(t.rng, 135.0, 1.2, 0.55));
}

Buffer cow3(Take& t) {
    Buffer out = cowMoo(t.rng, 125.0, 0.8, 0.25);
    place(out, 1.3, cowMoo(t.rng, 122.0, 1.5, 0.2));
    return pasture(std::move(out));
}

Buffer cat1(Take& t) {
    return farmyard(catMeow(t.rng, 560.0, 0.75, false));
}

Buffer cat2(Take& t) {
    Buffer out = catMeow(t.rng, 620.0, 0.45, false);
    place(out, 0.9, catMeow(t.rng, 600.0, 1.0, true));
    return farmyard(std::move(out));
}

Buffer rooster1(Take& t) {
    return farmyard(roosterCrow(t.rng, 520.0, 0.9));
}

Buffer rooster2(Take& t) {
    return inSpace(far(roosterCrow(t.rng, 480.0, 1.3), 0.7), 1.4, 70.0, 4000.0, 0.25);
}

Buffer barks(Take& t, int count, double size, double gapLo, double gapHi) {
    Buffer out;
    double at = 0.0;
    for (int k = 0; k < count; ++k) {
        place(out, at, dogBark(t.rng, size * t.rng.uniform(0.95, 1.05)),
              k == 0 ? 1.0 : t.rng.uniform(0.8, 1.0));
        at += t.rng.uniform(gapLo, gapHi);
    }
    return out;
}

Buffer dog1(Take& t) {
    return farmyard(barks(t, 3, 0.9, 0.45, 0.6));
}

Buffer dog2(Take& t) {
    return farmyard(barks(t, 5, 0.1, 0.18, 0.26));
}

Buffer dog3(Take& t) {
    return farmyard(barks(t, 2, 0.5, 0.3, 0.38));
}

Buffer dog4(Take& t) {
    Buffer b = barks(t, 4, 0.7, 0.5, 1.1);
    return inSpace(far(std::move(b), 0.45), 1.8, 80.0, 3000.0, 0.35);
}

Buffer dog5(Take& t) {
    // A bark first, then the growl behind it and a last bark: a one-shot starts on its onset.
    Buffer out = dogBark(t.rng, 1.0);
    place(out, 0.4, dogGrowl(t.rng, 0.9), 0.45);
    place(out, 1.45, dogBark(t.rng, 0.97), 0.95);
    return farmyard(std::move(out));
}

Buffer lamb(Take& t) {
    Buffer out = bleat(t.rng, 560.0, 0.7, 0.6, 0.1, 0.2);
    place(out, 1.1, bleat(t.rng, 580.0, 0.6, 0.65, 0.1, 0.2), 0.9);
    return pasture(std::move(out));
}

Buffer sheep1(Take& t) {
    return pasture(bleat(t.rng, 240.0, 0.9, 0.45, 0.3, 0.8));
}

Buffer sheep2(Take& t) {
    Buffer out = bleat(t.rng, 260.0, 0.6, 0.5, 0.3, 0.75);
    place(out, 1.0, bleat(t.rng, 255.0, 0.8, 0.5, 0.3, 0.8), 0.95);
    return pasture(std::move(out));
}

Buffer sheep3(Take& t) {
    return pasture(bleat(t.rng, 190.0, 1.3, 0.35, 0.5, 0.9));
}

Buffer sheep4(Take& t) {
    // A flock over the field: bleats of several sheep near and far.
    Buffer out = bleat(t.rng, 245.0, 0.8, 0.45, 0.3, 0.8);
    double at = 0.6;
    for (int k = 0; k < 5; ++k) {
        const double pitch = t.rng.uniform(200, 330);
        Buffer b = bleat(t.rng, pitch, t.rng.uniform(0.6, 1.1), t.rng.uniform(0.3, 0.6),
                         t.rng.uniform(0.2, 0.5), t.rng.uniform(0.6, 0.9));
        place(out, at, far(std::move(b), t.rng.uniform(0.4, 0.85)));
        at += t.rng.uniform(0.5, 1.0);
    }
    return pasture(std::move(out));
}

// Hooves in a gait: `beats` the offsets (seconds) and strengths of the footfalls of one
// stride, repeated every `stride` seconds for `seconds`, along a path of nearness.
struct Footfall {
    double at, gain;
};
Buffer gait(Rng& r, double seconds, double stride, std::span<const Footfall> beats, double hard,
            const Curve& nearness, bool breathing) {
    Buffer out;
    for (double s = 0.0; s < seconds; s += stride * r.uniform(0.97, 1.03)) {
        for (const auto& f : beats) {
            place(out, s + f.at + r.uniform(-0.006, 0.006),
                  hoofStrike(r, hard * r.uniform(0.85, 1.1)), f.gain * r.uniform(0.8, 1.0));
        }
        if (breathing) {
            Buffer puff = noiseBurst(r, 0.03, r.uniform(0.12, 0.2));
            filter(puff, Edge::Linear, {Biquad::bandpass(r.uniform(500, 800), 1.0)});
            place(out, s + 0.05, puff, 0.12);
        }
        if (r.chance(0.3)) {  // the tack jingling
            Buffer ring = bubble(r.uniform(3500, 5500), 0.0, r.uniform(0.1, 0.2));
            place(out, s + r.uniform(0.0, stride), ring, 0.06);
        }
    }
    out.resize(std::max(out.size(), samples(seconds)), 0.0f);
    distance(out, nearness, Edge::Linear);
    return out;
}

Buffer trotting(Take& t) {
    // Two beats a stride: the diagonal pairs land almost together, "clip-clop".
    const double beat = t.rng.uniform(0.31, 0.34);
    const Footfall pairs[] = {{0.0, 1.0}, {0.018, 0.7}, {beat, 0.85}, {beat + 0.022, 0.65}};
    return farmyard(
        gait(t.rng, 6.0, 2.0 * beat, pairs, 0.8, {{0.0, 0.75}, {3.0, 1.0}, {6.0, 0.8}}, false));
}

Buffer canterPast(Take& t, double seconds, double hard, double stride) {
    // Three beats a stride, the leading foreleg heaviest, then a moment in the air; the
    // horse comes up, passes close and goes.
    const Footfall beats[] = {
        {0.0, 0.7}, {0.11 * stride / 0.62, 0.85}, {0.21 * stride / 0.62, 1.0}};
    const Curve path{{0.0, 0.35}, {0.5 * seconds, 1.0}, {seconds, 0.05}};
    return pasture(gait(t.rng, seconds, stride, beats, hard, path, true));
}

Buffer whinny1(Take& t) {
    return farmyard(horseWhinny(t.rng, 950.0, 0.9));
}

Buffer whinny2(Take& t) {
    return farmyard(horseWhinny(t.rng, 820.0, 0.6));
}

Buffer snort(Take& t) {
    Buffer out = horseSnort(t.rng);
    place(out, static_cast<double>(out.size()) / kRate + 0.25, horseSnort(t.rng), 0.6);
    return farmyard(std::move(out));
}

Buffer goat1(Take& t) {
    return farmyard(bleat(t.rng, 380.0, 1.0, 0.9, 0.6, 0.3));
}

Buffer goat2(Take& t) {
    Buffer out = bleat(t.rng, 520.0, 0.6, 0.85, 0.5, 0.3);
    place(out, 0.9, bleat(t.rng, 540.0, 0.7, 0.9, 0.5, 0.3), 0.9);
    return farmyard(std::move(out));
}

Buffer honks(Rng& r, double pitch, double seconds, double gapLo, double gapHi) {
    Buffer out;
    for (double at = 0.0; at < seconds; at += r.uniform(gapLo, gapHi)) {
        place(out, at, gooseHonk(r, pitch), r.uniform(0.75, 1.0));
    }
    return out;
}

Buffer geese1(Take& t) {
    return pasture(honks(t.rng, 360.0, 2.2, 0.4, 0.7));
}

Buffer geese2(Take& t) {
    // A gaggle: five geese at their own pitch and place, honking over one another.
    Buffer out = honks(t.rng, 360.0, 5.0, 0.5, 1.1);
    for (int g = 0; g < 4; ++g) {
        Buffer b = honks(t.rng, t.rng.uniform(300, 450), t.rng.uniform(2.0, 4.0), 0.3, 0.9);
        place(out, t.rng.uniform(0.1, 2.0), far(std::move(b), t.rng.uniform(0.5, 0.9)));
    }
    return pasture(std::move(out));
}

Buffer geese3(Take& t) {
    // A skein flying over: honks from the whole line, wings beating, coming and going.
    const double seconds = 6.0;
    Buffer out;
    for (int g = 0; g < 6; ++g) {
        Buffer b = honks(t.rng, t.rng.uniform(320, 440), seconds, 0.35, 0.9);
        place(out, g == 0 ? 0.0 : t.rng.uniform(0.0, 0.6), b, t.rng.uniform(0.6, 1.0));
    }
    for (double at = 0.0; at < seconds; at += t.rng.uniform(0.28, 0.34)) {
        Buffer w = noiseBurst(t.rng, 0.03, 0.12);
        filter(w, Edge::Linear, {Biquad::bandpass(t.rng.uniform(500, 800), 0.8)});
        place(out, at, w, 0.15);
    }
    out.resize(samples(seconds + 0.5), 0.0f);
    distance(out, {{0.0, 0.45}, {2.5, 1.0}, {seconds + 0.5, 0.1}}, Edge::Linear);
    return inSpace(std::move(out), 1.2, 70.0, 5000.0, 0.15);
}

}  // namespace

void addFarmRecipes(std::vector<Recipe>& out) {
    const auto add = [&](int file, const char* name, double seconds, const char* summary,
                         std::function<Buffer(Take&)> render) {
        out.push_back({"bin/" + std::to_string(file) + ".raz", name, kRandomThree, Kind::OneShot,
                       seconds, summary, std::move(render)});
    };
    add(151, "Cow moo 1", 2.8,
        "a long low moo: glottal pulses near 120 Hz with vibrato and breath through formants "
        "that open out of the hum and close again.",
        cow1);
    add(152, "Cow moo 2", 2.0, "a higher, strained moo, rougher and brighter.", cow2);
    add(153, "Cow moo 3", 3.5, "a short moo and a long one.", cow3);
    add(154, "Cat meow 1", 1.6,
        "a \"m-ia-ow\" near 560 Hz, its formants gliding through the vowels.", cat1);
    add(155, "Cat meow 2", 2.4, "a short meow, then a long one asking, its end rising.", cat2);
    add(156, "Rooster 1", 3.0,
        "\"cock-a-doodle-doo\": five rough, bright voiced parts near 520 Hz, the last held and "
        "shaking.",
        rooster1);
    add(157, "Rooster 2", 4.0, "another rooster further off across the yard, its last note longer.",
        rooster2);
    add(158, "Dog bark 1", 2.5,
        "a big dog's three deep barks: short rough voiced bursts near 280 Hz, pitch falling.",
        dog1);
    add(159, "Dog bark 2", 2.0, "a small dog yapping five times, high and quick.", dog2);
    add(160, "Dog bark 3", 1.5, "a middle-sized dog's double bark.", dog3);
    add(161, "Dog bark 4", 5.0, "a dog barking far off, echoing.", dog4);
    add(162, "Dog bark 5", 2.8, "a big dog: a bark, a low rumbling growl and a bark again.", dog5);
    add(163, "Lamb", 2.5,
        "two high quavering \"meh\"s near 560 Hz: vibrato and tremolo shaking together.", lamb);
    add(164, "Sheep 1", 1.8, "one \"baa\" near 240 Hz, opening from a hum, quavering.", sheep1);
    add(165, "Sheep 2", 2.6, "two \"baa\"s.", sheep2);
    add(166, "Sheep 3", 2.3, "an old ewe's long rough low \"baa\".", sheep3);
    add(167, "Sheep 4", 6.0, "a flock across the field: six sheep near and far.", sheep4);
    add(168, "Horse trotting", 7.0,
        "a horse trotting on a road: strides of two beats, each a pair of hooves landing almost "
        "together, every strike a knock of the ground and a ring of the shoe.",
        trotting);
    add(169, "Horse whinney 1", 2.5,
        "a whinny: a high squeal near 950 Hz shaking at 12 Hz, falling away into low breathy "
        "nickers.",
        whinny1);
    add(170, "Horse whinney 2", 2.0, "a shorter, lower whinny.", whinny2);
    add(171, "Horse canter past", 6.5,
        "a horse cantering past on turf: three-beat strides with a breath in each, coming up, "
        "loud and bright as it passes, dull and faint as it goes.",
        [](Take& t) { return canterPast(t, 6.5, 0.35, 0.62); });
    add(172, "Horse canter past 2", 5.0, "a quicker canter past on harder ground.",
        [](Take& t) { return canterPast(t, 5.0, 0.75, 0.56); });
    add(173, "Horse snort", 2.2,
        "a horse blowing: noise through the nostrils fluttering thirty times a second, twice.",
        snort);
    add(174, "Goat bleat 1 ", 2.0,
        "a goat's harsh \"meh-eh-eh\" near 380 Hz, shaking eleven times a second.", goat1);
    add(175, "Goat bleat 2", 2.2, "a kid's two higher bleats.", goat2);
    add(176, "Geese 1", 3.0, "one goose honking: nasal, bright voiced honks near 360 Hz.", geese1);
    add(177, "Geese 2", 6.0, "a gaggle of five geese honking over one another.", geese2);
    add(178, "Geese 3", 7.0,
        "a skein of geese flying over: honks from the whole line and beating wings, coming and "
        "going.",
        geese3);
}

}  // namespace brevane::soundgen
