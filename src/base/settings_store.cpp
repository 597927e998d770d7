#include "base/settings_store.h"

#include <algorithm>
#include <cctype>
#include <limits>

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

std::optional<WindowPosition> readWindowPosition(const SettingsStore& store,
                                                 const std::string& section, int topOffset) {
    const auto left = store.value(section, "MainLeft");
    const auto top = store.value(section, "Maintop");
    if (!left && !top) {
        return std::nullopt;
    }
    const auto toInt = [](long long v) {
        return static_cast<int>(std::clamp<long long>(v, std::numeric_limits<int>::min(),
                                                      std::numeric_limits<int>::max()));
    };
    return WindowPosition{toInt(leadingNumber(left.value_or(""))),
                          toInt(leadingNumber(top.value_or("")) + topOffset)};
}

void writeWindowPosition(SettingsStore& store, const std::string& section,
                         const WindowPosition& position) {
    store.setValue(section, "Mainleft", std::to_string(position.left));
    store.setValue(section, "Maintop", std::to_string(position.top));
}

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

}  // namespace brevane
