// The compact remote, the slideshow and the panoramic view on the whole Application, on
// virtual time: stepping and its counters, the one-picture folder, the panoramic's swing
// with its ends held a tick, inactivity hiding the interface, the remote mirroring the
// console, and the visual state coming back with the session.

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"
#include "visuals/picture_files.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

// A file with a JPEG's opening, an application segment and a frame header: what the
// program reads of a picture without decoding it.
void writeJpegHeader(const fs::path& file, int width, int height) {
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    const unsigned char head[] = {0xFF,
                                  0xD8,
                                  0xFF,
                                  0xE0,
                                  0x00,
                                  0x04,
                                  0x4A,
                                  0x46,
                                  0xFF,
                                  0xC0,
                                  0x00,
                                  0x0B,
                                  0x08,
                                  static_cast<unsigned char>(height >> 8),
                                  static_cast<unsigned char>(height & 0xFF),
                                  static_cast<unsigned char>(width >> 8),
                                  static_cast<unsigned char>(width & 0xFF),
                                  0x01,
                                  0x01,
                                  0x11,
                                  0x00,
                                  0xFF,
                                  0xD9};
    out.write(reinterpret_cast<const char*>(head), sizeof head);
}

class Visuals : public ::testing::Test {
  protected:
    void SetUp() override {
        h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
        for (const char* name : {"b", "a", "c"}) {
            writeJpegHeader(
                h.tree.root() / "visual/slideshow/Default" / (std::string(name) + ".jpg"), 1920,
                1080);
        }
        writeJpegHeader(h.tree.root() / "visual/slideshow/Single/only.jpg", 1920, 1080);
        writeJpegHeader(h.tree.root() / "visual/panoramics/default.jpg", 4000, 1200);
        writeJpegHeader(h.tree.root() / "visual/panoramics/Narrow.jpg", 1000, 1080);
    }
    // Started, and past "Minimize on startup" with the console on screen.
    Application& start() {
        app = &h.startAndLoad();
        h.loop.advance(Frmmain::kMinimizeMs);
        app->frmmain.window.show();
        return *app;
    }
    std::string shownPicture() const {
        return fs::path(app->Form1.picture.caption()).filename().string();
    }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
};

TEST_F(Visuals, PictureSizesComeFromTheHeaderAndBadFilesGiveNone) {
    const fs::path dir = h.tree.root() / "pics";
    writeJpegHeader(dir / "wide.jpg", 5760, 1080);
    EXPECT_EQ(jpegSize(dir / "wide.jpg")->width, 5760);
    EXPECT_EQ(jpegSize(dir / "wide.jpg")->height, 1080);
    h.writeFile("pics/text.jpg", "not a picture at all");
    h.writeFile("pics/short.jpg", std::string("\xFF\xD8\xFF\xE0\x00", 5));
    EXPECT_FALSE(jpegSize(dir / "text.jpg"));
    EXPECT_FALSE(jpegSize(dir / "short.jpg"));
    EXPECT_FALSE(jpegSize(dir / "missing.jpg"));
    // The pictures of a folder, by name in order, without their extension; other files are
    // not pictures.
    EXPECT_EQ(slideshowPictures(h.tree.root() / "visual/slideshow/Default"),
              (std::vector<std::string>{"a", "b", "c"}));
}

TEST_F(Visuals, TheSlideshowStepsInOrderBySecondsAndByMinutes) {
    start();
    Frmremote2& remote = app->frmremote2;
    remote.Text1.setText("3");
    remote.Option2.setValue(true);
    app->Form1.start();
    EXPECT_EQ(shownPicture(), "a.jpg");
    h.loop.advance(2000);
    EXPECT_EQ(shownPicture(), "a.jpg");
    h.loop.advance(1000);
    EXPECT_EQ(shownPicture(), "b.jpg");
    h.loop.advance(6000);
    EXPECT_EQ(shownPicture(), "a.jpg") << "after the last picture the first comes again";

    // In minutes the time is compared only as a minute ends.
    remote.Option1.setValue(true);
    remote.Text1.setText("1");
    app->Form1.RESETTIMER();
    h.loop.advance(59000);
    EXPECT_EQ(shownPicture(), "a.jpg");
    h.loop.advance(1000);
    EXPECT_EQ(shownPicture(), "b.jpg");

    // A time of 0 seconds never matches once the seconds have passed it.
    remote.Option2.setValue(true);
    remote.Text1.setText("0");
    h.loop.advance(120000);
    EXPECT_EQ(shownPicture(), "b.jpg");
    EXPECT_EQ(app->Form1.seconds, 120);

    // Esc leaves the mode and brings back the console it started from.
    app->Form1.visual.escape();
    EXPECT_FALSE(app->Form1.window.visible());
    EXPECT_FALSE(app->Form1.Timer20.enabled());
    EXPECT_TRUE(app->frmmain.window.visible());
    EXPECT_TRUE(app->Form1.visual.pointer.visible());
}

TEST_F(Visuals, AOnePictureFolderLoadsOnceAndAMissingOneFallsBackWithItsMessage) {
    start();
    app->frmremote2.Option2.setValue(true);
    app->frmremote2.Text1.setText("1");
    app->frmremote2.pointAtSlideshow("Single");
    app->Form1.start();
    EXPECT_EQ(shownPicture(), "only.jpg");
    app->Form1.picture.setCaption("");
    h.loop.advance(5000);
    EXPECT_EQ(app->Form1.picture.caption(), "") << "the one picture is never loaded again";
    app->Form1.unload();

    app->frmremote2.pointAtSlideshow("Gone");
    app->Form1.start();
    EXPECT_EQ(h.dialogs.messages(), std::vector<std::string>{SlideshowSelector::kNotFoundText});
    EXPECT_EQ(app->frmremote2.slideshowFolder.text(), "Default");
    EXPECT_EQ(shownPicture(), "a.jpg");

    // The selector refuses a folder without pictures.
    app->Formfolderselect.chooseFolder(h.tree.root() / "visual");
    app->Formfolderselect.apply();
    ASSERT_EQ(h.dialogs.messages().size(), 2U);
    EXPECT_EQ(h.dialogs.messages()[1], SlideshowSelector::kNoImagesText);
    app->Formfolderselect.chooseFolder(h.tree.root() / "visual/slideshow/Single");
    app->Formfolderselect.apply();
    EXPECT_EQ(app->frmremote2.slideshowFolder.text(), "Single");
    EXPECT_EQ(shownPicture(), "only.jpg");
}

TEST_F(Visuals, ThePanoramicSwingsEndToEndHoldingEachEndATick) {
    start();
    Panoramic& pan = app->form999;
    pan.setViewSize(1920, 1080);
    pan.hscroll1.setValue(490);  // 10 ms a step
    pan.start();
    EXPECT_EQ(fs::path(pan.picture.caption()).filename(), "default.jpg");
    EXPECT_EQ(pan.x, (4000 - 1920) / 2);
    EXPECT_EQ(pan.y, (1200 - 1080) / 2);
    EXPECT_EQ(pan.hscroll.max(), 4000 - 1920 - 1);

    h.loop.advance(10 * pan.x);
    EXPECT_EQ(pan.x, 0);
    EXPECT_TRUE(pan.Timer1.enabled());
    h.loop.advance(10);  // the tick that finds the end turns round without moving
    EXPECT_EQ(pan.x, 0);
    EXPECT_TRUE(pan.Timer2.enabled());
    EXPECT_FALSE(pan.Timer1.enabled());
    h.loop.advance(10);
    EXPECT_EQ(pan.x, 1);

    // Speed 0 is the slowest step, half a second; the remote mirrors it.
    pan.hscroll1.setValue(0);
    EXPECT_EQ(pan.Timer2.interval(), 500);
    EXPECT_EQ(app->frmremote2.speed.value(), 0);
    app->frmremote2.speed.setValue(300);
    EXPECT_EQ(pan.Timer1.interval(), 200);

    // A picture no wider than the screen has nowhere to go: the timers swap each tick.
    app->frmremote2.setPanoramic("Narrow");
    pan.loadthepicture();
    EXPECT_EQ(pan.x, 0);
    h.loop.advance(200);
    EXPECT_TRUE(pan.Timer2.enabled());
    h.loop.advance(200);
    EXPECT_TRUE(pan.Timer1.enabled());
    EXPECT_EQ(pan.x, 0);

    // A name that does not load shows the default, without a word.
    app->frmremote2.setPanoramic("Nowhere");
    pan.loadthepicture();
    EXPECT_EQ(fs::path(pan.picture.caption()).filename(), "default.jpg");
    EXPECT_TRUE(h.dialogs.messages().empty());
}

TEST_F(Visuals, InactivityHidesTheInterfaceAfterTheOptionsTime) {
    start();
    app->FRMOPTIONS.inactivityTime.setText("30");
    app->frmremote2.showRemote();
    app->frmbwave.window.show();
    app->form999.start();
    h.loop.advance(VisualMode::kHideCursorMs);
    EXPECT_FALSE(app->form999.visual.pointer.visible());
    app->form999.visual.input();
    EXPECT_TRUE(app->form999.visual.pointer.visible());

    // Input at 25 s: the checks at 30 s and 40 s find less than 30 s idle; the one at
    // 60 s finds 35 s.
    h.loop.advance(25000 - VisualMode::kHideCursorMs);
    app->noteInput();
    h.loop.advance(25000);
    EXPECT_TRUE(app->frmmain.window.visible());
    h.loop.advance(10000);
    EXPECT_FALSE(app->frmmain.window.visible());
    EXPECT_FALSE(app->frmremote2.window.visible());
    EXPECT_FALSE(app->frmbwave.window.visible());
    EXPECT_FALSE(app->form999.visual.pointer.visible());
    EXPECT_TRUE(app->form999.window.visible());

    // With the option off nothing hides.
    app->form999.visual.contextMenu.find(VisualMode::kExitVisualMode)->click();
    EXPECT_TRUE(app->frmmain.window.visible()) << "the console it began from comes back";
    app->FRMOPTIONS.autoHide.setChecked(false);
    app->Form1.start();
    h.loop.advance(120000);
    EXPECT_TRUE(app->frmmain.window.visible());
}

TEST_F(Visuals, TheRemoteMirrorsTheConsoleAndStandsInForIt) {
    start();
    Frmremote2& remote = app->frmremote2;
    remote.Random.setValue(40);
    EXPECT_EQ(app->frmmain.Random.value(), 40);
    EXPECT_EQ(app->frmback.Random.value(), 40);
    app->frmmain.MP3.setValue(4200);
    EXPECT_EQ(remote.MP3.value(), 4200);

    app->frmmain.Master.setValue(30);
    remote.muteButton.setValue(true);
    EXPECT_TRUE(app->frmmain.muted());
    EXPECT_EQ(remote.Master.value(), 0);
    app->frmmain.mnuMute().click();
    EXPECT_FALSE(remote.muteButton.value());
    EXPECT_EQ(remote.Master.value(), 30);

    app->frmmain.switchToControllerButton.click();
    EXPECT_TRUE(remote.window.visible());
    EXPECT_FALSE(app->frmmain.window.visible());
    EXPECT_TRUE(app->RemoteShown);
    remote.mainButton.click();
    EXPECT_FALSE(remote.window.visible());
    EXPECT_TRUE(app->frmmain.window.visible());
    EXPECT_FALSE(app->RemoteShown);

    // Its captions follow the console's state.
    ASSERT_TRUE(app->frmmain.dosave("Nothing Here"));
    app->frmmain.doload("Nothing Here");
    h.loop.advance(Frmremote2::kRefreshMs);
    EXPECT_EQ(remote.scenarioCaption.caption(), "Scenario: Nothing Here");
    EXPECT_EQ(remote.mp3Caption.caption(), Frmremote2::kNoMp3);
}

TEST_F(Visuals, AScenarioTakesItsSlideshowAndPanoramicAlongAndFallsBackQuietly) {
    start();
    app->Formfolderselect.chooseFolder(h.tree.root() / "visual/slideshow/Single");
    app->Formfolderselect.apply();
    app->frmremote2.setPanoramic("Narrow");
    ASSERT_TRUE(app->frmmain.dosave("Shore"));

    app->frmremote2.pointAtSlideshow("Default");
    app->frmremote2.setPanoramic("Default");
    app->form999.start();
    app->Form1.start();
    app->frmmain.doload("Shore");
    EXPECT_EQ(app->frmremote2.slideshowFolder.text(), "Single");
    EXPECT_EQ(shownPicture(), "only.jpg") << "an open slideshow moves to the scenario's";
    EXPECT_EQ(fs::path(app->form999.picture.caption()).filename(), "Narrow.jpg");

    // A scenario whose slideshow folder is gone shows the stock one, without a word.
    fs::remove_all(h.tree.root() / "visual/slideshow/Single");
    app->frmmain.doload("Shore");
    EXPECT_EQ(app->frmremote2.slideshowFolder.text(), "Default");
    EXPECT_EQ(app->frmmain.carry.slideshowLabel, "Default");
    EXPECT_TRUE(h.dialogs.messages().empty());
}

TEST_F(Visuals, TheVisualStateComesBackWithTheSession) {
    start();
    Frmremote2& remote = app->frmremote2;
    remote.Text1.setText("7");
    remote.Option2.setValue(true);
    remote.speed.setValue(333);
    app->frmremote2.setPanoramic("Narrow");
    app->Formfolderselect.chooseFolder(h.tree.root() / "visual/slideshow/Single");
    app->Formfolderselect.apply();
    app->frmmain.switchToControllerButton.click();
    app->Form1.start();
    app->FRMOPTIONS.previousScenario.setChecked(true);
    app->frmmain.quitWithoutAsking();

    test::AppHarness<RecordingEngine> next;
    fs::copy(h.tree.root(), next.tree.root(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    Application& again = next.startAndLoad();
    next.loop.advance(Frmmain::kShowOldFormMs);
    EXPECT_EQ(again.frmremote2.Text1.text(), "7");
    EXPECT_TRUE(again.frmremote2.Option2.value());
    EXPECT_EQ(again.form999.hscroll1.value(), 333);
    EXPECT_EQ(again.frmremote2.panoramicName(), "Narrow");
    EXPECT_EQ(again.frmremote2.slideshowFolder.text(), "Single");
    EXPECT_TRUE(again.Form1.window.visible());
    EXPECT_EQ(fs::path(again.Form1.picture.caption()).filename(), "only.jpg");
    EXPECT_TRUE(again.frmremote2.window.visible());
    EXPECT_FALSE(again.frmmain.window.visible());
}

}  // namespace
}  // namespace brevane
