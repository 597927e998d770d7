// Start-up, the console's group sliders, Master Stop and quit, on the whole
// Application with a recording engine.

#include "core/application.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/app_harness.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;
using Harness = test::AppHarness<RecordingEngine>;

std::vector<ChannelHandle> stoppedChannels(const RecordingEngine& engine) {
    std::vector<ChannelHandle> channels;
    for (const auto& call : engine.callsOf(Op::Stop)) {
        channels.push_back(static_cast<ChannelHandle>(call.a));
    }
    return channels;
}

TEST(StartUp, SplashHandsOverToTheLoadWhichOpensTheEngineAndLoadsEveryBank) {
    Harness h;
    Application& app = h.build();
    app.start();
    EXPECT_TRUE(app.STARTUP.window.visible());
    EXPECT_FALSE(app.frmmain.window.visible());
    EXPECT_TRUE(h.engine.calls().empty());

    h.loop.advance(StartupSplash::kHandOverMs);
    EXPECT_FALSE(app.STARTUP.window.visible());
    EXPECT_TRUE(app.frmmain.window.visible());
    EXPECT_FALSE(app.STARTUP.Timer1.enabled());
    ASSERT_FALSE(h.engine.callsOf(Op::Start).empty());
    EXPECT_EQ(h.engine.calls().front().op, Op::Start);
    EXPECT_EQ(h.engine.callsOf(Op::Start).front().a, 0);  // no scard.tmp: device 0
    EXPECT_EQ(h.engine.loadedCount(), 4u * 28u);
    EXPECT_EQ(app.CurrentRandomBank, 1);
    EXPECT_TRUE(h.exits.empty());
    // Banks stay hidden until asked for; every scheduler runs.
    for (RandomBank* bank : app.randomBanks()) {
        EXPECT_FALSE(bank->window.visible());
        EXPECT_TRUE(bank->Timer2.enabled());
    }
    EXPECT_TRUE(app.Frmsoundindent.Timer1.enabled());
}

TEST(StartUp, BanksLoadTheirFileRunsInSlotOrder) {
    Harness h;
    h.startAndLoad();
    const auto loads = h.engine.callsOf(Op::LoadSample);
    ASSERT_EQ(loads.size(), 112u);
    const auto file = [&](std::size_t i) { return loads[i].path.filename().string(); };
    EXPECT_EQ(file(0), "101.raz");
    EXPECT_EQ(file(27), "128.raz");
    EXPECT_EQ(file(28), "51.raz");
    EXPECT_EQ(file(55), "78.raz");
    EXPECT_EQ(file(56), "151.raz");
    EXPECT_EQ(file(84), "201.raz");
    EXPECT_EQ(file(111), "228.raz");
    EXPECT_EQ(loads[0].path, h.tree.root() / "bin" / "101.raz");
}

TEST(StartUp, OpensTheDeviceSavedInTheSoundCardFile) {
    Harness h;
    h.writeFile("scard.tmp", "3\r\n");
    Application& app = h.startAndLoad();
    EXPECT_EQ(h.engine.callsOf(Op::Start).front().a, 3);
    EXPECT_EQ(app.SoundCardIndex, 3);
}

TEST(StartUp, ADamagedSoundCardFileMeansDeviceZero) {
    for (const char* content : {"", "\"abc\"\r\n", "\"unclosed"}) {
        Harness h;
        h.writeFile("scard.tmp", content);
        h.startAndLoad();
        EXPECT_EQ(h.engine.callsOf(Op::Start).front().a, 0) << content;
        EXPECT_TRUE(h.exits.empty());
    }
}

TEST(StartUp, EngineFailureTellsTheUserAndEndsAtOnceWithNothingElseDone) {
    Harness h;
    h.engine.setStartResult(false);
    Application& app = h.startAndLoad();

    ASSERT_EQ(h.dialogs.messages().size(), 1u);
    EXPECT_EQ(h.dialogs.messages()[0],
              "There was a problem initializing the sound engine. Please restart the "
              "application. If the problem persists, please contact support.");
    EXPECT_EQ(h.dialogs.shown()[0].messageKind, MessageKind::Information);
    ASSERT_EQ(h.exits.size(), 1u);
    EXPECT_EQ(h.exits[0], ExitKind::Immediate);
    EXPECT_EQ(app.exitRequested(), ExitKind::Immediate);
    // Nothing after the engine: no samples, no schedulers, no fade, no files.
    EXPECT_EQ(h.engine.loadedCount(), 0u);
    EXPECT_EQ(h.loop.nextDeadline(), std::nullopt);
    EXPECT_FALSE(app.frmmain.window.visible());
    EXPECT_TRUE(h.treeFiles().empty());
}

TEST(IntroFade, RaisesMasterAStepATickAndStopsAtTheSavedLevel) {
    Harness h;
    Application& app = h.build();
    app.SavedMasterLevel = 40;
    h.startAndLoad();
    EXPECT_EQ(app.frmmain.Master.value(), 2);
    EXPECT_TRUE(app.frmmain.TimerIntroVolFade.enabled());

    h.loop.advance(Frmmain::kIntroFadeMs);
    EXPECT_EQ(app.frmmain.Master.value(), 3);
    // Every bank's copy follows the console on each step.
    EXPECT_EQ(app.frmrandommain3.Master.value(), 3);

    h.loop.advance(Frmmain::kIntroFadeMs * 37);
    EXPECT_EQ(app.frmmain.Master.value(), 40);
    EXPECT_FALSE(app.frmmain.TimerIntroVolFade.enabled());
    h.loop.advance(10'000);
    EXPECT_EQ(app.frmmain.Master.value(), 40);
    for (RandomBank* bank : app.randomBanks()) {
        EXPECT_EQ(bank->Master.value(), 40);
    }
}

TEST(IntroFade, ASavedLevelBelowTheStartStopsAtOnce) {
    Harness h;
    Application& app = h.build();
    app.SavedMasterLevel = 0;  // a muted session was saved
    h.startAndLoad();
    h.loop.advance(Frmmain::kIntroFadeMs);
    EXPECT_FALSE(app.frmmain.TimerIntroVolFade.enabled());
    EXPECT_EQ(app.frmmain.Master.value(), 2);
}

TEST(IntroFade, ALevelPastTheTopEndsAtTheTop) {
    Harness h;
    Application& app = h.build();
    app.SavedMasterLevel = 1000;
    h.startAndLoad();
    h.loop.advance(Frmmain::kIntroFadeMs * 200);
    EXPECT_EQ(app.frmmain.Master.value(), app.frmmain.Master.high());
    EXPECT_FALSE(app.frmmain.TimerIntroVolFade.enabled());
}

TEST(GroupSliders, MasterRecomputesThePlayingChannelsOfEveryBankButSlotOne) {
    Harness h;
    Application& app = h.startAndLoad();
    app.frmmain.Random.setValue(100);
    for (RandomBank* bank : app.randomBanks()) {
        bank->previewSlot(1);
        bank->previewSlot(7);
    }
    h.engine.clearCalls();
    app.frmmain.Master.setValue(90);

    for (RandomBank* bank : app.randomBanks()) {
        const ChannelHandle slot1 = bank->slot(1).channel;
        const ChannelHandle slot7 = bank->slot(7).channel;
        bool sawSlot7 = false;
        for (const auto& call : h.engine.callsOf(Op::SetVolume)) {
            EXPECT_NE(call.a, slot1);
            if (call.a == slot7) {
                sawSlot7 = true;
                EXPECT_EQ(call.b, 236);  // 90 x (100 / 600) x (220 / 14) = 235.7
            }
        }
        EXPECT_TRUE(sawSlot7) << bank->config().heading;
    }
    // 27 slots of 4 banks, all 28 of the custom random bank and the 17 of each
    // background bank, each once.
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume).size(), 4u * 27u + 28u + 3u * 17u);
}

TEST(RandomButton, ShowsTheBankLastShown) {
    Harness h;
    Application& app = h.startAndLoad();
    app.frmmain.randomButton.click();
    EXPECT_TRUE(app.frmrandommain.window.visible());

    std::vector<std::pair<const PanelWindow*, const PanelWindow*>> placed;
    app.placeWindow = [&](const PanelWindow& target, const PanelWindow& reference) {
        placed.emplace_back(&target, &reference);
    };
    app.frmrandommain.bankButtons[2].click();
    ASSERT_EQ(placed.size(), 1u);
    EXPECT_EQ(placed[0].first, &app.frmrandommain3.window);
    EXPECT_EQ(placed[0].second, &app.frmrandommain.window);
    EXPECT_FALSE(app.frmrandommain.window.visible());
    EXPECT_TRUE(app.frmrandommain3.window.visible());
    EXPECT_EQ(app.CurrentRandomBank, 3);
    EXPECT_FALSE(app.frmrandommain3.bankButtons[2].enabled());

    app.frmrandommain3.window.hide();
    app.frmmain.randomButton.click();
    EXPECT_TRUE(app.frmrandommain3.window.visible());
    EXPECT_FALSE(app.frmrandommain.window.visible());

    // "Main" gives the bank's place back to the console.
    app.frmmain.window.hide();
    app.frmrandommain3.mainButton.click();
    EXPECT_TRUE(app.frmmain.window.visible());
    EXPECT_FALSE(app.frmrandommain3.window.visible());
    EXPECT_EQ(placed.back().first, &app.frmmain.window);
}

TEST(MasterStop, ZeroesEverySlotSliderAndStopsSlotsFiveOnLeavingEngineAndMaster) {
    Harness h;
    Application& app = h.startAndLoad();
    app.frmmain.Master.setValue(60);
    for (RandomBank* bank : app.randomBanks()) {
        for (int s = 1; s <= 28; ++s) {
            bank->previewSlot(s);
            bank->slot(s).frequency.setValue(200);
        }
    }
    h.engine.clearCalls();
    app.frmmain.masterStopButton.click();

    EXPECT_EQ(app.frmmain.Master.value(), 60);
    EXPECT_TRUE(h.engine.callsOf(Op::Close).empty());
    EXPECT_TRUE(h.engine.started());
    std::vector<ChannelHandle> expected;
    for (RandomBank* bank : app.randomBanks()) {
        for (int s = 1; s <= 28; ++s) {
            EXPECT_EQ(bank->slot(s).volume.value(), 0);
            EXPECT_EQ(bank->slot(s).frequency.value(), 0);
        }
        for (int s = 5; s <= 28; ++s) {
            expected.push_back(bank->slot(s).channel);
        }
        // Slots 1 to 4 ring out.
        for (int s = 1; s <= 4; ++s) {
            EXPECT_TRUE(h.engine.channel(bank->slot(s).channel)->playing);
        }
    }
    EXPECT_EQ(stoppedChannels(h.engine), expected);
    // Zeroed sliders silenced the latest plays before the stops.
    EXPECT_EQ(h.engine.channel(app.frmrandommain2.slot(2).channel)->volume, 0);
    // And nothing fires again.
    h.engine.clearCalls();
    h.loop.advance(600'000);
    EXPECT_TRUE(h.engine.callsOf(Op::Play).empty());
}

TEST(Quit, HidesClosesTheEngineStopsEveryTimerAndEnds) {
    Harness h;
    Application& app = h.startAndLoad();
    app.frmmain.randomButton.click();
    app.frmmain.identifyButton.click();
    app.frmrandommain.slot(3).frequency.setValue(255);

    app.frmmain.QuitCommand.click();
    EXPECT_FALSE(app.frmmain.window.visible());
    EXPECT_FALSE(app.frmrandommain.window.visible());
    EXPECT_FALSE(app.Frmsoundindent.window.visible());
    EXPECT_FALSE(h.engine.started());
    ASSERT_EQ(h.exits, std::vector<ExitKind>{ExitKind::AfterCleanUp});
    EXPECT_EQ(h.loop.nextDeadline(), std::nullopt);

    // A second request (a signal during the quit) changes nothing.
    const auto callsBefore = h.engine.calls().size();
    app.frmmain.quitWithoutAsking();
    EXPECT_EQ(h.engine.calls().size(), callsBefore);
    EXPECT_EQ(h.exits.size(), 1u);
}

TEST(Quit, HidesThePanelsBeforeTheEngineCloses) {
    Harness h;
    Application& app = h.startAndLoad();
    app.frmmain.identifyButton.click();
    bool engineOpenWhenHidden = false;
    app.Frmsoundindent.window.watch([&] { engineOpenWhenHidden = h.engine.started(); });
    app.frmmain.quitWithoutAsking();
    EXPECT_TRUE(engineOpenWhenHidden);
    EXPECT_FALSE(h.engine.started());
}

}  // namespace
}  // namespace brevane
