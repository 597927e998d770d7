#pragma once
// The colour scheme: the colours every panel paints itself from. Eleven roles, the
// four colours of the status displays and the displays' palette.
//
// Each colour has a picker target number, by which the scheme panel's swatches
// (frmDemo) hand it to the colour picker:
//
//   1 "Backlight"  2 "LCD On"  3 "LCD Off"  4 "Blend"   the displays' own colours
//   5 "Back" and 6 "Text" of the buttons                 7 "Rollover": a button under
//   the pointer   8 "Back Color": every panel and frame   9 "Line Color": borders
//   10 "Text Color": labels   11 "Active Color": marks of active items (a toggle
//   that is on, a selection)   12 and 13 "Text Box Background" and "Foreground":
//   lists, combos and text boxes   14 "Start Gradient" and 15 "End Gradient": the
//   filled part of a slider
//
// Colours are stored as the files keep them: 0x00BBGGRR. Pure data and arithmetic; no
// panel, no file.

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/controls.h"

namespace brevane {

// A colour from its red, green and blue parts, as the files store it.
constexpr Colour rgbColour(int red, int green, int blue) {
    return static_cast<Colour>(red & 0xFF) | (static_cast<Colour>(green & 0xFF) << 8) |
           (static_cast<Colour>(blue & 0xFF) << 16);
}

inline constexpr int kSchemeTargets = 15;
// Targets 1 to 4 are the displays' colours, 5 to 15 the roles.
inline constexpr int kDisplayColours = 4;
inline constexpr int kFirstRoleTarget = 5;

// The caption each target stands under on the scheme panel, target 1 first.
inline constexpr std::array<const char*, kSchemeTargets> kSchemeTargetCaptions{
    "Backlight",
    "LCD On",
    "LCD Off",
    "Blend",
    "Back",
    "Text",
    "Rollover",
    "Back Color",
    "Line Color",
    "Text Color",
    "Active Color",
    "Text Box Background",
    "Text Box Foreground",
    "Start Gradient",
    "End Gradient"};

struct ColourScheme {
    Colour startGradient = 0;  // 14
    Colour endGradient = 0;    // 15
    Colour active = 0;         // 11
    Colour back = 0;           // 8
    // The displays' palette, an index into kLcdPaletteNames ("CUSTOM" takes `display`).
    int palette = 0;
    // The displays' colours by swatch: backlight, LCD on, LCD off, blend (1 to 4).
    std::array<Colour, kDisplayColours> display{};
    Colour buttonBack = 0;   // 5
    Colour buttonText = 0;   // 6
    Colour text = 0;         // 10
    Colour textBoxBack = 0;  // 12
    Colour textBoxFore = 0;  // 13
    Colour rollover = 0;     // 7
    Colour line = 0;         // 9

    // The colour of picker target 1 to 15; any other number gives nothing.
    std::optional<Colour> target(int number) const;
    // Sets the colour of target 1 to 15; false, changing nothing, for another number.
    bool setTarget(int number, Colour colour);

    bool operator==(const ColourScheme&) const = default;
};

// The scheme the program holds before any session is read: the values the program has
// always started from (window and panel white, black text, orange buttons).
ColourScheme builtInScheme();

// The program's own look: what every window shows before a scheme paints it, and the
// stock scheme "Default" (a calm light grey-blue with a muted teal accent).
ColourScheme programLook();

// ---- the ten colours mainb.tmp keeps ----

// In the session file's order: gradient start, gradient end, button back, active,
// back, rollover, and the four others in the roles' order: button text, text, text box
// background, text box foreground. Line Color is not among them (colors.tmp keeps it).
inline constexpr int kSessionSchemeColours = 10;
std::array<Colour, kSessionSchemeColours> sessionColours(const ColourScheme& scheme);
// Sets the session file's colour `index` (0 to 9); another index changes nothing.
void setSessionColour(ColourScheme& scheme, int index, Colour colour);

// ---- colours as text ----

// A colour as the files write it: decimal.
std::string colourText(Colour colour);
// A decimal text as a colour: a whole number from 0 to 4294967295, blanks around it
// allowed (the top byte is ignored when painting); nothing for any other text.
std::optional<Colour> colourFromText(std::string_view text);

// ---- legibility ----

// WCAG 2 relative luminance, 0 (black) to 1 (white).
double relativeLuminance(Colour colour);
// WCAG 2 contrast ratio of two colours, 1 to 21, whichever is lighter.
double contrastRatio(Colour a, Colour b);
// The WCAG threshold for body text.
inline constexpr double kReadableContrast = 4.5;
// Black or white, whichever reads better on `background`: always at least 4.58:1.
Colour readableTextOn(Colour background);
// `a` moved towards `b` by `amount` (0 stays `a`, 1 is `b`), part by part.
Colour mixColours(Colour a, Colour b, double amount);
// Whether text in the scheme reads on what it stands on: labels on panels, text box
// text on its box, button captions on buttons at rest and under the pointer, and, with
// the "CUSTOM" palette, lit display characters on the backlight. The pairs that fall
// short, by caption ("Text Color on Back Color"), none when all read.
std::vector<std::string> illegiblePairs(const ColourScheme& scheme,
                                        double threshold = kReadableContrast);

}  // namespace brevane
