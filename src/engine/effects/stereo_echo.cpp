#include "engine/effects/stereo_echo.h"

#include <algorithm>
#include <cmath>

namespace brevane {

StereoEcho::StereoEcho(double sampleRate) : sampleRate_(sampleRate) {
    EchoParams longest;
    longest.leftDelayMs = 1e9f;
    longest = clampedToRange(longest);
    const int longestDelay =
        static_cast<int>(std::lround(longest.leftDelayMs / 1000.0 * sampleRate_));
    int size = 1;
    while (size <= longestDelay) {
        size *= 2;
    }
    left_.assign(static_cast<std::size_t>(size), 0.0f);
    right_.assign(static_cast<std::size_t>(size), 0.0f);
    mask_ = size - 1;
    set(EchoParams{});
}

void StereoEcho::set(const EchoParams& p) {
    const EchoParams c = clampedToRange(p);
    auto samples = [this](float ms) {
        return std::clamp(static_cast<int>(std::lround(ms / 1000.0 * sampleRate_)), 1, mask_);
    };
    leftDelay_ = samples(c.leftDelayMs);
    rightDelay_ = samples(c.rightDelayMs);
    wet_ = c.wetDryMix / 100.0f;
    dry_ = 1.0f - wet_;
    feedback_ = std::min(c.feedback / 100.0f, kMaxLoopGain);
    crossed_ = c.panDelay;
}

void StereoEcho::process(float* io, int frames) {
    float* const l = left_.data();
    float* const r = right_.data();
    const unsigned mask = static_cast<unsigned>(mask_);
    const unsigned dl = static_cast<unsigned>(leftDelay_);
    const unsigned dr = static_cast<unsigned>(rightDelay_);
    unsigned pos = static_cast<unsigned>(pos_);
    for (int frame = 0; frame < frames; ++frame) {
        const float xl = io[2 * frame];
        const float xr = io[2 * frame + 1];
        const float el = l[(pos - dl) & mask];
        const float er = r[(pos - dr) & mask];
        // A crossed loop sends each side's repeat into the other side's line.
        l[pos] = xl + feedback_ * (crossed_ ? er : el);
        r[pos] = xr + feedback_ * (crossed_ ? el : er);
        io[2 * frame] = dry_ * xl + wet_ * el;
        io[2 * frame + 1] = dry_ * xr + wet_ * er;
        pos = (pos + 1) & mask;
    }
    pos_ = static_cast<int>(pos);
}

void StereoEcho::reset() {
    std::fill(left_.begin(), left_.end(), 0.0f);
    std::fill(right_.begin(), right_.end(), 0.0f);
}

void StereoEcho::continueFrom(const EffectUnit& other) {
    if (other.kind() != EffectKind::Echo) {
        return;
    }
    const auto& echo = static_cast<const StereoEcho&>(other);
    if (echo.left_.size() != left_.size()) {
        return;
    }
    std::copy(echo.left_.begin(), echo.left_.end(), left_.begin());
    std::copy(echo.right_.begin(), echo.right_.end(), right_.begin());
    pos_ = echo.pos_;
}

}  // namespace brevane
