#pragma once
// The slideshow: Form1, a full-screen picture that steps through the pictures of a
// slideshow folder while the soundscape plays; Formfolderselect, which chooses the folder,
// the order and the time per picture; and folderselect, the slideshows by their first
// picture.
//
// Slideshows are folders under visual/slideshow, "Default" the first. The remote holds
// the folder, its picture names and the time per picture (minutes or seconds), so they
// are kept with the session; the slideshow reads them at each step.
//
// Not thread-safe: the panels live on the event thread.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "base/controls.h"
#include "base/event_loop.h"
#include "base/settings_store.h"
#include "shell/panel_colours.h"
#include "visuals/visual_mode.h"

namespace brevane {

class Application;

class Slideshow {
  public:
    static constexpr int kStepMs = 1000;
    static constexpr const char* kSlideshowFolder = "visual/slideshow";

    explicit Slideshow(Application& app);
    Slideshow(const Slideshow&) = delete;
    Slideshow& operator=(const Slideshow&) = delete;

    PanelWindow window;
    // The picture on screen: its path, empty before the first.
    Label picture;
    VisualMode visual;
    // The stepping clock, once a second.
    Timer Timer20;
    // The counters, 16-bit as the stepping rules count them.
    std::int16_t seconds = 0;
    std::int16_t minutes = 0;
    // The sequential position, 1 to the number of pictures.
    std::int16_t imageNumber = 0;
    // Set when the slideshow changes, so a folder of one picture shows it once.
    bool forceChange = false;

    // Entry to visual mode: the counters start afresh and the first picture shows.
    void start();
    // Leaves visual mode.
    void unload();
    // One step to the next picture.
    void dochange();
    void RESETTIMER();
    void tick();
    // The folder the remote names, with the program's tree in front.
    std::filesystem::path folder() const;

  private:
    bool showPicture(int index);
    Application& app_;
};

// folderselect: every slideshow, each shown by its first picture; choosing one takes it
// into the selector.
class SlideshowPicker {
  public:
    static constexpr const char* kSettingsSection = "Settings2";

    explicit SlideshowPicker(Application& app);

    PanelWindow window;
    PanelColours colours{window, [this] { docolors(); }};
    // The slideshows by name; the view shows each with its first picture.
    ListBox folders;
    CommandButton chooseButton;  // "Choose"
    CommandButton cancelButton;  // "Cancel"
    std::optional<WindowPosition> position;

    void load();
    void unload();
    void docolors();
    void open();
    // The first picture of slideshow `name`, or an empty path.
    std::filesystem::path firstPicture(const std::string& name) const;
    void choose();

  private:
    Application& app_;
};

// Formfolderselect: the slideshow, its pictures, the order and the time per picture.
class SlideshowSelector {
  public:
    static constexpr const char* kNoImagesText = "The chosen directory contains no images.";
    static constexpr const char* kNotFoundText =
        "The slideshow associated with this soundscape could not be found.";
    static constexpr const char* kDriveFailedText = "This drive could not be accessed or is empty";
    static constexpr const char* kSelectFolderTitle = "Select Folder";

    explicit SlideshowSelector(Application& app);

    PanelWindow window;
    PanelColours colours{window, [this] { docolors(); }};
    Label currentLabel;  // "Current slideshow: " and its name
    Label imagesLabel;   // "Images contained in currently selected folder"
    // The pictures of the folder chosen here, before Apply.
    ListBox images;
    // The chosen folder, a path.
    TextBox folderPath;
    // The first picture of the chosen folder, for the preview.
    Label preview;
    CheckBox randomOrder;            // "Use random order"
    Label timeLabel;                 // "Show each image for"
    CommandButton applyButton;       // "Apply"
    CommandButton selectButton;      // "Select Slideshow"
    CommandButton picturesButton;    // "Slideshows..." : folderselect
    CommandButton openFolderButton;  // "Open Folder": the slideshows in the file browser
    CommandButton closeButton;       // "Close"
    SlideshowPicker folderselect;

    void load();
    void unload();
    void docolors();
    void open();
    // Shows picture `index` of the list in the preview.
    void previewImage(int index);
    // Takes `folder` as the chosen one and lists its pictures.
    void chooseFolder(const std::filesystem::path& folder);
    void apply();
    void selectSlideshow();
    // The name of a folder under the slideshows, without the tree in front.
    std::string TrimAppPath(const std::filesystem::path& folder) const;

  private:
    Application& app_;
};

}  // namespace brevane
