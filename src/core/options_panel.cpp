#include "core/options_panel.h"

#include <algorithm>

#include "banks/random/randomize_settings.h"
#include "base/comma_record.h"
#include "base/dialogs.h"
#include "base/file_io.h"
#include "core/application.h"
#include "core/autostart.h"
#include "core/hotkeys.h"
#include "core/session_files.h"
#include "engine/sound_engine.h"

namespace brevane {

OptionsPanel::OptionsPanel(Application& app) : app_(app) {
    window.setCaption("Options");

    startupOptionsButton.setCaption("Startup Options");
    startupOptionsButton.onClick = [this] { showPage(startupFrame); };
    programOptionsButton.setCaption("Program Options");
    programOptionsButton.onClick = [this] { showPage(programFrame); };
    soundcardSelectButton.setCaption("Soundcard Select");
    soundcardSelectButton.onClick = [this] { showPage(soundcardFrame); };
    hotkeysButton.setCaption("Hotkeys");
    hotkeysButton.onClick = [this] { showPage(hotkeysFrame); };
    startupFrame.setCaption("Startup Options");
    programFrame.setCaption("Program Options");
    soundcardFrame.setCaption("Soundcard Select");
    hotkeysFrame.setCaption("Hotkeys");
    showPage(startupFrame);

    colourWithScenario.setCaption("Allow color scheme change with scenario change");
    colourOnRemote.setCaption("Allow color changing on remote");
    startHidden.setCaption("Minimize on startup");
    autoHide.setCaption("Auto hide interface on inactivity  ( Slideshow and panoramic modes )");
    previousScenario.setCaption("Auto load previous scenario on startup");
    inactivityLabel.setCaption("Select inactivity time ( Secs )");
    confirmExit.setCaption("Confirm Exit Application");
    brainwaveWithScenario.setCaption("Load brainwave with scenario");
    dragContents.setCaption(
        "Show window contents while dragging     ( Turn off to improve performance )");
    launchOnBoot.setCaption("Launch program automatically on boot");
    launchOnBoot.onClick = [this] { launchOnBootClicked(); };
    secondMonitor.setCaption("Show visuals on monitor 2 ( Dual monitor setup only )");

    applyButton.setCaption("Apply");
    applyButton.onClick = [this] { apply(); };
    currentSoundcard.setCaption(kCurrentSoundcard);

    closeButton.setCaption("Close");
    closeButton.onClick = [this] { window.hide(); };
}

void OptionsPanel::showPage(Label& frame) {
    for (Label* f : {&startupFrame, &programFrame, &soundcardFrame, &hotkeysFrame}) {
        f->setVisible(f == &frame);
    }
}

void OptionsPanel::load() {
    secondMonitor.setChecked(app_.settings.value(kVisualsSection, kSecondMonitorKey) == "1");
    inactivityTime.clear();
    for (const char* t : kInactivityTimes) {
        inactivityTime.addItem(t);
    }

    // Each device goes in at the top, from the last driver down to the first, so that
    // a row's index is its driver number.
    soundDevices.clear();
    for (int d = app_.engine.driverCount() - 1; d >= 0; --d) {
        soundDevices.addItem(app_.engine.driverName(d), 0);
    }
    soundDevices.setListIndex(app_.SoundCardIndex);
    currentSoundcard.setCaption(kCurrentSoundcard + app_.engine.driverName(app_.SoundCardIndex));

    hotkeys.clear();
    for (const Hotkey& key : programHotkeys()) {
        hotkeys.addItem(hotkeyLine(key));
    }

    // The defaults that are on; the others are off as created.
    colourWithScenario.setChecked(true);
    colourOnRemote.setChecked(true);
    startHidden.setChecked(true);
    autoHide.setChecked(true);
    setInactivityText(kDefaultInactivity);

    readOptionsFile();
    readLaunchFile();
    app_.InactivitySeconds = inactivitySeconds();
}

void OptionsPanel::readOptionsFile() {
    const auto content = readWholeFile(app_.appPath / kOptionsFile);
    if (!content) {
        return;
    }
    // Applied as far as the file reads: each setting stands alone.
    RecordReader reader(*content);
    const auto check = [&reader](CheckBox& box) {
        const bool on = reader.readTruth();
        if (reader.ok()) {
            box.setChecked(on);
        }
    };
    check(colourWithScenario);
    check(colourOnRemote);
    check(startHidden);
    check(autoHide);
    check(previousScenario);
    const std::string seconds = reader.readText();
    if (reader.ok()) {
        setInactivityText(seconds);
    }
    check(confirmExit);
    check(brainwaveWithScenario);
    check(dragContents);
}

void OptionsPanel::readLaunchFile() {
    const auto content = readWholeFile(app_.appPath / kLaunchFile);
    if (!content) {
        return;
    }
    RecordReader reader(*content);
    const bool on = reader.readTruth();
    if (reader.ok()) {
        loading_ = true;
        launchOnBoot.setChecked(on);
        loading_ = false;
    }
}

void OptionsPanel::setInactivityText(const std::string& text) {
    // A time of the list selects its row; any other text stands as typed.
    const int row = inactivityTime.find(text);
    if (row >= 0) {
        inactivityTime.setListIndex(row);
    }
    inactivityTime.setText(text);
}

int OptionsPanel::inactivitySeconds() const {
    return static_cast<int>(std::max<long long>(0, leadingNumber(inactivityTime.text())));
}

std::string OptionsPanel::optionsRecord() const {
    RecordWriter w;
    w.number(colourWithScenario.value())
        .number(colourOnRemote.value())
        .number(startHidden.value())
        .number(autoHide.value())
        .number(previousScenario.value())
        .text(inactivityTime.text())
        .number(confirmExit.value())
        .number(brainwaveWithScenario.value())
        .number(dragContents.value());
    return w.endRecord().str();
}

void OptionsPanel::unload() {
    writeFileAtomically(app_.appPath / kOptionsFile, optionsRecord());
    app_.settings.setValue(kVisualsSection, kSecondMonitorKey, secondMonitor.checked() ? "1" : "0");
}

void OptionsPanel::apply() {
    const int driver = soundDevices.listIndex();
    if (driver < 0) {
        return;
    }
    app_.SoundCardIndex = driver;
    // Kept at once, so the choice holds even if the program does not end by its quit.
    writeFileAtomically(app_.appPath / kSoundCardFile, writeSoundCardFile(driver));
    currentSoundcard.setCaption(kCurrentSoundcard + soundDevices.item(driver));
    app_.dialogs.message(MessageKind::Information, kRestartText);
}

void OptionsPanel::launchOnBootClicked() {
    if (loading_) {
        return;
    }
    if (app_.autostart != nullptr) {
        app_.autostart->setEnabled(launchOnBoot.checked());
    }
    writeFileAtomically(app_.appPath / kLaunchFile,
                        RecordWriter().truth(launchOnBoot.checked()).endRecord().str());
}

void OptionsPanel::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
