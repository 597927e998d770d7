#include "base/settings_store.h"

namespace brevane {

std::string SettingsStore::valueOr(const std::string& section, const std::string& key,
                                   const std::string& fallback) const {
    auto v = value(section, key);
    return v ? *v : fallback;
}

std::optional<std::string> MemorySettingsStore::value(const std::string& section,
                                                      const std::string& key) const {
    const auto it = values_.find({section, key});
    if (it == values_.end()) {
        return std::nullopt;
    }
    return it->second;
}

void MemorySettingsStore::setValue(const std::string& section, const std::string& key,
                                   const std::string& value) {
    values_[{section, key}] = value;
}

}  // namespace brevane
