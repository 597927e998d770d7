#include "engine/mixer.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

#include "engine/effects/denormals.h"
#include "engine/effects/effects_chain.h"

namespace brevane {

namespace {

constexpr std::int64_t kRate = kMixRate;
constexpr float kInvRate = 1.0f / static_cast<float>(kMixRate);
// Commands large enough for a long burst of slider moves between two device callbacks.
constexpr std::size_t kQueueCapacity = 16384;

// Equal-power pan law with 128 at the exact centre and exact silence on the far side
// at 0 and 255 (binaural tones need one ear silent).
struct PanLaw {
    std::array<float, 256> left{};
    std::array<float, 256> right{};
    PanLaw() {
        const double quarter = std::numbers::pi / 4.0;
        for (int p = 0; p < 256; ++p) {
            const double angle =
                p <= 128 ? quarter * p / 128.0 : quarter + quarter * (p - 128) / 127.0;
            left[static_cast<std::size_t>(p)] = static_cast<float>(std::cos(angle));
            right[static_cast<std::size_t>(p)] = static_cast<float>(std::sin(angle));
        }
        left[255] = 0.0f;
        right[0] = 0.0f;
    }
};
const PanLaw kPanLaw;

// Four-point, third-order Hermite interpolation between x0 and x1.
inline float hermite(float xm1, float x0, float x1, float x2, float t) {
    const float c1 = 0.5f * (x1 - xm1);
    const float c3 = 1.5f * (x0 - x1) + 0.5f * (x2 - xm1);
    const float c2 = xm1 - x0 + c1 - c3;
    return ((c3 * t + c2) * t + c1) * t + x0;
}

}  // namespace

ChainBox::ChainBox() = default;
ChainBox::~ChainBox() = default;

Mixer::Mixer() : queue_(kQueueCapacity) {}

Mixer::~Mixer() = default;

bool Mixer::post(const MixCommand& command) {
    return queue_.push(command);
}

void Mixer::applyPending() {
    MixCommand c;
    while (queue_.pop(c)) {
        apply(c);
    }
}

void Mixer::reset() {
    applyPending();
    for (int i = 0; i < kVoices; ++i) {
        if (voices_[static_cast<std::size_t>(i)].sample != nullptr) {
            finish(i);
        }
    }
    if (fading_) {
        retire(fadingChain_);
    }
    retire(chain_);
    chain_ = nullptr;
    fadingChain_ = nullptr;
    fading_ = false;
    chainHasPlayed_ = false;
    stashLeft_ = 0;
}

void Mixer::render(float* out, int frames) {
    ScopedFlushDenormals flush;
    while (frames > 0) {
        if (stashLeft_ > 0) {
            const int n = std::min(stashLeft_, frames);
            std::memcpy(out, stash_.data() + 2 * stashPos_,
                        sizeof(float) * 2 * static_cast<std::size_t>(n));
            stashPos_ += n;
            stashLeft_ -= n;
            out += 2 * n;
            frames -= n;
        } else if (frames >= kSubBlockFrames) {
            renderSubBlock(out);
            out += 2 * kSubBlockFrames;
            frames -= kSubBlockFrames;
        } else {
            renderSubBlock(stash_.data());
            stashPos_ = 0;
            stashLeft_ = kSubBlockFrames;
        }
    }
}

void Mixer::renderSubBlock(float* out) {
    applyPending();
    std::fill(mix_.begin(), mix_.end(), 0.0f);
    for (int i = 0; i < kVoices; ++i) {
        if (voices_[static_cast<std::size_t>(i)].sample != nullptr) {
            mixVoice(i);
        }
    }
    runEffects();
    std::memcpy(out, mix_.data(), sizeof(float) * mix_.size());
    framesRendered_.fetch_add(kSubBlockFrames, std::memory_order_relaxed);
}

Mixer::Voice* Mixer::channelVoice(const MixCommand& c) {
    if (c.channel >= kChannelCount) {
        return nullptr;
    }
    Voice& v = voices_[c.channel];
    if (v.sample == nullptr || v.generation != c.generation) {
        return nullptr;
    }
    return &v;
}

void Mixer::apply(const MixCommand& c) {
    using Op = MixCommand::Op;
    switch (c.op) {
        case Op::Play: {
            if (c.channel >= kChannelCount || c.sample == nullptr) {
                return;
            }
            Voice& v = voices_[c.channel];
            if (v.sample != nullptr) {
                moveToTail(v);
            }
            v = Voice{};
            v.sample = c.sample;
            v.generation = c.generation;
            v.stepInt = static_cast<std::uint32_t>(c.sample->rate / kMixRate);
            v.stepFrac = static_cast<std::uint32_t>(c.sample->rate % kMixRate);
            v.dirty = true;
            ++c.sample->voiceRefs;
            return;
        }
        case Op::Stop:
            if (Voice* v = channelVoice(c)) {
                v->stopping = true;
                v->dirty = true;
            }
            return;
        case Op::Volume:
            if (Voice* v = channelVoice(c)) {
                v->volume = std::clamp(c.value, 0, 255);
                v->dirty = true;
            }
            return;
        case Op::Pan:
            if (Voice* v = channelVoice(c)) {
                v->pan = std::clamp(c.value, 0, 255);
                v->dirty = true;
            }
            return;
        case Op::Loop:
            if (Voice* v = channelVoice(c)) {
                v->loop = c.value != 0;
            }
            return;
        case Op::Frequency:
            if (Voice* v = channelVoice(c)) {
                const int hz = std::clamp(c.value, kMinFrequency, kMaxFrequency);
                v->stepInt = static_cast<std::uint32_t>(hz / kMixRate);
                v->stepFrac = static_cast<std::uint32_t>(hz % kMixRate);
            }
            return;
        case Op::Pause:
            if (Voice* v = channelVoice(c)) {
                v->paused = c.value != 0;
                v->dirty = true;
            }
            return;
        case Op::PauseAll:
            for (int i = 0; i < kChannelCount; ++i) {
                Voice& v = voices_[static_cast<std::size_t>(i)];
                if (v.sample != nullptr) {
                    v.paused = c.value != 0;
                    v.dirty = true;
                }
            }
            return;
        case Op::StopSample: {
            SampleRecord* s = c.sample;
            if (s == nullptr) {
                return;
            }
            s->freeRequested = true;
            for (Voice& v : voices_) {
                if (v.sample == s) {
                    v.stopping = true;
                    v.dirty = true;
                }
            }
            if (s->voiceRefs == 0) {
                s->released.store(true, std::memory_order_release);
            }
            return;
        }
        case Op::SwapChain:
            swapChain(c.chain);
            return;
        case Op::SetEqualizerBand:
        case Op::SetReverb:
        case Op::SetEcho: {
            if (chain_ == nullptr || c.value < 0 ||
                static_cast<std::size_t>(c.value) >= chain_->ids.size()) {
                return;
            }
            const auto pos = static_cast<std::size_t>(c.value);
            const int id = chain_->ids[pos];
            const EffectKind kind = chain_->kinds[pos];
            if (c.op == Op::SetEqualizerBand && kind == EffectKind::Equalizer) {
                chain_->chain->setEqualizerBand(id, std::get<EqualizerBandParams>(c.params));
            } else if (c.op == Op::SetReverb && kind == EffectKind::Reverb) {
                chain_->chain->setReverb(id, std::get<ReverbParams>(c.params));
            } else if (c.op == Op::SetEcho && kind == EffectKind::Echo) {
                chain_->chain->setEcho(id, std::get<EchoParams>(c.params));
            }
            return;
        }
    }
}

void Mixer::retarget(Voice& v) {
    v.dirty = false;
    float l = 0.0f;
    float r = 0.0f;
    if (!v.paused && !v.stopping) {
        const float amp = static_cast<float>(v.volume) / 255.0f;
        l = amp * kPanLaw.left[static_cast<std::size_t>(v.pan)];
        r = amp * kPanLaw.right[static_cast<std::size_t>(v.pan)];
    }
    if (v.rampLeft > 0 && l == v.targetL && r == v.targetR) {
        return;  // already on its way there
    }
    v.targetL = l;
    v.targetR = r;
    if (l == v.gainL && r == v.gainR) {
        v.rampLeft = 0;
        return;
    }
    v.stepL = (l - v.gainL) / static_cast<float>(kRampFrames);
    v.stepR = (r - v.gainR) / static_cast<float>(kRampFrames);
    v.rampLeft = kRampFrames;
}

void Mixer::moveToTail(Voice& v) {
    // A channel taken by a new play lets its old sound fade out on a spare voice.
    const bool silent = v.rampLeft == 0 && v.gainL == 0.0f && v.gainR == 0.0f;
    if (!silent) {
        for (int i = kChannelCount; i < kVoices; ++i) {
            Voice& t = voices_[static_cast<std::size_t>(i)];
            if (t.sample == nullptr) {
                t = v;
                t.stopping = true;
                retarget(t);
                v.sample = nullptr;  // the reference moved with it
                return;
            }
        }
    }
    finish(static_cast<int>(&v - voices_.data()));
}

void Mixer::finish(int index) {
    Voice& v = voices_[static_cast<std::size_t>(index)];
    SampleRecord* s = v.sample;
    v.sample = nullptr;
    if (index < kChannelCount) {
        ended_[static_cast<std::size_t>(index)].store(v.generation, std::memory_order_release);
    }
    if (s != nullptr && --s->voiceRefs == 0 && s->freeRequested) {
        s->released.store(true, std::memory_order_release);
    }
}

void Mixer::mixVoice(int index) {
    Voice& v = voices_[static_cast<std::size_t>(index)];
    if (v.dirty) {
        retarget(v);
    }
    const bool silent = v.rampLeft == 0 && v.gainL == 0.0f && v.gainR == 0.0f;
    if (silent) {
        if (v.stopping) {
            finish(index);
        } else if (!v.paused && !advanceSilently(v, kSubBlockFrames)) {
            finish(index);
        }
        return;
    }
    float l0 = v.gainL;
    float r0 = v.gainR;
    float l1 = l0;
    float r1 = r0;
    if (v.rampLeft > 0) {
        v.rampLeft -= kSubBlockFrames;
        if (v.rampLeft <= 0) {
            v.rampLeft = 0;
            l1 = v.targetL;
            r1 = v.targetR;
        } else {
            l1 = l0 + v.stepL * kSubBlockFrames;
            r1 = r0 + v.stepR * kSubBlockFrames;
        }
    }
    v.gainL = l1;
    v.gainR = r1;

    const int n = resample(v, mono_.data(), kSubBlockFrames);
    const float dl = (l1 - l0) / static_cast<float>(kSubBlockFrames);
    const float dr = (r1 - r0) / static_cast<float>(kSubBlockFrames);
    float* mix = mix_.data();
    const float* mono = mono_.data();
    if (dl == 0.0f && dr == 0.0f) {
        for (int i = 0; i < n; ++i) {
            mix[2 * i] += mono[i] * l0;
            mix[2 * i + 1] += mono[i] * r0;
        }
    } else {
        for (int i = 0; i < n; ++i) {
            const float fi = static_cast<float>(i);
            mix[2 * i] += mono[i] * (l0 + dl * fi);
            mix[2 * i + 1] += mono[i] * (r0 + dr * fi);
        }
    }
    if (n < kSubBlockFrames) {
        finish(index);
    }
}

int Mixer::resample(Voice& v, float* out, int count) {
    const float* s = v.sample->frames.data();
    const auto n = static_cast<std::int64_t>(v.sample->frames.size());
    const std::int64_t step = static_cast<std::int64_t>(v.stepInt) * kRate + v.stepFrac;
    const std::uint32_t stepInt = v.stepInt;
    const std::uint32_t stepFrac = v.stepFrac;
    std::int64_t pos = v.pos;
    std::uint32_t frac = v.frac;
    int produced = 0;
    while (produced < count) {
        if (pos >= 1 && pos + 2 < n) {
            // Interior: all four taps are inside the sample. Run as many frames as stay
            // inside without a check per frame.
            const std::int64_t room = (n - 2) * kRate - (pos * kRate + frac);
            std::int64_t k = (room + step - 1) / step;
            k = std::min<std::int64_t>(k, count - produced);
            for (std::int64_t j = 0; j < k; ++j) {
                const float* p = s + pos - 1;
                out[produced + j] =
                    hermite(p[0], p[1], p[2], p[3], static_cast<float>(frac) * kInvRate);
                frac += stepFrac;
                const std::uint32_t carry = frac >= static_cast<std::uint32_t>(kRate) ? 1u : 0u;
                frac -= carry * static_cast<std::uint32_t>(kRate);
                pos += stepInt + carry;
            }
            produced += static_cast<int>(k);
            continue;
        }
        // Near an end: the taps wrap round a loop or read silence past a one-shot.
        if (pos >= n) {
            if (!v.loop) {
                break;
            }
            pos %= n;
        }
        const bool loop = v.loop;
        auto tap = [&](std::int64_t i) -> float {
            if (loop) {
                i %= n;
                if (i < 0) {
                    i += n;
                }
                return s[i];
            }
            return i < 0 || i >= n ? 0.0f : s[i];
        };
        out[produced++] = hermite(tap(pos - 1), tap(pos), tap(pos + 1), tap(pos + 2),
                                  static_cast<float>(frac) * kInvRate);
        frac += stepFrac;
        if (frac >= static_cast<std::uint32_t>(kRate)) {
            frac -= static_cast<std::uint32_t>(kRate);
            ++pos;
        }
        pos += stepInt;
        if (loop && pos >= n) {
            pos %= n;
        }
    }
    v.pos = pos;
    v.frac = frac;
    return produced;
}

bool Mixer::advanceSilently(Voice& v, int count) {
    const auto n = static_cast<std::int64_t>(v.sample->frames.size());
    const std::int64_t step = static_cast<std::int64_t>(v.stepInt) * kRate + v.stepFrac;
    std::int64_t units = v.pos * kRate + v.frac + step * count;
    std::int64_t pos = units / kRate;
    if (pos >= n) {
        if (!v.loop) {
            return false;
        }
        pos %= n;
    }
    v.pos = pos;
    v.frac = static_cast<std::uint32_t>(units % kRate);
    return true;
}

void Mixer::swapChain(ChainBox* box) {
    if (!chainHasPlayed_) {
        // Never sounded: nothing to fade from, and an earlier fade carries on.
        retire(chain_);
    } else {
        if (fading_) {
            retire(fadingChain_);
        }
        fading_ = true;
        fadingChain_ = chain_;
        fadePos_ = 0;
    }
    chain_ = box;
    chainHasPlayed_ = false;
}

void Mixer::retire(ChainBox* box) {
    if (box != nullptr) {
        box->released.store(true, std::memory_order_release);
    }
}

void Mixer::runEffects() {
    // A new chain fades in over the old one's output (or the dry mix), so that a
    // rebuild neither clicks nor leaves the old tail running.
    if (fading_) {
        fadeMix_ = mix_;
        if (fadingChain_ != nullptr) {
            fadingChain_->chain->process(fadeMix_.data(), kSubBlockFrames);
        }
    }
    if (chain_ != nullptr) {
        chain_->chain->process(mix_.data(), kSubBlockFrames);
    }
    chainHasPlayed_ = true;
    if (fading_) {
        for (int i = 0; i < kSubBlockFrames; ++i) {
            const float w = static_cast<float>(fadePos_ + i) / static_cast<float>(kRampFrames);
            for (int c = 0; c < 2; ++c) {
                const auto k = static_cast<std::size_t>(2 * i + c);
                mix_[k] = mix_[k] * w + fadeMix_[k] * (1.0f - w);
            }
        }
        fadePos_ += kSubBlockFrames;
        if (fadePos_ >= kRampFrames) {
            retire(fadingChain_);
            fadingChain_ = nullptr;
            fading_ = false;
        }
    }
}

}  // namespace brevane
