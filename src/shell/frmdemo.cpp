#include "shell/frmdemo.h"

#include <system_error>

#include "base/dialogs.h"
#include "base/file_io.h"
#include "base/preset_folder.h"
#include "core/application.h"
#include "scenarios/scenario_files.h"
#include "shell/colour_files.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

// A name the list can show and the folder can hold as one file.
bool usableName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of("/\\") == std::string::npos;
}

}  // namespace

Frmdemo::Frmdemo(Application& app)
    : colours(window, [this] { docolors(); }), app_(app), scheme_(app.scheme) {
    window.setCaption("Color Schemes");

    schemeList.setToolTip("The color schemes you keep: choosing one shows it on the sample");
    schemeList.onClick = [this] { schemeClicked(); };
    previousSchemeButton.setCaption("<");
    previousSchemeButton.setToolTip("The scheme before in the list");
    previousSchemeButton.onClick = [this] { stepScheme(-1); };
    nextSchemeButton.setCaption(">");
    nextSchemeButton.setToolTip("The scheme after in the list");
    nextSchemeButton.onClick = [this] { stepScheme(1); };

    for (const char* name : kLcdPaletteNames) {
        paletteList.addItem(name);
    }
    paletteList.setToolTip("How the status displays are lit");
    paletteList.onClick = [this] {
        if (!selecting_ && paletteList.listIndex() >= 0) {
            setPalette(paletteList.listIndex());
        }
    };
    previousPaletteButton.setCaption("<");
    previousPaletteButton.setToolTip("The display palette before in the list");
    previousPaletteButton.onClick = [this] { stepPalette(-1); };
    nextPaletteButton.setCaption(">");
    nextPaletteButton.setToolTip("The display palette after in the list");
    nextPaletteButton.onClick = [this] { stepPalette(1); };

    for (int t = 1; t <= kSchemeTargets; ++t) {
        CommandButton& swatch = swatches[static_cast<std::size_t>(t - 1)];
        swatch.setToolTip(kSchemeTargetCaptions[static_cast<std::size_t>(t - 1)]);
        swatch.onClick = [this, t] { chooseColour(t); };
    }

    saveButton.setCaption("Save");
    saveButton.setToolTip("Keep the colors under the scheme's name");
    saveButton.onClick = [this] { saveCommand(); };
    saveAsButton.setCaption("Save As");
    saveAsButton.setToolTip("Keep the colors as a new scheme");
    saveAsButton.onClick = [this] { saveAsCommand(); };
    deleteButton.setCaption("Del");
    deleteButton.setToolTip("Delete the scheme selected");
    deleteButton.onClick = [this] { deleteCommand(); };
    restoreDefaultButton.setCaption("Restore Default Color Scheme");
    restoreDefaultButton.onClick = [this] { restoreDefaultCommand(); };
    revertButton.setCaption("Revert");
    revertButton.setToolTip("Take back the changes made since this panel opened");
    revertButton.onClick = [this] { revertCommand(); };
    advancedButton.setCaption(kAdvancedCaption);
    advancedButton.setToolTip("Show or hide every single color");
    advancedButton.onClick = [this] { toggleAdvanced(); };
    applyButton.setCaption("Apply");
    applyButton.setToolTip("Paint the program in these colors");
    applyButton.onClick = [this] { apply(); };
    closeButton.setCaption("Close");
    closeButton.onClick = [this] { window.hide(); };
    advancedFrame.setVisible(false);

    sampleLabel.setCaption("Labels read like this");
    sampleButton.setCaption("Button");
    sampleToggle.setCaption("Active");
    sampleToggle.setValue(true);
    sampleCheck.setCaption("Check box");
    sampleCheck.setValue(1);
    sampleOptions.add(sampleOption1);
    sampleOptions.add(sampleOption2);
    sampleOption1.setCaption("Option");
    sampleOption2.setCaption("Another");
    sampleOption1.setValue(true);
    sampleText.setText("Text box");
    for (const char* item : {"Summer Storm", "Seaside", "Night in the woods"}) {
        sampleList.addItem(item);
    }
    sampleList.setListIndex(1);
    sampleDisplay.setLine(1, "Scenario");
    sampleDisplay.setLine(2, "Time");
    sampleDisplay.setLine(3, kSampleDisplayText);
    sampleDisplay.setLine(4, "12:00:00");
    showScheme();
}

fs::path Frmdemo::colourFolder() const {
    return app_.appPath / kColourFolder;
}

fs::path Frmdemo::schemeFile(const std::string& name) const {
    return colourFolder() / (name + kSchemeExtension);
}

// ---- life ----

void Frmdemo::load() {
    refillList();
    scheme_ = app_.scheme;
    if (isRegularFile(app_.appPath / kColoursSessionFile)) {
        readSessionFile();
    } else {
        // A first start, or one after the session was cleared: the stock "Default",
        // or the same colours when its file is gone.
        if (!doload(kDefaultSchemeName)) {
            scheme_ = programLook();
        }
        selectSchemeName(kDefaultSchemeName);
    }
    showScheme();
    position = readWindowPosition(app_.settings, kSettingsSection, kTopOffset);
}

void Frmdemo::readSessionFile() {
    const auto content = readWholeFile(app_.appPath / kColoursSessionFile);
    if (!content) {
        return;
    }
    // A session file: every field that reads is applied.
    const FieldsRead<ColoursSessionRecord> read = readColoursSessionFile(*content);
    const ColoursSessionRecord& r = read.record;
    if (read.has(1)) {
        scheme_.palette = static_cast<int>(lcdPaletteFromIndex(r.palette));
    }
    for (int d = 0; d < kDisplayColours; ++d) {
        if (read.has(2 + d)) {
            scheme_.display[static_cast<std::size_t>(d)] = r.display[static_cast<std::size_t>(d)];
        }
    }
    if (read.has(6)) {
        if (const auto line = colourFromText(r.line)) {
            scheme_.line = *line;
        }
    }
    if (read.has(7)) {
        if (const auto active = colourFromText(r.active)) {
            scheme_.active = *active;
        }
    }
    if (read.has(8)) {
        selectSchemeName(r.name);
    }
}

void Frmdemo::unload() {
    window.hide();
    const ColourScheme& s = app_.scheme;
    ColoursSessionRecord r;
    r.palette = s.palette;
    r.display = s.display;
    r.line = colourText(s.line);
    r.active = colourText(s.active);
    r.name = schemeName();
    writeFileAtomically(app_.appPath / kColoursSessionFile, writeColoursSessionFile(r));
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
}

void Frmdemo::show() {
    // Already open: the editing goes on as it stands.
    if (window.visible()) {
        return;
    }
    // Editing starts from what the program shows, kept so that it can be taken back.
    scheme_ = app_.scheme;
    showScheme();
    std::error_code ec;
    fs::create_directories(colourFolder(), ec);
    writeFileAtomically(colourFolder() / kPreviousSchemeFile, writeSchemeFile(scheme_));
    window.show();
}

void Frmdemo::docolors() {
    colours.paint(app_.scheme);
}

void Frmdemo::apply() {
    app_.scheme = scheme_;
    app_.applyScheme();
}

// ---- the scheme being edited ----

void Frmdemo::showScheme() {
    for (int t = 1; t <= kSchemeTargets; ++t) {
        swatches[static_cast<std::size_t>(t - 1)].setBackColour(scheme_.target(t));
    }
    selecting_ = true;
    paletteList.setListIndex(scheme_.palette);
    selecting_ = false;
    sampleDisplay.setPalette(lcdPaletteFromIndex(scheme_.palette));
    sampleDisplay.setColours(lcdColours(scheme_));
    sample.paint(scheme_);
}

void Frmdemo::setColour(int number, Colour colour) {
    if (!scheme_.setTarget(number, colour)) {
        return;
    }
    // A display colour shows only on a display lit by "CUSTOM": the palette turns there.
    if (number <= kDisplayColours) {
        scheme_.palette = static_cast<int>(LcdPalette::Custom);
    }
    showScheme();
}

void Frmdemo::setPalette(int index) {
    scheme_.palette = static_cast<int>(lcdPaletteFromIndex(index));
    showScheme();
}

void Frmdemo::chooseColour(int number) {
    const std::optional<Colour> current = scheme_.target(number);
    if (!current) {
        return;
    }
    target.setText(std::to_string(number));
    app_.Frmcolorpicker.open(*current);
}

void Frmdemo::takeColour(Colour colour) {
    setColour(static_cast<int>(leadingNumber(target.text())), colour);
}

// ---- the named schemes ----

void Frmdemo::refillList() {
    const std::string name = schemeList.text();
    selecting_ = true;
    fillList(schemeList, folderNames(colourFolder(), kSchemeExtension));
    selecting_ = false;
    selectSchemeName(name);
}

void Frmdemo::selectSchemeName(const std::string& name) {
    selecting_ = true;
    const int index = schemeList.find(name);
    schemeList.setListIndex(index);
    if (index < 0) {
        schemeList.setText(name);
    }
    selecting_ = false;
}

void Frmdemo::schemeClicked() {
    if (!selecting_ && schemeList.listIndex() >= 0) {
        doload(schemeList.item(schemeList.listIndex()));
    }
}

bool Frmdemo::doload(const std::string& name) {
    // A name whose file has vanished is passed over: the present colours stay.
    const auto content = readWholeFile(schemeFile(name));
    if (!content) {
        return false;
    }
    const std::optional<ColourScheme> read = readSchemeFile(*content);
    if (!read) {
        return false;
    }
    scheme_ = *read;
    showScheme();
    return true;
}

bool Frmdemo::dosave(const fs::path& file) const {
    std::error_code ec;
    fs::create_directories(file.parent_path(), ec);
    return writeFileAtomically(file, writeSchemeFile(scheme_));
}

void Frmdemo::stepScheme(int step) {
    const int index = schemeList.listIndex();
    const int next = index < 0 ? (step > 0 ? 0 : -1) : index + step;
    // No wrapping: past either end nothing moves.
    if (next >= 0 && next < schemeList.count()) {
        schemeList.setListIndex(next);
    }
}

void Frmdemo::stepPalette(int step) {
    const int next = paletteList.listIndex() + step;
    if (next >= 0 && next < paletteList.count()) {
        paletteList.setListIndex(next);
    }
}

void Frmdemo::saveCommand() {
    const std::string name = schemeName();
    if (name.empty()) {
        app_.dialogs.message(MessageKind::Information, kNoSchemeText);
        return;
    }
    if (!app_.dialogs.askYesNo(kOverwriteText + name + kContinueText)) {
        return;
    }
    if (!usableName(name) || !dosave(schemeFile(name))) {
        app_.dialogs.message(MessageKind::Exclamation, kNotSavedText);
        return;
    }
    refillList();
}

void Frmdemo::saveAsCommand() {
    const std::string name =
        trimTrailingBlanks(app_.dialogs.inputBox(kSchemeNamePrompt, "", schemeName()));
    if (name.empty()) {
        return;
    }
    if (!usableName(name)) {
        app_.dialogs.message(MessageKind::Exclamation, kNotSavedText);
        return;
    }
    if (isRegularFile(schemeFile(name)) &&
        !app_.dialogs.askYesNo(kOverwriteText + name + kContinueText)) {
        return;
    }
    if (!dosave(schemeFile(name))) {
        app_.dialogs.message(MessageKind::Exclamation, kNotSavedText);
        return;
    }
    refillList();
    selectSchemeName(name);
}

void Frmdemo::deleteCommand() {
    const int index = schemeList.listIndex();
    if (index < 0) {
        app_.dialogs.message(MessageKind::Information, kSelectToDeleteText);
        return;
    }
    const std::string name = schemeList.item(index);
    if (name == kDefaultSchemeName) {
        app_.dialogs.message(MessageKind::Information, kDefaultUndeletableText);
        return;
    }
    if (!app_.dialogs.askYesNo(kDeleteText + name + kContinueText)) {
        return;
    }
    std::error_code ec;
    if (!fs::remove(schemeFile(name), ec) && isRegularFile(schemeFile(name))) {
        app_.dialogs.message(MessageKind::Exclamation, kDeleteFailedText);
        return;
    }
    selecting_ = true;
    schemeList.removeItem(index);
    schemeList.setText("");
    selecting_ = false;
}

void Frmdemo::restoreDefaultCommand() {
    if (!app_.dialogs.askYesNo(kRestoreDefaultText)) {
        return;
    }
    const int index = schemeList.find(kDefaultSchemeName);
    if (index >= 0 && index != schemeList.listIndex()) {
        schemeList.setListIndex(index);
        return;
    }
    // Selected already (perhaps changed since), or its file gone: its colours again.
    if (!doload(kDefaultSchemeName)) {
        scheme_ = programLook();
        showScheme();
    }
    selectSchemeName(kDefaultSchemeName);
}

void Frmdemo::revertCommand() {
    const auto content = readWholeFile(colourFolder() / kPreviousSchemeFile);
    if (const auto previous = content ? readSchemeFile(*content) : std::nullopt) {
        scheme_ = *previous;
        showScheme();
    }
}

void Frmdemo::toggleAdvanced() {
    const bool show = !advancedFrame.visible();
    advancedFrame.setVisible(show);
    advancedButton.setCaption(show ? kBasicCaption : kAdvancedCaption);
}

// ---- scenarios ----

bool Frmdemo::saveScenarioColours(const fs::path& file) const {
    return writeFileAtomically(file, writeSchemeFile(app_.scheme));
}

bool Frmdemo::loadScenarioColours(const fs::path& file) {
    const auto content = readWholeFile(file);
    const auto read = content ? readSchemeFile(*content) : std::nullopt;
    if (!read) {
        return false;
    }
    scheme_ = *read;
    showScheme();
    apply();
    return true;
}

}  // namespace brevane
