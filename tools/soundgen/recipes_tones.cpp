// The brainwave carriers and the alarm chime.
#include <cmath>
#include <numbers>

#include "grains.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace {

constexpr double kPi = std::numbers::pi;

// One period of the carrier is exactly 100 samples, so a play at rate R sounds at R/100 Hz
// and two plays whose rates differ by d beat at d/100 Hz. A whole second of periods; each
// sample comes from its phase within the period only, so every period is bit-identical.
Buffer carrier(Take& t) {
    constexpr int kPeriod = 100;
    const double amplitude = dbToGain(-20.0) * std::sqrt(2.0);  // -20 dBFS RMS
    Buffer b(t.n);
    for (std::size_t i = 0; i < t.n; ++i) {
        b[i] = static_cast<float>(amplitude *
                                  std::sin(2 * kPi * static_cast<double>(i % kPeriod) / kPeriod));
    }
    return b;
}

// A soft bell: a few partials, the upper ones dying sooner, each a pair detuned by a
// fraction of a hertz so the note shimmers as it fades.
void bell(Buffer& ring, double at, double hz, double gain, Edge edge) {
    struct Partial {
        double ratio, t60, gain;
    };
    static constexpr Partial kPartials[] = {
        {1.0, 2.4, 1.0}, {2.0, 1.3, 0.28}, {3.0, 0.7, 0.10}, {4.16, 0.45, 0.05}, {0.5, 1.8, 0.10}};
    const std::size_t len = samples(2.6);
    Buffer note(len, 0.0f);
    const std::size_t attack = samples(0.004);
    for (const auto& p : kPartials) {
        const double k = std::exp(-6.907755 / (p.t60 * kRate));
        double env = p.gain;
        for (std::size_t i = 0; i < len; ++i) {
            const double t = static_cast<double>(i) / kRate;
            const double a =
                i < attack ? static_cast<double>(i) / static_cast<double>(attack) : 1.0;
            const double f = hz * p.ratio;
            const double v = std::sin(2 * kPi * f * t) + 0.6 * std::sin(2 * kPi * (f + 0.6) * t);
            note[i] += static_cast<float>(a * env * v / 1.6);
            env *= k;
        }
    }
    addGrain(ring, samples(at), note, gain, edge);
}

Buffer chime(Take& t) {
    Buffer ring(t.n, 0.0f);
    // A rising major arpeggio, then a rest while the last note sings out; the tails run
    // round into the next pass.
    static constexpr double kNotes[] = {523.25, 659.26, 783.99, 1046.50};
    double at = 0.005;
    for (double hz : kNotes) {
        bell(ring, at, hz, 1.0 - 0.08 * (hz / 1046.5), t.edge);
        at += 0.32;
    }
    filter(ring, t.edge, {Biquad::highpass(120.0), Biquad::highShelf(5000.0, -4.0)});
    return ring;
}

}  // namespace

void addToneRecipes(std::vector<Recipe>& out) {
    out.push_back({"bin/1.BWZ", "Brainwave carrier, left", kTonesAndAlarm, Kind::Tone, 1.0,
                   "a pure sine of exactly 100 samples a period, 441 periods, -20 dBFS RMS.",
                   carrier});
    out.push_back({"bin/2.BWZ", "Brainwave carrier, right", kTonesAndAlarm, Kind::Tone, 1.0,
                   "the same sine as the left carrier, so the two differ only by their play rates.",
                   carrier});
    out.push_back(
        {"config/alarms/default.wav", "Alarm chime", kTonesAndAlarm, Kind::Chime, 2.4,
         "four soft bells rising C5 E5 G5 C6 a third of a second apart, partials 1, 2, 3, "
         "4.16 with shimmering detuned pairs, tails ringing round into the next pass.",
         chime});
}

}  // namespace brevane::soundgen
