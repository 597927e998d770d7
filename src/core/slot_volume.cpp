#include "core/slot_volume.h"

#include <cmath>
#include <limits>

namespace brevane {

int slotVolumeWithFactor(int master, int group, double slotFactor) {
    const double c = (static_cast<double>(group) / 6.0 / 100.0) * slotFactor;
    const double volume = static_cast<double>(master) * c;
    // nearbyint rounds in the current mode, which the program never leaves: to
    // nearest, halves to even.
    const double rounded = std::nearbyint(volume);
    // Slider ranges keep the value small; the bounds only keep a bad caller defined.
    if (!(rounded > static_cast<double>(std::numeric_limits<int>::min()))) {
        return std::numeric_limits<int>::min();
    }
    if (rounded >= static_cast<double>(std::numeric_limits<int>::max())) {
        return std::numeric_limits<int>::max();
    }
    return static_cast<int>(rounded);
}

int slotVolume(int master, int group, int slot) {
    return slotVolumeWithFactor(master, group, static_cast<double>(slot) / 14.0);
}

}  // namespace brevane
