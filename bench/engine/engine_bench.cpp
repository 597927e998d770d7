// Speed of the sound engine: mixing, its yardstick OpenAL Soft on the same work, the
// cost of a call on the interface thread, and sample loading.
#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <limits>
#include <numbers>
#include <string>
#include <variant>
#include <vector>

#include "engine/decode_cache.h"
#include "engine/mixer_engine.h"
#include "engine/sound_file_writer.h"

namespace brevane {
namespace {

constexpr int kLoops = 32;
constexpr int kLoopFrames = 2 * 44100;  // two seconds each
constexpr int kBlock = 4410;            // one device buffer, 100 ms

// The shared workload: 32 different two-second loops, each at its own playback rate
// between 0.5 and 1.5 times its recorded rate, volume 200 of 255, spread across the pan.
struct Workload {
    std::vector<std::vector<float>> loops;
    std::vector<int> rates;  // playback rate of each loop, Hz
    std::vector<int> pans;   // 0..255
    Workload() {
        for (int k = 0; k < kLoops; ++k) {
            std::vector<float> x(kLoopFrames);
            const double f1 = 110.0 * (1 + k % 7);
            const double f2 = 37.0 * (1 + k % 5);
            for (int i = 0; i < kLoopFrames; ++i) {
                const double t = static_cast<double>(i) / 44100.0;
                x[static_cast<std::size_t>(i)] =
                    static_cast<float>(0.3 * std::sin(2 * std::numbers::pi * f1 * t) +
                                       0.2 * std::sin(2 * std::numbers::pi * f2 * t + k));
            }
            loops.push_back(std::move(x));
            rates.push_back(22050 + k * 44100 / kLoops);
            pans.push_back(k * 255 / (kLoops - 1));
        }
    }
};

const Workload& workload() {
    static const Workload w;
    return w;
}

// A folder of generated sound files, removed at exit.
class BenchFolder {
  public:
    BenchFolder()
        : path_(std::filesystem::temp_directory_path() /
                ("brevane-bench-" + std::to_string(::getpid()))) {
        std::filesystem::create_directories(path_);
    }
    ~BenchFolder() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

const std::filesystem::path& benchFolder() {
    static const BenchFolder folder;
    return folder.path();
}

void reportRealTime(benchmark::State& state) {
    const double frames = static_cast<double>(state.iterations()) * kBlock;
    state.SetItemsProcessed(static_cast<std::int64_t>(frames));
    // Seconds of sound made per second of work: the real-time factor.
    state.counters["x_realtime"] =
        benchmark::Counter(frames / 44100.0, benchmark::Counter::kIsRate);
    state.counters["ns_per_frame"] = benchmark::Counter(
        frames * 1e-9, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// 1. Our mixer, offline, into memory, from loops kept as floats (a float file) or as
// 16-bit frames (a 16-bit file, as every stock sound is).
void mixer32Loops(benchmark::State& state, SoundFileFormat format) {
    const Workload& w = workload();
    MixerEngine engine(MixerEngine::Output::Offline);
    const std::string kind = format == SoundFileFormat::Wav16 ? "16-" : "float-";
    for (int k = 0; k < kLoops; ++k) {
        const auto file = benchFolder() / (kind + "loop" + std::to_string(k) + ".wav");
        if (!std::filesystem::exists(file)) {
            writeSoundFile(file, w.loops[static_cast<std::size_t>(k)], 1, 44100, format);
        }
        const ChannelHandle ch = engine.play(engine.loadSample(file));
        engine.setLoopMode(ch, LoopMode::Normal);
        engine.setFrequency(ch, w.rates[static_cast<std::size_t>(k)]);
        engine.setPan(ch, w.pans[static_cast<std::size_t>(k)]);
        engine.setVolume(ch, 200);
    }
    std::vector<float> out(2 * kBlock);
    engine.render(out.data(), kBlock);  // past the ramps
    for (auto _ : state) {
        engine.render(out.data(), kBlock);
        benchmark::DoNotOptimize(out.data());
    }
    reportRealTime(state);
}
void BM_MixerRender32Loops(benchmark::State& state) {
    mixer32Loops(state, SoundFileFormat::WavFloat);
}
BENCHMARK(BM_MixerRender32Loops);
void BM_MixerRender32Loops16(benchmark::State& state) {
    mixer32Loops(state, SoundFileFormat::Wav16);
}
BENCHMARK(BM_MixerRender32Loops16);

// 2. The same work through OpenAL Soft's loopback device, with its cubic resampler.
void BM_OpenAlLoopback32Loops(benchmark::State& state) {
    const Workload& w = workload();
    auto openLoopback = reinterpret_cast<LPALCLOOPBACKOPENDEVICESOFT>(
        alcGetProcAddress(nullptr, "alcLoopbackOpenDeviceSOFT"));
    auto renderSamples = reinterpret_cast<LPALCRENDERSAMPLESSOFT>(
        alcGetProcAddress(nullptr, "alcRenderSamplesSOFT"));
    if (openLoopback == nullptr || renderSamples == nullptr) {
        state.SkipWithError("OpenAL Soft has no loopback device");
        return;
    }
    ALCdevice* device = openLoopback(nullptr);
    const ALCint attributes[] = {ALC_FORMAT_CHANNELS_SOFT,
                                 ALC_STEREO_SOFT,
                                 ALC_FORMAT_TYPE_SOFT,
                                 ALC_FLOAT_SOFT,
                                 ALC_FREQUENCY,
                                 44100,
                                 ALC_HRTF_SOFT,
                                 ALC_FALSE,
                                 ALC_OUTPUT_LIMITER_SOFT,
                                 ALC_FALSE,
                                 ALC_MONO_SOURCES,
                                 kLoops,
                                 0};
    ALCcontext* context = device != nullptr ? alcCreateContext(device, attributes) : nullptr;
    if (context == nullptr) {
        state.SkipWithError("OpenAL Soft loopback context failed");
        if (device != nullptr) {
            alcCloseDevice(device);
        }
        return;
    }
    alcMakeContextCurrent(context);
    alDistanceModel(AL_NONE);
    ALint cubic = -1;
    auto resamplerName = reinterpret_cast<LPALGETSTRINGISOFT>(alGetProcAddress("alGetStringiSOFT"));
    const ALint resamplers = alGetInteger(AL_NUM_RESAMPLERS_SOFT);
    for (ALint i = 0; resamplerName != nullptr && i < resamplers; ++i) {
        if (std::strcmp(resamplerName(AL_RESAMPLER_NAME_SOFT, i), "Cubic") == 0) {
            cubic = i;
        }
    }
    if (cubic < 0) {
        state.SkipWithError("OpenAL Soft offers no cubic resampler");
    }
    std::vector<ALuint> buffers(kLoops);
    std::vector<ALuint> sources(kLoops);
    alGenBuffers(kLoops, buffers.data());
    alGenSources(kLoops, sources.data());
    for (std::size_t k = 0; k < kLoops; ++k) {
        alBufferData(buffers[k], AL_FORMAT_MONO_FLOAT32, w.loops[k].data(),
                     static_cast<ALsizei>(w.loops[k].size() * sizeof(float)), 44100);
        alSourcei(sources[k], AL_BUFFER, static_cast<ALint>(buffers[k]));
        alSourcei(sources[k], AL_LOOPING, AL_TRUE);
        alSourcei(sources[k], AL_SOURCE_RESAMPLER_SOFT, cubic);
        alSourcef(sources[k], AL_PITCH, static_cast<float>(w.rates[k]) / 44100.0f);
        alSourcef(sources[k], AL_GAIN, 200.0f / 255.0f);
        // The pan as a direction in front of the listener.
        const double angle = (w.pans[k] / 255.0 - 0.5) * std::numbers::pi;
        alSourcei(sources[k], AL_SOURCE_RELATIVE, AL_TRUE);
        alSource3f(sources[k], AL_POSITION, static_cast<float>(std::sin(angle)), 0.0f,
                   static_cast<float>(-std::cos(angle)));
    }
    alSourcePlayv(kLoops, sources.data());
    std::vector<float> out(2 * kBlock);
    renderSamples(device, out.data(), kBlock);
    for (auto _ : state) {
        renderSamples(device, out.data(), kBlock);
        benchmark::DoNotOptimize(out.data());
    }
    reportRealTime(state);
    alSourceStopv(kLoops, sources.data());
    alDeleteSources(kLoops, sources.data());
    alDeleteBuffers(kLoops, buffers.data());
    alcMakeContextCurrent(nullptr);
    alcDestroyContext(context);
    alcCloseDevice(device);
}
BENCHMARK(BM_OpenAlLoopback32Loops);

// 3. One volume change on the interface thread. The mixing side's share (taking the
// commands off the queue at the next sub-block) is left out of the timing, as it runs
// on the device thread in the program.
void BM_SetVolumeCall(benchmark::State& state) {
    MixerEngine engine(MixerEngine::Output::Offline);
    const auto file = benchFolder() / "volume.wav";
    writeSoundFile(file, workload().loops[0], 1, 44100, SoundFileFormat::WavFloat);
    const ChannelHandle ch = engine.play(engine.loadSample(file));
    engine.setLoopMode(ch, LoopMode::Normal);
    constexpr int kCalls = 1000;
    std::vector<float> out(2 * 64);
    int v = 0;
    for (auto _ : state) {
        for (int i = 0; i < kCalls; ++i) {
            engine.setVolume(ch, v);
            v = (v + 1) & 255;
        }
        state.PauseTiming();
        engine.render(out.data(), 64);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kCalls);
    state.counters["ns_per_call"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * kCalls * 1e-9,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_SetVolumeCall);

// 4. Loading 150 three-second WAV files (16-bit stereo, 44100 Hz), then freeing them.
void BM_Load150Wav(benchmark::State& state) {
    constexpr int kFiles = 150;
    std::vector<std::filesystem::path> files;
    {
        std::vector<float> stereo(2 * 3 * 44100);
        for (std::size_t i = 0; i < stereo.size(); ++i) {
            stereo[i] = 0.5f * static_cast<float>(std::sin(0.01 * static_cast<double>(i)));
        }
        for (int k = 0; k < kFiles; ++k) {
            files.push_back(benchFolder() / ("load" + std::to_string(k) + ".wav"));
            writeSoundFile(files.back(), stereo, 2, 44100, SoundFileFormat::Wav16);
        }
    }
    for (auto _ : state) {
        MixerEngine engine(MixerEngine::Output::Offline);
        std::vector<SampleHandle> loaded;
        for (const auto& f : files) {
            loaded.push_back(engine.loadSample(f));
        }
        if (loaded.back() == 0) {
            state.SkipWithError("a file did not load");
        }
        for (const SampleHandle s : loaded) {
            engine.freeSample(s);
        }
    }
    state.SetItemsProcessed(state.iterations() * kFiles);
}
BENCHMARK(BM_Load150Wav)->Unit(benchmark::kMillisecond);

// 5. Memory of the stock library once decoded: every file of the install tree's bin/
// (BREVANE_BENCH_TREE, or the build's own tree), kept in a decode cache with room for all
// of it, whose byte count is what the samples take.
void BM_DecodedStockLibraryBytes(benchmark::State& state) {
    const char* env = std::getenv("BREVANE_BENCH_TREE");
    const std::filesystem::path bin =
        std::filesystem::path(env != nullptr ? env : BREVANE_TREE_DIR) / "bin";
    std::vector<std::filesystem::path> files;
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(bin, ec)) {
        files.push_back(entry.path());
    }
    if (files.empty()) {
        state.SkipWithError("no stock library: generate the sounds or set BREVANE_BENCH_TREE");
        return;
    }
    double frames = 0;
    double sixteenBit = 0;
    std::size_t bytes = 0;
    for (auto _ : state) {
        DecodeCache cache(std::numeric_limits<std::size_t>::max(), std::chrono::hours(1));
        const auto now = DecodeCache::Clock::now();
        frames = 0;
        sixteenBit = 0;
        for (const auto& f : files) {
            auto decoded = decodeSampleFile(f);
            const auto id = FileIdentity::of(f);
            if (!decoded || !id) {
                continue;
            }
            frames += static_cast<double>(frameCount(decoded->frames));
            sixteenBit += std::holds_alternative<std::vector<std::int16_t>>(decoded->frames);
            cache.keep(*id, std::move(*decoded), now);
        }
        bytes = cache.bytes();
    }
    state.counters["files"] = static_cast<double>(files.size());
    state.counters["files_16bit"] = sixteenBit;
    state.counters["frames"] = frames;
    state.counters["MB"] = static_cast<double>(bytes) / 1e6;
    state.counters["bytes_per_frame"] = static_cast<double>(bytes) / frames;
}
BENCHMARK(BM_DecodedStockLibraryBytes)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brevane

BENCHMARK_MAIN();
