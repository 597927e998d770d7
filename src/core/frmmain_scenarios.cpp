// The console's scenarios: the road of one load (doload), the main settings and the
// information text (loadmainsettings), Save, Save As, Delete, the scenario list and
// the tray's scenario entries.

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "base/app_path.h"
#include "base/dialogs.h"
#include "base/file_io.h"
#include "base/preset_folder.h"
#include "base/random.h"
#include "core/application.h"
#include "core/frmmain.h"
#include "scenarios/scenario_files.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

bool isFolder(const fs::path& path) {
    std::error_code ec;
    return fs::is_directory(path, ec);
}

// The information text, each line ended in CR LF whatever the file used.
std::string readInformation(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string text;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        text += line;
        text += "\r\n";
    }
    return text;
}

}  // namespace

fs::path Frmmain::scenarioFolder() const {
    return app_.appPath / kScenarioFolder;
}

void Frmmain::wireScenarios() {
    loadButton.setCaption("Load");
    loadButton.setToolTip("Load the scenario selected in the list");
    loadButton.setEnabled(true);
    loadButton.onClick = [this] { loadSelectedScenario(); };
    saveButton.setCaption("Save");
    saveButton.setToolTip("Save the soundscape over the current scenario");
    saveButton.setEnabled(true);
    saveButton.onClick = [this] { saveScenario(); };
    saveAsButton.setCaption("Save As");
    saveAsButton.setToolTip("Save the soundscape as a new scenario");
    saveAsButton.setEnabled(true);
    saveAsButton.onClick = [this] { saveScenarioAs(); };
    deleteButton.setCaption("Delete");
    deleteButton.setToolTip("Delete the scenario selected in the list");
    deleteButton.setEnabled(true);
    deleteButton.onClick = [this] { deleteScenario(); };
}

// ---- the list ----

void Frmmain::refreshscenariolist() {
    // Every marker file of config/scenarios by its name, without the last four
    // characters, in the order a file manager lists them. A first run's soundscape
    // has members but no marker, so it never shows as an empty entry.
    fillList(scenarioList, folderNames(scenarioFolder(), kScenarioMarkerExtension));
    buildScenarioMenu();
}

void Frmmain::buildScenarioMenu() {
    MenuEntry& menu = mnuScenario();
    menu.clearEntries();
    for (const std::string& name : scenarioList.items()) {
        menu.addEntry(name).onClick = [this, name] { doload(name); };
    }
    if (scenarioList.count() > 0) {
        menu.addSeparator();
    }
    MenuEntry& random = menu.addEntry("Load Random Scenario");
    random.setEnabled(scenarioList.count() > 0);
    random.onClick = [this] { loadRandomScenario(); };
    menu.addEntry("Load Scenario From Disk").onClick = [this] { loadScenarioFromDisk(); };
}

// ---- load ----

void Frmmain::loadSelectedScenario() {
    const int index = scenarioList.listIndex();
    if (index >= 0) {
        doload(scenarioList.item(index));
    }
}

void Frmmain::loadRandomScenario() {
    if (scenarioList.count() > 0) {
        doload(scenarioList.item(app_.random.roll(scenarioList.count())));
    }
}

std::optional<fs::path> Frmmain::chooseScenarioFile(const char* title) {
    FileDialogRequest request;
    request.title = title;
    request.startFolder = scenarioFolder();
    request.filter = kScenarioFilter;
    return app_.dialogs.openFile(request);
}

void Frmmain::loadScenarioFromDisk() {
    const auto file = chooseScenarioFile(kLoadFromDiskTitle);
    if (!file) {
        return;
    }
    // A family is found beside its marker, wherever the user keeps it.
    doload(file->stem().string(), file->parent_path());
}

void Frmmain::setScenarioControlsEnabled(bool enabled) {
    loadButton.setEnabled(enabled);
    scenarioList.setEnabled(enabled);
    for (CommandButton& preset : presetButtons) {
        preset.setEnabled(enabled);
    }
}

void Frmmain::doload(const std::string& name, const fs::path& from) {
    const fs::path folder = from.empty() ? scenarioFolder() : from;
    const auto member = [&](ScenarioMember m) { return scenarioMemberFile(folder, name, m); };

    // 1. The latest-sound line says a scenario is on its way.
    LCD7.setLine(4, kWaitingText);
    // 2. The export wizard closes: it packs the scenario it was opened on.
    app_.formexportscen.unload();
    // 3. The scenario playing becomes the previous one ("N/A" while there was none).
    LCD1.setLine(4, app_.CurrentScenarioName.empty() ? std::string(kNoPreviousScenario)
                                                     : app_.CurrentScenarioName);
    app_.CurrentScenarioName = name;
    app_.LoadedScenarioName = name;
    // 4. Nothing else may start a load until this one is through.
    setScenarioControlsEnabled(false);

    // 5. An unknown scenario changes nothing more.
    if (!isRegularFile(member(ScenarioMember::BackgroundOne))) {
        setScenarioControlsEnabled(true);
        return;
    }

    // 6. The main settings and the information.
    LCD1.setLine(3, name);
    checklcd();
    loadmainsettings(name, folder);

    // 7-9. Each bank reads its member; one that fails says so itself, and the road goes
    // on with the next. The colour scheme (9) follows between the banks when "Allow
    // color scheme change with scenario change" is on; a scenario without one (a stock
    // scenario, or one saved before the schemes) leaves the colours as they are.
    app_.frmback.doload(member(ScenarioMember::BackgroundOne));
    app_.frmback2.doload(member(ScenarioMember::BackgroundTwo));
    app_.frmbackcustom.doload(member(ScenarioMember::CustomBackground));
    app_.frmcustom.doload(member(ScenarioMember::CustomRandom));
    app_.frmrandommain.doload(member(ScenarioMember::RandomOne));
    if (app_.FRMOPTIONS.colourWithScenario.checked()) {
        app_.frmDemo.loadScenarioColours(member(ScenarioMember::Colours));
    }
    app_.frmrandommain2.doload(member(ScenarioMember::RandomTwo));
    app_.frmrandommain3.doload(member(ScenarioMember::RandomThree));
    app_.frmrandommain4.doload(member(ScenarioMember::RandomFour));

    // 10-11. The weather and night start again from what the panel holds. Their member
    // (14) and the beat generator's (13) are never read here: both keep what they hold
    // across a load.
    app_.frmevolve.scenarioLoaded();

    // 12. The controls come back, and the status shows the new scenario.
    setScenarioControlsEnabled(true);
    LCD1.setLine(3, name);
    checklcd();
    carry.remoteCaption = kRemoteScenarioPrefix + name;
    dobrainwavecheck();
    LCD4.setLine(3, "Static");
    LCD4.setLine(4, "Disabled");
}

void Frmmain::loadmainsettings(const std::string& name, const fs::path& from) {
    const fs::path folder = from.empty() ? scenarioFolder() : from;
    information.setText(kNoInformationText);
    const fs::path info = scenarioInformationFile(folder, name);
    if (isRegularFile(info)) {
        information.setText(readInformation(info));
    }

    const auto content = readWholeFile(scenarioMemberFile(folder, name, ScenarioMember::Main));
    if (!content) {
        return;
    }
    // Each field stands alone, as in the session files: a damaged member is applied as
    // far as it reads.
    const FieldsRead<ScenarioMainRecord> read = readScenarioMainFile(*content);
    const ScenarioMainRecord& r = read.record;
    if (read.has(1)) {
        Random.setValue(r.random);
    }
    if (read.has(2)) {
        Background.setValue(r.background);
    }
    // 3 and 4, the CD and MP3 levels, are read and left alone.
    if (read.has(5)) {
        carry.hiddenConsoleFields[0] = r.hiddenField1;
    }
    if (read.has(6)) {
        carry.remoteScenarioCaption = r.remoteScenarioCaption;
    }
    if (read.has(7)) {
        carry.hiddenConsoleFields[1] = r.hiddenField2;
    }
    // The third field shows itself on the latest-sound line whenever it changes.
    if (read.has(8) && r.hiddenField3 != carry.hiddenConsoleFields[2]) {
        carry.hiddenConsoleFields[2] = r.hiddenField3;
        LCD7.setLine(4, r.hiddenField3);
    }
    if (read.has(9)) {
        // A folder that is not there any more gives way to the stock one, quietly.
        carry.slideshowLabel = isFolder(app_.appPath / "visual/slideshow" / r.slideshowFolder) &&
                                       !r.slideshowFolder.empty()
                                   ? r.slideshowFolder
                                   : std::string(kDefaultSlideshow);
        // An open slideshow moves to the scenario's at once.
        app_.frmremote2.pointAtSlideshow(carry.slideshowLabel);
        if (app_.Form1.window.visible()) {
            app_.Form1.dochange();
        }
    }
    if (read.has(10)) {
        carry.slideshowSecondEntry = r.slideshowSecondEntry;
    }
    if (read.has(11)) {
        app_.frmremote2.setPanoramic(r.panoramicName);
        if (app_.form999.window.visible()) {
            app_.form999.loadthepicture();
        }
    }
    if (read.has(12)) {
        carry.scenarioFlag = r.scenarioFlag;
    }
}

// ---- save ----

void Frmmain::saveScenarioAs() {
    const std::string answer = app_.dialogs.inputBox(kScenarioNamePrompt, "", "");
    const std::string name = trimTrailingBlanks(answer);
    if (name.empty()) {
        return;
    }
    // A scenario is a family of files in one folder: a name that would reach into
    // another folder cannot be one.
    if (name.find('/') != std::string::npos) {
        app_.dialogs.message(MessageKind::Information, kNotSavedText);
        return;
    }
    if (isRegularFile(scenarioMarkerFile(scenarioFolder(), name)) &&
        !app_.dialogs.askYesNo(kOverwriteScenarioText)) {
        app_.dialogs.message(MessageKind::Information, kNotSavedText);
        return;
    }
    if (!dosave(name)) {
        app_.dialogs.message(MessageKind::Exclamation, kNotSavedText);
    }
}

void Frmmain::saveScenario() {
    // Nothing to save over yet (a first run's soundscape has no name): ask for one.
    if (app_.CurrentScenarioName.empty()) {
        saveScenarioAs();
        return;
    }
    if (!dosave(app_.CurrentScenarioName)) {
        app_.dialogs.message(MessageKind::Exclamation, kNotSavedText);
    }
}

ScenarioMainRecord Frmmain::scenarioMainRecord() const {
    ScenarioMainRecord r;
    r.random = Random.value();
    r.background = Background.value();
    r.cd = CD.value();
    r.mp3 = MP3.value();
    r.hiddenField1 = carry.hiddenConsoleFields[0];
    r.remoteScenarioCaption = carry.remoteScenarioCaption;
    r.hiddenField2 = carry.hiddenConsoleFields[1];
    r.hiddenField3 = carry.hiddenConsoleFields[2];
    r.slideshowFolder = carry.slideshowLabel;
    r.slideshowSecondEntry = carry.slideshowSecondEntry;
    r.panoramicName = carry.panoramicLabel;
    r.scenarioFlag = carry.scenarioFlag;
    return r;
}

bool Frmmain::dosave(const std::string& name) {
    const fs::path folder = scenarioFolder();
    std::error_code ec;
    fs::create_directories(folder, ec);
    // The marker first: a name the file system refuses stops the save before any
    // member is written.
    if (!writeFileAtomically(scenarioMarkerFile(folder, name), writeScenarioMarker(name))) {
        return false;
    }
    const auto member = [&](ScenarioMember m) { return scenarioMemberFile(folder, name, m); };
    bool saved = true;
    saved &= app_.frmback.dosave(member(ScenarioMember::BackgroundOne));
    saved &= app_.frmback2.dosave(member(ScenarioMember::BackgroundTwo));
    saved &= app_.frmbackcustom.dosave(member(ScenarioMember::CustomBackground));
    saved &= app_.frmcustom.dosave(member(ScenarioMember::CustomRandom));
    saved &= app_.frmrandommain.dosave(member(ScenarioMember::RandomOne));
    saved &= app_.frmrandommain2.dosave(member(ScenarioMember::RandomTwo));
    saved &= app_.frmrandommain3.dosave(member(ScenarioMember::RandomThree));
    saved &= app_.frmrandommain4.dosave(member(ScenarioMember::RandomFour));
    saved &= app_.frmDemo.saveScenarioColours(member(ScenarioMember::Colours));
    saved &= app_.frmbwave.dosave(member(ScenarioMember::Brainwaves));
    saved &= app_.frmevolve.dosave(member(ScenarioMember::Weather));
    saved &= writeFileAtomically(member(ScenarioMember::Main),
                                 writeScenarioMainFile(scenarioMainRecord()));
    // The scheme's second copy, written and never read by a load.
    saved &= app_.frmDemo.saveScenarioColours(member(ScenarioMember::ColoursAgain));

    refreshscenariolist();
    scenarioList.setListIndex(scenarioList.find(name));
    app_.CurrentScenarioName = name;
    LCD1.setLine(3, name);
    carry.remoteCaption = kRemoteScenarioPrefix + name;
    return saved;
}

// ---- delete ----

void Frmmain::deleteScenario() {
    const int index = scenarioList.listIndex();
    if (index < 0) {
        app_.dialogs.message(MessageKind::Information, kSelectToDeleteText);
        return;
    }
    const std::string name = scenarioList.item(index);
    if (!app_.dialogs.askYesNo(kDeleteScenarioText + name + kDeleteScenarioQuestion)) {
        return;
    }
    const fs::path folder = scenarioFolder();
    std::error_code ec;
    fs::remove(scenarioMarkerFile(folder, name), ec);
    // Bank two's random member (10) and the weather's (14) stay behind: a save under
    // the same name writes over them.
    using M = ScenarioMember;
    for (M m : {M::BackgroundOne, M::CustomBackground, M::CustomRandom, M::RandomOne,
                M::BackgroundTwo, M::Colours, M::RandomThree, M::RandomFour, M::Brainwaves,
                M::Unused, M::Main, M::ColoursAgain}) {
        fs::remove(scenarioMemberFile(folder, name, m), ec);
    }
    refreshscenariolist();
}

}  // namespace brevane
