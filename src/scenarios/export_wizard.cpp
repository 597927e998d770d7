#include "scenarios/export_wizard.h"

#include <algorithm>
#include <cctype>
#include <system_error>

#include "base/app_path.h"
#include "base/dialogs.h"
#include "base/file_io.h"
#include "base/natural_order.h"
#include "core/application.h"
#include "scenarios/package_install.h"
#include "scenarios/scenario_files.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

constexpr const char* kIntroText =
    "This wizard will take you through the steps necessary to package your scenario for "
    "distribution to other users via the web.";
constexpr const char* kIntroNote =
    "Only the sounds that are currently enabled will be packaged with the scenario, so before "
    "continuing please ensure that the scenario you are wishing to package is playing and has "
    "been saved. ";
constexpr const char* kAssociationsNote =
    "Only check the boxes below if you have used a panoramic image or slideshow that didn't "
    "come installed with the application. For example, if you have used images downloaded from "
    "the web or from your own collection.";
constexpr const char* kPanoramicPrefix = "Associated Panoramic: ";
constexpr const char* kSlideshowPrefix = "Associated Slideshow: ";
constexpr const char* kNone = "None";
constexpr const char* kDefaultPanoramic = "Default.jpg";
constexpr const char* kSlideshowMissingText = "The slideshow could not be located";
constexpr const char* kGatherNote =
    "Click the button below to gather the files used by this scenario. ";
constexpr const char* kFinishNote =
    "Your scenario has now been successfully packaged and is ready for either backup or "
    "uploading. Please choose an option below ( You may click both options if you wish )";
constexpr const char* kLocateFailedText =
    "The directory could not be opened. This is most likely due to a failure of the file copy "
    "process. Please contact support.";
constexpr const char* kUploaderMissingText =
    "The uploading utility could not be located, please contact support.";
constexpr const char* kNotSet = "Not Set";
constexpr const char* kRule = "=================";
constexpr const char* kNoScenarioLine = "No scenario is loaded: load or save one, then retry.";
constexpr const char* kZipFailedLine = "The zip file could not be written.";

// The members that travel, in the order they are gathered: 5 and 7 stay home.
constexpr std::array kTravellingMembers{
    ScenarioMember::BackgroundOne, ScenarioMember::CustomBackground,
    ScenarioMember::CustomRandom,  ScenarioMember::RandomOne,
    ScenarioMember::Main,          ScenarioMember::BackgroundTwo,
    ScenarioMember::Colours,       ScenarioMember::RandomTwo,
    ScenarioMember::RandomThree,   ScenarioMember::RandomFour,
    ScenarioMember::Brainwaves,
};

bool isPicture(const fs::path& file) {
    std::string extension = file.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension == ".jpg" || extension == ".jpeg" || extension == ".png" ||
           extension == ".bmp" || extension == ".gif";
}

// A name from a field or a slot that may be joined under a folder of ours: nothing
// absolute, no ".." step.
bool staysUnder(const std::string& relative) {
    return !nameRefusal(relative).has_value();
}

void copyIgnoringErrors(const fs::path& from, const fs::path& to) {
    std::error_code ec;
    fs::copy(from, to, fs::copy_options::overwrite_existing | fs::copy_options::recursive, ec);
}

}  // namespace

ExportWizard::ExportWizard(Application& app) : app_(app) {
    window.setCaption("Scenario Exporter");
    page.setCaption("Page");
    back.setCaption("<< Back");
    next.setCaption("Next >>");
    exitButton.setCaption("Exit");
    back.onClick = [this] { showPage(page.value() - 1); };
    next.onClick = [this] { showPage(page.value() + 1); };
    exitButton.onClick = [this] {
        removeWorkingFiles();
        window.hide();
    };

    introText.setCaption(kIntroText);
    introNote.setCaption(kIntroNote);

    associationsNote.setCaption(kAssociationsNote);
    includePanoramic.setCaption("Include Panoramic");
    includePanoramic.onClick = [this] { panoramicClicked(); };
    panoramicLabel.setCaption(std::string(kPanoramicPrefix) + kNone);
    panoramicPreview.setCaption("Panoramic preview");
    includeSlideshow.setCaption("Include Slideshow");
    includeSlideshow.onClick = [this] { slideshowClicked(); };
    slideshowLabel.setCaption(std::string(kSlideshowPrefix) + kNone);
    slideshowPreview.setCaption("Slideshow preview");

    createdBy.setCaption("Scenario Created By:");
    description.setCaption(
        "Please enter a short description of this scenario to help other users. ");
    recordings.setCaption(
        "If you have used any of your own recordings / images, you can include details of "
        "these below. These details will be listed on the site.");
    detailsText.setCaption("Details");
    detailsText.setVisible(false);

    gatherNote.setCaption(kGatherNote);
    collect.setCaption("Collect Files and Create Zip File");
    collect.onClick = [this] { collectFiles(); };
    status.setCaption("Status:");

    finishNote.setCaption(kFinishNote);
    locate.setCaption("Locate Packaged  Scenario");
    locate.onClick = [this] {
        if (!app_.desktop.openDocument(app_.appPath / kZipFolder)) {
            app_.dialogs.message(MessageKind::Information, kLocateFailedText);
        }
    };
    upload.setCaption("Upload Scenario To Web");
    upload.onClick = [this] {
        if (!app_.launcher.startProgram(app_.appPath / kUploaderProgram)) {
            app_.dialogs.message(MessageKind::Information, kUploaderMissingText);
        }
    };
    showPage(1);
}

void ExportWizard::open() {
    const std::string& caption = app_.frmmain.carry.remoteCaption;
    const std::string prefix = Frmmain::kRemoteScenarioPrefix;
    name_ = caption.starts_with(prefix) ? caption.substr(prefix.size()) : caption;
    showPage(1);
    window.show();
}

void ExportWizard::unload() {
    if (window.visible()) {
        removeWorkingFiles();
        window.hide();
    }
    // Unloaded, the wizard forgets what it was given: the next scenario starts afresh,
    // without the pictures or details of this one.
    includePanoramic.setValue(0);
    includeSlideshow.setValue(0);
    for (TextBox* box : {&createdBy, &description, &recordings, &detailsText, &status}) {
        box->setText({});
    }
    showPage(1);
}

fs::path ExportWizard::stagingFolder() const {
    return app_.appPath / kStagingFolder / name_;
}

fs::path ExportWizard::zipFile() const {
    return app_.appPath / kZipFolder / (name_ + ".zip");
}

fs::path ExportWizard::detailsFile() const {
    return app_.appPath / (name_ + ".txt");
}

void ExportWizard::showPage(int number) {
    if (number < 1 || number > kPages) {
        return;
    }
    const bool entering = number != page.value();
    page.setValue(number);
    back.setEnabled(number > 1);
    next.setEnabled(number < kPages);
    if (entering) {
        enterPage(number);
    }
}

void ExportWizard::enterPage(int number) {
    if (number == 4) {
        // Each visit gathers afresh: the staging folder of an earlier one is gone.
        writeDetails();
        next.setEnabled(false);
    } else if (number == 5) {
        removeWorkingFiles();
    }
}

void ExportWizard::panoramicClicked() {
    if (!includePanoramic.checked()) {
        panoramicPreview.setText({});
        panoramicLabel.setCaption(std::string(kPanoramicPrefix) + kNone);
        return;
    }
    std::string name = app_.frmmain.carry.panoramicLabel;
    if (name.empty()) {
        name = kDefaultPanoramic;
    }
    if (name.ends_with(".jpg")) {
        name.resize(name.size() - 4);
    }
    name += ".jpg";
    // The stock panoramic is named in lower case on disk, whatever the name says.
    if (name == kDefaultPanoramic) {
        name = "default.jpg";
    }
    const fs::path picture = app_.appPath / "visual/panoramics" / name;
    panoramicPreview.setText(staysUnder(name) && isRegularFile(picture) ? picture.string()
                                                                        : std::string());
    panoramicLabel.setCaption(kPanoramicPrefix + name);
}

void ExportWizard::slideshowClicked() {
    if (!includeSlideshow.checked()) {
        slideshowPreview.setText({});
        slideshowLabel.setCaption(std::string(kSlideshowPrefix) + kNone);
        return;
    }
    const std::string& name = app_.frmremote2.slideshowFolder.text();
    const fs::path folder = app_.appPath / "visual/slideshow" / name;
    std::vector<fs::path> pictures;
    std::error_code ec;
    if (!name.empty() && staysUnder(name)) {
        for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
            if (it->is_regular_file(ec) && isPicture(it->path())) {
                pictures.push_back(it->path());
            }
        }
    }
    if (name.empty() || !staysUnder(name) || !fs::is_directory(folder, ec)) {
        app_.dialogs.message(MessageKind::Information, kSlideshowMissingText);
        // Nothing to carry: the box goes back, and its clearing shows "None".
        includeSlideshow.setValue(0);
        return;
    }
    std::sort(pictures.begin(), pictures.end(), [](const fs::path& a, const fs::path& b) {
        return naturalLess(a.filename().string(), b.filename().string());
    });
    slideshowPreview.setText(pictures.empty() ? std::string() : pictures.front().string());
    slideshowLabel.setCaption(kSlideshowPrefix + name);
}

void ExportWizard::writeDetails() {
    const std::string text = "Created by: \r\n" + createdBy.text() + "\r\n\r\nDescription: \r\n" +
                             description.text() + "\r\n\r\nInformation: \r\n" + recordings.text();
    detailsText.setText(text);
    if (!name_.empty() && staysUnder(name_) && writeFileAtomically(detailsFile(), text)) {
        detailsWritten_ = detailsFile();
    }
}

void ExportWizard::removeWorkingFiles() {
    std::error_code ec;
    fs::remove_all(app_.appPath / kStagingFolder, ec);
    // Only the file this wizard wrote: a text of the user's of that name stays.
    if (!detailsWritten_.empty()) {
        fs::remove(detailsWritten_, ec);
        detailsWritten_.clear();
    }
}

std::array<std::string, 17> ExportWizard::backgroundSounds() const {
    std::array<std::string, 17> sounds{};
    for (int s = 1; s <= static_cast<int>(sounds.size()); ++s) {
        const BackgroundSoundSlot& slot = app_.frmbackcustom.slot(s);
        sounds.at(static_cast<std::size_t>(s - 1)) = slot.on.checked() ? slot.path : std::string();
    }
    return sounds;
}

std::array<std::string, 28> ExportWizard::randomSounds() const {
    std::array<std::string, 28> sounds{};
    for (int s = 1; s <= static_cast<int>(sounds.size()); ++s) {
        const RandomSoundSlot& slot = app_.frmcustom.slot(s);
        sounds.at(static_cast<std::size_t>(s - 1)) =
            slot.volume.value() > 0 ? slot.path : std::string();
    }
    return sounds;
}

void ExportWizard::log(const std::string& line) {
    status.setText(status.text() + line + "\r\n");
}

void ExportWizard::heading(const std::string& text) {
    log(text);
    log(kRule);
}

void ExportWizard::copySound(const std::string& relative) {
    if (relative.empty() || relative == kNotSet) {
        return;
    }
    // A path that would lead out of the staging folder is not the tree's, and stays.
    if (staysUnder(relative)) {
        const fs::path inside = fs::path(withForwardSlashes(relative));
        const fs::path folder = stagingFolder() / inside.parent_path();
        std::error_code ec;
        fs::create_directories(folder, ec);
        copyIgnoringErrors(app_.appPath / relative, folder / inside.filename());
    }
    log(relative);
}

void ExportWizard::collectFiles() {
    status.setText({});
    log("Starting File Copy...");
    if (name_.empty() || !staysUnder(name_) || name_.find('/') != std::string::npos) {
        log(kNoScenarioLine);
        return;
    }
    std::error_code ec;
    // A run left unfinished may have left files here; the package holds this run's.
    fs::remove_all(stagingFolder(), ec);
    fs::create_directories(stagingFolder(), ec);

    const std::string& slideshow = app_.frmremote2.slideshowFolder.text();
    if (includeSlideshow.checked() && staysUnder(slideshow)) {
        heading("Slideshow");
        const fs::path target = stagingFolder() / "visual/slideshow" / slideshow;
        fs::create_directories(target, ec);
        copyIgnoringErrors(app_.appPath / "visual/slideshow" / slideshow, target);
    } else {
        log("Slideshow");
        log("Not selected for copying");
    }

    const fs::path panoramic = panoramicPreview.text();
    if (includePanoramic.checked() && !panoramic.empty()) {
        heading("Panoramic");
        const fs::path target = stagingFolder() / "visual/panoramics";
        fs::create_directories(target, ec);
        copyIgnoringErrors(panoramic, target / panoramic.filename());
    } else {
        log("Panoramic");
        log("Not selected for copying");
    }

    heading("Background Sounds");
    for (const std::string& sound : backgroundSounds()) {
        copySound(sound);
    }
    heading("Random Sounds");
    for (const std::string& sound : randomSounds()) {
        copySound(sound);
    }

    heading("Scenario Config Files");
    const fs::path scenarios = app_.appPath / kScenarioFolder;
    const fs::path stagedScenarios = stagingFolder() / kScenarioFolder;
    fs::create_directories(stagedScenarios, ec);
    std::vector<fs::path> members{scenarioMarkerFile(scenarios, name_)};
    for (ScenarioMember member : kTravellingMembers) {
        members.push_back(scenarioMemberFile(scenarios, name_, member));
    }
    for (const fs::path& member : members) {
        copyIgnoringErrors(member, stagedScenarios / member.filename());
        log(member.filename().string());
    }

    copyIgnoringErrors(detailsFile(), stagingFolder() / detailsFile().filename());

    heading("Zipping Files");
    log(writePackage(stagingFolder(), zipFile()) ? zipFile().string() : kZipFailedLine);
    log("Process Complete");
    log("Click Next to continue...");
    next.setEnabled(true);
}

void ExportWizard::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
