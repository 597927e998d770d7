#include "engine/mixer.h"
#include "engine/music_stream.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstring>
#include <numbers>
#include <type_traits>
#include <variant>

#include "engine/effects/denormals.h"
#include "engine/effects/effects_chain.h"
#include "engine/effects/float4.h"

namespace brevane {

namespace {

constexpr int kFractionBits = 32;
constexpr std::uint64_t kOne = std::uint64_t{1} << kFractionBits;
// The top 24 bits of a position's fraction, as a float in [0, 1).
constexpr float kFractionScale = 1.0f / static_cast<float>(1 << 24);
inline float fractionOf(std::uint64_t pos) {
    return static_cast<float>(static_cast<std::int32_t>((pos >> 8) & 0xffffff)) * kFractionScale;
}
inline std::int64_t frameOf(std::uint64_t pos) {
    return static_cast<std::int64_t>(pos >> kFractionBits);
}

// Step per output frame for playback at `hz`, rounded to the nearest step.
inline std::uint64_t stepFor(int hz) {
    return ((static_cast<std::uint64_t>(hz) << kFractionBits) + kMixRate / 2) / kMixRate;
}
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

// The same for four frames at once: xm1, x0, x1, x2 hold one tap of each frame.
inline Float4 hermite(Float4 xm1, Float4 x0, Float4 x1, Float4 x2, Float4 t) {
    const Float4 c1 = 0.5f * (x1 - xm1);
    const Float4 c3 = 1.5f * (x0 - x1) + 0.5f * (x2 - xm1);
    const Float4 c2 = xm1 - x0 + c1 - c3;
    return ((c3 * t + c2) * t + c1) * t + x0;
}

using Int4 = int __attribute__((vector_size(16)));

inline Float4 load4(const float* p) {
    Float4 v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

inline void store4(float* p, Float4 v) {
    std::memcpy(p, &v, sizeof v);
}

using Short8 = std::int16_t __attribute__((vector_size(16)));
using UInt64x2 = std::uint64_t __attribute__((vector_size(16)));

// Frames as the mixing loop reads them. A 16-bit frame is read as the top half of a
// 32-bit integer, that is 65536 times its value: four of them take one interleave with
// zero and one conversion, on any x86-64 processor, where a sign extension would take
// more. The factor is a power of two and goes out again with the gains.
constexpr float kInt16TapFactor = 65536.0f;
// Full scale of the frames as read.
template <typename T>
constexpr float kTapScale =
    std::is_same_v<T, std::int16_t> ? kInt16TapFactor* kInt16FullScale : 1.0f;

inline float asTap(float x) {
    return x;
}
inline float asTap(std::int16_t x) {
    return static_cast<float>(x) * kInt16TapFactor;
}

// Four neighbouring frames.
inline Float4 taps4(const float* p) {
    return load4(p);
}
inline Float4 taps4(const std::int16_t* p) {
    // One 64-bit load: filling part of a vector in memory would stall the load after it.
    std::uint64_t bits;
    std::memcpy(&bits, p, sizeof bits);
    const Short8 v = std::bit_cast<Short8>(UInt64x2{bits, 0});
    const Short8 high = __builtin_shufflevector(Short8{}, v, 0, 8, 1, 9, 2, 10, 3, 11);
    return __builtin_convertvector(std::bit_cast<Int4>(high), Float4);
}

// Eight lanes: one AVX register where the processor has it, two SSE registers elsewhere.
using Float8 = float __attribute__((vector_size(32)));
using Int8 = int __attribute__((vector_size(32)));
using UInt4 = std::uint32_t __attribute__((vector_size(16)));
using UInt8 = std::uint32_t __attribute__((vector_size(32)));

// (Eight-lane code is written out where used: a function taking or returning eight lanes
// would change its calling convention between the two builds of the mixing loop.)

// Where a voice reads its sample: frames of type T, float or std::int16_t.
template <typename T>
struct Playhead {
    const T* samples;
    std::int64_t length;
    bool loop;
    std::uint64_t step;
    std::uint64_t pos;
};

// A voice's gains over one sub-block: a straight line from the first frame on. They take
// in the scale of the frames as read (kTapScale), so 16-bit frames are interpolated as
// they come and reach full scale 1 only in the one multiplication by the gain. The
// scale is a power of two: the mix comes out the same to the last bit as from the same
// frames kept as floats.
struct Gains {
    float left, leftStep, right, rightStep;
};

// Adds one sub-block of a voice, resampled, to the mix; returns how many frames came
// before the sound ended (a whole sub-block when it did not end). The innermost loop of
// the mixer.
template <typename T>
[[gnu::always_inline]] inline int resampleBody(Playhead<T>& h, const Gains& g, float* left,
                                               float* right) {
    const T* s = h.samples;
    const std::int64_t n = h.length;
    const std::uint64_t step = h.step;
    std::uint64_t pos = h.pos;
    // Copies: the mix buffers cannot alias locals, so they stay in registers.
    const float gl = g.left;
    const float dl = g.leftStep;
    const float gr = g.right;
    const float dr = g.rightStep;
    // Adds one frame `y` at frame `i` of the sub-block, and four frames from `i` on.
    auto add1 = [&](int i, float y) {
        const auto at = static_cast<float>(i);
        left[i] += y * (gl + dl * at);
        right[i] += y * (gr + dr * at);
    };
    auto add4 = [&](int i, Float4 y) {
        const Float4 at = Float4{0.0f, 1.0f, 2.0f, 3.0f} + static_cast<float>(i);
        store4(left + i, load4(left + i) + y * (gl + dl * at));
        store4(right + i, load4(right + i) + y * (gr + dr * at));
    };
    int produced = 0;
    while (produced < kSubBlockFrames) {
        const std::int64_t frame = frameOf(pos);
        if (frame >= 1 && frame + 2 < n) {
            // Interior: all four taps are inside the sample. Run as many frames as stay
            // inside without a check per frame.
            const std::uint64_t room = (static_cast<std::uint64_t>(n - 2) << kFractionBits) - pos;
            const auto wanted = static_cast<std::uint64_t>(kSubBlockFrames - produced);
            const int k =
                static_cast<int>(room > step * wanted ? wanted : (room + step - 1) / step);
            // Steps one frame: returns its four taps, neighbours in memory, in one load.
            auto next = [&] {
                const Float4 taps = taps4(s + (pos >> kFractionBits) - 1);
                pos += step;
                return taps;
            };
            // The fractions of the next frames, from the low half of the position alone
            // (which wraps the same way), in the top 24 bits that a float holds exactly.
            const auto lowStep = static_cast<std::uint32_t>(step);
            const UInt8 fractionSteps = UInt8{0, 1, 2, 3, 4, 5, 6, 7} * lowStep;
            const int end = produced + k;
            // Eight frames at a time: frames q and q + 4 share a vector, and a transpose
            // within each half turns their taps into one vector per tap.
            for (; produced + 8 <= end; produced += 8) {
                const UInt8 fractions = (static_cast<std::uint32_t>(pos) + fractionSteps) >> 8;
                const Float8 t = __builtin_convertvector(fractions, Float8) * kFractionScale;
                const Float4 f0 = next(), f1 = next(), f2 = next(), f3 = next();
                const Float4 f4 = next(), f5 = next(), f6 = next(), f7 = next();
                const Float8 y0 = __builtin_shufflevector(f0, f4, 0, 1, 2, 3, 4, 5, 6, 7);
                const Float8 y1 = __builtin_shufflevector(f1, f5, 0, 1, 2, 3, 4, 5, 6, 7);
                const Float8 y2 = __builtin_shufflevector(f2, f6, 0, 1, 2, 3, 4, 5, 6, 7);
                const Float8 y3 = __builtin_shufflevector(f3, f7, 0, 1, 2, 3, 4, 5, 6, 7);
                const Int8 low2 = {0, 8, 1, 9, 4, 12, 5, 13};
                const Int8 high2 = {2, 10, 3, 11, 6, 14, 7, 15};
                const Float8 lo01 = __builtin_shuffle(y0, y1, low2);
                const Float8 hi01 = __builtin_shuffle(y0, y1, high2);
                const Float8 lo23 = __builtin_shuffle(y2, y3, low2);
                const Float8 hi23 = __builtin_shuffle(y2, y3, high2);
                const Int8 first = {0, 1, 8, 9, 4, 5, 12, 13};
                const Int8 second = {2, 3, 10, 11, 6, 7, 14, 15};
                const Float8 xm1 = __builtin_shuffle(lo01, lo23, first);
                const Float8 x0 = __builtin_shuffle(lo01, lo23, second);
                const Float8 x1 = __builtin_shuffle(hi01, hi23, first);
                const Float8 x2 = __builtin_shuffle(hi01, hi23, second);
                const Float8 c1 = 0.5f * (x1 - xm1);
                const Float8 c3 = 1.5f * (x0 - x1) + 0.5f * (x2 - xm1);
                const Float8 c2 = xm1 - x0 + c1 - c3;
                const Float8 out = ((c3 * t + c2) * t + c1) * t + x0;
                const Float8 at = Float8{0.0f, 1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f, 7.0f} +
                                  static_cast<float>(produced);
                Float8 l;
                Float8 r;
                std::memcpy(&l, left + produced, sizeof l);
                std::memcpy(&r, right + produced, sizeof r);
                l += out * (gl + dl * at);
                r += out * (gr + dr * at);
                std::memcpy(left + produced, &l, sizeof l);
                std::memcpy(right + produced, &r, sizeof r);
            }
            // Four frames at a time, the same way.
            for (; produced + 4 <= end; produced += 4) {
                const UInt4 fractions =
                    (static_cast<std::uint32_t>(pos) + UInt4{0, 1, 2, 3} * lowStep) >> 8;
                const Float4 t = __builtin_convertvector(fractions, Float4) * kFractionScale;
                const Float4 f0 = next(), f1 = next(), f2 = next(), f3 = next();
                const Float4 lo01 = __builtin_shuffle(f0, f1, Int4{0, 4, 1, 5});
                const Float4 hi01 = __builtin_shuffle(f0, f1, Int4{2, 6, 3, 7});
                const Float4 lo23 = __builtin_shuffle(f2, f3, Int4{0, 4, 1, 5});
                const Float4 hi23 = __builtin_shuffle(f2, f3, Int4{2, 6, 3, 7});
                const Float4 xm1 = __builtin_shuffle(lo01, lo23, Int4{0, 1, 4, 5});
                const Float4 x0 = __builtin_shuffle(lo01, lo23, Int4{2, 3, 6, 7});
                const Float4 x1 = __builtin_shuffle(hi01, hi23, Int4{0, 1, 4, 5});
                const Float4 x2 = __builtin_shuffle(hi01, hi23, Int4{2, 3, 6, 7});
                add4(produced, hermite(xm1, x0, x1, x2, t));
            }
            for (; produced < end; ++produced) {
                const T* p = s + (pos >> kFractionBits) - 1;
                add1(produced,
                     hermite(asTap(p[0]), asTap(p[1]), asTap(p[2]), asTap(p[3]), fractionOf(pos)));
                pos += step;
            }
            continue;
        }
        // Near an end: the taps wrap round a loop or read silence past a one-shot.
        if (frame >= n) {
            if (!h.loop) {
                break;
            }
            pos = (static_cast<std::uint64_t>(frame % n) << kFractionBits) | (pos & (kOne - 1));
            continue;
        }
        const bool loop = h.loop;
        auto tap = [&](std::int64_t i) -> float {
            if (loop) {
                i %= n;
                if (i < 0) {
                    i += n;
                }
                return asTap(s[i]);
            }
            return i < 0 || i >= n ? 0.0f : asTap(s[i]);
        };
        add1(produced++,
             hermite(tap(frame - 1), tap(frame), tap(frame + 1), tap(frame + 2), fractionOf(pos)));
        pos += step;
    }
    h.pos = pos;
    return produced;
}

template <typename T>
int resampleNarrow(Playhead<T>& h, const Gains& g, float* left, float* right) {
    return resampleBody(h, g, left, right);
}

std::atomic<bool> wideLoopAllowed{true};

#if defined(__x86_64__)
// The same loop built for processors with AVX2, which take eight frames in one register.
template <typename T>
[[gnu::target("avx2")]] int resampleWide(Playhead<T>& h, const Gains& g, float* left,
                                         float* right) {
    return resampleBody(h, g, left, right);
}

bool useWideLoop() {
    static const bool hasAvx2 = __builtin_cpu_supports("avx2");
    return hasAvx2 && wideLoopAllowed.load(std::memory_order_relaxed);
}
#else
template <typename T>
int resampleWide(Playhead<T>& h, const Gains& g, float* left, float* right) {
    return resampleBody(h, g, left, right);
}

bool useWideLoop() {
    return false;
}
#endif

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

float Mixer::softLimit(float x) {
    // Many loops and one-shots at full volume can add up past full scale, which the
    // device would clip with a harsh crackle. Below the knee the mix passes untouched;
    // above it the level bends smoothly towards a ceiling just under full scale.
    constexpr float kKnee = 0.8f;
    constexpr float kCeiling = 0.98f;
    constexpr float kHeadroom = kCeiling - kKnee;
    const float magnitude = std::fabs(x);
    if (magnitude <= kKnee) {
        return x;
    }
    // t / (1 + t) leaves the knee at slope 1, like tanh, at the cost of one division:
    // a mix of many full loops may sit above the knee most of the time.
    const float over = (magnitude - kKnee) / kHeadroom;
    const float bent = kKnee + kHeadroom * over / (1.0f + over);
    return std::copysign(bent, x);
}

void Mixer::render(float* out, int frames) {
    ScopedFlushDenormals flush;
    float* const begin = out;
    const int total = frames;
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
    if (total > 0 && tapping_.load(std::memory_order_acquire)) {
        tapRing_.write(begin, 2 * static_cast<std::size_t>(total));
    }
}

void Mixer::renderSubBlock(float* out) {
    applyPending();
    left_.fill(0.0f);
    right_.fill(0.0f);
    for (int i = 0; i < kVoices; ++i) {
        if (voices_[static_cast<std::size_t>(i)].sample != nullptr) {
            mixVoice(i);
        }
    }
    for (int i = 0; i < kSubBlockFrames; ++i) {
        mix_[static_cast<std::size_t>(2 * i)] = left_[static_cast<std::size_t>(i)];
        mix_[static_cast<std::size_t>(2 * i + 1)] = right_[static_cast<std::size_t>(i)];
    }
    runEffects();
    if (music_ != nullptr) {
        music_->mixInto(mix_.data(), kSubBlockFrames);
    }
    for (float& x : mix_) {
        x = softLimit(x);
    }
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
            if (c.sample->state.load(std::memory_order_acquire) == SampleState::Pending) {
                v.waiting = true;
                v.rateUnknown = true;
            } else {
                v.step = stepFor(std::clamp(c.sample->rate, kMinFrequency, kMaxFrequency));
            }
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
                v->step = stepFor(hz);
                v->rateUnknown = false;
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
        case Op::SetEqualizerBand: {
            if (chain_ == nullptr || c.value < 0 ||
                static_cast<std::size_t>(c.value) >= chain_->ids.size()) {
                return;
            }
            const auto pos = static_cast<std::size_t>(c.value);
            if (chain_->kinds[pos] == EffectKind::Equalizer) {
                chain_->chain->setEqualizerBand(chain_->ids[pos],
                                                std::get<EqualizerBandParams>(c.params));
            }
            return;
        }
    }
}

void Mixer::allowWideLoop(bool allowed) {
    wideLoopAllowed.store(allowed, std::memory_order_relaxed);
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
    if (v.waiting) {
        if (v.sample->state.load(std::memory_order_acquire) == SampleState::Pending) {
            // Nothing to play yet: it waits at its start, and has nothing to fade if stopped.
            if (v.stopping) {
                finish(index);
            }
            return;
        }
        v.waiting = false;
        if (v.rateUnknown) {
            v.rateUnknown = false;
            v.step = stepFor(std::clamp(v.sample->rate, kMinFrequency, kMaxFrequency));
        }
    }
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

    // Gains move in a straight line across the sub-block.
    const int n = std::visit(
        [&](const auto& frames) {
            using T = typename std::decay_t<decltype(frames)>::value_type;
            constexpr float scale = 1.0f / kTapScale<T>;
            const Gains gains{scale * l0, scale * (l1 - l0) / static_cast<float>(kSubBlockFrames),
                              scale * r0, scale * (r1 - r0) / static_cast<float>(kSubBlockFrames)};
            Playhead<T> head{frames.data(), static_cast<std::int64_t>(frames.size()), v.loop,
                             v.step, v.pos};
            const int made = useWideLoop()
                                 ? resampleWide(head, gains, left_.data(), right_.data())
                                 : resampleNarrow(head, gains, left_.data(), right_.data());
            v.pos = head.pos;
            return made;
        },
        v.sample->frames);
    if (n < kSubBlockFrames) {
        finish(index);
    }
}

bool Mixer::advanceSilently(Voice& v, int count) {
    const auto n = static_cast<std::int64_t>(frameCount(v.sample->frames));
    std::uint64_t pos = v.pos + v.step * static_cast<std::uint64_t>(count);
    const std::int64_t frame = frameOf(pos);
    if (frame >= n) {
        if (!v.loop) {
            return false;
        }
        pos = (static_cast<std::uint64_t>(frame % n) << kFractionBits) | (pos & (kOne - 1));
    }
    v.pos = pos;
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
    // rebuild does not click; an effect the new chain no longer has lets its tail go
    // within the fade.
    if (fading_) {
        fadeMix_ = mix_;
        if (fadingChain_ != nullptr) {
            // A rebuilt chain takes over the tails of the one it replaces before either
            // runs on, so a room keeps ringing through a change of its settings (a slider
            // dragged across its range) and only the settings cross-fade.
            if (!chainHasPlayed_ && chain_ != nullptr) {
                chain_->chain->continueFrom(*fadingChain_->chain);
            }
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
