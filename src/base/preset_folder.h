#pragma once
// Folders of small named files (scenarios, presets): the names a list shows, and the
// Previous and Next buttons every preset list steps with.

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/controls.h"

namespace brevane {

// The regular files of `folder` whose extension is `extension` (".rvf", any case), each
// without its last four characters, in the order a file manager lists them. A missing
// folder gives none.
std::vector<std::string> folderNames(const std::filesystem::path& folder,
                                     std::string_view extension);

// Replaces the entries of `list` with `names`.
void fillList(ListControl& list, const std::vector<std::string>& names);

// Previous: from the first entry the box goes to the last and then one back, so it
// lands on the last but one; with a single entry the selection clears.
void stepPrevious(ComboBox& box);
// Next: an empty box, or the last entry, goes to the first and then one on, so it lands
// on the second.
void stepNext(ComboBox& box);

}  // namespace brevane

namespace brevane {

class Dialogs;

// The texts of a panel's preset commands; the generator panels share these.
struct PresetTexts {
    const char* loadProblem = "There was a problem loading the preset";
    const char* overwrite = "This will overwrite the current preset. Continue?";
    const char* namePrompt = "Please type a name to identify this configuration";
    const char* defaultUndeletable = "The default preset cannot be deleted";
    const char* deleteQuestion = "This will delete the current preset. Continue?";
    const char* deleteFailed = "The Preset Could Not Be Deleted";
    const char* restoreDefaults =
        "This will restore all settings on this panel to their defaults. Do you wish to "
        "continue?";
    const char* noneSelected = "No Preset Selected";
    const char* defaultName = "Default";
};

// A panel's presets: a folder of files of one extension, a box listing them, and the
// commands every such panel has. The panel supplies its record's writer and reader and
// its own texts; selecting an entry in the box loads it.
class PresetFolder {
  public:
    PresetFolder(Dialogs& dialogs, std::filesystem::path folder, std::string extension,
                 ComboBox& box, PresetTexts texts = {});

    // Writes the panel's record to a file; false when it cannot.
    std::function<bool(const std::filesystem::path&)> write;
    // Reads a preset file and applies it; false, changing nothing, when it cannot.
    std::function<bool(const std::filesystem::path&)> read;

    std::filesystem::path file(const std::string& name) const;
    const char* defaultName() const { return texts_.defaultName; }
    // The box's entries from the folder; the box's text stays.
    void refill();
    // The entry selected in the box is read; a failure says so.
    void loadSelected();
    // "Save": over the preset the box names, after asking; with no name, as Save As.
    void save();
    // "Save As": asks for a name, writes, and lists it.
    void saveAs();
    // "Delete": the preset the box names, after asking; the default is kept, and a box
    // naming none says so.
    void remove();
    // "Defaults": after asking, the default preset is selected and so loaded.
    void restoreDefaults();

  private:
    Dialogs& dialogs_;
    std::filesystem::path folder_;
    std::string extension_;
    ComboBox& box_;
    PresetTexts texts_;
};

}  // namespace brevane
