#include "engine/effects/filters.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace brevane {

BiquadCoefficients peakingCoefficients(double sampleRate, double centreHz, double bandwidthOctaves,
                                       double gainDb) {
    const double a = std::pow(10.0, gainDb / 40.0);
    const double w0 = 2.0 * std::numbers::pi * centreHz / sampleRate;
    const double sinW = std::sin(w0);
    const double cosW = std::cos(w0);
    const double alpha = sinW * std::sinh(std::numbers::ln2 / 2.0 * bandwidthOctaves * w0 / sinW);
    const double a0 = 1.0 + alpha / a;
    BiquadCoefficients c;
    c.b0 = static_cast<float>((1.0 + alpha * a) / a0);
    c.b1 = static_cast<float>(-2.0 * cosW / a0);
    c.b2 = static_cast<float>((1.0 - alpha * a) / a0);
    c.a1 = static_cast<float>(-2.0 * cosW / a0);
    c.a2 = static_cast<float>((1.0 - alpha / a) / a0);
    return c;
}

double magnitudeAt(const BiquadCoefficients& c, double sampleRate, double hz) {
    const double w = 2.0 * std::numbers::pi * hz / sampleRate;
    const std::complex<double> z1 = std::polar(1.0, -w);
    const std::complex<double> z2 = z1 * z1;
    const std::complex<double> num = double{c.b0} + double{c.b1} * z1 + double{c.b2} * z2;
    const std::complex<double> den = 1.0 + double{c.a1} * z1 + double{c.a2} * z2;
    return std::abs(num / den);
}

BiquadCoefficients highShelfCoefficients(double sampleRate, double cornerHz, double plateauDb) {
    const double a = std::pow(10.0, plateauDb / 40.0);
    const double w0 = 2.0 * std::numbers::pi * cornerHz / sampleRate;
    const double cosW = std::cos(w0);
    const double twoRootAAlpha = 2.0 * std::sqrt(a) * std::sin(w0) / 2.0 * std::numbers::sqrt2;
    const double a0 = (a + 1.0) - (a - 1.0) * cosW + twoRootAAlpha;
    BiquadCoefficients c;
    c.b0 = static_cast<float>(a * ((a + 1.0) + (a - 1.0) * cosW + twoRootAAlpha) / a0);
    c.b1 = static_cast<float>(-2.0 * a * ((a - 1.0) + (a + 1.0) * cosW) / a0);
    c.b2 = static_cast<float>(a * ((a + 1.0) + (a - 1.0) * cosW - twoRootAAlpha) / a0);
    c.a1 = static_cast<float>(2.0 * ((a - 1.0) - (a + 1.0) * cosW) / a0);
    c.a2 = static_cast<float>(((a + 1.0) - (a - 1.0) * cosW - twoRootAAlpha) / a0);
    return c;
}

BiquadCoefficients referenceShelfCoefficients(double sampleRate, double refHz, double gainLow,
                                              double gainAtRef) {
    const double corner = refHz / 2.0;
    const double wantedDb = 20.0 * std::log10(gainAtRef / gainLow);
    // The gain at refHz in dB is nearly proportional to the plateau in dB: a few rescaling
    // steps land on it.
    double plateauDb = wantedDb;
    for (int i = 0; i < 8 && wantedDb != 0.0; ++i) {
        const double gotDb =
            20.0 * std::log10(magnitudeAt(highShelfCoefficients(sampleRate, corner, plateauDb),
                                          sampleRate, refHz));
        if (gotDb == 0.0) {
            break;
        }
        plateauDb *= wantedDb / gotDb;
    }
    if (gainAtRef < 1.0) {
        // A plateau at or above unity would let a feedback loop ring on at high frequencies.
        const double ceilingDb = 20.0 * std::log10(std::max(gainLow, 1.0 - 1e-4) / gainLow);
        plateauDb = std::min(plateauDb, ceilingDb);
    }
    BiquadCoefficients c = highShelfCoefficients(sampleRate, corner, plateauDb);
    const auto g = static_cast<float>(gainLow);
    c.b0 *= g;
    c.b1 *= g;
    c.b2 *= g;
    return c;
}

}  // namespace brevane
