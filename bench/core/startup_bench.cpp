// Start-up and quit.
//
// BM_StartUpToFirstPossibleFiring: from the program's first act to the moment a random
// firing can happen, that is the whole Application built, the engine open, the 112
// random samples resident and every scheduler armed.
//
// BM_StartUpToRestoredSound and BM_QuitWritingTheSession: a session of all seven banks
// (loops on in the three background banks, frequencies up in the five random banks,
// the custom banks on files of the user's folders) left by an earlier run, with
// "Auto load previous scenario on startup" on. The first measures from the program's
// first act until the frames of every restored loop are in (the samples decode on the
// engine's threads, so the figures are wall clock), and counts beside it the event
// thread's own part and the last one-shot's arrival; the second the quit that follows,
// from the command to the last panel and the engine gone, every session file written.
//
// The tree is BREVANE_BENCH_TREE when set, else the build's install tree; if that lacks
// the random bank files, a temporary tree of generated one-second tones stands in and
// the benchmark's label says so. The splash's hand-over and the first scheduler tick are
// fixed waits by design (StartupSplash::kHandOverMs, RandomBank::kTickMs) and are run on
// virtual time here, so the figure is the work alone.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <numbers>
#include <optional>
#include <string>
#include <thread>
#include <utility>
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

bool hasRandomBankFiles(const fs::path& tree) {
    for (int base : {50, 100, 150, 200}) {
        for (int s = 1; s <= 28; ++s) {
            if (!fs::exists(tree / "bin" / (std::to_string(base + s) + ".raz"))) {
                return false;
            }
        }
    }
    return true;
}

fs::path generatedTree() {
    const fs::path root = fs::temp_directory_path() / "brevane-bench-startup";
    fs::create_directories(root / "bin");
    std::vector<float> tone(44100);
    for (std::size_t i = 0; i < tone.size(); ++i) {
        tone[i] = 0.3f * static_cast<float>(std::sin(2.0 * std::numbers::pi * 330.0 *
                                                     static_cast<double>(i) / 44100.0));
    }
    for (int base : {50, 100, 150, 200}) {
        for (int s = 1; s <= 28; ++s) {
            writeSoundFile(root / "bin" / (std::to_string(base + s) + ".raz"), tone, 1, 44100);
        }
    }
    return root;
}

fs::path benchTree(std::string& label) {
    const char* env = std::getenv("BREVANE_BENCH_TREE");
    const fs::path tree = env != nullptr ? fs::path(env) : fs::path(BREVANE_TREE_DIR);
    if (hasRandomBankFiles(tree)) {
        label = "stock library " + tree.string();
        return tree;
    }
    label = "generated 1 s tones (no stock library in " + tree.string() + ")";
    return generatedTree();
}

struct Program {
    explicit Program(MixerEngine::Output o) : engine(o) {}
    MixerEngine engine;
    EventLoop loop;
    ScriptedDialogs dialogs;
    MemorySettingsStore settings;
    brevane::Random random{1};
};

// Polls for a state the decoding threads bring about.
template <typename Done>
void waitUntil(Done done) {
    while (!done()) {
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
}

// The program's first act and the load its splash hands over to.
std::unique_ptr<Application> startProgram(Program& p, const fs::path& tree) {
    auto app = std::make_unique<Application>(
        Platform{AppPath(tree), p.engine, p.loop, p.dialogs, p.settings, p.random});
    app->start();
    p.loop.advance(StartupSplash::kHandOverMs);
    return app;
}

// Output 0: the offline mixer (the work alone); 1: the sound device as the program
// opens it (SDL's dummy driver unless SDL_AUDIODRIVER names another).
MixerEngine::Output outputOf(benchmark::State& state, std::string& label) {
    if (state.range(0) == 0) {
        return MixerEngine::Output::Offline;
    }
    ::setenv("SDL_AUDIODRIVER", "dummy", 0);
    label += ", device output";
    return MixerEngine::Output::Device;
}

void BM_StartUpToFirstPossibleFiring(benchmark::State& state) {
    std::string label;
    const fs::path tree = benchTree(label);
    const MixerEngine::Output output = outputOf(state, label);
    for (auto _ : state) {
        auto program = std::make_unique<Program>(output);
        auto app = startProgram(*program, tree);
        if (app->exitRequested() || !app->frmrandommain4.Timer2.enabled()) {
            state.SkipWithError("start-up did not complete");
            break;
        }
        // The samples decode beside the event thread; a firing needs its sample in.
        waitUntil([&] { return program->engine.decodesOutstanding() == 0; });
        // Tear-down (closing the engine, freeing samples) is not start-up.
        state.PauseTiming();
        app->frmmain.quitWithoutAsking();
        app.reset();
        program.reset();
        state.ResumeTiming();
    }
    state.SetLabel(label);
}
BENCHMARK(BM_StartUpToFirstPossibleFiring)
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(10);

// ---- a restored session of all seven banks ----

constexpr int kSessionLoopsPerBank = 6;
constexpr int kSessionCustomLoops = 4;
constexpr int kSessionRandomSlots = 8;
constexpr int kSessionCustomRandomSlots = 6;

bool hasStockLibrary(const fs::path& tree) {
    for (int n : {1, 17, 51, 67}) {
        if (!fs::exists(tree / "bin" / (std::to_string(n) + ".isz"))) {
            return false;
        }
    }
    return hasRandomBankFiles(tree);
}

// A tree whose bin/ is the stock library, with the custom banks' files copied into the
// user's sound folders, and the session files of a run that set the mix and quit.
// Empty when there is no stock library to build it on.
fs::path restoredSessionTree(std::string& label) {
    const char* env = std::getenv("BREVANE_BENCH_TREE");
    const fs::path stock = env != nullptr ? fs::path(env) : fs::path(BREVANE_TREE_DIR);
    if (!hasStockLibrary(stock)) {
        label = "no stock library in " + stock.string();
        return {};
    }
    const fs::path root = fs::temp_directory_path() / "brevane-bench-session";
    fs::remove_all(root);
    fs::create_directories(root / "soundbanks" / "background sounds");
    fs::create_directories(root / "soundbanks" / "random sounds");
    fs::create_directory_symlink(fs::absolute(stock / "bin"), root / "bin");
    for (int i = 1; i <= kSessionCustomLoops; ++i) {
        fs::copy_file(
            stock / "bin" / (std::to_string(50 + i) + ".isz"),
            root / "soundbanks" / "background sounds" / ("loop" + std::to_string(i) + ".flac"));
    }
    for (int i = 1; i <= kSessionCustomRandomSlots; ++i) {
        fs::copy_file(
            stock / "bin" / (std::to_string(150 + i) + ".raz"),
            root / "soundbanks" / "random sounds" / ("call" + std::to_string(i) + ".flac"));
    }

    Program p(MixerEngine::Output::Offline);
    auto app = startProgram(p, root);
    // The first run's tips turn the restore of the previous session on.
    p.loop.advance(Frmmain::kFirstRunMs);
    const auto loopOn = [](BackgroundBank& bank, int s) {
        // Rate 0: no drift, so every run restores the same levels.
        bank.slot(s).rate.setValue(0);
        bank.slot(s).on.setValue(1);
        bank.slot(s).volume.setValue(150);
    };
    for (BackgroundBank* bank : {&app->frmback, &app->frmback2}) {
        for (int s = 1; s <= kSessionLoopsPerBank; ++s) {
            loopOn(*bank, s);
        }
    }
    for (int s = 1; s <= kSessionCustomLoops; ++s) {
        p.dialogs.answerFile(root / "soundbanks" / "background sounds" /
                             ("loop" + std::to_string(s) + ".flac"));
        app->frmbackcustom.chooseFile(s);
        loopOn(app->frmbackcustom, s);
    }
    for (RandomBank* bank : app->randomBanks()) {
        for (int s = 1; s <= kSessionRandomSlots; ++s) {
            bank->slot(s).frequency.setValue(60);
        }
    }
    for (int s = 1; s <= kSessionCustomRandomSlots; ++s) {
        p.dialogs.answerFile(root / "soundbanks" / "random sounds" /
                             ("call" + std::to_string(s) + ".flac"));
        app->frmcustom.chooseFile(s);
        app->frmcustom.slot(s).frequency.setValue(60);
    }
    app->frmmain.Master.setValue(50);
    app->frmmain.Background.setValue(60);
    app->frmmain.Random.setValue(60);
    app->frmmain.quitWithoutAsking();
    label = "stock library " + stock.string();
    return root;
}

// The loops the session left on, all playing in the engine.
bool restoredLoopsPlaying(Application& app) {
    int playing = 0;
    for (BackgroundBank* bank : app.backgroundBanks()) {
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            const BackgroundSoundSlot& slot = bank->slot(s);
            playing += slot.on.checked() && app.engine.isPlaying(slot.channel) ? 1 : 0;
        }
    }
    return playing == 2 * kSessionLoopsPerBank + kSessionCustomLoops &&
           app.frmcustom.slot(kSessionCustomRandomSlots).sample != 0 &&
           app.frmcustom.Timer2.enabled();
}

// The session's tree and the output (0: the offline mixer; 1: the sound device as the
// program opens it) for a benchmark; nothing when the benchmark cannot run.
std::optional<std::pair<fs::path, MixerEngine::Output>> sessionBench(benchmark::State& state,
                                                                     std::string& label) {
    const fs::path tree = restoredSessionTree(label);
    if (tree.empty()) {
        state.SkipWithError(label.c_str());
        return std::nullopt;
    }
    return std::pair{tree, outputOf(state, label)};
}

// The program started on the session's tree, with every bank restored; nothing (and
// the benchmark marked failed) when the session did not come back.
std::unique_ptr<Application> startRestored(benchmark::State& state, Program& program,
                                           const fs::path& tree) {
    auto app = startProgram(program, tree);
    if (app->exitRequested() || !restoredLoopsPlaying(*app)) {
        state.SkipWithError("the session did not come back");
        return nullptr;
    }
    return app;
}

enum class Timed { StartUp, Quit };

// One program after another on the session's tree, each started, restored and quit;
// `timed` says which part the clock runs for.
void runSessionBench(benchmark::State& state, Timed timed) {
    std::string label;
    const auto bench = sessionBench(state, label);
    if (!bench) {
        return;
    }
    using Clock = std::chrono::steady_clock;
    const auto msSince = [](Clock::time_point t) {
        return std::chrono::duration<double, std::milli>(Clock::now() - t).count();
    };
    double eventThreadMs = 0;
    double everySampleMs = 0;
    for (auto _ : state) {
        if (timed == Timed::Quit) {
            state.PauseTiming();
        }
        const Clock::time_point firstAct = Clock::now();
        auto program = std::make_unique<Program>(bench->second);
        auto app = startRestored(state, *program, bench->first);
        if (!app) {
            break;
        }
        if (timed == Timed::StartUp) {
            eventThreadMs += msSince(firstAct);
            // Sound: every restored loop's frames in, so the device mixes them all.
            waitUntil([&] { return program->engine.soundingSamplesAwaitingDecode() == 0; });
            state.PauseTiming();
            waitUntil([&] { return program->engine.decodesOutstanding() == 0; });
            everySampleMs += msSince(firstAct);
        }
        if (timed == Timed::Quit) {
            // A minute of the session running, as before any real quit.
            program->loop.advance(60'000);
            state.ResumeTiming();
        }
        app->frmmain.quitWithoutAsking();
        app.reset();
        program.reset();
        if (timed == Timed::StartUp) {
            state.ResumeTiming();
        }
    }
    if (timed == Timed::StartUp) {
        // Beside the figure: the event thread's own part, free again after it, and the
        // moment the last one-shot's frames are in too.
        const auto n = static_cast<double>(state.iterations());
        state.counters["event_thread_ms"] = eventThreadMs / n;
        state.counters["every_sample_ms"] = everySampleMs / n;
    }
    state.SetLabel(label);
}

void BM_StartUpToRestoredSound(benchmark::State& state) {
    runSessionBench(state, Timed::StartUp);
}
BENCHMARK(BM_StartUpToRestoredSound)
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(5);

void BM_QuitWritingTheSession(benchmark::State& state) {
    runSessionBench(state, Timed::Quit);
}
BENCHMARK(BM_QuitWritingTheSession)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace brevane

BENCHMARK_MAIN();
