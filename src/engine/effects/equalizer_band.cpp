#include "engine/effects/equalizer_band.h"

#include <algorithm>

namespace brevane {

EqualizerBand::EqualizerBand(double sampleRate) : sampleRate_(sampleRate) {
    set(EqualizerBandParams{});
}

void EqualizerBand::set(const EqualizerBandParams& p) {
    const EqualizerBandParams c = clampedToRange(p);
    // A centre at or above half the sample rate has no meaning; keep it just below.
    const double centre = std::min(double{c.centreHz}, 0.49 * sampleRate_);
    target_ = peakingCoefficients(sampleRate_, centre, c.bandwidthSemitones / 12.0, c.gainDb);
    if (idle_) {
        current_ = target_;
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
    glideCountdown_ = 0;
}

void EqualizerBand::process(float* io, int frames) {
    if (frames <= 0) {
        return;
    }
    idle_ = false;
    int done = 0;
    while (done < frames) {
        int n = frames - done;
        if (glideLeft_ > 0) {
            // Steps fall every kGlideBlock frames of sound, however the caller cuts its blocks.
            if (glideCountdown_ == 0) {
                if (--glideLeft_ == 0) {
                    current_ = target_;  // land exactly, free of accumulated rounding
                } else {
                    current_.b0 += step_.b0;
                    current_.b1 += step_.b1;
                    current_.b2 += step_.b2;
                    current_.a1 += step_.a1;
                    current_.a2 += step_.a2;
                }
                glideCountdown_ = kGlideBlock;
            }
            n = std::min(n, glideCountdown_);
            glideCountdown_ -= n;
        }
        const BiquadCoefficients c = current_;
        BiquadState l = left_;
        BiquadState r = right_;
        float* p = io + 2 * done;
        for (int i = 0; i < n; ++i) {
            p[2 * i] = l.process(c, p[2 * i]);
            p[2 * i + 1] = r.process(c, p[2 * i + 1]);
        }
        l.flushTiny();
        r.flushTiny();
        left_ = l;
        right_ = r;
        done += n;
    }
}

void EqualizerBand::reset() {
    left_ = {};
    right_ = {};
    current_ = target_;
    glideLeft_ = 0;
    glideCountdown_ = 0;
    idle_ = true;
}

}  // namespace brevane
