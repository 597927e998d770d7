#include "visuals/slideshow.h"

#include "base/dialogs.h"
#include "base/random.h"
#include "core/application.h"
#include "core/session_files.h"
#include "visuals/picture_files.h"

namespace brevane {

namespace fs = std::filesystem;

// ---- Form1 ----

Slideshow::Slideshow(Application& app)
    : visual(app,
             {VisualMode::kShowMain, VisualMode::kShowRemote, VisualMode::kExitVisualMode,
              VisualMode::kExitApplication},
             [this] { unload(); }),
      Timer20(app.loop, kStepMs),
      app_(app) {
    window.setCaption("Slideshow");
    picture.setCaption("");
    Timer20.onTick = [this] { tick(); };
}

fs::path Slideshow::folder() const {
    return app_.appPath / kSlideshowFolder / app_.frmremote2.slideshowFolder.text();
}

void Slideshow::start() {
    Frmremote2& remote = app_.frmremote2;
    std::error_code ec;
    if (remote.slideshowFolder.text().empty()) {
        remote.pointAtSlideshow(Frmmain::kDefaultSlideshow);
    }
    if (!fs::is_directory(folder(), ec)) {
        app_.dialogs.message(MessageKind::Information, SlideshowSelector::kNotFoundText);
        remote.pointAtSlideshow(Frmmain::kDefaultSlideshow);
    } else if (remote.pictureNames.count() == 0) {
        remote.pointAtSlideshow(remote.slideshowFolder.text());
    }
    RESETTIMER();
    app_.SlideshowShown = true;
    forceChange = true;
    visual.begin();
    window.show();
    dochange();
    Timer20.setEnabled(true);
}

void Slideshow::unload() {
    Timer20.setEnabled(false);
    visual.end();
    window.hide();
    app_.SlideshowShown = false;
}

void Slideshow::RESETTIMER() {
    seconds = 0;
    minutes = 0;
}

void Slideshow::tick() {
    const Frmremote2& remote = app_.frmremote2;
    const int shown = wholeNumberText(remote.Text1.text()).value_or(0);
    ++seconds;
    if (remote.Option1.value()) {
        // Minutes: the time per picture is compared only as a minute ends.
        if (seconds == 60) {
            ++minutes;
            seconds = 0;
            if (minutes == shown) {
                dochange();
                minutes = 0;
            }
        }
    } else if (seconds == shown) {
        dochange();
        seconds = 0;
    }
    if (minutes == 60) {
        minutes = 0;
    }
}

void Slideshow::dochange() {
    RESETTIMER();
    const ListBox& names = app_.frmremote2.pictureNames;
    if (names.count() == 1 && !forceChange) {
        return;  // one picture: it stays as it is
    }
    forceChange = false;
    if (names.count() == 0) {
        return;
    }
    if (app_.Formfolderselect.randomOrder.value()) {
        showPicture(static_cast<int>(app_.random.next() * names.count()));
        return;
    }
    imageNumber =
        imageNumber < names.count() ? static_cast<std::int16_t>(imageNumber + 1) : std::int16_t{1};
    // The name list numbers its pictures from 1, as the counter runs.
    showPicture(imageNumber - 1);
}

bool Slideshow::showPicture(int index) {
    ListBox& names = app_.frmremote2.pictureNames;
    if (index < 0 || index >= names.count()) {
        return false;
    }
    names.setListIndex(index);
    const fs::path file = folder() / (names.item(index) + ".jpg");
    // A picture that does not load leaves the one on screen.
    if (!jpegSize(file)) {
        return false;
    }
    picture.setCaption(file.string());
    return true;
}

// ---- folderselect ----

SlideshowPicker::SlideshowPicker(Application& app) : app_(app) {
    window.setCaption("Slideshows");
    folders.setCaption("Slideshows");
    chooseButton.setCaption("Choose");
    chooseButton.onClick = [this] { choose(); };
    cancelButton.setCaption("Cancel");
    cancelButton.onClick = [this] { window.hide(); };
}

void SlideshowPicker::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
}

void SlideshowPicker::unload() {
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
}

void SlideshowPicker::docolors() {
    colours.paint(app_.scheme);
}

void SlideshowPicker::open() {
    folders.clear();
    for (const std::string& name : slideshowFolders(app_.appPath / Slideshow::kSlideshowFolder)) {
        folders.addItem(name);
    }
    window.show();
}

fs::path SlideshowPicker::firstPicture(const std::string& name) const {
    const fs::path folder = app_.appPath / Slideshow::kSlideshowFolder / name;
    const std::vector<std::string> pictures = slideshowPictures(folder);
    return pictures.empty() ? fs::path{} : folder / (pictures.front() + ".jpg");
}

void SlideshowPicker::choose() {
    const int index = folders.listIndex();
    if (index < 0) {
        return;
    }
    app_.Formfolderselect.chooseFolder(app_.appPath / Slideshow::kSlideshowFolder /
                                       folders.item(index));
    window.hide();
}

// ---- Formfolderselect ----

SlideshowSelector::SlideshowSelector(Application& app) : folderselect(app), app_(app) {
    window.setCaption("Select Slideshow");
    currentLabel.setCaption("Current slideshow: ");
    imagesLabel.setCaption("Images contained in currently selected folder");
    images.setCaption(imagesLabel.caption());
    folderPath.setCaption("Folder");
    preview.setCaption("");
    randomOrder.setCaption("Use random order");
    timeLabel.setCaption("Show each image for");
    applyButton.setCaption("Apply");
    applyButton.onClick = [this] { apply(); };
    selectButton.setCaption("Select Slideshow");
    selectButton.onClick = [this] { selectSlideshow(); };
    picturesButton.setCaption("Slideshows...");
    picturesButton.onClick = [this] { folderselect.open(); };
    openFolderButton.setCaption("Open Folder");
    openFolderButton.onClick = [this] {
        app_.desktop.openDocument(app_.appPath / Slideshow::kSlideshowFolder);
    };
    closeButton.setCaption("Close");
    closeButton.onClick = [this] { window.hide(); };
}

void SlideshowSelector::load() {
    folderselect.load();
}

void SlideshowSelector::unload() {
    folderselect.unload();
}

void SlideshowSelector::docolors() {
    colours.paint(app_.scheme);
}

void SlideshowSelector::open() {
    currentLabel.setCaption(std::string("Current slideshow: ") +
                            app_.frmremote2.slideshowFolder.text());
    chooseFolder(app_.Form1.folder());
    window.show();
}

std::string SlideshowSelector::TrimAppPath(const fs::path& folder) const {
    const fs::path root = (app_.appPath / Slideshow::kSlideshowFolder).lexically_normal();
    const fs::path relative = folder.lexically_normal().lexically_relative(root);
    const std::string text = relative.string();
    if (text.empty() || text == "." || text.starts_with("..")) {
        return folder.filename().string();
    }
    return text;
}

void SlideshowSelector::chooseFolder(const fs::path& folder) {
    folderPath.setText(folder.string());
    images.clear();
    for (const std::string& name : slideshowPictures(folder)) {
        images.addItem(name);
    }
    preview.setCaption("");
    previewImage(0);
}

void SlideshowSelector::previewImage(int index) {
    if (index >= 0 && index < images.count()) {
        preview.setCaption((fs::path(folderPath.text()) / (images.item(index) + ".jpg")).string());
    }
}

void SlideshowSelector::apply() {
    if (images.count() == 0) {
        app_.dialogs.message(MessageKind::Information, kNoImagesText);
        return;
    }
    const fs::path folder = folderPath.text();
    app_.frmremote2.pointAtSlideshow(TrimAppPath(folder));
    app_.frmmain.carry.slideshowLabel = TrimAppPath(folder);
    currentLabel.setCaption(std::string("Current slideshow: ") + TrimAppPath(folder));
    app_.Form1.forceChange = true;
    app_.Form1.dochange();
}

void SlideshowSelector::selectSlideshow() {
    const auto folder =
        app_.dialogs.chooseFolder(kSelectFolderTitle, app_.appPath / Slideshow::kSlideshowFolder);
    if (!folder) {
        return;
    }
    std::error_code ec;
    if (!fs::is_directory(*folder, ec)) {
        app_.dialogs.message(MessageKind::Information, kDriveFailedText);
        return;
    }
    chooseFolder(*folder);
}

}  // namespace brevane
