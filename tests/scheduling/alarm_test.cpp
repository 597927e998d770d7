// The alarm clock on the virtual clock: it fires in the second :00 of its minute and no
// other, plays looped for its duration and a second more, fades in, repeats, closes the
// program or powers the machine off, keeps the machine awake exactly while it is due,
// and comes back mirrored after a restart.

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

#include "scheduling/clock_fixture.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;

class AlarmClock : public test::ClockFixture {
  protected:
    AlarmPanel& alarm() { return app->Alarm; }
    // Sets 07:30 and the alarm on.
    void armForHalfPastSeven() {
        alarm().Text1.setText("07");
        alarm().Text2.setText("30");
        app->frmmain.alarmOnButton.click();
    }
    void runToHalfPastSeven() { runTo("07:30:00"); }
    const RecordingEngine::ChannelState* alarmChannel() {
        return h.engine.channel(alarm().channel);
    }
};

TEST_F(AlarmClock, FiresAtSecondZeroPlaysItsDurationAndASecondMoreThenIsOff) {
    AlarmPanel& a = alarm();
    a.hscroll2.setValue(200);
    a.scombobox1.setText("10");
    armForHalfPastSeven();
    EXPECT_EQ(app->frmmain.LCD2.line(4), "07:30:00");
    EXPECT_FALSE(app->frmmain.alarmOnButton.enabled());
    EXPECT_EQ(power.awake.back(), true);

    while (h.loop.timeOfDay() != "07:30:00") {
        h.loop.advance(10);
    }
    EXPECT_EQ(alarmChannel(), nullptr);
    h.loop.advance(AlarmPanel::kClockMs - 10);
    ASSERT_NE(alarmChannel(), nullptr);
    EXPECT_TRUE(alarmChannel()->playing);
    EXPECT_EQ(alarmChannel()->loop, LoopMode::Normal);
    EXPECT_EQ(alarmChannel()->volume, 200);
    EXPECT_EQ(app->frmmain.LCD2.line(4), AlarmPanel::kPlayingStatus);
    EXPECT_EQ(a.armed, 0);
    EXPECT_EQ(power.awake.back(), false);

    h.loop.advance(10 * 1000 - 100);
    EXPECT_TRUE(alarmChannel()->playing);
    h.loop.advance(1000 + 100);
    EXPECT_FALSE(alarmChannel()->playing);
    EXPECT_EQ(app->frmmain.LCD2.line(4), AlarmPanel::kDisabledStatus);
    EXPECT_EQ(app->AlarmArmed, "False");
    EXPECT_TRUE(app->frmmain.alarmOnButton.enabled());

    // One-shot: a day later it has not played again.
    const std::size_t plays = h.engine.callsOf(Op::Play).size();
    h.loop.advance(24LL * 3600 * 1000);
    EXPECT_EQ(h.engine.callsOf(Op::Play).size(), plays);
}

TEST_F(AlarmClock, AFadeClimbsToTheVolumeOrFromNothingToTheTopAndRepeatPlaysOn) {
    AlarmPanel& a = alarm();
    a.hscroll2.setValue(100);
    a.fadeCheck.setChecked(true);
    a.repeatCheck.setChecked(true);
    EXPECT_FALSE(a.scombobox1.enabled());
    armForHalfPastSeven();
    runToHalfPastSeven();
    ASSERT_NE(alarmChannel(), nullptr);
    EXPECT_LT(alarmChannel()->volume, 30);
    h.loop.advance(100 * AlarmPanel::kFadeMs);
    EXPECT_EQ(a.hscroll2.value(), 100);
    EXPECT_FALSE(a.Timer3.enabled());
    // Repeat: no countdown; it plays until stopped by hand.
    h.loop.advance(3600 * 1000);
    EXPECT_TRUE(alarmChannel()->playing);
    a.stopAlarmButton.click();
    EXPECT_FALSE(alarmChannel()->playing);

    // From a volume of 0 the target is never met: the fade climbs to the top and ticks on.
    a.hscroll2.setValue(0);
    ASSERT_EQ(h.loop.timeOfDay().substr(0, 5), "08:30");
    a.Text1.setText("08");
    a.Text2.setText("31");
    app->frmmain.alarmOnButton.click();
    h.loop.advance(90 * 1000);
    EXPECT_EQ(a.hscroll2.value(), 255);
    EXPECT_TRUE(a.Timer3.enabled());
}

TEST_F(AlarmClock, ShutdownAsksForAPowerOffInHalfAMinuteAndCloseEndsAtOnceSilently) {
    alarm().closeProgramCheck.setChecked(true);
    alarm().shutdownCheck.setChecked(true);
    EXPECT_FALSE(alarm().closeProgramCheck.checked());
    armForHalfPastSeven();
    runToHalfPastSeven();
    EXPECT_EQ(power.powerOffs, std::vector<std::chrono::seconds>{std::chrono::seconds(30)});
    EXPECT_EQ(h.exits, std::vector<ExitKind>{ExitKind::Immediate});
    EXPECT_TRUE(h.engine.callsOf(Op::Play).empty());
}

TEST_F(AlarmClock, StopTestPutsTheDisplaysOutButLeavesTheAlarmDueAndAlarmOffDisarms) {
    armForHalfPastSeven();
    alarm().testButton.click();
    ASSERT_NE(alarmChannel(), nullptr);
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume).back().b, AlarmPanel::kTestVolume);
    alarm().stopTestButton.click();
    EXPECT_FALSE(alarmChannel()->playing);
    EXPECT_TRUE(app->frmmain.alarmOnButton.enabled());
    EXPECT_EQ(alarm().armed, 1);
    runToHalfPastSeven();
    EXPECT_TRUE(alarmChannel()->playing);

    alarm().Text2.setText("59");
    app->frmmain.alarmOnButton.click();
    app->frmmain.alarmOffButton.click();
    EXPECT_EQ(alarm().armed, 0);
    EXPECT_EQ(app->frmmain.LCD2.line(4), AlarmPanel::kDisabledStatus);
    EXPECT_EQ(power.awake.back(), false);
}

TEST_F(AlarmClock, AKeptTimeComesBackMirroredAndTheExitsDoNotSurviveARestart) {
    alarm().Text1.setText("07");
    alarm().Text2.setText("00");
    alarm().scombobox1.setListIndex(4);
    alarm().closeProgramCheck.setChecked(true);
    app->frmmain.alarmOnButton.click();
    app->frmmain.quitWithoutAsking();
    EXPECT_EQ(power.awake.back(), false);
    h.app.reset();
    app = &h.startAndLoad();
    EXPECT_EQ(alarm().Text1.text(), "16");
    EXPECT_EQ(alarm().Text2.text(), "00");
    EXPECT_EQ(alarm().scombobox1.text(), "300");
    EXPECT_FALSE(alarm().closeProgramCheck.checked());
    // Armed again from the session, at the mirrored time.
    EXPECT_EQ(alarm().armed, 1);
    EXPECT_EQ(app->frmmain.LCD2.line(4), "16:00:00");

    // Minimized, the window is titled with the time it went down.
    runTo("16:05:00");
    alarm().resized(true);
    EXPECT_EQ(alarm().window.caption(), "04:05 PM");
    alarm().resized(false);
    EXPECT_EQ(alarm().window.caption(), "Alarm Clock");
}

}  // namespace
}  // namespace brevane
