// The console's status panel: eight displays with fixed captions on their first two
// lines and the live state of the panels on the other two.

#include <memory>
#include <string>

#include "base/event_loop.h"
#include "core/application.h"
#include "core/frmmain.h"

namespace brevane {

namespace {

void captions(LcdDisplay& display, const char* first, const char* second) {
    display.setLine(1, first);
    display.setLine(2, second);
}

}  // namespace

void Frmmain::wireStatus() {
    loadlcd1();
    loadlcd2();
    loadlcd4();
    loadlcd6();
    // The other displays' captions never change. Displays 5, 7 and 8 show one thing
    // over both lines (the preset list and preset, the latest sound and where it sits
    // in its bank, the beat generator's list and range): one caption heads them.
    captions(LCD3, "Scheduler", "Playlist");
    captions(LCD5, "Preset", "");
    captions(LCD7, "Bank", "");
    captions(LCD8, "Bwaves", "");

    // What each display shows while its panel is idle, or not yet in the program.
    LCD1.setLine(4, kNoPreviousScenario);
    LCD2.setLine(4, "Disabled ");
    LCD3.setLine(3, "Disabled");
    LCD3.setLine(4, "N/A");
    LCD5.setLine(3, "Unassigned");
    LCD6.setLine(3, "Disabled");
    LCD6.setLine(4, "Disabled");
    LCD8.setLine(3, "Disabled");
    LCD8.setLine(4, "None");
    brainwaveRange.setCaption("None");
    updatelcd4();

    // The Identify panel keeps the latest sound current; the display follows it.
    latestSoundName.onChange = [this] { LCD7.setLine(3, latestSoundName.text()); };
    latestSoundLocation.onChange = [this] { LCD7.setLine(4, latestSoundLocation.text()); };

    Timer2.onTick = [this] { clockTick(); };
    Timercustomlcdupdate.onTick = [this] {
        Timercustomlcdupdate.setEnabled(false);
        checklcd();
    };
}

std::array<LcdDisplay*, 8> Frmmain::displays() {
    return {&LCD1, &LCD2, &LCD3, &LCD4, &LCD5, &LCD6, &LCD7, &LCD8};
}

void Frmmain::loadlcd1() {
    captions(LCD1, "Scenario", "Previous");
}

void Frmmain::loadlcd2() {
    captions(LCD2, "Time", "Alarm");
}

void Frmmain::loadlcd4() {
    captions(LCD4, "Weather", "Night");
}

void Frmmain::loadlcd6() {
    captions(LCD6, "Reverb", "Equalizer");
}

void Frmmain::checklcd() {
    app_.frmremote2.refreshSoon();
    LCD1.setLine(3, app_.CurrentScenarioName);
    updatelcd4();
    const std::string& list = PresetListName;
    LCD5.setLine(3, list.empty() ? std::string("Unassigned") : "Presets: " + list);
    // LCD7 follows the Identify panel on its own, and a scenario load's "Waiting...."
    // stands on it until the next sound: a refresh leaves it alone.
}

void Frmmain::dobrainwavecheck() {
    if (app_.frmbwave.playing()) {
        const std::string& preset = app_.frmbwave.presetBox.text();
        LCD8.setLine(3, preset.empty() ? std::string("Custom") : preset);
    } else {
        LCD8.setLine(3, "Disabled");
    }
    LCD8.setLine(4, brainwaveRange.caption());
}

void Frmmain::updatelcd4() {
    LCD4.setLine(3, app_.weatherStatus);
    LCD4.setLine(4, app_.nightStatus);
}

void Frmmain::updatelcdplaylist(const std::string& playlistName) {
    LCD3.setLine(4, playlistName);
}

void Frmmain::clockTick() {
    LCD2.setLine(3, app_.loop.timeOfDay());
}

void Frmmain::watchCustomBanks() {
    // A custom bank's slot shows its sound by its caption, which changes when the
    // slot takes another file or name, one at a time or by a whole bank file.
    const auto follow = [this](Control& slot) {
        // The caption last seen lives beside the handler: a notification may run a
        // copy of the handler.
        auto shown = std::make_shared<std::string>(slot.caption());
        slot.watch([this, &slot, shown] {
            if (slot.caption() != *shown) {
                *shown = slot.caption();
                customBankChanged();
            }
        });
    };
    for (int s = 1; s <= kRandomSlots; ++s) {
        follow(app_.frmcustom.slot(s).name);
    }
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        follow(app_.frmbackcustom.slot(s).on);
    }
}

void Frmmain::customBankChanged() {
    // Each change starts the wait again, so a run of changes refreshes once.
    Timercustomlcdupdate.setEnabled(false);
    Timercustomlcdupdate.setEnabled(true);
}

void Frmmain::docolors() {
    // The console and its eight status displays, which take the scheme's palette.
    colours.paint(app_.scheme);
    for (LcdDisplay* display : displays()) {
        paintDisplay(*display, app_.scheme);
    }
}

}  // namespace brevane
