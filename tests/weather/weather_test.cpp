// The weather and the night on virtual time, driving the real banks of the whole
// headless program: showers, storms, the night's stages, the switches, the settings
// record with its presets, and a day and a night of both together.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "base/file_io.h"
#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

using L = std::vector<std::string>;

class Weather : public ::testing::Test {
  protected:
    void SetUp() override {
        h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
        app = &h.startAndLoad();
    }

    Frmevolve& evolve() { return app->frmevolve; }
    BackgroundSoundSlot& rain(int s) { return app->frmback.slot(s); }
    RandomSoundSlot& thunder(int s) { return app->frmrandommain4.slot(s); }

    // Advances in steps of `stepMs` until `done` holds; false if it never does within
    // `limitMs`.
    bool runUntil(const std::function<bool()>& done, std::int64_t limitMs, int stepMs = 100) {
        for (std::int64_t t = 0; t < limitMs; t += stepMs) {
            if (done()) {
                return true;
            }
            h.loop.advance(stepMs);
        }
        return done();
    }

    test::AppHarness<RecordingEngine> h{20251124};
    Application* app = nullptr;
};

TEST_F(Weather, AShowerStartsRisesByDriftDissipatesAndEndsSlotBySlot) {
    Frmevolve& e = evolve();
    e.hscrollrain.setValue(100);
    e.Hscrollweatherspeed.setValue(900);
    e.hscrollmaxrain.setValue(150);
    e.Hscrollduration.setValue(4950);  // one chance in a hundred a tick that it ends
    e.masterevolve.setValue(true);
    EXPECT_EQ(e.masterevolve.caption(), Frmevolve::kDisableWeather);
    EXPECT_FALSE(e.hscrollrain.enabled());
    EXPECT_EQ(app->frmmain.LCD4.line(3), app->weatherStatus);

    ASSERT_TRUE(runUntil([&] { return rain(3).on.checked(); }, 3600000, 10000));
    // Light rain, rain on leaves and heavy rain, each from 1 towards 20 to 150; only the
    // heavy rain takes the speed as it stands.
    for (int s : {3, 4, 5}) {
        EXPECT_TRUE(rain(s).on.checked()) << s;
        EXPECT_EQ(rain(s).lowLimitText.text(), "20") << s;
        EXPECT_EQ(rain(s).highLimitText.text(), "150") << s;
        EXPECT_LE(rain(s).volume.value(), 20) << s;
    }
    EXPECT_EQ(rain(4).rate.value(), 900);
    EXPECT_GE(rain(3).rate.value(), 900);
    EXPECT_LT(rain(3).rate.value(), 930);
    // The drift carries the loops up into their range.
    h.loop.advance(60000);
    for (int s : {3, 4, 5}) {
        EXPECT_GE(rain(s).volume.value(), 20) << s;
        EXPECT_LE(rain(s).volume.value(), 150) << s;
    }

    // Shorter showers: it dissipates, the limits go to 0 and the levels follow.
    e.masterevolve.setValue(false);
    e.Hscrollduration.setValue(2800);
    e.masterevolve.setValue(true);
    ASSERT_TRUE(runUntil([&] { return rain(4).highLimitText.text() == "0"; }, 600000, 10000));
    for (int s : {3, 4, 5}) {
        EXPECT_EQ(rain(s).lowLimitText.text(), "0") << s;
        EXPECT_EQ(rain(s).lowLimitBar.value(), BackgroundBank::kLimitTop) << s;
    }
    // Each loop stops at the first tick that finds it at 0, never before.
    bool stoppedWhileSounding = false;
    ASSERT_TRUE(runUntil(
        [&] {
            for (int s : {3, 4, 5}) {
                stoppedWhileSounding |= !rain(s).on.checked() && rain(s).volume.value() > 0;
            }
            return !rain(3).on.checked() && !rain(4).on.checked() && !rain(5).on.checked();
        },
        600000));
    EXPECT_FALSE(stoppedWhileSounding);
}

TEST_F(Weather, AStormRisesHoldsFallsAndItsFrequenciesHoldTheNextOneBack) {
    Frmevolve& e = evolve();
    e.hscrollrain.setValue(0);
    e.hscrollthunder.setValue(100);
    e.hscrollsevthun.setValue(150);
    e.hscrollthunderspeed.setValue(2000);  // held at 950: a step every 1150 ms
    e.hscrollmaxthunder.setValue(30);
    e.hscrollthunderlength.setValue(0);
    e.masterevolve.setValue(true);

    ASSERT_TRUE(runUntil([&] { return e.thundervolume.enabled(); }, 3600000, 10000));
    EXPECT_FALSE(e.Timerthun.enabled());
    EXPECT_EQ(e.thundervolume.interval(), 2100 - 950);
    for (int s = 1; s <= 11; ++s) {
        EXPECT_EQ(thunder(s).frequency.value(), 150) << s;
    }
    EXPECT_EQ(thunder(12).frequency.value(), 0);

    // Rising: the test comes before the step, so it ends one above the maximum.
    ASSERT_TRUE(runUntil([&] { return e.Timerthunderlength.enabled(); }, 120000));
    EXPECT_EQ(thunder(1).volume.value(), 31);
    EXPECT_EQ(thunder(11).volume.value(), 31);
    // Lowering Max Volume brings the eleven down at once.
    e.masterevolve.setValue(false);
    e.hscrollmaxthunder.setValue(25);
    EXPECT_EQ(thunder(7).volume.value(), 25);
    e.masterevolve.setValue(true);

    // A storm that has risen is held until the switch goes off, and then falls on its
    // own only if something starts the fade: the trigger's next roll does.
    ASSERT_TRUE(runUntil([&] { return e.timerthundervolumefade.enabled(); }, 600000, 1000));
    ASSERT_TRUE(runUntil([&] { return thunder(1).volume.value() == 0; }, 120000));
    ASSERT_TRUE(runUntil([&] { return !e.timerthundervolumefade.enabled(); }, 5000));
    EXPECT_TRUE(e.Timerthun.enabled());
    EXPECT_EQ(thunder(1).frequency.value(), 150);

    // The frequencies left standing read as a storm under way: each successful roll runs
    // one fade tick, and no storm rises again.
    h.loop.advance(3600000);
    EXPECT_FALSE(e.thundervolume.enabled());
    EXPECT_EQ(thunder(1).volume.value(), 0);
}

TEST_F(Weather, AStormOnItsWayUpOutlivesTheSwitch) {
    Frmevolve& e = evolve();
    e.hscrollrain.setValue(0);
    e.hscrollthunder.setValue(100);
    e.hscrollmaxthunder.setValue(20);
    e.hscrollthunderlength.setValue(0);
    e.masterevolve.setValue(true);
    ASSERT_TRUE(runUntil([&] { return e.thundervolume.enabled(); }, 3600000, 10000));
    e.masterevolve.setValue(false);
    EXPECT_EQ(app->weatherStatus, "Static");
    EXPECT_FALSE(e.Timerevolve.enabled());
    // Rise, hold, fall: and the trigger is left running with the weather off.
    ASSERT_TRUE(runUntil([&] { return e.Timerthun.enabled(); }, 600000));
    EXPECT_EQ(thunder(1).volume.value(), 0);
    EXPECT_FALSE(e.Timerevolve.enabled());
}

TEST_F(Weather, TheNightTakesTheDayOutThenBringsItsGroupsUp) {
    Frmevolve& e = evolve();
    BackgroundBank& two = app->frmback2;
    for (int s : {4, 7, 13}) {
        two.slot(s).volume.setValue(30);
        two.slot(s).on.setValue(1);
    }
    two.slot(11).on.setValue(1);  // crickets already on: the second cricket loop starts
    app->frmrandommain.slot(3).frequency.setValue(12);
    app->frmrandommain.slot(14).frequency.setValue(40);  // left out of the end test
    app->frmrandommain2.slot(24).frequency.setValue(3);
    app->frmrandommain3.slot(9).frequency.setValue(20);
    e.delay.setValue(2);
    e.Ratetonight.setValue(700);
    for (CheckBox* c : {&e.Frogs, &e.nightbirdscheck, &e.Crickets, &e.Campfire}) {
        c->setChecked(true);
    }
    e.frogsfreq.setValue(30);
    e.Nightfreq.setValue(20);
    e.nightbirdsvolume.setValue(90);
    e.masternight.setValue(true);
    EXPECT_EQ(app->nightStatus, "Enabled");
    EXPECT_EQ(app->frmmain.LCD4.line(4), "Enabled");
    EXPECT_FALSE(e.delay.enabled());
    EXPECT_EQ(e.nightfadeout.interval(), 100);

    // Waiting: two minutes.
    h.loop.advance(Frmevolve::kNightMinuteMs);
    EXPECT_FALSE(e.nightfadeout.enabled());
    h.loop.advance(Frmevolve::kNightMinuteMs);
    ASSERT_TRUE(e.nightfadeout.enabled());
    EXPECT_FALSE(e.nighttimer.enabled());
    for (int s : {4, 5, 6, 7, 13, 14, 15}) {
        EXPECT_EQ(two.slot(s).lowLimitText.text(), "0") << s;
        EXPECT_EQ(two.slot(s).highLimitText.text(), "0") << s;
    }
    EXPECT_EQ(two.slot(7).rate.value(), 700);
    EXPECT_EQ(two.slot(13).rate.value(), 800);  // the cicadas keep their speed
    EXPECT_TRUE(two.slot(12).on.checked());
    EXPECT_EQ(two.slot(12).highLimitText.text(), "125");
    EXPECT_TRUE(two.slot(16).on.checked());
    EXPECT_FALSE(two.slot(17).on.checked());

    // Day fading: a frequency step each 100 ms; bank three's 20 is the last tested.
    h.loop.advance(19 * 100);
    EXPECT_TRUE(e.nightfadeout.enabled());
    h.loop.advance(100);
    EXPECT_FALSE(e.nightfadeout.enabled());
    EXPECT_TRUE(e.nightfadein.enabled());
    EXPECT_EQ(app->frmrandommain.slot(14).frequency.value(), 20);
    EXPECT_EQ(app->frmrandommain.slot(1).volume.value(), 90);
    EXPECT_EQ(app->frmrandommain2.slot(10).volume.value(), 120);  // insects, unchecked too

    // Night: birds up to their target and up to 5 beyond; frogs 25-28 follow slot 24.
    h.loop.advance(20 * Frmevolve::kNightFadeInMs);
    EXPECT_EQ(app->frmrandommain.slot(6).frequency.value(), 25);
    EXPECT_EQ(app->frmrandommain2.slot(24).frequency.value(), 35);
    EXPECT_EQ(app->frmrandommain2.slot(28).frequency.value(), 35);
    EXPECT_EQ(app->frmrandommain2.slot(10).frequency.value(), 0);
    // The loops of the day fall on after the stage: only a running day fade switches a
    // loop off, so they stay on at 0.
    h.loop.advance(600000);
    for (int s : {4, 7, 13}) {
        EXPECT_TRUE(two.slot(s).on.checked()) << s;
        EXPECT_EQ(two.slot(s).volume.value(), 0) << s;
    }
}

TEST_F(Weather, SwitchingTheNightOffCancelsTheWaitButNotADayAlreadyFading) {
    Frmevolve& e = evolve();
    e.delay.setValue(1);
    e.masternight.setValue(true);
    e.masternight.setValue(false);
    EXPECT_FALSE(e.nighttimer.enabled());
    EXPECT_TRUE(e.delay.enabled());
    h.loop.advance(5 * Frmevolve::kNightMinuteMs);
    EXPECT_FALSE(e.nightfadeout.enabled());

    app->frmrandommain2.slot(5).frequency.setValue(3);
    e.masternight.setValue(true);
    h.loop.advance(Frmevolve::kNightMinuteMs);
    ASSERT_TRUE(e.nightfadeout.enabled());
    e.masternight.setValue(false);
    EXPECT_EQ(app->nightStatus, "Disabled");
    // The stage ends as it would have, and the night comes up with the switch off.
    h.loop.advance(10000);
    EXPECT_FALSE(e.nightfadeout.enabled());
    EXPECT_TRUE(e.nightfadein.enabled());
    // A scenario load stops it.
    e.scenarioLoaded();
    EXPECT_FALSE(e.nightfadein.enabled());
    EXPECT_EQ(e.masternight.caption(), Frmevolve::kEnableNight);
}

TEST_F(Weather, PresetsAndTheSessionKeepTheRecord) {
    Frmevolve& e = evolve();
    const std::string defaults = e.record();
    e.hscrollsevrain.setValue(1);
    EXPECT_EQ(e.hintBox.text(),
              "This setting will generate light showers. Most suitable for generating gentle "
              "summer rain.");
    e.delay.setValue(45);
    e.Crickets.setChecked(true);
    h.dialogs.answerInput("Drizzle");
    e.saveAsButton.click();
    h.dialogs.answerInput("Default");
    e.presetBox.setText("");
    e.saveAsButton.click();  // a Default to come back to: the panel as it came, but...
    ASSERT_EQ(e.presetBox.items(), (L{"Default", "Drizzle"}));

    // Stepping: from the first, Previous lands on the last but one; Next from the last
    // lands on the second.
    e.presetBox.setListIndex(0);
    e.previousButton.click();
    EXPECT_EQ(e.presetBox.listIndex(), 0);  // two entries: last but one is the first
    e.presetBox.setListIndex(1);
    e.nextButton.click();
    EXPECT_EQ(e.presetBox.listIndex(), 1);

    // The default cannot go; another can, after asking.
    e.presetBox.setText("Default");
    e.deleteButton.click();
    EXPECT_EQ(h.dialogs.messages().back(), PresetTexts{}.defaultUndeletable);
    e.presetBox.setText("Drizzle");
    h.dialogs.answerYesNo(true);
    e.deleteButton.click();
    EXPECT_EQ(e.presetBox.items(), L{"Default"});
    EXPECT_EQ(e.presetBox.text(), PresetTexts{}.noneSelected);

    // A damaged preset changes nothing and says so.
    h.writeFile("config/evolve/Broken.rvf", "1,2,3\r\n");
    e.presets.refill();
    const std::string before = e.record();
    e.presetBox.setListIndex(e.presetBox.find("Broken"));
    EXPECT_EQ(h.dialogs.messages().back(), PresetTexts{}.loadProblem);
    EXPECT_EQ(e.record().substr(0, 40), before.substr(0, 40));

    // The session: the next start reads evo.ini, the toggles staying off.
    e.masternight.setValue(true);
    const std::string kept = e.record();
    app->frmmain.quitWithoutAsking();
    h.app.reset();
    app = &h.startAndLoad();
    EXPECT_EQ(evolve().delay.value(), 45);
    EXPECT_TRUE(evolve().Crickets.checked());
    EXPECT_FALSE(evolve().masternight.value());
    EXPECT_EQ(evolve().hintBox.text(), "");
    EXPECT_NE(defaults, kept);
}

// A day and a night of weather and night together: every state stays one the panel
// knows, and nothing is left stuck.
TEST_F(Weather, ADayAndANightKeepTheStateMachinesConsistent) {
    Frmevolve& e = evolve();
    e.hscrollrain.setValue(60);
    e.hscrollthunder.setValue(60);
    e.Hscrollduration.setValue(3200);
    e.hscrollthunderlength.setValue(400);
    e.delay.setValue(90);
    e.nightbirdscheck.setChecked(true);
    e.Crickets.setChecked(true);
    for (int s = 1; s <= kRandomSlots; ++s) {
        app->frmrandommain.slot(s).frequency.setValue(100);
    }
    e.masterevolve.setValue(true);
    e.masternight.setValue(true);

    int showers = 0;
    int storms = 0;
    bool wasShowering = false;
    bool wasRising = false;
    for (int minute = 0; minute < 24 * 60; ++minute) {
        h.loop.advance(60000);
        h.engine.clearCalls();
        // Thunder: waiting, rising, holding or falling, one at a time.
        const int thunderTimers = e.Timerthun.enabled() + e.thundervolume.enabled() +
                                  e.Timerthunderlength.enabled() +
                                  e.timerthundervolumefade.enabled();
        ASSERT_TRUE(thunderTimers == 1 || (thunderTimers == 2 && e.Timerthun.enabled() &&
                                           e.timerthundervolumefade.enabled()))
            << minute;
        if (storms > 0) {
            ASSERT_LE(thunder(1).volume.value(), e.hscrollmaxthunder.value() + 1) << minute;
        }
        // Rain: a loop on stands inside a shower's limits or a dissipating one's.
        for (int s : {3, 4, 5}) {
            if (rain(s).on.checked()) {
                const std::string low = rain(s).lowLimitText.text();
                ASSERT_TRUE(low == "20" || low == "0") << minute << " slot " << s;
            }
        }
        const bool showering = rain(3).on.checked();
        showers += showering && !wasShowering;
        wasShowering = showering;
        storms += e.thundervolume.enabled() && !wasRising;
        wasRising = e.thundervolume.enabled();
    }
    EXPECT_GT(showers, 3);
    EXPECT_GE(storms, 1);
    // The night came after its hour and a half and holds.
    EXPECT_TRUE(e.nightfadein.enabled());
    EXPECT_FALSE(e.nighttimer.enabled());
    EXPECT_EQ(app->frmrandommain.slot(20).frequency.value(), 0);
    EXPECT_GT(app->frmrandommain.slot(3).frequency.value(), 0);
}

}  // namespace
}  // namespace brevane
