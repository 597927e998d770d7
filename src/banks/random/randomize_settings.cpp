#include "banks/random/randomize_settings.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "banks/random/random_bank.h"
#include "base/settings_store.h"
#include "core/application.h"

namespace brevane {

namespace {
constexpr const char* kPeriods[] = {"1", "2", "5", "10", "15", "20", "30", "45", "60"};
}  // namespace

RandomizeSettings::RandomizeSettings(Application& app, RandomBank& closeTarget, std::string caption,
                                     std::string settingsSection)
    : app_(app), closeTarget_(closeTarget), settingsSection_(std::move(settingsSection)) {
    window.setCaption(std::move(caption));
    periodLabel.setCaption("Randomize every                 minutes");
    thresholdLabel.setCaption("Frequency threshold");
    for (const char* p : kPeriods) {
        period.addItem(p);
    }
    closeButton.setCaption("Close");
    closeButton.onClick = [this] { close(); };
}

int RandomizeSettings::autoIntervalMs() const {
    const long long ms = leadingNumber(period.text()) * kAutoTickMs;
    return static_cast<int>(std::clamp<long long>(ms, 0, std::numeric_limits<int>::max()));
}

void RandomizeSettings::close() {
    Timer& timer = closeTarget_.timerautorandom;
    timer.setInterval(autoIntervalMs());
    // Off and on again: the period starts afresh from now.
    timer.setEnabled(false);
    timer.setEnabled(true);
    window.hide();
}

void RandomizeSettings::load() {
    if (!settingsSection_.empty()) {
        position = readWindowPosition(app_.settings, settingsSection_, kTopOffset);
    }
}

void RandomizeSettings::unload() {
    if (!settingsSection_.empty() && position) {
        writeWindowPosition(app_.settings, settingsSection_, *position);
    }
}

void RandomizeSettings::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
