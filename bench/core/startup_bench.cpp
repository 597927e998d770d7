// Start-up: from the program's first act to the moment a random firing can happen,
// that is the whole Application built, the engine open, the 112 random samples
// resident and every scheduler armed.
//
// The tree is BREVANE_BENCH_TREE when set, else the build's install tree; if that lacks
// the random bank files, a temporary tree of generated one-second tones stands in and
// the benchmark's label says so. The splash's hand-over and the first scheduler tick are
// fixed waits by design (StartupSplash::kHandOverMs, RandomBank::kTickMs) and are run on
// virtual time here, so the figure is the work alone.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <numbers>
#include <string>
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

// Output 0: the offline mixer (the work alone); 1: the sound device as the program
// opens it (SDL's dummy driver unless SDL_AUDIODRIVER names another).
void BM_StartUpToFirstPossibleFiring(benchmark::State& state) {
    std::string label;
    const fs::path tree = benchTree(label);
    const auto output =
        state.range(0) == 0 ? MixerEngine::Output::Offline : MixerEngine::Output::Device;
    if (output == MixerEngine::Output::Device) {
        ::setenv("SDL_AUDIODRIVER", "dummy", 0);
        label += ", device output";
    }
    struct Program {
        explicit Program(MixerEngine::Output o) : engine(o) {}
        MixerEngine engine;
        EventLoop loop;
        ScriptedDialogs dialogs;
        MemorySettingsStore settings;
        brevane::Random random{1};
    };
    for (auto _ : state) {
        auto program = std::make_unique<Program>(output);
        Program& p = *program;
        auto app = std::make_unique<Application>(
            Platform{AppPath(tree), p.engine, p.loop, p.dialogs, p.settings, p.random});
        app->start();
        p.loop.advance(StartupSplash::kHandOverMs);
        if (app->exitRequested() || !app->frmrandommain4.Timer2.enabled()) {
            state.SkipWithError("start-up did not complete");
            break;
        }
        benchmark::DoNotOptimize(app->frmrandommain4.slot(28).sample);
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
    ->Iterations(10);

}  // namespace
}  // namespace brevane

BENCHMARK_MAIN();
