// The custom background bank: its record with paths and captions, choosing a file,
// bulk load from the hand-over, "Reset All", the rename prompt and the failure box.

#include <gtest/gtest.h>

#include "background_harness.h"
#include "base/file_io.h"

namespace brevane {
namespace {

using test::Op;
using Strings = std::vector<std::string>;
namespace fs = std::filesystem;

class CustomBankTest : public ::testing::Test, public test::BackgroundBankFixture {
  protected:
    BackgroundBank& bank() { return app->frmbackcustom; }
    fs::path sounds() const { return h.tree.root() / "soundbanks/background sounds"; }
    // A sound file in the tree (the recording engine only needs it to exist).
    fs::path makeSound(const std::string& relative) {
        h.writeFile("soundbanks/background sounds/" + relative, "RIFF");
        return sounds() / relative;
    }
    std::array<std::string, 28> handOver(const std::vector<fs::path>& files) {
        std::array<std::string, 28> entries{};
        for (std::size_t i = 0; i < files.size(); ++i) {
            entries[i] = files[i].string();
        }
        return entries;
    }
    void setKnownState() {
        test::setKnownState(*app, bank());
        bank().hiddenVolume.setValue(77);
        bank().hiddenRate.setValue(321);
        bank().hiddenCheck.setValue(1);
    }
};

TEST_F(CustomBankTest, TheRecordHas162FieldsWithPathsAndCaptionsAndGivesSlot17Slot16sBalanceBack) {
    const fs::path moved = makeSound("Moved.wav");
    bank().bulkLoad(
        handOver({makeSound("Sea, calm.wav"), makeSound("sub/Brook \"x\".ogg"), moved}));
    setKnownState();
    ASSERT_TRUE(bank().dosave(h.tree.root() / "c.cbf"));
    const std::string expected =
        "10,20,30,40,50,60,70,80,90,100,110,120,130,140,150,160,170,77,7,100,"
        "101,102,103,104,105,106,107,108,109,110,111,112,113,114,115,116,116,116,1234,33,"
        "50,100,150,200,250,300,350,400,450,500,550,600,650,700,750,800,850,321,"
        "0,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,1,"
        "1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,"
        "249,1,248,2,247,3,246,4,245,5,244,6,243,7,242,8,241,9,240,10,239,11,238,12,237,13,"
        "236,14,235,15,234,16,233,17,"
        "\"soundbanks/background sounds/Sea, calm.wav\","
        "\"soundbanks/background sounds/sub/Brook \"\"x\"\".ogg\","
        "\"soundbanks/background sounds/Moved.wav\","
        "\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\","
        "\"Sea, calm\",\"Brook \"\"x\"\"\",\"Moved\","
        "\"Not Set\",\"Not Set\",\"Not Set\",\"Not Set\",\"Not Set\",\"Not Set\","
        "\"Not Set\",\"Not Set\",\"Not Set\",\"Not Set\",\"Not Set\",\"Not Set\",\"Not Set\","
        "\"Not Set\"\r\n";
    EXPECT_EQ(readWholeFile(h.tree.root() / "c.cbf"), expected);
    std::vector<std::string> saved;
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        saved.push_back(test::describe(bank().slot(s), false));
    }

    bank().stopAll();
    bank().bulkLoad(handOver({makeSound("Other.wav"), makeSound("Other2.wav")}));
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        bank().slot(s).balance.setValue(0);
        bank().slot(s).volume.setValue(1);
    }
    bank().hiddenVolume.setValue(0);
    bank().hiddenRate.setValue(0);
    bank().hiddenCheck.setValue(0);
    app->frmmain.Random.setValue(90);
    app->frmmain.MP3.setValue(10);
    fs::remove(moved);
    h.dialogs.clear();

    ASSERT_TRUE(bank().doload(h.tree.root() / "c.cbf"));
    EXPECT_TRUE(h.dialogs.shown().empty());
    const BackgroundBank& b = bank();
    for (int s = 1; s <= 16; ++s) {
        if (s != 3) {
            EXPECT_EQ(test::describe(b.slot(s), false), saved[s - 1]) << s;
        }
    }
    EXPECT_EQ(b.slot(17).balance.value(), 116);
    EXPECT_EQ(b.slot(17).rate.value(), 850);
    // A moved file leaves its row "Not Set" without a message, but keeps the path for
    // when it is back.
    EXPECT_EQ(b.slot(3).on.caption(), "Not Set");
    EXPECT_EQ(b.slot(3).on.toolTip(), "");
    EXPECT_EQ(b.slot(3).path, "soundbanks/background sounds/Moved.wav");
    EXPECT_EQ(b.hiddenVolume.value(), 77);
    EXPECT_EQ(b.hiddenRate.value(), 321);
    EXPECT_EQ(b.hiddenCheck.value(), 1);
    // The Random strip comes back and writes the console's Random; MP3 does not.
    EXPECT_EQ(app->frmrandommain.maxvol.value(), 33);
    EXPECT_EQ(app->frmmain.MP3.value(), 10);
    // Slot 17 has no file and loads the program's folder.
    EXPECT_EQ(h.engine.callsOf(Op::LoadSample).back().path, h.tree.root());
    EXPECT_EQ(h.engine.playingCount(), 2u);
}

TEST_F(CustomBankTest, LoadingFreesAllLoadsEveryPathThenStartsTwice) {
    bank().bulkLoad(handOver({makeSound("A.wav"), makeSound("B.wav")}));
    bank().slot(1).on.setValue(1);
    ASSERT_TRUE(bank().dosave(h.tree.root() / "c.cbf"));
    bank().slot(1).on.setValue(0);
    h.engine.clearCalls();
    ASSERT_TRUE(bank().doload(h.tree.root() / "c.cbf"));

    Strings sampleCalls;
    for (const std::string& line : lines()) {
        if (line.rfind("pan ", 0) != 0 && line.rfind("volume ", 0) != 0 &&
            line.rfind("loop ", 0) != 0) {
            sampleCalls.push_back(line);
        }
    }
    Strings expected{"free s?", "free s?"};  // slot 1's stale sample, slot 2's file
    expected.insert(expected.end(), 15, "free s0");
    expected.push_back("load soundbanks/background sounds/A.wav -> s1");
    expected.push_back("load soundbanks/background sounds/B.wav -> s2");
    for (int s = 3; s <= kBackgroundSlots; ++s) {
        expected.push_back("load . -> s" + std::to_string(s));  // no file: the program's folder
    }
    // Slot 1 on (its loaded copy given back first), all off, on again.
    expected.insert(
        expected.end(),
        {"free s1", "load soundbanks/background sounds/A.wav -> s18", "play s18 -> c1", "stop c1",
         "free s18", "load soundbanks/background sounds/A.wav -> s19", "play s19 -> c2"});
    EXPECT_EQ(sampleCalls, expected);

    // Repeated loads do not pile samples up: no slot ever holds two.
    const std::size_t loaded = h.engine.loadedCount();
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(bank().doload(h.tree.root() / "c.cbf"));
    }
    EXPECT_EQ(h.engine.loadedCount(), loaded);
    EXPECT_EQ(h.engine.playingCount(), 1u);
}

TEST_F(CustomBankTest, ChoosingAFileAsksAgainUntilItIsInsideTheSoundFolderAndRestartsARunningLoop) {
    BackgroundSoundSlot& sl = bank().slot(4);
    h.dialogs.answerFile(h.tree.root() / "bin/1.isz");
    h.dialogs.answerFile(std::nullopt);
    sl.chooser.click();

    const auto& shown = h.dialogs.shown();
    ASSERT_EQ(shown.size(), 3u);
    for (std::size_t i : {0u, 2u}) {
        EXPECT_EQ(shown[i].kind, ScriptedDialogs::Kind::OpenFile);
        EXPECT_EQ(shown[i].request.startFolder, sounds());
        EXPECT_EQ(shown[i].request.filter,
                  "All Supported Samples (*.wav, *.mp3, *.ogg, *.wma)|*.wav;*.ogg;*.mp3;*.wma");
    }
    EXPECT_EQ(shown[1].text,
              "Please choose a file from within the background soundbanks directory.");
    EXPECT_EQ(sl.on.caption(), "Not Set");
    EXPECT_EQ(sl.path, "");
    // The slot's channel was stopped first, all the same.
    EXPECT_EQ(lines(false), (Strings{"stop c0"}));

    // A file inside loads, names the row, and later restarts a running loop.
    h.dialogs.answerFile(makeSound("Waterfall.ogg"));
    sl.chooser.click();
    EXPECT_EQ(sl.on.caption(), "Waterfall");
    EXPECT_EQ(sl.path, "soundbanks/background sounds/Waterfall.ogg");
    EXPECT_FALSE(sl.on.checked());
    EXPECT_NE(sl.sample, 0u);

    sl.on.setValue(1);
    EXPECT_EQ(h.engine.loadedCount(), 4u * 28u + 2u + 1u);  // the chosen copy was given back
    h.dialogs.answerFile(makeSound("Surf.wav"));
    sl.chooser.click();
    EXPECT_TRUE(sl.on.checked());
    EXPECT_EQ(sl.on.caption(), "Surf");
    EXPECT_TRUE(h.engine.isPlaying(sl.channel));
    EXPECT_EQ(h.engine.callsOf(Op::LoadSample).back().path, sounds() / "Surf.wav");
    EXPECT_EQ(h.engine.playingCount(), 1u);

    // A file the engine cannot open names the row but leaves the loop off.
    const fs::path broken = makeSound("Broken.wma");
    h.engine.failLoading(broken);
    h.dialogs.clear();
    h.dialogs.answerFile(broken);
    sl.chooser.click();
    EXPECT_EQ(h.dialogs.messages(), Strings{"This audio file could not be opened.."});
    EXPECT_EQ(sl.on.caption(), "Broken");
    EXPECT_FALSE(sl.on.checked());
    EXPECT_EQ(h.engine.playingCount(), 0u);
}

TEST_F(CustomBankTest, BulkLoadTakesEntriesUpToTheFirstEmptyOneAndKeepsTheRest) {
    bank().bulkLoad(handOver({makeSound("1.wav"), makeSound("2.wav"), makeSound("3.wav"),
                              makeSound("4.wav"), makeSound("5.wav")}));
    bank().slot(3).on.setValue(1);
    h.engine.clearCalls();

    auto entries = handOver({makeSound("a.wav"), makeSound("b.wav"), makeSound("c.wav")});
    entries[4] = makeSound("beyond the gap.wav").string();
    bank().bulkLoad(entries);
    EXPECT_FALSE(bank().slot(3).on.checked());
    EXPECT_EQ(h.engine.callsOf(Op::Stop).size(), 1u + 17u);  // one switched off, then all 17
    EXPECT_EQ(bank().slot(3).on.caption(), "c");
    EXPECT_EQ(bank().slot(3).path, "soundbanks/background sounds/c.wav");
    EXPECT_EQ(bank().slot(4).on.caption(), "4");
    EXPECT_EQ(bank().slot(5).on.caption(), "5");
    EXPECT_EQ(h.engine.callsOf(Op::LoadSample).size(), 3u);
}

TEST_F(CustomBankTest, ResetAllAsksFirstThenLeavesEverySlotSilentAndNotSet) {
    bank().bulkLoad(handOver({makeSound("A.wav"), makeSound("B.wav")}));
    bank().slot(2).volume.setValue(123);
    h.engine.clearCalls();
    bank().resetAllButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text, "This will reset all sounds on this panel. Continue?");
    EXPECT_TRUE(h.engine.calls().empty());

    h.engine.failLoading(h.tree.root());  // a folder is no sound
    h.dialogs.answerYesNo(true);
    bank().resetAllButton.click();
    EXPECT_EQ(h.engine.callsOf(Op::FreeSample).size(), 17u);
    EXPECT_EQ(h.engine.callsOf(Op::LoadSample).size(), 17u);
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        EXPECT_EQ(bank().slot(s).on.caption(), "Not Set");
        EXPECT_EQ(bank().slot(s).path, "");
        EXPECT_EQ(bank().slot(s).sample, 0u);
    }
    EXPECT_EQ(bank().slot(2).volume.value(), 123);
    h.dialogs.clear();
    bank().slot(2).on.setValue(1);
    EXPECT_TRUE(h.dialogs.shown().empty());
    EXPECT_EQ(h.engine.playingCount(), 0u);
}

TEST_F(CustomBankTest, TheRightButtonOnTheFirstCheckBoxNamesTheRowInsteadOfSwitching) {
    h.dialogs.answerInput("My rain");
    bank().renameFirstSlotByRightButton();
    EXPECT_EQ(h.dialogs.shown().back().text, "Please type a name to identify this sound.");
    EXPECT_EQ(bank().slot(1).on.caption(), "My rain");
    // An empty answer keeps the caption.
    bank().renameFirstSlotByRightButton();
    EXPECT_EQ(bank().slot(1).on.caption(), "My rain");
    EXPECT_TRUE(h.engine.calls().empty());
    // The flag lasts one click: the next one switches the loop.
    bank().slot(1).on.setValue(1);
    EXPECT_EQ(h.engine.playingCount(), 1u);
    // The fixed banks are not renamed.
    h.dialogs.clear();
    app->frmback.renameFirstSlotByRightButton();
    EXPECT_TRUE(h.dialogs.shown().empty());
}

}  // namespace
}  // namespace brevane
