#include "core/lcd_display.h"

#include <utility>

namespace brevane {

LcdPalette lcdPaletteFromIndex(int index) {
    if (index < 0 || index >= static_cast<int>(kLcdPaletteNames.size())) {
        return LcdDisplay::kDefaultPalette;
    }
    return static_cast<LcdPalette>(index);
}

const std::string& LcdDisplay::line(int n) const {
    static const std::string none;
    if (n < 1 || n > kLines) {
        return none;
    }
    return lines_[static_cast<std::size_t>(n - 1)];
}

void LcdDisplay::setLine(int n, std::string text) {
    if (n < 1 || n > kLines) {
        return;
    }
    std::string& line = lines_[static_cast<std::size_t>(n - 1)];
    if (line != text) {
        line = std::move(text);
        notifyWatchers();
    }
}

void LcdDisplay::setPalette(LcdPalette palette) {
    if (palette_ != palette) {
        palette_ = palette;
        notifyWatchers();
    }
}

void LcdDisplay::setColours(std::optional<LcdColours> colours) {
    const bool same =
        colours_.has_value() == colours.has_value() &&
        (!colours || (colours_->backlight == colours->backlight && colours_->on == colours->on &&
                      colours_->off == colours->off && colours_->blend == colours->blend));
    if (!same) {
        colours_ = colours;
        notifyWatchers();
    }
}

LcdColours lcdColours(const ColourScheme& scheme) {
    return {scheme.display[0], scheme.display[1], scheme.display[2], scheme.display[3]};
}

void paintDisplay(LcdDisplay& display, const ColourScheme& scheme) {
    display.setPalette(lcdPaletteFromIndex(scheme.palette));
    display.setColours(lcdColours(scheme));
}

}  // namespace brevane
