#include "visuals/panoramic.h"

#include <algorithm>

#include "base/dialogs.h"
#include "core/application.h"
#include "visuals/picture_files.h"

namespace brevane {

namespace fs = std::filesystem;

Panoramic::Panoramic(Application& app)
    : visual(app,
             {VisualMode::kShowRemote, VisualMode::kExitVisualMode, VisualMode::kExitApplication},
             [this] { unload(); }),
      Timer1(app.loop, kSlowestStepMs - kDefaultSpeed),
      Timer2(app.loop, kSlowestStepMs - kDefaultSpeed),
      app_(app) {
    window.setCaption("Panoramic");
    picture.setCaption("");
    hscroll.setCaption("Position");
    hscroll1.setCaption("Speed");
    changeButton.setCaption("Change");
    changeButton.onClick = [this] { changePicture(); };
    Timer1.onTick = [this] { moveLeft(); };
    Timer2.onTick = [this] { moveRight(); };
    hscroll.onChange = [this] { positionChanged(); };
    hscroll1.onChange = [this] { speedChanged(); };
}

void Panoramic::start() {
    app_.PanoramicShown = true;
    visual.begin();
    window.show();
    loadthepicture();
}

void Panoramic::unload() {
    Timer1.setEnabled(false);
    Timer2.setEnabled(false);
    visual.end();
    window.hide();
    app_.PanoramicShown = false;
}

void Panoramic::setViewSize(int width, int height) {
    if (width == viewWidth && height == viewHeight) {
        return;
    }
    viewWidth = std::max(1, width);
    viewHeight = std::max(1, height);
    if (window.visible()) {
        loadthepicture();
    }
}

void Panoramic::loadthepicture() {
    const fs::path folder = app_.appPath / kPanoramicFolder;
    const std::string name = app_.frmremote2.panoramicName();
    fs::path file = folder / (name + ".jpg");
    std::optional<PictureSize> size;
    if (name != "Default" && !name.empty()) {
        size = jpegSize(file);
    }
    if (!size) {
        // A name that is missing or does not load shows the default, without a word.
        file = folder / kDefaultPicture;
        size = jpegSize(file);
    }
    picture.setCaption(size ? file.string() : std::string());
    pictureWidth = size ? size->width : 0;
    pictureHeight = size ? size->height : 0;

    y = (pictureHeight - viewHeight) / 2;
    x = 0;
    Timer1.setEnabled(false);
    Timer2.setEnabled(false);
    if (pictureWidth > viewWidth) {
        x = (pictureWidth - viewWidth) / 2;
        hscroll.setRange(0, pictureWidth - viewWidth - 1);
    } else {
        hscroll.setRange(0, 0);
    }
    hscroll.setValue(x);
    positionChanged();
    Timer1.setEnabled(true);
}

void Panoramic::moveLeft() {
    if (hscroll.value() == hscroll.min()) {
        Timer1.setEnabled(false);
        Timer2.setEnabled(true);
    } else {
        hscroll.setValue(hscroll.value() - 1);
    }
}

void Panoramic::moveRight() {
    if (hscroll.value() == hscroll.max()) {
        Timer2.setEnabled(false);
        Timer1.setEnabled(true);
    } else {
        hscroll.setValue(hscroll.value() + 1);
    }
}

void Panoramic::positionChanged() {
    // The window stands on the chosen screen itself, so the picture is always drawn
    // from the view's own left edge.
    x = hscroll.value();
}

void Panoramic::speedChanged() {
    app_.frmremote2.speed.setValue(hscroll1.value());
    const int period = kSlowestStepMs - hscroll1.value();
    Timer1.setInterval(period);
    Timer2.setInterval(period);
}

void Panoramic::changePicture() {
    FileDialogRequest request;
    request.title = kChooseTitle;
    request.filter = kFilter;
    request.startFolder = app_.appPath / kPanoramicFolder;
    const auto file = app_.dialogs.openFile(request);
    if (!file) {
        return;
    }
    app_.frmremote2.setPanoramic(file->stem().string());
    loadthepicture();
}

}  // namespace brevane
