#pragma once
// The visuals' windows: the slideshow and the panoramic view full screen, and the
// slideshow's selector and its picture chooser. Bind to the panels; hold no state but
// the decoded picture on screen.

#include <QImage>
#include <QWidget>

namespace brevane {

class Application;
class Panoramic;
class Slideshow;
class SlideshowPicker;
class SlideshowSelector;
class VisualMode;
class PanelWindow;
class Label;

// A full-screen window over a picture: it fills the screen the options name (the second
// one when asked for and present), hides the pointer as the mode says, hands Esc, keys and
// pointer movements to the mode, and opens the mode's context menu.
class PictureWindow : public QWidget {
  public:
    PictureWindow(Application& app, PanelWindow& window, VisualMode& mode, Label& picture);

  protected:
    const QImage& image() const { return image_; }
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void follow();
    Application& app_;
    PanelWindow& window_;
    VisualMode& mode_;
    QImage image_;
};

class SlideshowView final : public PictureWindow {
  public:
    SlideshowView(Application& app, Slideshow& panel);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

class PanoramicView final : public PictureWindow {
  public:
    PanoramicView(Application& app, Panoramic& panel);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    Panoramic& panel_;
    QWidget* controls_ = nullptr;
};

class SlideshowSelectorView final : public QWidget {
  public:
    SlideshowSelectorView(Application& app, SlideshowSelector& panel);
};

class SlideshowPickerView final : public QWidget {
  public:
    explicit SlideshowPickerView(SlideshowPicker& panel);
};

}  // namespace brevane
