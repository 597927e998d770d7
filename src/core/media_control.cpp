#include "core/media_control.h"

#include <algorithm>
#include <cmath>

#include "core/application.h"
#include "core/mix_group.h"

namespace brevane {

MediaControl::MediaControl(Application& app) : app_(app) {
    // Master carries the playing state (muted is Master at 0, kept aside) and the
    // volume; the scenario display carries the title.
    masterWatch_ = app_.frmmain.Master.watch([this] { changed(); });
    scenarioWatch_ = app_.frmmain.LCD1.watch([this] { changed(); });
}

MediaControl::~MediaControl() {
    app_.frmmain.Master.unwatch(masterWatch_);
    app_.frmmain.LCD1.unwatch(scenarioWatch_);
}

void MediaControl::changed() {
    if (onChanged) {
        onChanged();
    }
}

bool MediaControl::playing() const {
    return !app_.frmmain.muted();
}

std::string MediaControl::title() const {
    return app_.CurrentScenarioName.empty() ? std::string(kIdentity) : app_.CurrentScenarioName;
}

double MediaControl::volume() const {
    const Slider& master = app_.frmmain.Master;
    return master.high() > 0 ? static_cast<double>(master.value()) / master.high() : 0.0;
}

void MediaControl::play() {
    if (!playing()) {
        app_.frmmain.mute();
    }
}

void MediaControl::pause() {
    if (playing()) {
        app_.frmmain.mute();
    }
}

void MediaControl::playPause() {
    app_.frmmain.mute();
}

void MediaControl::next() {
    step(1);
}

void MediaControl::previous() {
    step(-1);
}

void MediaControl::step(int by) {
    const ListBox& list = app_.frmmain.scenarioList;
    const int n = list.count();
    if (n == 0) {
        return;
    }
    const int at = list.find(app_.CurrentScenarioName);
    // From no scenario of the list, forward is the first and back the last.
    const int to = at < 0 ? (by > 0 ? 0 : n - 1) : ((at + by) % n + n) % n;
    app_.frmmain.doload(list.item(to));
}

void MediaControl::setVolume(double volume) {
    Slider& master = app_.frmmain.Master;
    const double clamped = std::clamp(volume, 0.0, 1.0);
    // A volume set from outside ends a pause first, so the level asked for is the one
    // that plays (a move of Master while muted would bring back the kept level instead).
    play();
    master.setValue(static_cast<int>(std::lround(clamped * master.high())));
}

void MediaControl::raise() {
    app_.frmmain.window.show();
}

void MediaControl::quit() {
    app_.frmmain.quitWithoutAsking();
}

}  // namespace brevane
