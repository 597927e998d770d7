// The stock colour schemes. Each is one idea carried through every colour: surfaces a
// step apart (panel, text box, button, button under the pointer), text well clear of
// all of them, one accent for what is on or chosen, and a slider fill running from a
// light to a deep tone of that accent. Light and dark schemes both; every text reads at
// WCAG 4.5:1 or better on what it stands on (tests/shell/stock_colours_test.cpp).

#include "stock_colours.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/lcd_display.h"

namespace brevane::stock {

namespace {

constexpr Colour hex(unsigned value) {
    return rgbColour(static_cast<int>((value >> 16) & 0xFF), static_cast<int>((value >> 8) & 0xFF),
                     static_cast<int>(value & 0xFF));
}

struct Look {
    unsigned back, text, textBoxBack, textBoxFore, button, buttonText, rollover, active, line,
        start, end;
    LcdPalette palette;
    // The displays' own colours, for "CUSTOM": backlight, lit, unlit, blend.
    std::array<unsigned, 4> display;
};

ColourScheme scheme(const Look& l) {
    ColourScheme s;
    s.back = hex(l.back);
    s.text = hex(l.text);
    s.textBoxBack = hex(l.textBoxBack);
    s.textBoxFore = hex(l.textBoxFore);
    s.buttonBack = hex(l.button);
    s.buttonText = hex(l.buttonText);
    s.rollover = hex(l.rollover);
    s.active = hex(l.active);
    s.line = hex(l.line);
    s.startGradient = hex(l.start);
    s.endGradient = hex(l.end);
    s.palette = static_cast<int>(l.palette);
    for (std::size_t d = 0; d < s.display.size(); ++d) {
        s.display[d] = hex(l.display[d]);
    }
    return s;
}

// A colour from hue (degrees), saturation and lightness (0 to 1).
Colour hsl(double hue, double saturation, double lightness) {
    const double c = (1 - std::abs(2 * lightness - 1)) * saturation;
    const double h = std::fmod(hue, 360.0) / 60.0;
    const double x = c * (1 - std::abs(std::fmod(h, 2.0) - 1));
    double r = 0;
    double g = 0;
    double b = 0;
    const int sector = std::clamp(static_cast<int>(h), 0, 5);
    const std::array<std::array<double, 3>, 6> parts{
        {{c, x, 0}, {x, c, 0}, {0, c, x}, {0, x, c}, {x, 0, c}, {c, 0, x}}};
    r = parts[static_cast<std::size_t>(sector)][0];
    g = parts[static_cast<std::size_t>(sector)][1];
    b = parts[static_cast<std::size_t>(sector)][2];
    const double m = lightness - c / 2;
    const auto part = [m](double v) {
        return static_cast<int>(std::lround(std::clamp(v + m, 0.0, 1.0) * 255));
    };
    return rgbColour(part(r), part(g), part(b));
}

}  // namespace

const std::vector<ColourSchemeRecipe>& colourSchemes() {
    static const std::vector<ColourSchemeRecipe> all = [] {
        std::vector<ColourSchemeRecipe> s;
        // The program's own look: soft grey-blue, slate text, a muted teal.
        s.push_back({"Default", programLook()});

        // Light. Warm cream paper, brown ink, a burnt-sienna accent; the displays lit
        // like an old calculator.
        s.push_back({"Paper", scheme({.back = 0xF4EFE6,
                                      .text = 0x3B3127,
                                      .textBoxBack = 0xFCFAF5,
                                      .textBoxFore = 0x3B3127,
                                      .button = 0xE9E0D0,
                                      .buttonText = 0x3B3127,
                                      .rollover = 0xDDCDB3,
                                      .active = 0x9A5530,
                                      .line = 0xCDBEA6,
                                      .start = 0xD8B48A,
                                      .end = 0x9A5530,
                                      .palette = LcdPalette::YellowBacklight,
                                      .display = {0xE6D45C, 0x2B250E, 0xDAC854, 0xC9B645}})});

        // Light. Sea-washed blues and a deep-water accent; lit blue displays.
        s.push_back({"Ocean", scheme({.back = 0xE3EEF3,
                                      .text = 0x10303D,
                                      .textBoxBack = 0xF6FAFC,
                                      .textBoxFore = 0x10303D,
                                      .button = 0xCDE1EA,
                                      .buttonText = 0x10303D,
                                      .rollover = 0xB5D6E3,
                                      .active = 0x176B8C,
                                      .line = 0xA3C4D2,
                                      .start = 0x7FC6DE,
                                      .end = 0x176B8C,
                                      .palette = LcdPalette::Blue,
                                      .display = {0x0C1524, 0x86C4FF, 0x142033, 0x070D18}})});

        // Dark. Deep green under the trees, pale leaf text, a fresh-leaf accent.
        s.push_back({"Forest", scheme({.back = 0x1D2820,
                                       .text = 0xD5E2CF,
                                       .textBoxBack = 0x243127,
                                       .textBoxFore = 0xE0EBDA,
                                       .button = 0x2E3F32,
                                       .buttonText = 0xE0EBDA,
                                       .rollover = 0x3D5442,
                                       .active = 0x8DBF6A,
                                       .line = 0x44594A,
                                       .start = 0x4E7F35,
                                       .end = 0xB5D67A,
                                       .palette = LcdPalette::Green,
                                       .display = {0x0A160E, 0x6FE898, 0x122217, 0x050D08}})});

        // Dark. The sky after sunset: violet surfaces, a peach-to-rose glow.
        s.push_back({"Dusk", scheme({.back = 0x2A2337,
                                     .text = 0xE4DBEF,
                                     .textBoxBack = 0x332B43,
                                     .textBoxFore = 0xEEE6F8,
                                     .button = 0x3E3352,
                                     .buttonText = 0xEEE6F8,
                                     .rollover = 0x52446C,
                                     .active = 0xEE9A6B,
                                     .line = 0x5A4C72,
                                     .start = 0xC35C7E,
                                     .end = 0xF5BC7E,
                                     .palette = LcdPalette::Orange,
                                     .display = {0x170E06, 0xFFB055, 0x25180C, 0x0E0803}})});

        // Dark. For a dark bedroom: near-black, soft grey text, no blue light, and dim
        // amber displays of its own.
        s.push_back({"Night", scheme({.back = 0x111317,
                                      .text = 0xB7BCC6,
                                      .textBoxBack = 0x171A1F,
                                      .textBoxFore = 0xC2C7D0,
                                      .button = 0x1E2229,
                                      .buttonText = 0xC2C7D0,
                                      .rollover = 0x2A3039,
                                      .active = 0xC88A45,
                                      .line = 0x2E343E,
                                      .start = 0x5C4126,
                                      .end = 0xC88A45,
                                      .palette = LcdPalette::Custom,
                                      .display = {0x0B0C0E, 0xD9962F, 0x17191C, 0x07080A}})});

        // Dark. Black and white with a gold accent and white borders, for the sharpest
        // reading.
        s.push_back(
            {"High contrast", scheme({.back = 0x000000,
                                      .text = 0xFFFFFF,
                                      .textBoxBack = 0x000000,
                                      .textBoxFore = 0xFFFFFF,
                                      .button = 0x000000,
                                      .buttonText = 0xFFFFFF,
                                      .rollover = 0x333300,
                                      .active = 0xFFD700,
                                      .line = 0xFFFFFF,
                                      .start = 0x00E5FF,
                                      .end = 0xFFD700,
                                      .palette = LcdPalette::Yellow,
                                      .display = {0x151308, 0xF4E06A, 0x232010, 0x0C0B04}})});
        return s;
    }();
    return all;
}

std::vector<Colour> pickerPalette() {
    std::vector<Colour> colours;
    constexpr std::array<double, 6> lightness{0.88, 0.75, 0.6, 0.45, 0.32, 0.2};
    // Greys first: white to black.
    for (int i = 0; i < 6; ++i) {
        const int v = static_cast<int>(std::lround(255.0 * (5 - i) / 5));
        colours.push_back(rgbColour(v, v, v));
    }
    for (const double hue : {0.0, 30.0, 52.0, 120.0, 175.0, 212.0, 275.0}) {
        for (const double l : lightness) {
            colours.push_back(hsl(hue, 0.62, l));
        }
    }
    return colours;
}

}  // namespace brevane::stock
