#include "banks/random/randomize_settings.h"

#include <algorithm>
#include <cctype>
#include <limits>
#include <utility>

#include "banks/random/random_bank.h"
#include "base/settings_store.h"
#include "core/application.h"

namespace brevane {

namespace {
constexpr const char* kPeriods[] = {"1", "2", "5", "10", "15", "20", "30", "45", "60"};
}  // namespace

long long leadingNumber(const std::string& text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) {
        ++i;
    }
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
        negative = text[i] == '-';
        ++i;
    }
    constexpr long long kLimit = std::numeric_limits<int>::max();
    long long value = 0;
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])) != 0; ++i) {
        value = std::min(kLimit, value * 10 + (text[i] - '0'));
    }
    return negative ? -value : value;
}

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
    if (settingsSection_.empty()) {
        return;
    }
    const auto left = app_.settings.value(settingsSection_, "MainLeft");
    const auto top = app_.settings.value(settingsSection_, "Maintop");
    if (left || top) {
        const auto toInt = [](long long v) {
            return static_cast<int>(std::clamp<long long>(v, std::numeric_limits<int>::min(),
                                                          std::numeric_limits<int>::max()));
        };
        position = Position{toInt(leadingNumber(left.value_or(""))),
                            toInt(leadingNumber(top.value_or("")) + kTopOffset)};
    }
}

void RandomizeSettings::unload() {
    if (settingsSection_.empty() || !position) {
        return;
    }
    app_.settings.setValue(settingsSection_, "Mainleft", std::to_string(position->left));
    app_.settings.setValue(settingsSection_, "Maintop", std::to_string(position->top));
}

}  // namespace brevane
