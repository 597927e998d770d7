// The console's fourteen preset buttons: press to load, Assign (the captions flash
// until a button takes the scenario), Clear, and preset lists saved and loaded.

#include <filesystem>
#include <string>

#include "base/dialogs.h"
#include "base/file_io.h"
#include "core/application.h"
#include "core/frmmain.h"
#include "scenarios/scenario_files.h"

namespace brevane {

namespace fs = std::filesystem;

void Frmmain::wirePresets() {
    for (std::size_t p = 0; p < presetButtons.size(); ++p) {
        CommandButton& button = presetButtons[p];
        button.setCaption(kUnassigned);
        button.setToolTip("Load the scenario on this button");
        button.onClick = [this, p] { cmdpreset_Click(static_cast<int>(p)); };
    }
    presetAssignButton.setCaption("Assign");
    presetAssignButton.setToolTip(
        "Put a scenario on a preset button: choose it, then press the button");
    presetAssignButton.onClick = [this] { assignPreset(); };
    presetClearButton.setCaption("Clear");
    presetClearButton.setToolTip("Clear every preset button");
    presetClearButton.onClick = [this] { clearPresets(); };
    presetSaveAsButton.setCaption("Save As");
    presetSaveAsButton.setToolTip("Save the fourteen presets as a preset list");
    presetSaveAsButton.onClick = [this] { savePresetList(); };
    presetLoadButton.setCaption("Load");
    presetLoadButton.setToolTip("Load a preset list onto the fourteen buttons");
    presetLoadButton.onClick = [this] { loadPresetList(); };

    Timerflash.onTick = [this] { flashTick(); };
    timerpresetstatus.onTick = [this] {
        timerpresetstatus.setEnabled(false);
        LCD5.setLine(4, "");
    };
}

const std::string& Frmmain::presetCaption(int index) const {
    return presetButtons.at(static_cast<std::size_t>(index)).caption();
}

PresetCaptions Frmmain::presetCaptions() const {
    PresetCaptions captions;
    for (std::size_t p = 0; p < presetButtons.size(); ++p) {
        captions[p] = presetButtons[p].caption();
    }
    return captions;
}

void Frmmain::setPresetCaptions(const PresetCaptions& captions) {
    for (std::size_t p = 0; p < presetButtons.size(); ++p) {
        presetButtons[p].setCaption(captions[p]);
    }
}

void Frmmain::showPresetStatus(const std::string& text) {
    LCD5.setLine(4, text);
    // Shown for a while, then the line clears; another move starts the wait again.
    timerpresetstatus.setEnabled(false);
    timerpresetstatus.setEnabled(true);
}

void Frmmain::presetHover(int index) {
    const std::string& caption = presetCaption(index);
    showPresetStatus(caption == kUnassigned ? std::string("Unassigned") : caption);
}

void Frmmain::cmdpreset_Click(int index) {
    Timerflash.setEnabled(false);
    PresetFlashState = kNotFlashing;
    for (CommandButton& button : presetButtons) {
        button.setForeColour(std::nullopt);
    }
    if (!PendingScenarioFile.empty()) {
        // The button takes the scenario chosen by Assign, and nothing is loaded.
        presetButtons.at(static_cast<std::size_t>(index))
            .setCaption(fs::path(PendingScenarioFile).stem().string());
        PendingScenarioFile.clear();
        PendingScenarioFolder.clear();
        showPresetStatus(presetCaption(index));
        return;
    }
    const std::string caption = presetCaption(index);
    if (caption != kUnassigned) {
        doload(caption);
    }
}

void Frmmain::assignPreset() {
    const auto file = chooseScenarioFile(kAssignTitle);
    if (!file) {
        return;
    }
    PendingScenarioFile = file->string();
    PendingScenarioFolder = file->parent_path().string();
    flashRed_ = false;
    Timerflash.setEnabled(true);
    PresetFlashState = kFlashing;
}

void Frmmain::flashTick() {
    flashRed_ = !flashRed_;
    const Colour colour = flashRed_ ? kFlashRed : kFlashWhite;
    for (CommandButton& button : presetButtons) {
        button.setForeColour(colour);
    }
}

void Frmmain::clearPresets() {
    if (!app_.dialogs.askYesNo(kClearPresetsText)) {
        return;
    }
    PresetListName = "None";
    PresetCaptions unassigned;
    unassigned.fill(kUnassigned);
    setPresetCaptions(unassigned);
    checklcd();
}

namespace {

FileDialogRequest presetListRequest(const AppPath& appPath, const char* title) {
    FileDialogRequest request;
    request.title = title;
    request.startFolder = appPath / kPresetFolder;
    request.filter = Frmmain::kPresetFilter;
    return request;
}

}  // namespace

void Frmmain::savePresetList() {
    FileDialogRequest request = presetListRequest(app_.appPath, "Save Preset List");
    request.fileName = PresetListName == "None" ? std::string() : PresetListName;
    auto file = app_.dialogs.saveFile(request);
    if (!file) {
        return;
    }
    if (file->extension() != kPresetListExtension) {
        *file += kPresetListExtension;
    }
    std::error_code ec;
    fs::create_directories(file->parent_path(), ec);
    if (!writeFileAtomically(*file, writePresetList(presetCaptions()))) {
        app_.dialogs.message(MessageKind::Exclamation, kPresetListNotSavedText);
        return;
    }
    PresetListName = withoutLastFour(file->filename().string());
    checklcd();
}

void Frmmain::loadPresetList() {
    const auto file = app_.dialogs.openFile(presetListRequest(app_.appPath, "Load Preset List"));
    if (file && !readPresetListFile(*file)) {
        app_.dialogs.message(MessageKind::Information, kPresetListUnreadableText);
    }
}

bool Frmmain::readPresetListFile(const fs::path& file) {
    const auto content = readWholeFile(file);
    if (!content) {
        return false;
    }
    const FieldsRead<PresetCaptions> read = readPresetList(*content);
    if (!read.whole(kPresetCount)) {
        return false;
    }
    // All fourteen at once: a list never leaves an earlier caption behind.
    setPresetCaptions(read.record);
    PresetListName = withoutLastFour(file.filename().string());
    checklcd();
    return true;
}

}  // namespace brevane
