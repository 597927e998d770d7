#pragma once
// The stock brainwave presets (config/bwaves/<name>.rvf) as recipes: the base and beat
// the tones start from and, for a glide, where they go and in how many minutes. Base is
// in the panel's units (value / 10000 on the display), beat in thousandths of a hertz.

#include <string>
#include <vector>

namespace brevane::stock {

struct BrainwavePreset {
    std::string name;
    int baseStart = 200000;
    int beatStart = 3000;
    // A glide of the base or the beat: its end and its minutes (one of the panel's list).
    bool baseGlide = false;
    int baseEnd = 200000;
    const char* baseMinutes = "1";
    bool beatGlide = false;
    int beatEnd = 3000;
    const char* beatMinutes = "1";
};

// "Default" first.
const std::vector<BrainwavePreset>& brainwavePresets();

}  // namespace brevane::stock
