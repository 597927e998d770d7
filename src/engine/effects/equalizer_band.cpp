#include "engine/effects/equalizer_band.h"

#include <algorithm>
#include <array>

namespace brevane {

EqualizerBand::EqualizerBand(double sampleRate) : sampleRate_(sampleRate) {
    set(EqualizerBandParams{});
}

void EqualizerBand::set(const EqualizerBandParams& p) {
    const EqualizerBandParams c = clampedToRange(p);
    // A centre at or above half the sample rate has no meaning; keep it just below.
    const double centre = std::min(double{c.centreHz}, 0.49 * sampleRate_);
    target_ = peakingCoefficients(sampleRate_, centre, c.bandwidthSemitones / 12.0, c.gainDb);
    glideCountdown_ = 0;
    if (idle_) {
        current_ = target_;
        lanes_ = inAllLanes(current_);
        glideLeft_ = 0;
        return;
    }
    const float n = static_cast<float>(kGlideSteps);
    step_.b0 = (target_.b0 - current_.b0) / n;
    step_.b1 = (target_.b1 - current_.b1) / n;
    step_.b2 = (target_.b2 - current_.b2) / n;
    step_.a1 = (target_.a1 - current_.a1) / n;
    step_.a2 = (target_.a2 - current_.a2) / n;
    glideLeft_ = kGlideSteps;
}

void EqualizerBand::stepGlide() {
    if (--glideLeft_ == 0) {
        current_ = target_;  // land exactly, free of accumulated rounding
    } else {
        current_.b0 += step_.b0;
        current_.b1 += step_.b1;
        current_.b2 += step_.b2;
        current_.a1 += step_.a1;
        current_.a2 += step_.a2;
    }
    lanes_ = inAllLanes(current_);
    glideCountdown_ = kGlideBlock;
}

void EqualizerBand::process(float* io, int frames) {
    EqualizerBand* self = this;
    processSeries(&self, 1, io, frames);
}

void EqualizerBand::processSeries(EqualizerBand* const* bands, int count, float* io, int frames) {
    if (frames <= 0 || count <= 0) {
        return;
    }
    count = std::min(count, kMaxSeries);
    std::array<BiquadLanes, kMaxSeries> lanes;
    std::array<BiquadState, kMaxSeries> states;
    for (int b = 0; b < count; ++b) {
        bands[b]->idle_ = false;
    }
    int done = 0;
    while (done < frames) {
        // Up to the next glide step of any band, so coefficients hold still within the run.
        int n = frames - done;
        for (int b = 0; b < count; ++b) {
            EqualizerBand& band = *bands[b];
            if (band.glideLeft_ > 0) {
                if (band.glideCountdown_ == 0) {
                    band.stepGlide();
                }
                if (band.glideLeft_ > 0) {
                    n = std::min(n, band.glideCountdown_);
                }
            }
            lanes[static_cast<std::size_t>(b)] = band.lanes_;
            states[static_cast<std::size_t>(b)] = band.state_;
        }
        float* p = io + 2 * done;
        for (int i = 0; i < n; ++i) {
            Float4 x{p[2 * i], p[2 * i + 1], 0.0f, 0.0f};
            for (int b = 0; b < count; ++b) {
                x = states[static_cast<std::size_t>(b)].process(lanes[static_cast<std::size_t>(b)],
                                                                x);
            }
            p[2 * i] = x[0];
            p[2 * i + 1] = x[1];
        }
        for (int b = 0; b < count; ++b) {
            EqualizerBand& band = *bands[b];
            band.state_ = states[static_cast<std::size_t>(b)];
            band.state_.flushTiny();
            if (band.glideLeft_ > 0) {
                band.glideCountdown_ -= n;
            }
        }
        done += n;
    }
}

void EqualizerBand::reset() {
    state_ = {};
    current_ = target_;
    lanes_ = inAllLanes(current_);
    glideLeft_ = 0;
    glideCountdown_ = 0;
    idle_ = true;
}

void EqualizerBand::continueFrom(const EffectUnit& other) {
    if (other.kind() != EffectKind::Equalizer) {
        return;
    }
    const auto& band = static_cast<const EqualizerBand&>(other);
    if (band.sampleRate_ != sampleRate_) {
        return;
    }
    state_ = band.state_;
    idle_ = band.idle_;
}

}  // namespace brevane
