// The sea and the shore: each wave a surge that swells, breaks, runs up the beach as foam
// and draws back; on shingle the backwash drags a rattle of stones with it. The loops of
// bank one lay waves round the ring; the waves of random bank four are single ones.
#include <cmath>
#include <numbers>

#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace {

constexpr double kNone = -100.0;

struct WaveSpec {
    double approach = 1.5;  // seconds of swell before the break
    double swellDb = -6;
    double crashDb = 0;  // the break
    double crashLowHz = 150, crashHighHz = 4000;
    double crashRise = 0.35, crashT60 = 2.2;
    double boomDb = -8;  // the water's weight landing
    double washDb = -4;  // foam running up the beach
    double washSeconds = 3.0;
    double rattleDb = kNone;  // stones dragged back (shingle)
    double rattleSeconds = 3.0;
    double gurgleDb = kNone;  // water draining away with bubbles
    double startLevel = 0.3;  // where the swell stands when the sound begins
};

Buffer noiseFor(Rng& rng, std::size_t n, bool brown) {
    return brown ? brownNoise(rng, n, Edge::Linear) : pinkNoise(rng, n, Edge::Linear);
}

// One whole wave from its first swell to silence, in a straight line.
Buffer wave(Rng& rng, const WaveSpec& w) {
    const double breakAt = w.approach;
    const double wash0 = breakAt + 0.25;
    const double rattle0 = wash0 + 0.45 * w.washSeconds;
    const double end = std::max({breakAt + w.crashT60, wash0 + 2.0 * w.washSeconds + 0.3,
                                 w.rattleDb > kNone ? rattle0 + w.rattleSeconds + 0.8 : 0.0});
    const std::size_t n = samples(end);
    Buffer mix(n, 0.0f);

    // The swell: the deep movement of the water coming in.
    Buffer swell = noiseFor(rng, n, true);
    filter(swell, Edge::Linear, {Biquad::lowpass(260, 0.7), Biquad::highpass(35)});
    const std::vector<Point> swellShape{{0.0, w.startLevel}, {breakAt, 1.0}, {breakAt + 1.8, 0.0}};
    multiply(swell, envelope(n, swellShape));
    addLayer(mix, std::move(swell), w.swellDb);

    // The break: a broad burst, curling in with a rising hiss.
    Buffer crash = noiseFor(rng, n, false);
    filter(crash, Edge::Linear,
           {Biquad::highpass(w.crashLowHz, 0.7), Biquad::lowpass(w.crashHighHz, 0.7)});
    Buffer crashEnv(n, 0.0f);
    const std::size_t b0 = samples(breakAt - w.crashRise);
    const Buffer fall = decay(n - std::min(n, samples(breakAt)), w.crashT60);
    for (std::size_t i = 0; i < n; ++i) {
        const double t = static_cast<double>(i) / kRate;
        if (i >= b0 && t < breakAt) {
            const double u = (t - (breakAt - w.crashRise)) / w.crashRise;
            crashEnv[i] = static_cast<float>(0.5 - 0.5 * std::cos(std::numbers::pi * u * u));
        } else if (t >= breakAt) {
            crashEnv[i] = fall[i - samples(breakAt)];
        }
    }
    // The break is not one smooth burst: the lip falls in pieces.
    multiply(crash, crashEnv);
    Buffer chop = wander(rng, n, 0.09, 0.55, 1.0, Edge::Linear);
    multiply(crash, chop);
    addLayer(mix, std::move(crash), w.crashDb);

    Buffer boom = noiseFor(rng, n, true);
    filter(boom, Edge::Linear, {Biquad::lowpass(110, 0.8), Biquad::highpass(30)});
    Buffer boomEnv(n, 0.0f);
    addGrain(boomEnv, samples(breakAt - 0.03), decay(samples(1.2), 0.9), 1.0, Edge::Linear);
    multiply(boom, boomEnv);
    addLayer(mix, std::move(boom), w.boomDb);

    // The wash: foam fizzing up the beach, a dense froth of tiny bursting bubbles, slowing
    // as the water runs out of strength and lingering as it soaks away.
    Buffer foam(n, 0.0f);
    const double ws = w.washSeconds;
    const std::vector<Point> washShape{{wash0, 0.0},
                                       {wash0 + 0.5, 1.0},
                                       {wash0 + 0.3 * ws, 0.7},
                                       {wash0 + 0.6 * ws, 0.4},
                                       {wash0 + ws, 0.18},
                                       {wash0 + 1.4 * ws, 0.06},
                                       {wash0 + 2.0 * ws, 0.0}};
    const Buffer washEnv = envelope(n, washShape);
    scatter(foam, rng, 4000.0, &washEnv, Edge::Linear, [](Rng& r, std::size_t) {
        return Grain{bubble(r.logUniform(2500, 9000), r.uniform(5, 30), r.uniform(0.002, 0.006)),
                     r.uniform(0.2, 1.0)};
    });
    Buffer hiss = noiseFor(rng, n, false);
    filter(hiss, Edge::Linear, {Biquad::highpass(900, 0.7), Biquad::lowpass(8000, 0.7)});
    multiply(hiss, washEnv);
    Buffer wash(n, 0.0f);
    addLayer(wash, std::move(hiss), 0.0);
    addLayer(wash, std::move(foam), -3.0);
    addLayer(mix, std::move(wash), w.washDb);

    if (w.rattleDb > kNone) {
        // The backwash through shingle: thousands of stones ticking against each other,
        // loudest as the water pulls hardest, with heavier knocks among them.
        const std::vector<Point> drag{{rattle0, 0.0},
                                      {rattle0 + 0.35 * w.rattleSeconds, 1.0},
                                      {rattle0 + w.rattleSeconds, 0.0}};
        const Buffer dragEnv = envelope(n, drag);
        Buffer ticks(n, 0.0f), knocks(n, 0.0f);
        scatter(ticks, rng, 7000.0, &dragEnv, Edge::Linear, [](Rng& r, std::size_t) {
            return Grain{
                bandBurst(r, 0.00005, r.uniform(0.0005, 0.0018), r.logUniform(2200, 7500), 3.0),
                std::pow(r.uniform(), 1.8)};
        });
        scatter(knocks, rng, 120.0, &dragEnv, Edge::Linear, [](Rng& r, std::size_t) {
            return Grain{
                bandBurst(r, 0.0001, r.uniform(0.006, 0.016), r.logUniform(900, 2600), 6.0),
                r.uniform(0.2, 1.0)};
        });
        Buffer drain = noiseFor(rng, n, false);
        filter(drain, Edge::Linear, {Biquad::bandpass(4000, 0.8)});
        multiply(drain, dragEnv);
        Buffer rattle(n, 0.0f);
        addLayer(rattle, std::move(ticks), 0.0);
        addLayer(rattle, std::move(knocks), -7.0);
        addLayer(rattle, std::move(drain), -12.0);
        addLayer(mix, std::move(rattle), w.rattleDb);
    }
    if (w.gurgleDb > kNone) {
        const std::vector<Point> drainShape{{wash0 + 0.3 * w.washSeconds, 0.0},
                                            {wash0 + 0.6 * w.washSeconds, 1.0},
                                            {wash0 + w.washSeconds + 0.8, 0.0}};
        const Buffer drainEnv = envelope(n, drainShape);
        Buffer gurgle(n, 0.0f);
        scatter(gurgle, rng, 40.0, &drainEnv, Edge::Linear, [](Rng& r, std::size_t) {
            return Grain{bubble(r.logUniform(350, 1100), r.uniform(4, 20), r.uniform(0.02, 0.05)),
                         r.uniform(0.3, 1.0)};
        });
        addLayer(mix, std::move(gurgle), w.gurgleDb);
    }
    return mix;
}

// A wave spec varied a little from a model, so no two waves of a loop are the same.
WaveSpec vary(Rng& r, WaveSpec w, double size) {
    const double db = 20.0 * std::log10(std::max(size, 0.05));
    w.approach *= r.uniform(0.8, 1.25);
    w.crashDb += db + r.uniform(-1.5, 1.5);
    w.boomDb += db;
    w.swellDb += 0.5 * db;
    w.crashHighHz *= r.uniform(0.8, 1.25) * (0.6 + 0.4 * size);
    w.crashT60 *= r.uniform(0.85, 1.2);
    w.washSeconds *= r.uniform(0.8, 1.25);
    w.washDb += 0.5 * db + r.uniform(-1.5, 1.5);
    w.rattleSeconds *= r.uniform(0.8, 1.3);
    w.rattleDb += 0.5 * db + r.uniform(-2.0, 1.0);
    return w;
}

// Waves at their scheduled places round the ring, over a bed of the distant sea.
Buffer shore(Take& t, const WaveSpec& model, double minGap, double maxGap, double sizeLo,
             double sizeHi, double bedDb, double bedHz, double hissDb) {
    Buffer mix(t.n, 0.0f);
    Buffer waves(t.n, 0.0f);
    for (std::size_t at : ringSchedule(t.rng, t.n, minGap, maxGap)) {
        const Buffer w = wave(t.rng, vary(t.rng, model, t.rng.uniform(sizeLo, sizeHi)));
        addGrain(waves, at, w, 1.0, t.edge);
    }
    addLayer(mix, std::move(waves), 0.0);
    Buffer bed = pinkNoise(t.rng, t.n, t.edge);
    filter(bed, t.edge, {Biquad::lowpass(bedHz, 0.7), Biquad::highpass(40)});
    multiply(bed, wander(t.rng, t.n, 4.0, 0.6, 1.0, t.edge));
    addLayer(mix, std::move(bed), bedDb);
    // Foam further along the shore never quite stops fizzing.
    Buffer hiss = pinkNoise(t.rng, t.n, t.edge);
    filter(hiss, t.edge, {Biquad::highpass(1200, 0.7), Biquad::lowpass(8000, 0.7)});
    multiply(hiss, wander(t.rng, t.n, 2.5, 0.4, 1.0, t.edge));
    addLayer(mix, std::move(hiss), hissDb);
    return mix;
}

WaveSpec shingleWave() {
    WaveSpec w;
    w.approach = 1.4;
    w.crashDb = -1;
    w.crashHighHz = 3500;
    w.washSeconds = 2.6;
    w.washDb = -5;
    w.rattleDb = 0;
    w.rattleSeconds = 3.6;
    return w;
}

WaveSpec sandWave() {
    WaveSpec w;
    w.approach = 2.0;
    w.crashDb = -9;
    w.crashHighHz = 1800;
    w.crashRise = 0.5;
    w.crashT60 = 2.0;
    w.boomDb = -16;
    w.swellDb = -4;
    w.washDb = 0;
    w.washSeconds = 4.5;
    w.gurgleDb = -18;
    return w;
}

WaveSpec breaker() {
    WaveSpec w;
    w.approach = 1.6;
    w.crashDb = 0;
    w.crashHighHz = 5500;
    w.crashRise = 0.3;
    w.crashT60 = 3.0;
    w.boomDb = -4;
    w.washDb = -5;
    w.washSeconds = 3.5;
    return w;
}

Buffer shingleOcean(Take& t) {
    Buffer b = shore(t, shingleWave(), 7.0, 11.0, 0.6, 1.0, -17, 500, -22);
    return b;
}

Buffer roughSea(Take& t) {
    Buffer b = shore(t, breaker(), 4.0, 7.5, 0.55, 1.0, -6, 1400, -14);
    // Wind over the water, tearing spray off the crests.
    Buffer spray = pinkNoise(t.rng, t.n, t.edge);
    filter(spray, t.edge, {Biquad::highpass(2500, 0.7), Biquad::lowpass(10000, 0.7)});
    multiply(spray, wander(t.rng, t.n, 2.0, 0.3, 1.0, t.edge));
    addLayer(b, std::move(spray), -15);
    return b;
}

Buffer gentleOcean(Take& t) {
    return shore(t, sandWave(), 8.0, 12.0, 0.35, 0.6, -16, 400, -20);
}

// A small lap of water against something: a hollow slap and a slosh, both soft-edged.
Buffer lap(Rng& r, double slapHz, double slapQ, double sloshSeconds) {
    const std::size_t n = samples(sloshSeconds + 0.3);
    Buffer slap = bandBurst(r, 0.004, r.uniform(0.05, 0.14), slapHz, slapQ);
    filter(slap, Edge::Linear, {Biquad::lowpass(slapHz * 2.5, 0.7)});
    slap.resize(n, 0.0f);
    Buffer slosh = pinkNoise(r, n, Edge::Linear);
    filter(slosh, Edge::Linear,
           {Biquad::bandpass(r.logUniform(400, 1100), 0.9), Biquad::lowpass(3000, 0.7)});
    const std::vector<Point> shape{{0.0, 0.0}, {0.08, 1.0}, {sloshSeconds, 0.0}};
    multiply(slosh, envelope(n, shape));
    Buffer out(n, 0.0f);
    addLayer(out, std::move(slap), 0.0);
    addLayer(out, std::move(slosh), -3.0);
    return out;
}

Buffer harbor(Take& t) {
    const std::size_t n = t.n;
    // Water slapping against hulls and the quay, now and then in quick pairs.
    Buffer laps(n, 0.0f);
    for (std::size_t at : poissonTimes(t.rng, n, 1.0)) {
        const int count = t.rng.chance(0.3) ? 2 : 1;
        std::size_t when = at;
        for (int k = 0; k < count; ++k) {
            const Buffer l = lap(t.rng, t.rng.logUniform(180, 650), t.rng.uniform(2.0, 5.0),
                                 t.rng.uniform(0.25, 0.6));
            addGrain(laps, when, l, t.rng.uniform(0.3, 1.0), t.edge);
            when += samples(t.rng.uniform(0.15, 0.4));
        }
    }
    // Halyards tapping on masts: small metallic clinks, sometimes a run of them.
    Buffer rigging(n, 0.0f);
    for (std::size_t at : poissonTimes(t.rng, n, 0.35)) {
        const int count = 1 + t.rng.below(3);
        std::vector<Mode> modes;
        const double base = t.rng.logUniform(1800, 3200);
        for (double ratio : {1.0, 2.32, 3.91, 5.6}) {
            modes.push_back(
                {base * ratio * t.rng.uniform(0.98, 1.02), t.rng.uniform(0.15, 0.5), 1.0 / ratio});
        }
        std::size_t when = at;
        for (int k = 0; k < count; ++k) {
            ModalBody mast(modes);
            Buffer clink(samples(0.6), 0.0f);
            process(clink, Edge::Linear,
                    [&mast](float, std::size_t i) { return mast(i == 0 ? 1.0f : 0.0f); });
            addGrain(rigging, when, clink, t.rng.uniform(0.3, 1.0), t.edge);
            when += samples(t.rng.uniform(0.25, 0.7));
        }
    }
    // A mooring line creaking as a boat leans on it: stick-slip pulses through the wood.
    Buffer creaks(n, 0.0f);
    for (std::size_t at : poissonTimes(t.rng, n, 0.09)) {
        const double len = t.rng.uniform(0.5, 1.1);
        const double rate0 = t.rng.uniform(35, 60), rate1 = t.rng.uniform(70, 130);
        Buffer pulses(samples(len + 0.2), 0.0f);
        double tt = 0.0;
        while (tt < len) {
            const double u = tt / len;
            const double rate = rate0 + (rate1 - rate0) * std::sin(std::numbers::pi * u);
            addImpulse(pulses, samples(tt), std::sin(std::numbers::pi * u), Edge::Linear);
            tt += 1.0 / rate * t.rng.uniform(0.9, 1.1);
        }
        const std::vector<Mode> wood{{t.rng.uniform(420, 560), 0.03, 1.0},
                                     {t.rng.uniform(900, 1200), 0.02, 0.6},
                                     {t.rng.uniform(1700, 2100), 0.015, 0.3}};
        ModalBody body(wood);
        process(pulses, Edge::Linear, [&body](float x, std::size_t) { return body(x); });
        addGrain(creaks, at, pulses, 1.0, t.edge);
    }
    // Small ripples lapping all the time, quieter than the slaps.
    Buffer ripples(n, 0.0f);
    scatter(ripples, t.rng, 5.0, nullptr, t.edge, [](Rng& r, std::size_t) {
        return Grain{lap(r, r.logUniform(300, 900), 1.5, r.uniform(0.2, 0.45)),
                     r.uniform(0.2, 0.6)};
    });
    Buffer water = pinkNoise(t.rng, n, t.edge);
    filter(water, t.edge, {Biquad::lowpass(900, 0.7), Biquad::highpass(80)});
    multiply(water, wander(t.rng, n, 2.5, 0.5, 1.0, t.edge));
    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(laps), 0.0);
    addLayer(mix, std::move(ripples), -6.0);
    addLayer(mix, std::move(water), -7.0);
    addLayer(mix, std::move(rigging), -14.0);
    addLayer(mix, std::move(creaks), -16.0);
    return mix;
}

Buffer lakeShore(Take& t) {
    const std::size_t n = t.n;
    Buffer laps(n, 0.0f);
    for (std::size_t at : ringSchedule(t.rng, n, 1.4, 3.8)) {
        const Buffer l = lap(t.rng, t.rng.logUniform(300, 900), t.rng.uniform(1.0, 2.0),
                             t.rng.uniform(0.5, 1.1));
        addGrain(laps, at, l, t.rng.uniform(0.4, 1.0), t.edge);
    }
    // Water running back between the pebbles: small gurgles and trickles.
    Buffer gurgle(n, 0.0f);
    scatter(gurgle, t.rng, 14.0, nullptr, t.edge, [](Rng& r, std::size_t) {
        return Grain{bubble(r.logUniform(450, 1600), r.uniform(5, 25), r.uniform(0.02, 0.05)),
                     r.uniform(0.2, 1.0)};
    });
    Buffer trickle(n, 0.0f);
    scatter(trickle, t.rng, 160.0, nullptr, t.edge, [](Rng& r, std::size_t) {
        return Grain{bubble(r.logUniform(1800, 5000), r.uniform(10, 40), r.uniform(0.004, 0.012)),
                     std::pow(r.uniform(), 2.0)};
    });
    Buffer air = pinkNoise(t.rng, n, t.edge);
    filter(air, t.edge, {Biquad::highpass(200), Biquad::lowpass(3000, 0.7)});
    multiply(air, wander(t.rng, n, 5.0, 0.4, 1.0, t.edge));
    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(laps), 0.0);
    addLayer(mix, std::move(gurgle), -12.0);
    addLayer(mix, std::move(trickle), -19.0);
    addLayer(mix, std::move(air), -18.0);
    return mix;
}

// ---- single waves --------------------------------------------------------------------

Buffer oneWave(Take& t, WaveSpec w) {
    Buffer b = wave(t.rng, w);
    return b;
}

Buffer shingleWaveShot(Take& t) {
    return oneWave(t, shingleWave());
}

Buffer smallShingleWave(Take& t) {
    WaveSpec w = shingleWave();
    w.approach = 0.9;
    w.crashDb = -7;
    w.crashHighHz = 2500;
    w.boomDb = -16;
    w.washSeconds = 1.6;
    w.rattleSeconds = 2.4;
    w.rattleDb = 2;
    return oneWave(t, w);
}

Buffer smallWave(Take& t, double approach, double crashDb, double crashHz, double washSeconds,
                 double gurgleDb) {
    WaveSpec w = sandWave();
    w.approach = approach;
    w.crashDb = crashDb;
    w.crashHighHz = crashHz;
    w.crashT60 = 1.2;
    w.washSeconds = washSeconds;
    w.gurgleDb = gurgleDb;
    w.startLevel = 0.4;
    return oneWave(t, w);
}

Buffer smallWave1(Take& t) {
    return smallWave(t, 0.8, -8, 1800, 2.2, -20);
}
Buffer smallWave2(Take& t) {
    // Slapping a rock: a hollow knock and spray before the wash.
    Buffer b = smallWave(t, 0.5, -4, 3500, 1.6, kNone);
    const Buffer slap = lap(t.rng, 320, 3.0, 0.4);
    addGrain(b, samples(0.45), slap, 0.6 * peakOf(b) / std::max(peakOf(slap), 1e-9), Edge::Linear);
    return b;
}
Buffer smallWave3(Take& t) {
    // Two small laps close together.
    Buffer a = smallWave(t, 0.6, -9, 1600, 1.5, kNone);
    Buffer b = smallWave(t, 0.7, -7, 2000, 2.0, -18);
    a.resize(std::max(a.size(), b.size() + samples(1.3)), 0.0f);
    addGrain(a, samples(1.3), b, 0.9, Edge::Linear);
    return a;
}
Buffer smallWave4(Take& t) {
    return smallWave(t, 0.9, -11, 1400, 2.6, -10);
}
Buffer smallWave5(Take& t) {
    return smallWave(t, 1.2, -13, 1200, 3.4, -22);
}

Buffer largeWave(Take& t) {
    WaveSpec w = breaker();
    w.approach = 2.2;
    w.crashDb = 0;
    w.crashHighHz = 6000;
    w.crashT60 = 3.6;
    w.boomDb = -1;
    w.washSeconds = 5.0;
    w.washDb = -3;
    return oneWave(t, w);
}

}  // namespace

void addSeaRecipes(std::vector<Recipe>& out) {
    out.push_back(
        {"bin/13.isz", "Shingle ocean", kBankOne, Kind::Loop, 38.2,
         "waves every 7-11 s on a pebble beach: swell, break, foam run-up, then the backwash "
         "dragging "
         "7000 stone ticks a second (2.2-7.5 kHz) and heavier knocks, over a soft distant sea.",
         shingleOcean});
    out.push_back(
        {"bin/14.isz", "Rough sea", kBankOne, Kind::Loop, 33.9,
         "big breakers every 4-7.5 s overlapping: deep swell and boom, bright crashes falling in "
         "pieces, long foam, a loud roaring bed and wind-torn spray.",
         roughSea});
    out.push_back({"bin/15.isz", "Gentle ocean", kBankOne, Kind::Loop, 37.1,
                   "soft waves every 8-12 s on sand: a slow swell, a muffled spill, a long fizzing "
                   "wash of foam "
                   "and a little gurgle as it drains.",
                   gentleOcean});
    out.push_back(
        {"bin/16.isz", "Harbor", kBankOne, Kind::Loop, 30.1,
         "water slapping hulls and the quay (hollow band-passed slaps and sloshes, some in pairs), "
         "halyards clinking on masts, a mooring line creaking now and then, quiet moving water.",
         harbor});
    out.push_back(
        {"bin/17.isz", "Lake shore", kBankOne, Kind::Loop, 28.8,
         "small wavelets lapping every 1.4-3.8 s, gurgles and trickles running back between the "
         "pebbles, a soft breeze.",
         lakeShore});

    out.push_back(
        {"bin/221.raz", "Shingle wave", kRandomFour, Kind::OneShot, 9.0,
         "one wave on shingle: swell, break, foam, and a long rattling backwash of stones.",
         shingleWaveShot});
    out.push_back({"bin/222.raz", "Small shingle wave", kRandomFour, Kind::OneShot, 6.0,
                   "a smaller shingle wave: a soft spill and a quick, close rattle of stones.",
                   smallShingleWave});
    out.push_back({"bin/223.raz", "Small wave 1", kRandomFour, Kind::OneShot, 4.5,
                   "a small wave on sand: a short spill and a fizzing wash.", smallWave1});
    out.push_back({"bin/224.raz", "Small wave 2", kRandomFour, Kind::OneShot, 3.5,
                   "a small wave slapping a rock: a hollow knock and spray, then a brief wash.",
                   smallWave2});
    out.push_back({"bin/225.raz", "Small wave 3", kRandomFour, Kind::OneShot, 5.0,
                   "two small laps in quick succession, the second one larger.", smallWave3});
    out.push_back({"bin/226.raz", "Small wave 4", kRandomFour, Kind::OneShot, 4.5,
                   "a quiet lap that drains away with a clear gurgle.", smallWave4});
    out.push_back({"bin/227.raz", "Small wave 5", kRandomFour, Kind::OneShot, 5.5,
                   "the gentlest: a slow swell and a long soft wash.", smallWave5});
    out.push_back({"bin/228.raz", "Large wave", kRandomFour, Kind::OneShot, 12.0,
                   "a big breaker: long swell, heavy boom, bright crash decaying over 3.6 s and a "
                   "long foam wash.",
                   largeWave});
}

}  // namespace brevane::soundgen
