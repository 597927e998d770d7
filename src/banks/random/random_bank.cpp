#include "banks/random/random_bank.h"

#include <cmath>
#include <system_error>
#include <utility>

#include "banks/random/randomize_settings.h"
#include "base/comma_record.h"
#include "base/dialogs.h"
#include "base/file_io.h"
#include "base/random.h"
#include "core/application.h"
#include "core/slot_volume.h"

namespace brevane {

namespace fs = std::filesystem;

// Every value of a custom bank file, read before any is applied.
struct RandomBank::FileValues {
    std::array<int, kRecordSliderFields> sliders{};
    std::array<std::string, kRandomSlots> paths;
    std::array<std::string, kRandomSlots> captions;
};

RandomBank::RandomBank(Application& app, RandomBankConfig config)
    : Timer2(app.loop, kTickMs), timerautorandom(app.loop), app_(app), config_(std::move(config)) {
    window.setCaption(config_.heading);
    heading.setCaption(config_.heading);
    for (int s = 1; s <= kRandomSlots; ++s) {
        RandomSoundSlot& sl = slot(s);
        sl.name.setCaption(config_.names.at(static_cast<std::size_t>(s - 1)));
        sl.name.onClick = [this, s] { previewSlot(s); };
        sl.volume.onChange = [this, s] { applySlotVolume(s); };
        sl.chooser.setCaption("...");
        sl.chooser.setVisible(custom());
        sl.chooser.onClick = [this, s] { chooseFile(s); };
    }

    maxvol.onChange = [this] { maxvolChanged(); };
    Master.onChange = [this] { app_.frmmain.Master.setValue(Master.value()); };
    MP3.onChange = [this] { app_.frmmain.MP3.setValue(MP3.value()); };
    CD.onChange = [this] { app_.frmmain.CD.setValue(CD.value()); };
    Background.onChange = [this] { app_.frmmain.Background.setValue(Background.value()); };
    Bwaves.onChange = [this] { app_.frmmain.Bwaves.setValue(Bwaves.value()); };

    const char* bulkCaptions[] = {"0", "-", "+", "Max"};
    for (int b = 0; b < 4; ++b) {
        CommandButton& button = volumeButtons.at(static_cast<std::size_t>(b));
        button.setCaption(bulkCaptions[b]);
        button.onClick = [this, b] { bulkVolume(b); };
    }
    for (int b = 0; b < 3; ++b) {
        CommandButton& button = frequencyButtons.at(static_cast<std::size_t>(b));
        button.setCaption(bulkCaptions[b]);
        button.onClick = [this, b] { bulkFrequency(b); };
    }
    frequencyButtons[2].setToolTip(
        "Increases the value of all frequency sliders that are NOT in the full left position. "
        "( Toggle the 'All' button to also include sliders in the full left position )");
    allButton.setCaption("All");
    randomizeButton.setCaption("Randomize");
    randomizeButton.onClick = [this] { randomize(); };
    autoButton.setCaption("Auto");
    // The panel takes the scheme's colours as it is made: Auto starts off.
    autoOffColour_ = app_.scheme.buttonBack;
    autoOnColour_ = app_.scheme.active;
    showAuto(false);
    autoButton.onClick = [this] {
        if (!mirroringAuto_) {
            autoClicked();
        }
    };
    settingsButton.setCaption("...");
    settingsButton.onClick = [this] { settingsPanel().window.show(); };
    loadButton.setCaption("Load");
    loadButton.onClick = [this] { loadCommand(); };
    saveButton.setCaption("Save");
    saveButton.onClick = [this] { saveCommand(); };
    resetAllButton.setCaption("Reset All");
    resetAllButton.setVisible(custom());
    resetAllButton.onClick = [this] { resetAll(); };
    selectSoundsButton.setCaption("Select Sounds");
    selectSoundsButton.setVisible(custom());
    selectSoundsButton.onClick = [this] { app_.Form2.open(SelectionMode::Random); };
    hiddenSlider39.setVisible(false);
    hiddenSlider41.setVisible(false);

    wireNavigation();

    Timer2.onTick = [this] { tick(); };
    timerautorandom.onTick = [this] { autoTick(); };
}

void RandomBank::goTo(PanelWindow& target, const std::function<void()>& show) {
    app_.placeLike(target, window);
    window.hide();
    show();
}

void RandomBank::wireNavigation() {
    back2Button.setCaption("Back2");
    back2Button.onClick = [this] {
        goTo(app_.frmback2.window, [this] { app_.frmmain.background2Button.click(); });
    };
    customBackgroundButton.setCaption("Cust B");
    customBackgroundButton.onClick = [this] {
        goTo(app_.frmbackcustom.window, [this] { app_.frmmain.customBackgroundButton.click(); });
    };
    randomButton.setCaption("Rand");
    randomButton.onClick = [this] {
        if (RandomBank* target = app_.randomBank(app_.CurrentRandomBank)) {
            goTo(target->window, [this] { app_.frmmain.randomButton.click(); });
        }
    };
    for (int b = 1; b <= 4; ++b) {
        CommandButton& button = bankButtons.at(static_cast<std::size_t>(b - 1));
        button.setCaption("Bank " + std::to_string(b));
        button.setEnabled(b != config_.number);
        button.onClick = [this, b] {
            RandomBank* target = app_.randomBank(b);
            if (target != nullptr && target != this) {
                goTo(target->window, [target] { target->show(); });
            }
        };
    }
    customButton.setCaption("Custom");
    customButton.setEnabled(!custom());
    customButton.onClick = [this] {
        if (!custom()) {
            goTo(app_.frmcustom.window, [this] { app_.frmcustom.show(); });
        }
    };
    mainButton.setCaption("Main");
    mainButton.onClick = [this] {
        goTo(app_.frmmain.window, [this] { app_.frmmain.window.show(); });
    };
    identifyButton.setCaption("Identify");
    // The Identify panel opens beside the bank, which stays: the two are read together.
    identifyButton.onClick = [this] { app_.Frmsoundindent.window.show(); };
}

void RandomBank::load() {
    // The colour scheme is applied here, before the samples, once schemes exist.
    loadSamples();
    Timer2.setEnabled(true);
}

void RandomBank::unload() {
    Timer2.setEnabled(false);
    timerautorandom.setEnabled(false);
    dosave(sessionPath());
}

void RandomBank::show() {
    app_.CurrentRandomBank = config_.number;
    window.show();
}

RandomizeSettings& RandomBank::settingsPanel() {
    return custom() ? app_.Form33 : app_.Form3;
}

void RandomBank::loadSlotSample(int s, const std::string& file) {
    slot(s).sample = app_.engine.loadSample(app_.appPath / file);
}

void RandomBank::loadSamples() {
    for (int s = 1; s <= kRandomSlots; ++s) {
        const std::string& file = config_.startFiles.at(static_cast<std::size_t>(s - 1));
        // The custom bank's slots load as the user fills them.
        if (!file.empty()) {
            loadSlotSample(s, file);
        }
    }
}

int RandomBank::draw(UniformDraw d) {
    return app_.random.roll(d.count) + d.offset;
}

void RandomBank::tick() {
    switch (config_.drawOrder) {
        case DrawOrder::RollThenPick:
            rollValue = static_cast<std::int16_t>(draw(config_.roll));
            pickValue = static_cast<std::int16_t>(draw(config_.pick));
            break;
        case DrawOrder::PickThenRoll:
            pickValue = static_cast<std::int16_t>(draw(config_.pick));
            rollValue = static_cast<std::int16_t>(draw(config_.roll));
            break;
        case DrawOrder::PickThenRollWhenPicked:
            pickValue = static_cast<std::int16_t>(draw(config_.pick));
            if (pickValue >= 1 && pickValue <= kRandomSlots) {
                rollValue = static_cast<std::int16_t>(draw(config_.roll));
            }
            break;
    }
    if (pickValue < 1 || pickValue > kRandomSlots) {
        return;
    }
    if (rollValue < slot(pickValue).frequency.value()) {
        fire(pickValue);
    }
}

int RandomBank::fireLevelValue(int s) const {
    const FireLevel& level = config_.fireLevel.at(static_cast<std::size_t>(s - 1));
    switch (level.source) {
        case FireLevelSource::Mp3Group:
            return MP3.value();
        case FireLevelSource::BackgroundGroup:
            return Background.value();
        case FireLevelSource::RowVolume:
            return slot(level.row).volume.value();
        case FireLevelSource::OwnVolume:
            break;
    }
    return slot(s).volume.value();
}

std::string RandomBank::locationOf(int s) const {
    return s <= kRandomRowsPerColumn ? config_.locationColumn1 : config_.locationColumn2;
}

void RandomBank::fire(int s) {
    RandomSoundSlot& sl = slot(s);
    SoundEngine& engine = app_.engine;

    // 1. A fresh play; an earlier one of the slot goes on to its end, untracked.
    sl.channel = engine.play(sl.sample);
    // 2. A fresh pan, never changed afterwards.
    engine.setPan(sl.channel, draw(config_.pan));
    if (config_.loopOffOnPlay) {
        engine.setLoopMode(sl.channel, LoopMode::Off);
    }
    // 3. A coarse random level: b whole steps of V / 14, through the volume law.
    const double a = static_cast<double>(fireLevelValue(s)) / 14.0;
    const double b = std::floor(app_.random.next() * a);
    engine.setVolume(sl.channel,
                     slotVolumeWithFactor(app_.frmmain.Master.value(), maxvol.value(), b));
    // 4. The Identify panel's lists, seen or unseen.
    IdentifyPanel& identify = app_.Frmsoundindent;
    identify.soundPlaying.addItem(sl.name.caption());
    if (s == config_.locationAtTopSlot) {
        identify.location.addItem(locationOf(s), 0);
    } else {
        identify.location.addItem(locationOf(s));
    }
}

int RandomBank::slotVolumeOf(int s) const {
    return slotVolume(app_.frmmain.Master.value(), maxvol.value(), slot(s).volume.value());
}

void RandomBank::applySlotVolume(int s) {
    app_.engine.setVolume(slot(s).channel, slotVolumeOf(s));
}

void RandomBank::previewSlot(int s) {
    RandomSoundSlot& sl = slot(s);
    if ((sl.sample == 0 && config_.previewLoadsMissingSample) || s == config_.previewReloadSlot) {
        // The reloading slot drops the handle it held without freeing it.
        loadSlotSample(s, config_.previewFiles.at(static_cast<std::size_t>(s - 1)));
    }
    sl.channel = app_.engine.play(sl.sample);
    if (s == config_.previewRepanSlot) {
        app_.engine.setPan(slot(config_.previewRepanTarget).channel, config_.previewRepanValue);
    }
    // No pan of its own: the preview keeps the engine's centre.
    const int volumeSlot = s == config_.previewVolumeFrom ? config_.previewVolumeTo : s;
    app_.engine.setVolume(slot(volumeSlot).channel, slotVolumeOf(s));
    if (config_.loopOffOnPlay) {
        app_.engine.setLoopMode(sl.channel, LoopMode::Off);
    }
}

void RandomBank::stopBank() {
    for (int s : config_.stopSlots) {
        app_.engine.stop(slot(s).channel);
    }
}

void RandomBank::maxvolChanged() {
    app_.frmmain.Random.setValue(maxvol.value());
    updateVolumes();
}

void RandomBank::updateVolumes() {
    // The fixed banks leave slot 1 out: their pass has always begun at slot 2.
    for (int s = config_.volumePassFirstSlot; s <= kRandomSlots; ++s) {
        applySlotVolume(s);
    }
}

// ---- bulk commands, Randomize and Auto ----

void RandomBank::bulkVolume(int button) {
    for (int s = 1; s <= kRandomSlots; ++s) {
        Slider& volume = slot(s).volume;
        switch (button) {
            case 0:
                volume.setValue(0);
                break;
            case 1:
            case 2: {
                const int step = button == 1 ? -kBulkStep : kBulkStep;
                // Row 15 has always taken its new value from row 16.
                const int from = s == 15 ? slot(16).volume.value() : volume.value();
                volume.setValue(from + step);
                break;
            }
            default:
                volume.setValue(volume.high());
                break;
        }
    }
}

void RandomBank::bulkFrequency(int button) {
    for (int s = 1; s <= kRandomSlots; ++s) {
        Slider& frequency = slot(s).frequency;
        switch (button) {
            case 0:
                frequency.setValue(0);
                break;
            case 1:
                frequency.setValue(frequency.value() - kBulkStep);
                break;
            default:
                // A slider at 0 is one the user left out, unless "All" is down.
                if (allButton.value() || frequency.value() > 0) {
                    frequency.setValue(frequency.value() + kBulkStep);
                }
                break;
        }
    }
}

void RandomBank::randomize() {
    const int threshold = settingsPanel().threshold.value();
    for (int s = 1; s <= kRandomSlots; ++s) {
        Slider& frequency = slot(s).frequency;
        if (frequency.value() > kRandomizeFloor) {
            frequency.setValue(app_.random.roll(threshold) + kRandomizeFloor);
        }
    }
}

void RandomBank::autoTick() {
    // The count is never reset by Auto or Close, so the first Randomize after switching
    // on can come early.
    autoTickCount = static_cast<std::int16_t>(autoTickCount + 1);
    if (autoTickCount == kAutoTicksPerRandomize) {
        randomize();
        autoTickCount = 0;
    }
}

std::vector<RandomBank*> RandomBank::autoBanks() {
    if (custom()) {
        return {this};
    }
    const auto fixed = app_.randomBanks();
    return {fixed.begin(), fixed.end()};
}

void RandomBank::autoClicked() {
    const std::vector<RandomBank*> banks = autoBanks();
    // The button's colour, not its checked state, says whether the repeat is on.
    if (!autoOn()) {
        const int interval = settingsPanel().autoIntervalMs();
        for (RandomBank* bank : banks) {
            bank->timerautorandom.setEnabled(true);
            bank->timerautorandom.setInterval(interval);
            bank->showAuto(true);
        }
    } else {
        for (RandomBank* bank : banks) {
            bank->showAuto(false);
        }
        for (RandomBank* bank : banks) {
            bank->timerautorandom.setEnabled(false);
        }
    }
    for (RandomBank* bank : banks) {
        if (bank != this) {
            bank->setAutoChecked(autoButton.value());
        }
    }
}

bool RandomBank::autoOn() const {
    return autoButton.backColour() != autoOffColour_;
}

void RandomBank::showAuto(bool on) {
    autoButton.setBackColour(on ? autoOnColour_ : autoOffColour_);
}

void RandomBank::setAutoChecked(bool checked) {
    mirroringAuto_ = true;
    autoButton.setValue(checked);
    mirroringAuto_ = false;
}

// ---- bank files ----

std::array<int, RandomBank::kRecordSliderFields> RandomBank::sliderFields() const {
    // The panel's slider numbering: Volume and Frequency interleave, and the fixed
    // banks pad fields 39 and 41 with copies of row 23's Volume.
    std::array<int, kRecordSliderFields> f{};
    auto at = [&f](int field) -> int& { return f.at(static_cast<std::size_t>(field - 1)); };
    for (int s = 1; s <= 18; ++s) {
        at(s) = slot(s).volume.value();
    }
    at(19) = Bwaves.value();
    at(20) = Master.value();
    for (int s = 1; s <= 14; ++s) {
        at(20 + s) = slot(s).frequency.value();
    }
    for (int s = 19; s <= 22; ++s) {
        at(16 + s) = slot(s).volume.value();
    }
    at(39) = custom() ? hiddenSlider39.value() : slot(23).volume.value();
    at(40) = slot(23).volume.value();
    at(41) = custom() ? hiddenSlider41.value() : slot(23).volume.value();
    for (int s = 24; s <= 28; ++s) {
        at(18 + s) = slot(s).volume.value();
    }
    for (int s = 15; s <= 28; ++s) {
        at(32 + s) = slot(s).frequency.value();
    }
    return f;
}

void RandomBank::applySliderFields(const std::array<int, kRecordSliderFields>& f) {
    auto at = [&f](int field) { return f.at(static_cast<std::size_t>(field - 1)); };
    // In field order. The group fields 19 and 20 are never applied: a bank file brings
    // back the bank, not the console's mix. The fixed banks' 39 and 41 are copies.
    for (int s = 1; s <= 18; ++s) {
        slot(s).volume.setValue(at(s));
    }
    for (int s = 1; s <= 14; ++s) {
        slot(s).frequency.setValue(at(20 + s));
    }
    for (int s = 19; s <= 22; ++s) {
        slot(s).volume.setValue(at(16 + s));
    }
    if (custom()) {
        hiddenSlider39.setValue(at(39));
    }
    slot(23).volume.setValue(at(40));
    if (custom()) {
        hiddenSlider41.setValue(at(41));
    }
    for (int s = 24; s <= 28; ++s) {
        slot(s).volume.setValue(at(18 + s));
    }
    for (int s = 15; s <= 28; ++s) {
        slot(s).frequency.setValue(at(32 + s));
    }
}

std::string RandomBank::record() const {
    RecordWriter w;
    for (int value : sliderFields()) {
        w.number(value);
    }
    if (custom()) {
        // Field 61: a push button of the panel, whose value is false at rest.
        w.truth(false);
        for (const RandomSoundSlot& sl : slots_) {
            w.text(sl.path);
        }
        for (const RandomSoundSlot& sl : slots_) {
            w.text(sl.name.caption());
        }
    }
    w.endRecord();
    return w.str();
}

bool RandomBank::dosave(const fs::path& file) {
    return writeFileAtomically(file, record());
}

fs::path RandomBank::sessionPath() const {
    return app_.appPath / config_.sessionFile;
}

bool RandomBank::doload(const fs::path& file) {
    const std::optional<std::string> content = readWholeFile(file);
    const std::string_view text = content ? std::string_view(*content) : std::string_view();
    RecordReader reader(text);
    FileValues v;
    for (int& value : v.sliders) {
        value = reader.readShort();
    }
    if (custom()) {
        reader.readText();  // field 61, not read back
        for (std::string& path : v.paths) {
            path = reader.readText();
        }
        for (std::string& caption : v.captions) {
            caption = reader.readText();
        }
    }
    if (!content || !reader.ok()) {
        if (!config_.loadFailedText.empty()) {
            app_.dialogs.message(MessageKind::Information, config_.loadFailedText);
        }
        return false;
    }
    if (custom()) {
        applyCustomFile(v);
    } else {
        applySliderFields(v.sliders);
    }
    return true;
}

void RandomBank::applyCustomFile(const FileValues& v) {
    for (int s = 1; s <= kRandomSlots; ++s) {
        slot(s).name.setCaption(v.captions.at(static_cast<std::size_t>(s - 1)));
    }
    applySliderFields(v.sliders);
    for (int s = 1; s <= kRandomSlots; ++s) {
        const std::string& path = v.paths.at(static_cast<std::size_t>(s - 1));
        // A slot whose file stays the same keeps its sample, so what it plays goes on;
        // a new file replaces the old sample, which is freed.
        if (path != slot(s).path || slot(s).sample == 0) {
            replaceSlotSample(s, path);
        }
    }
    // A file gone since the save: its row says so, and that is the only sign.
    for (int s = 1; s <= kRandomSlots; ++s) {
        std::error_code ec;
        if (!fs::exists(app_.appPath / slot(s).path, ec)) {
            slot(s).name.setCaption(kRandomNotSetCaption);
        }
    }
}

void RandomBank::loadCommand() {
    const fs::path folder = app_.appPath / config_.bankFolder;
    std::error_code ec;
    fs::create_directories(folder, ec);
    dialogFileName.clear();
    const auto chosen =
        app_.dialogs.openFile(FileDialogRequest{config_.heading, folder, config_.bankFilter, {}});
    if (chosen) {
        dialogFileName = chosen->string();
    }
    if (!dialogFileName.empty()) {
        doload(dialogFileName);
    }
}

void RandomBank::saveCommand() {
    const fs::path folder = app_.appPath / config_.bankFolder;
    std::error_code ec;
    fs::create_directories(folder, ec);
    // The dialog keeps the name its last use left, so a cancelled Save after a Load
    // writes over the file loaded.
    const auto chosen = app_.dialogs.saveFile(
        FileDialogRequest{config_.heading, folder, config_.bankFilter, dialogFileName});
    if (chosen) {
        dialogFileName = chosen->string();
    }
    if (!dialogFileName.empty()) {
        dosave(dialogFileName);
    }
}

// ---- the custom bank's files ----

void RandomBank::replaceSlotSample(int s, const std::string& relative, bool checked) {
    RandomSoundSlot& sl = slot(s);
    if (sl.sample != 0) {
        app_.engine.freeSample(sl.sample);
    }
    // An empty path names no file: the slot is left without a sample.
    const fs::path file = app_.appPath / relative;
    if (relative.empty()) {
        sl.sample = 0;
    } else {
        sl.sample = checked ? app_.engine.loadCheckedSample(file) : app_.engine.loadSample(file);
    }
    sl.path = relative;
}

void RandomBank::chooseFile(int s) {
    if (!custom()) {
        return;
    }
    RandomSoundSlot& sl = slot(s);
    const fs::path folder = app_.appPath / kRandomSoundsFolder;
    const std::string folderText = folder.generic_string();
    std::optional<fs::path> chosen;
    for (;;) {
        chosen = app_.dialogs.openFile(
            FileDialogRequest{sl.name.caption(), folder, kRandomSoundFileFilter, {}});
        if (!chosen) {
            return;
        }
        if (chosen->generic_string().find(folderText) != std::string::npos) {
            break;
        }
        app_.dialogs.message(MessageKind::Information, kRandomOutsideFolderText);
    }
    // A path that only names the folder on its way elsewhere ("..") is taken as a copy.
    const auto kept = keptInsideTree(app_.appPath.root(), *chosen, folder);
    if (!kept) {
        app_.dialogs.message(MessageKind::Information, kRandomCannotOpenText);
        return;
    }
    replaceSlotSample(s, app_.appPath.relativeText(*kept), true);
    app_.engine.stop(sl.channel);
    sl.name.setCaption(fs::path(sl.path).stem().string());
    if (sl.sample == 0) {
        app_.dialogs.message(MessageKind::Information, kRandomCannotOpenText);
    }
}

void RandomBank::renameSlot(int s) {
    if (!custom()) {
        return;
    }
    const std::string name = app_.dialogs.inputBox(kRandomRenamePrompt, {}, {});
    if (!name.empty()) {
        slot(s).name.setCaption(name);
    }
}

std::vector<std::string> RandomBank::bulkLoad(
    const std::array<std::string, kRandomSlots>& handOver) {
    std::vector<std::string> failed;
    if (!custom()) {
        return failed;
    }
    for (int s = 1; s <= kRandomSlots; ++s) {
        app_.engine.stop(slot(s).channel);
    }
    for (int s = 1; s <= kRandomSlots; ++s) {
        const std::string& entry = handOver.at(static_cast<std::size_t>(s - 1));
        if (entry.empty()) {
            break;
        }
        // A sound from outside the tree comes in as a copy, so that the bank, and the
        // scenarios saved from it, never point outside.
        const auto kept =
            keptInsideTree(app_.appPath.root(), entry, app_.appPath / kRandomSoundsFolder);
        if (!kept) {
            failed.push_back(fs::path(entry).filename().string());
            continue;
        }
        // Decoded on the spot, so that a file that will not play is known now.
        replaceSlotSample(s, app_.appPath.relativeText(*kept), true);
        if (slot(s).sample == 0) {
            failed.push_back(fs::path(slot(s).path).filename().string());
        }
        slot(s).name.setCaption(fs::path(slot(s).path).stem().string());
    }
    return failed;
}

void RandomBank::resetAll() {
    if (!custom() || !app_.dialogs.askYesNo(kRandomResetAllQuestion)) {
        return;
    }
    for (int s = 1; s <= kRandomSlots; ++s) {
        slot(s).name.setCaption(kRandomNotSetCaption);
    }
    for (int s = 1; s <= kRandomSlots; ++s) {
        replaceSlotSample(s, {});
    }
}

Slider* RandomBank::groupCopy(MixGroup group) {
    return groupCopyAmong(group, {&Master, &maxvol, &Background, &MP3, &CD, &Bwaves});
}

void RandomBank::docolors() {
    // Auto's state is its colour: read it in the colours the bank was painted with,
    // and show it again in the new ones.
    const bool on = autoOn();
    colours.paint(app_.scheme);
    autoOffColour_ = app_.scheme.buttonBack;
    autoOnColour_ = app_.scheme.active;
    showAuto(on);
}

}  // namespace brevane
