// The console's session: the files it reads at start and writes at quit, the restore
// of the previous session, and the first run.

#include <filesystem>
#include <string_view>

#include "base/comma_record.h"
#include "base/file_io.h"
#include "core/application.h"
#include "core/frmmain.h"
#include "engine/sound_engine.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

// The console's load reads the first four fields of main.tmp, recallprevious seven.
constexpr int kMainFieldsAtLoad = 4;
constexpr int kMainFieldsRecalled = 7;

std::string withForward(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (c == '\\') {
            c = '/';
        }
    }
    return out;
}

// `label` without the tree folder `folder` ("visual/slideshow") in front, in either
// separator, as the labels show a folder's own name.
std::string withoutTreeFolder(const std::string& label, const AppPath& appPath,
                              std::string_view folder) {
    const std::string prefix = withForward(appPath.text()) + std::string(folder) + "/";
    const std::string forward = withForward(label);
    if (forward.size() >= prefix.size() && forward.compare(0, prefix.size(), prefix) == 0) {
        return label.substr(prefix.size());
    }
    return label;
}

}  // namespace

void Frmmain::wireSession() {
    restoreCommand.setVisible(false);
    restoreCommand.onClick = [this] { restorePreviousSession(); };
    Timer4.onTick = [this] { firstRunTick(); };
    Timershowoldform.onTick = [this] { showOldFormTick(); };
    Timer10.onTick = [this] { minimizeTick(); };
    // The console coming to the front: it is the interface now, not the remote.
    window.watch([this] { trackMainShown(); });
}

void Frmmain::trackMainShown() {
    // MainShown says whether the console is on screen: set when it comes to the front,
    // cleared when it hides into the tray. The quit hides it too, on its way out, but
    // the session keeps it as it stood when the user quit.
    if (quitting_) {
        return;
    }
    const bool shown = window.visible();
    if (shown && !shownBefore_) {
        app_.RemoteShown = false;
    }
    app_.MainShown = shown;
    shownBefore_ = shown;
}

// ---- start ----

void Frmmain::readMainAtLoad() {
    // A session file whose write was cut short by a kill is still whole, but the
    // temporary copy it was written through stays beside it; it goes here.
    removeLeftoverTemporaries(app_.appPath.root());
    const auto content = readWholeFile(app_.appPath / kMainFile);
    if (!content) {
        return;
    }
    const SessionRead<MainRecord> read = readMainFile(*content, kMainFieldsAtLoad);
    const MainRecord& r = read.record;
    if (read.has(1)) {
        app_.AlarmArmed = r.alarmState;
    }
    if (read.has(2)) {
        app_.CurrentScenarioName = r.scenarioName;
    }
    if (read.has(3)) {
        app_.Form3.threshold.setValue(r.form3Randomise);
    }
    if (read.has(4)) {
        app_.Form33.threshold.setValue(r.form33Randomise);
    }
}

void Frmmain::readMainbAtLoad() {
    const auto content = readWholeFile(app_.appPath / kMainbFile);
    if (!content) {
        return;
    }
    const SessionRead<MainbRecord> read = readMainbFile(*content);
    const MainbRecord& r = read.record;

    // Master stays low for the intro fade, which rises to the saved level.
    if (read.has(1)) {
        app_.SavedMasterLevel = r.groups[0];
    }
    GroupSlider* const groups[] = {&Master, &Background, &Random, &MP3, &CD};
    for (int g = 1; g < 5; ++g) {
        if (read.has(g + 1)) {
            groups[g]->setValue(r.groups[static_cast<std::size_t>(g)]);
        }
    }
    for (int p = 0; p < 12; ++p) {
        if (read.has(6 + p)) {
            presetButtons[static_cast<std::size_t>(p)].setCaption(
                r.presetCaptions[static_cast<std::size_t>(p)]);
        }
    }
    // The scheme's colours, each a decimal text; one that is not a colour number leaves
    // the built-in value. frmDemo applies the scheme at the end of the load.
    for (int c = 0; c < kSchemeColours; ++c) {
        if (read.has(18 + c)) {
            if (const auto colour = colourFromText(r.colours[static_cast<std::size_t>(c)])) {
                setSessionColour(app_.scheme, c, *colour);
            }
        }
    }
    for (int f = 0; f < 4; ++f) {
        if (read.has(28 + f)) {
            carry.hiddenConsoleFields[static_cast<std::size_t>(f)] =
                r.hiddenConsoleFields[static_cast<std::size_t>(f)];
        }
    }
    if (read.has(32)) {
        app_.frmremote2.slideshowFolder.setText(r.remoteFolder);
    }
    if (read.has(33)) {
        carry.remoteCaption = r.remoteCaption;
    }
    if (read.has(34)) {
        carry.slideshowLabel = r.slideshowLabel;
    }
    // The Auto states: the custom bank's own, and one for all four fixed banks. A bank
    // whose saved state is on starts its repeat at its settings panel's period; of the
    // fixed banks only the first does, as it always has.
    if (read.has(35)) {
        app_.frmcustom.setAutoChecked(r.customRandomAuto);
        if (r.customRandomAuto) {
            app_.frmcustom.timerautorandom.setInterval(app_.Form33.autoIntervalMs());
            app_.frmcustom.timerautorandom.setEnabled(true);
        }
    }
    if (read.has(36)) {
        for (RandomBank* bank : app_.randomBanks()) {
            bank->setAutoChecked(r.randomAuto);
        }
        if (r.randomAuto) {
            app_.frmrandommain.timerautorandom.setInterval(app_.Form3.autoIntervalMs());
            app_.frmrandommain.timerautorandom.setEnabled(true);
        }
    }
    // Field 37 holds preset 12's caption, but is read as the sound card: a number that
    // names a device of the list is kept for the next start (the engine is open by
    // now); a caption leaves the card as it is.
    if (read.has(37)) {
        const std::optional<int> card = wholeNumberText(r.field37);
        if (card && *card >= 0 && *card < app_.engine.driverCount()) {
            app_.SoundCardIndex = *card;
        }
    }
    for (int p = 12; p < 14; ++p) {
        if (read.has(26 + p)) {
            presetButtons[static_cast<std::size_t>(p)].setCaption(
                r.presetCaptions[static_cast<std::size_t>(p)]);
        }
    }
    // Field 40, the scenario's name, was read from main.tmp already; 42, the remote's
    // caption again, is the same as 33.
    if (read.has(41)) {
        PresetListName = r.presetListName;
    }
    if (read.has(43)) {
        app_.Timers.playlistName.setCaption(r.schedulerCaption);
        updatelcdplaylist(r.schedulerCaption);
    }
    // The remote's visual settings: the time per picture and the panoramic's name, the
    // unit of the time, the panoramic's speed and where the slideshow had got to.
    Frmremote2& remote = app_.frmremote2;
    TextBox* const texts[] = {&remote.Text1, &remote.Text2};
    OptionButton* const options[] = {&remote.Option1, &remote.Option2};
    for (int i = 0; i < 2; ++i) {
        const auto u = static_cast<std::size_t>(i);
        // A blank text (a session from before the remote) keeps the remote's own.
        if (read.has(44 + i) && !r.remoteTexts[u].empty()) {
            texts[i]->setText(r.remoteTexts[u]);
        }
        if (read.has(46 + i) && r.remoteOptions[u]) {
            options[i]->setValue(true);
        }
    }
    if (read.has(48)) {
        remote.speed.setValue(r.remoteScrolls[0]);
    }
    if (read.has(49)) {
        app_.Form1.imageNumber = static_cast<std::int16_t>(r.remoteScrolls[1]);
    }
    if (read.has(50)) {
        carry.brainwaveList = r.brainwaveList;
    }
}

// ---- the restore command and recallprevious ----

void Frmmain::restorePreviousSession() {
    // Each bank takes its copy through its own load entry, in this order. A copy that
    // is not there is passed over: that bank keeps its start-up state.
    const auto restore = [](auto& bank) {
        const fs::path copy = bank.sessionPath();
        std::error_code ec;
        if (fs::is_regular_file(copy, ec)) {
            bank.doload(copy);
        }
    };
    restore(app_.frmback);
    restore(app_.frmrandommain);
    restore(app_.frmrandommain2);
    restore(app_.frmrandommain3);
    restore(app_.frmrandommain4);
    restore(app_.frmback2);
    restore(app_.frmbackcustom);
    restore(app_.frmcustom);
    recallprevious();
}

void Frmmain::recallprevious() {
    const auto states = readWholeFile(app_.appPath / kStatesFile);
    if (!states) {
        return;
    }
    const SessionRead<StatesRecord> flags = readStatesFile(*states);
    bool* const targets[] = {&app_.RemoteShown, &app_.MainShown, &app_.PanoramicShown,
                             &app_.SlideshowShown, &app_.VisualFlag5};
    const bool values[] = {flags.record.RemoteShown, flags.record.MainShown,
                           flags.record.PanoramicShown, flags.record.SlideshowShown,
                           flags.record.VisualFlag5};
    for (int f = 0; f < StatesRecord::kFields; ++f) {
        if (flags.has(f + 1)) {
            *targets[f] = values[f];
        }
    }

    const auto main = readWholeFile(app_.appPath / kMainFile);
    const SessionRead<MainRecord> read =
        main ? readMainFile(*main, kMainFieldsRecalled) : SessionRead<MainRecord>{};
    const MainRecord& r = read.record;
    // Fields 1, 3 and 4 were applied by the load; the labels show the folders by their own names.
    // The remote's folder controls point at the slideshow folder once the remote is in the program.
    if (read.has(5)) {
        carry.slideshowLabel =
            withoutTreeFolder(r.slideshowLabel, app_.appPath, "visual/slideshow");
    }
    if (read.has(6)) {
        carry.panoramicLabel =
            withoutTreeFolder(r.panoramicLabel, app_.appPath, "visual/panoramics");
    }
    if (read.has(7)) {
        app_.frmDemo.selectSchemeName(r.colourSchemeName);
    }
    // The previous scenario comes back on the status display.
    if (read.has(2)) {
        app_.CurrentScenarioName = r.scenarioName;
    }
    // The remote's slideshow is the one the label names.
    app_.frmremote2.pointAtSlideshow(carry.slideshowLabel.empty() ? std::string(kDefaultSlideshow)
                                                                  : carry.slideshowLabel);
    if (!carry.panoramicLabel.empty()) {
        app_.frmremote2.setPanoramic(carry.panoramicLabel);
    }
    checklcd();
    // The delayed return below goes by the flags as the session left them, whatever
    // hides the console meanwhile ("Minimize on startup").
    recalledRemoteShown_ = app_.RemoteShown;
    recalledMainShown_ = app_.MainShown;
    Timershowoldform.setEnabled(true);

    if (app_.PanoramicShown) {
        app_.form999.start();
    }
    if (app_.SlideshowShown) {
        app_.Form1.start();
    }
    if (app_.RemoteShown) {
        app_.frmremote2.showRemote();
    }
    if (app_.MainShown) {
        window.show();
    } else {
        window.hide();
    }
}

void Frmmain::showOldFormTick() {
    Timershowoldform.setEnabled(false);
    // The remote comes back when it stood in for the console; else the console when
    // it was the interface.
    if (recalledRemoteShown_) {
        app_.frmremote2.showRemote();
        app_.RemoteShown = true;
    } else if (recalledMainShown_) {
        window.show();
    }
}

// ---- first run and minimize ----

void Frmmain::firstRunTick() {
    Timer4.setEnabled(false);
    app_.Formtips.show();
    app_.FRMOPTIONS.previousScenario.setChecked(true);
    app_.CurrentScenarioName = kFirstRunScenario;
    checklcd();
}

void Frmmain::minimizeTick() {
    Timer10.setEnabled(false);
    window.hide();
    app_.frmremote2.window.hide();
}

// ---- quit ----

MainRecord Frmmain::mainRecord() const {
    MainRecord r;
    r.alarmState = app_.AlarmArmed == "True" ? "True" : "False";
    r.scenarioName = app_.CurrentScenarioName;
    r.form3Randomise = app_.Form3.threshold.value();
    r.form33Randomise = app_.Form33.threshold.value();
    r.slideshowLabel = carry.slideshowLabel;
    r.panoramicLabel = carry.panoramicLabel;
    r.colourSchemeName = app_.frmDemo.schemeName();
    r.soundCardIndex = app_.SoundCardIndex;
    return r;
}

MainbRecord Frmmain::mainbRecord() const {
    MainbRecord r;
    r.groups = {Master.value(), Background.value(), Random.value(), MP3.value(), CD.value()};
    r.presetCaptions = presetCaptions();
    const auto scheme = sessionColours(app_.scheme);
    for (std::size_t c = 0; c < scheme.size(); ++c) {
        r.colours[c] = colourText(scheme[c]);
    }
    r.hiddenConsoleFields = carry.hiddenConsoleFields;
    r.remoteFolder = app_.frmremote2.slideshowFolder.text();
    r.remoteCaption = carry.remoteCaption;
    r.slideshowLabel = carry.slideshowLabel;
    r.customRandomAuto = app_.frmcustom.autoButton.value();
    r.randomAuto = app_.frmrandommain.autoButton.value();
    r.scenarioName = app_.CurrentScenarioName;
    r.presetListName = PresetListName;
    r.remoteCaptionAgain = carry.remoteCaption;
    r.schedulerCaption = app_.Timers.playlistName.caption();
    const Frmremote2& remote = app_.frmremote2;
    r.remoteTexts = {remote.Text1.text(), remote.Text2.text()};
    r.remoteOptions = {remote.Option1.value(), remote.Option2.value()};
    r.remoteScrolls = {remote.speed.value(), app_.Form1.imageNumber};
    r.brainwaveList = carry.brainwaveList;
    return r;
}

void Frmmain::writeSessionStates() {
    StatesRecord r;
    r.RemoteShown = app_.RemoteShown;
    r.MainShown = app_.MainShown;
    r.PanoramicShown = app_.PanoramicShown;
    r.SlideshowShown = app_.SlideshowShown;
    r.VisualFlag5 = app_.VisualFlag5;
    writeFileAtomically(app_.appPath / kStatesFile, writeStatesFile(r));
}

void Frmmain::writeSessionFiles() {
    // Each file is replaced whole or not at all; one that cannot be written leaves the
    // last session's copy and the others are still written.
    writeFileAtomically(app_.appPath / kMainbFile, writeMainbFile(mainbRecord()));
    writeFileAtomically(app_.appPath / kMainFile, writeMainFile(mainRecord()));
    writeFileAtomically(app_.appPath / kSoundCardFile, writeSoundCardFile(app_.SoundCardIndex));
}

}  // namespace brevane
