#include "shell/colour_scheme.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "core/lcd_display.h"

namespace brevane {

namespace {

// The displays' own colours as the "Blue Backlight" palette lights them, so a scheme
// that turns to "CUSTOM" starts from the look the displays had.
constexpr std::array<Colour, kDisplayColours> kBlueBacklightDisplay{
    rgbColour(0x2F, 0x5B, 0xA6), rgbColour(0xE9, 0xF1, 0xFF), rgbColour(0x38, 0x65, 0xB0),
    rgbColour(0x25, 0x4A, 0x8C)};

int part(Colour colour, int shift) {
    return static_cast<int>((colour >> shift) & 0xFFu);
}

}  // namespace

std::optional<Colour> ColourScheme::target(int number) const {
    if (number >= 1 && number <= kDisplayColours) {
        return display[static_cast<std::size_t>(number - 1)];
    }
    switch (number) {
        case 5:
            return buttonBack;
        case 6:
            return buttonText;
        case 7:
            return rollover;
        case 8:
            return back;
        case 9:
            return line;
        case 10:
            return text;
        case 11:
            return active;
        case 12:
            return textBoxBack;
        case 13:
            return textBoxFore;
        case 14:
            return startGradient;
        case 15:
            return endGradient;
        default:
            return std::nullopt;
    }
}

bool ColourScheme::setTarget(int number, Colour colour) {
    Colour* const targets[kSchemeTargets] = {
        &display[0], &display[1],  &display[2],  &display[3],    &buttonBack,
        &buttonText, &rollover,    &back,        &line,          &text,
        &active,     &textBoxBack, &textBoxFore, &startGradient, &endGradient};
    if (number < 1 || number > kSchemeTargets) {
        return false;
    }
    *targets[number - 1] = colour;
    return true;
}

ColourScheme builtInScheme() {
    ColourScheme s;
    s.startGradient = 16761024;
    s.endGradient = 4194304;
    s.active = 16744576;
    s.back = 16777215;
    s.palette = static_cast<int>(LcdDisplay::kDefaultPalette);
    s.display = kBlueBacklightDisplay;
    s.buttonBack = 33023;
    s.buttonText = 16777215;
    s.text = 0;
    s.textBoxBack = 16777215;
    s.textBoxFore = 0;
    s.rollover = 5592405;
    s.line = 333333;
    return s;
}

ColourScheme programLook() {
    ColourScheme s;
    // Soft grey-blue surfaces, dark slate text and a muted teal accent: quiet enough to
    // sit on screen for hours beside a slideshow.
    s.back = rgbColour(0xEE, 0xF0, 0xF3);
    s.text = rgbColour(0x2B, 0x31, 0x3B);
    s.textBoxBack = rgbColour(0xFA, 0xFB, 0xFC);
    s.textBoxFore = rgbColour(0x2B, 0x31, 0x3B);
    s.buttonBack = rgbColour(0xE3, 0xE7, 0xEC);
    s.buttonText = rgbColour(0x2B, 0x31, 0x3B);
    s.rollover = rgbColour(0xD3, 0xE2, 0xE6);
    s.active = rgbColour(0x3E, 0x7C, 0x8C);
    s.line = rgbColour(0xBF, 0xC7, 0xD1);
    s.startGradient = rgbColour(0x9C, 0xC9, 0xD3);
    s.endGradient = rgbColour(0x3E, 0x7C, 0x8C);
    s.palette = static_cast<int>(LcdPalette::BlueBacklight);
    s.display = kBlueBacklightDisplay;
    return s;
}

std::array<Colour, kSessionSchemeColours> sessionColours(const ColourScheme& s) {
    return {s.startGradient, s.endGradient, s.buttonBack, s.active,      s.back,
            s.rollover,      s.buttonText,  s.text,       s.textBoxBack, s.textBoxFore};
}

void setSessionColour(ColourScheme& s, int index, Colour colour) {
    Colour* const fields[kSessionSchemeColours] = {
        &s.startGradient, &s.endGradient, &s.buttonBack, &s.active,      &s.back,
        &s.rollover,      &s.buttonText,  &s.text,       &s.textBoxBack, &s.textBoxFore};
    if (index >= 0 && index < kSessionSchemeColours) {
        *fields[index] = colour;
    }
}

std::string colourText(Colour colour) {
    return std::to_string(colour);
}

std::optional<Colour> colourFromText(std::string_view text) {
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && blank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && blank(text.back())) {
        text.remove_suffix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return static_cast<Colour>(value);
}

double relativeLuminance(Colour colour) {
    const auto linear = [](int value) {
        const double c = value / 255.0;
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(part(colour, 0)) + 0.7152 * linear(part(colour, 8)) +
           0.0722 * linear(part(colour, 16));
}

double contrastRatio(Colour a, Colour b) {
    const double la = relativeLuminance(a);
    const double lb = relativeLuminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

Colour readableTextOn(Colour background) {
    constexpr Colour black = 0;
    constexpr Colour white = 0x00FFFFFF;
    return contrastRatio(background, black) >= contrastRatio(background, white) ? black : white;
}

Colour mixColours(Colour a, Colour b, double amount) {
    amount = std::clamp(amount, 0.0, 1.0);
    const auto mix = [&](int shift) {
        const double value = part(a, shift) + (part(b, shift) - part(a, shift)) * amount;
        return static_cast<int>(std::lround(value));
    };
    return rgbColour(mix(0), mix(8), mix(16));
}

std::vector<std::string> illegiblePairs(const ColourScheme& s, double threshold) {
    struct Pair {
        Colour text;
        Colour background;
        const char* name;
    };
    std::vector<Pair> pairs{
        {s.text, s.back, "Text Color on Back Color"},
        {s.textBoxFore, s.textBoxBack, "Text Box Foreground on Text Box Background"},
        {s.buttonText, s.buttonBack, "button Text on button Back"},
        {s.buttonText, s.rollover, "button Text on Rollover"},
    };
    if (lcdPaletteFromIndex(s.palette) == LcdPalette::Custom) {
        pairs.push_back({s.display[1], s.display[0], "LCD On on Backlight"});
    }
    std::vector<std::string> failing;
    for (const Pair& p : pairs) {
        if (contrastRatio(p.text, p.background) < threshold) {
            failing.emplace_back(p.name);
        }
    }
    return failing;
}

}  // namespace brevane
