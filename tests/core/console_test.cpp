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

class RecordingLauncher final : public ProgramLauncher {
  public:
    bool startProgram(const std::filesystem::path& program) override {
        started.push_back(program);
        return accept;
    }
    bool accept = false;
    std::vector<std::filesystem::path> started;
};

class RecordingDesktop final : public DesktopServices {
  public:
    bool openDocument(const std::filesystem::path& document) override {
        opened.push_back(document);
        return accept;
    }
    bool accept = true;
    std::vector<std::filesystem::path> opened;
};

// The whole Application with a launcher and desktop that record what the console asks.
class Console : public ::testing::Test {
  protected:
    Application& start() {
        h.app = std::make_unique<Application>(Platform{AppPath(h.tree.root()), h.engine, h.loop,
                                                       h.dialogs, h.settings, h.random, nullptr,
                                                       launcher, desktop});
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

    // Bank 1's slots 3 and 9 on, and slot 7 of every random bank previewed: loops and
    // one-shots playing in every kind of bank.
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
        std::vector<std::pair<ChannelHandle, int>> out;
        out.emplace_back(app.frmback.slot(3).channel,
                         slotVolume(master, app.frmback.maxvol.value(), 255));
        out.emplace_back(app.frmback2.slot(9).channel,
                         slotVolume(master, app.frmback2.maxvol.value(), 120));
        for (RandomBank* bank : app.randomBanks()) {
            out.emplace_back(bank->slot(7).channel, slotVolume(master, bank->maxvol.value(),
                                                               bank->slot(7).volume.value()));
        }
        return out;
    }

    void expectChannelsAtTheLaw(const char* when) {
        for (const auto& [channel, level] : expectedLevels()) {
            const RecordingEngine::ChannelState* state = h.engine.channel(channel);
            ASSERT_NE(state, nullptr) << when;
            EXPECT_TRUE(state->playing) << when;
            EXPECT_EQ(state->volume, level) << when << ", channel " << channel;
        }
    }

    test::AppHarness<RecordingEngine> h;
    RecordingLauncher launcher;
    RecordingDesktop desktop;
};

// ---- group sliders ----

TEST_F(Console, EveryGroupReachesEveryCopyInTheConsolesOrder) {
    Application& app = start();
    const std::vector<MixGroupFollower*> followers = app.groupFollowers();
    // The fixed order of the console's writes: frmback, frmback2, frmrandommain,
    // frmbackcustom, frmcustom, frmrandommain2 to 4 (the remote joins third).
    const std::vector<MixGroupFollower*> order{
        &app.frmback,   &app.frmback2,       &app.frmrandommain,  &app.frmbackcustom,
        &app.frmcustom, &app.frmrandommain2, &app.frmrandommain3, &app.frmrandommain4};
    ASSERT_EQ(followers, order);

    const std::pair<MixGroup, int> moves[] = {{MixGroup::Master, 37}, {MixGroup::Background, 64},
                                              {MixGroup::Random, 81}, {MixGroup::MP3, 4100},
                                              {MixGroup::CD, 17},     {MixGroup::Bwaves, 55}};
    for (const auto& [group, value] : moves) {
        std::vector<std::pair<MixGroupFollower*, int>> writes;
        std::vector<std::pair<Control*, Control::WatchId>> watches;
        for (MixGroupFollower* follower : followers) {
            Slider* copy = follower->groupCopy(group);
            ASSERT_NE(copy, nullptr);
            watches.emplace_back(copy, copy->watch([&writes, follower, copy] {
                writes.emplace_back(follower, copy->value());
            }));
        }
        app.frmmain.group(group).setValue(value);
        for (auto& [control, id] : watches) {
            control->unwatch(id);
        }

        ASSERT_EQ(writes.size(), followers.size()) << static_cast<int>(group);
        for (std::size_t i = 0; i < writes.size(); ++i) {
            EXPECT_EQ(writes[i].first, order[i]) << static_cast<int>(group) << " write " << i;
            EXPECT_EQ(writes[i].second, value) << static_cast<int>(group) << " write " << i;
        }
    }

    // A bank's own strip writes to the console, which writes the value out again.
    app.frmrandommain2.groupCopy(MixGroup::Background)->setValue(23);
    EXPECT_EQ(app.frmmain.Background.value(), 23);
    for (Slider* copy : copiesOf(MixGroup::Background)) {
        EXPECT_EQ(copy->value(), 23);
    }
}

TEST_F(Console, HooksFollowTheirGroupAfterEveryCopyIsWritten) {
    Application& app = start();
    std::vector<std::string> seen;
    app.frmmain.onGroupMoved(MixGroup::Bwaves, [&](int v) {
        // Every copy holds the value by the time a hook runs.
        EXPECT_EQ(app.frmrandommain4.Bwaves.value(), v);
        seen.push_back("bwaves " + std::to_string(v));
    });
    app.frmmain.onGroupMoved(MixGroup::Master,
                             [&](int v) { seen.push_back("master " + std::to_string(v)); });
    app.frmmain.onGroupMoved(MixGroup::Master,
                             [&](int v) { seen.push_back("master again " + std::to_string(v)); });

    app.frmmain.Bwaves.setValue(44);
    app.frmmain.Random.setValue(90);
    // A bank's own strip goes through the console, so hooks see that move too.
    app.frmback2.Master.setValue(12);
    EXPECT_EQ(seen, (std::vector<std::string>{"bwaves 44", "master 12", "master again 12"}));
}

TEST_F(Console, MasterBringsEveryPlayingChannelToTheVolumeLaw) {
    Application& app = start();
    app.frmmain.Background.setValue(100);
    app.frmmain.Random.setValue(100);
    playSomething();

    app.frmmain.Master.setValue(73);
    expectChannelsAtTheLaw("Master 73");

    // A hand pushing Master past its lower end stops at 1, and 1 still sounds.
    app.frmmain.Master.setValue(-20);
    EXPECT_EQ(app.frmmain.Master.value(), 1);
    expectChannelsAtTheLaw("Master at its lower end");
    for (const auto& [channel, level] : expectedLevels()) {
        EXPECT_GT(level, 0);
        EXPECT_EQ(h.engine.channel(channel)->volume, level);
    }
}

// ---- mute ----

TEST_F(Console, MuteSilencesEveryChannelAndTheSecondClickBringsTheLevelBack) {
    Application& app = start();
    app.frmmain.Master.setValue(60);
    playSomething();
    MenuEntry& muteEntry = app.frmmain.mnuMute();

    muteEntry.click();
    EXPECT_TRUE(muteEntry.checked());
    EXPECT_EQ(app.frmmain.Master.value(), 0);
    for (Slider* copy : copiesOf(MixGroup::Master)) {
        EXPECT_EQ(copy->value(), 0);
    }
    for (const auto& [channel, level] : expectedLevels()) {
        EXPECT_EQ(level, 0);
        EXPECT_EQ(h.engine.channel(channel)->volume, 0);
    }

    muteEntry.click();
    EXPECT_FALSE(muteEntry.checked());
    EXPECT_EQ(app.frmmain.Master.value(), 60);
    // The hand's lower end is back on the console and on every copy.
    EXPECT_EQ(app.frmmain.Master.low(), 1);
    for (Slider* copy : copiesOf(MixGroup::Master)) {
        EXPECT_EQ(copy->value(), 60);
        EXPECT_EQ(copy->low(), 1);
    }
    expectChannelsAtTheLaw("after unmute");
}

TEST_F(Console, MovingMasterWhileMutedBringsTheKeptLevelBackFirst) {
    Application& app = start();
    app.frmmain.Master.setValue(45);
    playSomething();

    // On the console itself.
    app.frmmain.mnuMute().click();
    app.frmmain.Master.setValue(80);
    EXPECT_FALSE(app.frmmain.mnuMute().checked());
    EXPECT_EQ(app.frmmain.Master.value(), 45);
    for (Slider* copy : copiesOf(MixGroup::Master)) {
        EXPECT_EQ(copy->value(), 45);
    }
    expectChannelsAtTheLaw("after a move on the console");
    // Unmuted, a move is an ordinary move again.
    app.frmmain.Master.setValue(80);
    EXPECT_EQ(app.frmmain.Master.value(), 80);
    expectChannelsAtTheLaw("after the next move");

    // On a bank's strip, which writes to the console.
    app.frmmain.mnuMute().click();
    app.frmrandommain3.Master.setValue(20);
    EXPECT_FALSE(app.frmmain.mnuMute().checked());
    EXPECT_EQ(app.frmmain.Master.value(), 80);
    EXPECT_EQ(app.frmrandommain3.Master.value(), 80);
    expectChannelsAtTheLaw("after a move on a bank");

    // A move that lands exactly on the kept level still unmutes everything.
    app.frmmain.mnuMute().click();
    app.frmmain.Master.setValue(80);
    EXPECT_FALSE(app.frmmain.mnuMute().checked());
    EXPECT_EQ(app.frmback.Master.value(), 80);
    expectChannelsAtTheLaw("after a move onto the kept level");
}

TEST_F(Console, QuittingWhileMutedKeepsMasterAtZeroForTheNextStart) {
    Application& app = start();
    app.frmmain.Master.setValue(70);
    app.frmmain.mnuMute().click();
    app.frmmain.mnutray.find("Quit App")->click();

    EXPECT_EQ(h.exits, std::vector<ExitKind>{ExitKind::AfterCleanUp});
    EXPECT_FALSE(h.engine.started());
    EXPECT_EQ(app.frmmain.Master.value(), 0);
    // The session keeps that 0, so the next start's intro fade has nothing to do.
    const auto mainb = readWholeFile(h.tree.root() / "mainb.tmp");
    ASSERT_TRUE(mainb.has_value());
    const SessionRead<MainbRecord> read = readMainbFile(*mainb);
    ASSERT_TRUE(read.has(1));
    EXPECT_EQ(read.record.groups[0], 0);
}

// ---- status displays ----

TEST_F(Console, DisplaysCarryTheirCaptionsAndTheirIdleTexts) {
    Application& app = start();
    Frmmain& c = app.frmmain;
    const auto lines = [](const LcdDisplay& d) {
        return std::vector<std::string>{d.line(1), d.line(2), d.line(3), d.line(4)};
    };
    using L = std::vector<std::string>;
    EXPECT_EQ(lines(c.LCD1), (L{"Scenario", "Previous", "", "N/A"}));
    EXPECT_EQ(lines(c.LCD3), (L{"Scheduler", "Playlist", "Disabled", "N/A"}));
    EXPECT_EQ(lines(c.LCD4), (L{"Weather", "Night", "Static", "Disabled"}));
    EXPECT_EQ(lines(c.LCD5), (L{"Preset", "", "Unassigned", ""}));
    EXPECT_EQ(lines(c.LCD6), (L{"Reverb", "Equalizer", "Disabled", "Disabled"}));
    EXPECT_EQ(lines(c.LCD8), (L{"Bwaves", "", "Disabled", "None"}));
    EXPECT_EQ(c.LCD2.line(1), "Time");
    EXPECT_EQ(c.LCD2.line(2), "Alarm");
    EXPECT_EQ(c.LCD2.line(4), "Disabled ");
    EXPECT_EQ(c.LCD7.line(1), "Bank");

    // A caption written over is put back by its display's entry.
    c.LCD2.setLine(1, "12:00:00");
    c.LCD6.setLine(2, "x");
    c.loadlcd2();
    c.loadlcd6();
    EXPECT_EQ(c.LCD2.line(1), "Time");
    EXPECT_EQ(c.LCD6.line(2), "Equalizer");
    // Lines outside 1 to 4 are not there.
    c.LCD2.setLine(5, "x");
    EXPECT_EQ(c.LCD2.line(5), "");
    EXPECT_EQ(c.LCD2.line(0), "");
}

TEST_F(Console, ChecklcdShowsTheStateOfThePanels) {
    Application& app = start();
    Frmmain& c = app.frmmain;

    app.CurrentScenarioName = "Evening Rain";
    app.weatherStatus = "Heavy Storm";
    app.nightStatus = "Enabled";
    c.carry.PresetListName = "Favourites";
    // Nothing moves until the refresh.
    EXPECT_EQ(c.LCD1.line(3), "");
    c.checklcd();
    EXPECT_EQ(c.LCD1.line(3), "Evening Rain");
    EXPECT_EQ(c.LCD4.line(3), "Heavy Storm");
    EXPECT_EQ(c.LCD4.line(4), "Enabled");
    EXPECT_EQ(c.LCD5.line(3), "Presets: Favourites");

    // A cleared list is named "None"; no list at all is "Unassigned".
    c.carry.PresetListName = "None";
    c.checklcd();
    EXPECT_EQ(c.LCD5.line(3), "Presets: None");
    c.carry.PresetListName.clear();
    app.weatherStatus = "Static";
    app.nightStatus = "Disabled";
    c.checklcd();
    EXPECT_EQ(c.LCD5.line(3), "Unassigned");
    EXPECT_EQ(c.LCD4.line(3), "Static");
    EXPECT_EQ(c.LCD4.line(4), "Disabled");

    // updatelcd4 alone touches display 4 only.
    app.weatherStatus = "Light Shower";
    app.CurrentScenarioName = "Not Shown Yet";
    c.updatelcd4();
    EXPECT_EQ(c.LCD4.line(3), "Light Shower");
    EXPECT_EQ(c.LCD1.line(3), "Evening Rain");

    // A load's "Waiting...." on the sound's line outlives a refresh.
    c.LCD7.setLine(4, "Waiting....");
    c.checklcd();
    EXPECT_EQ(c.LCD7.line(4), "Waiting....");

    c.updatelcdplaylist("Weekend");
    EXPECT_EQ(c.LCD3.line(4), "Weekend");
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
    EXPECT_FALSE(app.frmmain.Timer2.enabled());
    h.loop.advance(5000);
    EXPECT_EQ(app.frmmain.LCD2.line(3), "22:00:00");
}

TEST_F(Console, TheLatestSoundAndItsBankFollowTheIdentifyPanel) {
    Application& app = start();
    app.frmrandommain2.fire(20);
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(app.frmmain.LCD7.line(3), app.frmrandommain2.slot(20).name.caption());
    EXPECT_EQ(app.frmmain.LCD7.line(4), "Bank 2 - column 2");
}

TEST_F(Console, ACustomBankChangeRefreshesTheDisplaysOnceAfterThreeSeconds) {
    Application& app = start();
    // Past the first run's own refresh.
    h.loop.advance(Frmmain::kFirstRunMs);
    app.CurrentScenarioName = "";
    app.frmmain.checklcd();
    // A slot of the custom random bank renamed.
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
    EXPECT_FALSE(app.frmmain.Timercustomlcdupdate.enabled());

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
    h.writeFile("config/scenarios/notes.txt", "x");
    std::filesystem::create_directories(h.tree.root() / "config/scenarios/folder.scn");
    Application& app = start();
    Frmmain& c = app.frmmain;

    EXPECT_TRUE(c.trayIcon.visible());
    EXPECT_EQ(c.trayIcon.toolTip(), "Brevane");
    using L = std::vector<std::string>;
    EXPECT_EQ(c.mnutray.captions(), (L{"Slideshow", "Movie", "Panoramic", "-", "Scenario", "Mute",
                                       "Show Remote", "Show Main", "Quit App"}));
    EXPECT_EQ(c.mnuScenario().captions(), (L{"Autumn Wind", "Summer Storm", "-",
                                             "Load Random Scenario", "Load Scenario From Disk"}));
    EXPECT_EQ(c.scenarioList.items(), (L{"Autumn Wind", "Summer Storm"}));

    // Without the scenario files in the program the entries wait, disabled.
    MenuEntry& storm = *c.mnuScenario().find("Summer Storm");
    EXPECT_FALSE(storm.enabled());
    std::vector<std::string> loaded;
    c.scenarioLoader = [&](const std::string& name) { loaded.push_back(name); };
    c.buildScenarioMenu();
    ASSERT_TRUE(c.mnuScenario().find("Summer Storm")->enabled());
    c.mnuScenario().find("Summer Storm")->click();
    EXPECT_EQ(loaded, L{"Summer Storm"});

    // "Show Main" brings the console back.
    c.window.hide();
    c.mnutray.find("Show Main")->click();
    EXPECT_TRUE(c.window.visible());
}

TEST_F(Console, TrayScenarioMenuHoldsOnlyTheCommandsWithoutScenarios) {
    Application& app = start();
    using L = std::vector<std::string>;
    EXPECT_EQ(app.frmmain.mnuScenario().captions(),
              (L{"Load Random Scenario", "Load Scenario From Disk"}));
    EXPECT_EQ(app.frmmain.scenarioList.count(), 0);
}

// ---- buttons ----

TEST_F(Console, RecStartsTheRecorderBesideTheProgramOrSaysItIsMissing) {
    Application& app = start();
    app.frmmain.recButton.click();
    ASSERT_EQ(launcher.started.size(), 1u);
    EXPECT_EQ(launcher.started[0], h.tree.root() / "recorder");
    EXPECT_EQ(h.dialogs.messages(),
              std::vector<std::string>{"The recorder could not be found. Please re-install "
                                       "the program."});

    h.dialogs.clear();
    launcher.accept = true;
    app.frmmain.recButton.click();
    EXPECT_EQ(launcher.started.size(), 2u);
    EXPECT_TRUE(h.dialogs.messages().empty());
}

TEST_F(Console, HelpOpensTheManualInTheTreeAndReportsNothing) {
    Application& app = start();
    app.frmmain.helpButton.click();
    desktop.accept = false;
    app.frmmain.helpButton.click();
    EXPECT_EQ(desktop.opened,
              (std::vector<std::filesystem::path>{h.tree.root() / "help/index.html",
                                                  h.tree.root() / "help/index.html"}));
    EXPECT_TRUE(h.dialogs.shown().empty());
}

TEST_F(Console, PanelButtonsShowPanelsAlreadyInBeing) {
    Application& app = start();
    Frmmain& c = app.frmmain;
    c.optionsButton.click();
    EXPECT_TRUE(app.FRMOPTIONS.window.visible());
    c.background2Button.click();
    EXPECT_TRUE(app.frmback2.window.visible());
    c.customBackgroundButton.click();
    EXPECT_TRUE(app.frmbackcustom.window.visible());
    c.identifyButton.click();
    EXPECT_TRUE(app.Frmsoundindent.window.visible());
}

}  // namespace
}  // namespace brevane
