#pragma once
// The program's keys: one table that the options panel lists on its "Hotkeys" page
// and the interface binds, so the two never disagree. Every key works from any of
// the program's windows.
//
// Keys are written in the portable form the interface reads ("Ctrl+Q"). Each action
// acts through the same controls a hand would use.

#include <functional>
#include <string>
#include <vector>

namespace brevane {

class Application;

struct Hotkey {
    std::string keys;
    std::string action;
    std::function<void(Application&)> run;
};

const std::vector<Hotkey>& programHotkeys();

// "Ctrl+Q    Quit": one line of the "Hotkeys" page.
std::string hotkeyLine(const Hotkey& key);

}  // namespace brevane
