// The stock colour schemes as the build made them (scenariogen, through the scheme
// panel's own writer): "Default" and six more, light and dark, each readable, and the
// colour picker's palette. Read from the generator's own output, which no user has
// touched.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "base/file_io.h"
#include "base/preset_folder.h"
#include "core/lcd_display.h"
#include "scenarios/scenario_files.h"
#include "shell/colour_files.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

const fs::path kStock = BREVANE_STOCK_SCENARIOS_DIR;

std::map<std::string, ColourScheme> stockSchemes() {
    std::map<std::string, ColourScheme> schemes;
    for (const std::string& name : folderNames(kStock / kColourFolder, kSchemeExtension)) {
        const auto text = readWholeFile(kStock / kColourFolder / (name + kSchemeExtension));
        const auto scheme = text ? readSchemeFile(*text) : std::nullopt;
        EXPECT_TRUE(scheme) << name << " cannot be read";
        if (scheme) {
            schemes.emplace(name, *scheme);
        }
    }
    return schemes;
}

TEST(StockColourSchemes, DefaultAndSixNamedSchemesLightAndDarkShip) {
    const auto schemes = stockSchemes();
    for (const char* name :
         {"Default", "Paper", "Ocean", "Forest", "Dusk", "Night", "High contrast"}) {
        EXPECT_TRUE(schemes.count(name)) << name;
    }
    EXPECT_GE(schemes.size(), 7u);
    // "Default" is the program's own look, the one every window shows before painting.
    EXPECT_EQ(schemes.at("Default"), programLook());
    int light = 0;
    int dark = 0;
    for (const auto& [name, s] : schemes) {
        light += relativeLuminance(s.back) > 0.5 ? 1 : 0;
        dark += relativeLuminance(s.back) < 0.05 ? 1 : 0;
    }
    EXPECT_GE(light, 3);
    EXPECT_GE(dark, 3);
}

TEST(StockColourSchemes, EveryTextReadsAtFourAndAHalfToOneOrBetter) {
    for (const auto& [name, s] : stockSchemes()) {
        EXPECT_EQ(illegiblePairs(s), std::vector<std::string>{}) << name;
        // Spelled out, so a failure reads as a figure.
        EXPECT_GE(contrastRatio(s.text, s.back), kReadableContrast) << name;
        EXPECT_GE(contrastRatio(s.textBoxFore, s.textBoxBack), kReadableContrast) << name;
        EXPECT_GE(contrastRatio(s.buttonText, s.buttonBack), kReadableContrast) << name;
        EXPECT_GE(contrastRatio(s.buttonText, s.rollover), kReadableContrast) << name;
        if (lcdPaletteFromIndex(s.palette) == LcdPalette::Custom) {
            EXPECT_GE(contrastRatio(s.display[1], s.display[0]), kReadableContrast) << name;
        }
    }
}

TEST(StockColourSchemes, EachIsDesignedNotDefaultedItsPartsApart) {
    for (const auto& [name, s] : stockSchemes()) {
        // A random bank's Auto shows its state as Active Color against the button face.
        EXPECT_NE(s.active, s.buttonBack) << name;
        EXPECT_GE(contrastRatio(s.active, s.buttonBack), 1.5) << name;
        // Under the pointer a button changes; the slider's fill runs between two tones.
        EXPECT_NE(s.rollover, s.buttonBack) << name;
        EXPECT_NE(s.startGradient, s.endGradient) << name;
        // Borders show on the panels they divide.
        EXPECT_GE(contrastRatio(s.line, s.back), 1.3) << name;
        EXPECT_LT(s.palette, static_cast<int>(kLcdPaletteNames.size())) << name;
    }
}

TEST(StockColourSchemes, ThePickersPaletteIsFortyEightColoursAndStockScenariosCarryNone) {
    const auto text = readWholeFile(kStock / kPaletteFile);
    ASSERT_TRUE(text);
    const auto palette = readPaletteFile(*text);
    ASSERT_TRUE(palette);
    EXPECT_EQ(palette->size(), 48u);
    EXPECT_EQ(palette->front(), 0x00FFFFFFu);
    std::vector<Colour> sorted = *palette;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(std::adjacent_find(sorted.begin(), sorted.end()), sorted.end());

    // Loading a stock scenario leaves the user's colours alone.
    const fs::path folder = kStock / kScenarioFolder;
    std::vector<std::string> names = folderNames(folder, kScenarioMarkerExtension);
    EXPECT_GT(names.size(), 5u);
    names.push_back("");  // the first run's soundscape
    for (const std::string& name : names) {
        EXPECT_TRUE(fs::exists(scenarioMemberFile(folder, name, ScenarioMember::BackgroundOne)));
        EXPECT_FALSE(fs::exists(scenarioMemberFile(folder, name, ScenarioMember::Colours))) << name;
        EXPECT_FALSE(fs::exists(scenarioMemberFile(folder, name, ScenarioMember::ColoursAgain)))
            << name;
    }
}

}  // namespace
}  // namespace brevane
