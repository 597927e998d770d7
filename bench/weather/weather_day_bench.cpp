// A day and a night of a full scenario with the weather and the night transition on,
// on virtual time: how long the program's own work takes for 24 hours of showers,
// storms, drift and random firings. The engine records its calls and plays nothing, so
// the figure is the event thread's share alone; the mixer has benchmarks of its own.
//
//   bench_weather_day [runs]   (default 3)
//
// Reads the stock scenario "Summer Storm" and the weather preset "All-night rain" from
// the install tree (BREVANE_BENCH_TREE, else the build's), on a scratch copy.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

#include "base/dialogs.h"
#include "base/event_loop.h"
#include "base/random.h"
#include "base/settings_store.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace fs = std::filesystem;
using namespace brevane;

namespace {

constexpr std::int64_t kDayMs = 24LL * 60 * 60 * 1000;
constexpr int kStepMs = 60000;

struct Figures {
    double seconds = 0;
    std::size_t engineCalls = 0;
    int showers = 0;
    bool nightCame = false;
};

Figures runDay(const fs::path& stock, int run) {
    const fs::path root =
        fs::temp_directory_path() /
        ("brevane-weather-day-" + std::to_string(::getpid()) + "-" + std::to_string(run));
    fs::remove_all(root);
    for (const char* folder : {"config/scenarios", "config/evolve"}) {
        fs::create_directories(root / folder);
        fs::copy(stock / folder, root / folder, fs::copy_options::recursive);
    }
    RecordingEngine engine;
    EventLoop loop;
    ScriptedDialogs dialogs;
    MemorySettingsStore settings;
    brevane::Random random(static_cast<std::uint64_t>(run) + 1);
    Figures f;
    {
        Application app(Platform{AppPath(root), engine, loop, dialogs, settings, random});
        app.start();
        loop.advance(StartupSplash::kHandOverMs);
        app.frmmain.doload("Summer Storm");
        Frmevolve& evolve = app.frmevolve;
        evolve.presetBox.setListIndex(evolve.presetBox.find("All-night rain"));
        evolve.masterevolve.setValue(true);
        evolve.masternight.setValue(true);

        bool showering = false;
        const auto start = std::chrono::steady_clock::now();
        for (std::int64_t t = 0; t < kDayMs; t += kStepMs) {
            loop.advance(kStepMs);
            f.engineCalls += engine.calls().size();
            engine.clearCalls();
            const bool now = app.frmback.slot(3).on.checked();
            f.showers += now && !showering;
            showering = now;
        }
        f.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        f.nightCame = evolve.nightfadein.enabled();
    }
    fs::remove_all(root);
    return f;
}

}  // namespace

int main(int argc, char** argv) {
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 3;
    const char* env = std::getenv("BREVANE_BENCH_TREE");
    const fs::path stock = env != nullptr ? fs::path(env) : fs::path(BREVANE_TREE_DIR);
    if (!fs::exists(stock / "config/scenarios/Summer Storm1.scs")) {
        std::printf("weather day: no stock scenarios in %s; build the tree first\n",
                    stock.string().c_str());
        return 1;
    }
    std::vector<double> seconds;
    for (int r = 0; r < runs; ++r) {
        const Figures f = runDay(stock, r);
        seconds.push_back(f.seconds);
        std::printf("run %d: 24 h virtual in %.2f s wall, %zu engine calls, %d showers, night %s\n",
                    r + 1, f.seconds, f.engineCalls, f.showers,
                    f.nightCame ? "came" : "did not come");
    }
    std::sort(seconds.begin(), seconds.end());
    std::printf(
        "weather day: min %.2f s, median %.2f s, max %.2f s for 24 h of virtual time "
        "(goal: under 60 s)\n",
        seconds.front(), seconds[seconds.size() / 2], seconds.back());
    return 0;
}
