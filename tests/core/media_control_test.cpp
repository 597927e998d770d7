// The soundscape as the desktop's media keys see it: pause is the console's mute and
// play brings the level back, next and previous go round the scenario list, the volume
// is Master, and every change is announced.

#include <gtest/gtest.h>

#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

class MediaKeys : public ::testing::Test {
  protected:
    void SetUp() override {
        h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
        for (const char* name : {"Brook", "Coast", "Dunes"}) {
            h.writeFile(std::string("config/scenarios/") + name + ".scn", "x");
        }
        app = &h.startAndLoad();
        app->frmmain.Master.setValue(80);
        media().onChanged = [this] { ++announced; };
    }
    MediaControl& media() { return app->media; }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
    int announced = 0;
};

TEST_F(MediaKeys, PauseSilencesAndPlayBringsTheLevelBack) {
    EXPECT_TRUE(media().playing());
    EXPECT_DOUBLE_EQ(media().volume(), 0.8);
    media().pause();
    EXPECT_FALSE(media().playing());
    EXPECT_EQ(app->frmmain.Master.value(), 0);
    media().pause();
    EXPECT_FALSE(media().playing());
    media().play();
    EXPECT_TRUE(media().playing());
    EXPECT_EQ(app->frmmain.Master.value(), 80);
    media().playPause();
    media().playPause();
    EXPECT_TRUE(media().playing());
    EXPECT_EQ(app->frmmain.Master.value(), 80);
    EXPECT_GE(announced, 3);

    // A volume from outside is a hand on Master, and ends a pause.
    media().pause();
    media().setVolume(0.25);
    EXPECT_TRUE(media().playing());
    EXPECT_EQ(app->frmmain.Master.value(), 25);
    media().setVolume(7);
    EXPECT_DOUBLE_EQ(media().volume(), 1.0);
}

TEST_F(MediaKeys, NextAndPreviousGoRoundTheScenarioListAndTheTitleFollows) {
    EXPECT_EQ(media().title(), MediaControl::kIdentity);
    media().previous();
    EXPECT_EQ(media().title(), "Dunes");
    media().next();
    EXPECT_EQ(media().title(), "Brook");
    const int before = announced;
    media().next();
    EXPECT_EQ(media().title(), "Coast");
    EXPECT_GT(announced, before);
    media().previous();
    media().previous();
    EXPECT_EQ(media().title(), "Dunes");
}

}  // namespace
}  // namespace brevane
