// The fixed random banks' file: the .rcf record byte for byte, the fields read back and
// the ones ignored, the failure messages, the Load and Save dialogs and the session copy.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "banks/random/random_bank.h"
#include "base/file_io.h"
#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;

std::string joined(const std::vector<int>& fields) {
    std::string out;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        out += (i == 0 ? "" : ",") + std::to_string(fields[i]);
    }
    return out + "\r\n";
}

class RandomBankFilesTest : public ::testing::Test {
  protected:
    void SetUp() override {
        app = &h.startAndLoad();
        app->frmmain.Master.setValue(100);
        app->frmmain.Random.setValue(100);
        app->frmmain.Bwaves.setValue(7);
    }

    RandomBank& bank(int n) { return *app->randomBank(n); }

    // Volume s + vBase and Frequency s + fBase on every slot.
    void setSliders(RandomBank& b, int vBase, int fBase) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            b.slot(s).volume.setValue(vBase + s);
            b.slot(s).frequency.setValue(fBase + s);
        }
    }

    // The 60 fields for setSliders(vBase, fBase), group fields 7 and 100 and slot 23's
    // copies as given.
    static std::vector<int> fieldsFor(int vBase, int fBase, int f19 = 7, int f20 = 100,
                                      int f39 = -1, int f41 = -1) {
        std::vector<int> f;
        for (int s = 1; s <= 18; ++s) {
            f.push_back(vBase + s);
        }
        f.push_back(f19);
        f.push_back(f20);
        for (int s = 1; s <= 14; ++s) {
            f.push_back(fBase + s);
        }
        for (int s = 19; s <= 22; ++s) {
            f.push_back(vBase + s);
        }
        f.push_back(f39 < 0 ? vBase + 23 : f39);
        f.push_back(vBase + 23);
        f.push_back(f41 < 0 ? vBase + 23 : f41);
        for (int s = 24; s <= 28; ++s) {
            f.push_back(vBase + s);
        }
        for (int s = 15; s <= 28; ++s) {
            f.push_back(fBase + s);
        }
        return f;
    }

    void expectSliders(RandomBank& b, int vBase, int fBase) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            EXPECT_EQ(b.slot(s).volume.value(), vBase + s) << "volume " << s;
            EXPECT_EQ(b.slot(s).frequency.value(), fBase + s) << "frequency " << s;
        }
    }

    test::AppHarness<RecordingEngine> h{99};
    Application* app = nullptr;
};

TEST_F(RandomBankFilesTest, TheRecordInterleavesTheColumnsAndPadsRow23ByteForByte) {
    RandomBank& b = bank(3);
    setSliders(b, 0, 100);
    const auto file = h.tree.root() / "three.rcf";
    ASSERT_TRUE(b.dosave(file));
    const std::string expected =
        "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,7,100,"
        "101,102,103,104,105,106,107,108,109,110,111,112,113,114,"
        "19,20,21,22,23,23,23,24,25,26,27,28,"
        "115,116,117,118,119,120,121,122,123,124,125,126,127,128\r\n";
    EXPECT_EQ(readWholeFile(file), expected);
    EXPECT_EQ(joined(fieldsFor(0, 100)), expected);
}

TEST_F(RandomBankFilesTest, LoadingSetsEverySliderAndIgnoresTheGroupAndCopyFields) {
    RandomBank& b = bank(1);
    h.writeFile("plain.rcf", joined(fieldsFor(100, 50)));
    h.writeFile("odd.rcf", joined(fieldsFor(100, 50, 99, 3, 0, 255)));

    ASSERT_TRUE(b.doload(h.tree.root() / "odd.rcf"));
    expectSliders(b, 100, 50);
    // The console's mix is not a bank's to change.
    EXPECT_EQ(b.Bwaves.value(), 7);
    EXPECT_EQ(b.Master.value(), 100);
    EXPECT_EQ(app->frmmain.Master.value(), 100);
    EXPECT_EQ(app->frmmain.Bwaves.value(), 7);

    setSliders(b, 0, 0);
    ASSERT_TRUE(b.doload(h.tree.root() / "plain.rcf"));
    expectSliders(b, 100, 50);
    EXPECT_TRUE(h.dialogs.shown().empty());

    // Values past a slider's end stop at the end.
    std::vector<int> wide = fieldsFor(0, 0);
    wide[0] = 300;   // volume 1
    wide[20] = -40;  // frequency 1
    h.writeFile("wide.rcf", joined(wide));
    ASSERT_TRUE(b.doload(h.tree.root() / "wide.rcf"));
    EXPECT_EQ(b.slot(1).volume.value(), 255);
    EXPECT_EQ(b.slot(1).frequency.value(), 0);
    EXPECT_EQ(b.slot(2).volume.value(), 2);
    // Another bank is untouched.
    EXPECT_EQ(bank(2).slot(1).volume.value(), 220);
}

TEST_F(RandomBankFilesTest, LoadedLevelsReachTheLatestPlaysWhichGoOn) {
    RandomBank& b = bank(2);
    b.previewSlot(9);
    const ChannelHandle channel = b.slot(9).channel;
    h.writeFile("quiet.rcf", joined(fieldsFor(0, 0)));
    h.engine.clearCalls();
    ASSERT_TRUE(b.doload(h.tree.root() / "quiet.rcf"));
    EXPECT_TRUE(h.engine.channel(channel)->playing);
    EXPECT_EQ(h.engine.channel(channel)->volume, b.slotVolumeOf(9));
    EXPECT_TRUE(h.engine.callsOf(Op::Stop).empty());
}

TEST_F(RandomBankFilesTest, AFileThatCannotBeReadChangesNothingAndEachBankSaysItsOwnWords) {
    const std::vector<std::string> messages{
        "The file could not be opened correctly - 1.", "The file could not be opened correctly.",
        "The file could not be opened correctly -3", "The file could not be opened correctly -4"};
    std::vector<int> short59 = fieldsFor(0, 0);
    short59.pop_back();
    std::string notANumber = joined(fieldsFor(0, 0));
    notANumber.replace(notANumber.find(",21,"), 4, ",x1,");
    std::vector<int> tooBig = fieldsFor(0, 0);
    tooBig[38] = 70000;  // an ignored field must still be a number the bank can hold
    h.writeFile("short.rcf", joined(short59));
    h.writeFile("text.rcf", notANumber);
    h.writeFile("big.rcf", joined(tooBig));

    for (int n = 1; n <= 4; ++n) {
        RandomBank& b = bank(n);
        setSliders(b, 10, 20);
        for (const char* name : {"short.rcf", "text.rcf", "big.rcf", "missing.rcf"}) {
            h.dialogs.clear();
            EXPECT_FALSE(b.doload(h.tree.root() / name)) << name;
            ASSERT_EQ(h.dialogs.shown().size(), 1u);
            EXPECT_EQ(h.dialogs.shown()[0].kind, ScriptedDialogs::Kind::Message);
            EXPECT_EQ(h.dialogs.shown()[0].messageKind, MessageKind::Information);
            EXPECT_EQ(h.dialogs.shown()[0].text, messages[static_cast<std::size_t>(n - 1)]);
            expectSliders(b, 10, 20);
        }
    }
}

TEST_F(RandomBankFilesTest, LoadAndSaveUseTheBankFolderAndSaveKeepsTheDialogsLastName) {
    RandomBank& b = bank(2);
    const auto folder = h.tree.root() / "config/main/random bank 2";
    h.writeFile("config/main/random bank 2/evening.rcf", joined(fieldsFor(100, 0)));

    h.dialogs.answerFile(folder / "evening.rcf");
    b.loadButton.click();
    ASSERT_EQ(h.dialogs.shown().size(), 1u);
    const FileDialogRequest& open = h.dialogs.shown()[0].request;
    EXPECT_EQ(h.dialogs.shown()[0].kind, ScriptedDialogs::Kind::OpenFile);
    EXPECT_EQ(open.startFolder, folder);
    EXPECT_EQ(open.filter, "Random Config Files (*.rcf)|*.rcf");
    EXPECT_EQ(open.fileName, "");
    expectSliders(b, 100, 0);

    // Save shows the name the Load left; cancelled, it still writes there.
    b.slot(1).volume.setValue(3);
    h.dialogs.clear();
    b.saveButton.click();
    ASSERT_EQ(h.dialogs.shown().size(), 1u);
    EXPECT_EQ(h.dialogs.shown()[0].kind, ScriptedDialogs::Kind::SaveFile);
    EXPECT_EQ(h.dialogs.shown()[0].request.startFolder, folder);
    EXPECT_EQ(h.dialogs.shown()[0].request.filter, "Random Config Files (*.rcf)|*.rcf");
    EXPECT_EQ(h.dialogs.shown()[0].request.fileName, (folder / "evening.rcf").string());
    EXPECT_EQ(readWholeFile(folder / "evening.rcf"), b.record());

    // A cancelled Load clears the name: nothing is loaded, and a cancelled Save after
    // it writes nothing.
    b.loadButton.click();
    EXPECT_EQ(b.slot(1).volume.value(), 3);
    EXPECT_EQ(b.dialogFileName, "");
    const auto before = h.treeFiles();
    b.saveButton.click();
    EXPECT_EQ(h.treeFiles(), before);

    // A chosen name is written, and the dialog keeps it.
    h.dialogs.answerFile(folder / "night.rcf");
    b.saveButton.click();
    EXPECT_EQ(readWholeFile(folder / "night.rcf"), b.record());
    EXPECT_EQ(b.dialogFileName, (folder / "night.rcf").string());
}

TEST_F(RandomBankFilesTest, QuittingWritesEachBanksSessionCopy) {
    for (int n = 1; n <= 4; ++n) {
        setSliders(bank(n), n, 10 * n);
    }
    app->frmmain.QuitCommand.click();
    const char* files[] = {"rand.ini", "rand2.ini", "rand3.ini", "rand4.ini"};
    for (int n = 1; n <= 4; ++n) {
        const auto content = readWholeFile(h.tree.root() / files[n - 1]);
        ASSERT_TRUE(content.has_value()) << files[n - 1];
        EXPECT_EQ(*content, joined(fieldsFor(n, 10 * n)));
    }
    EXPECT_TRUE(readWholeFile(h.tree.root() / "randc.ini").has_value());
}

}  // namespace
}  // namespace brevane
