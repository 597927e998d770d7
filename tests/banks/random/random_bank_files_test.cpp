// The random banks' files: the .rcf and .crf records byte for byte, the fields read back
// and the ones ignored, damaged files and their messages, the Load and Save dialogs, the
// session copy, and the custom bank's sound files across a load.

#include <gtest/gtest.h>

#include "banks/random/random_bank_fixture.h"
#include "base/file_io.h"

namespace brevane::test {
namespace {

namespace fs = std::filesystem;

// The record of a bank whose slot s stands at Volume s and Frequency 100 + s, with
// Bwaves at 7 and Master at 100: the columns interleave, and the fixed banks pad fields
// 39 and 41 with copies of row 23's Volume.
const std::string kFixedRecord =
    "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,7,100,"
    "101,102,103,104,105,106,107,108,109,110,111,112,113,114,"
    "19,20,21,22,23,23,23,24,25,26,27,28,"
    "115,116,117,118,119,120,121,122,123,124,125,126,127,128\r\n";

// `record` with its comma-separated field `field` (from 1, before any text field)
// replaced by `text`.
std::string withField(std::string record, int field, const std::string& text) {
    std::size_t begin = 0;
    for (int f = 1; f < field; ++f) {
        begin = record.find(',', begin) + 1;
    }
    const std::size_t end = record.find_first_of(",\r", begin);
    return record.replace(begin, end - begin, text);
}

class RandomBankFilesTest : public RandomBankFixture {
  protected:
    void SetUp() override {
        RandomBankFixture::SetUp();
        app->frmmain.Bwaves.setValue(7);
    }

    void setSliders(RandomBank& b, int vBase, int fBase) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            b.slot(s).volume.setValue(vBase + s);
            b.slot(s).frequency.setValue(fBase + s);
        }
    }

    void expectSliders(const RandomBank& b, int vBase, int fBase) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            EXPECT_EQ(b.slot(s).volume.value(), vBase + s) << b.number() << " volume " << s;
            EXPECT_EQ(b.slot(s).frequency.value(), fBase + s) << b.number() << " frequency " << s;
        }
    }

    fs::path file(const std::string& name) { return h.tree.root() / name; }
};

TEST_F(RandomBankFilesTest, TheFixedRecordIsWrittenByteForByteAndReadBackIntoEverySlider) {
    RandomBank& b3 = bank(3);
    setSliders(b3, 0, 100);
    ASSERT_TRUE(b3.dosave(file("three.rcf")));
    EXPECT_EQ(readWholeFile(file("three.rcf")), kFixedRecord);

    // Group fields 19 and 20 and the copies 39 and 41 are read but never applied: the
    // console's mix is not a bank's to change.
    std::string odd = withField(withField(kFixedRecord, 19, "99"), 20, "3");
    odd = withField(withField(odd, 39, "0"), 41, "255");
    h.writeFile("odd.rcf", odd);
    RandomBank& b1 = bank(1);
    b1.previewSlot(9);
    const ChannelHandle playing = b1.slot(9).channel;
    ASSERT_TRUE(b1.doload(file("odd.rcf")));
    expectSliders(b1, 0, 100);
    EXPECT_EQ(app->frmmain.Bwaves.value(), 7);
    EXPECT_EQ(app->frmmain.Master.value(), 100);
    EXPECT_EQ(b1.Master.value(), 100);
    EXPECT_TRUE(h.dialogs.shown().empty());
    // The latest plays go on, at their slots' new levels.
    EXPECT_TRUE(h.engine.channel(playing)->playing);
    EXPECT_EQ(h.engine.channel(playing)->volume, b1.slotVolumeOf(9));

    // Values past a slider's end stop at the end; another bank is untouched.
    h.writeFile("wide.rcf", withField(withField(kFixedRecord, 1, "300"), 21, "-40"));
    ASSERT_TRUE(b1.doload(file("wide.rcf")));
    EXPECT_EQ(b1.slot(1).volume.value(), 255);
    EXPECT_EQ(b1.slot(1).frequency.value(), 0);
    EXPECT_EQ(b1.slot(2).volume.value(), 2);
    EXPECT_EQ(bank(2).slot(1).volume.value(), 220);
}

TEST_F(RandomBankFilesTest, TheCustomRecordHolds117FieldsByteForByteAndReadsBack) {
    RandomBank& c = bank(kCustomRandomBankNumber);
    setSliders(c, 0, 100);
    c.hiddenSlider39.setValue(39);
    c.hiddenSlider41.setValue(41);
    app->frmmain.Bwaves.setValue(8);
    h.dialogs.answerFile(soundFile("A \"quoted\" name.wav"));
    c.chooseFile(1);
    h.dialogs.answerFile(soundFile("Two.ogg"));
    c.chooseFile(2);
    h.dialogs.answerInput("Renamed, with a comma");
    c.renameSlot(2);

    std::string expected =
        withField(withField(withField(kFixedRecord, 19, "8"), 39, "39"), 41, "41");
    expected.resize(expected.size() - 2);
    expected +=
        ",#FALSE#,"
        "\"soundbanks/random sounds/A \"\"quoted\"\" name.wav\","
        "\"soundbanks/random sounds/Two.ogg\"";
    for (int s = 3; s <= kRandomSlots; ++s) {
        expected += ",\"\"";
    }
    expected += ",\"A \"\"quoted\"\" name\",\"Renamed, with a comma\"";
    for (int s = 3; s <= kRandomSlots; ++s) {
        expected += ",\"Not Set\"";
    }
    expected += "\r\n";
    ASSERT_TRUE(c.dosave(file("mine.crf")));
    EXPECT_EQ(readWholeFile(file("mine.crf")), expected);

    // Back in, with field 61 changed: the same bank, the console's mix untouched.
    std::string changed = expected;
    changed.replace(changed.find("#FALSE#"), 7, "#TRUE#");
    h.writeFile("changed.crf", changed);
    setSliders(c, -1, -1);
    c.hiddenSlider39.setValue(0);
    c.hiddenSlider41.setValue(0);
    h.dialogs.answerYesNo(true);
    c.resetAll();
    app->frmmain.Bwaves.setValue(50);
    h.dialogs.clear();
    ASSERT_TRUE(c.doload(file("changed.crf")));
    EXPECT_EQ(c.record(), withField(expected, 19, "50"));
    EXPECT_EQ(app->frmmain.Bwaves.value(), 50);
    EXPECT_TRUE(h.dialogs.shown().empty());
}

TEST_F(RandomBankFilesTest, ADamagedFileChangesNothingAndEachBankSaysItsOwnWords) {
    const std::string messages[] = {
        "The file could not be opened correctly - 1.", "The file could not be opened correctly.",
        "The file could not be opened correctly -3", "The file could not be opened correctly -4",
        ""};  // the custom bank says nothing
    for (int n = 1; n <= 5; ++n) {
        RandomBank& b = bank(n);
        setSliders(b, 10, 20);
        const std::string record = b.record();
        h.writeFile("short", record.substr(0, record.rfind(',')) + "\r\n");
        h.writeFile("text", withField(record, 21, "x1"));
        // An ignored field must still be a number the bank can hold.
        h.writeFile("big", withField(record, 19, "70000"));
        for (const char* name : {"short", "text", "big", "missing"}) {
            h.dialogs.clear();
            EXPECT_FALSE(b.doload(file(name))) << n << " " << name;
            expectSliders(b, 10, 20);
            const std::string& message = messages[n - 1];
            if (message.empty()) {
                EXPECT_TRUE(h.dialogs.shown().empty());
                continue;
            }
            ASSERT_EQ(h.dialogs.shown().size(), 1u);
            EXPECT_EQ(h.dialogs.shown()[0].kind, ScriptedDialogs::Kind::Message);
            EXPECT_EQ(h.dialogs.shown()[0].messageKind, MessageKind::Information);
            EXPECT_EQ(h.dialogs.shown()[0].text, message);
        }
    }
}

TEST_F(RandomBankFilesTest, LoadAndSaveUseTheBankFolderSaveKeepsTheDialogsNameAndQuitSaves) {
    RandomBank& b = bank(2);
    const fs::path folder = h.tree.root() / "config/main/random bank 2";
    h.writeFile("config/main/random bank 2/evening.rcf", kFixedRecord);

    h.dialogs.answerFile(folder / "evening.rcf");
    b.loadButton.click();
    ASSERT_EQ(h.dialogs.shown().size(), 1u);
    const FileDialogRequest& open = h.dialogs.shown()[0].request;
    EXPECT_EQ(h.dialogs.shown()[0].kind, ScriptedDialogs::Kind::OpenFile);
    EXPECT_EQ(open.startFolder, folder);
    EXPECT_EQ(open.filter, "Random Config Files (*.rcf)|*.rcf");
    EXPECT_EQ(open.fileName, "");
    expectSliders(b, 0, 100);

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
    const auto before = h.treeFiles();
    b.saveButton.click();
    EXPECT_EQ(h.treeFiles(), before);

    // A chosen name is written, and the dialog keeps it.
    h.dialogs.answerFile(folder / "night.rcf");
    b.saveButton.click();
    EXPECT_EQ(readWholeFile(folder / "night.rcf"), b.record());
    EXPECT_EQ(b.dialogFileName, (folder / "night.rcf").string());

    // Quitting writes each bank's session copy.
    app->frmmain.QuitCommand.click();
    EXPECT_EQ(readWholeFile(file("rand2.ini")), b.record());
    EXPECT_EQ(readWholeFile(file("randc.ini")), bank(kCustomRandomBankNumber).record());
}

TEST_F(RandomBankFilesTest, ACustomLoadKeepsTheSameFilesPlayingAndShowsGoneOnesNotSet) {
    RandomBank& c = bank(kCustomRandomBankNumber);
    h.dialogs.answerFile(soundFile("Kept.wav"));
    c.chooseFile(1);
    const fs::path gone = soundFile("Gone.wav");
    h.dialogs.answerFile(gone);
    c.chooseFile(2);
    h.dialogs.answerInput("My own name");
    c.renameSlot(1);
    c.previewSlot(1);
    const ChannelHandle playing = c.slot(1).channel;
    const SampleHandle sample = c.slot(1).sample;
    ASSERT_TRUE(c.dosave(file("scene.crf")));
    fs::remove(gone);
    h.dialogs.answerFile(soundFile("Other.wav"));
    c.chooseFile(2);

    h.dialogs.clear();
    h.engine.clearCalls();
    ASSERT_TRUE(c.doload(file("scene.crf")));
    // Slot 1 kept its file: the same sample, still playing. Slot 2 takes its file back,
    // freeing the other; the file is gone, its row says so, and that is the only sign.
    EXPECT_EQ(c.slot(1).sample, sample);
    EXPECT_TRUE(h.engine.channel(playing)->playing);
    EXPECT_EQ(c.slot(1).name.caption(), "My own name");
    EXPECT_EQ(c.slot(2).name.caption(), "Not Set");
    EXPECT_EQ(c.slot(2).path, "soundbanks/random sounds/Gone.wav");
    EXPECT_EQ(c.slot(3).name.caption(), "Not Set");
    EXPECT_TRUE(h.dialogs.shown().empty());
    ASSERT_EQ(h.engine.callsOf(Op::LoadSample).size(), 1u);
    EXPECT_EQ(h.engine.callsOf(Op::LoadSample)[0].path, gone);
    EXPECT_EQ(h.engine.callsOf(Op::FreeSample).size(), 1u);
}

}  // namespace
}  // namespace brevane::test
