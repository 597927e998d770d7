#pragma once
// The MP3 player beside the soundscape: frmmainmp3, the transport with its display, and
// frmList, the playlist docked under it, with Formmp3adddir, its folder chooser.
//
// The player plays one file at a time through the engine's music bus (any format FFmpeg
// reads, though the dialogs lead with MP3). Its volume is the bus's, in hundredths of a
// decibel, from its own slider and the console's MP3 group, which mirror each other.
//
// The two lists. List2 holds the full paths, what is played and saved; List1 the same
// entries as shown, the bare name with ".mp3". List1's selection leads; the player
// copies it to List2 before it reads a path.
//
// Not thread-safe: the panels live on the event thread. The end of a track reaches the
// player through its watch timer, which asks the bus whether it ended while a track plays.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/controls.h"
#include "base/event_loop.h"
#include "base/settings_store.h"
#include "core/lcd_display.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;
class MediaPlayer;

// The player's volume in hundredths of a decibel: hscroll1 / (100 / mix) - 5000, where
// mix is the console's MP3 group as a percentage of its range (its 0 to 5000 read as 0
// to 100 %). Held to the bus's range; a group at 0 is silence.
int mp3ControlVolume(int hscroll, int groupValue);
// "m:ss" as the time display writes it: whole minutes, then ":0" and seconds under 10 or
// ":" and the seconds. A position of exactly -1 shows 0 seconds.
std::string mp3TimeText(double seconds);
// The name List1 shows for a path: the bare name with ".mp3".
std::string mp3ShownName(const std::string& path);

class FrmList {
  public:
    static constexpr const char* kSessionFile = "mp3.tmp";
    static constexpr const char* kPlaylistFolder = "config/mp3playlists";
    // The dialogs lead with MP3; the second entry says what else plays.
    static constexpr const char* kFileFilter =
        "MP3 Files|*.mp3|Other sound files (Ogg, FLAC, M4A, Opus, WAV)|"
        "*.ogg;*.oga;*.flac;*.m4a;*.opus;*.wav";
    static constexpr const char* kLoadFilter = "Playlist Files|*.plf";
    static constexpr const char* kSaveFilter = "Playlist Files (*.plf)|*.plf";
    static constexpr const char* kLoadTitle = "Load PlayList";
    static constexpr const char* kNoSelectionText = "No File Was Selected";
    static constexpr const char* kSaveFailedText = "There was a problem saving this playlist.";

    explicit FrmList(Application& app);
    FrmList(const FrmList&) = delete;
    FrmList& operator=(const FrmList&) = delete;

    PanelWindow window;
    PanelColours colours{window, [this] { docolors(); }};
    ListBox List1;             // shown names
    ListBox List2;             // full paths
    CommandButton fileButton;  // "File"
    CommandButton dirButton;   // "Dir"
    CommandButton selButton;   // "Sel"
    CommandButton allButton;   // "All"
    CommandButton loadButton;  // "Loa"
    CommandButton saveButton;  // "Sav"

    // Restores mp3.tmp; the unload writes it back.
    void load();
    void unload();
    // Paints the window (and the player's display) in the program's scheme.
    void docolors();

    void addFile();
    void removeSelected();
    void removeAll();
    void loadPlaylist();
    void savePlaylist();
    // A double click on List1's entry `index`.
    void activate(int index);

    // One entry into both lists.
    void List_Add(const std::string& path);
    // Both lists from the lines of `file`, appended, no selection; false when unreadable.
    bool List_Load(const std::filesystem::path& file);
    // List2 line by line; false on failure.
    bool List_Save(const std::filesystem::path& file) const;

  private:
    Application& app_;
};

// Formmp3adddir: a folder and its sound files; confirm adds them all to the playlist.
class Mp3FolderPanel {
  public:
    static constexpr const char* kSettingsSection = "Settings6";
    static constexpr const char* kNoFilesText =
        "There were no files found in the specified folder.";

    explicit Mp3FolderPanel(Application& app);

    PanelWindow window;
    PanelColours colours{window, [this] { docolors(); }};
    Label folderLabel;
    Label filesLabel;
    TextBox Dir1;   // the folder
    ListBox File1;  // its files
    CommandButton browseButton;
    CommandButton okButton;
    CommandButton cancelButton;
    std::optional<WindowPosition> position;

    void load();
    void unload();
    // Paints the window (and the player's display) in the program's scheme.
    void docolors();
    void open();
    void confirm();

  private:
    void listFiles();
    Application& app_;
};

class Frmmainmp3 {
  public:
    static constexpr int kClockMs = 1000;
    // How often the player asks the bus whether its track ended.
    static constexpr int kWatchMs = 100;
    static constexpr const char* kSettingsSection = "Settings21";
    static constexpr const char* kNoTrackText = "No Track";
    static constexpr const char* kNotFoundText = "This File Could Not Be Found.";
    static constexpr const char* kPlayErrorText = "There was an error attempting to play this MP3.";
    static constexpr const char* kOpenFilter = "MP3 Files|*.mp3";

    explicit Frmmainmp3(Application& app);
    Frmmainmp3(const Frmmainmp3&) = delete;
    Frmmainmp3& operator=(const Frmmainmp3&) = delete;

    PanelWindow window;
    PanelColours colours{window, [this] { docolors(); }};
    LcdDisplay LCD1;  // line 1 the track, line 3 the time
    CommandButton cmdplay;
    CommandButton command7;  // pause
    CommandButton Command3;  // next
    CommandButton command4;  // previous
    CommandButton COMMAND5;  // open
    CommandButton closeButton;
    CheckBox Check1;                 // "Playlist"
    CheckBox optrnd;                 // "Random"
    Slider Slider1{0, 0, 0};         // position, whole seconds
    Slider hscroll1{1, 5000, 2500};  // volume
    Label lblTime;
    TextBox Text1;
    TextBox TxtTime;
    Timer Timer1;
    Timer watch;
    bool panelOpen = false;
    std::optional<WindowPosition> position;

    FrmList frmList;
    Mp3FolderPanel Formmp3adddir;

    void load();
    void unload();
    // Paints the window (and the player's display) in the program's scheme.
    void docolors();
    // Shows the player (the console's "MP3").
    void open();

    void play();
    void pause();
    void next();
    void previous();
    void openFile();
    // The end-of-stream event.
    void trackEnded();
    // Timer1: the time display.
    void tick();
    void applyVolume();
    // Whether the music bus plays this player's file (the CD player may have taken it).
    bool holdsBus() const;

    // Sets the player's file to List2's selected path; false when it does not open.
    bool setFile();
    // Writes the shown name on line 1 of the display and the remote's label.
    void showName(const std::string& name);
    // The slider's top to the track's length in whole seconds.
    void takeDuration();

  private:
    void step(int by);
    MediaPlayer* player() const;
    // The random draw at a track's end starts from a seed taken from the loop's clock.
    void reseed();
    Application& app_;
    std::uint64_t busSerial_ = 0;
    // Timer1 is moving the position slider to where play stands: no seek.
    bool following_ = false;
};

}  // namespace brevane
