// The console's commands: its buttons, the tray menu, mute, the hooks later panels
// attach to, and the two companions beside the program (recorder and manual).

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>
#include <vector>

#include "base/app_path.h"
#include "base/dialogs.h"
#include "core/application.h"
#include "core/frmmain.h"

namespace brevane {

namespace fs = std::filesystem;

void Frmmain::wireConsole() {
    mp3Button.setCaption("MP3");
    mp3Button.setToolTip("Play your own music beside the soundscape");
    mp3Button.onClick = [this] { app_.frmmainmp3.open(); };
    cdButton.setCaption("CD");
    cdButton.setToolTip("Play an audio CD beside the soundscape");
    cdButton.onClick = [this] { app_.frmcd.open(); };
    switchToControllerButton.setCaption("Switch to controller");
    switchToControllerButton.setToolTip("Put the small remote in the console's place");
    switchToControllerButton.onClick = [this] { app_.frmremote2.switchToController(); };
    importButton.setCaption("Import");
    importButton.setToolTip("Install a packaged scenario");
    importButton.onClick = [this] { app_.Frmimport.window.show(); };
    exportButton.setCaption("Export");
    exportButton.setToolTip("Package the current scenario to carry to another computer");
    exportButton.onClick = [this] { app_.formexportscen.open(); };
    scheduleButton.setCaption("Schedule");
    scheduleButton.setToolTip("Change the scenario at chosen times, or from a playlist");
    scheduleButton.onClick = [this] { app_.Timers.show(); };
    alarmSettingsButton.setCaption("...");
    alarmSettingsButton.setToolTip("Alarm settings");
    alarmSettingsButton.onClick = [this] { app_.Alarm.window.show(); };
    alarmOnButton.setCaption("Alarm On");
    alarmOnButton.onClick = [this] { app_.Alarm.alarmOn(); };
    alarmOffButton.setCaption("Alarm Off");
    alarmOffButton.onClick = [this] { app_.Alarm.alarmOff(); };

    brainwavesButton.setCaption("Brainwaves");
    brainwavesButton.setToolTip("Binaural beats: two tones a little apart, one in each ear");
    brainwavesButton.onClick = [this] { app_.frmbwave.window.show(); };
    evolveButton.setCaption("Evolve");
    evolveButton.setToolTip("Rain, thunder and the night coming by themselves");
    evolveButton.onClick = [this] { app_.frmevolve.window.show(); };
    effectsButton.setCaption("Effects");
    effectsButton.setToolTip("The equalizer and the reverb over all the sound");
    effectsButton.onClick = [this] { app_.frmeffects.window.show(); };

    colorsButton.setCaption("Colors");
    colorsButton.setToolTip("The colors of every panel, and the named color schemes");
    colorsButton.onClick = [this] { app_.frmDemo.show(); };

    optionsButton.setCaption("Options");
    optionsButton.onClick = [this] { app_.FRMOPTIONS.window.show(); };

    recButton.setCaption("Rec");
    recButton.setToolTip("Record what you hear with the companion recorder");
    recButton.onClick = [this] { startRecorder(); };
    helpButton.setCaption("Help");
    helpButton.setToolTip("Open the manual");
    helpButton.onClick = [this] { openManual(); };

    infoButton.setCaption("Info");
    infoButton.setToolTip("Show or hide the information about the scenario");
    information.setText(kNoInformationText);
    information.setVisible(false);
    infoButton.onClick = [this] { information.setVisible(infoButton.value()); };

    buildTrayMenu();
}

// ---- group sliders ----

void Frmmain::onGroupMoved(MixGroup group, GroupHook hook) {
    groupHooks_[static_cast<std::size_t>(group)].push_back(std::move(hook));
}

bool Frmmain::muted() const {
    return mnuMute_->checked();
}

void Frmmain::mute() {
    if (muted()) {
        unmute();
        return;
    }
    mutedMasterLevel_ = Master.value();
    // Silence is Master at 0, below the lowest level a hand can set: every copy must
    // be able to hold it too, or a copy would write its own lower end back.
    setMasterFloor(0);
    Master.setValue(0);
    mnuMute().setChecked(true);
}

void Frmmain::unmute() {
    // Unmarked first, so the kept level comes back as an ordinary move of Master.
    mnuMute().setChecked(false);
    const int before = Master.value();
    Master.setValue(mutedMasterLevel_);
    if (Master.value() == before) {
        // A hand already put Master on the kept level: the copies still hold 0.
        Master.fireChange();
    }
    // Only now, with every copy above it, may the hand's lower end come back.
    setMasterFloor(mixGroupRange(MixGroup::Master).low);
}

void Frmmain::setMasterFloor(int low) {
    Master.setRange(low, Master.high());
    for (MixGroupFollower* follower : app_.groupFollowers()) {
        if (Slider* copy = follower->groupCopy(MixGroup::Master)) {
            copy->setRange(low, copy->high());
        }
    }
}

// ---- the tray menu ----

void Frmmain::buildTrayMenu() {
    mnutray.setCaption("mnutray");
    mnutray.addEntry("Slideshow").onClick = [this] { app_.Form1.start(); };
    // There are no movies: the entry stays greyed.
    mnutray.addEntry("Movie").setEnabled(false);
    mnutray.addEntry("Panoramic").onClick = [this] { app_.form999.start(); };
    mnutray.addSeparator();
    mnuScenario_ = &mnutray.addEntry("Scenario");
    mnuMute_ = &mnutray.addEntry("Mute");
    mnuMute_->onClick = [this] { mute(); };
    mnutray.addEntry("Show Remote").onClick = [this] { app_.frmremote2.showRemote(); };
    MenuEntry& showMain = mnutray.addEntry("Show Main");
    showMain.onClick = [this] { window.show(); };
    MenuEntry& quit = mnutray.addEntry("Quit App");
    quit.onClick = [this] { QuitCommand.click(); };
    buildScenarioMenu();
}

// ---- companions ----

void Frmmain::startRecorder() {
    if (!app_.launcher.startProgram(app_.appPath / kRecorderProgram)) {
        app_.dialogs.message(MessageKind::Information, kRecorderMissingText);
    }
}

void Frmmain::openManual() {
    // A desktop without a handler for the manual leaves the click without effect; the
    // console reports no error of its own.
    app_.desktop.openDocument(app_.appPath / kManual);
}

}  // namespace brevane
