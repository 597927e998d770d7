// One hour of a stock scenario rendered to a file, as the recorder's Render does it: the
// whole program on virtual time, weather on, the equalizer and the reverb on the mix,
// through the same mixer and effects the program plays with.
//
//   bench_render [runs] [minutes] [wav|flac|ogg]   (defaults: 3 runs, 60 minutes, flac)
//
// Reads the stock scenario "Summer Storm" and the weather preset "Summer storm" from the
// install tree (BREVANE_BENCH_TREE, else the build's); the figure is wall-clock time,
// start of the program and writing of the file included. Goal: one hour under 30 s.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "base/scratch_tree.h"
#include "recorder/scenario_render.h"

namespace fs = std::filesystem;
using namespace brevane;

int main(int argc, char** argv) {
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 3;
    const int minutes = argc > 2 ? std::max(1, std::atoi(argv[2])) : 60;
    const std::string kind = argc > 3 ? argv[3] : "flac";
    const char* env = std::getenv("BREVANE_BENCH_TREE");
    const fs::path stock = env != nullptr ? fs::path(env) : fs::path(BREVANE_TREE_DIR);
    if (!fs::exists(stock / "config/scenarios/Summer Storm1.scs")) {
        std::printf("render: no stock scenarios in %s; build the tree first\n",
                    stock.string().c_str());
        return 1;
    }
    // The program's tree as a user leaves it: the weather set to the stock storm.
    ScratchTree tree("brevane-render-bench");
    fs::create_directory_symlink(fs::absolute(stock / "bin"), tree.root() / "bin");
    fs::copy(stock / "config", tree.root() / "config", fs::copy_options::recursive);
    fs::copy_file(stock / "config/evolve/Summer storm.rvf", tree.root() / "evo.ini");

    RenderOptions o;
    o.scenario = "Summer Storm";
    o.lengthMs = static_cast<std::int64_t>(minutes) * 60'000;
    o.weather = true;
    o.night = true;
    o.equalizer = true;
    o.reverb = true;
    o.fadeIn = true;
    o.fadeOut = true;
    o.format = kind == "wav"   ? SoundFileFormat::Wav16
               : kind == "ogg" ? SoundFileFormat::OggVorbis
                               : SoundFileFormat::Flac16;
    o.file = tree.root() / ("render." + kind);

    std::vector<double> seconds;
    for (int r = 0; r < runs; ++r) {
        RenderProgress progress;
        const auto start = std::chrono::steady_clock::now();
        const RenderResult result = renderScenario(AppPath(tree.root()), o, progress);
        const double s =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        if (result.outcome != RenderResult::Outcome::Done) {
            std::printf("render failed: %s\n", result.error.c_str());
            return 1;
        }
        seconds.push_back(s);
        std::printf(
            "run %d: %d min of %s to %s in %.2f s (%.0f times real time), %.1f MB, "
            "%.1f LUFS\n",
            r + 1, minutes, o.scenario.c_str(), kind.c_str(), s, minutes * 60.0 / s,
            static_cast<double>(fs::file_size(o.file)) / 1e6, result.loudness.value_or(-999.0));
    }
    std::sort(seconds.begin(), seconds.end());
    std::printf(
        "render: min %.2f s, median %.2f s, max %.2f s for %d min (goal for 60 min: "
        "under 30 s)\n",
        seconds.front(), seconds[seconds.size() / 2], seconds.back(), minutes);
    if (const char* keep = std::getenv("BREVANE_KEEP_RENDER")) {
        fs::copy_file(o.file, keep, fs::copy_options::overwrite_existing);
    }
    return 0;
}
