// The scheduler on the virtual clock: rows firing in their second and no other, the
// playlist stepping in order or at random, the status texts, the lists out of step after
// "Del", the settings across a restart, the machine held awake exactly while a change is
// due, and a whole day with a schedule and an alarm.

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "base/comma_record.h"
#include "scheduling/clock_fixture.h"

namespace brevane {
namespace {

using L = std::vector<std::string>;
using Op = RecordingEngine::Op;

class Scheduler : public test::ClockFixture {
  protected:
    SchedulerPanel& timers() { return app->Timers; }
    ScheduleRow& row(int k) { return timers().rows[static_cast<std::size_t>(k)]; }
    void setRow(int k, const std::string& scenario, const std::string& time) {
        row(k).enabled.setValue(1);
        row(k).scenario.setText(scenario);
        row(k).time.setText(time);
    }
    const std::string& current() { return app->CurrentScenarioName; }
    // The scenarios the playlist loads over `changes` intervals of `minutes`.
    L playlistRun(int changes, int minutes) {
        L loaded;
        for (int i = 0; i < changes; ++i) {
            h.loop.advance(minutes * SchedulerPanel::kIntervalMs);
            loaded.push_back(current());
        }
        return loaded;
    }
    void playlistOf(const L& names) {
        for (const std::string& name : names) {
            timers().appendEntry(name + ".scn", "/anywhere/" + name + ".scn");
        }
    }
    const std::string& line(int n) { return app->frmmain.LCD3.line(n); }
    const std::string& remote() { return app->frmremote2.schedulerCaption.caption(); }
};

TEST_F(Scheduler, RowsFireInTheirSecondOnlyAndOfTwoAtOneTimeTheLaterStays) {
    timers().Optionex2.setValue(true);
    EXPECT_EQ(line(3), "Enabled");
    EXPECT_EQ(remote(), "Scheduler: Enabled");
    setRow(0, "Dawn", "07:31:00");
    setRow(1, "Birdsong", "07:31:00");
    setRow(2, "Typed Short", "7:31:00");
    setRow(3, ScheduleRow::kNotSelected, "07:31:01");
    setRow(4, "Switched Off", "07:31:02");
    row(4).enabled.setValue(0);
    EXPECT_FALSE(row(4).time.enabled());

    runTo("07:30:59");
    EXPECT_EQ(current(), "");
    runTo("07:31:00");
    EXPECT_EQ(current(), "Birdsong");
    EXPECT_EQ(app->frmmain.LCD1.line(4), "Dawn");
    h.loop.advance(10 * 1000);
    EXPECT_EQ(current(), "Birdsong");
    EXPECT_EQ(app->frmmain.LCD1.line(4), "Dawn");
    // Every day, and the midnight a user types fires like any other time.
    setRow(0, "Midnight", "00:00:00");
    runTo("00:00:00");
    EXPECT_EQ(current(), "Midnight");
    runTo("07:31:00");
    EXPECT_EQ(current(), "Birdsong");
}

TEST_F(Scheduler, SettingsComeBackWholeButARestoredMidnightNeverArmsUntilEdited) {
    timers().Optionex2.setValue(true);
    setRow(0, "Midnight", "00:00:00");
    setRow(1, "Just After", "00:00:05");
    row(1).reservedB.setValue(true);
    timers().Combo1.setListIndex(4);
    timers().Check9.setValue(1);
    playlistOf({"Coast", "Woods"});
    restart();

    const std::string settings = *readWholeFile(h.tree.root() / SchedulerPanel::kSessionFile);
    RecordReader fields(settings);
    L values;
    while (!fields.atEnd()) {
        values.push_back(fields.readText());
    }
    ASSERT_EQ(values.size(), 53U);
    EXPECT_EQ(L(values.begin() + 40, values.begin() + 48), L(8, ""));
    EXPECT_EQ(L(values.begin() + 48, values.end()), (L{"False", "True", "False", "4", "1"}));

    EXPECT_TRUE(timers().Optionex2.value());
    EXPECT_TRUE(timers().Timer1.enabled());
    EXPECT_EQ(row(1).scenario.text(), "Just After");
    EXPECT_TRUE(row(1).reservedB.value());
    EXPECT_EQ(timers().Combo1.text(), "6 Hr");
    EXPECT_EQ(timers().Check9.value(), 1);
    EXPECT_EQ(timers().ScenarioPathList.items(), (L{"/anywhere/Coast.scn", "/anywhere/Woods.scn"}));
    EXPECT_EQ(timers().ScenarioDisplayList.items(), (L{"Coast.scn", "Woods.scn"}));

    runTo("00:00:00");
    EXPECT_EQ(current(), "");
    runTo("00:00:05");
    EXPECT_EQ(current(), "Just After");
    row(0).time.setText("00:00:10");
    runTo("00:00:10");
    EXPECT_EQ(current(), "Midnight");
}

TEST_F(Scheduler, APlaylistRestartsAtItsSecondEntryAndCountsDownOnTheDisplay) {
    playlistOf({"A", "B", "C"});
    EXPECT_EQ(timers().ScenarioDisplayList.listIndex(), 0);
    timers().ScenarioDisplayList.setListIndex(-1);
    timers().Combo1.setListIndex(0);
    timers().Optionex3.setValue(true);
    EXPECT_EQ(line(3), "Enabled - 5min");
    h.loop.advance(2 * SchedulerPanel::kIntervalMs);
    EXPECT_EQ(line(3), "Enabled - 3min");
    EXPECT_EQ(remote(), "Scheduler: On - Next: 3mins");
    EXPECT_EQ(playlistRun(1, 3), L{"A"});
    EXPECT_EQ(playlistRun(6, 5), (L{"B", "C", "B", "C", "B", "C"}));

    // One entry plays again at each change.
    h.dialogs.answerYesNo(true);
    timers().clearButton.click();
    playlistOf({"Only"});
    EXPECT_EQ(playlistRun(2, 5), (L{"Only", "Only"}));
    EXPECT_EQ(app->frmmain.LCD1.line(4), "Only");

    // A full hour counts from its start; longer ones show more than an hour and come
    // round in their bare number of minutes.
    timers().Combo1.setListIndex(3);
    EXPECT_EQ(line(3), "Enabled - 60min");
    EXPECT_EQ(remote(), "Scheduler: On - 60mins");
    timers().Combo1.setListIndex(5);
    EXPECT_EQ(line(3), "Enabled - >1Hr");
    EXPECT_EQ(remote(), "Scheduler: On - Next: > 1Hr");
    EXPECT_EQ(timers().threshold, 12);
}

TEST_F(Scheduler, RandomOrderNeverDrawsTheLastEntry) {
    playlistOf({"A", "B", "C", "D"});
    timers().Check9.setValue(1);
    timers().Combo1.setListIndex(0);
    timers().Optionex3.setValue(true);
    const L loaded = playlistRun(120, 5);
    EXPECT_EQ(std::set<std::string>(loaded.begin(), loaded.end()),
              (std::set<std::string>{"A", "B", "C"}));
}

TEST_F(Scheduler, AfterDelTheListsRunOutOfStepAndPlaylistsKeepTheShownNames) {
    playlistOf({"A", "B", "C"});
    timers().ScenarioDisplayList.setListIndex(0);
    timers().downButton.click();
    EXPECT_EQ(timers().ScenarioDisplayList.items(), (L{"B.scn", "A.scn", "C.scn"}));
    EXPECT_EQ(timers().ScenarioPathList.item(1), "/anywhere/A.scn");
    timers().deleteButton.click();
    EXPECT_EQ(timers().ScenarioDisplayList.items(), (L{"B.scn", "C.scn"}));
    EXPECT_EQ(timers().ScenarioPathList.count(), 3);
    // The entry shown second is C, but the change loads what the other list holds there.
    timers().Combo1.setListIndex(0);
    timers().Optionex3.setValue(true);
    EXPECT_EQ(playlistRun(1, 5), L{"A"});

    h.dialogs.answerInput("Evening, Calm");
    timers().savePlaylistButton.click();
    const auto file = h.tree.root() / SchedulerPanel::kPlaylistFolder / "Evening, Calm.scp";
    EXPECT_EQ(readWholeFile(file), "B.scn\r\nC.scn\r\n");
    EXPECT_EQ(line(4), "Evening, Calm");

    // A line with a comma is read as two.
    h.writeFile(std::string(SchedulerPanel::kPlaylistFolder) + "/Night.scp",
                "Rain, Heavy.scn\r\nOwls.scn\r\n");
    h.dialogs.answerFile(h.tree.root() / SchedulerPanel::kPlaylistFolder / "Night.scp");
    timers().loadPlaylistButton.click();
    EXPECT_EQ(timers().ScenarioDisplayList.items(), (L{"Rain.scn", "Heavy.scn", "Owls.scn"}));
    EXPECT_EQ(timers().playlistName.caption(), "Night");
    EXPECT_EQ(line(4), "Night");
}

TEST_F(Scheduler, TheCommandsAskFirstAndDamagedSchedulesChangeNothing) {
    timers().Optionex2.setValue(true);
    setRow(0, "Dawn", "06:00:00");
    const auto schedule = h.tree.root() / SchedulerPanel::kScheduleFolder / "Week.sch";
    h.dialogs.answerFile(schedule);
    timers().saveScheduleButton.click();

    h.dialogs.answerYesNo(false);
    timers().resetButton.click();
    EXPECT_EQ(row(0).scenario.text(), "Dawn");
    h.dialogs.answerYesNo(true);
    timers().resetButton.click();
    EXPECT_EQ(row(0).scenario.text(), ScheduleRow::kNotSelected);
    EXPECT_EQ(row(0).enabled.value(), 0);

    h.dialogs.answerFile(schedule);
    timers().loadScheduleButton.click();
    EXPECT_EQ(row(0).scenario.text(), "Dawn");
    EXPECT_EQ(row(0).time.text(), "06:00:00");
    EXPECT_TRUE(row(0).scenario.enabled());

    h.writeFile(std::string(SchedulerPanel::kScheduleFolder) + "/Short.sch", "1,0,\"A\"\r\n");
    h.dialogs.answerFile(h.tree.root() / SchedulerPanel::kScheduleFolder / "Short.sch");
    timers().loadScheduleButton.click();
    EXPECT_EQ(row(0).scenario.text(), "Dawn");
    EXPECT_EQ(h.dialogs.messages(), L{SchedulerPanel::kUnreadableScheduleText});

    // Playlist Mode with nothing to play keeps the window open and says why.
    h.dialogs.clear();
    timers().Optionex3.setValue(true);
    timers().show();
    timers().closePlaylistButton.click();
    EXPECT_TRUE(timers().window.visible());
    EXPECT_EQ(h.dialogs.messages(), L{SchedulerPanel::kEmptyPlaylistText});

    // A folder without scenarios says so; one with them fills both lists.
    ScenarioFolderPanel& folder = app->frmaddscenariodirectory;
    folder.Dir1.setText((h.tree.root() / "bin").string());
    folder.okButton.click();
    EXPECT_EQ(h.dialogs.messages().back(), ScenarioFolderPanel::kNoFilesText);
    h.writeFile("config/scenarios/Coast.scn", "x");
    h.writeFile("config/scenarios/Beach 2.scn", "x");
    h.writeFile("config/scenarios/Beach 10.scn", "x");
    folder.open();
    folder.okButton.click();
    EXPECT_EQ(timers().ScenarioDisplayList.items(),
              (L{"Beach 2.scn", "Beach 10.scn", "Coast.scn"}));
    EXPECT_EQ(timers().ScenarioPathList.item(2),
              (h.tree.root() / "config/scenarios/Coast.scn").string());
}

TEST_F(Scheduler, TheMachineIsHeldAwakeExactlyWhileAChangeOrTheAlarmIsDue) {
    EXPECT_FALSE(power.held());
    timers().Optionex2.setValue(true);
    EXPECT_FALSE(power.held());
    setRow(0, "Dawn", "06:00:00");
    EXPECT_TRUE(power.held());
    row(0).enabled.setValue(0);
    EXPECT_FALSE(power.held());

    timers().Optionex3.setValue(true);
    EXPECT_FALSE(power.held());
    playlistOf({"A"});
    EXPECT_TRUE(power.held());
    timers().Optionex1.setValue(true);
    EXPECT_FALSE(power.held());

    app->frmmain.alarmOnButton.click();
    EXPECT_TRUE(power.held());
    timers().Optionex3.setValue(true);
    app->frmmain.alarmOffButton.click();
    EXPECT_TRUE(power.held());
    timers().Optionex1.setValue(true);
    EXPECT_EQ(power.awake, (std::vector<bool>{false, true, false, true, false, true, false}));
}

TEST_F(Scheduler, ADayWithAScheduleAndAnAlarm) {
    for (const char* name : {"Dawn", "Noon", "Night"}) {
        app->frmmain.dosave(name);
    }
    timers().Optionex2.setValue(true);
    setRow(0, "Dawn", "06:00:00");
    setRow(1, "Noon", "12:00:00");
    setRow(2, "Night", "22:00:00");
    app->Alarm.Text1.setText("07");
    app->Alarm.Text2.setText("45");
    app->Alarm.scombobox1.setText("30");
    app->frmmain.alarmOnButton.click();

    L loads;
    std::string last = current();
    for (int s = 0; s < 24 * 3600; ++s) {
        h.loop.advance(1000);
        if (current() != last) {
            last = current();
            loads.push_back(h.loop.timeOfDay().substr(0, 5) + " " + last);
        }
    }
    EXPECT_EQ(loads, (L{"12:00 Noon", "22:00 Night", "06:00 Dawn"}));
    std::size_t alarmPlays = 0;
    for (const auto& call : h.engine.callsOf(Op::Play)) {
        alarmPlays += call.a == static_cast<std::int64_t>(app->Alarm.sample) ? 1 : 0;
    }
    EXPECT_EQ(alarmPlays, 1U);
    EXPECT_EQ(app->Alarm.armed, 0);
    // The schedule still has its rows to come: the machine stays awake for them.
    EXPECT_TRUE(power.held());
}

}  // namespace
}  // namespace brevane
