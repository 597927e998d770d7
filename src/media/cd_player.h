#pragma once
// The CD player beside the soundscape: frmcd, its transport and display, and CdDeck,
// the device it commands.
//
// The disc plays through the engine's music bus, the one the MP3 player uses: the bus's
// decoder thread reads the sectors, never the mixing thread. The two players share the
// bus; the last to start holds it, and the other finds it gone by its source serial.
//
// Not thread-safe: the panel and the deck live on the event thread.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/controls.h"
#include "base/event_loop.h"
#include "base/settings_store.h"
#include "core/lcd_display.h"
#include "media/cd_drive.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;
class FrameSource;
class MediaPlayer;

// The CD line's level, 0 to 100 %, as the bus's volume in hundredths of a decibel: the
// level is the line's amplitude, so 50 % is about -6 dB; 0 is silence.
int cdLineVolume(int percent);
// "[tt] mm:ss", as the player's display shows a place on the disc.
std::string cdPositionText(int track, int minutes, int seconds);

// The audio of a disc from `firstSector` up to `endSector`, as the bus reads it.
std::unique_ptr<FrameSource> makeCdDiscSource(std::unique_ptr<CdSectorReader> reader,
                                              std::int32_t firstSector, std::int32_t endSector);

// The open drive and where play stands on its disc. Play runs from the first audio
// track through the last, as a disc plays in a hi-fi; a place is a track and the time
// into it.
class CdDeck {
  public:
    struct Position {
        int track = 0;
        int minutes = 0;
        int seconds = 0;
    };

    // `bus` gives the engine's music bus, null where the engine has none.
    explicit CdDeck(std::function<MediaPlayer*()> bus);

    // Opens the drive `name`, stopped at the first track; false when it does not open.
    bool open(CdDrives& drives, const std::string& name);
    // Stops, and lets the drive go.
    void close();

    bool mediaPresent();
    // Starts (or resumes) play where the deck stands; false without a playable disc.
    bool play();
    void pause();
    // Stops and goes back to the start of the first track.
    void stop();
    // Stops and opens the door.
    void eject();
    bool playing() const;
    int trackCount();
    // The track play stands in; 0 without a disc.
    int currentTrack();
    // Plays from the start of track `number`.
    void playFrom(int number);
    // Stands at the start of track `number`, playing on if it was playing.
    void seekTo(int number);
    std::optional<Position> position();

    // The CD line, 0 to 100 %: the level the disc plays at.
    int level() const { return level_; }
    void setLevel(int percent);

  private:
    // The bus while it still plays this deck's disc, else null.
    MediaPlayer* held() const;
    // The disc's audio from the drive onto the bus, at the deck's place; the bus, or
    // null when the disc does not read.
    MediaPlayer* load();
    void readTracks();
    // Seconds from the start of the first track to where the deck stands.
    double placeSeconds() const;
    void setPlace(double seconds);

    std::function<MediaPlayer*()> bus_;
    std::unique_ptr<CdDrive> drive_;
    std::vector<CdTrack> tracks_;
    std::uint64_t serial_ = 0;
    bool loaded_ = false;
    // The place while the bus is not this deck's.
    double cued_ = 0.0;
    int level_ = 100;
};

class Frmcd {
  public:
    static constexpr int kClockMs = 1000;
    static constexpr const char* kSettingsSection = "Settings12";
    static constexpr const char* kNoDriveTitle = "No CD Drive Detected.";
    static constexpr const char* kNoDriveText =
        "\nNo CD-Rom Drives were detected on your system. The CD player has been disabled.";
    static constexpr const char* kStoppedText = "CD Stopped";
    static constexpr const char* kEjectedText = "CD Ejected";
    static constexpr const char* kNoCdText = "No CD Found";
    static constexpr const char* kDrivePrefix = "Current Drive = ";
    static constexpr const char* kVolumePrefix = "CD Volume: ";

    Frmcd(Application& app, CdDrives& drives);
    Frmcd(const Frmcd&) = delete;
    Frmcd& operator=(const Frmcd&) = delete;

    PanelWindow window;
    PanelColours colours{window, [this] { docolors(); }};
    LcdDisplay LCD1;  // line 1 status and time, line 2 the drive, line 3 the volume
    CommandButton cmdplay;
    CommandButton cmdpause;
    CommandButton cmdstop;
    CommandButton cmdeject;
    CommandButton cmdnext;
    CommandButton cmdprevious;
    CommandButton closeButton;
    ComboBox Combo1;  // the drives
    Slider hscroll1{0, 100, 100};
    Timer Timer1;
    bool panelOpen = false;
    std::optional<WindowPosition> position;

    CdDeck deck;

    // Finds the drives and opens the first.
    void load();
    // Closes the drive.
    void unload();
    // Paints the window and its display in the program's scheme.
    void docolors();
    // The console's CD button: shows the player, or says there is no drive.
    void open();

    void play();
    void pause();
    void stop();
    void eject();
    void next();
    void previous();
    // Timer1: the place on the disc, on line 1.
    void tick();

  private:
    void openDrive(const std::string& name);
    // Next (forward) or previous: plays on from the track when playing, else stands there.
    void step(bool forward);
    Application& app_;
    CdDrives& drives_;
};

}  // namespace brevane
