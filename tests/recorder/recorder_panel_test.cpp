// The recorder's window, headless: its file name, its checks before it starts, and a
// render followed on virtual time to its report.

#include <gtest/gtest.h>

#include <unistd.h>
#include <chrono>
#include <thread>

#include "base/file_io.h"
#include "recorder/recorder_panel.h"
#include "recorder/sound_files.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

class Recorder : public ::testing::Test {
  protected:
    Recorder()
        : panel(AppPath(tree.root()), loop, dialogs, out.root(),
                "brevane-test-no-program-" + std::to_string(::getpid())) {}

    // The program last played "Summer Storm".
    struct PlayedTree : test::StockTree {
        PlayedTree() {
            writeFileAtomically(root() / "main.tmp",
                                "\"False\",\"Summer Storm\",0,0,\"\",\"\",\"\",0\r\n");
        }
    };
    PlayedTree tree;
    TempTree out;
    EventLoop loop;
    ScriptedDialogs dialogs;
    RecorderPanel panel;
};

TEST(RenderLength, MinutesHoursOrHoursAndMinutesFromAMinuteToTwelveHours) {
    EXPECT_EQ(parseRenderLength("90"), 90 * 60'000);
    EXPECT_EQ(parseRenderLength(" 1 minute"), 60'000);
    EXPECT_EQ(parseRenderLength("2 hours"), 2 * 3'600'000);
    EXPECT_EQ(parseRenderLength("1:30"), 90 * 60'000);
    EXPECT_EQ(parseRenderLength("12 hours"), 12 * 3'600'000);
    for (const char* refused : {"0", "13 hours", "721", "1:75", "soon", "", "-5", "2 days"}) {
        EXPECT_FALSE(parseRenderLength(refused).has_value()) << refused;
    }
}

TEST_F(Recorder, TheLastScenarioPlayedComesFirstAndNamesTheFileInItsFormat) {
    ASSERT_GE(panel.scenarioBox.count(), 14);
    EXPECT_EQ(panel.scenarioBox.text(), "Summer Storm");
    EXPECT_EQ(panel.fileBox.text(), (out.root() / "Summer Storm.flac").string());
    panel.formatBox.setListIndex(panel.formatBox.find("Ogg Vorbis"));
    EXPECT_EQ(panel.fileBox.text(), (out.root() / "Summer Storm.ogg").string());
    EXPECT_EQ(panel.format(), SoundFileFormat::OggVorbis);
    panel.recordMode.setValue(true);
    EXPECT_EQ(panel.fileBox.text(), (out.root() / "Brevane recording.ogg").string());
    EXPECT_FALSE(panel.renderFrame.visible());
    EXPECT_TRUE(panel.recordFrame.visible());
}

TEST_F(Recorder, NothingStartsOnABadLengthAFileKeptOrNoProgramToHear) {
    panel.lengthBox.setText("forever");
    panel.renderButton.click();
    EXPECT_FALSE(panel.busy());

    panel.lengthBox.setText("1 hour");
    ASSERT_TRUE(writeFileAtomically(panel.fileBox.text(), "kept"));
    dialogs.answerYesNo(false);
    panel.renderButton.click();
    EXPECT_FALSE(panel.busy());
    EXPECT_EQ(readWholeFile(panel.fileBox.text()), "kept");

    panel.recordMode.setValue(true);
    panel.recordButton.click();
    EXPECT_FALSE(panel.busy());
    ASSERT_EQ(dialogs.messages().size(), 2u);
    EXPECT_EQ(dialogs.messages()[0],
              "Please give a length from 1 minute to 12 hours, such as \"90 minutes\" or "
              "\"2 hours\".");
    EXPECT_EQ(dialogs.messages()[1],
              "Brevane could not be heard. Start Brevane, or end the recording another "
              "recorder is making, then press Record again.");
}

TEST_F(Recorder, ARenderRunsBesideTheWindowAndReportsWhatItWrote) {
    panel.lengthBox.setText("1 minute");
    panel.renderButton.click();
    ASSERT_TRUE(panel.busy());
    EXPECT_FALSE(panel.scenarioBox.enabled());
    EXPECT_TRUE(panel.cancelButton.enabled());
    for (int i = 0; i < 1200 && panel.busy(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        loop.advance(RecorderPanel::kWatchMs);
    }
    ASSERT_FALSE(panel.busy());
    EXPECT_EQ(panel.progress.value(), panel.progress.max());
    EXPECT_EQ(
        panel.statusLabel.caption().rfind("Written: Summer Storm.flac, 0:01:00, loudness ", 0), 0u)
        << panel.statusLabel.caption();
    EXPECT_EQ(test::readBack(panel.fileBox.text()).samples.size(), 2u * 60 * 44100);
    EXPECT_TRUE(panel.scenarioBox.enabled());
    EXPECT_TRUE(dialogs.messages().empty());

    // Closing the window in the middle of the next render ends it, and writes nothing.
    panel.show();
    panel.lengthBox.setText("12 hours");
    panel.fileBox.setText((out.root() / "long.flac").string());
    panel.renderButton.click();
    ASSERT_TRUE(panel.busy());
    panel.close();
    EXPECT_FALSE(panel.busy());
    EXPECT_FALSE(panel.window.visible());
    EXPECT_EQ(panel.statusLabel.caption(), "Cancelled: no file was written.");
    EXPECT_EQ(std::distance(fs::directory_iterator(out.root()), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace brevane
