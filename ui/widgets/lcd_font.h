#pragma once
// The character generator of the status displays: a 5 x 8 dot-matrix font for the
// printable ASCII characters, drawn the way small character displays draw them
// (seven rows for capitals and digits, the eighth for descenders).

#include <QChar>
#include <array>
#include <cstdint>

namespace brevane {

inline constexpr int kLcdGlyphColumns = 5;
inline constexpr int kLcdGlyphRows = 8;

// One glyph: a row of five dots in the low five bits of each byte, the leftmost dot
// in the highest of them; row 0 at the top.
using LcdGlyph = std::array<std::uint8_t, kLcdGlyphRows>;

// The glyph for `ch`. An accented letter shows its base letter; any other character
// outside printable ASCII shows as a hollow box, as the glass has no dots for it.
const LcdGlyph& lcdGlyph(QChar ch);

}  // namespace brevane
