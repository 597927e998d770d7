#pragma once
// Reading back what the recorder wrote, and a tree for it to render.

#include <sndfile.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/scratch_tree.h"
#include "base/temp_tree.h"

namespace brevane::test {

struct ReadBack {
    int format = 0;  // SF_FORMAT_* major type
    int channels = 0;
    int rate = 0;
    std::vector<float> samples;  // interleaved
};

inline ReadBack readBack(const std::filesystem::path& file) {
    SF_INFO info{};
    ReadBack r;
    SNDFILE* f = sf_open(file.c_str(), SFM_READ, &info);
    if (f == nullptr) {
        return r;
    }
    r.format = info.format & SF_FORMAT_TYPEMASK;
    r.channels = info.channels;
    r.rate = info.samplerate;
    r.samples.resize(static_cast<std::size_t>(info.frames * info.channels));
    sf_readf_float(f, r.samples.data(), info.frames);
    sf_close(f);
    return r;
}

// A program tree of the stock sounds (linked from the build) and the stock scenarios and
// presets (copied from the generator's output), with the weather set as "Summer storm".
class StockTree : public TempTree {
  public:
    StockTree() {
        namespace fs = std::filesystem;
        fs::create_directory_symlink(fs::path(BREVANE_TREE_DIR) / "bin", root() / "bin");
        fs::copy(fs::path(BREVANE_STOCK_SCENARIOS_DIR) / "config", root() / "config",
                 fs::copy_options::recursive);
        fs::copy_file(root() / "config/evolve/Summer storm.rvf", root() / "evo.ini");
    }
};

}  // namespace brevane::test
