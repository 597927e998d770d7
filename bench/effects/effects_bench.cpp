// Real-time factor of the program's effects chain (ten equalizer bands, then the reverb) on a
// stereo mix of 32 looping channels, and of OpenAL Soft's EAX reverb on the same mix rendered
// through its loopback device. Prints the ratio of the two median CPU times at the end.
//
// Run: build/bench/bench_effects   (pinned to the core it starts on)

#include <benchmark/benchmark.h>
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#define AL_ALEXT_PROTOTYPES
#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>
#include <AL/efx.h>

#include "engine/effects/effects_chain.h"
#include "engine/mixer_engine.h"
#include "engine/sound_file_writer.h"

namespace {

using brevane::EffectKind;
using brevane::EffectsChain;
using brevane::ReverbParams;

constexpr int kRate = 44100;
constexpr int kSources = 32;
constexpr int kMixSeconds = 10;
constexpr int kBlock = 1024;  // frames per call, about 23 ms

// Ten seconds of 32 looping sources mixed to stereo by the engine's own mixer, rendering
// offline: half of them filtered noise, half tones with a slow tremolo, each loop its own
// length, volume and pan. The sources go through sound files, as the program's do.
const std::vector<float>& mix() {
    static const std::vector<float> buffer = [] {
        const std::filesystem::path dir = std::filesystem::temp_directory_path() /
                                          ("brevane_bench_effects_" + std::to_string(getpid()));
        std::filesystem::create_directories(dir);
        brevane::MixerEngine engine(brevane::MixerEngine::Output::Offline);
        std::mt19937 gen(2024);
        std::uniform_real_distribution<float> uni(0.0f, 1.0f);
        for (int s = 0; s < kSources; ++s) {
            const int loop = static_cast<int>((1.5f + 3.0f * uni(gen)) * kRate);
            std::vector<float> source(static_cast<std::size_t>(loop));
            if (s % 2 == 0) {
                float low = 0.0f;
                const float smooth = 0.02f + 0.5f * uni(gen);
                for (float& v : source) {
                    low += smooth * ((2.0f * uni(gen) - 1.0f) - low);
                    v = low;
                }
            } else {
                const double hz = 60.0 * std::pow(2.0, 6.0 * uni(gen));
                for (int i = 0; i < loop; ++i) {
                    const double t = double(i) / kRate;
                    source[static_cast<std::size_t>(i)] = static_cast<float>(
                        0.5 * std::sin(2.0 * std::numbers::pi * hz * t) *
                        (0.6 + 0.4 * std::sin(2.0 * std::numbers::pi * 0.3 * t)));
                }
            }
            const std::filesystem::path file = dir / (std::to_string(s) + ".wav");
            brevane::writeSoundFile(file, source, 1, kRate, brevane::SoundFileFormat::WavFloat);
            const brevane::ChannelHandle channel = engine.play(engine.loadSample(file));
            engine.setLoopMode(channel, brevane::LoopMode::Normal);
            engine.setVolume(channel, 20 + static_cast<int>(40.0f * uni(gen)));
            engine.setPan(channel, static_cast<int>(255.0f * uni(gen)));
        }
        std::vector<float> out = engine.render(kMixSeconds * kRate);
        std::error_code ignored;
        std::filesystem::remove_all(dir, ignored);
        float peak = 0.0f;
        for (float v : out) {
            peak = std::max(peak, std::abs(v));
        }
        std::fprintf(stderr, "mix of %d channels: peak %.3f\n", kSources, peak);
        if (out.size() != 2 * static_cast<std::size_t>(kMixSeconds * kRate) || peak < 0.01f) {
            std::fprintf(stderr, "the offline mixer rendered no mix\n");
            std::exit(1);
        }
        return out;
    }();
    return buffer;
}

// The room both reverbs play: the I3DL2 defaults.
const ReverbParams kRoom{};

void setAudioCounters(benchmark::State& state) {
    state.counters["rtf"] = benchmark::Counter(static_cast<double>(kMixSeconds),
                                               benchmark::Counter::kIsIterationInvariantRate);
}

void ourChain(benchmark::State& state) {
    const std::vector<float>& source = mix();
    EffectsChain chain(kRate);
    const float centres[] = {80, 170, 310, 600, 1000, 3000, 6000, 12000, 14000, 16000};
    const float gains[] = {4, 2, -1, -3, 0, 2, 3, -2, 1, 5};
    for (int b = 0; b < 10; ++b) {
        chain.setEqualizerBand(chain.enable(EffectKind::Equalizer), {centres[b], 18.0f, gains[b]});
    }
    chain.setReverb(chain.enable(EffectKind::Reverb), kRoom);
    std::vector<float> block(2 * kBlock);
    const int frames = kMixSeconds * kRate;
    for (auto _ : state) {
        for (int done = 0; done < frames; done += kBlock) {
            const int n = std::min(kBlock, frames - done);
            std::copy_n(source.data() + 2 * done, 2 * n, block.data());
            chain.process(block.data(), n);
            benchmark::DoNotOptimize(block.data());
        }
        benchmark::ClobberMemory();
    }
    setAudioCounters(state);
}

// OpenAL Soft on its loopback device: the mix as one looping stereo source played straight to
// the two outputs, with a send to an EAX reverb set to the same room (or no send at all).
class OpenAlLoopback {
  public:
    explicit OpenAlLoopback(bool withReverb) {
        device_ = alcLoopbackOpenDeviceSOFT(nullptr);
        if (device_ == nullptr) {
            return;
        }
        const ALCint attributes[] = {ALC_FORMAT_CHANNELS_SOFT,
                                     ALC_STEREO_SOFT,
                                     ALC_FORMAT_TYPE_SOFT,
                                     ALC_FLOAT_SOFT,
                                     ALC_FREQUENCY,
                                     kRate,
                                     ALC_MAX_AUXILIARY_SENDS,
                                     1,
                                     ALC_HRTF_SOFT,
                                     ALC_FALSE,
                                     0};
        context_ = alcCreateContext(device_, attributes);
        if (context_ == nullptr || alcMakeContextCurrent(context_) == ALC_FALSE) {
            return;
        }
        const std::vector<float>& source = mix();
        alGenBuffers(1, &buffer_);
        alBufferData(buffer_, AL_FORMAT_STEREO_FLOAT32, source.data(),
                     static_cast<ALsizei>(source.size() * sizeof(float)), kRate);
        alGenSources(1, &source_);
        alSourcei(source_, AL_BUFFER, static_cast<ALint>(buffer_));
        alSourcei(source_, AL_LOOPING, AL_TRUE);
        alSourcei(source_, AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
        if (withReverb) {
            alGenEffects(1, &effect_);
            alEffecti(effect_, AL_EFFECT_TYPE, AL_EFFECT_EAXREVERB);
            auto gain = [](float mB) { return std::pow(10.0f, mB / 2000.0f); };
            alEffectf(effect_, AL_EAXREVERB_DENSITY, kRoom.density / 100.0f);
            alEffectf(effect_, AL_EAXREVERB_DIFFUSION, kRoom.diffusion / 100.0f);
            alEffectf(effect_, AL_EAXREVERB_GAIN, gain(kRoom.room));
            alEffectf(effect_, AL_EAXREVERB_GAINHF, gain(kRoom.roomHF));
            alEffectf(effect_, AL_EAXREVERB_DECAY_TIME, kRoom.decayTime);
            alEffectf(effect_, AL_EAXREVERB_DECAY_HFRATIO, kRoom.decayHFRatio);
            alEffectf(effect_, AL_EAXREVERB_REFLECTIONS_GAIN, gain(kRoom.reflections));
            alEffectf(effect_, AL_EAXREVERB_REFLECTIONS_DELAY, kRoom.reflectionsDelay);
            alEffectf(effect_, AL_EAXREVERB_LATE_REVERB_GAIN, gain(kRoom.reverb));
            alEffectf(effect_, AL_EAXREVERB_LATE_REVERB_DELAY, kRoom.reverbDelay);
            alEffectf(effect_, AL_EAXREVERB_HFREFERENCE, kRoom.hfReference);
            alEffectf(effect_, AL_EAXREVERB_ROOM_ROLLOFF_FACTOR, kRoom.roomRolloffFactor);
            alGenAuxiliaryEffectSlots(1, &slot_);
            alAuxiliaryEffectSloti(slot_, AL_EFFECTSLOT_EFFECT, static_cast<ALint>(effect_));
            alSource3i(source_, AL_AUXILIARY_SEND_FILTER, static_cast<ALint>(slot_), 0,
                       AL_FILTER_NULL);
        }
        alSourcePlay(source_);
        ok_ = alGetError() == AL_NO_ERROR;
    }

    ~OpenAlLoopback() {
        if (context_ != nullptr) {
            alSourceStop(source_);
            alDeleteSources(1, &source_);
            alDeleteBuffers(1, &buffer_);
            if (slot_ != 0) {
                alDeleteAuxiliaryEffectSlots(1, &slot_);
                alDeleteEffects(1, &effect_);
            }
            alcMakeContextCurrent(nullptr);
            alcDestroyContext(context_);
        }
        if (device_ != nullptr) {
            alcCloseDevice(device_);
        }
    }

    bool ok() const { return ok_; }
    void render(float* out, int frames) { alcRenderSamplesSOFT(device_, out, frames); }

  private:
    ALCdevice* device_ = nullptr;
    ALCcontext* context_ = nullptr;
    ALuint buffer_ = 0;
    ALuint source_ = 0;
    ALuint effect_ = 0;
    ALuint slot_ = 0;
    bool ok_ = false;
};

void openAl(benchmark::State& state, bool withReverb) {
    OpenAlLoopback al(withReverb);
    if (!al.ok()) {
        state.SkipWithError("OpenAL loopback device unavailable");
        return;
    }
    std::vector<float> block(2 * kBlock);
    const int frames = kMixSeconds * kRate;
    for (auto _ : state) {
        for (int done = 0; done < frames; done += kBlock) {
            al.render(block.data(), std::min(kBlock, frames - done));
            benchmark::DoNotOptimize(block.data());
        }
        benchmark::ClobberMemory();
    }
    setAudioCounters(state);
}

void openAlEaxReverb(benchmark::State& state) {
    openAl(state, true);
}
void openAlDryOnly(benchmark::State& state) {
    openAl(state, false);
}

constexpr int kRepetitions = 9;
BENCHMARK(ourChain)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(kRepetitions)
    ->ReportAggregatesOnly(true);
BENCHMARK(openAlEaxReverb)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(kRepetitions)
    ->ReportAggregatesOnly(true);
BENCHMARK(openAlDryOnly)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(kRepetitions)
    ->ReportAggregatesOnly(true);

// Keeps the median CPU time of each benchmark for the ratio.
class MedianReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.aggregate_name == "median") {
                medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> medians;
};

}  // namespace

int main(int argc, char** argv) {
    // One core: stay on the one we start on.
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(sched_getcpu(), &one);
    sched_setaffinity(0, sizeof(one), &one);

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    const auto ours = reporter.medians.find("ourChain");
    const auto theirs = reporter.medians.find("openAlEaxReverb");
    if (ours != reporter.medians.end() && theirs != reporter.medians.end() && theirs->second > 0) {
        std::printf("\nratio ours / OpenAL EAX reverb (median CPU time): %.3f\n",
                    ours->second / theirs->second);
    }
    return 0;
}
