// The Identify panel: its two lists, the 200 ms refresh of the console's fields, the
// trimming, "Clear List" and the bank buttons.

#include "banks/random/identify_panel.h"

#include <gtest/gtest.h>

#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

class IdentifyPanelTest : public ::testing::Test {
  protected:
    void SetUp() override { app = &h.startAndLoad(); }
    IdentifyPanel& panel() { return app->Frmsoundindent; }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
};

TEST_F(IdentifyPanelTest, WithNoFiringTheConsoleShowsWaiting) {
    EXPECT_EQ(panel().soundPlaying.items(), std::vector<std::string>{"Waiting..."});
    EXPECT_EQ(panel().location.items(), std::vector<std::string>{"Waiting..."});
    EXPECT_EQ(app->frmmain.latestSoundName.text(), "");
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(app->frmmain.latestSoundName.text(), "Waiting...");
    EXPECT_EQ(app->frmmain.latestSoundLocation.text(), "Waiting...");
    h.loop.advance(60'000);
    EXPECT_EQ(panel().soundPlaying.count(), 1);
}

TEST_F(IdentifyPanelTest, TheRefreshShowsTheLatestFiringWithinOneTick) {
    h.loop.advance(IdentifyPanel::kRefreshMs);
    app->frmrandommain2.fire(8);
    EXPECT_EQ(app->frmmain.latestSoundName.text(), "Waiting...");
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(app->frmmain.latestSoundName.text(), "Prarie cicada");
    EXPECT_EQ(app->frmmain.latestSoundLocation.text(), "Bank 2 - column 1");
    EXPECT_EQ(panel().soundPlaying.listIndex(), 1);
    EXPECT_EQ(panel().location.listIndex(), 1);
}

TEST_F(IdentifyPanelTest, EachRefreshTrimsOneRowFromAListOfMoreThan20) {
    for (int i = 0; i < 25; ++i) {
        app->frmrandommain.fire(1 + i % 14);
    }
    ASSERT_EQ(panel().soundPlaying.count(), 26);
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(panel().soundPlaying.count(), 25);
    EXPECT_EQ(panel().soundPlaying.item(0), "Barn owl 1");
    h.loop.advance(IdentifyPanel::kRefreshMs * 10);
    EXPECT_EQ(panel().soundPlaying.count(), 20);
    EXPECT_EQ(panel().location.count(), 20);
    // The newest rows stay, and stay selected.
    EXPECT_EQ(panel().soundPlaying.items().back(), "Seagulls 1");  // the 25th firing, slot 11
    EXPECT_EQ(panel().soundPlaying.listIndex(), 19);
}

TEST_F(IdentifyPanelTest, ClearListLeavesWaitingUntilTheNextFiring) {
    app->frmrandommain3.fire(2);
    h.loop.advance(IdentifyPanel::kRefreshMs);
    panel().clearList.click();
    EXPECT_EQ(panel().soundPlaying.items(), std::vector<std::string>{"Waiting..."});
    EXPECT_EQ(panel().location.items(), std::vector<std::string>{"Waiting..."});
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(app->frmmain.latestSoundName.text(), "Waiting...");
    app->frmrandommain3.fire(3);
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(app->frmmain.latestSoundName.text(), "Cow moo 3");
}

TEST_F(IdentifyPanelTest, BankButtonsHideTheConsoleAndBanksAndShowTheChosenBank) {
    app->frmrandommain.show();
    app->frmrandommain2.show();
    panel().window.show();
    std::vector<std::pair<const PanelWindow*, const PanelWindow*>> placed;
    app->placeWindow = [&](const PanelWindow& target, const PanelWindow& reference) {
        placed.emplace_back(&target, &reference);
    };
    panel().bankButtons[3].click();
    // The bank takes the console's place on screen.
    ASSERT_EQ(placed.size(), 1u);
    EXPECT_EQ(placed[0].first, &app->frmrandommain4.window);
    EXPECT_EQ(placed[0].second, &app->frmmain.window);
    EXPECT_FALSE(app->frmmain.window.visible());
    EXPECT_FALSE(app->frmrandommain.window.visible());
    EXPECT_FALSE(app->frmrandommain2.window.visible());
    EXPECT_TRUE(app->frmrandommain4.window.visible());
    EXPECT_TRUE(panel().window.visible());
    EXPECT_EQ(app->CurrentRandomBank, 4);
}

}  // namespace
}  // namespace brevane
