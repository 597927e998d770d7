// The CD player on a disc image the test writes (raw CD audio sectors of tones, one
// tone a track, and its cue sheet), read through libcdio as a drive would be, and
// heard through the real mixer rendering offline.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "core/app_harness.h"
#include "core/application.h"
#include "engine/mixer_engine.h"
#include "engine/music_stream.h"
#include "engine/test_sounds.h"
#include "media/cd_drive.h"
#include "media/cd_image.h"

namespace brevane {
namespace {

class CdPlayer : public ::testing::Test {
  protected:
    void SetUp() override {
        image = test::writeCdImage(h.tree.root(), {{440, 2}, {660, 3}, {880, 2}});
        drives = std::make_unique<CdioDrives>(std::vector<std::string>{image});
        h.cdDrives = drives.get();
        app = &h.startAndLoad();
    }
    Frmcd& cd() { return app->frmcd; }
    std::string shown() {
        h.loop.advance(Frmcd::kClockMs);
        return cd().LCD1.line(1);
    }
    std::vector<float> left(int frames) { return test::side(h.engine.render(frames), 0); }

    test::AppHarness<MixerEngine> h{5, MixerEngine::Output::Offline};
    std::string image;
    std::unique_ptr<CdioDrives> drives;
    Application* app = nullptr;
};

TEST_F(CdPlayer, StepsThroughTheTracksWrappingAtBothEndsAndShowsThePlace) {
    app->frmmain.cdButton.click();
    EXPECT_TRUE(cd().window.visible());
    EXPECT_EQ(cd().LCD1.line(2), "Current Drive = " + image);
    EXPECT_EQ(cd().LCD1.line(3), "CD Volume: 100 %");
    EXPECT_EQ(app->frmmain.CD.value(), 100);
    EXPECT_EQ(cd().deck.trackCount(), 3);
    EXPECT_EQ(shown(), "[01] 00:00");

    // Stopped, the steps only move the place.
    cd().cmdprevious.click();
    EXPECT_EQ(shown(), "[03] 00:00");
    cd().cmdnext.click();
    EXPECT_EQ(shown(), "[01] 00:00");
    cd().cmdnext.click();
    cd().cmdplay.click();
    left(44100 * 3 / 2);
    EXPECT_EQ(shown(), "[02] 00:01");
    EXPECT_NEAR(test::measureFrequency(left(4410), 44100), 660, 5);

    // Playing, a step plays on from the new track.
    cd().cmdnext.click();
    EXPECT_EQ(shown(), "[03] 00:00");
    EXPECT_NEAR(test::measureFrequency(left(4410), 44100), 880, 5);
    cd().cmdnext.click();
    EXPECT_EQ(shown(), "[01] 00:00");
    EXPECT_NEAR(test::measureFrequency(left(4410), 44100), 440, 5);
    EXPECT_TRUE(cd().deck.playing());
}

TEST_F(CdPlayer, TheDiscIsHeardAtTheLinesLevelAndPauseAndStopSilenceIt) {
    EXPECT_EQ(cdLineVolume(100), 0);
    EXPECT_EQ(cdLineVolume(50), -602);
    EXPECT_EQ(cdLineVolume(0), -10000);

    app->frmmain.cdButton.click();
    cd().cmdplay.click();
    left(4096);  // past the start's ramp
    const double full = test::rms(left(8192));
    EXPECT_NEAR(full, 0.5 / std::numbers::sqrt2, 0.01);
    cd().hscroll1.setValue(50);
    EXPECT_EQ(app->frmmain.CD.value(), 50);
    EXPECT_EQ(cd().LCD1.line(3), "CD Volume: 50 %");
    left(4096);
    EXPECT_NEAR(test::rms(left(8192)) / full, 0.5, 0.01);

    cd().cmdpause.click();
    left(4096);
    EXPECT_EQ(test::peak(left(8192)), 0.0);
    const std::string paused = shown();
    cd().cmdplay.click();
    left(4096);
    EXPECT_GT(test::rms(left(4096)), 0.1);

    cd().cmdstop.click();
    EXPECT_EQ(cd().LCD1.line(1), "CD Stopped");
    left(4096);
    EXPECT_EQ(test::peak(left(8192)), 0.0);
    EXPECT_EQ(shown(), "[01] 00:00");
    EXPECT_EQ(paused, "[01] 00:00");

    // The MP3 player takes the bus; the disc gives way, and plays again on its Play.
    app->frmmainmp3.frmList.List_Add(
        test::writeMono(h.tree.root(), "song.wav", test::sine(300, 44100, 44100), 44100).string());
    cd().cmdplay.click();
    app->frmmainmp3.cmdplay.click();
    EXPECT_FALSE(cd().deck.playing());
    left(4096);
    EXPECT_NEAR(test::measureFrequency(left(4410), 44100), 300, 5);
    cd().cmdplay.click();
    left(4096);
    EXPECT_NEAR(test::measureFrequency(left(4410), 44100), 440, 5);
}

TEST_F(CdPlayer, WithoutADiscTheTickIsSilentAndPlayFindsNone) {
    app->frmmain.cdButton.click();
    cd().cmdplay.click();
    cd().cmdeject.click();
    EXPECT_EQ(cd().LCD1.line(1), "CD Ejected");
    EXPECT_EQ(test::peak(left(8192)), 0.0);
    EXPECT_EQ(shown(), "CD Ejected");
    cd().cmdplay.click();
    EXPECT_EQ(cd().LCD1.line(1), "No CD Found");
    cd().cmdnext.click();
    EXPECT_EQ(shown(), "No CD Found");
}

TEST(CdPlayerWithoutDrive, TheConsoleSaysThereIsNoDriveAndThePlayerStaysClosed) {
    test::AppHarness<MixerEngine> h{5, MixerEngine::Output::Offline};
    Application& app = h.startAndLoad();
    app.frmmain.cdButton.click();
    EXPECT_FALSE(app.frmcd.window.visible());
    ASSERT_EQ(h.dialogs.shown().size(), 1U);
    EXPECT_EQ(h.dialogs.shown()[0].title, "No CD Drive Detected.");
    EXPECT_EQ(h.dialogs.shown()[0].text,
              "\nNo CD-Rom Drives were detected on your system. The CD player has been disabled.");
}

}  // namespace
}  // namespace brevane
