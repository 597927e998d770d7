// The volume drift at its fastest: all 51 slots of the three background banks on, at
// rate 999, each stepping its Volume slider, and through it the engine's volume, every
// 5 ms (200 times a second). What it costs the event thread:
//
//   BM_DriftTick             one tick of one slot, from the timer to the engine's
//                            volume hand-over, timed over 51-tick rounds
//   BM_DriftVirtualMinute    a minute of such drift run on virtual time: the event
//                            thread's CPU time for it, as a share of one core
//   BM_DriftRealTimeMinute   the same minute in real time, woken at each deadline as
//                            the program's driver does: CPU share, wake-ups, and the
//                            wall time spent in the ticks of one wake-up
//
// The engine is the real mixer on SDL's output (its dummy driver unless
// SDL_AUDIODRIVER names another), mixing the 51 loops on its own thread; without an
// output it mixes offline and the label says so. The random banks' schedulers are
// stopped so the figures are the drift's alone. BREVANE_DRIFT_SECONDS shortens the
// real-time run.

#include <benchmark/benchmark.h>

#include <time.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <numbers>
#include <string>
#include <thread>
#include <vector>

#include "base/dialogs.h"
#include "base/event_loop.h"
#include "base/random.h"
#include "base/settings_store.h"
#include "core/application.h"
#include "engine/mixer_engine.h"
#include "engine/sound_file_writer.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

constexpr int kSlots = 3 * kBackgroundSlots;

double threadCpuSeconds() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// A tree with a two-second loop for each of the 51 slots.
fs::path loopTree() {
    const fs::path root = fs::temp_directory_path() / "brevane-bench-drift";
    const fs::path custom = root / "soundbanks/background sounds";
    fs::create_directories(root / "bin");
    fs::create_directories(custom);
    std::vector<float> tone(88200);
    for (std::size_t i = 0; i < tone.size(); ++i) {
        tone[i] = 0.2f * static_cast<float>(std::sin(2.0 * std::numbers::pi * 220.0 *
                                                     static_cast<double>(i) / 44100.0));
    }
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        for (const fs::path& file : {root / "bin" / (std::to_string(s) + ".isz"),
                                     root / "bin" / (std::to_string(50 + s) + ".isz"),
                                     custom / ("loop " + std::to_string(s) + ".wav")}) {
            if (!fs::exists(file)) {
                writeSoundFile(file, tone, 1, 44100);
            }
        }
    }
    return root;
}

bool deviceAvailable() {
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    MixerEngine probe(MixerEngine::Output::Device);
    const bool ok = probe.start(0);
    probe.close();
    return ok;
}

// The whole program with every background slot on at the fastest drift.
struct Program {
    explicit Program(MixerEngine::Output output)
        : tree(loopTree()),
          engine(output),
          app(Platform{AppPath(tree), engine, loop, dialogs, settings, random}) {
        app.start();
        loop.advance(StartupSplash::kHandOverMs);
        for (RandomBank* bank : app.randomBanks()) {
            bank->Timer2.setEnabled(false);
        }
        app.frmmain.Master.setValue(100);
        app.frmmain.Background.setValue(100);
        std::array<std::string, BackgroundBank::kHandOverEntries> files{};
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            files[static_cast<std::size_t>(s - 1)] =
                (tree / "soundbanks/background sounds" / ("loop " + std::to_string(s) + ".wav"))
                    .string();
        }
        app.frmbackcustom.bulkLoad(files);
        for (BackgroundBank* bank : app.backgroundBanks()) {
            for (int s = 1; s <= kBackgroundSlots; ++s) {
                bank->slot(s).rate.setValue(999);
                bank->slot(s).on.setValue(1);
            }
        }
    }
    ~Program() { app.frmmain.quitWithoutAsking(); }

    // Loops whose sample loaded: all 51 unless the tree could not be written.
    int loopsLoaded() {
        int n = 0;
        for (BackgroundBank* bank : app.backgroundBanks()) {
            for (int s = 1; s <= kBackgroundSlots; ++s) {
                n += bank->slot(s).sample != 0 ? 1 : 0;
            }
        }
        return n;
    }

    fs::path tree;
    MixerEngine engine;
    EventLoop loop;
    ScriptedDialogs dialogs;
    MemorySettingsStore settings;
    brevane::Random random{7};
    Application app;
};

std::string outputLabel(MixerEngine::Output output, int loops) {
    return std::string(output == MixerEngine::Output::Device ? "device (SDL)" : "offline mixer") +
           ", " + std::to_string(loops) + " loops";
}

MixerEngine::Output chosenOutput() {
    static const MixerEngine::Output output =
        deviceAvailable() ? MixerEngine::Output::Device : MixerEngine::Output::Offline;
    return output;
}

void BM_DriftTick(benchmark::State& state) {
    Program p(chosenOutput());
    for (auto _ : state) {
        // 5 ms of virtual time: every slot ticks once.
        p.loop.advance(5);
    }
    state.counters["per_tick"] = benchmark::Counter(
        kSlots, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.SetLabel(outputLabel(chosenOutput(), p.loopsLoaded()));
}
BENCHMARK(BM_DriftTick)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly();

void BM_DriftVirtualMinute(benchmark::State& state) {
    Program p(chosenOutput());
    double cpu = 0;
    for (auto _ : state) {
        const double start = threadCpuSeconds();
        p.loop.advance(60'000);
        cpu += threadCpuSeconds() - start;
    }
    state.counters["core_share_pct"] =
        100.0 * cpu / (60.0 * static_cast<double>(state.iterations()));
    state.SetLabel(outputLabel(chosenOutput(), p.loopsLoaded()));
}
BENCHMARK(BM_DriftVirtualMinute)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

void BM_DriftRealTimeMinute(benchmark::State& state) {
    const char* env = std::getenv("BREVANE_DRIFT_SECONDS");
    const int seconds = env != nullptr ? std::max(1, std::atoi(env)) : 60;
    Program p(chosenOutput());
    using Clock = std::chrono::steady_clock;
    for (auto _ : state) {
        const std::int64_t origin = p.loop.now();
        const auto start = Clock::now();
        const auto end = start + std::chrono::seconds(seconds);
        const double cpuStart = threadCpuSeconds();
        long wakeups = 0;
        Clock::duration busy{};
        while (Clock::now() < end) {
            const auto next = p.loop.nextDeadline();
            if (next) {
                std::this_thread::sleep_until(start + std::chrono::milliseconds(*next - origin));
            }
            const auto woke = Clock::now();
            const auto elapsed =
                std::chrono::duration_cast<std::chrono::milliseconds>(woke - start);
            p.loop.catchUpTo(origin + elapsed.count());
            busy += Clock::now() - woke;
            ++wakeups;
        }
        const double wall = std::chrono::duration<double>(Clock::now() - start).count();
        const double cpu = threadCpuSeconds() - cpuStart;
        state.counters["core_share_pct"] = 100.0 * cpu / wall;
        state.counters["wakeups_per_s"] = static_cast<double>(wakeups) / wall;
        state.counters["per_wakeup_us"] = 1e6 * cpu / static_cast<double>(wakeups);
        // Wall time inside the ticks: more than their CPU time would mean the event
        // thread waited (on the engine's queue, or for the processor).
        state.counters["busy_per_wakeup_us"] =
            1e6 * std::chrono::duration<double>(busy).count() / static_cast<double>(wakeups);
    }
    state.SetLabel(outputLabel(chosenOutput(), p.loopsLoaded()) + ", " + std::to_string(seconds) +
                   " s");
}
BENCHMARK(BM_DriftRealTimeMinute)->Unit(benchmark::kSecond)->Iterations(1)->UseRealTime();

}  // namespace
}  // namespace brevane

BENCHMARK_MAIN();
