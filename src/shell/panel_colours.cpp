#include "shell/panel_colours.h"

#include <utility>

namespace brevane {

PanelColours::PanelColours(PanelWindow& window, std::function<void()> docolors)
    : window_(window), docolors_(std::move(docolors)), wasOpen_(window.visible()) {
    watchId_ = window_.watch([this] { windowChanged(); });
}

PanelColours::~PanelColours() {
    window_.unwatch(watchId_);
}

void SchemePaint::paint(const ColourScheme& scheme) {
    if (scheme_ != scheme) {
        scheme_ = scheme;
        notifyWatchers();
    }
}

void PanelColours::docolors() {
    if (docolors_) {
        docolors_();
    }
}

void PanelColours::windowChanged() {
    const bool open = window_.visible();
    const bool opening = open && !wasOpen_;
    wasOpen_ = open;
    if (opening) {
        docolors();
    }
}

}  // namespace brevane
