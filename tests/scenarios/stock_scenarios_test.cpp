// The stock scenarios as a user meets them: the first run plays, and every stock
// scenario loads without a message and is heard within its first seconds, rendered
// through the real mixer on the stock sounds.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
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

    // Runs the program and renders the mix in step, 10 ms at a time, with `each` run
    // before every step.
    std::vector<float> render(int hundredths, const std::function<void(int)>& each = {}) {
        std::vector<float> out;
        for (int i = 0; i < hundredths; ++i) {
            if (each) {
                each(i);
            }
            h.loop.advance(10);
            const auto block = h.engine.render(441);
            out.insert(out.end(), block.begin(), block.end());
        }
        return out;
    }
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

double peak(const std::vector<float>& x) {
    double p = 0;
    for (const float v : x) {
        p = std::max(p, static_cast<double>(std::abs(v)));
    }
    return p;
}

// How far the sharpest sample-to-sample step stands out from the steps around it: the
// largest step of each 10 ms against the RMS of the steps over the 50 ms around it, at
// its worst. Rain and its reverb keep this low whatever their level; a click or a gap's
// edge stands out.
double sharpestEdge(const std::vector<float>& x) {
    constexpr std::size_t kBlock = 441;
    std::vector<double> largest;
    std::vector<double> energy;
    for (std::size_t b = 1; b + kBlock <= x.size(); b += kBlock) {
        double top = 0;
        double sum = 0;
        for (std::size_t n = b; n < b + kBlock; ++n) {
            const double d = std::abs(static_cast<double>(x[n]) - x[n - 1]);
            top = std::max(top, d);
            sum += d * d;
        }
        largest.push_back(top);
        energy.push_back(sum);
    }
    double worst = 0;
    for (std::size_t k = 2; k + 2 < largest.size(); ++k) {
        double around = 0;
        for (std::size_t j = k - 2; j <= k + 2; ++j) {
            around += energy[j];
        }
        worst = std::max(worst, largest[k] / std::sqrt(around / (5.0 * kBlock)));
    }
    return worst;
}

// The quietest 5 ms against the 100 ms around it, at its deepest: rain never falls
// silent for a moment, a pause left open does.
double deepestDip(const std::vector<float>& x) {
    constexpr std::size_t kShort = 220;
    constexpr std::size_t kAround = 20;  // short windows
    std::vector<double> energy;
    for (std::size_t b = 0; b + kShort <= x.size(); b += kShort) {
        double sum = 0;
        for (std::size_t n = b; n < b + kShort; ++n) {
            sum += static_cast<double>(x[n]) * x[n];
        }
        energy.push_back(sum);
    }
    double deepest = 1;
    for (std::size_t k = kAround / 2; k + kAround / 2 < energy.size(); ++k) {
        double around = 0;
        for (std::size_t j = k - kAround / 2; j < k + kAround / 2; ++j) {
            around += energy[j];
        }
        deepest = std::min(deepest, std::sqrt(energy[k] / (around / kAround)));
    }
    return deepest;
}

TEST_F(StockScenarios, EveryStockRoomAndCurveSuitsAScenarioAndMovingThemLeavesNoClick) {
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
            EXPECT_LT(peak(wet), 0.9) << box.text();
        }
        on.setChecked(false);
    };
    tryEach(fx.check_rev3d, fx.Combo2);
    tryEach(fx.check_eq, fx.Combo1);

    // Both on, every slider dragged across its range while the rain plays, a move every
    // 10 ms: no moment falls silent and no edge stands out more than the rain's own do.
    fx.check_eq.setChecked(true);
    fx.check_rev3d.setChecked(true);
    render(300);
    // Each slider from where it stands down to its lowest, up to its highest and back,
    // a hundredth of its range every 10 ms, as a hand would drag it.
    std::vector<std::pair<Slider*, int>> moves;
    const auto drag = [&moves](Slider& s) {
        const int from = s.value();
        const double step = (s.high() - s.low()) / 100.0;
        for (double v = from; v > s.low(); v -= step) {
            moves.emplace_back(&s, static_cast<int>(std::lround(v)));
        }
        for (double v = s.low(); v < s.high(); v += step) {
            moves.emplace_back(&s, static_cast<int>(std::lround(v)));
        }
        for (double v = s.high(); v > from; v -= step) {
            moves.emplace_back(&s, static_cast<int>(std::lround(v)));
        }
        moves.emplace_back(&s, from);
    };
    for (Slider& s : fx.VScroll1) {
        drag(s);
    }
    for (std::size_t e = 0; e < fx.hscroll101.size(); ++e) {
        // The spare elements, without a caption, drive nothing.
        if (*Frmeffects::kReverbSliderTable[e].caption != '\0') {
            drag(fx.hscroll101[e]);
        }
    }
    const int steps = static_cast<int>(moves.size());
    const std::vector<float> still = test::side(render(steps), 0);
    const std::vector<float> moved = test::side(render(steps,
                                                       [&](int i) {
                                                           const auto& [slider, value] =
                                                               moves[static_cast<std::size_t>(i)];
                                                           slider->setValue(value);
                                                       }),
                                                0);
    EXPECT_GT(deepestDip(moved), 0.5 * deepestDip(still));
    EXPECT_LT(sharpestEdge(moved), 1.5 * sharpestEdge(still));
}

}  // namespace
}  // namespace brevane
