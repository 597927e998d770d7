// Running water: the sound of a stream is mostly air bubbles ringing as they are caught
// and released, each a short sine whose pitch rises as it rises to the surface. Small
// bubbles sing high, big ones gurgle low; their numbers and rhythms make a fountain, a
// babbling stream or a river.
#include <cmath>

#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace {

// A bubble of a random size within a band; bigger ones ring longer.
Grain someBubble(Rng& r, double loHz, double hiHz, double riseLo, double riseHi, double gainPower) {
    const double hz = r.logUniform(loHz, hiHz);
    const double t60 = std::clamp(9.0 / hz, 0.004, 0.08) * r.uniform(0.7, 1.4);
    return Grain{bubble(hz, r.uniform(riseLo, riseHi), t60), std::pow(r.uniform(), gainPower)};
}

Buffer fountain(Take& t) {
    const std::size_t n = t.n;
    // The jet breathes a little as the water column wavers.
    const Buffer surge = wander(t.rng, n, 0.35, 0.7, 1.0, t.edge);
    Buffer drops(n, 0.0f), bubbles(n, 0.0f), plops(n, 0.0f);
    // Drops falling back into the basin: splashes and the bubbles they trap.
    scatter(drops, t.rng, 2200.0, &surge, t.edge, [](Rng& r, std::size_t) {
        return Grain{bandBurst(r, 0.0002, r.uniform(0.002, 0.007), r.logUniform(1200, 7000), 1.2),
                     std::pow(r.uniform(), 2.0)};
    });
    scatter(bubbles, t.rng, 900.0, &surge, t.edge,
            [](Rng& r, std::size_t) { return someBubble(r, 700, 4500, 5, 40, 1.5); });
    scatter(plops, t.rng, 35.0, nullptr, t.edge,
            [](Rng& r, std::size_t) { return someBubble(r, 250, 700, 3, 15, 1.0); });
    Buffer sheet = pinkNoise(t.rng, n, t.edge);
    filter(sheet, t.edge, {Biquad::highpass(600, 0.7), Biquad::lowpass(9000, 0.7)});
    multiply(sheet, surge);
    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(drops), -5.0);
    addLayer(mix, std::move(bubbles), -8.0);
    addLayer(mix, std::move(plops), -15.0);
    addLayer(mix, std::move(sheet), -9.0);
    filter(mix, t.edge, {Biquad::highpass(150), Biquad::highShelf(9000, -3.0)});
    // A courtyard fountain: walls around it.
    reverberate(mix, t.edge, 1.0, 40.0, 4500.0, 0.4);
    return mix;
}

// A place in a stream where water tumbles over a stone: it babbles in little runs of
// bubbles within its own pitch range, more in some moments than in others.
void babble(Buffer& out, Take& t, double loHz, double hiHz, double runsPerSecond, double gain) {
    const Buffer mood = wander(t.rng, t.n, 1.2, 0.2, 1.0, t.edge);
    for (std::size_t at : poissonTimes(t.rng, t.n, runsPerSecond, &mood)) {
        const int count = 2 + t.rng.below(7);
        const double centre = t.rng.logUniform(loHz, hiHz);
        std::size_t when = at;
        for (int k = 0; k < count; ++k) {
            const double hz = centre * t.rng.uniform(0.8, 1.25);
            const double t60 = std::clamp(12.0 / hz, 0.01, 0.07) * t.rng.uniform(0.7, 1.3);
            addGrain(out, when, bubble(hz, t.rng.uniform(8, 45), t60),
                     gain * t.rng.uniform(0.3, 1.0), t.edge);
            when += samples(t.rng.exponential(0.035));
        }
    }
}

Buffer stream(Take& t) {
    const std::size_t n = t.n;
    Buffer voices(n, 0.0f);
    babble(voices, t, 350, 900, 5.0, 1.0);
    babble(voices, t, 700, 1700, 7.0, 0.8);
    babble(voices, t, 1400, 3000, 6.0, 0.5);
    Buffer fizz(n, 0.0f);
    scatter(fizz, t.rng, 500.0, nullptr, t.edge,
            [](Rng& r, std::size_t) { return someBubble(r, 2000, 6000, 10, 40, 2.0); });
    Buffer flow = pinkNoise(t.rng, n, t.edge);
    filter(flow, t.edge, {Biquad::highpass(300, 0.7), Biquad::lowpass(5000, 0.7)});
    multiply(flow, wander(t.rng, n, 2.0, 0.7, 1.0, t.edge));
    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(voices), 0.0);
    addLayer(mix, std::move(fizz), -10.0);
    addLayer(mix, std::move(flow), -13.0);
    filter(mix, t.edge, {Biquad::highpass(120)});
    reverberate(mix, t.edge, 0.6, 25.0, 3000.0, 0.25);
    return mix;
}

Buffer river(Take& t) {
    const std::size_t n = t.n;
    // A broad river: the roar of a lot of water moving, surging slowly, deep gurgles, and
    // white water where it breaks over stones.
    Buffer roar = pinkNoise(t.rng, n, t.edge);
    filter(roar, t.edge, {Biquad::lowpass(1600, 0.7), Biquad::highpass(60)});
    multiply(roar, wander(t.rng, n, 3.0, 0.75, 1.0, t.edge));
    Buffer depth = brownNoise(t.rng, n, t.edge);
    filter(depth, t.edge, {Biquad::lowpass(300, 0.7), Biquad::highpass(35)});
    multiply(depth, wander(t.rng, n, 5.0, 0.6, 1.0, t.edge));
    Buffer white = pinkNoise(t.rng, n, t.edge);
    filter(white, t.edge, {Biquad::bandpass(2500, 0.6)});
    multiply(white, wander(t.rng, n, 1.5, 0.5, 1.0, t.edge));
    Buffer gurgles(n, 0.0f);
    babble(gurgles, t, 180, 520, 4.0, 1.0);
    Buffer bubbles(n, 0.0f);
    scatter(bubbles, t.rng, 400.0, nullptr, t.edge,
            [](Rng& r, std::size_t) { return someBubble(r, 600, 2500, 5, 30, 1.6); });
    Buffer mix(n, 0.0f);
    addLayer(mix, std::move(roar), 0.0);
    addLayer(mix, std::move(depth), -5.0);
    addLayer(mix, std::move(white), -6.0);
    addLayer(mix, std::move(gurgles), -9.0);
    addLayer(mix, std::move(bubbles), -12.0);
    return mix;
}

}  // namespace

void addWaterRecipes(std::vector<Recipe>& out) {
    out.push_back(
        {"bin/51.isz", "Fountain", kBankTwo, Kind::Loop, 24.6,
         "a jet falling into its basin: 2200 drop splashes and 900 ringing bubbles (0.7-4.5 kHz) a "
         "second over a sheet of falling water, the column wavering a little, deeper plops below.",
         fountain});
    out.push_back(
        {"bin/52.isz", "Stream", kBankTwo, Kind::Loop, 31.1,
         "a babbling brook: three places where water tumbles over stones, each babbling runs of "
         "2-8 rising bubbles in its own range (350 Hz to 3 kHz) with moods of its own, over fizz "
         "and a "
         "soft flow.",
         stream});
    out.push_back({"bin/53.isz", "River", kBankTwo, Kind::Loop, 27.9,
                   "a broad river: a roar of moving water under 1.6 kHz surging slowly, a deep "
                   "undertow, white "
                   "water around 2.5 kHz, low gurgles (180-520 Hz) and bubbles.",
                   river});
}

}  // namespace brevane::soundgen
