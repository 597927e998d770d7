#pragma once
// The stock effects presets: equalizer curves (config/fx/EQ Presets/<name>.eqf) as the ten
// band sliders, 15 flat, and rooms (config/fx/Reverb Presets/<name>.rvf) as reverb sliders
// 0 to 14 in the panel's units.

#include <array>
#include <string>
#include <vector>

namespace brevane::stock {

struct EqPreset {
    std::string name;
    std::array<int, 10> bands;
};

struct ReverbPreset {
    std::string name;
    std::array<int, 15> sliders;
};

// "Flat" first.
const std::vector<EqPreset>& eqPresets();
// "Default" first: the panel's own defaults.
const std::vector<ReverbPreset>& reverbPresets();

}  // namespace brevane::stock
