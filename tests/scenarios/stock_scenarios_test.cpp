// The stock scenarios as a user meets them: the first run plays, and every stock
// scenario loads without a message and is heard within its first seconds, rendered
// through the real mixer on the stock sounds.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "base/file_io.h"
#include "core/app_harness.h"
#include "core/application.h"
#include "engine/mixer_engine.h"
#include "engine/test_sounds.h"
#include "scenarios/scenario_files.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

// Loud enough to be plainly heard at the built-in Master level: silence is 0, and the
// stock loops play at -20 dBFS.
constexpr double kAudibleRms = 0.005;  // -46 dBFS

class StockScenarios : public ::testing::Test {
  protected:
    StockScenarios() : h(7, MixerEngine::Output::Offline) {
        // The stock sounds stay where the build made them; the scenarios come from the
        // generator's own output, which no user has touched.
        fs::remove(h.tree.root() / "bin");
        fs::create_directory_symlink(fs::path(BREVANE_TREE_DIR) / "bin", h.tree.root() / "bin");
        fs::create_directories(h.tree.root() / "config");
        for (const char* folder : {kScenarioFolder, kPresetFolder}) {
            fs::copy(fs::path(BREVANE_STOCK_SCENARIOS_DIR) / folder, h.tree.root() / folder,
                     fs::copy_options::recursive);
        }
    }

    std::vector<float> render(int hundredths) { return test::renderInStep(h, hundredths); }
    double renderRms(int seconds) { return test::rms(render(seconds * 100)); }

    test::AppHarness<MixerEngine> h;
};

TEST_F(StockScenarios, TheFirstRunPlaysSummerStormWithTheStockPresets) {
    Application& app = h.startAndLoad();
    EXPECT_GT(renderRms(2), kAudibleRms);
    EXPECT_EQ(app.frmmain.LCD1.line(3), "Summer Storm");
    EXPECT_EQ(app.frmmain.LCD5.line(3), "Presets: Starter");
    EXPECT_EQ(app.frmmain.presetCaption(0), "Summer Storm");
    EXPECT_NE(app.frmmain.information.text(), Frmmain::kNoInformationText);
    // The first run's soundscape has no marker: the list shows no empty entry.
    EXPECT_EQ(app.frmmain.scenarioList.find(""), -1);
    EXPECT_TRUE(h.dialogs.messages().empty());
}

TEST_F(StockScenarios, EveryOneLoadsWithoutAMessageAndIsHeardWithinTenSeconds) {
    h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
    Application& app = h.startAndLoad();
    Frmmain& c = app.frmmain;
    const std::vector<std::string> names = c.scenarioList.items();
    ASSERT_GE(names.size(), 14u);
    // Every preset of the stock list names one of them.
    ASSERT_TRUE(c.readPresetListFile(h.tree.root() / kPresetFolder / "Starter.pst"));
    for (const std::string& caption : c.presetCaptions()) {
        EXPECT_NE(c.scenarioList.find(caption), -1) << caption;
    }
    c.Master.setValue(Frmmain::kBuiltInMasterLevel);
    for (const std::string& name : names) {
        c.masterStopButton.click();
        renderRms(1);
        c.doload(name);
        EXPECT_EQ(c.LCD1.line(3), name);
        EXPECT_NE(c.information.text(), Frmmain::kNoInformationText) << name;
        EXPECT_GT(renderRms(10), kAudibleRms) << name;
        EXPECT_TRUE(h.dialogs.messages().empty()) << name;
    }
}

TEST_F(StockScenarios, EveryStockRoomAndCurveSuitsAScenario) {
    fs::copy(fs::path(BREVANE_STOCK_SCENARIOS_DIR) / "config/fx", h.tree.root() / "config/fx",
             fs::copy_options::recursive);
    h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
    Application& app = h.startAndLoad();
    app.frmmain.Master.setValue(Frmmain::kBuiltInMasterLevel);
    app.frmmain.doload("Gentle Rain");
    render(500);
    const std::vector<float> dry = render(500);
    Frmeffects& fx = app.frmeffects;

    // Each room and each curve on its own: the scenario stays near its level, and the
    // rooms add a tail without pushing the mix to full scale.
    const auto tryEach = [&](CheckBox& on, ComboBox& box) {
        on.setChecked(true);
        ASSERT_GE(box.items().size(), 5u);
        for (int i = 0; i < static_cast<int>(box.items().size()); ++i) {
            box.setListIndex(i);
            render(100);
            const std::vector<float> wet = render(500);
            const double change = 20 * std::log10(test::rms(wet) / test::rms(dry));
            // A curve for sleep takes the rain's hiss down by design.
            EXPECT_LT(std::abs(change), 9.0) << box.text();
            EXPECT_LT(test::peak(wet), 0.9) << box.text();
        }
        on.setChecked(false);
    };
    tryEach(fx.check_rev3d, fx.Combo2);
    tryEach(fx.check_eq, fx.Combo1);
}

}  // namespace
}  // namespace brevane
