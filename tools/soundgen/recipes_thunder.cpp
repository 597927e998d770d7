// Thunder: a near strike tears (a burst of cracks as the channel forms), lands with a
// boom, then rolls: the sound of the rest of the channel and its echoes from clouds and
// hills arriving over seconds, in swells, getting darker as the high end dies on the way.
// A far storm is only the roll, dull and slow.
#include <cmath>

#include "finish.h"
#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace {

constexpr double kNone = -100.0;

struct Roll {
    double at, rise, fall, level;
};

struct ThunderSpec {
    double crackDb = kNone;  // the tearing crack of a near strike
    double tear = 0.25;      // seconds the tearing lasts
    double boomDb = kNone;   // the boom landing after it
    double startHz = 900;    // rumble cut-off at the start
    double endHz = 160;      // ... and at the end
    double rumbleDb = 0;
    double start = 0.25;  // rumble level when the sound begins (far thunder creeps in)
    std::vector<Roll> rolls;
    double grit = 0.6;   // how broken-up the rumble is, 0 smooth .. 1 crackly
    double space = 0.5;  // wet level of the echoing space
};

Buffer thunder(Take& t, const ThunderSpec& s) {
    const std::size_t n = t.n;
    const double secs = static_cast<double>(n) / kRate;
    Buffer mix(n, 0.0f);

    // The roll: swells laid over a slow overall fade.
    Buffer rollEnv = envelope(n, std::vector<Point>{{0.0, s.start}, {0.6, s.start}, {secs, 0.0}});
    scale(rollEnv, 0.5);
    for (const auto& r : s.rolls) {
        const std::vector<Point> shape{{0.0, 0.0}, {r.rise, 1.0}, {r.rise + r.fall, 0.0}};
        addGrain(rollEnv, samples(r.at), envelope(samples(r.rise + r.fall), shape), r.level,
                 Edge::Linear);
    }
    // Its texture: many overlapping rumbling bursts, each a window of deep noise.
    const Buffer source = brownNoise(t.rng, n + samples(1.0), Edge::Linear);
    Buffer rumble(n, 0.0f);
    for (std::size_t at : poissonTimes(t.rng, n, 24.0)) {
        const std::size_t len = samples(t.rng.uniform(0.08, 0.6));
        const std::size_t from =
            static_cast<std::size_t>(t.rng.uniform() * static_cast<double>(source.size() - len));
        Buffer g(source.begin() + static_cast<std::ptrdiff_t>(from),
                 source.begin() + static_cast<std::ptrdiff_t>(from + len));
        const Buffer win = bump(static_cast<double>(len) / kRate);
        multiply(g, win);
        addGrain(rumble, at, g, std::pow(t.rng.uniform(), 2.0 * s.grit) * rollEnv[at],
                 Edge::Linear);
    }
    Buffer bed = brownNoise(t.rng, n, Edge::Linear);
    multiply(bed, rollEnv);
    addLayer(rumble, std::move(bed), -6.0 - 6.0 * s.grit);
    Buffer hz(n);
    for (std::size_t i = 0; i < n; ++i) {
        const double u = static_cast<double>(i) / static_cast<double>(n);
        hz[i] = static_cast<float>(s.startHz * std::pow(s.endHz / s.startHz, std::sqrt(u)));
    }
    sweep(rumble, Edge::Linear, hz, 0.7, Pass::Low);
    sweep(rumble, Edge::Linear, hz, 0.7, Pass::Low);
    // The roll tumbles: its level lurches irregularly a few times a second, more so the
    // more broken the channel.
    Buffer tumble = wander(t.rng, n, 0.22, 0.0, 1.0, Edge::Linear);
    for (auto& v : tumble) {
        v = static_cast<float>(1.0 - s.grit * 0.8 * (1.0 - std::pow(v, 1.5)));
    }
    multiply(rumble, tumble);
    filter(rumble, Edge::Linear, {Biquad::highpass(28, 0.7), Biquad::peaking(70, 1.0, 3.0)});
    addLayer(mix, std::move(rumble), s.rumbleDb);

    if (s.crackDb > kNone) {
        // The tearing: cracks coming thick and fast, then thinning out.
        Buffer crack(n, 0.0f);
        double at = 0.0;
        while (at < s.tear) {
            const double u = at / s.tear;
            const Buffer c = bandBurst(t.rng, 0.00005, t.rng.uniform(0.002, 0.01),
                                       t.rng.logUniform(300, 4000), 0.7);
            addGrain(crack, samples(at), c, (1.0 - 0.6 * u) * t.rng.uniform(0.3, 1.0),
                     Edge::Linear);
            at += t.rng.exponential(0.0015 + 0.01 * u * u);
        }
        filter(crack, Edge::Linear, {Biquad::highpass(150)});
        addLayer(mix, std::move(crack), s.crackDb);
    }
    if (s.boomDb > kNone) {
        // The boom: a heavy low blow with a deep ring.
        Buffer boom = bump(t.rng.uniform(0.02, 0.04));
        boom.resize(samples(2.5), 0.0f);
        const std::vector<Mode> body{{t.rng.uniform(42, 55), 0.9, 1.0},
                                     {t.rng.uniform(75, 95), 0.5, 0.5}};
        ModalBody ring(body);
        Buffer rung = boom;
        process(rung, Edge::Linear, [&ring](float x, std::size_t) { return ring(x); });
        filter(boom, Edge::Linear, {Biquad::lowpass(300)});
        Buffer both(boom.size(), 0.0f);
        addLayer(both, std::move(boom), 0.0);
        addLayer(both, std::move(rung), -3.0);
        Buffer placed(n, 0.0f);
        addGrain(placed, samples(s.tear * 0.6), both, 1.0, Edge::Linear);
        addLayer(mix, std::move(placed), s.boomDb);
    }
    // Echoes off clouds and land: a large dark space.
    reverberate(mix, Edge::Linear, 3.0, 110.0, 1200.0, s.space);
    // Heard from a shelter the crack is loud but does not dwarf the roll: hold the
    // sharpest peaks to 18 dB over the whole sound's RMS.
    limitPeaks(mix, 8.0 * rmsOf(mix), Edge::Linear, samples(0.003));
    // Everything dies away by the end.
    multiply(mix, envelope(n, std::vector<Point>{{0.0, 1.0}, {secs * 0.75, 1.0}, {secs, 0.0}}));
    return mix;
}

Buffer rumble1(Take& t) {
    ThunderSpec s;
    s.crackDb = 4;
    s.tear = 0.3;
    s.boomDb = 2;
    s.startHz = 2500;
    s.endHz = 180;
    s.start = 0.5;
    s.rolls = {{0.2, 0.3, 2.5, 1.0}, {2.4, 0.8, 3.0, 0.7}, {5.5, 1.0, 4.0, 0.5}};
    return thunder(t, s);
}

Buffer rumble2(Take& t) {
    ThunderSpec s;
    s.startHz = 700;
    s.endHz = 150;
    s.rolls = {{0.3, 1.2, 3.0, 0.8}, {3.0, 1.0, 3.5, 1.0}, {7.0, 1.5, 4.0, 0.6}};
    s.grit = 0.7;
    return thunder(t, s);
}

Buffer rumble3(Take& t) {
    ThunderSpec s;
    s.startHz = 320;
    s.endHz = 110;
    s.start = 0.35;
    s.rolls = {{1.0, 2.5, 4.0, 1.0}, {6.0, 2.0, 5.0, 0.8}, {10.5, 1.5, 4.0, 0.4}};
    s.grit = 0.4;
    s.space = 0.7;
    return thunder(t, s);
}

Buffer rumble4(Take& t) {
    ThunderSpec s;
    s.crackDb = 6;
    s.tear = 0.15;
    s.boomDb = 4;
    s.startHz = 3500;
    s.endHz = 250;
    s.start = 0.6;
    s.rolls = {{0.1, 0.2, 1.8, 1.0}, {1.9, 0.5, 2.5, 0.5}};
    s.grit = 0.8;
    return thunder(t, s);
}

Buffer rumble5(Take& t) {
    ThunderSpec s;
    s.crackDb = -6;
    s.tear = 0.5;
    s.startHz = 1400;
    s.endHz = 160;
    s.rolls = {
        {0.4, 0.6, 2.0, 0.9}, {2.2, 0.6, 2.0, 1.0}, {4.5, 0.8, 2.5, 0.8}, {7.5, 1.2, 3.0, 0.5}};
    s.grit = 0.75;
    return thunder(t, s);
}

Buffer rumble6(Take& t) {
    ThunderSpec s;
    s.startHz = 260;
    s.endHz = 90;
    s.start = 0.4;
    s.rolls = {{0.5, 3.0, 5.0, 0.8}, {5.0, 2.5, 5.0, 1.0}, {11.0, 2.0, 5.0, 0.6}};
    s.grit = 0.3;
    s.space = 0.8;
    return thunder(t, s);
}

Buffer rumble7(Take& t) {
    ThunderSpec s;
    s.startHz = 450;
    s.endHz = 140;
    s.start = 0.4;
    s.rolls = {
        {0.6, 0.7, 1.5, 1.0}, {2.3, 0.5, 1.4, 0.9}, {3.8, 0.6, 1.6, 0.8}, {5.6, 0.8, 2.5, 0.6}};
    s.grit = 0.65;
    return thunder(t, s);
}

Buffer rumble8(Take& t) {
    ThunderSpec s;
    s.crackDb = 2;
    s.tear = 0.6;
    s.boomDb = -2;
    s.startHz = 2000;
    s.endHz = 200;
    s.start = 0.5;
    s.rolls = {{0.3, 0.5, 2.0, 0.8}, {1.4, 0.4, 1.5, 1.0}, {3.5, 0.8, 3.0, 0.6}};
    s.grit = 0.85;
    return thunder(t, s);
}

Buffer rumble9(Take& t) {
    ThunderSpec s;
    s.startHz = 900;
    s.endHz = 130;
    s.rolls = {
        {0.2, 0.8, 2.5, 0.7}, {2.8, 1.5, 3.0, 0.9}, {6.5, 2.0, 4.0, 1.0}, {11.0, 1.0, 3.0, 0.5}};
    s.grit = 0.55;
    return thunder(t, s);
}

Buffer rumble10(Take& t) {
    ThunderSpec s;
    s.startHz = 220;
    s.endHz = 100;
    s.start = 0.45;
    s.rolls = {{2.0, 4.0, 6.0, 1.0}, {9.0, 3.0, 5.0, 0.7}};
    s.grit = 0.25;
    s.space = 0.85;
    return thunder(t, s);
}

Buffer rumble11(Take& t) {
    ThunderSpec s;
    s.crackDb = -2;
    s.tear = 0.35;
    s.boomDb = 0;
    s.startHz = 1100;
    s.endHz = 170;
    s.start = 0.4;
    s.rolls = {{0.3, 0.5, 2.5, 1.0}, {3.5, 1.2, 3.0, 0.8}, {7.0, 1.0, 3.5, 0.7}};
    s.grit = 0.6;
    return thunder(t, s);
}

}  // namespace

void addThunderRecipes(std::vector<Recipe>& out) {
    struct Entry {
        int number;
        double seconds;
        const char* summary;
        Buffer (*render)(Take&);
    };
    static constexpr Entry kRumbles[] = {
        {1, 12.0,
         "a near strike: a 0.3 s tearing crack, a heavy boom with a deep ring, then three rolls "
         "darkening "
         "from 2.5 kHz to 180 Hz.",
         rumble1},
        {2, 14.0,
         "a medium storm: no crack, three gritty rolls under 700 Hz, the middle one strongest.",
         rumble2},
        {3, 16.0,
         "a far storm: a slow, smooth, deep roll under 320 Hz in three long swells, wide echoes.",
         rumble3},
        {4, 9.0,
         "a very close strike: a short violent crack and boom, a bright broken roll dying quickly.",
         rumble4},
        {5, 13.0, "a medium strike: a distant tearing and four rolling swells of similar strength.",
         rumble5},
        {6, 18.0,
         "a distant storm: the longest, deepest and smoothest, under 260 Hz, swelling slowly.",
         rumble6},
        {7, 11.0,
         "a rolling rumble in four quick swells under 450 Hz, as if travelling across the sky.",
         rumble7},
        {8, 10.0, "a near strike with a long 0.6 s crackling tear, a boom and a very broken roll.",
         rumble8},
        {9, 15.0, "a growing rumble: four rolls, each larger than the last until the third.",
         rumble9},
        {10, 17.0, "a faraway grumble: two slow, dull swells under 220 Hz in a wide space.",
         rumble10},
        {11, 12.5,
         "a strike a little way off: a softer crack and boom, then three rolls from 1.1 kHz down.",
         rumble11},
    };
    for (const auto& e : kRumbles) {
        out.push_back({"bin/" + std::to_string(200 + e.number) + ".raz",
                       e.number < 10 ? "Thunder rumble " + std::to_string(e.number)
                                     : "Thunder rumble" + std::to_string(e.number),
                       kRandomFour, Kind::OneShot, e.seconds, e.summary, e.render});
    }
}

}  // namespace brevane::soundgen
