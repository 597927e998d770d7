// The commands of a random bank's panel: bulk moves of a column, "All", Randomize, and
// its automatic repeat through "Auto" and the settings panels, on the whole Application
// and virtual time.

#include <gtest/gtest.h>

#include <vector>

#include "banks/random/random_bank.h"
#include "banks/random/randomize_settings.h"
#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;

class RandomCommandsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        app = &h.startAndLoad();
        app->frmmain.Master.setValue(100);
        app->frmmain.Random.setValue(100);
    }

    RandomBank& bank(int n) { return *app->randomBank(n); }

    std::vector<int> frequencies(RandomBank& b) {
        std::vector<int> out;
        for (int s = 1; s <= kRandomSlots; ++s) {
            out.push_back(b.slot(s).frequency.value());
        }
        return out;
    }

    void setFrequencies(RandomBank& b, int value) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            b.slot(s).frequency.setValue(value);
        }
    }

    test::AppHarness<RecordingEngine> h{4242};
    Application* app = nullptr;
};

TEST_F(RandomCommandsTest, VolumeStepsGiveRow15Row16sValueAndStopAtTheEnds) {
    RandomBank& b = bank(2);
    b.slot(15).volume.setValue(200);
    b.slot(16).volume.setValue(100);
    b.slot(3).volume.setValue(10);
    b.slot(4).volume.setValue(240);

    b.volumeButtons[1].click();  // -25
    EXPECT_EQ(b.slot(15).volume.value(), 75);
    EXPECT_EQ(b.slot(16).volume.value(), 75);
    EXPECT_EQ(b.slot(3).volume.value(), 0);
    EXPECT_EQ(b.slot(4).volume.value(), 215);
    EXPECT_EQ(b.slot(1).volume.value(), 195);

    b.slot(16).volume.setValue(250);
    b.volumeButtons[2].click();  // +25
    EXPECT_EQ(b.slot(15).volume.value(), 255);
    EXPECT_EQ(b.slot(16).volume.value(), 255);
    EXPECT_EQ(b.slot(3).volume.value(), 25);
    EXPECT_EQ(b.slot(4).volume.value(), 240);

    b.volumeButtons[0].click();
    for (int s = 1; s <= kRandomSlots; ++s) {
        EXPECT_EQ(b.slot(s).volume.value(), 0) << s;
    }
    b.volumeButtons[3].click();
    for (int s = 1; s <= kRandomSlots; ++s) {
        EXPECT_EQ(b.slot(s).volume.value(), 255) << s;
    }
    // Only this bank moved.
    EXPECT_EQ(bank(1).slot(1).volume.value(), 220);
}

TEST_F(RandomCommandsTest, AVolumeStepReachesTheLatestPlayThroughTheSlidersHandler) {
    RandomBank& b = bank(1);
    b.previewSlot(6);
    const ChannelHandle channel = b.slot(6).channel;
    h.engine.clearCalls();
    b.volumeButtons[1].click();
    int last = -1;
    for (const auto& call : h.engine.callsOf(Op::SetVolume)) {
        if (static_cast<ChannelHandle>(call.a) == channel) {
            last = static_cast<int>(call.b);
        }
    }
    EXPECT_EQ(last, b.slotVolumeOf(6));
    EXPECT_EQ(h.engine.channel(channel)->volume, b.slotVolumeOf(6));
}

TEST_F(RandomCommandsTest, FrequencyUpLeavesSlidersAtZeroUnlessAllIsDown) {
    RandomBank& b = bank(3);
    b.slot(1).frequency.setValue(0);
    b.slot(2).frequency.setValue(100);
    b.slot(3).frequency.setValue(250);
    b.frequencyButtons[2].click();
    EXPECT_EQ(b.slot(1).frequency.value(), 0);
    EXPECT_EQ(b.slot(2).frequency.value(), 125);
    EXPECT_EQ(b.slot(3).frequency.value(), 255);
    EXPECT_EQ(b.slot(4).frequency.value(), 0);

    b.slot(2).frequency.setValue(100);
    b.allButton.setValue(true);
    b.frequencyButtons[2].click();
    EXPECT_EQ(b.slot(1).frequency.value(), 25);
    EXPECT_EQ(b.slot(2).frequency.value(), 125);
    EXPECT_EQ(b.slot(4).frequency.value(), 25);
    // "All" belongs to its panel.
    bank(4).frequencyButtons[2].click();
    EXPECT_EQ(bank(4).slot(1).frequency.value(), 0);

    // Down has no such test and stops at 0; the first button clears the column.
    b.slot(2).frequency.setValue(10);
    b.frequencyButtons[1].click();
    EXPECT_EQ(b.slot(2).frequency.value(), 0);
    EXPECT_EQ(b.slot(3).frequency.value(), 230);
    b.frequencyButtons[0].click();
    EXPECT_EQ(frequencies(b), std::vector<int>(kRandomSlots, 0));
}

TEST_F(RandomCommandsTest, RandomizeRedrawsOnlyFrequenciesAboveTenUpToThresholdPlusNine) {
    RandomBank& b = bank(1);
    app->Form3.threshold.setValue(50);
    setFrequencies(b, 200);
    b.slot(1).frequency.setValue(10);
    b.slot(2).frequency.setValue(11);
    b.slot(3).frequency.setValue(0);

    // Each slot above 10 takes one fresh draw, in slot order; the others take none.
    brevane::Random peek = h.random;
    std::vector<int> expected = frequencies(b);
    for (int s = 1; s <= kRandomSlots; ++s) {
        if (expected[static_cast<std::size_t>(s - 1)] > 10) {
            expected[static_cast<std::size_t>(s - 1)] = peek.roll(50) + 10;
        }
    }
    b.randomizeButton.click();
    EXPECT_EQ(frequencies(b), expected);
    EXPECT_EQ(b.slot(1).frequency.value(), 10);
    EXPECT_EQ(b.slot(3).frequency.value(), 0);
    for (int f : frequencies(b)) {
        EXPECT_LE(f, 59);
    }
    // The draws were taken from the program's one source, and no more of them.
    EXPECT_EQ(h.random.next(), peek.next());

    // Threshold 0 puts every active slot at 10; the other banks are not touched.
    setFrequencies(bank(2), 90);
    app->Form3.threshold.setValue(0);
    b.slot(5).frequency.setValue(255);
    b.randomize();
    for (int s = 2; s <= kRandomSlots; ++s) {
        if (s != 3) {
            EXPECT_EQ(b.slot(s).frequency.value(), 10) << s;
        }
    }
    EXPECT_EQ(frequencies(bank(2)), std::vector<int>(kRandomSlots, 90));
}

TEST_F(RandomCommandsTest, AutoSwitchesTheFourFixedBanksTogetherAndTheColourSaysWhich) {
    app->Form3.period.setListIndex(0);  // "1": one tick a second
    ASSERT_EQ(app->Form3.period.text(), "1");

    bank(2).autoButton.setValue(true);  // the hand's click
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_TRUE(b->timerautorandom.enabled());
        EXPECT_EQ(b->timerautorandom.interval(), 1000);
        EXPECT_EQ(b->autoButton.backColour(), app->SchemeHighlightColour);
        EXPECT_TRUE(b->autoButton.value());
    }
    EXPECT_FALSE(app->frmcustom.timerautorandom.enabled());
    EXPECT_EQ(app->frmcustom.autoButton.backColour(), app->SchemeButtonColour);

    // A bank's checked state turned back quietly does not turn the repeat off: only the
    // colour decides, so the next click on it still turns everything off.
    bank(4).setAutoChecked(false);
    EXPECT_TRUE(bank(4).timerautorandom.enabled());
    bank(4).autoButton.setValue(true);
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_FALSE(b->timerautorandom.enabled());
        EXPECT_EQ(b->autoButton.backColour(), app->SchemeButtonColour);
        EXPECT_TRUE(b->autoButton.value());
    }

    // With the checked state and the colour apart, a click that unchecks turns on.
    bank(1).autoButton.setValue(false);
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_TRUE(b->timerautorandom.enabled());
        EXPECT_FALSE(b->autoButton.value());
    }
}

TEST_F(RandomCommandsTest, TheRepeatRandomizesEverySixtiethTick) {
    app->Form3.period.setListIndex(0);
    app->Form3.threshold.setValue(200);
    for (RandomBank* b : app->randomBanks()) {
        setFrequencies(*b, 255);
    }
    bank(1).autoButton.setValue(true);

    h.loop.advance(59 * 1000);
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_EQ(b->autoTickCount, 59);
        EXPECT_EQ(frequencies(*b), std::vector<int>(kRandomSlots, 255));
    }
    h.loop.advance(1000);
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_EQ(b->autoTickCount, 0);
        for (int f : frequencies(*b)) {
            EXPECT_GE(f, 10);
            EXPECT_LE(f, 209);
        }
    }

    // Switching off and on again keeps the count: the first Randomize comes early.
    bank(1).autoButton.setValue(false);
    bank(1).autoTickCount = 58;
    setFrequencies(bank(1), 255);
    bank(1).autoButton.setValue(true);
    h.loop.advance(2000);
    EXPECT_NE(frequencies(bank(1)), std::vector<int>(kRandomSlots, 255));
}

TEST_F(RandomCommandsTest, AutoWithAnEmptyPeriodShowsOnAndNeverActs) {
    ASSERT_EQ(app->Form3.period.text(), "");
    for (RandomBank* b : app->randomBanks()) {
        setFrequencies(*b, 255);
    }
    bank(3).autoButton.setValue(true);
    h.loop.advance(3 * 60 * 60 * 1000);
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_EQ(b->autoButton.backColour(), app->SchemeHighlightColour);
        EXPECT_TRUE(b->timerautorandom.enabled());
        EXPECT_EQ(b->timerautorandom.interval(), 0);
        EXPECT_EQ(b->autoTickCount, 0);
        EXPECT_EQ(frequencies(*b), std::vector<int>(kRandomSlots, 255));
    }
}

TEST_F(RandomCommandsTest, ClosingForm3StartsBankOnesRepeatAloneWhateverAutoShows) {
    bank(2).timerautorandom.setInterval(7000);
    for (RandomBank* b : app->randomBanks()) {
        setFrequencies(*b, 255);
    }
    app->Form3.window.show();
    app->Form3.period.setListIndex(2);  // "5"
    app->Form3.closeButton.click();

    EXPECT_FALSE(app->Form3.window.visible());
    EXPECT_TRUE(bank(1).timerautorandom.enabled());
    EXPECT_EQ(bank(1).timerautorandom.interval(), 5000);
    EXPECT_EQ(bank(1).autoButton.backColour(), app->SchemeButtonColour);
    EXPECT_EQ(bank(2).timerautorandom.interval(), 7000);
    for (int n = 2; n <= 4; ++n) {
        EXPECT_FALSE(bank(n).timerautorandom.enabled());
    }

    // Bank 1 randomizes every 5 minutes; the others never do.
    h.loop.advance(5 * 60 * 1000 - 1);
    EXPECT_EQ(frequencies(bank(1)), std::vector<int>(kRandomSlots, 255));
    h.loop.advance(1);
    EXPECT_NE(frequencies(bank(1)), std::vector<int>(kRandomSlots, 255));
    setFrequencies(bank(1), 255);
    h.loop.advance(5 * 60 * 1000);
    EXPECT_NE(frequencies(bank(1)), std::vector<int>(kRandomSlots, 255));
    for (int n = 2; n <= 4; ++n) {
        EXPECT_EQ(frequencies(bank(n)), std::vector<int>(kRandomSlots, 255));
    }

    // Close restarts the period from now, and the count goes on from where it stood:
    // 48 ticks before, 12 after.
    setFrequencies(bank(1), 255);
    h.loop.advance(4 * 60 * 1000 + 2500);
    EXPECT_EQ(bank(1).autoTickCount, 48);
    app->Form3.closeButton.click();
    h.loop.advance(59 * 1000);
    EXPECT_EQ(frequencies(bank(1)), std::vector<int>(kRandomSlots, 255));
    h.loop.advance(1000);
    EXPECT_NE(frequencies(bank(1)), std::vector<int>(kRandomSlots, 255));
}

TEST_F(RandomCommandsTest, TheCustomBanksAutoStandsApartAndReadsForm33) {
    RandomBank& c = app->frmcustom;
    app->Form3.period.setListIndex(0);
    app->Form33.period.setListIndex(3);  // "10"
    app->Form33.threshold.setValue(0);
    setFrequencies(c, 255);

    c.autoButton.setValue(true);
    EXPECT_TRUE(c.timerautorandom.enabled());
    EXPECT_EQ(c.timerautorandom.interval(), 10000);
    EXPECT_EQ(c.autoButton.backColour(), app->SchemeHighlightColour);
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_FALSE(b->timerautorandom.enabled());
        EXPECT_FALSE(b->autoButton.value());
        EXPECT_EQ(b->autoButton.backColour(), app->SchemeButtonColour);
    }
    h.loop.advance(10 * 60 * 1000);
    EXPECT_EQ(frequencies(c), std::vector<int>(kRandomSlots, 10));

    // The fixed banks' Auto leaves the custom bank's running.
    bank(1).autoButton.setValue(true);
    bank(1).autoButton.setValue(false);
    EXPECT_TRUE(c.timerautorandom.enabled());

    // Form33's Close acts on the custom bank.
    app->Form33.period.setListIndex(1);  // "2"
    app->Form33.closeButton.click();
    EXPECT_EQ(c.timerautorandom.interval(), 2000);
    EXPECT_EQ(bank(1).timerautorandom.interval(), 1000);
}

TEST(RandomizeSettings, PeriodTextsAndNumbersReadAsTheBoxHasAlwaysReadThem) {
    EXPECT_EQ(leadingNumber("  15 minutes"), 15);
    EXPECT_EQ(leadingNumber("99999999999999999999"), 2147483647);

    test::AppHarness<RecordingEngine> h;
    Application& app = h.startAndLoad();
    const std::vector<std::string> expected{"1", "2", "5", "10", "15", "20", "30", "45", "60"};
    EXPECT_EQ(app.Form3.period.items(), expected);
    EXPECT_EQ(app.Form33.period.items(), expected);
    EXPECT_EQ(app.Form3.threshold.high(), 245);
    app.Form3.period.setText("abc");
    EXPECT_EQ(app.Form3.autoIntervalMs(), 0);
    app.Form3.period.setText("-2");
    EXPECT_EQ(app.Form3.autoIntervalMs(), 0);
    app.Form3.period.setText("60");
    EXPECT_EQ(app.Form3.autoIntervalMs(), 60000);
}

TEST(RandomizeSettings, Form3ReadsItsPlaceWith500OnTheTopAndWritesItBack) {
    test::AppHarness<RecordingEngine> h;
    h.settings.setValue("Settings4", "MainLeft", "1200");
    h.settings.setValue("Settings4", "Maintop", "900");
    Application& app = h.startAndLoad();
    ASSERT_TRUE(app.Form3.position.has_value());
    EXPECT_EQ(app.Form3.position->left, 1200);
    EXPECT_EQ(app.Form3.position->top, 1400);
    EXPECT_FALSE(app.Form33.position.has_value());

    app.frmmain.QuitCommand.click();
    EXPECT_EQ(h.settings.value("Settings4", "Mainleft"), "1200");
    EXPECT_EQ(h.settings.value("Settings4", "Maintop"), "1400");
}

}  // namespace
}  // namespace brevane
