// The commands of a random bank's panel: bulk moves of a column, "All", Randomize, and
// its automatic repeat through "Auto" and the settings panels, on virtual time.

#include <gtest/gtest.h>

#include "banks/random/random_bank_fixture.h"
#include "banks/random/randomize_settings.h"

namespace brevane::test {
namespace {

class RandomCommandsTest : public RandomBankFixture {
  protected:
    const std::vector<int> all255 = std::vector<int>(kRandomSlots, 255);
};

TEST_F(RandomCommandsTest, VolumeStepsGiveRow15Row16sValueStopAtTheEndsAndReachThePlays) {
    RandomBank& b = bank(2);
    b.previewSlot(6);
    const ChannelHandle channel = b.slot(6).channel;
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
    // Through the slider's handler to the latest play.
    EXPECT_EQ(h.engine.channel(channel)->volume, b.slotVolumeOf(6));

    b.slot(16).volume.setValue(250);
    b.volumeButtons[2].click();  // +25
    EXPECT_EQ(b.slot(15).volume.value(), 255);
    EXPECT_EQ(b.slot(16).volume.value(), 255);
    EXPECT_EQ(b.slot(3).volume.value(), 25);
    EXPECT_EQ(b.slot(4).volume.value(), 240);

    b.volumeButtons[0].click();
    EXPECT_EQ(b.slot(28).volume.value(), 0);
    EXPECT_EQ(h.engine.channel(channel)->volume, 0);
    b.volumeButtons[3].click();
    for (int s = 1; s <= kRandomSlots; ++s) {
        EXPECT_EQ(b.slot(s).volume.value(), 255) << s;
    }
    EXPECT_EQ(bank(1).slot(1).volume.value(), 220);
}

TEST_F(RandomCommandsTest, FrequencyUpLeavesSlidersAtZeroUnlessAllIsDown) {
    RandomBank& b = bank(3);
    b.slot(2).frequency.setValue(100);
    b.slot(3).frequency.setValue(250);
    b.frequencyButtons[2].click();
    EXPECT_EQ(b.slot(1).frequency.value(), 0);
    EXPECT_EQ(b.slot(2).frequency.value(), 125);
    EXPECT_EQ(b.slot(3).frequency.value(), 255);

    b.allButton.setValue(true);
    b.frequencyButtons[2].click();
    EXPECT_EQ(b.slot(1).frequency.value(), 25);
    EXPECT_EQ(b.slot(2).frequency.value(), 150);
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
    for (int& f : expected) {
        if (f > 10) {
            f = peek.roll(50) + 10;
        }
    }
    b.randomizeButton.click();
    EXPECT_EQ(frequencies(b), expected);
    EXPECT_EQ(b.slot(1).frequency.value(), 10);
    EXPECT_EQ(h.random.next(), peek.next());

    // Threshold 0 puts every active slot at 10; the other banks are not touched.
    setFrequencies(bank(2), 90);
    app->Form3.threshold.setValue(0);
    b.randomize();
    EXPECT_EQ(b.slot(2).frequency.value(), 10);
    EXPECT_EQ(b.slot(28).frequency.value(), 10);
    EXPECT_EQ(b.slot(3).frequency.value(), 0);
    EXPECT_EQ(frequencies(bank(2)), std::vector<int>(kRandomSlots, 90));
}

TEST_F(RandomCommandsTest, AutoSwitchesTheFixedBanksTogetherTheColourSaysWhichAndItRepeats) {
    // With no period chosen, Auto shows on and never acts.
    for (RandomBank* b : app->randomBanks()) {
        setFrequencies(*b, 255);
    }
    bank(3).autoButton.setValue(true);
    h.loop.advance(3 * 60 * 60 * 1000);
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_TRUE(b->autoOn());
        EXPECT_TRUE(b->timerautorandom.enabled());
        EXPECT_EQ(b->timerautorandom.interval(), 0);
        EXPECT_EQ(b->autoTickCount, 0);
        EXPECT_EQ(frequencies(*b), all255);
    }
    bank(3).autoButton.setValue(false);

    app->Form3.period.setListIndex(0);  // "1": one tick a second
    bank(2).autoButton.setValue(true);  // the hand's click
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_TRUE(b->timerautorandom.enabled());
        EXPECT_EQ(b->timerautorandom.interval(), 1000);
        EXPECT_TRUE(b->autoOn());
        EXPECT_TRUE(b->autoButton.value());
    }
    EXPECT_FALSE(app->frmcustom.timerautorandom.enabled());
    EXPECT_FALSE(app->frmcustom.autoOn());

    // A bank's checked state turned back quietly does not turn the repeat off: only the
    // colour decides, so the next click on it still turns everything off.
    bank(4).setAutoChecked(false);
    EXPECT_TRUE(bank(4).timerautorandom.enabled());
    bank(4).autoButton.setValue(true);
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_FALSE(b->timerautorandom.enabled());
        EXPECT_FALSE(b->autoOn());
        EXPECT_TRUE(b->autoButton.value());
    }
    // With the checked state and the colour apart, a click that unchecks turns on.
    bank(1).autoButton.setValue(false);
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_TRUE(b->timerautorandom.enabled());
        EXPECT_FALSE(b->autoButton.value());
    }

    // The repeat Randomizes every bank on every sixtieth tick.
    app->Form3.threshold.setValue(200);
    h.loop.advance(59 * 1000);
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_EQ(b->autoTickCount, 59);
        EXPECT_EQ(frequencies(*b), all255);
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
    bank(1).autoButton.setValue(true);
    bank(1).autoTickCount = 58;
    setFrequencies(bank(1), 255);
    bank(1).autoButton.setValue(false);
    h.loop.advance(2000);
    EXPECT_NE(frequencies(bank(1)), all255);
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
    EXPECT_FALSE(bank(1).autoOn());
    EXPECT_EQ(bank(2).timerautorandom.interval(), 7000);

    // Bank 1 randomizes every 5 minutes; the others never do.
    h.loop.advance(5 * 60 * 1000 - 1);
    EXPECT_EQ(frequencies(bank(1)), all255);
    h.loop.advance(1);
    EXPECT_NE(frequencies(bank(1)), all255);
    for (int n = 2; n <= 4; ++n) {
        EXPECT_FALSE(bank(n).timerautorandom.enabled());
        EXPECT_EQ(frequencies(bank(n)), all255);
    }

    // Close restarts the period from now, and the count goes on from where it stood:
    // 48 ticks before, 12 after.
    setFrequencies(bank(1), 255);
    h.loop.advance(4 * 60 * 1000 + 2500);
    EXPECT_EQ(bank(1).autoTickCount, 48);
    app->Form3.closeButton.click();
    h.loop.advance(59 * 1000);
    EXPECT_EQ(frequencies(bank(1)), all255);
    h.loop.advance(1000);
    EXPECT_NE(frequencies(bank(1)), all255);
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
    EXPECT_TRUE(c.autoOn());
    for (RandomBank* b : app->randomBanks()) {
        EXPECT_FALSE(b->timerautorandom.enabled());
        EXPECT_FALSE(b->autoButton.value());
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

TEST(RandomizeSettings, PeriodsReadAsTheBoxHasAlwaysReadThemAndForm3KeepsItsPlace) {
    EXPECT_EQ(leadingNumber("  15 minutes"), 15);
    EXPECT_EQ(leadingNumber("99999999999999999999"), 2147483647);

    AppHarness<RecordingEngine> h;
    h.settings.setValue("Settings4", "MainLeft", "1200");
    h.settings.setValue("Settings4", "Maintop", "900");
    Application& app = h.startAndLoad();
    const std::vector<std::string> expected{"1", "2", "5", "10", "15", "20", "30", "45", "60"};
    EXPECT_EQ(app.Form3.period.items(), expected);
    EXPECT_EQ(app.Form33.period.items(), expected);
    app.Form3.period.setText("abc");
    EXPECT_EQ(app.Form3.autoIntervalMs(), 0);
    app.Form3.period.setText("-2");
    EXPECT_EQ(app.Form3.autoIntervalMs(), 0);
    app.Form3.period.setText("60");
    EXPECT_EQ(app.Form3.autoIntervalMs(), 60000);

    // The top is read with 500 added and written back as it stands.
    ASSERT_TRUE(app.Form3.position.has_value());
    EXPECT_EQ(app.Form3.position->left, 1200);
    EXPECT_EQ(app.Form3.position->top, 1400);
    EXPECT_FALSE(app.Form33.position.has_value());
    app.frmmain.QuitCommand.click();
    EXPECT_EQ(h.settings.value("Settings4", "Mainleft"), "1200");
    EXPECT_EQ(h.settings.value("Settings4", "Maintop"), "1400");
}

}  // namespace
}  // namespace brevane::test
