#pragma once
// A liquid-crystal style status display: four lines of text and a backlight.
//
// The console's displays keep a fixed caption on lines 1 and 2 and the live text on
// lines 3 and 4: line 3 is read beside the caption of line 1, line 4 beside that of
// line 2. A view draws the display as two rows of characters; the display itself only
// holds the text. Other panels with displays (brainwaves, MP3, CD) use all four lines
// freely.
//
// The look comes from a palette (one of kLcdPaletteNames) and, for the palette
// "CUSTOM", from the four display colours of the colour scheme.
//
// Not thread-safe: a display lives on the event thread.

#include <array>
#include <optional>
#include <string>

#include "base/controls.h"
#include "shell/colour_scheme.h"

namespace brevane {

// The palettes a display can take, in the order of the colour scheme's palette list;
// the list index is what the scheme files keep. A "... Backlight" palette lights the
// glass and draws dark characters; the plain colour names draw lit characters on dark
// glass; "No backlight" is a grey unlit glass.
enum class LcdPalette {
    NoBacklight,
    GreenBacklight,
    BlueBacklight,
    YellowBacklight,
    OrangeBacklight,
    Blue,
    Green,
    Orange,
    Yellow,
    Red,
    Custom,
};

inline constexpr std::array<const char*, 11> kLcdPaletteNames{
    "No backlight", "Green Backlight", "Blue Backlight", "Yellow Backlight", "Orange Backlight",
    "Blue",         "Green",           "Orange",         "Yellow",           "Red",
    "CUSTOM"};

// The palette whose list index is `index`; an index outside the list gives the
// default, as a damaged scheme file must not leave a display unreadable.
LcdPalette lcdPaletteFromIndex(int index);

// The four display colours of the colour scheme, used by the "CUSTOM" palette.
struct LcdColours {
    Colour backlight = 0;  // the glass
    Colour on = 0;         // lit characters
    Colour off = 0;        // unlit character cells
    Colour blend = 0;      // the glass's shading towards its edges, and the captions
};

class LcdDisplay : public Control {
  public:
    static constexpr int kLines = 4;
    // The palette every display shows until a colour scheme gives another.
    static constexpr LcdPalette kDefaultPalette = LcdPalette::BlueBacklight;

    // Line 1 to 4; "" for any other number.
    const std::string& line(int n) const;
    // Sets line 1 to 4; any other number is ignored. Views are told on a real change.
    void setLine(int n, std::string text);

    LcdPalette palette() const { return palette_; }
    void setPalette(LcdPalette palette);
    // Unset until a colour scheme gives them.
    const std::optional<LcdColours>& colours() const { return colours_; }
    void setColours(std::optional<LcdColours> colours);

  private:
    std::array<std::string, kLines> lines_{};
    LcdPalette palette_ = kDefaultPalette;
    std::optional<LcdColours> colours_;
};

// The four display colours of a scheme, swatch 1 to 4.
LcdColours lcdColours(const ColourScheme& scheme);
// A panel's docolors for one of its displays: the scheme's palette and its four colours.
void paintDisplay(LcdDisplay& display, const ColourScheme& scheme);

}  // namespace brevane
