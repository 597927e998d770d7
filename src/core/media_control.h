#pragma once
// The program as a media player to the desktop: what the media keys and the player
// applets see and do. A soundscape has no tracks, so:
// - pause silences everything as the console's Mute does, and play brings back what
//   was playing, at the level it had;
// - next and previous step through the scenario list, round at either end;
// - the title is the scenario playing, the artist the program;
// - the volume is Master, 0 to 1.
// The desktop binding (D-Bus) lives in the interface; this is its headless half, which
// reads and drives the console through its controls.
//
// Not thread-safe: it lives on the event thread, as the console does.

#include <functional>
#include <string>

namespace brevane {

class Application;

class MediaControl {
  public:
    static constexpr const char* kIdentity = "Brevane";
    static constexpr const char* kDesktopEntry = "org.brevane.Brevane";

    explicit MediaControl(Application& app);
    MediaControl(const MediaControl&) = delete;
    MediaControl& operator=(const MediaControl&) = delete;
    ~MediaControl();

    bool playing() const;
    std::string title() const;
    double volume() const;

    void play();
    void pause();
    void playPause();
    void next();
    void previous();
    void setVolume(double volume);
    // Brings the console to the front.
    void raise();
    // The console's quit, without its question: the desktop asked.
    void quit();

    // Told after anything the desktop shows may have changed: the playing state, the
    // title or the volume.
    std::function<void()> onChanged;

  private:
    void step(int by);
    void changed();

    Application& app_;
    int masterWatch_ = 0;
    int scenarioWatch_ = 0;
};

}  // namespace brevane
