// The stock brainwave presets: a steady beat in each range a listener looks for, and two
// glides from one range to another.

#include "stock_brainwaves.h"

namespace brevane::stock {

const std::vector<BrainwavePreset>& brainwavePresets() {
    static const std::vector<BrainwavePreset> all = {
        // The panel as it comes: a 3 Hz delta beat on the lowest base.
        {.name = "Default"},
        {.name = "Deep sleep (delta)", .baseStart = 200000, .beatStart = 2500},
        {.name = "Meditation (theta)", .baseStart = 220000, .beatStart = 6000},
        {.name = "Relaxation (alpha)", .baseStart = 250000, .beatStart = 11000},
        {.name = "Focus (beta)", .baseStart = 300000, .beatStart = 15000},
        // From a calm alpha down to delta over half an hour, the base settling too.
        {.name = "Wind down to sleep",
         .baseStart = 250000,
         .beatStart = 10000,
         .baseGlide = true,
         .baseEnd = 200000,
         .baseMinutes = "30",
         .beatGlide = true,
         .beatEnd = 3000,
         .beatMinutes = "30"},
        // From theta up to beta in a quarter of an hour, the base rising with it.
        {.name = "Wake up",
         .baseStart = 200000,
         .beatStart = 6000,
         .baseGlide = true,
         .baseEnd = 300000,
         .baseMinutes = "15",
         .beatGlide = true,
         .beatEnd = 14000,
         .beatMinutes = "15"},
    };
    return all;
}

}  // namespace brevane::stock
