#include "core/frmmain.h"

#include <filesystem>

#include "base/dialogs.h"
#include "base/file_io.h"
#include "core/application.h"
#include "engine/sound_engine.h"

namespace brevane {

Frmmain::Frmmain(Application& app)
    : TimerIntroVolFade(app.loop, kIntroFadeMs),
      Timer4(app.loop, kFirstRunMs),
      Timershowoldform(app.loop, kShowOldFormMs),
      Timer10(app.loop, kMinimizeMs),
      Timer2(app.loop, kClockMs),
      Timercustomlcdupdate(app.loop, kCustomLcdUpdateMs),
      Timerflash(app.loop, kFlashMs),
      timerpresetstatus(app.loop, kPresetStatusMs),
      app_(app) {
    window.setCaption("Brevane");
    for (MixGroup g : kMixGroups) {
        group(g).onChange = [this, g] { groupChanged(g); };
    }

    background1Button.setCaption("Background 1");
    background1Button.onClick = [this] { app_.frmback.show(); };
    background2Button.setCaption("Background 2");
    background2Button.onClick = [this] { app_.frmback2.show(); };
    customBackgroundButton.setCaption("Custom Background");
    customBackgroundButton.onClick = [this] { app_.frmbackcustom.show(); };
    randomButton.setCaption("Random");
    randomButton.onClick = [this] { showRandomBank(); };
    identifyButton.setCaption("Identify");
    identifyButton.onClick = [this] { app_.Frmsoundindent.window.show(); };
    masterStopButton.setCaption("Master Stop");
    masterStopButton.onClick = [this] { masterStop(); };
    QuitCommand.setCaption("Quit");
    QuitCommand.onClick = [this] {
        if (app_.FRMOPTIONS.confirmExit.checked()) {
            // The slideshow closes and the panoramic hides before the question; a No
            // leaves the rest as it was.
            if (app_.Form1.window.visible()) {
                app_.Form1.unload();
            }
            app_.form999.window.hide();
            if (!app_.dialogs.askYesNo(kReallyQuitText)) {
                return;
            }
        }
        quitWithoutAsking();
    };

    TimerIntroVolFade.onTick = [this] { introFadeTick(); };
    wireSession();
    wireConsole();
    wireStatus();
    wireScenarios();
    wirePresets();
}

GroupSlider& Frmmain::group(MixGroup which) {
    switch (which) {
        case MixGroup::Master:
            return Master;
        case MixGroup::Background:
            return Background;
        case MixGroup::Random:
            return Random;
        case MixGroup::MP3:
            return MP3;
        case MixGroup::CD:
            return CD;
        case MixGroup::Bwaves:
            break;
    }
    return Bwaves;
}

void Frmmain::load() {
    // 1. The "Random" button starts on the first bank.
    app_.CurrentRandomBank = 1;

    // 2. The output device of the last session.
    readSoundCard();

    // 3. The sound engine. Without it there is no program: tell the user and end at
    //    once, with nothing cleaned up and nothing written.
    if (!app_.engine.start(app_.SoundCardIndex)) {
        app_.dialogs.message(MessageKind::Information, kEngineFailedText);
        app_.requestExit(ExitKind::Immediate);
        return;
    }
    //    A device no longer there has given way to the system's default output, driver
    //    0, which the options then show as the current one.
    if (app_.SoundCardIndex < 0 || app_.SoundCardIndex >= app_.engine.driverCount()) {
        app_.SoundCardIndex = 0;
    }

    // 4. The hidden scenario file list points at config/scenarios.
    // 5. The default colour values; the scheme is marked default; the console's
    //    background picture is kept as the reference picture.
    // 6. Every panel loaded so far redraws its menu bar.
    // 7. The console's window border style.
    // 8. The alarm-off command runs once, so the alarm starts disarmed; the
    //    alarm-running flag is cleared.
    app_.Alarm.alarmOff();
    // 9. AppPath ends in a separator (AppPath::text() always does).
    // 10. The scenario list fills from config/scenarios, and with it the tray
    //     menu's scenario entries.
    refreshscenariolist();
    // 11. main.tmp: alarm state, previous scenario, the randomise panels' sliders.
    readMainAtLoad();

    // The hidden panels come into being here, before the session of step 12 touches
    // them: each background bank sets its drift speeds, each random bank loads its
    // samples and starts its scheduler. The custom random bank loads here too.
    for (BackgroundBank* bank : app_.backgroundBanks()) {
        bank->load();
    }
    for (RandomBank* bank : app_.randomBanks()) {
        bank->load();
    }
    app_.frmcustom.load();
    watchCustomBanks();
    app_.Form3.load();
    app_.Form33.load();
    app_.Frmsoundindent.load();
    app_.Form2.load();
    app_.FRMOPTIONS.load();
    app_.frmevolve.load();
    app_.frmbwave.load();
    app_.Alarm.load();

    // 12. mainb.tmp: group sliders (Master stays low for the intro fade and its saved
    //     value becomes SavedMasterLevel), presets, colours, remote, bank states and
    //     their randomise timers.
    readMainbAtLoad();
    // 13. Preset buttons still "Currently Unassigned" take the scheme's button colour:
    //     every button of the console paints from the scheme already (docolors).
    // 14. The scenario preset list, the previous scenario on the status display,
    //     loadslidergrads (the sliders paint with their panels, docolors).
    // 15. folderselect, the remote's "Scenario: " caption, the colour scheme through
    //     frmDemo (its list, colors.tmp, and Apply once, so every panel paints from the
    //     restored scheme), checklcd; then the splash goes and the console takes its
    //     place.
    app_.frmremote2.load();
    app_.Formfolderselect.load();
    if (carry.remoteCaption.empty()) {
        carry.remoteCaption = kRemoteScenarioPrefix + app_.CurrentScenarioName;
    }
    app_.Frmcolorpicker.load();
    app_.frmDemo.load();
    app_.frmDemo.apply();
    checklcd();
    app_.STARTUP.unload();
    window.show();
    Timer2.setEnabled(true);

    // 16. Every panel's copies of the group values are brought up to date.
    Master.fireChange();
    Background.fireChange();
    Random.fireChange();
    CD.fireChange();
    MP3.fireChange();

    // 17. The tray icon, tooltip "Brevane", menu mnutray.
    trayIcon.setToolTip(kTrayToolTip);
    trayIcon.setVisible(true);
    // 18. Timers loads hidden and its schedule runs from here; frmeffects loads hidden.
    app_.frmaddscenariodirectory.load();
    app_.Timers.load();
    app_.frmeffects.load();
    app_.frmmainmp3.load();
    app_.frmcd.load();
    // 19. "Static" and "Disabled" on the weather and night lines.
    LCD4.setLine(3, "Static");
    LCD4.setLine(4, "Disabled");

    // 20. The intro fade of Master; dobrainwavecheck.
    TimerIntroVolFade.setEnabled(true);
    dobrainwavecheck();

    // 21. The alarm is armed again if it was at the end of the last session.
    if (app_.AlarmArmed == "True") {
        app_.Alarm.alarmOn();
    }
    // 22. "Auto load previous scenario on startup": the restore command.
    if (app_.FRMOPTIONS.previousScenario.checked()) {
        restoreCommand.click();
    }
    // 23. InactivitySeconds from the options.
    app_.InactivitySeconds = app_.FRMOPTIONS.inactivitySeconds();
    // 24. "Minimize on startup": Timer10.
    if (app_.FRMOPTIONS.startHidden.checked()) {
        Timer10.setEnabled(true);
    }
    // 25. First run (no main.tmp): Timer4, and doload with an empty name, which finds
    //     the first-run soundscape the program ships. The stock preset list puts the
    //     stock scenarios on the fourteen buttons.
    std::error_code ec;
    if (!std::filesystem::exists(app_.appPath / kMainFile, ec)) {
        Timer4.setEnabled(true);
        readPresetListFile(app_.appPath / kPresetFolder /
                           (std::string(kStockPresetList) + kPresetListExtension));
        doload("");
    }
    sessionLoaded_ = true;
}

void Frmmain::readSoundCard() {
    const auto content = readWholeFile(app_.appPath / kSoundCardFile);
    if (!content) {
        return;
    }
    const SessionRead<int> read = readSoundCardFile(*content);
    if (read.has(1)) {
        app_.SoundCardIndex = read.record;
    }
}

void Frmmain::introFadeTick() {
    if (Master.value() < app_.SavedMasterLevel) {
        Master.setValue(Master.value() + 1);
    }
    // A slider at its top end can rise no further: the fade ends there too.
    if (Master.value() >= app_.SavedMasterLevel || Master.value() == Master.high()) {
        TimerIntroVolFade.setEnabled(false);
    }
}

void Frmmain::groupChanged(MixGroup which) {
    if (which == MixGroup::Master && muted()) {
        // A move of Master while muted cancels the mute: the kept level comes back
        // first and goes out to every copy in place of the moved value.
        unmute();
        return;
    }
    GroupSlider& slider = group(which);
    const auto followers = app_.groupFollowers();
    for (MixGroupFollower* follower : followers) {
        if (Slider* copy = follower->groupCopy(which)) {
            // Read anew for each copy: a copy's own handler may have moved this slider.
            copy->setValue(slider.value());
        }
    }
    if (which == MixGroup::Master) {
        for (MixGroupFollower* follower : followers) {
            follower->updateVolumes();
        }
    }
    // The beat generator (Bwaves, Master), the MP3 player and the remote follow here.
    const auto hooks = groupHooks_[static_cast<std::size_t>(which)];
    for (const GroupHook& hook : hooks) {
        hook(slider.value());
    }
}

void Frmmain::showRandomBank() {
    // 1 to 4 are the fixed banks, 5 the custom bank.
    if (RandomBank* bank = app_.randomBank(app_.CurrentRandomBank)) {
        bank->show();
    }
}

void Frmmain::masterStop() {
    // Every slider of every slot goes to zero, Volume and Frequency alike: the latest
    // plays fall silent through their Volume handlers and nothing fires again, not
    // even the slots that take their firing level from a group slider. The custom
    // random bank's sliders go first.
    for (int s = 1; s <= kRandomSlots; ++s) {
        app_.frmcustom.slot(s).volume.setValue(0);
        app_.frmcustom.slot(s).frequency.setValue(0);
    }
    for (RandomBank* bank : app_.randomBanks()) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            bank->slot(s).volume.setValue(0);
            bank->slot(s).frequency.setValue(0);
        }
    }
    // Then every slot check box of frmback, frmback2 and frmbackcustom is cleared: the
    // check boxes' handlers stop the loops and free their samples.
    for (BackgroundBank* bank : app_.backgroundBanks()) {
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            bank->slot(s).on.setValue(0);
        }
    }
    for (RandomBank* bank : app_.randomBanks()) {
        bank->stopBank();
    }
}

void Frmmain::quitWithoutAsking() {
    if (quitting_) {
        return;
    }
    quitting_ = true;
    // A quit before the load has read the last session (during the splash, or inside
    // a message of the restore) ends without writing: what it would write is not that
    // session but the built-in values, in place of the user's.
    if (!sessionLoaded_) {
        app_.requestExit(ExitKind::AfterCleanUp);
        return;
    }

    // 2. The tray icon goes; the console, the banks and the Identify panel hide (and
    //    frmeffects, frmmainmp3 and frmcd).
    trayIcon.setVisible(false);
    window.hide();
    app_.hideBanks();
    app_.Frmsoundindent.window.hide();
    app_.Form2.window.hide();
    app_.frmremote2.window.hide();
    app_.Form1.window.hide();
    app_.form999.window.hide();

    // 3. states.tmp: the five session flags.
    writeSessionStates();

    // 4. The mouse pointer shows, the console's timers stop, the engine closes.
    TimerIntroVolFade.setEnabled(false);
    Timer2.setEnabled(false);
    app_.engine.close();

    // 5. mainb.tmp, main.tmp, scard.tmp.
    writeSessionFiles();

    // 6. Every panel unloads in turn, and the program ends.
    app_.unloadPanels();
    app_.requestExit(ExitKind::AfterCleanUp);
}

void Frmmain::unload() {
    TimerIntroVolFade.setEnabled(false);
    Timer4.setEnabled(false);
    Timershowoldform.setEnabled(false);
    Timer10.setEnabled(false);
    Timer2.setEnabled(false);
    Timercustomlcdupdate.setEnabled(false);
}

}  // namespace brevane
