// Rain and hail: dense clouds of drops, each family voiced by the surface it falls on.
#include <cmath>

#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace {

// Drop sizes follow a steep law: many tiny drops, a few big ones.
double dropSize(Rng& r, double steepness) {
    return std::pow(r.uniform(), steepness);
}

// The hiss of rain falling everywhere around: pink noise in a band, breathing slowly.
Buffer rainBed(Take& t, double lowHz, double highHz, double breathe) {
    Buffer b = pinkNoise(t.rng, t.n, t.edge);
    filter(
        b, t.edge,
        {Biquad::highpass(lowHz, 0.6), Biquad::highpass(lowHz, 0.6), Biquad::lowpass(highHz, 0.6)});
    multiply(b, wander(t.rng, t.n, 3.0, 1.0 - breathe, 1.0, t.edge));
    return b;
}

// Rings the excitation through a struck body.
Buffer ring(Buffer excitation, const std::vector<Mode>& modes, Edge edge) {
    ModalBody body(modes);
    process(excitation, edge, [&body](float x, std::size_t) { return body(x); });
    return excitation;
}

// A sheet of thin metal: inharmonic modes spread over the band, each ringing a while.
std::vector<Mode> sheetModes(Rng& r, int count, double lo, double hi, double t60lo, double t60hi) {
    std::vector<Mode> modes;
    for (int i = 0; i < count; ++i) {
        modes.push_back({r.logUniform(lo, hi), r.uniform(t60lo, t60hi), r.uniform(0.3, 1.0)});
    }
    return modes;
}

Buffer hailOnTin(Take& t) {
    const std::size_t n = t.n;
    // Three stretches of roof, each with its own modes; every stone strikes one of them.
    std::vector<Buffer> panels(3, Buffer(n, 0.0f));
    Buffer thuds(n, 0.0f), clicks(n, 0.0f);
    const Buffer density = wander(t.rng, n, 2.5, 0.55, 1.0, t.edge);
    for (std::size_t at : poissonTimes(t.rng, n, 260.0, &density)) {
        const double size = dropSize(t.rng, 2.2);
        addImpulse(panels[static_cast<std::size_t>(t.rng.below(3))], at, size, t.edge);
        addGrain(
            clicks, at,
            bandBurst(t.rng, 0.0001, t.rng.uniform(0.002, 0.006), t.rng.uniform(3000, 7000), 0.8),
            size, t.edge);
        if (size > 0.45) {
            addGrain(thuds, at, bump(t.rng.uniform(0.002, 0.004)), size, t.edge);
        }
    }
    Buffer mix(n, 0.0f);
    for (auto& p : panels) {
        addLayer(mix, ring(std::move(p), sheetModes(t.rng, 9, 700, 6500, 0.08, 0.3), t.edge), -9.0);
    }
    addLayer(mix, ring(std::move(thuds), sheetModes(t.rng, 5, 90, 260, 0.05, 0.12), t.edge), -13.0);
    addLayer(mix, std::move(clicks), -6.0);
    // Fine rain between the stones, on the same metal.
    addLayer(mix, rainBed(t, 2500, 11000, 0.2), -15.0);
    filter(mix, t.edge, {Biquad::highShelf(9000, -3.0)});
    return mix;
}

Buffer rainOnCarRoof(Take& t) {
    const std::size_t n = t.n;
    // Heard from inside: each drop a muffled knock of the roof panel and its lining.
    Buffer roof(n, 0.0f), taps(n, 0.0f);
    const Buffer density = wander(t.rng, n, 3.0, 0.7, 1.0, t.edge);
    for (std::size_t at : poissonTimes(t.rng, n, 950.0, &density)) {
        const double size = dropSize(t.rng, 2.0);
        addGrain(roof, at, bump(t.rng.uniform(0.0006, 0.0016)), size, t.edge);
        addGrain(
            taps, at,
            bandBurst(t.rng, 0.0002, t.rng.uniform(0.002, 0.005), t.rng.uniform(1800, 3500), 1.2),
            size, t.edge);
    }
    // Heavier drips falling from the edge of the windscreen frame.
    for (std::size_t at : poissonTimes(t.rng, n, 3.5)) {
        addGrain(roof, at, bump(t.rng.uniform(0.002, 0.003)), t.rng.uniform(1.2, 2.2), t.edge);
    }
    std::vector<Mode> panel;
    for (double hz : {118.0, 173.0, 236.0, 311.0, 402.0, 517.0, 655.0, 840.0}) {
        panel.push_back(
            {hz * t.rng.uniform(0.97, 1.03), t.rng.uniform(0.04, 0.11), t.rng.uniform(0.5, 1.0)});
    }
    Buffer mix(n, 0.0f);
    addLayer(mix, ring(std::move(roof), panel, t.edge), -4.0);
    addLayer(mix, std::move(taps), -10.0);
    // The rain outside, through glass.
    Buffer outside = pinkNoise(t.rng, n, t.edge);
    filter(outside, t.edge, {Biquad::lowpass(1600, 0.7), Biquad::highpass(150)});
    multiply(outside, wander(t.rng, n, 4.0, 0.8, 1.0, t.edge));
    addLayer(mix, std::move(outside), -12.0);
    filter(mix, t.edge, {Biquad::peaking(180, 1.0, 3.0), Biquad::lowpass(7000, 0.7)});
    return mix;
}

Buffer lightRain(Take& t) {
    const std::size_t n = t.n;
    Buffer ticks(n, 0.0f), soft(n, 0.0f), plips(n, 0.0f), fine(n, 0.0f);
    const Buffer density = wander(t.rng, n, 4.0, 0.55, 1.0, t.edge);
    // Distinct drops on hard things around: ticks with a pitch of their own.
    scatter(ticks, t.rng, 70.0, &density, t.edge, [](Rng& r, std::size_t) {
        return Grain{bandBurst(r, 0.0002, r.uniform(0.003, 0.012), r.logUniform(1200, 5000), 1.8),
                     dropSize(r, 2.4)};
    });
    // Drops on soil and grass: soft dull taps.
    scatter(soft, t.rng, 90.0, &density, t.edge, [](Rng& r, std::size_t) {
        return Grain{bandBurst(r, 0.0006, r.uniform(0.006, 0.018), r.logUniform(350, 1300), 1.2),
                     dropSize(r, 2.0)};
    });
    // Drops into water: small rising plips.
    scatter(plips, t.rng, 14.0, &density, t.edge, [](Rng& r, std::size_t) {
        return Grain{bubble(r.logUniform(1500, 4000), r.uniform(6, 20), r.uniform(0.012, 0.035)),
                     r.uniform(0.2, 1.0)};
    });
    // The fine patter further off that fills the gaps.
    scatter(fine, t.rng, 260.0, nullptr, t.edge, [](Rng& r, std::size_t) {
        return Grain{bandBurst(r, 0.0001, r.uniform(0.001, 0.003), r.logUniform(2500, 7000), 1.0),
                     dropSize(r, 1.5)};
    });
    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(ticks), -6.0);
    addLayer(mix, std::move(soft), -8.0);
    addLayer(mix, std::move(plips), -14.0);
    addLayer(mix, std::move(fine), -15.0);
    addLayer(mix, rainBed(t, 1000, 7000, 0.25), -18.0);
    filter(mix, t.edge, {Biquad::highpass(180), Biquad::highShelf(7000, -4.0)});
    // Open air between houses and trees: a short, soft reflection behind every drop.
    reverberate(mix, t.edge, 0.7, 30.0, 4000.0, 0.35);
    return mix;
}

Buffer heavyRain(Take& t) {
    const std::size_t n = t.n;
    // Sheets of rain: the downpour swells and eases every few seconds.
    const Buffer sheets = wander(t.rng, n, 2.2, 0.5, 1.0, t.edge);
    Buffer drops(n, 0.0f), splashes(n, 0.0f), plips(n, 0.0f);
    scatter(drops, t.rng, 3200.0, &sheets, t.edge, [](Rng& r, std::size_t) {
        return Grain{bandBurst(r, 0.0002, r.uniform(0.002, 0.008), r.logUniform(900, 7000), 1.1),
                     dropSize(r, 2.0)};
    });
    scatter(splashes, t.rng, 70.0, &sheets, t.edge, [](Rng& r, std::size_t) {
        return Grain{bandBurst(r, 0.0008, r.uniform(0.02, 0.05), r.logUniform(700, 2500), 0.8),
                     r.uniform(0.3, 1.0)};
    });
    scatter(plips, t.rng, 35.0, nullptr, t.edge, [](Rng& r, std::size_t) {
        return Grain{bubble(r.logUniform(1200, 3500), r.uniform(8, 25), r.uniform(0.015, 0.04)),
                     r.uniform(0.2, 1.0)};
    });
    Buffer hiss = pinkNoise(t.rng, n, t.edge);
    filter(
        hiss, t.edge,
        {Biquad::highpass(450, 0.7), Biquad::peaking(3000, 0.7, 4.0), Biquad::lowpass(12000, 0.7)});
    multiply(hiss, sheets);
    // Water running off and pouring from gutters, low and steady.
    Buffer runoff = brownNoise(t.rng, n, t.edge);
    filter(runoff, t.edge, {Biquad::lowpass(380, 0.7), Biquad::highpass(60)});
    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(hiss), -7.0);
    addLayer(mix, std::move(drops), -7.0);
    addLayer(mix, std::move(splashes), -13.0);
    addLayer(mix, std::move(plips), -19.0);
    addLayer(mix, std::move(runoff), -13.0);
    reverberate(mix, t.edge, 0.9, 35.0, 3500.0, 0.4);
    return mix;
}

Buffer rainOnLeaves(Take& t) {
    const std::size_t n = t.n;
    Buffer taps(n, 0.0f), drips(n, 0.0f);
    const Buffer density = wander(t.rng, n, 2.5, 0.5, 1.0, t.edge);
    // Each drop on a leaf: a short papery tap with the leaf's own pitch.
    scatter(taps, t.rng, 480.0, &density, t.edge, [](Rng& r, std::size_t) {
        return Grain{bandBurst(r, 0.0003, r.uniform(0.005, 0.014), r.logUniform(800, 3600), 2.5),
                     dropSize(r, 2.0)};
    });
    // Leaves shedding their load: runs of heavier drops that come in little bursts.
    for (std::size_t centre : poissonTimes(t.rng, n, 2.6)) {
        const int count = 2 + t.rng.below(6);
        std::size_t at = centre;
        for (int k = 0; k < count; ++k) {
            at += samples(t.rng.exponential(0.06));
            addGrain(drips, at,
                     bandBurst(t.rng, 0.0005, t.rng.uniform(0.015, 0.03),
                               t.rng.logUniform(500, 1400), 3.0),
                     t.rng.uniform(0.4, 1.0), t.edge);
        }
    }
    // Leaves stirring under the weight of the water.
    Buffer rustle = pinkNoise(t.rng, n, t.edge);
    filter(rustle, t.edge, {Biquad::highpass(1500), Biquad::lowpass(7000)});
    multiply(rustle, wander(t.rng, n, 1.5, 0.3, 1.0, t.edge));
    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(taps), -5.0);
    addLayer(mix, std::move(drips), -10.0);
    addLayer(mix, std::move(rustle), -19.0);
    addLayer(mix, rainBed(t, 2000, 7000, 0.2), -17.0);
    filter(mix, t.edge, {Biquad::highpass(250), Biquad::highShelf(7500, -4.0)});
    // Under trees the space is close and soft.
    reverberate(mix, t.edge, 0.5, 20.0, 3000.0, 0.3);
    return mix;
}

Buffer rainOnPavement(Take& t) {
    const std::size_t n = t.n;
    Buffer crisp(n, 0.0f), splats(n, 0.0f), puddle(n, 0.0f), gutter(n, 0.0f);
    const Buffer density = wander(t.rng, n, 3.5, 0.7, 1.0, t.edge);
    // Drops shattering on hard ground: short, crisp, spread over the upper middle.
    scatter(crisp, t.rng, 2200.0, &density, t.edge, [](Rng& r, std::size_t) {
        return Grain{bandBurst(r, 0.0001, r.uniform(0.0015, 0.005), r.logUniform(1500, 6000), 0.8),
                     dropSize(r, 2.5)};
    });
    // Bigger drops splatting into the wet film on the stones.
    scatter(splats, t.rng, 120.0, &density, t.edge, [](Rng& r, std::size_t) {
        return Grain{bandBurst(r, 0.0005, r.uniform(0.01, 0.025), r.logUniform(1000, 4500), 0.9),
                     r.uniform(0.2, 1.0)};
    });
    // Plinks in the puddles.
    scatter(puddle, t.rng, 16.0, nullptr, t.edge, [](Rng& r, std::size_t) {
        return Grain{bubble(r.logUniform(1500, 4200), r.uniform(10, 40), r.uniform(0.015, 0.04)),
                     r.uniform(0.3, 1.0)};
    });
    // A gutter trickling into a drain.
    scatter(gutter, t.rng, 38.0, nullptr, t.edge, [](Rng& r, std::size_t) {
        return Grain{bubble(r.logUniform(380, 1200), r.uniform(3, 12), r.uniform(0.02, 0.05)),
                     r.uniform(0.2, 1.0)};
    });
    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(crisp), -5.0);
    addLayer(mix, std::move(splats), -9.0);
    addLayer(mix, std::move(puddle), -16.0);
    addLayer(mix, std::move(gutter), -17.0);
    addLayer(mix, rainBed(t, 1200, 9000, 0.15), -12.0);
    filter(mix, t.edge, {Biquad::highpass(180), Biquad::highShelf(8000, -6.0)});
    // A street: hard walls send the splashes back.
    reverberate(mix, t.edge, 1.1, 45.0, 5000.0, 0.45);
    return mix;
}

}  // namespace

void addRainRecipes(std::vector<Recipe>& out) {
    out.push_back({"bin/1.isz", "Hail on tin roof", kBankOne, Kind::Loop, 27.4,
                   "260 stones a second (size law u^2.2) striking three stretches of tin, each "
                   "nine inharmonic modes 0.7-6.5 kHz ringing 0.1-0.3 s; bright impact clicks; "
                   "big stones thud the roof's low modes; fine rain hiss between.",
                   hailOnTin});
    out.push_back({"bin/2.isz", "Rain on car roof", kBankOne, Kind::Loop, 29.1,
                   "950 drops a second as soft bumps knocking eight damped roof-panel modes "
                   "(118-840 Hz) with light taps, heavy drips from the frame, the rain outside "
                   "low-passed through glass, cabin resonance at 180 Hz.",
                   rainOnCarRoof});
    out.push_back(
        {"bin/3.isz", "Light rain", kBankOne, Kind::Loop, 31.7,
         "70 distinct drop ticks a second (band-passed bursts 1.2-5 kHz) and 90 soft taps on "
         "soil (0.35-1.3 kHz) over a fine distant patter, a few rising plips into water, a "
         "thin hiss, all breathing slowly.",
         lightRain});
    out.push_back(
        {"bin/4.isz", "Heavy rain", kBankOne, Kind::Loop, 25.3,
         "a downpour in sheets: pink hiss peaked at 3 kHz and 3200 drops a second swelling "
         "together every few seconds, heavier splashes, plips, low runoff from gutters.",
         heavyRain});
    out.push_back({"bin/5.isz", "Rain on leaves", kBankOne, Kind::Loop, 33.2,
                   "480 papery leaf taps a second (resonant bursts 0.8-3.6 kHz, Q 2.5), leaves "
                   "shedding runs of heavier drips, stirring foliage and a soft distant hiss.",
                   rainOnLeaves});
    out.push_back(
        {"bin/6.isz", "Rain on pavement", kBankOne, Kind::Loop, 28.3,
         "2200 crisp drop shatters a second (1.5-6 kHz) with heavier splats into the wet film, "
         "plinks in puddles and a gutter trickling low into a drain.",
         rainOnPavement});
}

}  // namespace brevane::soundgen
