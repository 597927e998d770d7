// Wind: noise through filters that follow a wind speed. The speed drives everything a
// listener hears change in wind: the body opens and brightens, whistles rise in pitch and
// come through only when it blows hard, turbulence flutters, leaves rustle faster.
// The loops of bank one and the gusts of random bank four share one voice.
#include <cmath>

#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace {

struct Whistle {
    double hz;    // pitch at middling speed
    double q;     // how pure: 10 is a breathy howl, 40 a thin whistle
    double db;    // level at full speed
    double from;  // speed at which it starts to sound
};

struct WindSpec {
    double bodyLowHz = 250, bodyHighHz = 900;  // body cut-off at calm and at full speed
    double bodyDb = 0.0;
    double rumbleDb = -14.0;  // buffeting under 150 Hz
    double hissDb = -22.0;    // fine high air noise
    double flutter = 0.3;     // depth of fast turbulence at full speed, 0..1
    std::vector<Whistle> whistles;
    double rustleDb = -100.0;  // leaves; -100 for none
    double rustleLowHz = 2500, rustleHighHz = 8000;
    double rustleRate = 2500;    // grains a second at full speed
    double leafFlutterHz = 0.0;  // leaves trembling together (aspens), 0 for none
};

// lo + (hi - lo) * speed^power. Speed moves slowly, so the power is taken every 32
// samples and joined by straight lines.
Buffer speedScaled(const Buffer& speed, double lo, double hi, double power) {
    constexpr std::size_t kStep = 32;
    auto at = [&](std::size_t i) {
        return lo +
               (hi - lo) * std::pow(std::clamp(static_cast<double>(speed[i]), 0.0, 1.0), power);
    };
    Buffer out(speed.size());
    for (std::size_t i = 0; i < speed.size(); i += kStep) {
        const std::size_t j = std::min(i + kStep, speed.size() - 1);
        const double a = at(i), b = at(j);
        for (std::size_t k = i; k < std::min(i + kStep, speed.size()); ++k) {
            out[k] = static_cast<float>(a + (b - a) * static_cast<double>(k - i) /
                                                static_cast<double>(j - i + (j == i)));
        }
    }
    return out;
}

// Fast random turbulence between 1 - depth and 1 at full speed.
Buffer turbulence(Take& t, const Buffer& speed, double depth) {
    Buffer m = whiteNoise(t.rng, t.n);
    filter(m, t.edge, {Biquad::lowpass(7.0, 0.7), Biquad::lowpass(7.0, 0.7)});
    normaliseRms(m, 0.35);
    for (std::size_t i = 0; i < t.n; ++i) {
        const double v = std::clamp(0.5 + m[i], 0.0, 1.0);
        m[i] = static_cast<float>(1.0 - depth * speed[i] * v);
    }
    return m;
}

Buffer windVoice(Take& t, const Buffer& speed, const WindSpec& w) {
    const std::size_t n = t.n;
    Buffer mix(n, 0.0f);

    // The body: pink noise whose cut-off opens with speed, loudness rising steeply.
    Buffer body = pinkNoise(t.rng, n, t.edge);
    sweep(body, t.edge, speedScaled(speed, w.bodyLowHz, w.bodyHighHz, 1.0), 0.9, Pass::Low);
    filter(body, t.edge, {Biquad::highpass(45)});
    const Buffer flutter = turbulence(t, speed, w.flutter);
    multiply(body, flutter);
    multiply(body, speedScaled(speed, 0.04, 1.0, 1.6));
    addLayer(mix, std::move(body), w.bodyDb);

    Buffer rumble = brownNoise(t.rng, n, t.edge);
    filter(rumble, t.edge, {Biquad::lowpass(140, 0.7), Biquad::highpass(30)});
    multiply(rumble, turbulence(t, speed, 0.8));
    multiply(rumble, speedScaled(speed, 0.0, 1.0, 2.0));
    addLayer(mix, std::move(rumble), w.rumbleDb);

    Buffer hiss = pinkNoise(t.rng, n, t.edge);
    filter(hiss, t.edge, {Biquad::highpass(3000, 0.7), Biquad::lowpass(11000, 0.7)});
    multiply(hiss, speedScaled(speed, 0.05, 1.0, 1.5));
    addLayer(mix, std::move(hiss), w.hissDb);

    for (const auto& wh : w.whistles) {
        // A narrow resonance on noise, gliding with speed and wavering on its own.
        Buffer tone = whiteNoise(t.rng, n);
        const Buffer waver = wander(t.rng, n, 1.3, 0.96, 1.04, t.edge);
        Buffer hz(n);
        for (std::size_t i = 0; i < n; ++i) {
            hz[i] = static_cast<float>(wh.hz * (0.8 + 0.45 * speed[i]) * waver[i]);
        }
        sweep(tone, t.edge, hz, wh.q, Pass::Band);
        sweep(tone, t.edge, hz, wh.q, Pass::Band);
        Buffer level(n);
        for (std::size_t i = 0; i < n; ++i) {
            const double over = std::clamp((speed[i] - wh.from) / (1.0 - wh.from), 0.0, 1.0);
            level[i] = static_cast<float>(over * over);
        }
        multiply(tone, level);
        addLayer(mix, std::move(tone), wh.db);
    }

    if (w.rustleDb > -99.0) {
        // Leaves: a cloud of tiny dry ticks, more of them the harder it blows.
        Buffer leaves(n, 0.0f);
        const Buffer density = speedScaled(speed, 0.03, 1.0, 1.3);
        scatter(leaves, t.rng, w.rustleRate, &density, t.edge, [&w](Rng& r, std::size_t) {
            return Grain{bandBurst(r, 0.0003, r.uniform(0.002, 0.007),
                                   r.logUniform(w.rustleLowHz, w.rustleHighHz), 1.4),
                         std::pow(r.uniform(), 1.5)};
        });
        if (w.leafFlutterHz > 0.0) {
            // Leaves on long stalks tremble together: a quick, uneven shimmer.
            Buffer hz = wander(t.rng, n, 0.7, 0.7 * w.leafFlutterHz, 1.3 * w.leafFlutterHz, t.edge);
            const Buffer shimmer = sine(hz);
            for (std::size_t i = 0; i < n; ++i) {
                leaves[i] *= static_cast<float>(1.0 - 0.45 * speed[i] * (0.5 + 0.5 * shimmer[i]));
            }
        }
        addLayer(mix, std::move(leaves), w.rustleDb);
    }
    return mix;
}

// Gusts laid on a slowly wandering base speed: each swells over a second or two and dies
// away over a few more.
Buffer gustySpeed(Take& t, double baseLo, double baseHi, double spacing, double gustRate,
                  double gustLo, double gustHi) {
    Buffer speed = wander(t.rng, t.n, spacing, baseLo, baseHi, t.edge);
    for (std::size_t at : poissonTimes(t.rng, t.n, gustRate)) {
        const double rise = t.rng.uniform(1.2, 2.8), fall = t.rng.uniform(2.5, 5.0);
        const std::vector<Point> shape{{0.0, 0.0}, {rise, 1.0}, {rise + fall, 0.0}};
        const Buffer g = envelope(samples(rise + fall), shape);
        addGrain(speed, at, g, t.rng.uniform(gustLo, gustHi), t.edge);
    }
    for (auto& v : speed) {
        v = std::min(v, 1.0f);
    }
    return speed;
}

Buffer winterWind(Take& t) {
    const Buffer speed = gustySpeed(t, 0.35, 0.75, 6.0, 0.12, 0.2, 0.4);
    WindSpec w;
    w.bodyLowHz = 220;
    w.bodyHighHz = 800;
    w.rumbleDb = -12;
    w.hissDb = -18;
    w.flutter = 0.25;
    w.whistles = {{430, 14, -4, 0.3}, {690, 24, -8, 0.4}, {1180, 40, -13, 0.55}};
    Buffer b = windVoice(t, speed, w);
    filter(b, t.edge, {Biquad::highShelf(6000, -3.0)});
    return b;
}

Buffer lightBreeze(Take& t) {
    const Buffer speed = wander(t.rng, t.n, 6.5, 0.15, 0.55, t.edge);
    WindSpec w;
    w.bodyLowHz = 500;
    w.bodyHighHz = 1800;
    w.rumbleDb = -30;
    w.hissDb = -13;
    w.flutter = 0.1;
    w.rustleDb = -14;
    w.rustleRate = 900;
    w.rustleLowHz = 2500;
    w.rustleHighHz = 7000;
    Buffer b = windVoice(t, speed, w);
    // Gentle air has little weight below a couple of hundred hertz.
    filter(b, t.edge, {Biquad::highpass(140, 0.6)});
    return b;
}

Buffer gustyWind(Take& t) {
    const Buffer speed = gustySpeed(t, 0.12, 0.45, 4.0, 0.17, 0.4, 0.7);
    WindSpec w;
    w.bodyLowHz = 200;
    w.bodyHighHz = 1100;
    w.rumbleDb = -7;
    w.hissDb = -17;
    w.flutter = 0.55;
    w.whistles = {{520, 12, -9, 0.55}, {880, 20, -12, 0.7}};
    return windVoice(t, speed, w);
}

Buffer windInLeaves(Take& t) {
    const Buffer speed = gustySpeed(t, 0.2, 0.55, 4.5, 0.1, 0.2, 0.4);
    WindSpec w;
    w.bodyLowHz = 300;
    w.bodyHighHz = 900;
    w.bodyDb = -9;
    w.rumbleDb = -24;
    w.hissDb = -20;
    w.rustleDb = 0;
    w.rustleRate = 3500;
    w.rustleLowHz = 2200;
    w.rustleHighHz = 9000;
    w.leafFlutterHz = 11.0;
    return windVoice(t, speed, w);
}

Buffer windInFoliage(Take& t) {
    const Buffer speed = wander(t.rng, t.n, 3.5, 0.2, 0.8, t.edge);
    WindSpec w;
    w.bodyLowHz = 400;
    w.bodyHighHz = 1500;
    w.bodyDb = -5;
    w.rumbleDb = -22;
    w.hissDb = -12;
    w.rustleDb = 0;
    w.rustleRate = 6000;
    w.rustleLowHz = 900;
    w.rustleHighHz = 4500;
    Buffer b = windVoice(t, speed, w);
    filter(b, t.edge, {Biquad::peaking(2200, 0.8, 3.0), Biquad::highShelf(7000, -5.0)});
    return b;
}

Buffer windInTrees(Take& t) {
    const Buffer speed = gustySpeed(t, 0.25, 0.65, 7.0, 0.1, 0.25, 0.45);
    WindSpec w;
    w.bodyLowHz = 300;
    w.bodyHighHz = 1300;
    w.rumbleDb = -12;
    w.hissDb = -15;
    w.flutter = 0.2;
    w.whistles = {{760, 8, -14, 0.5}};
    w.rustleDb = -6;
    w.rustleRate = 4000;
    w.rustleLowHz = 1500;
    w.rustleHighHz = 6000;
    Buffer b = windVoice(t, speed, w);
    filter(b, t.edge, {Biquad::peaking(600, 0.6, 4.0)});
    return b;
}

// ---- gusts ---------------------------------------------------------------------------

// A gust's speed over its life: it is already blowing a little at the start, swells to
// its peak (or peaks) and dies away to nothing.
Buffer gustShape(Take& t, std::vector<Point> points) {
    Buffer s = envelope(t.n, points);
    // A little unsteadiness on the way.
    const Buffer wobble = wander(t.rng, t.n, 0.45, 0.85, 1.0, t.edge);
    multiply(s, wobble);
    return s;
}

Buffer gust(Take& t, std::vector<Point> shape, const WindSpec& w) {
    const double secs = static_cast<double>(t.n) / kRate;
    shape.push_back({secs, 0.0});
    return windVoice(t, gustShape(t, std::move(shape)), w);
}

WindSpec treeWind() {
    WindSpec w;
    w.bodyLowHz = 300;
    w.bodyHighHz = 1300;
    w.rumbleDb = -13;
    w.hissDb = -15;
    w.flutter = 0.2;
    w.rustleDb = -4;
    w.rustleRate = 4500;
    w.rustleLowHz = 1500;
    w.rustleHighHz = 7000;
    return w;
}

Buffer treewindGust(Take& t) {
    return gust(t, {{0.0, 0.25}, {2.6, 1.0}, {3.6, 0.85}}, treeWind());
}

Buffer smallTreeGust(Take& t) {
    WindSpec w = treeWind();
    w.bodyDb = -5;
    w.rustleDb = 0;
    w.rustleLowHz = 2500;
    w.rustleHighHz = 9000;
    w.leafFlutterHz = 9.0;
    return gust(t, {{0.0, 0.3}, {1.5, 0.75}}, w);
}

Buffer smallGust(Take& t) {
    WindSpec w;
    w.bodyLowHz = 300;
    w.bodyHighHz = 1000;
    w.rumbleDb = -16;
    w.hissDb = -14;
    w.flutter = 0.2;
    return gust(t, {{0.0, 0.3}, {1.2, 0.7}}, w);
}

Buffer mediumGust(Take& t) {
    WindSpec w;
    w.bodyLowHz = 260;
    w.bodyHighHz = 1200;
    w.rumbleDb = -11;
    w.hissDb = -15;
    w.flutter = 0.35;
    w.whistles = {{600, 12, -14, 0.6}};
    return gust(t, {{0.0, 0.25}, {2.2, 0.95}, {2.8, 0.9}}, w);
}

Buffer stormyGust(Take& t) {
    WindSpec w;
    w.bodyLowHz = 180;
    w.bodyHighHz = 1000;
    w.rumbleDb = -5;
    w.hissDb = -14;
    w.flutter = 0.6;
    w.whistles = {{380, 12, -7, 0.45}, {640, 22, -10, 0.6}};
    return gust(t, {{0.0, 0.3}, {2.0, 0.85}, {3.3, 1.0}, {4.8, 0.8}}, w);
}

Buffer highWindGust(Take& t) {
    WindSpec w;
    w.bodyLowHz = 400;
    w.bodyHighHz = 1800;
    w.rumbleDb = -14;
    w.hissDb = -9;
    w.flutter = 0.3;
    w.whistles = {{1100, 30, -6, 0.4}, {1650, 40, -11, 0.55}};
    return gust(t, {{0.0, 0.3}, {2.8, 1.0}, {3.6, 0.95}}, w);
}

Buffer highWindGust2(Take& t) {
    WindSpec w;
    w.bodyLowHz = 380;
    w.bodyHighHz = 1600;
    w.rumbleDb = -12;
    w.hissDb = -10;
    w.flutter = 0.35;
    w.whistles = {{930, 26, -7, 0.45}, {1420, 36, -9, 0.5}, {2100, 45, -15, 0.7}};
    return gust(t, {{0.0, 0.3}, {1.8, 0.9}, {3.0, 0.6}, {4.6, 1.0}, {5.4, 0.9}}, w);
}

Buffer blusteryGust1(Take& t) {
    WindSpec w;
    w.bodyLowHz = 220;
    w.bodyHighHz = 1100;
    w.rumbleDb = -7;
    w.hissDb = -16;
    w.flutter = 0.65;
    return gust(t, {{0.0, 0.3}, {0.9, 0.9}, {1.6, 0.45}, {2.5, 1.0}, {3.2, 0.5}, {4.1, 0.85}}, w);
}

Buffer blusteryGust2(Take& t) {
    WindSpec w;
    w.bodyLowHz = 260;
    w.bodyHighHz = 1400;
    w.rumbleDb = -9;
    w.hissDb = -13;
    w.flutter = 0.6;
    w.whistles = {{700, 10, -15, 0.6}};
    return gust(t, {{0.0, 0.3}, {1.4, 1.0}, {2.3, 0.4}, {3.5, 0.95}}, w);
}

}  // namespace

void addWindRecipes(std::vector<Recipe>& out) {
    out.push_back(
        {"bin/7.isz", "Winter wind", kBankOne, Kind::Loop, 36.1,
         "a bleak wind wandering over 6 s with slow gusts: a dark pink-noise body opening 220-800 "
         "Hz "
         "with speed, three howling resonances (430, 690, 1180 Hz, Q 14-40) that rise and come "
         "through only as it blows hard, cold hiss, low buffeting.",
         winterWind});
    out.push_back({"bin/8.isz", "Light breeze", kBankOne, Kind::Loop, 30.6,
                   "soft air breathing over 6.5 s: a brighter body (350-1400 Hz) at low speed, "
                   "airy hiss and a "
                   "faint stir of leaves, no whistles.",
                   lightBreeze});
    out.push_back(
        {"bin/9.isz", "Gusty wind", kBankOne, Kind::Loop, 34.7,
         "a low base wind with strong gusts every six seconds or so, each swelling over 1-3 s: the "
         "body opens to 1.1 kHz, turbulence flutters hard, buffeting rumbles, two whistles break "
         "through at the peaks.",
         gustyWind});
    out.push_back({"bin/10.isz", "Wind in leaves", kBankOne, Kind::Loop, 26.2,
                   "3500 dry leaf ticks a second (2.2-9 kHz) following the wind's speed and "
                   "trembling at about "
                   "11 Hz like aspen leaves, over a soft wind body.",
                   windInLeaves});
    out.push_back(
        {"bin/11.isz", "Wind in foliage", kBankOne, Kind::Loop, 32.4,
         "dense bushy shushing: 6000 softer, lower leaf grains a second (0.9-4.5 kHz) with a full "
         "body and hiss peaked at 2.2 kHz, swaying over 3.5 s.",
         windInFoliage});
    out.push_back({"bin/12.isz", "Wind in trees", kBankOne, Kind::Loop, 35.3,
                   "the roar of wind through big trees: a broad body peaked at 600 Hz swelling "
                   "with slow gusts, "
                   "a breathy hollow whistle, and the rustle of the crowns at the peaks.",
                   windInTrees});

    out.push_back({"bin/212.raz", "Treewind gust", kRandomFour, Kind::OneShot, 7.0,
                   "the tree wind voice swelling from a breeze to its peak at 2.6 s, crowns "
                   "rustling, then dying "
                   "away.",
                   treewindGust});
    out.push_back({"bin/213.raz", "Small tree gust", kRandomFour, Kind::OneShot, 4.5,
                   "a lighter gust in smaller trees: mostly trembling leaves over a soft body, "
                   "peak at 1.5 s.",
                   smallTreeGust});
    out.push_back({"bin/214.raz", "Small gust", kRandomFour, Kind::OneShot, 3.6,
                   "a short puff of bare wind, body and hiss only, peak at 1.2 s.", smallGust});
    out.push_back({"bin/215.raz", "Medium gust", kRandomFour, Kind::OneShot, 6.0,
                   "a fuller whoosh rising over 2.2 s with a faint whistle at its height.",
                   mediumGust});
    out.push_back({"bin/216.raz", "Stormy gust", kRandomFour, Kind::OneShot, 9.0,
                   "a storm blast in two surges: dark body, heavy buffeting and flutter, two howls "
                   "(380, 640 Hz).",
                   stormyGust});
    out.push_back(
        {"bin/217.raz", "High wind gust", kRandomFour, Kind::OneShot, 7.5,
         "a bright high wind with thin whistles at 1.1 and 1.65 kHz climbing with the gust.",
         highWindGust});
    out.push_back(
        {"bin/218.raz", "High wind gust 2", kRandomFour, Kind::OneShot, 8.5,
         "a second high wind: a first peak, a lull, a stronger peak, three whistles (0.93, 1.42, "
         "2.1 kHz).",
         highWindGust2});
    out.push_back({"bin/219.raz", "Blustery gust 1", kRandomFour, Kind::OneShot, 6.5,
                   "three quick buffeting bursts under 4 s, strong flutter and rumble, no whistle.",
                   blusteryGust1});
    out.push_back({"bin/220.raz", "Blustery gust 2", kRandomFour, Kind::OneShot, 7.0,
                   "two bursts a couple of seconds apart, brighter body, a breathy howl at 700 Hz.",
                   blusteryGust2});
}

}  // namespace brevane::soundgen
