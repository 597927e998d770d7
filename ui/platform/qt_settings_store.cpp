#include "ui/platform/qt_settings_store.h"

#include "ui/platform/qt_text.h"

namespace brevane {

namespace {

QString settingsKey(const std::string& section, const std::string& key) {
    return qtText(section).toLower() + QLatin1Char('/') + qtText(key).toLower();
}

}  // namespace

QtSettingsStore::QtSettingsStore()
    : settings_(QStringLiteral("Brevane"), QStringLiteral("Brevane")) {}

std::optional<std::string> QtSettingsStore::value(const std::string& section,
                                                  const std::string& key) const {
    const QVariant v = settings_.value(settingsKey(section, key));
    if (!v.isValid()) {
        return std::nullopt;
    }
    return textFromQt(v.toString());
}

void QtSettingsStore::setValue(const std::string& section, const std::string& key,
                               const std::string& value) {
    settings_.setValue(settingsKey(section, key), qtText(value));
}

void QtSettingsStore::sync() {
    settings_.sync();
}

}  // namespace brevane
