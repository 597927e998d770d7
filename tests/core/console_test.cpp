// The main console: group sliders fanning out to every copy, mute, the status
// displays, the tray menu and the command buttons, on the whole Application.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "core/app_harness.h"
#include "core/session_files.h"
#include "core/slot_volume.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;
using L = std::vector<std::string>;

// The companion programs and documents the console asks the desktop for.
class RecordingDesktop final : public ProgramLauncher, public DesktopServices {
  public:
    bool startProgram(const std::filesystem::path& program) override {
        started.push_back(program);
        return startsPrograms;
    }
    bool openDocument(const std::filesystem::path& document) override {
        opened.push_back(document);
        return false;
    }
    bool startsPrograms = false;
    std::vector<std::filesystem::path> started;
    std::vector<std::filesystem::path> opened;
};

// The whole Application with a desktop that records what the console asks of it.
class Console : public ::testing::Test {
  protected:
    Application& start() {
        h.app = std::make_unique<Application>(Platform{AppPath(h.tree.root()), h.engine, h.loop,
                                                       h.dialogs, h.settings, h.random, nullptr,
                                                       desktop, desktop});
        h.app->onExit = [this](ExitKind kind) { h.exits.push_back(kind); };
        return h.startAndLoad();
    }

    // Every follower's copy of `group`, in the console's order.
    std::vector<Slider*> copiesOf(MixGroup group) {
        std::vector<Slider*> copies;
        for (MixGroupFollower* follower : h.app->groupFollowers()) {
            if (Slider* copy = follower->groupCopy(group)) {
                copies.push_back(copy);
            }
        }
        return copies;
    }

    // Loops on in two background banks and slot 7 of every random bank previewed.
    void playSomething() {
        Application& app = *h.app;
        app.frmback.slot(3).on.setValue(1);
        app.frmback.slot(3).volume.setValue(255);
        app.frmback2.slot(9).on.setValue(1);
        app.frmback2.slot(9).volume.setValue(120);
        for (RandomBank* bank : app.randomBanks()) {
            bank->previewSlot(7);
        }
    }

    // The level each playing channel must have now, by the volume law.
    std::vector<std::pair<ChannelHandle, int>> expectedLevels() {
        Application& app = *h.app;
        const int master = app.frmmain.Master.value();
        std::vector<std::pair<ChannelHandle, int>> out{
            {app.frmback.slot(3).channel, slotVolume(master, app.frmback.maxvol.value(), 255)},
            {app.frmback2.slot(9).channel, slotVolume(master, app.frmback2.maxvol.value(), 120)}};
        for (RandomBank* bank : app.randomBanks()) {
            out.emplace_back(bank->slot(7).channel, slotVolume(master, bank->maxvol.value(),
                                                               bank->slot(7).volume.value()));
        }
        return out;
    }

    void expectChannelsAtTheLaw() {
        for (const auto& [channel, level] : expectedLevels()) {
            const RecordingEngine::ChannelState* state = h.engine.channel(channel);
            ASSERT_NE(state, nullptr);
            EXPECT_TRUE(state->playing);
            EXPECT_EQ(state->volume, level) << "channel " << channel;
        }
    }

    test::AppHarness<RecordingEngine> h;
    RecordingDesktop desktop;
};

// ---- group sliders ----

TEST_F(Console, EveryGroupReachesEveryCopyInTheConsolesOrderAndThenItsHooks) {
    Application& app = start();
    const std::vector<MixGroupFollower*> followers = app.groupFollowers();
    const std::vector<MixGroupFollower*> order{
        &app.frmback,        &app.frmback2,       &app.frmremote2,
        &app.frmrandommain,  &app.frmbackcustom,  &app.frmcustom,
        &app.frmrandommain2, &app.frmrandommain3, &app.frmrandommain4};
    ASSERT_EQ(followers, order);

    // Each write as (follower, value); a hook's call as (nullptr, value).
    std::vector<std::pair<MixGroupFollower*, int>> writes;
    const std::pair<MixGroup, int> moves[] = {{MixGroup::Master, 37}, {MixGroup::Background, 64},
                                              {MixGroup::Random, 81}, {MixGroup::MP3, 4100},
                                              {MixGroup::CD, 17},     {MixGroup::Bwaves, 55}};
    for (const auto& [group, value] : moves) {
        for (MixGroupFollower* follower : followers) {
            Slider* copy = follower->groupCopy(group);
            ASSERT_NE(copy, nullptr);
            copy->watch(
                [&writes, follower, copy] { writes.emplace_back(follower, copy->value()); });
        }
        app.frmmain.onGroupMoved(group, [&writes](int v) { writes.emplace_back(nullptr, v); });
        writes.clear();
        app.frmmain.group(group).setValue(value);

        ASSERT_EQ(writes.size(), followers.size() + 1) << static_cast<int>(group);
        for (std::size_t i = 0; i < writes.size(); ++i) {
            EXPECT_EQ(writes[i].first, i < order.size() ? order[i] : nullptr) << i;
            EXPECT_EQ(writes[i].second, value) << static_cast<int>(group) << " write " << i;
        }
    }

    // A bank's own strip writes to the console, which writes the value out again and
    // runs the hooks.
    writes.clear();
    app.frmrandommain2.groupCopy(MixGroup::Background)->setValue(23);
    EXPECT_EQ(app.frmmain.Background.value(), 23);
    for (Slider* copy : copiesOf(MixGroup::Background)) {
        EXPECT_EQ(copy->value(), 23);
    }
    ASSERT_FALSE(writes.empty());
    EXPECT_EQ(writes.back(), (std::pair<MixGroupFollower*, int>{nullptr, 23}));
}

TEST_F(Console, MasterBringsEveryPlayingChannelToTheVolumeLawDownToItsLowerEnd) {
    Application& app = start();
    app.frmmain.Background.setValue(100);
    app.frmmain.Random.setValue(100);
    playSomething();
    h.engine.clearCalls();

    app.frmmain.Master.setValue(73);
    expectChannelsAtTheLaw();
    // Each bank's pass, once: 27 slots of each fixed bank (never slot 1), all 28 of the
    // custom one, the 17 of each background bank; and the beat generator's pair.
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume).size(), 4u * 27u + 28u + 3u * 17u + 2u);

    // A hand pushing Master past its lower end stops at 1, and 1 still sounds.
    app.frmmain.Master.setValue(-20);
    EXPECT_EQ(app.frmmain.Master.value(), 1);
    expectChannelsAtTheLaw();
    for (const auto& [channel, level] : expectedLevels()) {
        EXPECT_GT(level, 0);
    }
}

// ---- mute ----

TEST_F(Console, MuteSilencesEveryChannelAndAClickOrAnyMoveOfMasterBringsTheLevelBack) {
    Application& app = start();
    app.frmmain.Master.setValue(60);
    playSomething();
    MenuEntry& mute = app.frmmain.mnuMute();

    // The second click; a move on the console; a move on a bank's strip, which writes to
    // the console; a move landing exactly on the kept level.
    const std::pair<Slider*, int> unmutes[] = {{nullptr, 0},
                                               {&app.frmmain.Master, 80},
                                               {&app.frmrandommain3.Master, 20},
                                               {&app.frmmain.Master, 60}};
    for (const auto& [slider, value] : unmutes) {
        SCOPED_TRACE(value);
        mute.click();
        EXPECT_TRUE(mute.checked());
        EXPECT_EQ(app.frmmain.Master.value(), 0);
        for (Slider* copy : copiesOf(MixGroup::Master)) {
            EXPECT_EQ(copy->value(), 0);
        }
        expectChannelsAtTheLaw();  // all at 0

        slider != nullptr ? slider->setValue(value) : mute.click();
        EXPECT_FALSE(mute.checked());
        EXPECT_EQ(app.frmmain.Master.value(), 60);
        // The hand's lower end is back on the console and on every copy.
        EXPECT_EQ(app.frmmain.Master.low(), 1);
        for (Slider* copy : copiesOf(MixGroup::Master)) {
            EXPECT_EQ(copy->value(), 60);
            EXPECT_EQ(copy->low(), 1);
        }
        expectChannelsAtTheLaw();
    }
    // Unmuted, a move is an ordinary move again.
    app.frmmain.Master.setValue(80);
    EXPECT_EQ(app.frmback.Master.value(), 80);
    expectChannelsAtTheLaw();
}

TEST_F(Console, QuittingWhileMutedKeepsMasterAtZeroForTheNextStart) {
    Application& app = start();
    app.frmmain.Master.setValue(70);
    app.frmmain.mnuMute().click();
    app.frmmain.mnutray.find("Quit App")->click();

    EXPECT_EQ(h.exits, std::vector<ExitKind>{ExitKind::AfterCleanUp});
    EXPECT_FALSE(h.engine.started());
    const SessionRead<MainbRecord> read =
        readMainbFile(readWholeFile(h.tree.root() / "mainb.tmp").value_or(""));
    ASSERT_TRUE(read.has(1));
    EXPECT_EQ(read.record.groups[0], 0);
}

// ---- status displays ----

TEST_F(Console, DisplaysShowTheirIdleTextsThenTheStateOfThePanels) {
    Application& app = start();
    Frmmain& c = app.frmmain;
    const auto lines = [](const LcdDisplay& d) {
        return L{d.line(1), d.line(2), d.line(3), d.line(4)};
    };
    EXPECT_EQ(lines(c.LCD1), (L{"Scenario", "Previous", "", "N/A"}));
    EXPECT_EQ(lines(c.LCD2), (L{"Time", "Alarm", "", "Disabled "}));
    // The scheduler's interval stands on the playlist line until a mode is chosen.
    EXPECT_EQ(lines(c.LCD3), (L{"Scheduler", "Playlist", "Disabled", "5 min"}));
    EXPECT_EQ(lines(c.LCD4), (L{"Weather", "Night", "Static", "Disabled"}));
    EXPECT_EQ(lines(c.LCD5), (L{"Preset", "", "Unassigned", ""}));
    EXPECT_EQ(lines(c.LCD6), (L{"Reverb", "Equalizer", "Disabled", "Disabled"}));
    EXPECT_EQ(lines(c.LCD8), (L{"Bwaves", "", "Disabled", "Delta"}));
    EXPECT_EQ(c.LCD7.line(1), "Bank");

    app.CurrentScenarioName = "Evening Rain";
    app.weatherStatus = "Heavy Storm";
    app.nightStatus = "Enabled";
    c.PresetListName = "Favourites";
    // Nothing moves until the refresh.
    EXPECT_EQ(c.LCD1.line(3), "");
    c.checklcd();
    EXPECT_EQ(c.LCD1.line(3), "Evening Rain");
    EXPECT_EQ(c.LCD4.line(3), "Heavy Storm");
    EXPECT_EQ(c.LCD4.line(4), "Enabled");
    EXPECT_EQ(c.LCD5.line(3), "Presets: Favourites");
    // A cleared list is named "None"; no list at all is "Unassigned".
    c.PresetListName = "None";
    c.checklcd();
    EXPECT_EQ(c.LCD5.line(3), "Presets: None");
    c.PresetListName.clear();
    c.checklcd();
    EXPECT_EQ(c.LCD5.line(3), "Unassigned");

    // updatelcd4 alone touches display 4 only.
    app.weatherStatus = "Light Shower";
    app.CurrentScenarioName = "Not Shown Yet";
    c.updatelcd4();
    EXPECT_EQ(c.LCD4.line(3), "Light Shower");
    EXPECT_EQ(c.LCD1.line(3), "Evening Rain");

    // The latest sound and its bank follow the Identify panel; the location outlives
    // a refresh.
    app.frmrandommain2.fire(20);
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(c.LCD7.line(3), app.frmrandommain2.slot(20).name.caption());
    EXPECT_EQ(c.LCD7.line(4), "Bank 2 - column 2");
    c.checklcd();
    EXPECT_EQ(c.LCD7.line(4), "Bank 2 - column 2");
}

TEST_F(Console, TheClockShowsTheTimeOfDayEverySecondUntilTheQuit) {
    h.loop.setWallClockStart(LocalTime{2024, 3, 9, 6, 21, 59, 58});
    Application& app = start();
    // Loaded 50 ms after the start: the first tick is a second later.
    h.loop.advance(999);
    EXPECT_EQ(app.frmmain.LCD2.line(3), "");
    h.loop.advance(1);
    EXPECT_EQ(app.frmmain.LCD2.line(3), "21:59:59");
    h.loop.advance(1000);
    EXPECT_EQ(app.frmmain.LCD2.line(3), "22:00:00");

    app.frmmain.QuitCommand.click();
    h.loop.advance(5000);
    EXPECT_EQ(app.frmmain.LCD2.line(3), "22:00:00");
}

TEST_F(Console, ACustomBankChangeRefreshesTheDisplaysOnceAfterThreeSeconds) {
    Application& app = start();
    // Past the first run's own refresh.
    h.loop.advance(Frmmain::kFirstRunMs);
    app.CurrentScenarioName = "";
    app.frmmain.checklcd();
    h.dialogs.answerInput("Garden wren");
    app.frmcustom.renameSlot(2);
    h.loop.advance(2000);
    app.CurrentScenarioName = "My Own";
    // A second change, on the custom background bank, starts the wait again.
    app.frmbackcustom.slot(5).on.setCaption("Brook");
    h.loop.advance(2999);
    EXPECT_EQ(app.frmmain.LCD1.line(3), "");
    h.loop.advance(1);
    EXPECT_EQ(app.frmmain.LCD1.line(3), "My Own");

    // Ticking a custom loop on is no change of the bank.
    app.CurrentScenarioName = "Unchanged";
    app.frmbackcustom.slot(5).on.setValue(1);
    h.loop.advance(Frmmain::kCustomLcdUpdateMs);
    EXPECT_EQ(app.frmmain.LCD1.line(3), "My Own");
}

// ---- tray ----

TEST_F(Console, TrayMenuKeepsItsOrderWithAScenarioEntryPerFile) {
    h.writeFile("config/scenarios/Summer Storm.scn", "x");
    h.writeFile("config/scenarios/Autumn Wind.scn", "x");
    h.writeFile("config/scenarios/Summer Storm1.scs", "x");
    std::filesystem::create_directories(h.tree.root() / "config/scenarios/folder.scn");
    Application& app = start();
    Frmmain& c = app.frmmain;

    EXPECT_TRUE(c.trayIcon.visible());
    EXPECT_EQ(c.trayIcon.toolTip(), "Brevane");
    EXPECT_EQ(c.mnutray.captions(), (L{"Slideshow", "Movie", "Panoramic", "-", "Scenario", "Mute",
                                       "Show Remote", "Show Main", "Quit App"}));
    EXPECT_EQ(c.mnuScenario().captions(), (L{"Autumn Wind", "Summer Storm", "-",
                                             "Load Random Scenario", "Load Scenario From Disk"}));

    // An entry loads its scenario: here the list's third file makes it known.
    c.mnuScenario().find("Summer Storm")->click();
    EXPECT_EQ(app.CurrentScenarioName, "Summer Storm");

    c.window.hide();
    c.mnutray.find("Show Main")->click();
    EXPECT_TRUE(c.window.visible());

    // No scenarios: only the commands, without a separator, and nothing to pick from.
    c.scenarioList.clear();
    c.buildScenarioMenu();
    EXPECT_EQ(c.mnuScenario().captions(), (L{"Load Random Scenario", "Load Scenario From Disk"}));
    EXPECT_FALSE(c.mnuScenario().find("Load Random Scenario")->enabled());
}

// ---- buttons ----

TEST_F(Console, RecStartsTheRecorderAndHelpOpensTheManualReportingNothing) {
    Application& app = start();
    Frmmain& c = app.frmmain;
    // Rec starts the recorder beside the program, or says it is missing.
    c.recButton.click();
    EXPECT_EQ(desktop.started, std::vector<std::filesystem::path>{h.tree.root() / "recorder"});
    EXPECT_EQ(h.dialogs.messages(),
              L{"The recorder could not be found. Please re-install the program."});
    h.dialogs.clear();
    desktop.startsPrograms = true;
    c.recButton.click();
    EXPECT_EQ(desktop.started.size(), 2u);

    // Help reports nothing, even when the desktop cannot open the manual.
    c.helpButton.click();
    EXPECT_EQ(desktop.opened,
              std::vector<std::filesystem::path>{h.tree.root() / "help/index.html"});
    EXPECT_TRUE(h.dialogs.shown().empty());
}

}  // namespace
}  // namespace brevane
