#pragma once
// The scheduler ("Scheduler"): changes the running scenario without the user, at chosen
// times of day or every few minutes from a playlist. It owns no sound: every change is
// one scenario load by bare name, as a click on the scenario list would make it. It runs
// from start to end, shown or not.
//
// Three modes, one view each: Disable Scheduling (a plain page), Time Of Day (eight
// rows, each a scenario and an exact "HH:MM:SS") and Playlist Mode (a list and an
// interval).
//
// Kept as the scheduler has always behaved:
// - a row compares the clock with its armed time, which only a change of the time text
//   writes: a row restored with "00:00:00" never fires until its time is edited;
// - the interval counts bare minutes: "6 Hr" changes the scenario every 6 minutes, while
//   the status shows ">1Hr";
// - sequential stepping restarts at the list's second entry after the first pass, and
//   random stepping never draws the last entry;
// - "Del" removes the entry from the shown list only, so the list that is loaded from
//   runs out of step with it;
// - the reserved pair of option buttons on each row is kept in the settings and read by
//   nothing.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "base/controls.h"
#include "base/event_loop.h"
#include "base/settings_store.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

// One day-time row.
struct ScheduleRow {
    static constexpr const char* kNotSelected = "Not Selected";
    static constexpr const char* kMidnight = "00:00:00";

    CheckBox enabled;  // "Enable this timer"
    TextBox scenario;  // a bare scenario name
    TextBox time;      // the exact clock text, never checked
    CommandButton browse;
    // The text the clock is compared with: written by each change of the time text,
    // and by nothing else.
    std::string armedTime;
    OptionGroup reserved;
    OptionButton reservedA;
    OptionButton reservedB;
};

// The folder chooser of "+ Dir": a folder and the scenario files in it.
class ScenarioFolderPanel {
  public:
    static constexpr const char* kSettingsSection = "Settings7";
    static constexpr const char* kNoFilesText = "No Files Were Found In The Specified Folder.";

    explicit ScenarioFolderPanel(Application& app);

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();
    Label folderLabel;  // "Select the directory containing your scenario files:"
    Label filesLabel;   // "Scenario files contained in selected folder:"
    TextBox Dir1;       // the folder, a full path
    ListBox File1;      // its *.scn files, by name
    CommandButton okButton;
    CommandButton cancelButton;
    std::optional<WindowPosition> position;

    void load();
    void unload();
    // Opens at the stock scenarios.
    void open();
    // Appends every file of the list to the scheduler's two lists.
    void confirm();

  private:
    void listFiles();
    Application& app_;
};

class SchedulerPanel {
  public:
    static constexpr int kRows = 8;
    static constexpr int kClockMs = 1000;
    static constexpr int kIntervalMs = 60 * 1000;
    static constexpr const char* kSessionFile = "Timersettings.tmp";
    static constexpr const char* kPathListFile = "Timersettings2.tmp";
    static constexpr const char* kSettingsSection = "Settings26";
    static constexpr const char* kScheduleFolder = "config/scheduler/savedschedules";
    static constexpr const char* kPlaylistFolder = "config/scheduler/scenarioplaylists";
    static constexpr const char* kScheduleFilter = "Schedule Files (*.sch)| *.sch";
    static constexpr const char* kPlaylistFilter = "Scenario Playlist (*.scp)| *.scp";
    static constexpr const char* kPlaylistExtension = ".scp";
    static constexpr const char* kUnnamedPlaylist = "Not Named";
    static constexpr const char* kResetQuestion =
        "This will reset all settings on this form. Do you wish to continue?";
    static constexpr const char* kClearQuestion = "Confirm clear";
    static constexpr const char* kEmptyPlaylistText =
        "Please add one or more scenario files to the list, or select the 'Disable "
        "Scheduling' option.";
    static constexpr const char* kUnreadableScheduleText =
        "This schedule could not be read: it is damaged or not a schedule file.";

    explicit SchedulerPanel(Application& app);
    SchedulerPanel(const SchedulerPanel&) = delete;
    SchedulerPanel& operator=(const SchedulerPanel&) = delete;

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();

    OptionGroup modes;
    OptionButton Optionex1;  // "Disable Scheduling"
    OptionButton Optionex2;  // "Time Of Day mode ( Change scenario at chosen times )"
    OptionButton Optionex3;  // "Playlist Mode ( Change scenario at a specified interval )"

    // The three views; one is shown at a time.
    Control plainView;
    Control timeTable;
    Control playlistView;

    std::array<ScheduleRow, kRows> rows;
    CommandButton loadScheduleButton;  // "Load"
    CommandButton saveScheduleButton;  // "Save"
    CommandButton resetButton;         // "Reset"

    ListBox ScenarioDisplayList;       // file names with their extension
    ListBox ScenarioPathList;          // what a change loads from, index for index
    CheckBox Check9;                   // "Use Random Order"
    ComboBox Combo1;                   // the interval
    Label playlistName;                // beside "Current Playlist:"
    CommandButton addFileButton;       // "+ File"
    CommandButton addFolderButton;     // "+ Dir"
    CommandButton clearButton;         // "Clear"
    CommandButton deleteButton;        // "Del"
    CommandButton upButton;            // "Up"
    CommandButton downButton;          // "Dn"
    CommandButton loadPlaylistButton;  // "Load"
    CommandButton savePlaylistButton;  // "Save"

    CommandButton closePlainButton;     // "Close" of the plain view
    CommandButton closeTableButton;     // "Close" of the time table
    CommandButton closePlaylistButton;  // "Close" of the playlist view

    Timer Timer1;         // the time of day, each second
    Timer Timerinterval;  // the playlist, each minute

    // Minutes since the last playlist change; the change comes at the threshold.
    int counter = 0;
    int threshold = 0;
    // The threshold in minutes as the status shows it ("Hr" times sixty).
    int displayMinutes = 0;
    // Set while the window is open; the colour scheme reads it.
    bool panelOpen = false;
    // The last name GetFileName gave.
    std::string currentFileName;
    // "Auto" once the scheduler has loaded a scenario; nothing reads it.
    std::string loadMode;

    std::optional<WindowPosition> position;

    // Panel creation, hidden: both lists and the settings of the last session.
    void load();
    // Program end: the position and both settings files.
    void unload();
    // The console's "Schedule".
    void show();

    void disableScheduling();
    void timeOfDayMode();
    void playlistMode();
    void parseInterval();
    void refreshStatus();

    void clockTick();
    void intervalTick();

    // Loads `name` unless it is "Not Selected".
    void doloadroutine(const std::string& name);
    // The text after the last separator, cut at its first '.'; kept in currentFileName.
    std::string GetFileName(const std::string& path);

    void browse(int row);
    void loadSchedule();
    void saveSchedule();
    void reset();
    void addFile();
    void clearList();
    void deleteEntry();
    void moveEntry(int by);
    // A double click on the shown list: that entry loads now.
    void playEntry(int index);
    void loadPlaylist();
    void savePlaylist();
    void closeView();
    // The window's frame closed: the Close of the view on show.
    void closeWindow();

    // Whether a change of scenario is still to come: a row that can fire, or a playlist
    // that runs.
    bool changeDue() const;

    // The selection panel of "+ Dir" adds through here: a name to the shown list, its
    // full path to the other.
    void appendEntry(const std::string& shownName, const std::string& path);

  private:
    void setMode(OptionButton& mode);
    void readPathList();
    void readSession();
    void writeSession();
    void readScheduleFields(const std::string& content);
    void remoteLabel(std::string text);
    void keepAwake();
    std::optional<std::filesystem::path> chooseFile(const char* title, const char* folder,
                                                    const char* filter, bool save = false);

    Application& app_;
};

}  // namespace brevane
