#include "base/settings_store.h"

#include <cctype>

namespace brevane {

namespace {
std::string folded(std::string s) {
    for (char& c : s) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return s;
}
}  // namespace

std::string SettingsStore::valueOr(const std::string& section, const std::string& key,
                                   const std::string& fallback) const {
    auto v = value(section, key);
    return v ? *v : fallback;
}

std::optional<std::string> MemorySettingsStore::value(const std::string& section,
                                                      const std::string& key) const {
    const auto it = values_.find({folded(section), folded(key)});
    if (it == values_.end()) {
        return std::nullopt;
    }
    return it->second;
}

void MemorySettingsStore::setValue(const std::string& section, const std::string& key,
                                   const std::string& value) {
    values_[{folded(section), folded(key)}] = value;
}

}  // namespace brevane
