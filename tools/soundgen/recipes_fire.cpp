// Fire: a soft roar of burning gas that flickers, and wood crackling: sharp ticks that
// come in little runs as sap and air escape, now and then a pop, a hiss of steam, a log
// settling.
#include <cmath>

#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace {

struct FireSpec {
    double roarDb = 0;
    double roarHz = 380;
    double crackleRuns = 6;  // runs of crackles a second
    double crackleDb = -3;
    double popsPerSecond = 0.4;
    double popDb = -6;
    double hissDb = -22;
    double settlesPerSecond = 0.06;
    double brightHz = 3000;  // centre of the crackles' colour
    double ticksPerSecond = 25;
};

// One tick of burning wood: a very short burst with a little colour of its own.
Grain crackle(Rng& r, double brightHz, double gain) {
    Buffer g = bandBurst(r, 0.00003, r.uniform(0.0004, 0.003),
                         r.logUniform(brightHz / 2.5, brightHz * 2.5), 0.9);
    return Grain{std::move(g), gain};
}

Buffer fire(Take& t, const FireSpec& f) {
    const std::size_t n = t.n;
    // Flames flicker: the roar's level and brightness move quickly and unevenly.
    const Buffer flicker = wander(t.rng, n, 0.18, 0.45, 1.0, t.edge);
    Buffer roar = brownNoise(t.rng, n, t.edge);
    Buffer hz(n);
    for (std::size_t i = 0; i < n; ++i) {
        hz[i] = static_cast<float>(f.roarHz * (0.6 + 0.8 * flicker[i]));
    }
    sweep(roar, t.edge, hz, 0.7, Pass::Low);
    filter(roar, t.edge, {Biquad::highpass(40)});
    multiply(roar, flicker);
    Buffer breath = pinkNoise(t.rng, n, t.edge);
    filter(breath, t.edge, {Biquad::bandpass(900, 0.7)});
    multiply(breath, wander(t.rng, n, 0.6, 0.2, 1.0, t.edge));

    Buffer crackles(n, 0.0f);
    const Buffer activity = wander(t.rng, n, 1.5, 0.25, 1.0, t.edge);
    for (std::size_t at : poissonTimes(t.rng, n, f.crackleRuns, &activity)) {
        const int count = 1 + static_cast<int>(t.rng.exponential(3.0));
        const double loud = std::pow(t.rng.uniform(), 1.5);
        std::size_t when = at;
        for (int k = 0; k < count; ++k) {
            const Grain g = crackle(t.rng, f.brightHz, loud * t.rng.uniform(0.3, 1.0));
            addGrain(crackles, when, g.samples, g.gain, t.edge);
            when += samples(t.rng.exponential(0.012));
        }
    }
    // Faint ticks all the time.
    scatter(crackles, t.rng, f.ticksPerSecond, nullptr, t.edge,
            [&f](Rng& r, std::size_t) { return crackle(r, f.brightHz * 1.3, 0.12 * r.uniform()); });

    // Pops: a knock of the wood with a short ring, and a spray of sparks after it.
    Buffer pops(n, 0.0f);
    for (std::size_t at : poissonTimes(t.rng, n, f.popsPerSecond)) {
        const std::vector<Mode> knock{
            {t.rng.logUniform(450, 1100), t.rng.uniform(0.02, 0.05), 1.0},
            {t.rng.logUniform(1500, 3000), t.rng.uniform(0.01, 0.03), 0.5}};
        ModalBody wood(knock);
        Buffer p = bump(t.rng.uniform(0.0003, 0.0008));
        p.resize(samples(0.15), 0.0f);
        process(p, Edge::Linear, [&wood](float x, std::size_t) { return wood(x); });
        const double g = t.rng.uniform(0.5, 1.0);
        addGrain(pops, at, p, g, t.edge);
        std::size_t when = at + samples(0.01);
        for (int k = 0; k < 3 + t.rng.below(6); ++k) {
            const Grain c = crackle(t.rng, f.brightHz * 1.5, g * 0.3 * t.rng.uniform());
            addGrain(pops, when, c.samples, c.gain * 8.0, t.edge);
            when += samples(t.rng.exponential(0.02));
        }
    }
    // Steam escaping from damp wood: a thin hiss that comes and goes.
    Buffer hiss = whiteNoise(t.rng, n);
    filter(hiss, t.edge, {Biquad::bandpass(t.rng.uniform(4000, 6500), 3.0)});
    Buffer steam(n, 0.0f);
    for (std::size_t at : poissonTimes(t.rng, n, 0.12)) {
        const double len = t.rng.uniform(1.0, 3.0);
        const std::vector<Point> shape{{0.0, 0.0}, {0.3 * len, 1.0}, {len, 0.0}};
        addGrain(steam, at, envelope(samples(len), shape), 1.0, t.edge);
    }
    multiply(hiss, steam);
    // A log settling: a soft low thud and a shower of crackles.
    Buffer settle(n, 0.0f);
    for (std::size_t at : poissonTimes(t.rng, n, f.settlesPerSecond)) {
        Buffer thud = bump(t.rng.uniform(0.008, 0.015));
        thud.resize(samples(0.3), 0.0f);
        filter(thud, Edge::Linear, {Biquad::lowpass(250, 1.2)});
        addGrain(settle, at, thud, 1.0, t.edge);
        std::size_t when = at;
        for (int k = 0; k < 8 + t.rng.below(10); ++k) {
            const Grain c = crackle(t.rng, f.brightHz, 0.08 * t.rng.uniform());
            addGrain(settle, when, c.samples, c.gain, t.edge);
            when += samples(t.rng.exponential(0.04));
        }
    }

    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(roar), f.roarDb);
    addLayer(mix, std::move(breath), f.roarDb - 12.0);
    addLayer(mix, std::move(crackles), f.crackleDb);
    addLayer(mix, std::move(pops), f.popDb);
    addLayer(mix, std::move(hiss), f.hissDb);
    addLayer(mix, std::move(settle), -14.0);
    return mix;
}

Buffer campfire(Take& t) {
    FireSpec f;
    f.roarDb = 0;
    f.crackleRuns = 5;
    f.crackleDb = -4;
    f.popsPerSecond = 0.35;
    f.popDb = -13;
    f.hissDb = -24;
    f.brightHz = 2600;
    return fire(t, f);
}

Buffer cracklingFire(Take& t) {
    FireSpec f;
    f.roarDb = -9;
    f.roarHz = 300;
    f.crackleRuns = 34;
    f.crackleDb = 0;
    f.popsPerSecond = 1.3;
    f.popDb = -11;
    f.hissDb = -26;
    f.settlesPerSecond = 0.1;
    f.brightHz = 4300;
    f.ticksPerSecond = 90;
    return fire(t, f);
}

}  // namespace

void addFireRecipes(std::vector<Recipe>& out) {
    out.push_back({"bin/66.isz", "Campfire", kBankTwo, Kind::Loop, 34.3,
                   "a soft flickering roar (brown noise, cut-off and level moving every fifth of a "
                   "second) with "
                   "a few runs of crackles a second, wood pops with a short ring and sparks, steam "
                   "hiss, a log "
                   "settling now and then.",
                   campfire});
    out.push_back(
        {"bin/67.isz", "Crackling fire", kBankTwo, Kind::Loop, 23.7,
         "a lively fire of dry wood: 22 runs of bright crackles a second, pops more than once a "
         "second, the roar lower beneath.",
         cracklingFire});
}

}  // namespace brevane::soundgen
