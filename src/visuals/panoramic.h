#pragma once
// form999, the panoramic view: one picture wider than the screen, centred, swinging
// slowly from end to end behind a full-screen window.
//
// Panoramics are ".jpg" pictures in visual/panoramics; "Default" and any name that does
// not load show default.jpg. The remote holds the name and mirrors the speed.
//
// Not thread-safe: the panel lives on the event thread.

#include <filesystem>
#include <string>

#include "base/controls.h"
#include "base/event_loop.h"
#include "visuals/visual_mode.h"

namespace brevane {

class Application;

class Panoramic {
  public:
    static constexpr const char* kPanoramicFolder = "visual/panoramics";
    static constexpr const char* kDefaultPicture = "default.jpg";
    // The step period is this less the speed: a higher speed is faster.
    static constexpr int kSlowestStepMs = 500;
    static constexpr int kFastestSpeed = 490;
    static constexpr int kDefaultSpeed = 420;
    static constexpr const char* kChooseTitle = "Change Panoramic";
    static constexpr const char* kFilter = "Panoramic Pictures|*.jpg";

    explicit Panoramic(Application& app);
    Panoramic(const Panoramic&) = delete;
    Panoramic& operator=(const Panoramic&) = delete;

    PanelWindow window;
    // The picture shown: its path.
    Label picture;
    VisualMode visual;
    // The position: the left edge of the view on the picture.
    ScrollBar hscroll{0, 0, 0};
    // The speed; the remote mirrors it.
    Slider hscroll1{0, kFastestSpeed, kDefaultSpeed};
    // Timer1 moves left, Timer2 right; only one runs.
    Timer Timer1;
    Timer Timer2;
    CommandButton changeButton;  // "Change"

    int pictureWidth = 0;
    int pictureHeight = 0;
    int viewWidth = 1920;
    int viewHeight = 1080;
    // The source corner of the view on the picture.
    int x = 0;
    int y = 0;

    // Entry to the panoramic.
    void start();
    // Leaves it.
    void unload();
    // The view's size in pixels: the screen it fills. Lays the picture out again.
    void setViewSize(int width, int height);
    // Loads the picture the remote names (or the default) and starts it from the centre.
    void loadthepicture();
    // "Change": another panoramic from the folder.
    void changePicture();
    void moveLeft();
    void moveRight();

  private:
    void positionChanged();
    void speedChanged();
    Application& app_;
};

}  // namespace brevane
