#pragma once
// The stock colour schemes (config/colors/<name>.clr) as recipes: every colour of the
// scheme panel's swatches and the displays' palette, by name. "Default" is the program's
// own look. And the colour picker's palette (XP.pal): 48 colours, grey and seven hues,
// six shades each.

#include <string>
#include <vector>

#include "shell/colour_scheme.h"

namespace brevane::stock {

struct ColourSchemeRecipe {
    std::string name;
    ColourScheme scheme;
};

// "Default" first.
const std::vector<ColourSchemeRecipe>& colourSchemes();

// The picker's palette, in the order of the picker's grid: column by column, six
// shades from light to dark in each.
std::vector<Colour> pickerPalette();

}  // namespace brevane::stock
