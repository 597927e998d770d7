// Start-up with the session files missing, damaged or partial; the first run; the
// restore command and recallprevious; the quit's question and what it writes.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/application.h"
#include "core/session_files.h"
#include "core/session_run.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;
using test::fileText;
using test::SessionRun;
using Op = RecordingEngine::Op;

using SessionStart = test::SessionTree;

TEST_F(SessionStart, FirstRunShowsTheTipsAfterTwoSecondsAndTurnsTheRestoreOn) {
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    // No session file: every value is the built-in one.
    EXPECT_EQ(app.SavedMasterLevel, Frmmain::kBuiltInMasterLevel);
    EXPECT_EQ(app.frmmain.presetCaption(7), "Currently Unassigned");
    // No colors.tmp: the scheme "Default", or its colours when the tree has no file of it.
    EXPECT_EQ(app.scheme, programLook());
    EXPECT_FALSE(app.FRMOPTIONS.previousScenario.checked());

    run.loop.advance(Frmmain::kFirstRunMs - 1);
    EXPECT_FALSE(app.Formtips.window.visible());
    run.loop.advance(1);
    EXPECT_TRUE(app.Formtips.window.visible());
    EXPECT_TRUE(app.FRMOPTIONS.previousScenario.checked());
    EXPECT_EQ(app.CurrentScenarioName, "Summer Storm");
    EXPECT_FALSE(app.frmmain.Timer4.enabled());

    // Once only.
    app.Formtips.closeButton.click();
    run.loop.advance(10 * Frmmain::kFirstRunMs);
    EXPECT_FALSE(app.Formtips.window.visible());
    EXPECT_TRUE(run.dialogs.shown().empty());
}

TEST_F(SessionStart, TheLoadAppliesMainTmpsFirstFourFieldsAndMainbWithMasterLeftToTheFade) {
    put("main.tmp", "\"True\",\"Rainforest\",130,70,\"Beach\",\"Alps\",\"Dusk\",1\r\n");
    MainbRecord r;
    r.groups = {12, 6, 7, 4000, 9};
    r.presetCaptions.fill("Currently Unassigned");
    r.presetCaptions[13] = "Storm";
    r.colours = {"1", "2", "255", "65280", "5", "6", "7", "8", "9", "10"};
    r.customRandomAuto = true;
    r.presetListName = "Evenings";
    r.brainwaveList = "Theta";
    put("mainb.tmp", writeMainbFile(r));
    // A session with colours has colors.tmp beside: Line and Active Color, the displays.
    put("colors.tmp", "5,1,2,3,4,\"333\",\"65280\",\"Mine\"\r\n");

    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    EXPECT_EQ(app.AlarmArmed, "True");
    EXPECT_EQ(app.CurrentScenarioName, "Rainforest");
    EXPECT_EQ(app.Form3.threshold.value(), 130);
    EXPECT_EQ(app.Form33.threshold.value(), 70);
    // The labels wait for recallprevious; the device comes from scard.tmp alone.
    EXPECT_EQ(app.frmmain.carry.slideshowLabel, "");
    EXPECT_EQ(app.SoundCardIndex, 0);

    EXPECT_EQ(app.frmmain.Master.value(), 2);
    EXPECT_EQ(app.SavedMasterLevel, 12);
    // Through the console: every panel's copy follows.
    EXPECT_EQ(app.frmback2.maxvol.value(), 6);
    EXPECT_EQ(app.frmrandommain3.maxvol.value(), 7);
    EXPECT_EQ(app.frmrandommain3.MP3.value(), 4000);
    EXPECT_EQ(app.frmrandommain3.CD.value(), 9);
    EXPECT_EQ(app.frmmain.presetCaption(13), "Storm");
    EXPECT_EQ(app.frmmain.PresetListName, "Evenings");
    EXPECT_EQ(app.frmmain.carry.brainwaveList, "Theta");
    EXPECT_EQ(app.scheme.startGradient, 1u);
    EXPECT_EQ(app.scheme.buttonBack, 255u);
    EXPECT_EQ(app.scheme.active, 65280u);
    EXPECT_EQ(app.scheme.textBoxFore, 10u);
    EXPECT_EQ(app.scheme.line, 333u);
    EXPECT_EQ(app.scheme.palette, 5);
    EXPECT_EQ(app.frmDemo.schemeName(), "Mine");
    // The custom bank's Auto state, and its repeat started; the fixed banks' stay off.
    EXPECT_TRUE(app.frmcustom.timerautorandom.enabled());
    EXPECT_FALSE(app.frmrandommain.timerautorandom.enabled());
}

TEST_F(SessionStart, MainbField37IsTheSoundCardOnlyWhenItNamesADevice) {
    const auto start = [&](const std::string& field37) {
        // The writer puts preset 12 in both fields 37 and 38.
        MainbRecord r;
        r.presetCaptions[12] = "Woods";
        std::string text = writeMainbFile(r);
        text.replace(text.find("\"Woods\","), 8, "\"" + field37 + "\",");
        put("mainb.tmp", text);
        put("scard.tmp", "1\r\n");
        auto run = std::make_unique<SessionRun>(tree.root());
        run->startAndLoad();
        return run;
    };
    {
        auto run = start("2");
        EXPECT_EQ(run->app->SoundCardIndex, 2);
        // The engine opened before: on scard.tmp's device.
        EXPECT_EQ(run->engine.callsOf(Op::Start).at(0).a, 1);
        run->app->frmmain.quitWithoutAsking();
        EXPECT_EQ(fileText(at("scard.tmp")), "2\r\n");
    }
    for (const char* notADevice : {"Currently Unassigned", "7", "-1", ""}) {
        auto run = start(notADevice);
        EXPECT_EQ(run->app->SoundCardIndex, 1) << notADevice;
        EXPECT_EQ(run->app->frmmain.presetCaption(12), "Woods");
    }
    // A device gone since the last session: the default output, driver 0, takes its
    // place, and the options show it as the current one.
    fs::remove(at("mainb.tmp"));
    put("scard.tmp", "9\r\n");
    SessionRun run(tree.root());
    run.startAndLoad();
    EXPECT_EQ(run.app->SoundCardIndex, 0);
    EXPECT_EQ(run.app->FRMOPTIONS.soundDevices.listIndex(), 0);
}

TEST_F(SessionStart, ADamagedMainbAppliesWhatItHoldsAndLosesNoOtherFile) {
    put("main.tmp", "\"False\",\"Meadow\",5,6,\"\",\"\",\"\",0\r\n");
    put("states.tmp", "#FALSE#,#TRUE#,#FALSE#,#FALSE#,#FALSE#\r\n");
    put("opti.tmp", "1,1,0,1,0,\"90\",1,0,0\r\n");
    // Background and Random read; MP3 is not a number, so nothing from there on.
    put("mainb.tmp", "30,8,9,\"loud\",4,\"Harbour\"\r\n");
    const auto before = files();

    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    EXPECT_EQ(app.SavedMasterLevel, 30);
    EXPECT_EQ(app.frmmain.presetCaption(0), "Currently Unassigned");
    EXPECT_EQ(app.CurrentScenarioName, "Meadow");
    EXPECT_EQ(app.InactivitySeconds, 90);
    EXPECT_TRUE(run.dialogs.shown().empty());
    // Reading touched nothing on disk.
    EXPECT_EQ(files(), before);
    EXPECT_EQ(fileText(at("mainb.tmp")), "30,8,9,\"loud\",4,\"Harbour\"\r\n");

    // The quit writes a whole mainb.tmp again from what stands: MP3 and CD built in.
    app.frmmain.quitWithoutAsking();
    const SessionRead<MainbRecord> back = readMainbFile(fileText(at("mainb.tmp")));
    EXPECT_EQ(back.fields, MainbRecord::kFields);
    EXPECT_EQ(back.record.groups, (std::array<int, 5>{2, 8, 9, 2500, 0}));
}

TEST_F(SessionStart, DamagedFilesOfEveryKindNeverStopTheStart) {
    const std::string rubbish("\"\x01,,\r\n\xff\xfe#TRUE#,\"", 14);
    for (const char* name : {"scard.tmp", "main.tmp", "mainb.tmp", "states.tmp", "opti.tmp"}) {
        put(name, rubbish);
    }
    put("opti.tmp", "1,1,0,1,1,\"60\"");  // previous scenario on: the restore runs too
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    run.loop.advance(5'000);
    EXPECT_TRUE(run.exits.empty());
    EXPECT_EQ(run.engine.callsOf(Op::Start).at(0).a, 0);
    EXPECT_TRUE(app.frmrandommain.Timer2.enabled());
    // A main.tmp, even a damaged one, means this is no first run.
    EXPECT_FALSE(app.Formtips.window.visible());
    app.frmmain.quitWithoutAsking();
    EXPECT_EQ(readStatesFile(fileText(at("states.tmp"))).fields, StatesRecord::kFields);
    EXPECT_EQ(readMainFile(fileText(at("main.tmp"))).fields, MainRecord::kFields);
}

TEST_F(SessionStart, TheTemporaryOfAWriteCutShortByAKillGoesAtTheNextStart) {
    // A process that has ended, as a program killed in the middle of its quit.
    const pid_t dead = ::fork();
    if (dead == 0) {
        ::_exit(0);
    }
    ASSERT_GT(dead, 0);
    ::waitpid(dead, nullptr, 0);
    const std::string leftover = "main.tmp.tmp~" + std::to_string(dead) + ".3";
    const std::string running = "mainb.tmp.tmp~" + std::to_string(::getppid()) + ".0";
    put(leftover, "\"False\",\"Mea");
    put(running, "40,");
    put("notes.tmp~old", "the user's own file");

    SessionRun run(tree.root());
    run.startAndLoad();
    EXPECT_FALSE(fs::exists(at(leftover)));
    EXPECT_TRUE(fs::exists(at(running)));
    EXPECT_TRUE(fs::exists(at("notes.tmp~old")));
}

TEST_F(SessionStart, TheIdentifyPanelKeepsItsPlaceInItsOwnSection) {
    SessionRun run(tree.root());
    run.settings.setValue("Settings25", "MainLeft", "3000");
    run.settings.setValue("Settings25", "Maintop", "  1800");
    Application& app = run.startAndLoad();
    ASSERT_TRUE(app.Frmsoundindent.position.has_value());
    EXPECT_EQ(app.Frmsoundindent.position->left, 3000);
    EXPECT_EQ(app.Frmsoundindent.position->top, 1800);

    app.Frmsoundindent.position = WindowPosition{450, 600};
    app.frmmain.quitWithoutAsking();
    EXPECT_EQ(run.settings.value("Settings25", "Mainleft"), "450");
    EXPECT_EQ(run.settings.value("Settings25", "Maintop"), "600");
}

TEST_F(SessionStart, AQuitBeforeTheLoadLeavesTheLastSessionAsItWas) {
    put("main.tmp", "\"False\",\"Night Sea\",0,0,\"\",\"\",\"\",0\r\n");
    put("back.ini", "\"the last session's bank\"\r\n");
    const auto before = files();
    SessionRun run(tree.root());
    run.app->start();
    // The desktop ends the program while the splash still shows.
    run.app->frmmain.quitWithoutAsking();
    EXPECT_EQ(run.exits, std::vector<ExitKind>{ExitKind::AfterCleanUp});
    EXPECT_TRUE(run.engine.callsOf(Op::Start).empty());
    EXPECT_EQ(files(), before);
    EXPECT_EQ(fileText(at("main.tmp")), "\"False\",\"Night Sea\",0,0,\"\",\"\",\"\",0\r\n");
    EXPECT_EQ(fileText(at("back.ini")), "\"the last session's bank\"\r\n");
}

TEST_F(SessionStart, TheRestoreRunsOnlyWithTheOptionAndInItsOrder) {
    // Every bank copy damaged: each bank's load entry says so in its own words, so the
    // messages tell the order the copies were handed over in.
    for (const char* copy : {"back.ini", "back2.ini", "backc.ini", "rand.ini", "rand2.ini",
                             "rand3.ini", "rand4.ini", "randc.ini"}) {
        put(copy, "\"not a bank\"\r\n");
    }
    {
        SessionRun off(tree.root());
        off.startAndLoad();
        EXPECT_TRUE(off.dialogs.shown().empty());
        off.app->frmback.slot(1).on.setValue(1);
    }
    put("opti.tmp", "1,1,0,1,1,\"60\",0,0,0\r\n");
    SessionRun on(tree.root());
    Application& app = on.startAndLoad();
    const std::vector<std::string> expected = {
        app.frmback.config().loadFailedText,        app.frmrandommain.config().loadFailedText,
        app.frmrandommain2.config().loadFailedText, app.frmrandommain3.config().loadFailedText,
        app.frmrandommain4.config().loadFailedText, app.frmback2.config().loadFailedText,
        app.frmbackcustom.config().loadFailedText};
    EXPECT_EQ(on.dialogs.messages(), expected);
}

TEST_F(SessionStart, RecallpreviousFollowsStatesTmpAndStripsTheVisualFolders) {
    const std::string tree_ = AppPath(tree.root()).text();
    put("states.tmp", "#TRUE#,#FALSE#,#TRUE#,#FALSE#,#TRUE#\r\n");
    put("main.tmp", "\"False\",\"Night Sea\",0,0,\"" + tree_ + "visual\\slideshow\\Beach\",\"" +
                        tree_ + "visual/panoramics/Alps.jpg\",\"Dusk\",0\r\n");
    put("opti.tmp", "1,1,0,1,1,\"60\",0,0,0\r\n");
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    EXPECT_TRUE(app.RemoteShown);
    EXPECT_FALSE(app.MainShown);
    EXPECT_FALSE(app.frmmain.window.visible());
    EXPECT_EQ(app.frmmain.carry.slideshowLabel, "Beach");
    EXPECT_EQ(app.frmmain.carry.panoramicLabel, "Alps.jpg");
    EXPECT_EQ(app.frmDemo.schemeName(), "Dusk");
    EXPECT_EQ(app.CurrentScenarioName, "Night Sea");
    EXPECT_TRUE(app.frmmain.Timershowoldform.enabled());
    run.loop.advance(Frmmain::kShowOldFormMs);
    EXPECT_FALSE(app.frmmain.Timershowoldform.enabled());

    // Flags go out again as they came.
    app.frmmain.quitWithoutAsking();
    EXPECT_EQ(fileText(at("states.tmp")), "#TRUE#,#FALSE#,#TRUE#,#FALSE#,#TRUE#\r\n");
    EXPECT_EQ(fileText(at("main.tmp")),
              "\"False\",\"Night Sea\",0,0,\"Beach\",\"Alps.jpg\",\"Dusk\",0\r\n");
}

TEST_F(SessionStart, TheConsoleComesBackAsTheUserLeftItInTheTrayOrOnScreen) {
    // The first run, "Minimize on startup" on as it comes: the console goes to the tray.
    const auto startRun = [&] {
        auto run = std::make_unique<SessionRun>(tree.root());
        run->startAndLoad();
        run->loop.advance(Frmmain::kFirstRunMs);
        return run;
    };
    auto run = startRun();
    EXPECT_FALSE(run->app->frmmain.window.visible());
    EXPECT_FALSE(run->app->MainShown);
    run->app->frmmain.mnutray.find("Quit App")->click();
    EXPECT_EQ(fileText(at("states.tmp")), "#FALSE#,#FALSE#,#FALSE#,#FALSE#,#FALSE#\r\n");

    // Quit from the tray, twice over: each start stays in the tray.
    for (int start = 0; start < 2; ++start) {
        run = startRun();
        EXPECT_FALSE(run->app->frmmain.window.visible()) << start;
        run->app->frmmain.QuitCommand.click();
    }

    // Quit with the console open: the next start brings it back after the minimize.
    run = startRun();
    run->app->frmmain.mnutray.find("Show Main")->click();
    EXPECT_TRUE(run->app->MainShown);
    run->app->frmmain.QuitCommand.click();
    EXPECT_EQ(fileText(at("states.tmp")), "#FALSE#,#TRUE#,#FALSE#,#FALSE#,#FALSE#\r\n");
    run = startRun();
    EXPECT_TRUE(run->app->frmmain.window.visible());
    EXPECT_TRUE(run->app->MainShown);
}

TEST_F(SessionStart, ConfirmExitAsksAndANoWritesNothingAndStopsNoSound) {
    put("opti.tmp", "1,1,0,1,0,\"60\",1,0,0\r\n");
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    app.frmback.slot(2).on.setValue(1);
    const auto before = files();
    const std::size_t callsBefore = run.engine.calls().size();

    run.dialogs.answerYesNo(false);
    app.frmmain.QuitCommand.click();
    ASSERT_EQ(run.dialogs.shown().size(), 1u);
    EXPECT_EQ(run.dialogs.shown()[0].kind, ScriptedDialogs::Kind::Question);
    EXPECT_EQ(run.dialogs.shown()[0].text, "Really Quit?");
    EXPECT_TRUE(run.exits.empty());
    EXPECT_EQ(files(), before);
    EXPECT_EQ(run.engine.calls().size(), callsBefore);
    EXPECT_TRUE(run.engine.channel(app.frmback.slot(2).channel)->playing);

    // A quit from outside the program (a signal, the desktop's logout) never asks.
    app.frmmain.quitWithoutAsking();
    EXPECT_EQ(run.dialogs.shown().size(), 1u);
    EXPECT_EQ(run.exits, std::vector<ExitKind>{ExitKind::AfterCleanUp});
    EXPECT_EQ(fileText(at("opti.tmp")), "1,1,0,1,0,\"60\",1,0,0\r\n");
    EXPECT_EQ(
        files(),
        (std::vector<std::string>{
            "Timersettings.tmp", "Timersettings2.tmp", "alarm.tmp",  "back.ini",    "back2.ini",
            "backc.ini",         "bwave.tmp",          "colors.tmp", "effects.tmp", "evo.ini",
            "main.tmp",          "mainb.tmp",          "mp3.tmp",    "opti.tmp",    "rand.ini",
            "rand2.ini",         "rand3.ini",          "rand4.ini",  "randc.ini",   "scard.tmp",
            "states.tmp"}));
}

}  // namespace
}  // namespace brevane
