#pragma once
// The stock scenarios and the stock preset list, as recipes: which loops play and how
// they wander, which one-shots fire and how often, and the two group levels. The
// generator (scenariogen) applies each recipe to a headless program through the same
// controls a hand moves and saves it with the console's own writers, so the files stay
// right whenever a panel's record changes.

#include <array>
#include <string>
#include <vector>

namespace brevane::stock {

// A loop of background bank one (frmback: bin/1.isz to bin/17.isz) or two (frmback2:
// bin/51.isz to bin/67.isz), by row 1 to 17.
struct Loop {
    int bank = 1;  // 1 or 2
    int slot = 1;  // 1 to 17
    // Volume, 0 to 255: where the loop starts before it wanders.
    int volume = 180;
    // Volume Range, 0 to 250, low <= high: the levels the drift wanders between.
    int low = 120;
    int high = 200;
    // Rate Of Change, 0 to 999: one step every (1000 - rate) x 5 ms; 0 holds the level.
    int rate = 800;
    // L / R Balance, 0 (left) to 255 (right); 128 is the middle.
    int balance = 128;
};

// A one-shot of random bank 1 (bin/101-128.raz), 2 (bin/51-78.raz), 3 (bin/151-178.raz)
// or 4 (bin/201-228.raz), by slot 1 to 28.
struct Shot {
    int bank = 1;       // 1 to 4
    int slot = 1;       // 1 to 28
    int frequency = 0;  // 0 to 255: 255 fires about once a minute, 130 once in two, <= 5 never
    int volume = 220;   // 0 to 255
};

struct Scenario {
    std::string name;
    // The information text shown beside the scenario list; lines end in "\n".
    std::string information;
    // The console's Background and Random group sliders, 1 to 100.
    int background = 80;
    int random = 80;
    std::vector<Loop> loops;
    std::vector<Shot> shots;
};

// Every stock scenario, "Summer Storm" first: it is also the soundscape of the first run.
const std::vector<Scenario>& scenarios();

// The stock preset list: its name (the file config/presets/<name>.pst) and the fourteen
// scenario names on the buttons 0 to 13, each one of scenarios().
struct PresetList {
    std::string name;
    std::array<std::string, 14> captions;
};
const PresetList& presetList();

}  // namespace brevane::stock
