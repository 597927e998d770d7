// The living loops of background bank two: a quiet bed of leaves, air or water with the
// calls of the creatures that live there scattered over it. Every call is a fresh take
// of the same voices the random banks use, at its own distance, so no pattern of calls
// comes back within a loop; the insect loops are choruses of singers, each at its own
// pitch and pace.
#include <algorithm>
#include <cmath>
#include <functional>

#include "calls.h"
#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace {

using namespace calls;

// ---- beds -------------------------------------------------------------------------------

// Leaves stirring: a soft airy hiss that swells with the breeze, and single leaves
// rustling more when it blows.
Buffer leaves(Take& t, double lowHz, double highHz, double calm) {
    const std::size_t n = t.n;
    const Buffer breeze = wander(t.rng, n, 3.5, calm, 1.0, t.edge);
    Buffer hiss = pinkNoise(t.rng, n, t.edge);
    filter(
        hiss, t.edge,
        {Biquad::highpass(lowHz, 0.6), Biquad::highpass(lowHz, 0.6), Biquad::lowpass(highHz, 0.6)});
    multiply(hiss, breeze);
    Buffer rustle(n, 0.0f);
    scatter(rustle, t.rng, 60.0, &breeze, t.edge, [&](Rng& r, std::size_t) {
        return Grain{
            bandBurst(r, 0.001, r.uniform(0.005, 0.02), r.logUniform(lowHz * 2, highHz), 1.0),
            std::pow(r.uniform(), 2.0)};
    });
    Buffer bed(n, 0.0f);
    addLayer(bed, std::move(hiss), 0.0);
    addLayer(bed, std::move(rustle), -8.0);
    return bed;
}

// The still air of a wide place: a low, slowly breathing rumble.
Buffer air(Take& t, double hz) {
    Buffer b = brownNoise(t.rng, t.n, t.edge);
    filter(b, t.edge, {Biquad::lowpass(hz, 0.7), Biquad::highpass(40.0), Biquad::highpass(40.0)});
    multiply(b, wander(t.rng, t.n, 5.0, 0.6, 1.0, t.edge));
    return b;
}

// Small water lapping at a shore of reeds: wavelets every couple of seconds, each a soft
// slosh with a few drops and bubbles.
Buffer lapping(Take& t) {
    const std::size_t n = t.n;
    Buffer out(n, 0.0f);
    for (std::size_t at : ringSchedule(t.rng, n, 1.4, 3.2)) {
        const double len = t.rng.uniform(0.4, 0.8);
        Buffer slosh = whiteNoise(t.rng, samples(len));
        const double dark = t.rng.uniform(400, 800);
        filter(slosh, Edge::Linear, {Biquad::lowpass(dark, 0.8), Biquad::lowpass(dark * 1.5, 0.7)});
        multiply(slosh, envelope(slosh.size(),
                                 std::vector<Point>{{0.0, 0.0}, {0.25 * len, 1.0}, {len, 0.0}}));
        addGrain(out, at, slosh, t.rng.uniform(0.5, 1.0), t.edge);
        for (int k = 0; k < 2 + t.rng.below(5); ++k) {
            const double hz = t.rng.logUniform(500, 2500);
            addGrain(out, at + samples(t.rng.uniform(0.05, len)),
                     bubble(hz, t.rng.uniform(5, 25), std::clamp(10.0 / hz, 0.008, 0.04)),
                     t.rng.uniform(0.05, 0.2), t.edge);
        }
    }
    return out;
}

// Water dripping from leaves after rain: clear drops and plinks.
Buffer drips(Take& t, double rate) {
    Buffer out(t.n, 0.0f);
    scatter(out, t.rng, rate, nullptr, t.edge, [](Rng& r, std::size_t) {
        const double hz = r.logUniform(900, 3500);
        return Grain{bubble(hz, r.uniform(5, 30), std::clamp(14.0 / hz, 0.006, 0.03)),
                     r.uniform(0.2, 1.0)};
    });
    return out;
}

// ---- calls --------------------------------------------------------------------------------

// Calls of one kind scattered round the ring, each a new take at its own distance.
struct Caller {
    std::function<Buffer(Rng&)> make;
    double minGap, maxGap;  // seconds between calls
    double nearLo, nearHi;  // distance: 0 far, 1 close
    double gain = 1.0;
};

void addCalls(Buffer& layer, Take& t, const Caller& c) {
    for (std::size_t at : ringSchedule(t.rng, t.n, c.minGap, c.maxGap)) {
        Buffer b = c.make(t.rng);
        distance(b, {{0.0, t.rng.uniform(c.nearLo, c.nearHi)}}, Edge::Linear);
        addGrain(layer, at, b, c.gain * t.rng.uniform(0.7, 1.0), t.edge);
    }
}

Buffer callLayer(Take& t, const std::vector<Caller>& callers, double t60, double wet) {
    Buffer layer(t.n, 0.0f);
    for (const auto& c : callers) {
        addCalls(layer, t, c);
    }
    reverberate(layer, t.edge, t60, 60.0, 4500.0, wet);
    return layer;
}

// One insect singing on and on round the ring, every chirp at its own moment.
Buffer cricketSinger(Take& t, const Cricket& c, double chirpGap, double jitter) {
    Buffer out(t.n, 0.0f);
    for (std::size_t at :
         ringSchedule(t.rng, t.n, chirpGap * (1.0 - jitter), chirpGap * (1.0 + jitter))) {
        addGrain(out, at, cricketChirp(t.rng, c), t.rng.uniform(0.8, 1.0), t.edge);
    }
    return out;
}

// A chorus of `count` crickets round carrier `hz`, each at its own pitch, pace and distance.
Buffer cricketChorus(Take& t, int count, double hz, int pulses, double pulseRate, double chirpGap,
                     double nearLo, double nearHi) {
    Buffer out(t.n, 0.0f);
    for (int k = 0; k < count; ++k) {
        Cricket c{hz * t.rng.uniform(0.88, 1.12), pulses, pulseRate * t.rng.uniform(0.9, 1.1),
                  0.6 / pulseRate, 0.04};
        Buffer one = cricketSinger(t, c, chirpGap * t.rng.uniform(0.8, 1.25), 0.08);
        // Singers fall quiet now and then and start again.
        multiply(one, wander(t.rng, t.n, 4.0, 0.0, 1.0, t.edge));
        distance(one, {{0.0, t.rng.uniform(nearLo, nearHi)}}, t.edge);
        mixInto(out, one);
    }
    return out;
}

// A cicada chorus as one far drone round the ring: clicks ringing near `carrier`, its level
// slowly swelling and ebbing.
Buffer cicadaDrone(Take& t, double carrier, double clickHz, double pulseHz, double pulseDepth) {
    Cicada c;
    c.seconds = static_cast<double>(t.n) / kRate;
    c.carrier = carrier;
    c.clickHz = clickHz;
    c.rasp = 0.8;
    c.pulseHz = pulseHz;
    c.pulseDepth = pulseDepth;
    const Buffer level = wander(t.rng, t.n, 3.0, 0.5, 1.0, t.edge);
    const Buffer pace = wander(t.rng, t.n, 2.0, 0.9, 1.1, t.edge);
    return cicadaSong(t.rng, c, t.edge, &level, &pace);
}

// Single cicadas starting up, singing a while and dying away, overlapping round the ring.
Buffer cicadaCallers(Take& t, const std::function<Cicada(Rng&)>& make, double minGap,
                     double maxGap) {
    Buffer out(t.n, 0.0f);
    for (std::size_t at : ringSchedule(t.rng, t.n, minGap, maxGap)) {
        const Cicada c = make(t.rng);
        Buffer song = cicadaSong(t.rng, c, Edge::Linear, nullptr, nullptr);
        distance(song, {{0.0, t.rng.uniform(0.55, 0.95)}}, Edge::Linear);
        addGrain(out, at, song, 1.0, t.edge);
    }
    return out;
}

// A song that swells in, holds and fades: the shape of one cicada's call.
Curve cicadaShape(Rng& r, double seconds) {
    const double in = r.uniform(1.0, 2.5), out = r.uniform(1.0, 2.5);
    return {{0.0, 0.0}, {in, 1.0}, {seconds - out, r.uniform(0.8, 1.0)}, {seconds, 0.0}};
}

// ---- the loops ----------------------------------------------------------------------------

Buffer pineForest(Take& t) {
    // Wind sighing through needles, high and soft; small birds of the conifers.
    Buffer bed = leaves(t, 1200.0, 6000.0, 0.3);
    const Buffer calls =
        callLayer(t,
                  {{[](Rng& r) { return coalTitSong(r); }, 4.0, 9.0, 0.6, 0.95},
                   {[](Rng& r) { return goldcrestSong(r); }, 6.0, 12.0, 0.65, 0.95, 0.6},
                   {[](Rng& r) { return chaffinchSong(r); }, 9.0, 16.0, 0.45, 0.7},
                   {[](Rng& r) { return woodpeckerDrum(r); }, 14.0, 24.0, 0.35, 0.6, 0.6},
                   {[](Rng& r) { return crowCaw(r, 2 + r.below(3)); }, 16.0, 26.0, 0.3, 0.5, 0.7}},
                  1.4, 0.3);
    Buffer mix(t.n, 0.0f);
    addLayer(mix, std::move(bed), -7.0);
    addLayer(mix, air(t, 300.0), -24.0);
    addLayer(mix, calls, 0.0);
    return mix;
}

Buffer woodlandBirds(Take& t) {
    Buffer bed = leaves(t, 900.0, 7000.0, 0.4);
    const Buffer calls = callLayer(
        t,
        {{[](Rng& r) { return robinPhrase(r); }, 4.0, 8.0, 0.6, 0.95},
         {[](Rng& r) { return blackbirdPhrase(r); }, 5.0, 10.0, 0.55, 0.85},
         {[](Rng& r) { return chaffinchSong(r); }, 6.0, 11.0, 0.5, 0.85},
         {[](Rng& r) { return thrushPhrase(r, 2 + r.below(3)); }, 7.0, 13.0, 0.5, 0.8},
         {[](Rng& r) { return wrenSong(r); }, 10.0, 18.0, 0.55, 0.9, 0.8},
         {[](Rng& r) { return bluetitSong(r); }, 8.0, 14.0, 0.5, 0.85, 0.8},
         {[](Rng& r) { return doveCoo(r, 470, 1.0); }, 12.0, 20.0, 0.4, 0.6, 0.6},
         {[](Rng& r) { return cuckooCall(r, 3 + r.below(3)); }, 25.0, 35.0, 0.3, 0.45, 0.8},
         {[](Rng& r) { return woodpeckerDrum(r); }, 18.0, 30.0, 0.3, 0.5, 0.6}},
        1.2, 0.25);
    Buffer mix(t.n, 0.0f);
    addLayer(mix, std::move(bed), -9.0);
    addLayer(mix, air(t, 250.0), -24.0);
    addLayer(mix, calls, 0.0);
    return mix;
}

Buffer countryMeadow(Take& t) {
    // Breeze through long grass; a lark high overhead, grasshoppers, bees going by, farm
    // animals far off.
    Buffer bed = leaves(t, 1500.0, 8000.0, 0.35);
    const std::size_t n = t.n;
    // The lark sings on and on: long runs covering most of the loop.
    Buffer lark(n, 0.0f);
    for (std::size_t at : ringSchedule(t.rng, n, 11.0, 15.0)) {
        Buffer run = skylarkRun(t.rng, t.rng.uniform(7.0, 10.0));
        distance(run, {{0.0, 0.6}}, Edge::Linear);
        addGrain(lark, at, run, 1.0, t.edge);
    }
    Buffer hoppers(n, 0.0f);
    for (int k = 0; k < 3; ++k) {
        const double hz = t.rng.uniform(6500, 8500);
        for (std::size_t at : ringSchedule(t.rng, n, 2.0, 6.0)) {
            const int rasps = 4 + t.rng.below(8);
            Buffer b;
            for (int j = 0; j < rasps; ++j) {
                place(b, j * 0.12, katydidRasp(t.rng, hz, 4, 70.0), t.rng.uniform(0.7, 1.0));
            }
            distance(b, {{0.0, t.rng.uniform(0.4, 0.8)}}, Edge::Linear);
            addGrain(hoppers, at, b, 1.0, t.edge);
        }
    }
    const Buffer calls = callLayer(
        t,
        {{[](Rng& r) {
              Flight f;
              f.seconds = r.uniform(2.5, 4.0);
              f.wingHz = r.uniform(130, 210);
              f.bodyHz = 800.0;
              f.darts = r.below(2);
              f.nearness = {{0.0, 0.3}, {0.5 * f.seconds, r.uniform(0.75, 1.0)}, {f.seconds, 0.0}};
              return flight(r, f);
          },
          6.0, 12.0, 1.0, 1.0, 0.5},
         {[](Rng& r) {
              return cowMoo(r, r.uniform(110, 135), r.uniform(1.2, 1.9), r.uniform(0.0, 0.4));
          },
          14.0, 24.0, 0.2, 0.35},
         {[](Rng& r) { return bleat(r, r.uniform(210, 290), r.uniform(0.6, 1.0), 0.45, 0.3, 0.8); },
          9.0, 17.0, 0.25, 0.4, 0.8},
         {[](Rng& r) { return sparrowChirp(r); }, 3.0, 7.0, 0.35, 0.55, 0.5},
         {[](Rng& r) { return cuckooCall(r, 2 + r.below(3)); }, 20.0, 30.0, 0.3, 0.4, 0.7}},
        0.8, 0.12);
    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(bed), -8.0);
    addLayer(mix, air(t, 250.0), -24.0);
    addLayer(mix, std::move(lark), -6.0);
    addLayer(mix, std::move(hoppers), -10.0);
    addLayer(mix, calls, -2.0);
    return mix;
}

Buffer countryLake(Take& t) {
    // Water lapping among reeds; water birds about the lake, frogs, geese going over far off.
    Buffer bed(t.n, 0.0f);
    addLayer(bed, lapping(t), 0.0);
    addLayer(bed, leaves(t, 2000.0, 7000.0, 0.2), -8.0);
    const Buffer calls = callLayer(
        t,
        {{[](Rng& r) { return duckQuacks(r, 3 + r.below(4)); }, 9.0, 17.0, 0.4, 0.75},
         {[](Rng& r) { return cootCall(r); }, 4.0, 9.0, 0.45, 0.8, 0.7},
         {[](Rng& r) { return reedWarbler(r, r.uniform(3.0, 5.0)); }, 12.0, 20.0, 0.55, 0.85, 0.7},
         {[](Rng& r) {
              Buffer b;
              for (double at = 0.0; at < 2.5; at += r.uniform(0.3, 0.7)) {
                  place(b, at, gooseHonk(r, r.uniform(320, 420)), r.uniform(0.6, 1.0));
              }
              return b;
          },
          15.0, 25.0, 0.2, 0.35},
         {[](Rng& r) {
              Croak c;
              Buffer b;
              for (int k = 0; k < 4 + r.below(6); ++k) {
                  c.seconds = r.uniform(0.1, 0.14);
                  c.pulseRate = r.uniform(45, 60);
                  c.carrier = r.uniform(780, 880);
                  c.second = c.carrier * 2.1;
                  c.ringing = 0.015;
                  place(b, k * r.uniform(0.2, 0.26), croak(r, c));
              }
              return b;
          },
          8.0, 16.0, 0.3, 0.5, 0.8},
         {[](Rng& r) { return loonWail(r); }, 30.0, 40.0, 0.25, 0.35, 0.7}},
        2.0, 0.3);
    Buffer mix(t.n, 0.0f);
    addLayer(mix, std::move(bed), -6.0);
    addLayer(mix, air(t, 200.0), -24.0);
    addLayer(mix, calls, 0.0);
    return mix;
}

Buffer africanJungle(Take& t) {
    // A far drone of insects under hornbills, turacos, barbets and bulbuls.
    Buffer bed(t.n, 0.0f);
    addLayer(bed, cicadaDrone(t, 4600.0, 320.0, 0.0, 0.0), 0.0);
    addLayer(bed, leaves(t, 800.0, 5000.0, 0.3), -4.0);
    distance(bed, {{0.0, 0.55}}, t.edge);
    const Buffer calls = callLayer(
        t,
        {{[](Rng& r) { return hornbillHonks(r, 4 + r.below(6)); }, 9.0, 16.0, 0.4, 0.75},
         {[](Rng& r) { return turacoCall(r); }, 10.0, 18.0, 0.4, 0.7},
         {[](Rng& r) { return bulbulPhrase(r); }, 3.0, 7.0, 0.55, 0.9, 0.8},
         {[](Rng& r) { return barbetCall(r, 4 + r.below(6)); }, 8.0, 14.0, 0.45, 0.75, 0.8},
         {[](Rng& r) { return doveCoo(r, 430, 1.1); }, 12.0, 20.0, 0.3, 0.5, 0.6}},
        1.6, 0.3);
    Buffer mix(t.n, 0.0f);
    addLayer(mix, std::move(bed), -5.0);
    addLayer(mix, air(t, 220.0), -24.0);
    addLayer(mix, calls, 0.0);
    return mix;
}

Buffer indianJungle(Take& t) {
    // Crickets and a far cicada under koels, peacocks, barbets, bulbuls and crows.
    Buffer bed(t.n, 0.0f);
    addLayer(bed, cricketChorus(t, 4, 4300.0, 3, 32.0, 0.5, 0.3, 0.55), 0.0);
    addLayer(bed, cicadaDrone(t, 3900.0, 260.0, 0.0, 0.0), -3.0);
    addLayer(bed, leaves(t, 900.0, 5000.0, 0.3), -6.0);
    const Buffer calls = callLayer(
        t,
        {{[](Rng& r) { return koelCall(r, 3 + r.below(4)); }, 8.0, 14.0, 0.45, 0.8},
         {[](Rng& r) { return peacockCry(r); }, 9.0, 15.0, 0.35, 0.6},
         {[](Rng& r) { return barbetCall(r, 5 + r.below(6)); }, 6.0, 11.0, 0.45, 0.75, 0.8},
         {[](Rng& r) { return bulbulPhrase(r); }, 3.0, 7.0, 0.5, 0.85, 0.8},
         {[](Rng& r) { return crowCaw(r, 1 + r.below(3)); }, 10.0, 18.0, 0.3, 0.5, 0.7}},
        1.4, 0.25);
    Buffer mix(t.n, 0.0f);
    addLayer(mix, std::move(bed), -7.0);
    addLayer(mix, air(t, 220.0), -24.0);
    addLayer(mix, calls, 0.0);
    return mix;
}

Buffer rainforest(Take& t) {
    // Dense and wet: layers of insects, dripping leaves, tree frogs, and the ringing
    // whistles of birds high up.
    Buffer bed(t.n, 0.0f);
    addLayer(bed, cicadaDrone(t, 6200.0, 420.0, 0.0, 0.0), -2.0);
    addLayer(bed, cicadaDrone(t, 3600.0, 230.0, 0.0, 0.0), -5.0);
    addLayer(bed, cricketChorus(t, 5, 5200.0, 12, 45.0, 0.6, 0.3, 0.6), -2.0);
    addLayer(bed, drips(t, 6.0), -6.0);
    const Buffer calls =
        callLayer(t,
                  {{[](Rng& r) { return pihaCall(r); }, 6.0, 11.0, 0.45, 0.8},
                   {[](Rng& r) {
                        Buffer b;
                        for (int k = 0; k < 6 + r.below(8); ++k) {
                            Croak c;
                            c.seconds = r.uniform(0.04, 0.06);
                            c.pulseRate = r.uniform(100, 130);
                            c.carrier = r.uniform(1800, 2600);
                            c.second = c.carrier * 1.5;
                            c.ringing = 0.01;
                            place(b, k * r.uniform(0.14, 0.2), croak(r, c));
                        }
                        return b;
                    },
                    3.0, 6.0, 0.35, 0.7, 0.7},
                   {[](Rng& r) { return bulbulPhrase(r); }, 4.0, 8.0, 0.45, 0.8, 0.8},
                   {[](Rng& r) { return turacoCall(r); }, 12.0, 20.0, 0.35, 0.55, 0.7}},
                  1.8, 0.35);
    Buffer mix(t.n, 0.0f);
    addLayer(mix, std::move(bed), -4.0);
    addLayer(mix, air(t, 250.0), -24.0);
    addLayer(mix, calls, 0.0);
    return mix;
}

Buffer nightCrickets(Take& t) {
    // A warm night: field crickets near and far, tree crickets trilling further off, a
    // frog chorus down by the water, now and then an owl.
    Buffer bed(t.n, 0.0f);
    addLayer(bed, cricketChorus(t, 8, 4500.0, 3, 30.0, 0.42, 0.35, 0.9), 0.0);
    addLayer(bed, cricketChorus(t, 4, 2800.0, 8, 55.0, 0.5, 0.2, 0.45), -6.0);
    addLayer(bed, air(t, 180.0), -24.0);
    const Buffer calls = callLayer(
        t,
        {{[](Rng& r) {
              Buffer b;
              for (int k = 0; k < 6 + r.below(8); ++k) {
                  Croak c;
                  c.seconds = r.uniform(0.04, 0.055);
                  c.pulseRate = r.uniform(100, 120);
                  c.carrier = r.uniform(1800, 2200);
                  c.second = c.carrier * 1.5;
                  c.ringing = 0.01;
                  place(b, k * r.uniform(0.13, 0.17), croak(r, c));
              }
              return b;
          },
          4.0, 9.0, 0.15, 0.3},
         {[](Rng& r) { return tawnyHoot(r, r.uniform(2.0, 3.5)); }, 16.0, 22.0, 0.25, 0.4, 0.8},
         {[](Rng& r) { return katydidRasp(r, r.uniform(4800, 5300), 6, 80.0); }, 2.0, 5.0, 0.2, 0.4,
          0.6}},
        1.6, 0.3);
    Buffer mix(t.n, 0.0f);
    addLayer(mix, std::move(bed), 0.0);
    addLayer(mix, calls, -6.0);
    return mix;
}

Buffer crickets(Take& t) {
    // A few crickets close by in the grass: chirpers and a steady triller.
    Buffer bed(t.n, 0.0f);
    addLayer(bed, cricketChorus(t, 3, 4700.0, 4, 28.0, 0.5, 0.75, 1.0), 0.0);
    addLayer(bed, cricketChorus(t, 2, 5600.0, 40, 45.0, 1.4, 0.5, 0.8), -5.0);
    addLayer(bed, cricketChorus(t, 6, 4300.0, 3, 32.0, 0.45, 0.2, 0.4), -8.0);
    addLayer(bed, leaves(t, 2000.0, 7000.0, 0.2), -20.0);
    addLayer(bed, air(t, 180.0), -24.0);
    return bed;
}

// Cicada loops: a far chorus as the bed, single singers swelling in and out over it.
Buffer cicadaLoop(Take& t, double carrier, double clickHz, double pulseHz, double pulseDepth,
                  double minGap, double maxGap, const std::function<Cicada(Rng&)>& singer) {
    Buffer mix(t.n, 0.0f);
    Buffer drone = cicadaDrone(t, carrier * 0.97, clickHz, pulseHz, pulseDepth);
    distance(drone, {{0.0, 0.45}}, t.edge);
    addLayer(mix, std::move(drone), -10.0);
    addLayer(mix, cicadaCallers(t, singer, minGap, maxGap), 0.0);
    addLayer(mix, leaves(t, 1000.0, 6000.0, 0.3), -16.0);
    addLayer(mix, air(t, 220.0), -24.0);
    return mix;
}

Buffer indianCicadaLoop(Take& t) {
    // Sirens that rise as they swell: the body's ring climbs with the song.
    return cicadaLoop(t, 4200.0, 260.0, 0.0, 0.0, 3.0, 6.0, [](Rng& r) {
        Cicada c;
        c.seconds = r.uniform(7.0, 11.0);
        c.carrier = r.uniform(3800, 4600);
        c.clickHz = r.uniform(240, 280);
        c.level = cicadaShape(r, c.seconds);
        c.pace = {{0.0, 0.3}, {2.0, 1.0}, {c.seconds, 1.1}};
        c.glide = {{0.0, 0.82}, {2.5, 1.0}, {c.seconds, 1.12}};
        c.rasp = 0.3;
        return c;
    });
}

Buffer africanCicadaLoop(Take& t) {
    // Pulsing songs, seven or eight throbs a second, high and ringing.
    return cicadaLoop(t, 5300.0, 340.0, 7.5, 0.5, 2.5, 5.0, [](Rng& r) {
        Cicada c;
        c.seconds = r.uniform(5.0, 9.0);
        c.carrier = r.uniform(5000, 5600);
        c.clickHz = r.uniform(320, 360);
        c.level = cicadaShape(r, c.seconds);
        c.pulseHz = r.uniform(7.0, 8.0);
        c.pulseDepth = 0.85;
        c.rasp = 0.35;
        return c;
    });
}

Buffer westernCicadaLoop(Take& t) {
    // Hissing buzzes that rise and then droop at the end: "dzeeee-ooo".
    return cicadaLoop(t, 4000.0, 210.0, 0.0, 0.0, 3.5, 7.0, [](Rng& r) {
        Cicada c;
        c.seconds = r.uniform(6.0, 10.0);
        c.carrier = r.uniform(3700, 4300);
        c.clickHz = r.uniform(190, 230);
        c.level = cicadaShape(r, c.seconds);
        c.pace = {{0.0, 0.8}, {0.6 * c.seconds, 1.1}, {c.seconds, 0.5}};
        c.glide = {{0.0, 0.95}, {0.6 * c.seconds, 1.05}, {c.seconds, 0.78}};
        c.rasp = 0.6;
        return c;
    });
}

}  // namespace

void addLivingRecipes(std::vector<Recipe>& out) {
    const auto add = [&](int file, const char* name, double seconds, const char* summary,
                         std::function<Buffer(Take&)> render) {
        out.push_back({"bin/" + std::to_string(file) + ".isz", name, kBankTwo, Kind::Loop, seconds,
                       summary, std::move(render)});
    };
    add(54, "Pine forest", 36.6,
        "wind sighing high in pine needles over low air; coal tits, goldcrests, a chaffinch, a "
        "woodpecker drumming and crows far off, in a forest's reverberation.",
        pineForest);
    add(55, "Woodland birds", 38.8,
        "leaves stirring under a busy chorus: robin, blackbird, chaffinch, song thrush, wren, "
        "blue tit, a dove and a cuckoo further off, a woodpecker; every call a new take.",
        woodlandBirds);
    add(56, "Country meadow", 37.6,
        "breeze in long grass; a skylark's long runs overhead, grasshoppers rasping, bees flying "
        "by, sparrows, and cows, sheep and a cuckoo far off.",
        countryMeadow);
    add(57, "Country lake", 35.7,
        "water lapping among reeds; ducks, coots, a reed warbler, marsh frogs, geese far off and "
        "once a loon, with long echoes over the water.",
        countryLake);
    add(58, "African jungle", 39.6,
        "a far insect drone and stirring leaves under hornbills' honks, turacos, barbets, "
        "bulbuls and a dove.",
        africanJungle);
    add(59, "Indian jungle", 23.3,
        "crickets and a far cicada under koels rising, peacocks crying, barbets' \"kutroo\", "
        "bulbuls and crows.",
        indianJungle);
    add(60, "Rainforest", 22.9,
        "dense and wet: two cicada drones, trilling crickets, dripping leaves, tree frogs, "
        "pihas' ringing whistles and bulbuls.",
        rainforest);
    add(61, "Night crickets", 21.9,
        "a warm night: eight field crickets near and far, tree crickets trilling further off, "
        "tree frogs and katydids, now and then a tawny owl.",
        nightCrickets);
    add(62, "Crickets", 20.4,
        "a few crickets close by in the grass, chirping and trilling, a chorus further off.",
        crickets);
    add(63, "Indian cicada", 22.4,
        "a far cicada chorus and single singers swelling in, their ring rising near 4 kHz, and "
        "dying away.",
        indianCicadaLoop);
    add(64, "African cicada", 20.9,
        "high pulsing cicadas, seven or eight throbs a second near 5.3 kHz, over a far chorus.",
        africanCicadaLoop);
    add(65, "Western cicada", 21.4,
        "hissing buzzes near 4 kHz that rise and droop at the end, overlapping, over a far "
        "chorus.",
        westernCicadaLoop);
}

}  // namespace brevane::soundgen
