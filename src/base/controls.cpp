#include "base/controls.h"

#include <algorithm>
#include <utility>

namespace brevane {

namespace {
void run(const Control::Handler& handler) {
    if (handler) {
        handler();
    }
}
}  // namespace

void Control::setEnabled(bool enabled) {
    if (enabled_ != enabled) {
        enabled_ = enabled;
        notifyWatchers();
    }
}

void Control::setVisible(bool visible) {
    if (visible_ != visible) {
        visible_ = visible;
        notifyWatchers();
    }
}

void Control::setCaption(std::string caption) {
    if (caption_ != caption) {
        caption_ = std::move(caption);
        notifyWatchers();
    }
}

void Control::setToolTip(std::string toolTip) {
    if (toolTip_ != toolTip) {
        toolTip_ = std::move(toolTip);
        notifyWatchers();
    }
}

void Control::setForeColour(std::optional<Colour> colour) {
    if (foreColour_ != colour) {
        foreColour_ = colour;
        notifyWatchers();
    }
}

void Control::setBackColour(std::optional<Colour> colour) {
    if (backColour_ != colour) {
        backColour_ = colour;
        notifyWatchers();
    }
}

Control::WatchId Control::watch(Handler onAnyChange) {
    const WatchId id = nextWatchId_++;
    watchers_.emplace_back(id, std::move(onAnyChange));
    return id;
}

void Control::unwatch(WatchId id) {
    std::erase_if(watchers_, [id](const auto& w) { return w.first == id; });
}

void Control::notifyWatchers() {
    // A watcher may unwatch while being told; walk a copy.
    const auto watchers = watchers_;
    for (const auto& w : watchers) {
        run(w.second);
    }
}

RangeControl::RangeControl(int min, int max, int value) : min_(min), max_(max), value_(value) {
    value_ = std::clamp(value_, low(), high());
}

void RangeControl::store(int value) {
    if (value == value_) {
        return;
    }
    value_ = value;
    notifyWatchers();
    run(onChange);
}

void RangeControl::setRange(int min, int max) {
    if (min == min_ && max == max_) {
        return;
    }
    min_ = min;
    max_ = max;
    notifyWatchers();
    store(std::clamp(value_, low(), high()));
}

void RangeControl::fireChange() {
    run(onChange);
}

void Slider::setValue(int value) {
    store(std::clamp(value, low(), high()));
}

bool ScrollBar::setValue(int value) {
    if (value < low() || value > high()) {
        return false;
    }
    store(value);
    return true;
}

void CheckBox::setValue(int value) {
    const int v = value != 0 ? 1 : 0;
    if (v == value_) {
        return;
    }
    value_ = v;
    notifyWatchers();
    run(onClick);
}

void OptionGroup::add(OptionButton& button) {
    button.group_ = this;
    buttons_.push_back(&button);
}

int OptionGroup::selectedIndex() const {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        if (buttons_[i]->value()) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void OptionButton::setValue(bool value) {
    if (value == value_) {
        return;
    }
    if (value && group_ != nullptr) {
        for (OptionButton* other : group_->buttons_) {
            if (other != this && other->value_) {
                other->value_ = false;
                other->notifyWatchers();
            }
        }
    }
    value_ = value;
    notifyWatchers();
    if (value_) {
        run(onClick);
    }
}

void ToggleButton::setValue(bool value) {
    if (value == value_) {
        return;
    }
    value_ = value;
    notifyWatchers();
    run(onClick);
}

void CommandButton::click() {
    if (enabled()) {
        run(onClick);
    }
}

void TextBox::setText(std::string text) {
    if (text == text_) {
        return;
    }
    text_ = std::move(text);
    notifyWatchers();
    run(onChange);
}

std::string ListControl::item(int index) const {
    if (index < 0 || index >= count()) {
        return {};
    }
    return items_[static_cast<std::size_t>(index)];
}

void ListControl::addItem(std::string text, int index) {
    if (index >= 0 && index <= count()) {
        items_.insert(items_.begin() + index, std::move(text));
        if (listIndex_ >= index) {
            ++listIndex_;
        }
    } else {
        items_.push_back(std::move(text));
    }
    notifyWatchers();
}

void ListControl::removeItem(int index) {
    if (index < 0 || index >= count()) {
        return;
    }
    items_.erase(items_.begin() + index);
    if (listIndex_ == index) {
        listIndex_ = -1;
        selectionStored();
    } else if (listIndex_ > index) {
        --listIndex_;
    }
    notifyWatchers();
}

void ListControl::clear() {
    if (items_.empty() && listIndex_ == -1) {
        return;
    }
    items_.clear();
    listIndex_ = -1;
    selectionStored();
    notifyWatchers();
}

void ListControl::setItem(int index, std::string text) {
    if (index < 0 || index >= count()) {
        return;
    }
    items_[static_cast<std::size_t>(index)] = std::move(text);
    if (index == listIndex_) {
        selectionStored();
    }
    notifyWatchers();
}

int ListControl::find(const std::string& text) const {
    const auto it = std::find(items_.begin(), items_.end(), text);
    return it == items_.end() ? -1 : static_cast<int>(it - items_.begin());
}

void ListControl::setListIndex(int index) {
    if (index < -1 || index >= count() || index == listIndex_) {
        return;
    }
    listIndex_ = index;
    selectionStored();
    notifyWatchers();
    run(onClick);
}

void ComboBox::setText(std::string text) {
    if (text == text_) {
        return;
    }
    text_ = std::move(text);
    notifyWatchers();
    run(onChange);
}

void ComboBox::selectionStored() {
    // The box shows the selected entry; with no selection it is empty.
    text_ = item(listIndex());
}

}  // namespace brevane
