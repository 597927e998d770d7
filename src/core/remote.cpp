#include "core/remote.h"

#include "core/application.h"
#include "visuals/panoramic.h"
#include "visuals/picture_files.h"

namespace brevane {

namespace fs = std::filesystem;

Frmremote2::Frmremote2(Application& app) : Timer3(app.loop, kRefreshMs), app_(app) {
    window.setCaption("Brevane Remote");
    Master.setCaption("Master");
    Background.setCaption("Background");
    Random.setCaption("Random");
    MP3.setCaption("MP3");
    CD.setCaption("CD");
    Bwaves.setCaption("Bwaves");
    // Moving a slider here moves the console's, which writes every copy, this one too.
    for (GroupSlider* s : {&Master, &Background, &Random, &MP3, &CD, &Bwaves}) {
        s->onChange = [this, s] { app_.frmmain.group(s->group()).setValue(s->value()); };
    }

    scenarioCaption.setCaption("Scenario:");
    presetsCaption.setCaption("Presets: ");
    brainwavesCaption.setCaption("Brainwaves: Inactive");
    alarmCaption.setCaption("Alarm: Not Set");
    mp3Caption.setCaption(kNoMp3);
    schedulerCaption.setCaption("Scheduler Off");

    scenarios.setCaption("Scenario");
    loadButton.setCaption("Load");
    loadButton.setToolTip("Load the scenario chosen in the list");
    loadButton.onClick = [this] {
        if (scenarios.listIndex() >= 0) {
            app_.frmmain.doload(scenarios.item(scenarios.listIndex()));
        }
    };
    randomButton.setCaption("Random");
    randomButton.setToolTip("Load a scenario chosen at random");
    randomButton.onClick = [this] { app_.frmmain.loadRandomScenario(); };
    for (int p = 0; p < kPresetButtons; ++p) {
        CommandButton& b = presetButtons[static_cast<std::size_t>(p)];
        b.setCaption(std::to_string(p + 1));
        b.onClick = [this, p] { app_.frmmain.cmdpreset_Click(p); };
    }
    muteButton.setCaption("Mute");
    // The button says whether the console is muted; pressing it is the console's Mute.
    muteButton.onClick = [this] {
        if (muteButton.value() != app_.frmmain.muted()) {
            app_.frmmain.mute();
        }
    };
    mainButton.setCaption("Main");
    mainButton.setToolTip("Bring back the console");
    mainButton.onClick = [this] { showMain(); };

    slideshowButton.setCaption("Slideshow");
    slideshowButton.onClick = [this] { app_.Form1.start(); };
    slideshowSetButton.setCaption("Slides...");
    slideshowSetButton.setToolTip("Choose the slideshow, its order and the time per picture");
    slideshowSetButton.onClick = [this] { app_.Formfolderselect.open(); };
    panoramicButton.setCaption("Panoramic");
    panoramicButton.onClick = [this] { app_.form999.start(); };
    panoramicSetButton.setCaption("Change");
    panoramicSetButton.setToolTip("Choose another panoramic picture");
    panoramicSetButton.onClick = [this] { app_.form999.changePicture(); };
    slideshowFolder.setCaption("Slideshow");
    slideshowFolder.setText("Default");
    pictureNames.setCaption("Pictures");
    Text1.setCaption("Show each image for");
    Text1.setText(kDefaultTime);
    Option1.setCaption("Minutes");
    Option2.setCaption("Seconds");
    unit.add(Option1);
    unit.add(Option2);
    Option1.setValue(true);
    Text2.setCaption("Panoramic");
    Text2.setText("Default");
    speed.setCaption("Speed");
    speed.setRange(0, Panoramic::kFastestSpeed);
    speed.setValue(Panoramic::kDefaultSpeed);
    speed.onChange = [this] { app_.form999.hscroll1.setValue(speed.value()); };

    Timer3.onTick = [this] {
        Timer3.setEnabled(false);
        refresh();
    };
}

void Frmremote2::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
    app_.frmmain.mnuMute().watch([this] { muteButton.setValue(app_.frmmain.muted()); });
    // The MP3 player's track shows here as it changes.
    app_.frmmainmp3.LCD1.watch([this] { refreshSoon(); });
    pointAtSlideshow(slideshowFolder.text());
}

void Frmremote2::unload() {
    Timer3.setEnabled(false);
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
}

void Frmremote2::docolors() {
    // "Allow color changing on remote" off: the remote keeps the program's own look.
    if (app_.FRMOPTIONS.colourOnRemote.checked()) {
        colours.paint(app_.scheme);
    }
}

Slider* Frmremote2::groupCopy(MixGroup group) {
    return groupCopyAmong(group, {&Master, &Background, &Random, &MP3, &CD, &Bwaves});
}

void Frmremote2::showRemote() {
    refresh();
    window.show();
}

void Frmremote2::switchToController() {
    showRemote();
    app_.hideBanks();
    app_.frmmain.window.hide();
    app_.RemoteShown = true;
}

void Frmremote2::showMain() {
    window.hide();
    app_.RemoteShown = false;
    app_.frmmain.window.show();
}

void Frmremote2::refreshSoon() {
    Timer3.setEnabled(true);
}

void Frmremote2::refresh() {
    Frmmain& console = app_.frmmain;
    scenarioCaption.setCaption(console.carry.remoteCaption.empty() ? std::string("Scenario:")
                                                                   : console.carry.remoteCaption);
    presetsCaption.setCaption("Presets: " + console.PresetListName);
    brainwavesCaption.setCaption(app_.frmbwave.playing() ? "Brainwaves: " + console.LCD8.line(3)
                                                         : std::string("Brainwaves: Inactive"));
    const std::string& track = app_.frmmainmp3.LCD1.line(1);
    mp3Caption.setCaption(track.empty() ? std::string(kNoMp3) : track);
    muteButton.setValue(console.muted());

    // The list is written again only when the console's has changed, so a refresh keeps
    // the user's choice in it.
    if (scenarios.items() != console.scenarioList.items()) {
        const std::string chosen = scenarios.listIndex() >= 0
                                       ? scenarios.item(scenarios.listIndex())
                                       : app_.CurrentScenarioName;
        scenarios.clear();
        for (const std::string& name : console.scenarioList.items()) {
            scenarios.addItem(name);
            if (name == chosen) {
                scenarios.setListIndex(scenarios.count() - 1);
            }
        }
    }
    for (int p = 0; p < kPresetButtons; ++p) {
        presetButtons[static_cast<std::size_t>(p)].setToolTip(console.presetCaption(p));
    }
}

void Frmremote2::pointAtSlideshow(const std::string& folder) {
    const std::string name = folder.empty() ? std::string(Frmmain::kDefaultSlideshow) : folder;
    slideshowFolder.setText(name);
    pictureNames.clear();
    for (const std::string& picture :
         slideshowPictures(app_.appPath / Slideshow::kSlideshowFolder / name)) {
        pictureNames.addItem(picture);
    }
    app_.Form1.imageNumber = 0;
    app_.Form1.forceChange = true;
}

void Frmremote2::setPanoramic(const std::string& name) {
    Text2.setText(name);
    app_.frmmain.carry.panoramicLabel = name;
}

}  // namespace brevane
