#pragma once
// Form2, "Select Sounds": fills a custom bank from the user's sound folders in one go.
//
// The custom background bank opens it in "Back" mode, the custom random bank in
// "Random" mode. The folder view may only stand inside the mode's sound folder
// (soundbanks/background sounds or soundbanks/random sounds); a folder outside is
// refused with a message and the view goes back to that root. The files of the folder
// are added to two lists kept in step, the names shown under "Files to be loaded" and
// their full paths; "Load Files" hands the paths to the bank's bulk load, which loads
// them into its slots from the first on.
//
// Limits: "+ Selected" stops at 16 rows in "Back" mode and 28 in "Random" mode, while
// "+ All" takes the first 17 or 28 files of the folder: the bank has 17 slots but the
// message has always said 16, and the panel keeps both.
//
// Each mode's last folder is kept in dirs.ini, and the window's position in the
// settings store, section "Settings3".
//
// Not thread-safe: a panel lives on the event thread.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/controls.h"
#include "base/settings_store.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

enum class SelectionMode { Back, Random };

class SelectSoundsPanel {
  public:
    static constexpr const char* kSettingsSection = "Settings3";
    static constexpr const char* kDirsFile = "dirs.ini";
    // The files a folder shows: the kept three, and the other formats the engine
    // decodes.
    static constexpr const char* kFilePattern =
        "*.mp3;*.ogg;*.wav;*.wma;*.flac;*.opus;*.m4a;*.aif;*.aiff";
    static constexpr int kBackSelectedLimit = 16;
    static constexpr int kBackAllLimit = 17;
    static constexpr int kRandomLimit = 28;

    explicit SelectSoundsPanel(Application& app);

    PanelWindow window;
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();

    // The folder the view stands in, as a full path. Setting it applies the folder
    // rule; the file view follows.
    TextBox folderView;
    // The files of the folder, by name, sorted as a person reads numbers.
    ListBox fileView;
    // Rows of the file view chosen for "+ Selected", in order.
    std::vector<int> selectedFiles;
    // "Files to be loaded" and the paths of the same rows.
    ListBox fileNames;
    ListBox filePaths;
    Label note;
    Label listCaption;

    CommandButton addAll;
    CommandButton addSelected;
    CommandButton moveUp;
    CommandButton moveDown;
    CommandButton remove;
    CommandButton clear;
    CommandButton loadFiles;
    CommandButton close;

    std::optional<WindowPosition> position;

    SelectionMode mode() const { return mode_; }
    // The opening by a custom bank.
    void open(SelectionMode mode);
    void load();
    void unload();

    // A double click on a file of the file view, and on a row of the list.
    void addFile(int fileRow);
    void removeRow(int row);

    // The mode's sound folder, and each mode's last folder as dirs.ini keeps them.
    std::filesystem::path modeRoot() const;
    std::string backgroundFolder;
    std::string randomFolder;

  private:
    void folderChanged();
    void readDirs();
    void writeDirs() const;
    int selectedLimit() const;
    bool atLimit();
    void addPath(const std::filesystem::path& file);
    void moveRow(int from, int to);
    void doLoadFiles();

    Application& app_;
    SelectionMode mode_ = SelectionMode::Random;
    bool settingFolder_ = false;
};

}  // namespace brevane
