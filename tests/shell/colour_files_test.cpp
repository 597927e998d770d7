// The colour scheme as data: targets, the built-in and the program's own look, the
// session's ten colours, legibility arithmetic, and the files: .clr, colors.tmp, XP.pal.

#include <gtest/gtest.h>

#include <string>

#include "core/lcd_display.h"
#include "shell/colour_files.h"
#include "shell/colour_scheme.h"

namespace brevane {
namespace {

// A scheme whose every colour differs, so a field in the wrong place shows.
ColourScheme distinct() {
    ColourScheme s;
    for (int t = 1; t <= kSchemeTargets; ++t) {
        s.setTarget(t, static_cast<Colour>(1000 * t + t));
    }
    s.palette = 7;
    return s;
}

TEST(ColourScheme, TargetsNameTheRolesAndMainbKeepsTenOfThemInItsOrder) {
    const ColourScheme s = distinct();
    // 1-4 the displays, then the roles: button back, text, rollover, back, line, text,
    // active, the text box pair, the gradient pair.
    EXPECT_EQ(s.display[3], 4004u);
    EXPECT_EQ(s.rollover, 7007u);
    EXPECT_EQ(s.line, 9009u);
    EXPECT_EQ(s.active, 11011u);
    EXPECT_EQ(s.endGradient, 15015u);
    EXPECT_FALSE(s.target(16));
    EXPECT_EQ(std::string(kSchemeTargetCaptions[13]), "Start Gradient");
    const auto ten = sessionColours(s);
    EXPECT_EQ(ten, (std::array<Colour, 10>{14014, 15015, 5005, 11011, 8008, 7007, 6006, 10010,
                                           12012, 13013}));
    ColourScheme back = builtInScheme();
    for (int i = 0; i < kSessionSchemeColours; ++i) {
        setSessionColour(back, i, ten[static_cast<std::size_t>(i)]);
    }
    setSessionColour(back, 10, 1);  // no such field
    EXPECT_EQ(back.buttonText, s.buttonText);
    EXPECT_EQ(back.textBoxFore, s.textBoxFore);
    EXPECT_EQ(back.line, builtInScheme().line);
}

TEST(ColourScheme, ColourTextsAreDecimalWholeNumbers) {
    EXPECT_EQ(colourText(16744576), "16744576");
    EXPECT_EQ(colourFromText(" 255 "), 255u);
    EXPECT_EQ(colourFromText("4294967295"), 4294967295u);
    for (const char* bad : {"", " ", "-1", "12a", "0x10", "1.5", "4294967296"}) {
        EXPECT_FALSE(colourFromText(bad)) << bad;
    }
}

TEST(Legibility, ContrastFollowsWcagRelativeLuminance) {
    constexpr Colour black = 0;
    constexpr Colour white = 0xFFFFFF;
    EXPECT_DOUBLE_EQ(relativeLuminance(black), 0.0);
    EXPECT_DOUBLE_EQ(relativeLuminance(white), 1.0);
    EXPECT_NEAR(contrastRatio(black, white), 21.0, 1e-9);
    EXPECT_NEAR(contrastRatio(white, black), 21.0, 1e-9);
    EXPECT_NEAR(contrastRatio(0x123456, 0x123456), 1.0, 1e-9);
    // Published figures: #767676 on white is the lightest grey that passes, 4.54:1;
    // pure red on white 4.00:1; green is weighted most.
    EXPECT_NEAR(contrastRatio(rgbColour(0x76, 0x76, 0x76), white), 4.54, 0.01);
    EXPECT_NEAR(contrastRatio(rgbColour(255, 0, 0), white), 4.00, 0.01);
    EXPECT_GT(relativeLuminance(rgbColour(0, 255, 0)), relativeLuminance(rgbColour(255, 0, 0)));
    // Black or white always reads: at least the square root of 21.
    for (const Colour c : {0x000000u, 0x777777u, 0x808080u, 0x0000FFu, 0x00FF00u, 0x3E7C8Cu}) {
        EXPECT_GE(contrastRatio(readableTextOn(c), c), 4.58) << c;
    }
    EXPECT_EQ(mixColours(rgbColour(0, 100, 200), rgbColour(100, 100, 0), 0.5),
              rgbColour(50, 100, 100));
}

TEST(Legibility, IllegiblePairsNameWhatFallsShort) {
    ColourScheme s = programLook();
    EXPECT_TRUE(illegiblePairs(s).empty());
    s.text = s.back;
    s.rollover = s.buttonText;
    EXPECT_EQ(illegiblePairs(s),
              (std::vector<std::string>{"Text Color on Back Color", "button Text on Rollover"}));
    // The displays' own colours count only under "CUSTOM".
    s = programLook();
    s.display[1] = s.display[0];
    EXPECT_TRUE(illegiblePairs(s).empty());
    s.palette = static_cast<int>(LcdPalette::Custom);
    EXPECT_EQ(illegiblePairs(s), (std::vector<std::string>{"LCD On on Backlight"}));
}

TEST(SchemeFile, SixteenFieldsInTheirOrderGoThereAndBack) {
    const ColourScheme s = distinct();
    const std::string text = writeSchemeFile(s);
    EXPECT_EQ(text,
              "\"14014\",\"15015\",\"11011\",\"8008\",7,1001,2002,3003,4004,\"5005\",\"6006\","
              "\"10010\",\"12012\",\"13013\",\"7007\",\"9009\"\r\n");
    EXPECT_EQ(readSchemeFile(text), s);
    // Line ends of either kind.
    std::string lf = text;
    lf.erase(lf.find('\r'), 1);
    EXPECT_EQ(readSchemeFile(lf), s);
}

TEST(SchemeFile, AFileThatIsNotWholeOrNotColoursIsNotRead) {
    const std::string text = writeSchemeFile(distinct());
    EXPECT_FALSE(readSchemeFile(""));
    EXPECT_FALSE(readSchemeFile(text.substr(0, text.rfind(','))));  // fifteen fields
    std::string notColour = text;
    notColour.replace(1, 5, "green");
    EXPECT_FALSE(readSchemeFile(notColour));
    std::string negative = text;
    negative.replace(negative.find("1001"), 4, "-100");
    EXPECT_FALSE(readSchemeFile(negative));
    // A palette index outside the list reads as the default palette.
    std::string palette = text;
    palette.replace(palette.find(",7,"), 3, ",42,");
    EXPECT_EQ(readSchemeFile(palette)->palette, static_cast<int>(LcdDisplay::kDefaultPalette));
}

TEST(ColoursSessionFile, EightFieldsReadAsFarAsTheyGo) {
    ColoursSessionRecord r;
    r.palette = 10;
    r.display = {1, 2, 3, 4};
    r.line = "333333";
    r.active = "16744576";
    r.name = "Dusk";
    const std::string text = writeColoursSessionFile(r);
    EXPECT_EQ(text, "10,1,2,3,4,\"333333\",\"16744576\",\"Dusk\"\r\n");
    const auto read = readColoursSessionFile(text);
    EXPECT_TRUE(read.whole(ColoursSessionRecord::kFields));
    EXPECT_EQ(read.record.display, r.display);
    EXPECT_EQ(read.record.name, "Dusk");

    const auto part = readColoursSessionFile("3,9,8,\"oops");
    EXPECT_EQ(part.fields, 3);
    EXPECT_EQ(part.record.palette, 3);
    EXPECT_EQ(part.record.display[1], 8u);
    EXPECT_EQ(readColoursSessionFile("3,9,-8,7,6\r\n").fields, 2);
}

TEST(PaletteFile, JascPalettesGoThereAndBackAndAnythingElseIsNoPalette) {
    const std::vector<Colour> colours{rgbColour(255, 0, 0), rgbColour(1, 2, 3), 0};
    const std::string text = writePaletteFile(colours);
    EXPECT_EQ(text, "JASC-PAL\r\n0100\r\n3\r\n255 0 0\r\n1 2 3\r\n0 0 0\r\n");
    EXPECT_EQ(readPaletteFile(text), colours);
    EXPECT_EQ(readPaletteFile("JASC-PAL\n0100\n1\n10 20 30\n"),
              (std::vector<Colour>{rgbColour(10, 20, 30)}));
    for (const char* bad :
         {"", "JASC-PAL\r\n0100\r\n2\r\n1 2 3\r\n", "GIMP Palette\r\n0100\r\n1\r\n1 2 3\r\n",
          "JASC-PAL\r\n0100\r\n1\r\n1 2 300\r\n", "JASC-PAL\r\n0100\r\n1\r\n1 2\r\n",
          "JASC-PAL\r\n0100\r\n0\r\n"}) {
        EXPECT_FALSE(readPaletteFile(bad)) << bad;
    }
}

}  // namespace
}  // namespace brevane
