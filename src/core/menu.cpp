#include "core/menu.h"

#include <utility>

namespace brevane {

MenuEntry::MenuEntry(std::string caption, bool separator) : separator_(separator) {
    setCaption(std::move(caption));
}

void MenuEntry::setChecked(bool checked) {
    if (checked_ != checked) {
        checked_ = checked;
        notifyWatchers();
    }
}

void MenuEntry::click() {
    if (separator_ || !enabled() || !onClick) {
        return;
    }
    // The handler may rebuild the menu that holds this entry; keep it alive.
    const Handler handler = onClick;
    handler();
}

MenuEntry& MenuEntry::addEntry(std::string caption) {
    entries_.push_back(std::make_unique<MenuEntry>(std::move(caption)));
    notifyWatchers();
    return *entries_.back();
}

MenuEntry& MenuEntry::addSeparator() {
    entries_.push_back(std::make_unique<MenuEntry>(std::string(), true));
    notifyWatchers();
    return *entries_.back();
}

void MenuEntry::clearEntries() {
    if (entries_.empty()) {
        return;
    }
    entries_.clear();
    notifyWatchers();
}

MenuEntry* MenuEntry::find(const std::string& caption) const {
    for (const auto& entry : entries_) {
        if (!entry->separator() && entry->caption() == caption) {
            return entry.get();
        }
    }
    return nullptr;
}

std::vector<std::string> MenuEntry::captions() const {
    std::vector<std::string> out;
    out.reserve(entries_.size());
    for (const auto& entry : entries_) {
        out.push_back(entry->separator() ? std::string("-") : entry->caption());
    }
    return out;
}

}  // namespace brevane
