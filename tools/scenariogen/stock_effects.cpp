// The stock effects presets: gentle curves for listening for hours, and rooms from a small
// room to a canyon. Reverb sliders, in order: Room, RoomHF, (spare), (spare), Roll off
// Factor, (spare), Decay Time (1/100 s), Decay HF Ratio (1/100), Reflections (level +
// 10000 mB), Reflections Delay (ms), Reverb, Reverb Delay (ms), Diffusion, Density, HF
// Reference (Hz).

#include "stock_effects.h"

namespace brevane::stock {

const std::vector<EqPreset>& eqPresets() {
    static const std::vector<EqPreset> all = {
        {"Flat", {15, 15, 15, 15, 15, 15, 15, 15, 15, 15}},
        // A little more body, the top softened.
        {"Warm", {18, 18, 17, 16, 15, 14, 13, 12, 12, 12}},
        // Air and detail for rain and birdsong.
        {"Bright", {14, 14, 15, 15, 15, 16, 17, 18, 19, 19}},
        // Small speakers cannot move the lowest bands: take them out before they rattle.
        {"Bass cut for speakers", {3, 7, 12, 15, 15, 15, 15, 15, 15, 15}},
        // For falling asleep: the hiss and the sharp edges gone, the low rumble kept.
        {"Sleep (soft highs)", {16, 16, 15, 15, 14, 11, 8, 5, 3, 2}},
    };
    return all;
}

const std::vector<ReverbPreset>& reverbPresets() {
    static const std::vector<ReverbPreset> all = {
        {"Default", {9000, 10000, 83, 83, 10, 83, 20, 83, 7398, 7, 11, 1, 100, 100, 5000}},
        {"Small room", {8600, 9000, 83, 83, 10, 83, 40, 83, 7500, 2, 0, 3, 100, 100, 5000}},
        {"Hall", {8800, 9400, 83, 83, 10, 83, 100, 70, 7000, 20, 20, 30, 100, 100, 5000}},
        {"Cathedral", {9000, 9200, 83, 83, 10, 83, 100, 60, 6600, 30, 60, 60, 100, 100, 4000}},
        {"Cave", {9200, 8200, 83, 83, 10, 83, 100, 40, 7800, 15, 50, 25, 80, 70, 3000}},
        {"Forest clearing", {7500, 8400, 83, 83, 10, 83, 60, 50, 6000, 40, 0, 50, 40, 40, 4000}},
        {"Canyon", {8200, 8800, 83, 83, 10, 83, 100, 50, 5000, 300, 10, 100, 20, 30, 5000}},
    };
    return all;
}

}  // namespace brevane::stock
