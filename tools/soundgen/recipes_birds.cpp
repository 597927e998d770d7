// Birds: songs built from syllables, pure or buzzy tones on pitch contours, laid out in
// each species' own rhythm. Random bank one holds them as one-shots; the living loops
// scatter the same calls.
#include <algorithm>
#include <cmath>

#include "calls.h"
#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace {

// A whistled note: nearly pure, with a trace of its harmonics.
Syllable whistle(double seconds, Curve hz) {
    Syllable s;
    s.seconds = seconds;
    s.hz = std::move(hz);
    s.partials = {1.0, 0.06, 0.02};
    return s;
}

// A short songbird note of one of five shapes around `hz`: the building block of warbles.
Syllable songNote(Rng& r, double hz, double seconds) {
    Syllable s = whistle(seconds, {});
    switch (r.below(5)) {
        case 0:
            s.hz = glide(seconds, hz * r.uniform(0.6, 0.8), hz * r.uniform(1.15, 1.45));
            break;
        case 1:
            s.hz = glide(seconds, hz * r.uniform(1.2, 1.5), hz * r.uniform(0.65, 0.85));
            break;
        case 2:
            s.hz = chevron(seconds, hz * 0.8, hz * r.uniform(1.1, 1.35), hz * 0.75);
            break;
        case 3:
            s.hz = {{0.0, hz}};
            s.vibratoHz = r.uniform(35, 90);
            s.vibratoDepth = r.uniform(0.03, 0.09);
            break;
        default:
            s.hz = {{0.0, hz * 1.1}, {0.3 * seconds, hz * 0.8}, {seconds, hz * 1.2}};
            break;
    }
    return s;
}

// `count` quick repeats of one tiny note: the trills inside warbles.
Buffer trill(Rng& r, double hz, int count, double rate, double noteShare) {
    Buffer out;
    const double len = noteShare / rate;
    const Syllable proto = songNote(r, hz, len);
    for (int k = 0; k < count; ++k) {
        Syllable s = proto;
        for (auto& p : s.hz) {
            p.v *= r.uniform(0.98, 1.02);
        }
        place(out, k / rate, syllable(r, s), r.uniform(0.8, 1.0));
    }
    return out;
}

// A sharp percussive "tk": clicks of starlings and thrushes.
Buffer click(Rng& r, double hz) {
    return bandBurst(r, 0.0002, r.uniform(0.004, 0.01), hz, 1.5);
}

}  // namespace

namespace calls {

Buffer tawnyHoot(Rng& r, double pause) {
    const double base = r.uniform(430, 470);
    auto hoot = [&](double seconds, double pitch) {
        Syllable s;
        s.seconds = seconds;
        s.hz = {{0.0, pitch * 0.9}, {0.12, pitch}, {seconds, pitch * 0.95}};
        s.partials = {1.0, 0.15, 0.05};
        s.breath = 0.12;
        s.breathQ = 6.0;
        s.level = swell(seconds, 0.06, std::min(0.15, 0.4 * seconds));
        return s;
    };
    Buffer out;
    place(out, 0.0, syllable(r, hoot(r.uniform(0.7, 0.85), base)));
    double t = 0.8 + pause;
    place(out, t, syllable(r, hoot(0.16, base * 1.03)), 0.7);
    t += 0.3;
    for (int k = 0; k < 2 + r.below(2); ++k) {
        place(out, t, syllable(r, hoot(0.07, base * 1.05)), 0.45);
        t += 0.12;
    }
    Syllable quaver = hoot(r.uniform(1.1, 1.4), base * 1.04);
    quaver.tremoloHz = r.uniform(10, 13);
    quaver.tremoloDepth = 0.55;
    quaver.vibratoHz = quaver.tremoloHz;
    quaver.vibratoDepth = 0.012;
    place(out, t + 0.05, syllable(r, quaver), 0.95);
    return out;
}

Buffer longEaredHoot(Rng& r) {
    const double f = r.uniform(300, 335);
    Syllable s;
    s.seconds = r.uniform(0.28, 0.38);
    s.hz = {{0.0, f * 0.93}, {0.08, f}, {s.seconds, f * 0.97}};
    s.partials = {1.0, 0.1, 0.03};
    s.breath = 0.15;
    s.breathQ = 5.0;
    s.level = swell(s.seconds, 0.05, 0.12);
    return syllable(r, s);
}

Buffer barnOwlScreech(Rng& r, double seconds) {
    Syllable s;
    s.seconds = seconds;
    const double f = r.uniform(1800, 2300);
    s.hz = {{0.0, f * 0.9}, {0.15, f}, {seconds * 0.7, f * 0.96}, {seconds, f * 0.85}};
    s.partials = {1.0, 0.7, 0.5, 0.4, 0.3, 0.2};
    s.roughness = 0.06;
    s.roughHz = 180.0;
    s.breath = 0.55;
    s.breathQ = 1.3;
    s.level = {{0.0, 0.0}, {0.03, 0.8}, {0.25, 1.0}, {seconds - 0.3, 0.85}, {seconds, 0.0}};
    Buffer voiced = syllable(r, s);
    // The hiss of the screech, high and fluttering.
    const std::size_t n = voiced.size();
    Buffer hiss = whiteNoise(r, n);
    filter(hiss, Edge::Linear, {Biquad::bandpass(r.uniform(3500, 5000), 0.8)});
    Buffer flutter = wander(r, n, 0.03, 0.5, 1.0, Edge::Linear);
    multiply(hiss, flutter);
    multiply(hiss, curveOf(n, s.level));
    normaliseRms(hiss, rmsOf(voiced) * 0.8);
    mixInto(voiced, hiss);
    filter(voiced, Edge::Linear, {Biquad::highpass(700.0), Biquad::highpass(700.0)});
    return voiced;
}

Buffer wingFlaps(Rng& r, int beats, double rate, double size) {
    Buffer out;
    double t = 0.0;
    for (int k = 0; k < beats; ++k) {
        const double gain = std::pow(0.86, k) * r.uniform(0.8, 1.0);
        // The downstroke pushes air: a swell of noise, deeper for a bigger wing.
        Buffer whoosh = noiseBurst(r, r.uniform(0.012, 0.025), r.uniform(0.08, 0.14) * (1 + size));
        filter(whoosh, Edge::Linear,
               {Biquad::bandpass(r.uniform(0.85, 1.15) * (1400.0 - 900.0 * size), 0.7)});
        normaliseRms(whoosh);
        place(out, t, whoosh, gain);
        Buffer thump = bump(r.uniform(0.008, 0.014));
        thump.resize(samples(0.12), 0.0f);
        filter(thump, Edge::Linear, {Biquad::lowpass(220.0, 1.5)});
        place(out, t + 0.01, thump, gain * 4.0 * size);
        // Feathers clattering as the wings meet.
        for (int c = 0; c < 3 + r.below(4); ++c) {
            place(out, t + r.uniform(0.03, 0.07), click(r, r.uniform(2500, 6000)),
                  gain * r.uniform(0.5, 1.0) * (1.2 - size));
        }
        t += (1.0 / rate) * r.uniform(0.92, 1.08) * (1.0 + 0.03 * k);
    }
    return out;
}

Buffer doveCoo(Rng& r, double pitch, double stretch) {
    auto coo = [&](double seconds, Curve hz) {
        Syllable s;
        s.seconds = seconds;
        s.hz = std::move(hz);
        s.partials = {1.0, 0.22, 0.07};
        s.breath = 0.14;
        s.breathQ = 5.0;
        s.level = swell(seconds, 0.04, 0.07);
        return s;
    };
    const double p = pitch * r.uniform(0.97, 1.03);
    Buffer out;
    const double a = 0.22 * stretch, b = 0.55 * stretch, c = 0.26 * stretch;
    place(out, 0.0, syllable(r, coo(a, glide(a, p * 0.97, p * 0.93))), 0.75);
    place(out, a + 0.08, syllable(r, coo(b, {{0.0, p * 0.95}, {0.09, p * 1.07}, {b, p * 1.0}})));
    place(out, a + b + 0.2, syllable(r, coo(c, glide(c, p * 0.9, p * 0.84))), 0.7);
    return out;
}

Buffer gullCry(Rng& r, double hz, double seconds) {
    Syllable s;
    s.seconds = seconds;
    s.hz = {{0.0, hz * 0.8}, {0.09 * seconds + 0.02, hz * 1.06}, {seconds, hz * 0.68}};
    s.partials = {1.0, 0.95, 0.8, 0.6, 0.45, 0.3, 0.2, 0.12};
    s.roughness = 0.015;
    s.roughHz = 90.0;
    s.breath = 0.12;
    s.breathQ = 3.0;
    s.level = {
        {0.0, 0.0}, {0.02, 0.8}, {0.25 * seconds, 1.0}, {0.8 * seconds, 0.55}, {seconds, 0.0}};
    return syllable(r, s);
}

Buffer gullLaugh(Rng& r, double hz, int count) {
    Buffer out;
    double t = 0.0;
    for (int k = 0; k < count; ++k) {
        const double len = r.uniform(0.11, 0.16);
        const double f = hz * (1.0 - 0.02 * k) * r.uniform(0.97, 1.03);
        Syllable s = {};
        s.seconds = len;
        s.hz = chevron(len, f * 0.85, f * 1.05, f * 0.8);
        s.partials = {1.0, 0.9, 0.7, 0.5, 0.35, 0.2};
        s.breath = 0.15;
        s.breathQ = 3.0;
        place(out, t, syllable(r, s), std::pow(0.93, k));
        t += r.uniform(0.2, 0.27) * (1.0 + 0.04 * std::abs(k - count / 2));
    }
    return out;
}

Buffer loonWail(Rng& r) {
    const double f = r.uniform(560, 640);
    const double up = f * r.uniform(1.45, 1.55);
    const double a = r.uniform(0.8, 1.1), b = r.uniform(1.3, 1.8), c = r.uniform(0.6, 0.9);
    Syllable s;
    s.seconds = a + b + c;
    s.hz = {{0.0, f * 0.96},     {0.2, f},           {a, f * 1.01},
            {a + 0.25, up},      {a + b, up * 1.02}, {a + b + 0.3, up * 0.93},
            {s.seconds, f * 1.1}};
    s.partials = {1.0, 0.35, 0.12, 0.05};
    s.vibratoHz = 5.0;
    s.vibratoDepth = 0.004;
    s.breath = 0.05;
    s.level = {{0.0, 0.0}, {0.15, 0.7}, {a, 0.8}, {a + 0.3, 1.0}, {a + b, 0.9}, {s.seconds, 0.0}};
    return syllable(r, s);
}

Buffer loonTremolo(Rng& r) {
    const double lo = r.uniform(850, 950), hi = lo * r.uniform(1.18, 1.28);
    const double rate = r.uniform(8, 10.5);
    Syllable s;
    s.seconds = r.uniform(1.6, 2.4);
    for (double t = 0.0; t < s.seconds; t += 0.5 / rate) {
        const bool top = static_cast<int>(std::lround(t * rate * 2.0)) % 2 == 0;
        s.hz.push_back({t, (top ? hi : lo) * (1.0 - 0.05 * t / s.seconds)});
    }
    s.partials = {1.0, 0.4, 0.2, 0.08};
    s.tremoloHz = rate;
    s.tremoloDepth = 0.85;
    s.breath = 0.06;
    s.level = {{0.0, 0.0}, {0.04, 1.0}, {s.seconds - 0.2, 0.8}, {s.seconds, 0.0}};
    return syllable(r, s);
}

Buffer loonYodel(Rng& r) {
    const double f = r.uniform(620, 700);
    Buffer out;
    Syllable intro;
    intro.seconds = 0.9;
    intro.hz = {{0.0, f}, {0.6, f * 1.02}, {0.9, f * 1.6}};
    intro.partials = {1.0, 0.35, 0.12};
    intro.level = swell(0.9, 0.1, 0.08);
    place(out, 0.0, syllable(r, intro), 0.8);
    double t = 0.95;
    for (int k = 0; k < 3 + r.below(3); ++k) {
        Syllable hi;
        hi.seconds = r.uniform(0.25, 0.32);
        hi.hz = glide(hi.seconds, f * 1.7, f * 1.62);
        hi.partials = {1.0, 0.4, 0.15};
        hi.level = swell(hi.seconds, 0.02, 0.03);
        Syllable lo;
        lo.seconds = r.uniform(0.2, 0.26);
        lo.hz = {{0.0, f * 1.55}, {0.06, f * 1.2}, {lo.seconds, f * 1.15}};
        lo.partials = {1.0, 0.3, 0.1};
        lo.level = swell(lo.seconds, 0.01, 0.05);
        place(out, t, syllable(r, hi));
        place(out, t + hi.seconds, syllable(r, lo), 0.85);
        t += hi.seconds + lo.seconds + r.uniform(0.04, 0.09);
    }
    return out;
}

Buffer finchTwitter(Rng& r, double seconds) {
    Buffer out;
    double t = 0.0;
    while (t < seconds) {
        const double hz = r.logUniform(2200, 5200);
        switch (r.below(4)) {
            case 0: {  // a nasal wheeze
                Syllable s = whistle(r.uniform(0.1, 0.18), glide(0.15, hz * 0.8, hz * 1.1));
                s.fmRatio = r.uniform(90, 140) / hz;
                s.fmIndex = r.uniform(2, 4);
                s.partials = {1.0, 0.3, 0.1};
                place(out, t, syllable(r, s), 0.7);
                t += s.seconds;
                break;
            }
            case 1: {
                const Buffer b = trill(r, hz, 3 + r.below(4), r.uniform(18, 28), 0.7);
                place(out, t, b, 0.8);
                t += static_cast<double>(b.size()) / kRate;
                break;
            }
            default: {
                const Syllable s = songNote(r, hz, r.uniform(0.03, 0.07));
                place(out, t, syllable(r, s), r.uniform(0.6, 1.0));
                t += s.seconds;
                break;
            }
        }
        t += r.uniform(0.01, 0.05);
    }
    return out;
}

Buffer starlingMedley(Rng& r, double seconds) {
    Buffer out;
    double t = 0.0;
    int last = -1;
    while (t < seconds) {
        int kind = r.below(6);
        if (kind == last) {
            kind = (kind + 1) % 6;
        }
        last = kind;
        double len = 0.0;
        switch (kind) {
            case 0: {  // the falling "wheeoo" whistle
                len = r.uniform(0.35, 0.6);
                Syllable s = whistle(len, {{0.0, r.uniform(3300, 4200)},
                                           {0.05, r.uniform(3800, 4600)},
                                           {len, r.uniform(1500, 2000)}});
                place(out, t, syllable(r, s), 0.9);
                break;
            }
            case 1: {  // a run of clicks
                const int count = 6 + r.below(12);
                const double rate = r.uniform(25, 45);
                for (int k = 0; k < count; ++k) {
                    place(out, t + k / rate, click(r, r.uniform(2000, 6000)), r.uniform(0.8, 1.5));
                }
                len = count / rate;
                break;
            }
            case 2: {  // a rattle
                len = r.uniform(0.2, 0.4);
                Syllable s;
                s.seconds = len;
                s.hz = glide(len, r.uniform(2000, 3000), r.uniform(1800, 2800));
                s.partials = {1.0, 0.6, 0.4, 0.2};
                s.tremoloHz = r.uniform(35, 60);
                s.tremoloDepth = 0.95;
                s.breath = 0.3;
                place(out, t, syllable(r, s), 0.7);
                break;
            }
            case 3: {  // a wheeze
                len = r.uniform(0.2, 0.4);
                Syllable s;
                s.seconds = len;
                s.hz = glide(len, r.uniform(4500, 6000), r.uniform(5500, 7500));
                s.breath = 0.85;
                s.breathQ = 2.5;
                place(out, t, syllable(r, s), 0.6);
                break;
            }
            case 4: {  // a quick warble
                const int count = 3 + r.below(4);
                for (int k = 0; k < count; ++k) {
                    const Syllable s = songNote(r, r.logUniform(2000, 5000), r.uniform(0.04, 0.08));
                    place(out, t + len, syllable(r, s), 0.8);
                    len += s.seconds + 0.01;
                }
                break;
            }
            default: {  // a bubbling, warbling whistle
                len = r.uniform(0.25, 0.45);
                Syllable s = whistle(len, glide(len, r.uniform(2500, 3500), r.uniform(2500, 3500)));
                s.vibratoHz = r.uniform(20, 35);
                s.vibratoDepth = r.uniform(0.08, 0.15);
                place(out, t, syllable(r, s), 0.8);
                break;
            }
        }
        t += len + r.uniform(0.03, 0.12);
    }
    return out;
}

Buffer bluetitSong(Rng& r) {
    Buffer out;
    double t = 0.0;
    const double high = r.uniform(6500, 7500);
    for (int k = 0; k < 2; ++k) {
        const double len = r.uniform(0.08, 0.12);
        place(out, t, syllable(r, whistle(len, glide(len, high, high * 0.92))));
        t += len + r.uniform(0.06, 0.1);
    }
    const double low = r.uniform(3600, 4400);
    const double rate = r.uniform(12, 16);
    const int count = 5 + r.below(5);
    for (int k = 0; k < count; ++k) {
        const double len = 0.6 / rate;
        place(out, t + k / rate,
              syllable(r, whistle(len, chevron(len, low * 0.85, low * 1.08, low * 0.8))), 0.8);
    }
    return out;
}

Buffer robinPhrase(Rng& r) {
    Buffer out;
    double t = 0.0;
    const int notes = 7 + r.below(8);
    double hz = r.uniform(3000, 5000);
    for (int k = 0; k < notes; ++k) {
        hz = std::clamp(hz * r.logUniform(0.7, 1.4), 2400.0, 8000.0);
        if (r.chance(0.25)) {
            const Buffer b = trill(r, hz, 3 + r.below(5), r.uniform(22, 40), 0.6);
            place(out, t, b, r.uniform(0.6, 0.9));
            t += static_cast<double>(b.size()) / kRate;
        } else {
            const Syllable s = songNote(r, hz, r.uniform(0.04, 0.14));
            place(out, t, syllable(r, s), r.uniform(0.55, 1.0));
            t += s.seconds;
        }
        t += r.uniform(0.01, 0.07);
    }
    return out;
}

Buffer chaffinchSong(Rng& r) {
    Buffer out;
    double t = 0.0;
    // The opening trill: sweeps falling from high, quickening.
    double hz = r.uniform(5800, 6600);
    const int first = 4 + r.below(3);
    for (int k = 0; k < first; ++k) {
        const double len = 0.055;
        place(out, t, syllable(r, whistle(len, glide(len, hz, hz * 0.72))), 0.75 + 0.04 * k);
        t += 1.0 / (8.5 + 0.5 * k);
        hz *= 0.97;
    }
    hz = r.uniform(4200, 4800);
    const int second = 3 + r.below(3);
    for (int k = 0; k < second; ++k) {
        const double len = 0.045;
        place(out, t, syllable(r, whistle(len, chevron(len, hz * 0.85, hz, hz * 0.78))), 0.95);
        t += 1.0 / 13.0;
        hz *= 0.98;
    }
    // "cherry-erry": paired notes going down.
    hz = r.uniform(3300, 3800);
    for (int k = 0; k < 2; ++k) {
        place(out, t, syllable(r, whistle(0.04, glide(0.04, hz * 1.2, hz))), 0.9);
        place(out, t + 0.05, syllable(r, whistle(0.05, glide(0.05, hz, hz * 0.8))), 0.8);
        t += 0.12;
        hz *= 0.93;
    }
    // The flourish: "tissi-cheweeo".
    Syllable end;
    end.seconds = r.uniform(0.3, 0.38);
    end.hz = {{0.0, 2800}, {0.06, 5000}, {0.14, 3800}, {0.2, 4300}, {end.seconds, 2400}};
    end.partials = {1.0, 0.12, 0.04};
    place(out, t + 0.02, syllable(r, end), 1.0);
    return out;
}

Buffer sparrowChirp(Rng& r) {
    Syllable s;
    s.seconds = r.uniform(0.07, 0.13);
    const double f = r.uniform(3000, 4000);
    s.hz = {{0.0, f * 0.85}, {0.3 * s.seconds, f * r.uniform(1.1, 1.3)}, {s.seconds, f * 0.75}};
    s.partials = {1.0, 0.5, 0.25, 0.1};
    s.roughness = 0.02;
    s.breath = 0.1;
    s.breathQ = 3.0;
    Buffer out = syllable(r, s);
    if (r.chance(0.35)) {  // "chirrup": a second, lower part
        Syllable b = s;
        b.seconds = r.uniform(0.05, 0.08);
        b.hz = glide(b.seconds, f * 0.9, f * 1.15);
        place(out, s.seconds + 0.02, syllable(r, b), 0.8);
    }
    return out;
}

Buffer thrushPhrase(Rng& r, int repeats) {
    // The motif is chosen once; each repeat sings it again, a little differently.
    struct Part {
        Syllable s;
        double at;
    };
    std::vector<Part> motif;
    double t = 0.0;
    const int notes = 2 + r.below(4);
    for (int k = 0; k < notes; ++k) {
        Syllable s;
        if (r.chance(0.2)) {  // a harsh "chk"
            s.seconds = 0.04;
            s.hz = {{0.0, r.uniform(2500, 4000)}};
            s.breath = 0.6;
            s.breathQ = 1.5;
            s.partials = {1.0, 0.6, 0.4};
        } else {
            s = songNote(r, r.logUniform(2000, 5500), r.uniform(0.05, 0.14));
        }
        motif.push_back({s, t});
        t += s.seconds + r.uniform(0.015, 0.05);
    }
    Buffer out;
    double at = 0.0;
    for (int rep = 0; rep < repeats; ++rep) {
        const double tune = r.uniform(0.98, 1.02);
        for (const auto& p : motif) {
            Syllable s = p.s;
            for (auto& h : s.hz) {
                h.v *= tune;
            }
            place(out, at + p.at, syllable(r, s), r.uniform(0.8, 1.0));
        }
        at += t + r.uniform(0.08, 0.16);
    }
    return out;
}

Buffer woodlarkRun(Rng& r) {
    Buffer out;
    double t = 0.0, hz = r.uniform(3300, 3800), rate = r.uniform(6, 7.5);
    const int count = 9 + r.below(8);
    for (int k = 0; k < count; ++k) {
        const double len = 0.55 / rate;
        const double rise = std::sin(3.14159 * k / count);
        place(out, t, syllable(r, whistle(len, chevron(len, hz * 0.8, hz * 1.08, hz * 0.88))),
              0.55 + 0.45 * rise);
        t += 1.0 / rate;
        rate = std::min(rate * 1.05, 13.0);
        hz *= r.uniform(0.96, 0.99);
    }
    return out;
}

Buffer skylarkRun(Rng& r, double seconds) {
    Buffer out;
    double t = 0.0;
    while (t < seconds) {
        const double hz = r.logUniform(2400, 6000);
        double len;
        switch (r.below(6)) {
            case 0: {  // a rolling trill
                const Buffer b = trill(r, hz, 4 + r.below(8), r.uniform(20, 32), 0.7);
                place(out, t, b, r.uniform(0.6, 0.9));
                len = static_cast<double>(b.size()) / kRate;
                break;
            }
            case 1: {  // a buzzy note
                Syllable s =
                    whistle(r.uniform(0.06, 0.12), glide(0.1, hz, hz * r.uniform(0.8, 1.2)));
                s.fmRatio = r.uniform(150, 300) / hz;
                s.fmIndex = r.uniform(1.5, 3.0);
                place(out, t, syllable(r, s), 0.6);
                len = s.seconds;
                break;
            }
            case 2: {  // a warbled note
                Syllable s =
                    whistle(r.uniform(0.1, 0.18), glide(0.15, hz, hz * r.uniform(0.9, 1.1)));
                s.vibratoHz = r.uniform(20, 30);
                s.vibratoDepth = r.uniform(0.06, 0.12);
                place(out, t, syllable(r, s), 0.75);
                len = s.seconds;
                break;
            }
            default: {
                const Syllable s = songNote(r, hz, r.uniform(0.03, 0.07));
                place(out, t, syllable(r, s), r.uniform(0.6, 1.0));
                len = s.seconds;
                break;
            }
        }
        t += len + r.uniform(0.005, 0.03);
    }
    // High overhead, the bird circles: its level drifts.
    multiply(out, wander(r, out.size(), 0.7, 0.6, 1.0, Edge::Linear));
    return out;
}

Buffer kingfisherCall(Rng& r) {
    Syllable s;
    s.seconds = r.uniform(0.12, 0.2);
    const double f = r.uniform(5200, 6200);
    s.hz = {{0.0, f * 0.92}, {0.02, f}, {s.seconds, f * 0.85}};
    s.partials = {1.0, 0.2, 0.05};
    s.roughness = 0.01;
    Buffer out = syllable(r, s);
    if (r.chance(0.4)) {  // "chee-kee"
        Syllable k = s;
        k.seconds = 0.07;
        k.hz = glide(0.07, f * 0.8, f * 0.95);
        place(out, s.seconds + 0.03, syllable(r, k), 0.75);
    }
    return out;
}

Buffer blackbirdPhrase(Rng& r) {
    Buffer out;
    double t = 0.0;
    const int notes = 3 + r.below(4);
    for (int k = 0; k < notes; ++k) {
        const double len = r.uniform(0.1, 0.3);
        const double f = r.logUniform(1500, 3000);
        Syllable s = whistle(
            len,
            {{0.0, f * r.uniform(0.9, 1.1)}, {0.4 * len, f}, {len, f * r.uniform(0.85, 1.15)}});
        s.partials = {1.0, 0.12, 0.04};
        s.vibratoHz = r.uniform(6, 12);
        s.vibratoDepth = 0.01;
        s.level = swell(len, 0.025, 0.05);
        place(out, t, syllable(r, s), r.uniform(0.75, 1.0));
        t += len + r.uniform(0.02, 0.08);
    }
    // The squeaky twitter at the end, quieter.
    for (int k = 0; k < 3 + r.below(4); ++k) {
        const Syllable s = songNote(r, r.logUniform(4500, 7000), r.uniform(0.025, 0.05));
        place(out, t, syllable(r, s), 0.45);
        t += s.seconds + 0.015;
    }
    return out;
}

Buffer wrenSong(Rng& r) {
    Buffer out;
    double t = 0.0;
    const int parts = 4 + r.below(3);
    for (int k = 0; k < parts; ++k) {
        const double hz = r.logUniform(4000, 8000);
        const double rate = r.chance(0.35) ? r.uniform(40, 55) : r.uniform(14, 28);
        const Buffer b = trill(r, hz, static_cast<int>(rate * r.uniform(0.3, 0.7)), rate, 0.7);
        place(out, t, b, r.uniform(0.75, 1.0));
        t += static_cast<double>(b.size()) / kRate + r.uniform(0.01, 0.04);
    }
    return out;
}

Buffer coalTitSong(Rng& r) {
    Buffer out;
    const double hi = r.uniform(6000, 6800), lo = r.uniform(4000, 4600);
    const double period = r.uniform(0.22, 0.28);
    const int count = 3 + r.below(4);
    for (int k = 0; k < count; ++k) {
        const double t = k * period;
        place(out, t, syllable(r, whistle(0.08, glide(0.08, hi, hi * 0.9))));
        place(out, t + 0.1, syllable(r, whistle(0.08, glide(0.08, lo * 1.05, lo * 0.9))), 0.85);
    }
    return out;
}

Buffer goldcrestSong(Rng& r) {
    Buffer out;
    double t = 0.0;
    const double base = r.uniform(7000, 7800);
    const int cycles = 3 + r.below(3);
    for (int c = 0; c < cycles; ++c) {
        for (int k = 0; k < 4; ++k) {
            const double f = base * (k % 2 == 0 ? 1.08 : 0.92);
            place(out, t, syllable(r, whistle(0.035, glide(0.035, f, f * 0.95))), 0.8);
            t += 0.05;
        }
        t += 0.02;
    }
    const Syllable end =
        whistle(0.12, {{0.0, base * 0.8}, {0.05, base * 1.1}, {0.12, base * 0.75}});
    place(out, t, syllable(r, end));
    return out;
}

Buffer woodpeckerDrum(Rng& r) {
    const int count = 12 + r.below(9);
    const double rate = r.uniform(14, 19);
    std::vector<Strike> s;
    double t = 0.0;
    for (int k = 0; k < count; ++k) {
        s.push_back({t, (k < 2 ? 0.7 : 1.0) * std::pow(0.97, k) * r.uniform(0.85, 1.0),
                     r.uniform(0.0004, 0.0008)});
        t += (1.0 / rate) * (1.0 + 0.012 * k);
    }
    Buffer out = strikes(samples(t + 0.15), s, Edge::Linear);
    const std::vector<Mode> wood{{r.uniform(600, 900), 0.04, 1.0},
                                 {r.uniform(1200, 1600), 0.03, 0.7},
                                 {r.uniform(2200, 2800), 0.02, 0.5},
                                 {r.uniform(250, 350), 0.05, 0.6}};
    ring(out, wood, Edge::Linear);
    return out;
}

Buffer crowCaw(Rng& r, int count) {
    Buffer out;
    double t = 0.0;
    for (int k = 0; k < count; ++k) {
        Voice v;
        v.seconds = r.uniform(0.3, 0.45);
        const double f = r.uniform(420, 520);
        v.f0 = {{0.0, f * 0.9}, {0.08, f}, {v.seconds, f * 0.85}};
        v.roughness = 0.6;
        v.jitter = 0.03;
        v.closing = 0.18;
        v.breath = 0.25;
        v.level = swell(v.seconds, 0.02, 0.1);
        v.formants = {{{{0.0, 1100}, {0.1, 1400}, {v.seconds, 1200}}, 4, 0},
                      {{{0.0, 2100}}, 5, -4},
                      {{{0.0, 3300}}, 6, -8}};
        place(out, t, voice(r, v), r.uniform(0.8, 1.0));
        t += v.seconds + r.uniform(0.2, 0.45);
    }
    return out;
}

Buffer cuckooCall(Rng& r, int count) {
    Buffer out;
    const double hi = r.uniform(660, 720), lo = hi * r.uniform(0.78, 0.82);
    for (int k = 0; k < count; ++k) {
        const double t = k * r.uniform(0.95, 1.1);
        Syllable a = whistle(0.16, glide(0.16, hi, hi * 0.97));
        a.partials = {1.0, 0.12, 0.04};
        a.breath = 0.06;
        a.level = swell(0.16, 0.02, 0.05);
        Syllable b = whistle(0.26, glide(0.26, lo, lo * 0.96));
        b.partials = a.partials;
        b.breath = 0.06;
        b.level = swell(0.26, 0.02, 0.1);
        place(out, t, syllable(r, a));
        place(out, t + 0.29, syllable(r, b), 0.85);
    }
    return out;
}

Buffer duckQuacks(Rng& r, int count) {
    Buffer out;
    double t = 0.0;
    const double base = r.uniform(200, 260);
    for (int k = 0; k < count; ++k) {
        Voice v;
        v.seconds = r.uniform(0.15, 0.22);
        const double f = base * std::pow(0.96, k);
        v.f0 = glide(v.seconds, f * 1.1, f * 0.85);
        v.roughness = 0.7;
        v.jitter = 0.03;
        v.closing = 0.15;
        v.breath = 0.15;
        v.level = swell(v.seconds, 0.015, 0.06);
        v.formants = {{{{0.0, 700}, {0.05, 1000}, {v.seconds, 800}}, 3, 0},
                      {{{0.0, 1900}}, 5, -2},
                      {{{0.0, 2900}}, 6, -6}};
        place(out, t, voice(r, v), std::pow(0.9, k));
        t += v.seconds + r.uniform(0.06, 0.14);
    }
    return out;
}

Buffer cootCall(Rng& r) {
    Syllable s;
    s.seconds = r.uniform(0.08, 0.12);
    const double f = r.uniform(550, 700);
    s.hz = chevron(s.seconds, f * 0.9, f * 1.1, f * 0.95);
    s.partials = {0.6, 1.0, 0.8, 0.6, 0.4, 0.3, 0.2};
    s.breath = 0.1;
    return syllable(r, s);
}

Buffer reedWarbler(Rng& r, double seconds) {
    Buffer out;
    double t = 0.0;
    while (t < seconds) {
        // One figure, said two to four times.
        Syllable s;
        s.seconds = r.uniform(0.04, 0.09);
        const double f = r.logUniform(1800, 4500);
        s.hz = r.chance(0.5) ? glide(s.seconds, f, f * r.uniform(0.7, 1.3))
                             : chevron(s.seconds, f * 0.9, f * 1.2, f * 0.8);
        s.partials = {1.0, 0.4, 0.2};
        s.breath = r.uniform(0.1, 0.4);
        s.breathQ = 2.0;
        const int reps = 2 + r.below(3);
        const double gap = r.uniform(0.05, 0.1);
        for (int k = 0; k < reps; ++k) {
            place(out, t, syllable(r, s), r.uniform(0.7, 1.0));
            t += s.seconds + gap;
        }
        t += r.uniform(0.02, 0.1);
    }
    return out;
}

Buffer koelCall(Rng& r, int count) {
    Buffer out;
    double f = r.uniform(850, 950);
    double t = 0.0;
    for (int k = 0; k < count; ++k) {
        Syllable a = whistle(0.14, glide(0.14, f, f * 0.97));
        a.breath = 0.05;
        a.level = swell(0.14, 0.015, 0.04);
        const double len = r.uniform(0.35, 0.45);
        Syllable b = whistle(len, {{0.0, f * 1.05}, {0.6 * len, f * 1.32}, {len, f * 1.36}});
        b.breath = 0.05;
        b.level = swell(len, 0.03, 0.08);
        place(out, t, syllable(r, a), 0.8);
        place(out, t + 0.17, syllable(r, b));
        t += r.uniform(0.8, 0.95);
        f *= r.uniform(1.03, 1.06);
    }
    return out;
}

Buffer peacockCry(Rng& r) {
    auto cry = [&](double seconds, Curve hz) {
        Syllable s;
        s.seconds = seconds;
        s.hz = std::move(hz);
        s.partials = {1.0, 0.9, 0.75, 0.6, 0.45, 0.3, 0.2, 0.15, 0.1};
        s.roughness = 0.02;
        s.roughHz = 120.0;
        s.breath = 0.12;
        s.breathQ = 3.0;
        s.level = swell(seconds, 0.02, 0.08);
        return s;
    };
    const double f = r.uniform(750, 850);
    Buffer out;
    place(out, 0.0, syllable(r, cry(0.22, glide(0.22, f * 0.9, f * 1.15))), 0.8);
    place(
        out, 0.25,
        syllable(r, cry(r.uniform(0.45, 0.6), {{0.0, f * 1.25}, {0.1, f * 1.3}, {0.5, f * 0.9}})));
    return out;
}

Buffer barbetCall(Rng& r, int count) {
    Buffer out;
    const double f = r.uniform(520, 620);
    const double period = r.uniform(0.42, 0.5);
    for (int k = 0; k < count; ++k) {
        Syllable kut = whistle(0.05, glide(0.05, f * 1.15, f * 1.05));
        kut.partials = {1.0, 0.3, 0.1};
        Syllable troo = whistle(0.17, glide(0.17, f, f * 0.94));
        troo.partials = {1.0, 0.3, 0.1};
        troo.tremoloHz = r.uniform(22, 30);
        troo.tremoloDepth = 0.8;
        place(out, k * period, syllable(r, kut), 0.8);
        place(out, k * period + 0.07, syllable(r, troo));
    }
    return out;
}

Buffer hornbillHonks(Rng& r, int count) {
    Buffer out;
    double t = 0.0;
    const double f = r.uniform(280, 340);
    for (int k = 0; k < count; ++k) {
        Voice v;
        v.seconds = r.uniform(0.16, 0.24);
        v.f0 = chevron(v.seconds, f * 0.9, f * 1.05, f * 0.9);
        v.roughness = 0.3;
        v.closing = 0.15;
        v.breath = 0.1;
        v.level = swell(v.seconds, 0.02, 0.06);
        v.formants = {{{{0.0, 900}}, 4, 0}, {{{0.0, 2000}}, 6, -3}, {{{0.0, 3100}}, 6, -8}};
        place(out, t, voice(r, v), r.uniform(0.8, 1.0));
        t += v.seconds + r.uniform(0.15, 0.3) * (1.0 - 0.05 * k);
    }
    return out;
}

Buffer turacoCall(Rng& r) {
    Buffer out;
    double t = 0.0, gap = r.uniform(0.35, 0.45);
    const double f = r.uniform(480, 560);
    const int count = 6 + r.below(6);
    for (int k = 0; k < count; ++k) {
        Syllable s;
        s.seconds = 0.14;
        s.hz = chevron(0.14, f * 0.9, f * 1.05, f * 0.85);
        s.partials = {1.0, 0.7, 0.45, 0.3, 0.15};
        s.breath = 0.3;
        s.breathQ = 2.5;
        s.roughness = 0.02;
        place(out, t, syllable(r, s), 0.6 + 0.4 * std::min(1.0, k / 3.0));
        t += gap;
        gap = std::max(0.16, gap * 0.9);
    }
    return out;
}

Buffer pihaCall(Rng& r) {
    Buffer out;
    const double f = r.uniform(1400, 1700);
    Syllable a = whistle(0.3, glide(0.3, f, f * 1.6));
    a.level = swell(0.3, 0.05, 0.05);
    place(out, 0.0, syllable(r, a), 0.6);
    Syllable b = whistle(0.45, {{0.0, f * 1.4}, {0.15, f * 2.7}, {0.45, f * 2.0}});
    b.partials = {1.0, 0.15, 0.05};
    b.level = swell(0.45, 0.02, 0.1);
    place(out, 0.45, syllable(r, b));
    return out;
}

Buffer bulbulPhrase(Rng& r) {
    Buffer out;
    double t = 0.0;
    for (int k = 0; k < 4 + r.below(3); ++k) {
        const double len = r.uniform(0.06, 0.12);
        const double f = r.logUniform(1500, 3200);
        place(out, t,
              syllable(r, whistle(len, chevron(len, f * 0.8, f * 1.2, f * r.uniform(0.85, 1.1)))),
              r.uniform(0.7, 1.0));
        t += len + r.uniform(0.02, 0.06);
    }
    return out;
}

}  // namespace calls

namespace {

using namespace calls;

// Daylight in the open: a short, thin tail.
Buffer outdoors(Buffer b) {
    return inSpace(std::move(b), 0.7, 40.0, 6000.0, 0.12);
}
// Night in a wood: a longer, darker tail.
Buffer nightWood(Buffer b) {
    return inSpace(std::move(b), 1.6, 70.0, 3500.0, 0.25);
}
// Over open water: long echoes from the far shore.
Buffer overWater(Buffer b) {
    return inSpace(std::move(b), 3.0, 90.0, 3000.0, 0.35);
}

Buffer barnOwl1(Take& t) {
    return nightWood(barnOwlScreech(t.rng, 1.7));
}

Buffer barnOwl2(Take& t) {
    Buffer out;
    double at = 0.0;
    for (double len : {0.8, 0.55, 0.95}) {
        place(out, at, barnOwlScreech(t.rng, len), t.rng.uniform(0.8, 1.0));
        at += len + t.rng.uniform(0.9, 1.3);
    }
    return nightWood(std::move(out));
}

Buffer tawnyOwl(Take& t) {
    return nightWood(tawnyHoot(t.rng, 2.2));
}

Buffer longEaredOwl(Take& t) {
    Buffer out;
    for (int k = 0; k < 3; ++k) {
        place(out, k * t.rng.uniform(2.2, 2.6), longEaredHoot(t.rng), t.rng.uniform(0.85, 1.0));
    }
    return nightWood(std::move(out));
}

Buffer wingsFlap1(Take& t) {
    return outdoors(wingFlaps(t.rng, 10, 7.5, 0.3));
}

Buffer wingsFlap2(Take& t) {
    return outdoors(wingFlaps(t.rng, 5, 3.2, 0.9));
}

// Doves: the same bird, three takes: a song of three, one long drawn song, a pair.
Buffer dove1(Take& t) {
    Buffer out;
    for (int k = 0; k < 3; ++k) {
        place(out, k * 1.45, doveCoo(t.rng, 470, 1.0));
    }
    return outdoors(std::move(out));
}

Buffer dove2(Take& t) {
    Buffer out;
    for (int k = 0; k < 4; ++k) {
        place(out, k * 1.7, doveCoo(t.rng, 455, 1.25));
    }
    return outdoors(std::move(out));
}

Buffer dove3(Take& t) {
    Buffer out;
    place(out, 0.0, doveCoo(t.rng, 485, 0.9));
    place(out, 1.3, doveCoo(t.rng, 480, 0.9), 0.9);
    return outdoors(std::move(out));
}

Buffer gull(Take& t) {
    Buffer out;
    const double f = t.rng.uniform(820, 900);
    place(out, 0.0, gullCry(t.rng, f, 0.55));
    place(out, 0.7, gullCry(t.rng, f * 0.97, 0.5), 0.95);
    place(out, 1.4, gullLaugh(t.rng, f * 0.9, 7), 0.85);
    return inSpace(std::move(out), 1.2, 60.0, 5000.0, 0.15);
}

// A flock over a harbour: several birds at their own pitch and distance.
Buffer seagulls(Take& t, double seconds, int birds) {
    Buffer out;
    for (int b = 0; b < birds; ++b) {
        const double f = t.rng.uniform(700, 1050);
        const double far = b == 0 ? 1.0 : t.rng.uniform(0.3, 0.8);
        double at = b == 0 ? 0.0 : t.rng.uniform(0.2, seconds * 0.7);
        while (at < seconds) {
            Buffer call = t.rng.chance(0.35) ? gullLaugh(t.rng, f, 3 + t.rng.below(5))
                                             : gullCry(t.rng, f, t.rng.uniform(0.35, 0.6));
            distance(call, {{0.0, far}}, Edge::Linear);
            place(out, at, call, 1.0);
            at += static_cast<double>(call.size()) / kRate + t.rng.uniform(0.3, 1.5);
        }
    }
    return inSpace(std::move(out), 1.5, 70.0, 4500.0, 0.2);
}

Buffer seagulls1(Take& t) {
    return seagulls(t, 4.5, 4);
}

Buffer seagulls2(Take& t) {
    return seagulls(t, 6.0, 6);
}

Buffer loon1(Take& t) {
    return overWater(loonWail(t.rng));
}

Buffer loon2(Take& t) {
    return overWater(loonTremolo(t.rng));
}

Buffer loon3(Take& t) {
    return overWater(loonYodel(t.rng));
}

Buffer finch(Take& t) {
    return outdoors(finchTwitter(t.rng, 2.8));
}

Buffer starling(Take& t, double seconds) {
    return outdoors(starlingMedley(t.rng, seconds));
}

Buffer bluetit(Take& t) {
    Buffer out;
    place(out, 0.0, bluetitSong(t.rng));
    place(out, 1.6, bluetitSong(t.rng), 0.9);
    return outdoors(std::move(out));
}

Buffer robin(Take& t) {
    Buffer out = robinPhrase(t.rng);
    place(out, static_cast<double>(out.size()) / kRate + 1.1, robinPhrase(t.rng), 0.9);
    return outdoors(std::move(out));
}

Buffer chaffinch(Take& t) {
    Buffer out = chaffinchSong(t.rng);
    place(out, static_cast<double>(out.size()) / kRate + 1.4, chaffinchSong(t.rng), 0.95);
    return outdoors(std::move(out));
}

Buffer sparrow(Take& t) {
    Buffer out;
    double at = 0.0;
    for (int k = 0; k < 10; ++k) {
        place(out, at, sparrowChirp(t.rng), t.rng.uniform(0.7, 1.0));
        at += t.rng.uniform(0.18, 0.45);
    }
    return outdoors(std::move(out));
}

Buffer thrush(Take& t) {
    Buffer out;
    double at = 0.0;
    for (int reps : {3, 2, 4}) {
        const Buffer p = thrushPhrase(t.rng, reps);
        place(out, at, p);
        at += static_cast<double>(p.size()) / kRate + t.rng.uniform(0.4, 0.7);
    }
    return outdoors(std::move(out));
}

Buffer lark(Take& t, int runs) {
    Buffer out;
    double at = 0.0;
    for (int k = 0; k < runs; ++k) {
        const Buffer p = woodlarkRun(t.rng);
        place(out, at, p, k == 0 ? 1.0 : 0.9);
        at += static_cast<double>(p.size()) / kRate + t.rng.uniform(0.6, 1.0);
    }
    return outdoors(std::move(out));
}

Buffer kingfisher(Take& t) {
    Buffer out;
    double at = 0.0;
    for (int k = 0; k < 5; ++k) {
        place(out, at, kingfisherCall(t.rng), t.rng.uniform(0.8, 1.0));
        at += t.rng.uniform(0.35, 0.6);
    }
    return outdoors(std::move(out));
}

Buffer skylark(Take& t) {
    return outdoors(skylarkRun(t.rng, 9.0));
}

}  // namespace

void addBirdRecipes(std::vector<Recipe>& out) {
    const auto add = [&](int file, const char* name, double seconds, const char* summary,
                         std::function<Buffer(Take&)> render) {
        out.push_back({"bin/" + std::to_string(file) + ".raz", name, kRandomOne, Kind::OneShot,
                       seconds, summary, std::move(render)});
    };
    add(101, "Barn owl 1", 3.5,
        "one drawn-out screech: harsh harmonics near 2 kHz with a rough, wavering pitch, half "
        "noise, and a fluttering hiss; a dark night-wood tail.",
        barnOwl1);
    add(102, "Barn owl 2", 6.0, "three shorter screeches of the same owl, a second apart.",
        barnOwl2);
    add(103, "Tawny owl ", 7.0,
        "a low tonal hoot near 450 Hz, a pause, a soft \"hu\" and the quavering long hoot "
        "(level pulsing at 11 Hz); night-wood tail.",
        tawnyOwl);
    add(104, "Long eared owl", 7.0,
        "three soft low \"oo\"s near 320 Hz, breathy, about 2.4 s apart.", longEaredOwl);
    add(105, "Wings flap 1", 2.5,
        "a pigeon taking off: ten quick wing strokes (noise swells with a clatter of feathers), "
        "fading as it leaves.",
        wingsFlap1);
    add(106, "Wings flap 2", 3.0,
        "a big bird lifting off: five slow, deep strokes with a thump in each.", wingsFlap2);
    add(107, "Dove 1", 5.5,
        "a collared dove's \"coo-COOO-cuk\" three times: soft breathy tones near 470 Hz, the "
        "middle note swooping up.",
        dove1);
    add(108, "Dove 2", 8.0, "the same dove, slower and lower, four songs.", dove2);
    add(109, "Dove 3", 4.0, "the same dove, two brisk songs, the second softer.", dove3);
    add(110, "Gull", 4.5,
        "a herring gull: two falling \"kyow\"s rich in harmonics, then a laughing run of seven "
        "\"ha\"s.",
        gull);
    add(111, "Seagulls 1", 7.0,
        "four gulls at their own pitch and distance crying and laughing over a harbour.",
        seagulls1);
    add(112, "Seagulls 2", 9.0, "a busier flock of six gulls.", seagulls2);
    add(113, "Loon 1", 8.0,
        "a loon's wail: a pure tone near 600 Hz rising a fifth and falling back, with long "
        "echoes off the water.",
        loon1);
    add(114, "Loon 2", 6.0,
        "a loon's tremolo: two pitches near 900 Hz alternating nine times a second.", loon2);
    add(115, "Loon 3", 8.0, "a loon's yodel: a rising call, then repeated high-low figures.",
        loon3);
    add(116, "Finch", 4.0,
        "a goldfinch's twitter: quick liquid notes, little trills and nasal wheezes from 2 to "
        "5 kHz.",
        finch);
    add(117, "Starling", 5.0,
        "a starling's medley: falling whistles, runs of clicks, rattles, wheezes and warbles.",
        [](Take& t) { return starling(t, 4.0); });
    add(118, "Starling 2", 6.0, "another starling medley, longer.",
        [](Take& t) { return starling(t, 5.0); });
    add(119, "Bluetit", 4.0,
        "two \"tsee-tsee-tsu-hu-hu\" songs: two thin notes near 7 kHz and a trill near 4 kHz.",
        bluetit);
    add(120, "Robin", 6.0,
        "two phrases of a robin's warble: thin high notes of every shape, slides and little "
        "trills, never the same twice.",
        robin);
    add(121, "Chaffinch", 6.0,
        "two chaffinch songs: a falling, quickening trill from 6 kHz and the \"cheweeo\" end "
        "flourish.",
        chaffinch);
    add(122, "Sparrow", 4.5,
        "a house sparrow's chirping: ten harmonic-rich \"cheep\"s and \"chirrup\"s.", sparrow);
    add(123, "Thrush ", 9.0,
        "a song thrush: three phrases of whistles, trills and \"chk\"s, each said two to four "
        "times.",
        thrush);
    add(124, "Starling", 4.5, "a third starling medley, its own order of whistles and rattles.",
        [](Take& t) { return starling(t, 3.5); });
    add(125, "Lark1", 6.0, "a woodlark's two falling \"lu-lu-lu\" runs, quickening as they fall.",
        [](Take& t) { return lark(t, 2); });
    add(126, "Lark2", 4.5, "one longer woodlark run.", [](Take& t) { return lark(t, 1); });
    add(127, "Kingfisher", 4.0, "five shrill \"chee\"s near 5.5 kHz, some with a \"kee\" after.",
        kingfisher);
    add(128, "Skylark", 11.0,
        "a skylark's unbroken run: trills, buzzy and warbled notes and chirps from 2.4 to 6 kHz, "
        "the level drifting as it circles.",
        skylark);
}

}  // namespace brevane::soundgen
