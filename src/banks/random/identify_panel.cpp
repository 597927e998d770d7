#include "banks/random/identify_panel.h"

#include "base/settings_store.h"
#include "core/application.h"

namespace brevane {

IdentifyPanel::IdentifyPanel(Application& app) : Timer1(app.loop, kRefreshMs), app_(app) {
    window.setCaption("Identify Playing Sounds");
    soundPlaying.setCaption("Sound Playing");
    location.setCaption("Location");
    soundPlaying.addItem(kWaiting);
    location.addItem(kWaiting);

    clearList.setCaption("Clear List");
    clearList.onClick = [this] { clear(); };
    for (int b = 1; b <= 4; ++b) {
        CommandButton& button = bankButtons.at(static_cast<std::size_t>(b - 1));
        button.setCaption("Bank " + std::to_string(b));
        button.onClick = [this, b] { showBank(b); };
    }
    customButton.setCaption("Custom");
    customButton.onClick = [this] { showBank(kCustomRandomBankNumber); };

    Timer1.onTick = [this] { refresh(); };
}

void IdentifyPanel::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
    Timer1.setEnabled(true);
}

void IdentifyPanel::unload() {
    Timer1.setEnabled(false);
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
}

void IdentifyPanel::refresh() {
    soundPlaying.setListIndex(soundPlaying.count() - 1);
    location.setListIndex(location.count() - 1);
    app_.frmmain.latestSoundName.setText(soundPlaying.item(soundPlaying.listIndex()));
    app_.frmmain.latestSoundLocation.setText(location.item(location.listIndex()));
    if (soundPlaying.count() > kMaxRows) {
        soundPlaying.removeItem(0);
    }
    if (location.count() > kMaxRows) {
        location.removeItem(0);
    }
}

void IdentifyPanel::clear() {
    soundPlaying.clear();
    location.clear();
    soundPlaying.addItem(kWaiting);
    location.addItem(kWaiting);
}

void IdentifyPanel::showBank(int number) {
    RandomBank* bank = app_.randomBank(number);
    if (bank == nullptr) {
        return;
    }
    app_.placeLike(bank->window, app_.frmmain.window);
    app_.hideBanks();
    app_.frmmain.window.hide();
    bank->show();
}

void IdentifyPanel::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
