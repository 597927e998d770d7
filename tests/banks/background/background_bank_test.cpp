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

TEST_F(BackgroundBankTest, SwitchingOnLoadsPlaysPansSetsTheLevelLoopsAndStartsTheDrift) {
    BackgroundSoundSlot& sl = app->frmback.slot(7);
    sl.volume.setValue(140);
    sl.balance.setValue(60);
    h.engine.clearCalls();
    EXPECT_FALSE(sl.volume.enabled());
    sl.on.setValue(1);
    EXPECT_EQ(lines(), (Strings{"load bin/7.isz -> s1", "play s1 -> c1", "pan c1 60",
                                "volume c1 " + std::to_string(slotVolume(100, 100, 140)),
                                "loop c1 normal"}));
    EXPECT_TRUE(sl.volume.enabled() && sl.balance.enabled() && sl.rate.enabled());
    EXPECT_TRUE(sl.timer.enabled());
    EXPECT_EQ(sl.timer.interval(), 1000);

    // Off: stop, give the sample back, halt the drift, keep every value.
    sl.on.setValue(0);
    const Strings all = lines();
    EXPECT_EQ(Strings(all.end() - 2, all.end()), (Strings{"stop c1", "free s1"}));
    EXPECT_FALSE(sl.timer.enabled());
    EXPECT_FALSE(sl.volume.enabled() || sl.balance.enabled() || sl.rate.enabled());
    EXPECT_EQ(sl.volume.value(), 140);

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
        EXPECT_EQ(lines(),
                  (Strings{"load bin/" + std::to_string(s) + ".isz -> s1", "volume c? " + level,
                           "play s1 -> c1", "pan c1 200", "loop c1 normal", "volume c1 " + level}))
            << "slot " << s;
    }
    // The same slots of the other banks, and bank one's slot 6, take the common order.
    for (BackgroundSoundSlot* sl :
         {&app->frmback2.slot(4), &app->frmbackcustom.slot(4), &app->frmback.slot(6)}) {
        h.engine.clearCalls();
        sl->on.setValue(1);
        std::vector<Op> ops;
        for (const auto& c : h.engine.calls()) {
            ops.push_back(c.op);
        }
        EXPECT_EQ(ops, (std::vector<Op>{Op::LoadSample, Op::Play, Op::SetPan, Op::SetVolume,
                                        Op::SetLoopMode}));
    }
}

TEST_F(BackgroundBankTest, SlidersAndTheGroupStripReachTheEngineAndTheConsole) {
    BackgroundBank& b = app->frmback2;
    BackgroundSoundSlot& sl = b.slot(2);
    sl.volume.setValue(255);
    sl.on.setValue(1);
    sl.balance.setValue(128);
    // A full slot with both groups at 100 asks for more than 255; the engine clips.
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume).back().b, 304);
    EXPECT_EQ(h.engine.channel(sl.channel)->pan, 128);

    // maxvol: all 17 slots in slot order, then the console's Background, which writes
    // the value to every other bank.
    h.engine.clearCalls();
    b.maxvol.setValue(40);
    const auto volumes = h.engine.callsOf(Op::SetVolume);
    ASSERT_GE(volumes.size(), 17u);
    EXPECT_EQ(volumes[1].a, sl.channel);
    EXPECT_EQ(volumes[1].b, slotVolume(100, 40, 255));
    EXPECT_EQ(app->frmbackcustom.maxvol.value(), 40);
    b.Random.setValue(9);  // the strip's other faders write the console, which hands them on
    EXPECT_EQ(app->frmrandommain2.maxvol.value(), 9);

    // The custom bank's console button sets the panel marker.
    app->frmmain.customBackgroundButton.click();
    EXPECT_TRUE(app->frmbackcustom.window.visible());
    EXPECT_EQ(app->PanelMarker, 3);
}

TEST_F(BackgroundBankTest, StopAndMasterStopClearEveryCheckBoxAndLeaveTheEngineOpen) {
    BackgroundBank& b = app->frmback;
    for (int s : {12, 2}) {
        b.slot(s).on.setValue(1);
    }
    h.engine.clearCalls();
    b.stopButton.click();
    const auto stops = h.engine.callsOf(Op::Stop);
    ASSERT_EQ(stops.size(), 2u);  // in slot order
    EXPECT_EQ(static_cast<ChannelHandle>(stops[0].a), b.slot(2).channel);
    EXPECT_EQ(h.engine.loadedCount(), 4u * 28u + 2u);  // the random banks and the two tones

    for (BackgroundBank* bank : app->backgroundBanks()) {
        for (int s = 1; s <= kBackgroundSlots; s += 4) {
            bank->slot(s).on.setValue(1);
        }
    }
    app->frmmain.masterStopButton.click();
    for (BackgroundBank* bank : app->backgroundBanks()) {
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            EXPECT_EQ(bank->slot(s).on.value(), 0);
        }
    }
    EXPECT_EQ(h.engine.playingCount(), 0u);
    EXPECT_TRUE(h.engine.started());
}

TEST_F(BackgroundBankTest, BulkButtonsStepEverySlotStoppingAtTheSliderEnds) {
    BackgroundBank& b = app->frmback;
    b.slot(1).volume.setValue(10);
    b.slot(2).volume.setValue(250);
    b.volumeButtons[1].click();  // -15
    EXPECT_EQ(b.slot(1).volume.value(), 0);
    EXPECT_EQ(b.slot(2).volume.value(), 235);
    b.volumeButtons[2].click();  // +15
    b.volumeButtons[2].click();
    EXPECT_EQ(b.slot(2).volume.value(), 255);
    b.volumeButtons[3].click();  // 250, below the slider's top
    EXPECT_EQ(b.slot(2).volume.value(), 250);
    b.volumeButtons[0].click();
    EXPECT_EQ(b.slot(2).volume.value(), 0);

    // Balance up adds 10 on bank one (and the custom bank), 15 on bank two.
    for (BackgroundBank* bank : app->backgroundBanks()) {
        bank->balanceButtons[3].click();
        bank->balanceButtons[1].click();
        bank->balanceButtons[2].click();
    }
    EXPECT_EQ(app->frmback.slot(5).balance.value(), 245);
    EXPECT_EQ(app->frmback2.slot(5).balance.value(), 250);
    EXPECT_EQ(app->frmbackcustom.slot(5).balance.value(), 245);

    // Rate: -50 stops at 0, which stops the ticks; +50 stops at 999, the fastest.
    b.slot(4).rate.setValue(30);
    b.rateButtons[1].click();
    EXPECT_EQ(b.slot(4).timer.interval(), 0);
    EXPECT_EQ(b.slot(1).timer.interval(), 1250);
    for (int i = 0; i < 5; ++i) {
        b.rateButtons[2].click();
    }
    EXPECT_EQ(b.slot(1).rate.value(), 999);
    EXPECT_EQ(b.slot(1).timer.interval(), 5);
}

TEST_F(BackgroundBankTest, ALimitBarShowsTwoFiftyLessItsValuePushesTheOtherAndCorrects255) {
    BackgroundSoundSlot& sl = app->frmback.slot(6);
    EXPECT_EQ(sl.highLimitText.text(), "250");
    EXPECT_EQ(sl.lowLimitBar.smallChange(), 5);
    sl.highLimitBar.setValue(100);  // upper limit 150
    sl.lowLimitBar.setValue(60);    // lower limit 190, above the upper: the upper follows
    EXPECT_EQ(sl.highLimitBar.value(), 60);
    EXPECT_EQ(sl.highLimitText.text(), "190");
    sl.highLimitBar.setValue(200);  // upper limit 50, below the lower: the lower follows
    EXPECT_EQ(sl.lowLimitBar.value(), 200);
    EXPECT_EQ(sl.lowLimitText.text(), "50");

    sl.lowLimitBar.setValue(255);
    EXPECT_EQ(sl.lowLimitBar.value(), 250);
    EXPECT_EQ(sl.lowLimitText.text(), "0");
    EXPECT_FALSE(sl.lowLimitBar.setValue(256));

    // The range buttons: a bar at 5 goes to the top, one at 3 refuses, 255 becomes 250.
    BackgroundBank& b = app->frmback;
    b.slot(1).lowLimitBar.setValue(5);
    b.slot(2).highLimitBar.setValue(3);
    b.slot(2).lowLimitBar.setValue(3);
    b.slot(3).highLimitBar.setValue(5);
    b.slot(3).lowLimitBar.setValue(12);
    b.rangeButtons[0].click();  // lower limit up 10
    EXPECT_EQ(b.slot(1).lowLimitBar.value(), 0);
    EXPECT_EQ(b.slot(1).lowLimitText.text(), "250");
    EXPECT_EQ(b.slot(2).lowLimitBar.value(), 3);
    EXPECT_EQ(b.slot(3).lowLimitBar.value(), 2);  // pushing the upper bar along
    EXPECT_EQ(b.slot(3).highLimitBar.value(), 2);
    b.rangeButtons[3].click();  // upper limit down 10 pushes the lower along
    EXPECT_EQ(b.slot(1).highLimitBar.value(), 10);
    EXPECT_EQ(b.slot(1).lowLimitBar.value(), 10);

    BackgroundBank& two = app->frmback2;
    two.slot(1).lowLimitBar.setValue(245);
    two.slot(2).lowLimitBar.setValue(248);
    two.rangeButtons[1].click();                      // lower limit down 10
    EXPECT_EQ(two.slot(1).lowLimitBar.value(), 250);  // 255, corrected
    EXPECT_EQ(two.slot(2).lowLimitBar.value(), 248);  // 258 refused
}

}  // namespace
}  // namespace brevane
