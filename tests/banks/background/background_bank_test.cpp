// Switching loops on and off, their volume and pan, the group strip, the bulk buttons
// and the Volume Range bars of the background banks, through a recording engine.

#include "banks/background/background_bank.h"

#include <gtest/gtest.h>

#include "background_harness.h"
#include "core/slot_volume.h"

namespace brevane {
namespace {

using test::Op;
using Strings = std::vector<std::string>;

class BackgroundBankTest : public ::testing::Test, public test::BackgroundBankFixture {};

TEST_F(BackgroundBankTest, SwitchingOnLoadsStartsTheDriftThenPlaysPansSetsTheLevelAndLoops) {
    BackgroundBank& b = app->frmback;
    BackgroundSoundSlot& sl = b.slot(7);
    sl.volume.setValue(140);
    sl.balance.setValue(60);
    h.engine.clearCalls();
    EXPECT_FALSE(sl.volume.enabled());

    sl.on.setValue(1);
    const int level = slotVolume(100, 100, 140);
    EXPECT_EQ(lines(), (Strings{"load bin/7.isz -> s1", "play s1 -> c1", "pan c1 60",
                                "volume c1 " + std::to_string(level), "loop c1 normal"}));
    EXPECT_TRUE(sl.volume.enabled());
    EXPECT_TRUE(sl.balance.enabled());
    EXPECT_TRUE(sl.rate.enabled());
    EXPECT_TRUE(sl.timer.enabled());
    EXPECT_EQ(sl.timer.interval(), 1000);
    EXPECT_EQ(static_cast<SampleHandle>(h.engine.callsOf(Op::LoadSample)[0].result), sl.sample);
    EXPECT_EQ(static_cast<ChannelHandle>(h.engine.callsOf(Op::Play)[0].result), sl.channel);

    // Bank two's files are numbered from 51.
    h.engine.clearCalls();
    app->frmback2.slot(17).on.setValue(1);
    EXPECT_EQ(lines()[0], "load bin/67.isz -> s1");
}

TEST_F(BackgroundBankTest, TheWeatherSlotsOfBankOneSetTheOldChannelFirstAndTheLevelAgainLast) {
    for (int s : {3, 4, 5}) {
        BackgroundSoundSlot& sl = app->frmback.slot(s);
        sl.volume.setValue(70);
        sl.balance.setValue(200);
        sl.on.setValue(1);
        sl.on.setValue(0);
        h.engine.clearCalls();
        sl.on.setValue(1);
        const std::string level = std::to_string(slotVolume(100, 100, 70));
        // The first volume goes to the channel of the previous start, now stale.
        const auto calls = h.engine.calls();
        ASSERT_GE(calls.size(), 3u);
        EXPECT_EQ(calls[1].op, Op::SetVolume);
        EXPECT_NE(calls[1].a, 0);
        EXPECT_EQ(lines(),
                  (Strings{"load bin/" + std::to_string(s) + ".isz -> s1", "volume c? " + level,
                           "play s1 -> c1", "pan c1 200", "loop c1 normal", "volume c1 " + level}))
            << "slot " << s;
    }
    // Every other slot of bank one, and slots 3 to 5 of the other banks, take the
    // common order.
    for (BackgroundBank* bank : {&app->frmback, &app->frmback2, &app->frmbackcustom}) {
        for (int s : {2, 3, 4, 5, 6}) {
            if (bank == &app->frmback && s >= 3 && s <= 5) {
                continue;
            }
            h.engine.clearCalls();
            bank->slot(s).on.setValue(1);
            const auto calls = h.engine.calls();
            ASSERT_EQ(calls.size(), 5u);
            EXPECT_EQ(calls[0].op, Op::LoadSample);
            EXPECT_EQ(calls[1].op, Op::Play);
            EXPECT_EQ(calls[2].op, Op::SetPan);
            EXPECT_EQ(calls[3].op, Op::SetVolume);
            EXPECT_EQ(calls[4].op, Op::SetLoopMode);
        }
    }
}

TEST_F(BackgroundBankTest, SwitchingOffStopsFreesAndHaltsTheDriftKeepingEveryValue) {
    BackgroundSoundSlot& sl = app->frmback2.slot(9);
    sl.volume.setValue(90);
    sl.rate.setValue(600);
    sl.on.setValue(1);
    const SampleHandle sample = sl.sample;
    const ChannelHandle channel = sl.channel;
    h.engine.clearCalls();

    sl.on.setValue(0);
    EXPECT_EQ(lines(), (Strings{"stop c?", "free s?"}));
    EXPECT_EQ(h.engine.calls()[0].a, channel);
    EXPECT_EQ(h.engine.calls()[1].a, sample);
    EXPECT_FALSE(h.engine.isLoaded(sample));
    EXPECT_FALSE(sl.timer.enabled());
    EXPECT_FALSE(sl.volume.enabled());
    EXPECT_FALSE(sl.balance.enabled());
    EXPECT_FALSE(sl.rate.enabled());
    EXPECT_EQ(sl.volume.value(), 90);
    EXPECT_EQ(sl.rate.value(), 600);

    // On again: the file is read afresh and plays from its start on a new channel.
    h.engine.clearCalls();
    sl.on.setValue(1);
    ASSERT_EQ(h.engine.callsOf(Op::LoadSample).size(), 1u);
    EXPECT_NE(sl.sample, sample);
    EXPECT_NE(sl.channel, channel);
    EXPECT_EQ(h.engine.playingCount(), 1u);
}

TEST_F(BackgroundBankTest, VolumeAndBalanceGoToTheChannelAlsoWhenTheSlotIsOff) {
    BackgroundSoundSlot& sl = app->frmback.slot(1);
    sl.on.setValue(1);
    h.engine.clearCalls();
    sl.volume.setValue(255);
    sl.balance.setValue(128);
    EXPECT_EQ(lines(),
              (Strings{"volume c? " + std::to_string(slotVolume(100, 100, 255)), "pan c? 128"}));
    // Asked for as computed; the engine clips.
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume).front().b, 304);
    EXPECT_EQ(h.engine.channel(sl.channel)->volume, 255);
    EXPECT_EQ(h.engine.channel(sl.channel)->pan, 128);

    // Off, the handlers still run on the stale channel, which the engine ignores.
    const ChannelHandle stale = sl.channel;
    sl.on.setValue(0);
    h.engine.clearCalls();
    sl.volume.setValue(10);
    ASSERT_EQ(h.engine.callsOf(Op::SetVolume).size(), 1u);
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume)[0].a, stale);
}

TEST_F(BackgroundBankTest, TheGroupStripRecomputesAllSlotsAndWritesBackToTheConsole) {
    BackgroundBank& b = app->frmback2;
    b.slot(2).volume.setValue(200);
    b.slot(2).on.setValue(1);
    b.slot(16).volume.setValue(100);
    b.slot(16).on.setValue(1);
    h.engine.clearCalls();

    b.maxvol.setValue(40);
    // Every slot, playing or not, in slot order, then the console's Background slider,
    // which writes the value to every other bank.
    const auto volumes = h.engine.callsOf(Op::SetVolume);
    ASSERT_GE(volumes.size(), 17u);
    EXPECT_EQ(volumes[1].a, b.slot(2).channel);
    EXPECT_EQ(volumes[1].b, slotVolume(100, 40, 200));
    EXPECT_EQ(volumes[15].a, b.slot(16).channel);
    EXPECT_EQ(volumes[15].b, slotVolume(100, 40, 100));
    EXPECT_EQ(app->frmmain.Background.value(), 40);
    EXPECT_EQ(app->frmback.maxvol.value(), 40);
    EXPECT_EQ(app->frmbackcustom.maxvol.value(), 40);
    EXPECT_EQ(app->frmrandommain.Background.value(), 40);

    // The console's Master reaches each bank's Master copy, whose handler recomputes
    // all 17 slots once.
    h.engine.clearCalls();
    app->frmmain.Master.setValue(60);
    EXPECT_EQ(b.Master.value(), 60);
    int onSlot2 = 0;
    for (const auto& c : h.engine.callsOf(Op::SetVolume)) {
        if (c.a == b.slot(2).channel) {
            ++onSlot2;
            EXPECT_EQ(c.b, slotVolume(60, 40, 200));
        }
    }
    EXPECT_EQ(onSlot2, 1);

    // The strip's Master writes the console first.
    b.Master.setValue(80);
    EXPECT_EQ(app->frmmain.Master.value(), 80);
    EXPECT_EQ(app->frmback.Master.value(), 80);
    for (GroupSlider* strip : {&b.MP3, &b.CD, &b.Random, &b.Bwaves}) {
        strip->setValue(strip->value() + 1);
    }
    EXPECT_EQ(app->frmmain.MP3.value(), b.MP3.value());
    EXPECT_EQ(app->frmmain.CD.value(), b.CD.value());
    EXPECT_EQ(app->frmmain.Random.value(), b.Random.value());
    EXPECT_EQ(app->frmmain.Bwaves.value(), b.Bwaves.value());
    EXPECT_EQ(app->frmrandommain2.maxvol.value(), b.Random.value());
}

TEST_F(BackgroundBankTest, ConsoleFansGroupsOutInItsOrderWithTheBackgroundBanksFirst) {
    const auto followers = app->groupFollowers();
    ASSERT_GE(followers.size(), 4u);
    EXPECT_EQ(followers[0], &app->frmback);
    EXPECT_EQ(followers[1], &app->frmback2);
    EXPECT_EQ(followers[2], &app->frmrandommain);
    EXPECT_EQ(followers[3], &app->frmbackcustom);
    EXPECT_EQ(app->frmback.groupCopy(MixGroup::Background), &app->frmback.maxvol);
    EXPECT_EQ(app->frmback.groupCopy(MixGroup::Random), &app->frmback.Random);
}

TEST_F(BackgroundBankTest, StopClearsEveryCheckBoxInSlotOrder) {
    BackgroundBank& b = app->frmback;
    for (int s : {12, 2, 17}) {
        b.slot(s).on.setValue(1);
    }
    h.engine.clearCalls();
    b.stopButton.click();
    EXPECT_EQ(h.engine.playingCount(), 0u);
    EXPECT_EQ(h.engine.loadedCount(), 4u * 28u);  // only the random banks' samples
    const auto stops = h.engine.callsOf(Op::Stop);
    ASSERT_EQ(stops.size(), 3u);
    EXPECT_EQ(static_cast<ChannelHandle>(stops[0].a), b.slot(2).channel);
    EXPECT_EQ(static_cast<ChannelHandle>(stops[1].a), b.slot(12).channel);
    EXPECT_EQ(static_cast<ChannelHandle>(stops[2].a), b.slot(17).channel);
}

TEST_F(BackgroundBankTest, MasterStopClearsTheThreeBanksAndLeavesTheEngineOpen) {
    for (BackgroundBank* bank : app->backgroundBanks()) {
        for (int s = 1; s <= kBackgroundSlots; s += 4) {
            bank->slot(s).on.setValue(1);
        }
    }
    app->frmmain.masterStopButton.click();
    for (BackgroundBank* bank : app->backgroundBanks()) {
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            EXPECT_EQ(bank->slot(s).on.value(), 0);
            EXPECT_FALSE(bank->slot(s).timer.enabled());
        }
    }
    EXPECT_EQ(h.engine.playingCount(), 0u);
    EXPECT_TRUE(h.engine.started());
    EXPECT_EQ(app->frmmain.Master.value(), 100);
}

TEST_F(BackgroundBankTest, ConsoleButtonsShowTheBanksAndTheCustomBankSetsThePanelMarker) {
    EXPECT_FALSE(app->frmback.window.visible());
    app->frmmain.background1Button.click();
    EXPECT_TRUE(app->frmback.window.visible());
    EXPECT_EQ(app->PanelMarker, 0);
    app->frmmain.background2Button.click();
    EXPECT_TRUE(app->frmback2.window.visible());
    app->frmmain.customBackgroundButton.click();
    EXPECT_TRUE(app->frmbackcustom.window.visible());
    EXPECT_EQ(app->PanelMarker, 3);
    app->hideBanks();
    EXPECT_FALSE(app->frmback.window.visible());
    EXPECT_FALSE(app->frmbackcustom.window.visible());
}

// ---- bulk buttons ----

TEST_F(BackgroundBankTest, VolumeButtonsStepEverySlotAndStopAtTheSliderEnds) {
    BackgroundBank& b = app->frmback;
    b.slot(1).volume.setValue(10);
    b.slot(2).volume.setValue(250);
    b.slot(3).volume.setValue(100);
    b.volumeButtons[1].click();  // -15
    EXPECT_EQ(b.slot(1).volume.value(), 0);
    EXPECT_EQ(b.slot(2).volume.value(), 235);
    EXPECT_EQ(b.slot(3).volume.value(), 85);
    EXPECT_EQ(b.slot(17).volume.value(), 0);
    b.volumeButtons[2].click();  // +15
    b.volumeButtons[2].click();
    EXPECT_EQ(b.slot(2).volume.value(), 255);
    EXPECT_EQ(b.slot(1).volume.value(), 30);
    b.volumeButtons[3].click();  // set 250, below the slider's top
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        EXPECT_EQ(b.slot(s).volume.value(), 250);
    }
    b.volumeButtons[0].click();
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        EXPECT_EQ(b.slot(s).volume.value(), 0);
    }
}

TEST_F(BackgroundBankTest, BalanceUpAddsTenOnBankOneAndFifteenOnBankTwo) {
    for (BackgroundBank* bank : app->backgroundBanks()) {
        bank->balanceButtons[3].click();
        EXPECT_EQ(bank->slot(5).balance.value(), 250);
        bank->balanceButtons[1].click();
        EXPECT_EQ(bank->slot(5).balance.value(), 235);
        bank->balanceButtons[2].click();
    }
    EXPECT_EQ(app->frmback.slot(5).balance.value(), 245);
    EXPECT_EQ(app->frmback2.slot(5).balance.value(), 250);
    EXPECT_EQ(app->frmbackcustom.slot(5).balance.value(), 245);
    EXPECT_EQ(app->frmback.balanceButtons[2].caption(), "+10");
    EXPECT_EQ(app->frmback2.balanceButtons[2].caption(), "+15");
    // Up from 250 on bank two stops at the slider's top, 255.
    app->frmback2.balanceButtons[2].click();
    EXPECT_EQ(app->frmback2.slot(5).balance.value(), 255);
    app->frmback.balanceButtons[0].click();
    EXPECT_EQ(app->frmback.slot(17).balance.value(), 0);
}

TEST_F(BackgroundBankTest, RateButtonsStepByFiftyAndRetimeTheDrift) {
    BackgroundBank& b = app->frmback2;
    b.slot(4).rate.setValue(30);
    b.slot(5).rate.setValue(980);
    b.rateButtons[1].click();  // -50
    EXPECT_EQ(b.slot(4).rate.value(), 0);
    EXPECT_EQ(b.slot(4).timer.interval(), 0);
    EXPECT_EQ(b.slot(5).rate.value(), 930);
    EXPECT_EQ(b.slot(1).rate.value(), 750);
    EXPECT_EQ(b.slot(1).timer.interval(), 1250);
    b.rateButtons[2].click();
    b.rateButtons[2].click();
    EXPECT_EQ(b.slot(5).rate.value(), 999);
    EXPECT_EQ(b.slot(5).timer.interval(), 5);
    b.rateButtons[0].click();
    EXPECT_EQ(b.slot(9).timer.interval(), 0);
    b.rateButtons[3].click();
    EXPECT_EQ(b.slot(9).rate.value(), 999);
}

// ---- Volume Range ----

TEST_F(BackgroundBankTest, ALimitBarShowsTwoFiftyLessItsValueAndCorrectsAnythingPast250) {
    BackgroundSoundSlot& sl = app->frmback.slot(6);
    EXPECT_EQ(sl.lowLimitText.text(), "0");
    EXPECT_EQ(sl.highLimitText.text(), "250");
    sl.highLimitBar.setValue(40);
    EXPECT_EQ(sl.highLimitText.text(), "210");
    sl.lowLimitBar.setValue(255);
    EXPECT_EQ(sl.lowLimitBar.value(), 250);
    EXPECT_EQ(sl.lowLimitText.text(), "0");
    EXPECT_FALSE(sl.lowLimitBar.setValue(256));
    EXPECT_FALSE(sl.lowLimitBar.setValue(-1));
    EXPECT_EQ(sl.lowLimitBar.value(), 250);
    EXPECT_EQ(sl.lowLimitBar.smallChange(), 5);
}

TEST_F(BackgroundBankTest, DraggingOneLimitPastTheOtherPushesItAlong) {
    BackgroundSoundSlot& sl = app->frmback.slot(6);
    sl.highLimitBar.setValue(100);  // upper limit 150
    sl.lowLimitBar.setValue(60);    // lower limit 190, above the upper: the upper follows
    EXPECT_EQ(sl.highLimitBar.value(), 60);
    EXPECT_EQ(sl.highLimitText.text(), "190");
    EXPECT_EQ(sl.lowLimitText.text(), "190");
    sl.highLimitBar.setValue(200);  // upper limit 50, below the lower: the lower follows
    EXPECT_EQ(sl.lowLimitBar.value(), 200);
    EXPECT_EQ(sl.lowLimitText.text(), "50");
    // Apart again, neither moves the other.
    sl.lowLimitBar.setValue(230);
    EXPECT_EQ(sl.highLimitBar.value(), 200);
}

TEST_F(BackgroundBankTest, RangeUpTakesABarAtFiveToTheTopAndRefusesOneAtThree) {
    BackgroundBank& b = app->frmback;
    b.slot(1).lowLimitBar.setValue(5);
    b.slot(1).highLimitBar.setValue(0);
    b.slot(2).highLimitBar.setValue(3);
    b.slot(2).lowLimitBar.setValue(3);
    b.slot(3).highLimitBar.setValue(5);
    b.slot(3).lowLimitBar.setValue(12);
    b.rangeButtons[0].click();  // lower limit up 10
    EXPECT_EQ(b.slot(1).lowLimitBar.value(), 0);
    EXPECT_EQ(b.slot(1).lowLimitText.text(), "250");
    EXPECT_EQ(b.slot(2).lowLimitBar.value(), 3);
    // 12 goes to 2, below the upper bar's 5: the upper is pushed along.
    EXPECT_EQ(b.slot(3).lowLimitBar.value(), 2);
    EXPECT_EQ(b.slot(3).highLimitBar.value(), 2);
    // Untouched slots stood at 250 (limit 0) and rise to 240.
    EXPECT_EQ(b.slot(17).lowLimitBar.value(), 240);
    EXPECT_EQ(b.slot(17).lowLimitText.text(), "10");

    b.rangeButtons[2].click();  // upper limit up 10
    EXPECT_EQ(b.slot(2).highLimitBar.value(), 3);
    EXPECT_EQ(b.slot(17).highLimitBar.value(), 0);  // already at the top

    b.rangeButtons[3].click();  // upper limit down 10: pushes the lower along
    EXPECT_EQ(b.slot(1).highLimitBar.value(), 10);
    EXPECT_EQ(b.slot(1).lowLimitBar.value(), 10);
}

TEST_F(BackgroundBankTest, RangeDownStopsAtTheBottomWhateverTheStep) {
    BackgroundBank& b = app->frmback2;
    b.slot(1).lowLimitBar.setValue(245);
    b.slot(2).lowLimitBar.setValue(250);
    b.slot(3).lowLimitBar.setValue(248);
    b.rangeButtons[1].click();                      // lower limit down 10
    EXPECT_EQ(b.slot(1).lowLimitBar.value(), 250);  // 255, corrected
    EXPECT_EQ(b.slot(1).lowLimitText.text(), "0");
    EXPECT_EQ(b.slot(2).lowLimitBar.value(), 250);  // 260 refused
    EXPECT_EQ(b.slot(3).lowLimitBar.value(), 248);  // 258 refused
    EXPECT_EQ(b.slot(3).lowLimitText.text(), "2");
}

}  // namespace
}  // namespace brevane
