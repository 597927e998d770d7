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
#include "base/temp_tree.h"
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

// The companions wear the scheme colors.tmp names; one it names that is not there, or no
// colors.tmp at all, gives "Default".
TEST(StockColourSchemes, TheSchemeTheProgramWasLeftInIsTheOneColorsTmpNames) {
    TempTree tree;
    fs::create_directories(tree.root() / "config");
    fs::create_directory_symlink(kStock / kColourFolder, tree.root() / kColourFolder);
    const auto schemes = stockSchemes();
    EXPECT_EQ(lastNamedScheme(tree.root()), schemes.at("Default"));
    ColoursSessionRecord session;
    session.name = "Night";
    ASSERT_TRUE(
        writeFileAtomically(tree.root() / kColoursSessionFile, writeColoursSessionFile(session)));
    EXPECT_EQ(lastNamedScheme(tree.root()), schemes.at("Night"));
    session.name = "Gone";
    ASSERT_TRUE(
        writeFileAtomically(tree.root() / kColoursSessionFile, writeColoursSessionFile(session)));
    EXPECT_EQ(lastNamedScheme(tree.root()), schemes.at("Default"));
}

TEST(StockColourSchemes, EveryTextReadsAtFourAndAHalfToOneAndEachPartStandsApart) {
    for (const auto& [name, s] : stockSchemes()) {
        // Text on panels, on text boxes, on buttons at rest and under the pointer, and
        // lit display characters under "CUSTOM", by WCAG relative luminance.
        EXPECT_EQ(illegiblePairs(s), std::vector<std::string>{}) << name;
        // A random bank's Auto shows its state as Active Color against the button face;
        // borders show on the panels they divide; the slider fill runs between two tones.
        EXPECT_GE(contrastRatio(s.active, s.buttonBack), 1.5) << name;
        EXPECT_GE(contrastRatio(s.line, s.back), 1.3) << name;
        EXPECT_NE(s.rollover, s.buttonBack) << name;
        EXPECT_NE(s.startGradient, s.endGradient) << name;
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
