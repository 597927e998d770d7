// The beat generator on virtual time: the rates the engine is given, the displays and
// range names, a glide arriving when its arithmetic says (or never), the fade that ends
// the sound, and the preset and session records.

#include <gtest/gtest.h>

#include "base/file_io.h"
#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;

class Brainwaves : public ::testing::Test {
  protected:
    void SetUp() override {
        h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
        app = &h.startAndLoad();
        // Past the intro fade, so the level holds still.
        h.loop.advance(Frmmain::kIntroFadeMs * Frmmain::kBuiltInMasterLevel);
        app->frmmain.Bwaves.setValue(60);
    }
    Frmbwave& bwave() { return app->frmbwave; }
    const RecordingEngine::ChannelState& left() { return *h.engine.channel(bwave().leftChannel); }
    const RecordingEngine::ChannelState& right() { return *h.engine.channel(bwave().rightChannel); }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
};

TEST_F(Brainwaves, PlayGivesEachEarItsRateAndTheDisplaysNameTheBeat) {
    Frmbwave& b = bwave();
    b.basestart.setValue(250005);  // 25.0005 Hz on the display, a rate of 25000.5
    b.beatstart.setValue(10500);
    EXPECT_EQ(b.currentBaseText.text(), "25.0005");
    EXPECT_EQ(b.LCD2.line(3), "10.5 Hz");
    EXPECT_EQ(b.startRange.text(), "Alpha");
    EXPECT_EQ(app->frmmain.brainwaveRange.caption(), "Alpha");
    EXPECT_EQ(app->frmmain.LCD8.line(3), "Disabled");

    b.presetBox.setText("Evening");
    b.playtoggle.setValue(true);
    // Left at base / 10 and right at (base - beat) / 10, halves to even; hard left and
    // right, looping, at maxvol x (Bwaves / 6) x (Master / 6) / 100.
    EXPECT_EQ(left().frequency, 25000);
    EXPECT_EQ(right().frequency, 23950);
    EXPECT_EQ(left().pan, 0);
    EXPECT_EQ(right().pan, 255);
    EXPECT_TRUE(left().loop == LoopMode::Normal && right().loop == LoopMode::Normal);
    EXPECT_EQ(left().volume, 70 * 10 * 10 / 100);
    EXPECT_EQ(app->frmmain.LCD8.line(3), "Evening");
    EXPECT_EQ(app->frmmain.LCD8.line(4), "Alpha");
    EXPECT_FALSE(b.saveButton.enabled());

    // The beat moves at once while playing; the console's faders move the level.
    b.beatstart.setValue(4000);
    EXPECT_EQ(right().frequency, 24600);
    app->frmmain.Bwaves.setValue(30);
    EXPECT_EQ(right().volume, 70 * 5 * 10 / 100);

    b.playtoggle.setValue(false);
    EXPECT_FALSE(left().playing || right().playing);
    EXPECT_EQ(app->frmmain.LCD8.line(3), "Disabled");
    EXPECT_TRUE(b.saveButton.enabled());

    // The range table's edges, and nothing above 17 Hz.
    EXPECT_EQ(Frmbwave::rangeName("11.5"), "Alpha");
    EXPECT_EQ(Frmbwave::rangeName("11.501"), "High Alpha");
    EXPECT_EQ(Frmbwave::rangeName("2"), "Low Delta");
    EXPECT_EQ(Frmbwave::rangeName("17.001"), std::nullopt);
}

TEST_F(Brainwaves, ARisingGlideArrivesOnTimeAsksThenFadesToSilence) {
    Frmbwave& b = bwave();
    b.beatstart.setValue(3000);
    b.Check101.setChecked(true);
    b.beatminutes.setListIndex(b.beatminutes.find("1"));
    b.fadeimmediate.setChecked(true);
    b.beatend.setValue(13000);
    b.playtoggle.setValue(true);
    // 10 Hz in a minute: 167 a second, half of it a tick, rounded to even by the
    // slider: 84 each tick from an even start, so the 120th tick arrives, at 60 s.
    EXPECT_EQ(b.beatStep, 167);
    h.loop.advance(59500);
    EXPECT_TRUE(b.Timertrans2.enabled());
    EXPECT_EQ(b.slideroffset.value(), 3000 + 119 * 84);
    EXPECT_EQ(b.currentRange.text(), "High Alpha");
    h.loop.advance(500);
    EXPECT_FALSE(b.Timertrans2.enabled());
    EXPECT_EQ(b.slideroffset.value(), 13000);
    EXPECT_EQ(h.dialogs.messages(), std::vector<std::string>{Frmbwave::kEnableFadeText});
    EXPECT_EQ(b.currentRange.text(), "High Alpha");

    // The fade: a step every 2 s from 70, then the tick at 0 stops the sound.
    ASSERT_TRUE(b.Timerfade.enabled());
    h.loop.advance(70 * Frmbwave::kFadeMs);
    EXPECT_EQ(b.maxvol.value(), 0);
    EXPECT_TRUE(left().playing);
    h.loop.advance(Frmbwave::kFadeMs);
    EXPECT_FALSE(left().playing);
    EXPECT_FALSE(b.playtoggle.value());
    EXPECT_FALSE(b.Timerfade.enabled());
    // The level does not come back by itself.
    b.playtoggle.setValue(true);
    EXPECT_EQ(left().volume, 0);
}

TEST_F(Brainwaves, AStepThatRoundsToNothingNeverArrivesAndAFallingBaseNeverFades) {
    Frmbwave& b = bwave();
    b.Check101.setChecked(true);
    b.beatminutes.setListIndex(b.beatminutes.find("30"));
    b.beatend.setValue(3100);
    b.Check100.setChecked(true);
    b.baseminutes.setListIndex(b.baseminutes.find("1"));
    b.basestart.setValue(300000);
    b.fadeimmediate.setChecked(true);
    b.baseend.setValue(240000);
    b.playtoggle.setValue(true);
    EXPECT_EQ(b.beatStep, 0);  // 100 over 1800 s
    EXPECT_EQ(b.baseStep, 1000);
    h.loop.advance(2 * 3600 * 1000);
    EXPECT_TRUE(b.Timertrans2.enabled());
    EXPECT_EQ(b.slideroffset.value(), 3000);
    // The base fell to its end in a minute and started no fade.
    EXPECT_EQ(b.basefreq.value(), 240000);
    EXPECT_FALSE(b.Timertrans1.enabled());
    EXPECT_FALSE(b.Timerfade.enabled());
    EXPECT_EQ(b.maxvol.value(), 70);
}

TEST_F(Brainwaves, PresetsAndTheSessionRecord) {
    Frmbwave& b = bwave();
    b.basestart.setValue(300000);
    b.beatstart.setValue(7000);
    b.Check101.setChecked(true);
    b.beatend.setValue(4000);
    h.dialogs.answerInput("Drift off");
    b.saveAsButton.click();
    EXPECT_EQ(readWholeFile(h.tree.root() / "config/bwaves/Drift off.rvf"),
              "#FALSE#,300000,7000,0,\"1\",200000,1,\"1\",4000\r\n");

    // A preset chosen while playing plays on with its values.
    b.basestart.setValue(200000);
    b.Check101.setChecked(false);
    b.playtoggle.setValue(true);
    b.presetBox.setListIndex(b.presetBox.find("Drift off"));
    EXPECT_EQ(b.basestart.value(), 300000);
    EXPECT_TRUE(b.playtoggle.value());
    EXPECT_EQ(left().frequency, 30000);
    EXPECT_TRUE(b.Timertrans2.enabled());

    // The session record: a load naming the preset the box shows changes nothing.
    ASSERT_TRUE(b.dosave(h.tree.root() / "kept.scs"));
    b.beatstart.setValue(5000);
    b.doload(h.tree.root() / "kept.scs");
    EXPECT_EQ(b.beatstart.value(), 5000);
    b.presetBox.setText("Other");
    b.playtoggle.setValue(false);
    b.doload(h.tree.root() / "kept.scs");
    EXPECT_EQ(b.beatstart.value(), 7000);
    EXPECT_EQ(b.presetBox.text(), "Drift off");
    EXPECT_TRUE(b.playtoggle.value());

    // A damaged preset says so and leaves everything as it was.
    h.writeFile("config/bwaves/Broken.rvf", "#TRUE#,1\r\n");
    b.presets.refill();
    b.presetBox.setListIndex(b.presetBox.find("Broken"));
    EXPECT_EQ(h.dialogs.messages().back(), PresetTexts{}.loadProblem);
    EXPECT_EQ(b.basestart.value(), 300000);

    // The next start selects the preset bwave.tmp names.
    app->frmmain.quitWithoutAsking();
    EXPECT_EQ(readWholeFile(h.tree.root() / "bwave.tmp"), "\"Broken\"\r\n");
    h.writeFile("bwave.tmp", "\"Drift off\"\r\n");
    h.app.reset();
    app = &h.startAndLoad();
    EXPECT_EQ(bwave().presetBox.text(), "Drift off");
    EXPECT_EQ(bwave().basestart.value(), 300000);
    EXPECT_FALSE(bwave().playtoggle.value());
}

}  // namespace
}  // namespace brevane
