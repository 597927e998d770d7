// The effects panel on the recording engine: the rebuild's calls in each of its four
// shapes, a band's move without a pause, the reverb's parameters, the presets and their
// messages, effects.tmp and the settings record.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/file_io.h"
#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;

std::vector<std::string> concat(std::initializer_list<std::vector<std::string>> parts) {
    std::vector<std::string> all;
    for (const auto& p : parts) {
        all.insert(all.end(), p.begin(), p.end());
    }
    return all;
}

class Effects : public ::testing::Test {
  protected:
    void SetUp() override { h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n"); }
    Application& start() {
        app = &h.startAndLoad();
        return *app;
    }
    Frmeffects& fx() { return app->frmeffects; }
    std::string file(const std::string& relative) {
        return readWholeFile(h.tree.root() / relative).value_or("<missing>");
    }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
};

// The ten bands as the rebuild sets them, ids counting from `first`, all flat.
std::vector<std::string> flatBands(int first) {
    std::vector<std::string> calls;
    for (int i = 0; i < Frmeffects::kBands; ++i) {
        calls.push_back("enableEffect(Equalizer) -> " + std::to_string(first + i));
    }
    for (int i = 0; i < Frmeffects::kBands; ++i) {
        calls.push_back("setEqualizerBand(" + std::to_string(first + i) + ", " +
                        std::to_string(Frmeffects::kCentreHz[static_cast<std::size_t>(i)]) +
                        " Hz, 18 st, 0 dB)");
    }
    return calls;
}

const std::string kDefaultReverb =
    "room -1000, roomHF 0, rolloff 0, decay 0.2, decayHF 0.83, reflections 18398, reflDelay "
    "0.007, reverb 11, revDelay 0.001, diffusion 100, density 100, hfRef 5000)";

TEST_F(Effects, EachToggleRebuildsTheChainInItsShapeAndTheConsoleFollows) {
    start();
    EXPECT_EQ(app->frmmain.LCD6.line(3), "Disabled");
    EXPECT_EQ(app->frmmain.LCD6.line(4), "Disabled");
    EXPECT_FALSE(fx().VScroll1[0].enabled());
    EXPECT_FALSE(fx().eqNextButton.enabled());
    EXPECT_FALSE(fx().hscroll101[15].enabled());
    // The reverb's step buttons are not among the controls its toggle greys.
    EXPECT_TRUE(fx().reverbNextButton.enabled());
    const std::vector<std::string> bracket = {"setAllPaused(true)", "disableEffects()",
                                              "setAllPaused(true)", "disableEffects()"};

    // Equalizer only.
    h.engine.clearCalls();
    fx().Combo1.setText("");
    fx().check_eq.setChecked(true);
    EXPECT_EQ(h.engine.lines(), concat({bracket, flatBands(0), {"setAllPaused(false)"}}));
    EXPECT_EQ(fx().Combo1.text(), "Custom");
    EXPECT_EQ(app->frmmain.LCD6.line(4), "Custom");
    EXPECT_TRUE(fx().VScroll1[9].enabled());
    EXPECT_TRUE(fx().eqPreviousButton.enabled());

    // Both: the equalizer before the reverb, whose id is kept and set.
    h.engine.clearCalls();
    fx().check_rev3d.setChecked(true);
    EXPECT_EQ(h.engine.lines(),
              concat({bracket,
                      flatBands(0),
                      {"enableEffect(Reverb) -> 10", "setReverb(10, " + kDefaultReverb,
                       "setAllPaused(false)"}}));
    EXPECT_EQ(fx().reverbId, 10);
    EXPECT_EQ(app->frmmain.LCD6.line(3), "Default");

    // Reverb only.
    h.engine.clearCalls();
    fx().check_eq.setChecked(false);
    EXPECT_EQ(h.engine.lines(),
              concat({bracket,
                      {"enableEffect(Reverb) -> 0", "setReverb(0, " + kDefaultReverb,
                       "setAllPaused(false)"}}));
    EXPECT_EQ(app->frmmain.LCD6.line(4), "Disabled");
    EXPECT_FALSE(fx().Combo1.enabled());

    // Neither: still a pause and a resume.
    h.engine.clearCalls();
    fx().check_rev3d.setChecked(false);
    EXPECT_EQ(h.engine.lines(), concat({bracket, {"setAllPaused(false)"}}));
    EXPECT_EQ(app->frmmain.LCD6.line(3), "Disabled");

    // The spare echo: a chain of its own, paused around.
    h.engine.clearCalls();
    fx().Command3.click();
    EXPECT_EQ(h.engine.lines(),
              (std::vector<std::string>{
                  "setAllPaused(true)", "disableEffects()", "enableEffect(Echo) -> 0",
                  "setEcho(0, wet 100, feedback 100, left 2000 ms, right 2000 ms, pan)",
                  "setAllPaused(false)"}));
}

TEST_F(Effects, ABandGoesStraightToItsFilterAndAReverbSliderRebuilds) {
    start();
    fx().check_eq.setChecked(true);
    fx().check_rev3d.setChecked(true);

    h.engine.clearCalls();
    fx().VScroll1[3].setValue(25);
    EXPECT_EQ(h.engine.lines(),
              (std::vector<std::string>{"setEqualizerBand(3, 600 Hz, 18 st, 10 dB)"}));
    EXPECT_EQ(fx().Combo1.text(), "Custom");
    EXPECT_EQ(app->frmmain.LCD6.line(4), "Custom");
    // A value past an end stands there: 0 is -15 dB.
    fx().VScroll1[0].setValue(-4);
    EXPECT_EQ(h.engine.lines().back(), "setEqualizerBand(0, 80 Hz, 18 st, -15 dB)");
    // The equalizer's defaults: every band flat again, no question asked.
    fx().eqDefaultsButton.click();
    EXPECT_EQ(h.engine.lines().back(), "setEqualizerBand(3, 600 Hz, 18 st, 0 dB)");
    EXPECT_TRUE(h.dialogs.shown().empty());

    // A reverb slider: the reverb set on the kept id, then the whole rebuild.
    h.engine.clearCalls();
    fx().hscroll101[4].setValue(3);
    const auto lines = h.engine.lines();
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[0].rfind("setReverb(10, room -1000, roomHF 0, rolloff -7,", 0), 0u);
    EXPECT_EQ(lines[1], "setAllPaused(true)");
    EXPECT_EQ(lines.back(), "setAllPaused(false)");
    EXPECT_EQ(h.engine.callsOf(Op::SetReverb).size(), 2u);
    EXPECT_EQ(fx().Combo2.text(), "Custom");

    // The mapping's ends; element 8 lands above the level's range as it always has, and
    // the spare elements drive nothing.
    std::array<int, Frmeffects::kReverbSliders> v{};
    v = {0, 0, 200, 200, 0, 200, 100, 200, 0, 3000, 100, 2000, 0, 0, 20, 200};
    const ReverbParams low = Frmeffects::reverbParams(v);
    EXPECT_EQ(low.room, -10000.0f);
    EXPECT_EQ(low.roomRolloffFactor, -10.0f);
    EXPECT_FLOAT_EQ(low.decayTime, 1.0f);
    EXPECT_FLOAT_EQ(low.decayHFRatio, 2.0f);
    EXPECT_EQ(low.reflections, 11000.0f);
    EXPECT_FLOAT_EQ(low.reflectionsDelay, 3.0f);
    EXPECT_FLOAT_EQ(low.reverbDelay, 2.0f);
    EXPECT_EQ(low.hfReference, 20.0f);
    v[2] = v[3] = v[5] = v[15] = 10;
    const ReverbParams spare = Frmeffects::reverbParams(v);
    const auto text = [](const ReverbParams& p) {
        return RecordingEngine::Call{Op::SetReverb, {}, 0, 0, 0, p}.text();
    };
    EXPECT_EQ(text(spare), text(low));
}

TEST_F(Effects, PresetsAreWrittenAsTheirFilesAndAMissingOneIsReported) {
    start();
    fx().check_eq.setChecked(true);
    fx().check_rev3d.setChecked(true);
    fx().VScroll1[0].setValue(20);
    fx().VScroll1[9].setValue(8);
    h.dialogs.answerInput("Mine");
    fx().eqSaveButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text,
              "Please type a name to identify this equalizer configuration");
    EXPECT_EQ(file("config/fx/EQ Presets/Mine.eqf"), "20,15,15,15,15,15,15,15,15,8\r\n");
    EXPECT_EQ(fx().Combo1.items(), std::vector<std::string>{"Mine"});

    fx().hscroll101[6].setValue(150);  // clamped at 100
    fx().hscroll101[15].setValue(40);  // not in the file
    h.dialogs.answerInput("Hall");
    fx().reverbSaveButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text, "Please type a name to identify this configuration");
    EXPECT_EQ(file("config/fx/Reverb Presets/Hall.rvf"),
              "9000,10000,83,83,10,83,100,83,7398,7,11,1,100,100,5000\r\n");

    // Back to the preset after a move: its values return, with one rebuild.
    fx().VScroll1[0].setValue(3);
    EXPECT_EQ(fx().Combo1.text(), "Custom");
    h.engine.clearCalls();
    fx().Combo1.setListIndex(0);
    EXPECT_EQ(fx().VScroll1[0].value(), 20);
    EXPECT_EQ(fx().Combo1.text(), "Mine");
    EXPECT_EQ(app->frmmain.LCD6.line(4), "Mine");
    EXPECT_EQ(h.engine.callsOf(Op::SetAllPaused).size(), 3u);

    // Gone from the folder, or cut short: the message, and the sliders stay.
    fx().Combo2.setListIndex(-1);
    std::filesystem::remove(h.tree.root() / "config/fx/Reverb Presets/Hall.rvf");
    fx().hscroll101[6].setValue(50);
    fx().Combo2.setListIndex(0);
    EXPECT_EQ(h.dialogs.shown().back().text, "This preset could not be found.");
    EXPECT_EQ(fx().hscroll101[6].value(), 50);
    h.writeFile("config/fx/EQ Presets/Mine.eqf", "20,15,15,\"x\"");
    fx().Combo1.setListIndex(-1);
    fx().Combo1.setListIndex(0);
    EXPECT_EQ(h.dialogs.shown().back().text, "This preset could not be found.");
    EXPECT_EQ(fx().VScroll1[0].value(), 20);

    // Delete: nothing named, then asked and done.
    const auto shown = h.dialogs.shown().size();
    fx().Combo2.setListIndex(-1);
    fx().Combo2.setText("");
    fx().reverbDeleteButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text, "No Preset Selected");
    fx().Combo1.setText("Mine");
    h.dialogs.answerYesNo(true);
    fx().eqDeleteButton.click();
    EXPECT_EQ(h.dialogs.shown()[shown + 1].text, "This will delete the current preset. Continue?");
    EXPECT_FALSE(std::filesystem::exists(h.tree.root() / "config/fx/EQ Presets/Mine.eqf"));
    EXPECT_TRUE(fx().Combo1.items().empty());

    // The reverb's defaults ask, then pick "Default".
    h.writeFile("config/fx/Reverb Presets/Default.rvf",
                "9000,10000,83,83,10,83,20,83,7398,7,11,1,100,100,5000\r\n");
    fx().reverbPresets.refill();
    h.dialogs.answerYesNo(true);
    fx().reverbDefaultsButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text,
              "This will restore all reverb settings to their defaults. Do you wish to continue?");
    EXPECT_EQ(fx().hscroll101[6].value(), 20);
    EXPECT_EQ(fx().Combo2.text(), "Default");
}

TEST_F(Effects, EffectsTmpBringsBackTheTogglesAndPresetsWithOneRebuild) {
    h.writeFile("config/fx/EQ Presets/Warm.eqf", "18,17,16,15,15,14,13,12,12,12\r\n");
    h.writeFile("config/fx/Reverb Presets/Hall.rvf",
                "7000,8000,83,83,10,83,90,60,7398,20,80,30,100,100,4000\r\n");
    h.writeFile("effects.tmp", "1,\"Warm\",0,\"Hall\"\r\n");
    start();
    EXPECT_TRUE(fx().check_eq.checked());
    EXPECT_FALSE(fx().check_rev3d.checked());
    EXPECT_EQ(fx().VScroll1[0].value(), 18);
    EXPECT_EQ(fx().hscroll101[6].value(), 90);
    EXPECT_EQ(fx().Combo1.text(), "Warm");
    EXPECT_EQ(fx().Combo2.text(), "Hall");
    EXPECT_EQ(app->frmmain.LCD6.line(3), "Disabled");
    EXPECT_EQ(app->frmmain.LCD6.line(4), "Warm");
    EXPECT_EQ(h.engine.callsOf(Op::SetAllPaused).size(), 3u);
    EXPECT_EQ(h.engine.callsOf(Op::SetEqualizerBand).back().text(),
              "setEqualizerBand(9, 16000 Hz, 18 st, -3 dB)");

    fx().check_rev3d.setChecked(true);
    app->unloadPanels();
    EXPECT_EQ(file("effects.tmp"), "1,\"Warm\",1,\"Hall\"\r\n");
}

TEST_F(Effects, ADamagedEffectsTmpLeavesTheFreshPanel) {
    h.writeFile("effects.tmp", "1,\"Warm");
    start();
    EXPECT_FALSE(fx().check_eq.checked());
    EXPECT_EQ(fx().Combo1.text(), "Flat");
    EXPECT_EQ(fx().Combo2.text(), "Default");
    EXPECT_TRUE(h.dialogs.shown().empty());
}

TEST_F(Effects, TheSettingsRecordHoldsTwentyNineFieldsAndAShortOneChangesNothing) {
    start();
    fx().VScroll1[2].setValue(27);
    fx().hscroll101[14].setValue(12000);
    fx().hscroll101[15].setValue(100);
    fx().check_rev3d.setChecked(true);
    const auto saved = h.tree.root() / "fx.rec";
    ASSERT_TRUE(fx().dosave(saved));
    EXPECT_EQ(file("fx.rec"),
              "15,15,27,15,15,15,15,15,15,15,9000,10000,83,83,10,83,20,83,7398,7,11,1,100,100,"
              "12000,#FALSE#,#TRUE#,\"Custom\",\"Custom\"\r\n");

    fx().VScroll1[2].setValue(Frmeffects::kFlat);
    fx().check_rev3d.setChecked(false);
    h.writeFile("short.rec", "15,15,1,15\r\n");
    fx().doload(h.tree.root() / "short.rec");
    EXPECT_EQ(fx().VScroll1[2].value(), 15);

    h.engine.clearCalls();
    fx().doload(saved);
    EXPECT_EQ(fx().VScroll1[2].value(), 27);
    EXPECT_EQ(fx().hscroll101[14].value(), 12000);
    EXPECT_TRUE(fx().check_rev3d.checked());
    EXPECT_EQ(fx().Combo2.text(), "Custom");
    EXPECT_EQ(h.engine.callsOf(Op::SetAllPaused).size(), 3u);
}

}  // namespace
}  // namespace brevane
