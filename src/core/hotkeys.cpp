#include "core/hotkeys.h"

#include "core/application.h"

namespace brevane {

const std::vector<Hotkey>& programHotkeys() {
    static const std::vector<Hotkey> keys = {
        {"Ctrl+1", "Show Background 1",
         [](Application& a) { a.frmmain.background1Button.click(); }},
        {"Ctrl+2", "Show Background 2",
         [](Application& a) { a.frmmain.background2Button.click(); }},
        {"Ctrl+3", "Show Custom Background",
         [](Application& a) { a.frmmain.customBackgroundButton.click(); }},
        {"Ctrl+R", "Show the random bank", [](Application& a) { a.frmmain.randomButton.click(); }},
        {"Ctrl+I", "Identify playing sounds",
         [](Application& a) { a.frmmain.identifyButton.click(); }},
        {"Ctrl+Up", "Master volume up",
         [](Application& a) { a.frmmain.Master.setValue(a.frmmain.Master.value() + 1); }},
        {"Ctrl+Down", "Master volume down",
         [](Application& a) { a.frmmain.Master.setValue(a.frmmain.Master.value() - 1); }},
        {"Ctrl+Shift+S", "Master Stop", [](Application& a) { a.frmmain.masterStopButton.click(); }},
        {"Ctrl+O", "Options", [](Application& a) { a.FRMOPTIONS.window.show(); }},
        {"Ctrl+Q", "Quit", [](Application& a) { a.frmmain.QuitCommand.click(); }},
    };
    return keys;
}

std::string hotkeyLine(const Hotkey& key) {
    std::string line = key.keys;
    // Keys in a column of their own, as far as a list box without tab stops allows.
    line.resize(std::max<std::size_t>(line.size() + 2, 16), ' ');
    return line + key.action;
}

}  // namespace brevane
