#pragma once
// The colour scheme's files, field by field. Pure text in and out; the scheme panel
// (shell/frmdemo.h) does the reading, writing and listing.
//
// config/colors/<name>.clr, a named scheme, and config/colors/previous.tmp, the scheme
// as it stood when the panel opened: one comma record of sixteen fields.
//   1 "Start Gradient"  2 "End Gradient"  3 "Active Color"  4 "Back Color"   (texts)
//   5 the displays' palette index (number)
//   6-9 the displays' colours by swatch, first to fourth (numbers)
//   10 button "Back"  11 button "Text"  12 "Text Color"  13 "Text Box Background"
//   14 "Text Box Foreground"  15 "Rollover"  16 "Line Color"   (texts)
// A scenario carries the same record as its members 9 and 7.
// The texts hold decimal colour numbers. A scheme file is whole or it is not read: a
// field missing or a text that is no colour number leaves the present colours alone.
//
// colors.tmp, beside the program, eight fields, a session file read as far as it goes:
//   1 palette index  2-5 the displays' colours (numbers)  6 "Line Color"
//   7 "Active Color"  8 the scheme's name (texts)
//
// XP.pal, beside the program: the colour picker's palette, in the JASC-PAL text form
// that paint programs read and write ("JASC-PAL", "0100", the count, then one
// "red green blue" line per colour), so a user may put a palette of their own there.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/field_list.h"
#include "shell/colour_scheme.h"

namespace brevane {

inline constexpr const char* kColourFolder = "config/colors";
inline constexpr const char* kSchemeExtension = ".clr";
inline constexpr const char* kPreviousSchemeFile = "previous.tmp";
inline constexpr const char* kColoursSessionFile = "colors.tmp";
inline constexpr const char* kPaletteFile = "XP.pal";
inline constexpr const char* kDefaultSchemeName = "Default";

// ---- .clr ----

inline constexpr int kSchemeFileFields = 16;
std::string writeSchemeFile(const ColourScheme& scheme);
// The scheme, or nothing when the record is not whole. A palette index outside the list
// reads as the default palette.
std::optional<ColourScheme> readSchemeFile(std::string_view content);

// ---- colors.tmp ----

struct ColoursSessionRecord {
    static constexpr int kFields = 8;
    int palette = 0;
    std::array<Colour, kDisplayColours> display{};
    std::string line;
    std::string active;
    std::string name;
};
std::string writeColoursSessionFile(const ColoursSessionRecord& record);
FieldsRead<ColoursSessionRecord> readColoursSessionFile(std::string_view content);

// The named scheme the program under `programFolder` was last left in: the one
// colors.tmp names, else "Default"; nothing when neither can be read. For the companion
// programs, which wear the program's colours without its panels.
std::optional<ColourScheme> lastNamedScheme(const std::filesystem::path& programFolder);

// ---- XP.pal ----

std::string writePaletteFile(const std::vector<Colour>& colours);
// The colours, or nothing when the text is not a palette.
std::optional<std::vector<Colour>> readPaletteFile(std::string_view content);

}  // namespace brevane
