// Start-up, the intro fade, the Random button, Master Stop and quit, on the whole
// Application with a recording engine.

#include "core/application.h"

#include <gtest/gtest.h>

#include "core/app_harness.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;
using Harness = test::AppHarness<RecordingEngine>;

TEST(StartUp, SplashHandsOverToTheLoadWhichOpensTheEngineThenLoadsEveryBankInSlotOrder) {
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
    ASSERT_FALSE(h.engine.calls().empty());
    EXPECT_EQ(h.engine.calls().front().op, Op::Start);
    EXPECT_EQ(h.engine.calls().front().a, 0);  // no scard.tmp: device 0
    EXPECT_EQ(app.CurrentRandomBank, 1);
    EXPECT_TRUE(h.exits.empty());
    // Banks stay hidden until asked for; every scheduler runs.
    for (RandomBank* bank : app.randomBanks()) {
        EXPECT_FALSE(bank->window.visible());
        EXPECT_TRUE(bank->Timer2.enabled());
    }
    EXPECT_TRUE(app.Frmsoundindent.Timer1.enabled());

    // Bank 1, 2, 3, 4, each's file run in slot order; then the beat generator's tones.
    const auto loads = h.engine.callsOf(Op::LoadSample);
    ASSERT_EQ(loads.size(), 4u * 28u + 2u);
    const std::pair<std::size_t, const char*> files[] = {
        {0, "101.raz"}, {27, "128.raz"}, {28, "51.raz"}, {56, "151.raz"}, {111, "228.raz"}};
    for (const auto& [i, name] : files) {
        EXPECT_EQ(loads[i].path, h.tree.root() / "bin" / name);
    }
}

TEST(StartUp, EngineFailureTellsTheUserAndEndsAtOnceWithNothingElseDone) {
    Harness h;
    h.engine.setStartResult(false);
    Application& app = h.startAndLoad();

    EXPECT_EQ(h.dialogs.messages(),
              std::vector<std::string>{
                  "There was a problem initializing the sound engine. Please restart the "
                  "application. If the problem persists, please contact support."});
    EXPECT_EQ(h.dialogs.shown()[0].messageKind, MessageKind::Information);
    EXPECT_EQ(h.exits, std::vector<ExitKind>{ExitKind::Immediate});
    // Nothing after the engine: no samples, no schedulers, no fade, no files.
    EXPECT_EQ(h.engine.loadedCount(), 0u);
    EXPECT_EQ(h.loop.nextDeadline(), std::nullopt);
    EXPECT_FALSE(app.frmmain.window.visible());
    EXPECT_TRUE(h.treeFiles().empty());
}

TEST(IntroFade, RaisesMasterAStepATickToTheSavedLevelWithinTheSlidersRange) {
    for (const auto& [saved, end] : {std::pair{40, 40}, {0, 2}, {1000, 100}}) {
        Harness h;
        Application& app = h.build();
        app.SavedMasterLevel = saved;
        h.startAndLoad();
        EXPECT_EQ(app.frmmain.Master.value(), 2);
        h.loop.advance(Frmmain::kIntroFadeMs);
        if (saved == 40) {
            EXPECT_EQ(app.frmmain.Master.value(), 3);
            // Every bank's copy follows the console on each step.
            EXPECT_EQ(app.frmrandommain3.Master.value(), 3);
        }
        h.loop.advance(Frmmain::kIntroFadeMs * 200);
        EXPECT_EQ(app.frmmain.Master.value(), end) << saved;
        EXPECT_EQ(app.frmback2.Master.value(), end) << saved;
        EXPECT_FALSE(app.frmmain.TimerIntroVolFade.enabled()) << saved;
    }
}

TEST(RandomButton, ShowsTheBankLastShownAndMainGivesThePlaceBack) {
    Harness h;
    Application& app = h.startAndLoad();
    std::vector<std::pair<const PanelWindow*, const PanelWindow*>> placed;
    app.placeWindow = [&](const PanelWindow& target, const PanelWindow& reference) {
        placed.emplace_back(&target, &reference);
    };
    app.frmmain.randomButton.click();
    app.frmrandommain.bankButtons[2].click();
    ASSERT_EQ(placed.size(), 1u);
    EXPECT_EQ(placed[0], std::pair(static_cast<const PanelWindow*>(&app.frmrandommain3.window),
                                   static_cast<const PanelWindow*>(&app.frmrandommain.window)));
    EXPECT_FALSE(app.frmrandommain.window.visible());

    app.frmmain.window.hide();
    app.frmrandommain3.mainButton.click();
    EXPECT_TRUE(app.frmmain.window.visible());
    EXPECT_FALSE(app.frmrandommain3.window.visible());
    EXPECT_EQ(placed.back().first, &app.frmmain.window);
}

// Each bank's own stops and zeroing are the banks' tests'; here, the console's button
// reaching every fixed bank and leaving Master and the engine alone.
TEST(MasterStop, ReachesEveryFixedBankAndLeavesEngineAndMaster) {
    Harness h;
    Application& app = h.startAndLoad();
    app.frmmain.Master.setValue(60);
    for (RandomBank* bank : app.randomBanks()) {
        bank->previewSlot(5);
        bank->slot(28).frequency.setValue(200);
    }
    app.frmmain.masterStopButton.click();
    EXPECT_EQ(app.frmmain.Master.value(), 60);
    EXPECT_TRUE(h.engine.started());
    for (RandomBank* bank : app.randomBanks()) {
        EXPECT_EQ(bank->slot(28).frequency.value(), 0);
        EXPECT_EQ(bank->slot(1).volume.value(), 0);
        EXPECT_FALSE(h.engine.channel(bank->slot(5).channel)->playing);
    }
}

TEST(Quit, HidesThePanelsThenClosesTheEngineStopsEveryTimerAndEndsOnce) {
    Harness h;
    Application& app = h.startAndLoad();
    app.frmmain.randomButton.click();
    app.frmmain.identifyButton.click();
    bool engineOpenWhenHidden = false;
    app.Frmsoundindent.window.watch([&] { engineOpenWhenHidden = h.engine.started(); });

    app.frmmain.QuitCommand.click();
    EXPECT_TRUE(engineOpenWhenHidden);
    EXPECT_FALSE(app.frmmain.window.visible());
    EXPECT_FALSE(app.frmrandommain.window.visible());
    EXPECT_FALSE(h.engine.started());
    ASSERT_EQ(h.exits, std::vector<ExitKind>{ExitKind::AfterCleanUp});
    EXPECT_EQ(h.loop.nextDeadline(), std::nullopt);

    // A second request (a signal during the quit) changes nothing.
    const auto callsBefore = h.engine.calls().size();
    app.frmmain.quitWithoutAsking();
    EXPECT_EQ(h.engine.calls().size(), callsBefore);
    EXPECT_EQ(h.exits.size(), 1u);
}

}  // namespace
}  // namespace brevane
