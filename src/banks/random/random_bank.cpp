#include "banks/random/random_bank.h"

#include <cmath>
#include <utility>

#include "base/random.h"
#include "core/application.h"
#include "core/slot_volume.h"

namespace brevane {

namespace {
// Pans and rolls share one draw: 5 to 254, so full left and full right are out of reach.
int drawFiveTo254(brevane::Random& random) {
    return random.roll(250) + 5;
}
}  // namespace

RandomBank::RandomBank(Application& app, RandomBankConfig config)
    : Timer2(app.loop, kTickMs), app_(app), config_(std::move(config)) {
    window.setCaption(config_.heading);
    heading.setCaption(config_.heading);
    for (int s = 1; s <= kRandomSlots; ++s) {
        RandomSoundSlot& sl = slot(s);
        sl.name.setCaption(config_.names.at(static_cast<std::size_t>(s - 1)));
        sl.name.onClick = [this, s] { previewSlot(s); };
        sl.volume.onChange = [this, s] { applySlotVolume(s); };
    }

    maxvol.onChange = [this] { maxvolChanged(); };
    Master.onChange = [this] { app_.frmmain.Master.setValue(Master.value()); };
    MP3.onChange = [this] { app_.frmmain.MP3.setValue(MP3.value()); };
    CD.onChange = [this] { app_.frmmain.CD.setValue(CD.value()); };
    Background.onChange = [this] { app_.frmmain.Background.setValue(Background.value()); };
    Bwaves.onChange = [this] { app_.frmmain.Bwaves.setValue(Bwaves.value()); };

    for (int b = 1; b <= 4; ++b) {
        CommandButton& button = bankButtons.at(static_cast<std::size_t>(b - 1));
        button.setCaption("Bank " + std::to_string(b));
        button.setEnabled(b != config_.number);
        button.onClick = [this, b] {
            RandomBank* target = app_.randomBank(b);
            if (target != nullptr && target != this) {
                app_.placeLike(target->window, window);
                window.hide();
                target->show();
            }
        };
    }
    mainButton.setCaption("Main");
    mainButton.onClick = [this] {
        app_.placeLike(app_.frmmain.window, window);
        window.hide();
        app_.frmmain.window.show();
    };
    identifyButton.setCaption("Identify");
    // The Identify panel opens beside the bank, which stays: the two are read together.
    identifyButton.onClick = [this] { app_.Frmsoundindent.window.show(); };

    Timer2.onTick = [this] { tick(); };
}

void RandomBank::load() {
    // The colour scheme is applied here, before the samples, once schemes exist.
    loadSamples();
    Timer2.setEnabled(true);
}

void RandomBank::unload() {
    Timer2.setEnabled(false);
    // The bank's session copy is written here, once bank files exist.
}

void RandomBank::show() {
    app_.CurrentRandomBank = config_.number;
    window.show();
}

void RandomBank::loadSlotSample(int s, const std::string& file) {
    slot(s).sample = app_.engine.loadSample(app_.appPath / file);
}

void RandomBank::loadSamples() {
    for (int s = 1; s <= kRandomSlots; ++s) {
        loadSlotSample(s, config_.startFiles.at(static_cast<std::size_t>(s - 1)));
    }
}

void RandomBank::tick() {
    if (config_.drawOrder == DrawOrder::RollThenPick) {
        rollValue = static_cast<std::int16_t>(drawFiveTo254(app_.random));
        pickValue = static_cast<std::int16_t>(app_.random.roll(56));
    } else {
        pickValue = static_cast<std::int16_t>(app_.random.roll(56));
        rollValue = static_cast<std::int16_t>(drawFiveTo254(app_.random));
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
    engine.setPan(sl.channel, drawFiveTo254(app_.random));
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
    if (sl.sample == 0 || s == config_.previewReloadSlot) {
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
    // Slot 1 is left out, in every bank: the pass has always begun at slot 2.
    for (int s = 2; s <= kRandomSlots; ++s) {
        applySlotVolume(s);
    }
}

Slider* RandomBank::groupCopy(MixGroup group) {
    switch (group) {
        case MixGroup::Master:
            return &Master;
        case MixGroup::Background:
            return &Background;
        case MixGroup::Random:
            return &maxvol;
        case MixGroup::MP3:
            return &MP3;
        case MixGroup::CD:
            return &CD;
        case MixGroup::Bwaves:
            return &Bwaves;
    }
    return nullptr;
}

}  // namespace brevane
