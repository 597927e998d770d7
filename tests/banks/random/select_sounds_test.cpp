// Form2, "Select Sounds": the folder rule, the limits of each mode, the two lists in
// step, and "Load Files" into the custom banks.

#include <gtest/gtest.h>

#include "banks/random/random_bank_fixture.h"
#include "base/file_io.h"

namespace brevane::test {
namespace {

namespace fs = std::filesystem;

class SelectSoundsTest : public RandomBankFixture {
  protected:
    SelectSoundsPanel& form() { return app->Form2; }

    // `count` sound files "s1.wav" onward in a folder of the tree, and one file the
    // panel does not show.
    void fillFolder(const std::string& folder, int count) {
        for (int n = 1; n <= count; ++n) {
            h.writeFile(folder + "/s" + std::to_string(n) + ".wav", "x");
        }
        h.writeFile(folder + "/readme.txt", "x");
    }
    fs::path full(const std::string& relative) { return h.tree.root() / relative; }
};

TEST_F(SelectSoundsTest, EachModeHasItsLimitsAndItsMessage) {
    fillFolder("soundbanks/random sounds/many", 30);
    form().open(SelectionMode::Random);
    form().folderView.setText(full("soundbanks/random sounds/many").string());
    ASSERT_EQ(form().fileView.count(), 30);
    // Sorted as numbers read, and only the sound files.
    EXPECT_EQ(form().fileView.item(1), "s2.wav");
    form().addAll.click();
    EXPECT_EQ(form().fileNames.count(), 28);
    EXPECT_TRUE(h.dialogs.messages().empty());
    form().selectedFiles = {28, 29};
    form().addSelected.click();
    EXPECT_EQ(form().fileNames.count(), 28);
    EXPECT_EQ(h.dialogs.messages(),
              std::vector<std::string>{
                  "No more than 28 sounds can be added to the list when choosing random sounds"});
    form().close.click();
    EXPECT_FALSE(form().window.visible());

    // Background sounds: "+ All" fills the bank's 17 slots, "+ Selected" stops at 16.
    h.dialogs.clear();
    fillFolder("soundbanks/background sounds/many", 20);
    form().open(SelectionMode::Back);
    form().clear.click();
    form().folderView.setText(full("soundbanks/background sounds/many").string());
    form().addAll.click();
    EXPECT_EQ(form().fileNames.count(), 17);
    form().clear.click();
    form().selectedFiles = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17};
    form().addSelected.click();
    EXPECT_EQ(form().fileNames.count(), 16);
    form().addFile(19);
    EXPECT_EQ(form().fileNames.count(), 16);
    EXPECT_EQ(h.dialogs.messages(),
              (std::vector<std::string>{
                  "No more than 16 sounds can be added to the list when choosing background "
                  "sounds",
                  "No more than 16 sounds can be added to the list when choosing background "
                  "sounds"}));
}

TEST_F(SelectSoundsTest, AFolderOutsideTheModesRootIsRefusedAndAValidOneIsKept) {
    fillFolder("soundbanks/background sounds/rain", 2);
    fillFolder("soundbanks/random sounds/birds", 2);
    const fs::path backRoot = full("soundbanks/background sounds");
    form().open(SelectionMode::Back);
    EXPECT_EQ(form().folderView.text(), backRoot.string());
    for (const fs::path& outside : {full("soundbanks/random sounds/birds"),
                                    backRoot / ".." / "random sounds", fs::path("/")}) {
        h.dialogs.clear();
        form().folderView.setText(outside.string());
        EXPECT_EQ(h.dialogs.messages(),
                  std::vector<std::string>{
                      "Please choose a directory within the background soundbanks directory."});
        EXPECT_EQ(form().folderView.text(), backRoot.string());
    }
    form().folderView.setText((backRoot / "rain").string());
    EXPECT_EQ(form().fileView.count(), 2);

    h.dialogs.clear();
    form().open(SelectionMode::Random);
    form().folderView.setText(backRoot.string());
    EXPECT_EQ(
        h.dialogs.messages(),
        std::vector<std::string>{"Please choose a folder within the random soundbanks directory."});
    EXPECT_EQ(form().folderView.text(), full("soundbanks/random sounds").string());
    form().folderView.setText(full("soundbanks/random sounds/birds").string());
    form().addAll.click();
    form().loadFiles.click();

    // dirs.ini keeps each mode's folder, and the next opening starts there; a kept
    // folder that is gone starts at the root.
    EXPECT_EQ(readWholeFile(full("dirs.ini")), "\"" + (backRoot / "rain").string() + "\",\"" +
                                                   full("soundbanks/random sounds/birds").string() +
                                                   "\"\r\n");
    form().open(SelectionMode::Back);
    EXPECT_EQ(form().folderView.text(), (backRoot / "rain").string());
    fs::remove_all(full("soundbanks/random sounds/birds"));
    form().open(SelectionMode::Random);
    EXPECT_EQ(form().folderView.text(), full("soundbanks/random sounds").string());
}

TEST_F(SelectSoundsTest, TheTwoListsMoveInStep) {
    fillFolder("soundbanks/random sounds/a", 3);
    fillFolder("soundbanks/random sounds/b", 1);
    form().open(SelectionMode::Random);
    form().folderView.setText(full("soundbanks/random sounds/a").string());
    form().addAll.click();
    form().folderView.setText(full("soundbanks/random sounds/b").string());
    form().addFile(0);  // a second "s1.wav", from another folder
    const auto rows = [this] {
        std::vector<std::string> out;
        for (int r = 0; r < form().fileNames.count(); ++r) {
            out.push_back(form().fileNames.item(r) + " " +
                          fs::path(form().filePaths.item(r)).parent_path().filename().string());
        }
        return out;
    };
    EXPECT_EQ(rows(), (std::vector<std::string>{"s1.wav a", "s2.wav a", "s3.wav a", "s1.wav b"}));

    form().fileNames.setListIndex(3);
    form().moveUp.click();
    form().moveUp.click();
    EXPECT_EQ(rows(), (std::vector<std::string>{"s1.wav a", "s1.wav b", "s2.wav a", "s3.wav a"}));
    form().fileNames.setListIndex(0);
    form().moveUp.click();  // already first
    form().moveDown.click();
    EXPECT_EQ(form().fileNames.listIndex(), 1);
    form().remove.click();
    form().removeRow(2);  // a double click on a row
    EXPECT_EQ(rows(), (std::vector<std::string>{"s1.wav b", "s2.wav a"}));
    form().clear.click();
    EXPECT_EQ(form().filePaths.count(), 0);
}

TEST_F(SelectSoundsTest, LoadFilesFillsTheCustomBankFromItsFirstSlot) {
    RandomBank& c = app->frmcustom;
    const fs::path kept = soundFile("kept.wav");
    h.dialogs.answerFile(kept);
    c.chooseFile(6);
    fillFolder("soundbanks/random sounds/set", 5);
    c.selectSoundsButton.click();
    ASSERT_TRUE(form().window.visible());
    EXPECT_EQ(form().mode(), SelectionMode::Random);

    // An empty list: the message, the panel stays, no slot changes.
    h.dialogs.clear();
    form().loadFiles.click();
    EXPECT_EQ(h.dialogs.messages(),
              std::vector<std::string>{
                  "No files were selected. Please add one or more files to the list and retry."});
    EXPECT_TRUE(form().window.visible());
    EXPECT_EQ(c.slot(1).name.caption(), "Not Set");

    h.dialogs.clear();
    form().folderView.setText(full("soundbanks/random sounds/set").string());
    form().addAll.click();
    h.engine.failLoading(full("soundbanks/random sounds/set/s4.wav"));
    form().loadFiles.click();
    EXPECT_FALSE(form().window.visible());
    EXPECT_EQ(c.slot(1).path, "soundbanks/random sounds/set/s1.wav");
    EXPECT_EQ(c.slot(5).name.caption(), "s5");
    EXPECT_EQ(c.slot(6).path, "soundbanks/random sounds/kept.wav");
    EXPECT_EQ(app->handOverFiles[4], full("soundbanks/random sounds/set/s5.wav").string());
    EXPECT_TRUE(app->handOverFiles[5].empty());
    // The file that will not play is named, once.
    EXPECT_EQ(h.dialogs.messages(),
              std::vector<std::string>{"These audio files could not be opened:\r\ns4.wav"});

    // The background bank's button opens the panel for background sounds.
    fillFolder("soundbanks/background sounds/loops", 2);
    app->frmbackcustom.selectSoundsButton.click();
    EXPECT_EQ(form().mode(), SelectionMode::Back);
    form().clear.click();
    form().folderView.setText(full("soundbanks/background sounds/loops").string());
    form().addAll.click();
    form().loadFiles.click();
    EXPECT_EQ(app->frmbackcustom.slot(2).on.caption(), "s2");
}

}  // namespace
}  // namespace brevane::test
