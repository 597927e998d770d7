// Bank files: the record written byte for byte, read back with its ignored and
// repeated fields, the whole load's engine calls, damaged files, and the Load and
// Save commands.

#include <gtest/gtest.h>

#include "background_harness.h"
#include "base/file_io.h"

namespace brevane {
namespace {

using Strings = std::vector<std::string>;
namespace fs = std::filesystem;

class BackgroundFilesTest : public ::testing::Test, public test::BackgroundBankFixture {
  protected:
    void setKnownState(BackgroundBank& b) { test::setKnownState(*app, b); }

    fs::path file(const std::string& name) const { return h.tree.root() / name; }

    static std::string join(const std::vector<int>& fields) {
        std::string out;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            out += (i == 0 ? "" : ",") + std::to_string(fields[i]);
        }
        return out + "\r\n";
    }
};

// A bank file's 128 fields, field k at [k - 1]: every slot off at volume 0, balance 0,
// rate 800, limits 0 and 250.
std::vector<int> defaultFields() {
    std::vector<int> f(128, 0);
    for (int s = 1; s <= 17; ++s) {
        f[40 + s - 1] = 800;
        f[94 + 2 * (s - 1)] = 250;
    }
    return f;
}

TEST_F(BackgroundFilesTest, BankOneWritesOneLineOf128NumbersByteForByteAndReadsItBack) {
    BackgroundBank& b = app->frmback;
    setKnownState(b);
    ASSERT_TRUE(b.dosave(file("one.bcf")));
    const std::string expected =
        "10,20,30,40,50,60,70,80,90,100,110,120,130,140,150,160,170,170,7,100,"
        "101,102,103,104,105,106,107,108,109,110,111,112,113,114,115,116,117,117,1234,33,"
        "50,100,150,200,250,300,350,400,450,500,550,600,650,700,750,800,850,850,"
        "0,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,1,"
        "1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,"
        "249,1,248,2,247,3,246,4,245,5,244,6,243,7,242,8,241,9,240,10,239,11,238,12,237,13,"
        "236,14,235,15,234,16,233,17\r\n";
    EXPECT_EQ(readWholeFile(file("one.bcf")), expected);

    const std::string saved = test::snapshot(b, false);
    b.stopAll();
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        b.slot(s).volume.setValue(3);
        b.slot(s).balance.setValue(4);
        b.slot(s).rate.setValue(5);
        b.slot(s).lowLimitBar.setValue(250);
        b.slot(s).highLimitBar.setValue(0);
    }
    ASSERT_TRUE(b.doload(file("one.bcf")));
    EXPECT_TRUE(h.dialogs.shown().empty());
    EXPECT_EQ(test::snapshot(b, false), saved);
    EXPECT_EQ(h.engine.playingCount(), 2u);
}

TEST_F(BackgroundFilesTest, FillerAndGroupFieldsMayHoldAnyNumberAndChangeNothing) {
    std::vector<int> plain = defaultFields();
    plain[0] = 120;
    plain[58] = 1;  // slot 1 on
    plain[74] = 1;  // slot 17 on
    std::vector<int> odd = plain;
    for (int k : {18, 19, 20, 38, 39, 40, 58}) {
        odd[k - 1] = 30000 + k;
    }
    for (int k = 76; k <= 94; ++k) {
        odd[k - 1] = k % 2 == 0 ? -7 : 12345;
    }
    std::vector<std::string> results;
    for (const auto& fields : {plain, odd}) {
        test::BackgroundBankFixture other;
        other.h.writeFile("x.bcf", join(fields));
        ASSERT_TRUE(other.app->frmback.doload(other.h.tree.root() / "x.bcf"));
        std::string result = test::snapshot(other.app->frmback);
        for (const std::string& line : other.lines(false)) {
            result += line + "\n";
        }
        results.push_back(result);
    }
    EXPECT_EQ(results[0], results[1]);
}

TEST_F(BackgroundFilesTest, ALoadStartsTheWantedLoopsSilentlyStopsEverythingThenStartsThemAgain) {
    BackgroundBank& b = app->frmback;
    b.slot(2).volume.setValue(30);
    b.slot(2).on.setValue(1);
    b.slot(17).volume.setValue(40);
    b.slot(17).on.setValue(1);

    std::vector<int> f = defaultFields();
    f[0] = 100;   // slot 1 volume
    f[16] = 50;   // slot 17 volume
    f[20] = 20;   // slot 1 balance
    f[36] = 240;  // slot 17 balance
    f[58] = 1;    // slot 1 on
    f[74] = 1;    // slot 17 on: it is running already, and restarts
    f[94] = 150;  // slot 1 lower limit 100
    f[95] = 100;  // slot 1 upper limit 150
    h.writeFile("load.bcf", join(f));
    ASSERT_TRUE(b.doload(file("load.bcf")));

    const Strings expected{
        // The two loops switched on by hand.
        "load bin/2.isz -> s1", "play s1 -> c1", "pan c1 0", "volume c1 36", "loop c1 normal",
        "load bin/17.isz -> s2", "play s2 -> c2", "pan c2 0", "volume c2 48", "loop c2 normal",
        // Every volume to 0.
        "volume c1 0", "volume c2 0",
        // The file's check boxes: slot 1 starts silently, slot 2 stops, 17 runs on.
        "load bin/1.isz -> s3", "play s3 -> c3", "pan c3 0", "volume c3 0", "loop c3 normal",
        "stop c1", "free s1",
        // Everything off, 11 to 17 first, then 1 to 10.
        "stop c2", "free s2", "stop c3", "free s3",
        // Volumes and balances reach the stale channels; limits and rates touch no sound.
        "volume c3 119", "volume c2 60", "pan c3 20", "pan c2 240",
        // The wanted loops start at their real values.
        "load bin/1.isz -> s4", "play s4 -> c4", "pan c4 20", "volume c4 119", "loop c4 normal",
        "load bin/17.isz -> s5", "play s5 -> c5", "pan c5 240", "volume c5 60", "loop c5 normal"};
    EXPECT_EQ(lines(), expected);
    EXPECT_EQ(b.slot(1).lowLimitText.text(), "100");
    EXPECT_EQ(b.slot(1).highLimitText.text(), "150");
    EXPECT_GE(b.slot(1).driftTarget, 100);
    EXPECT_LE(b.slot(1).driftTarget, 150);
    // Limits the file leaves as they were draw nothing: slot 17 still walks to 0.
    EXPECT_EQ(b.slot(17).driftTarget, 0);
}

TEST_F(BackgroundFilesTest, ADamagedBankFileShowsTheBanksMessageAndChangesNothing) {
    std::vector<int> full = defaultFields();
    full[58] = 1;
    const std::string good = join(full);
    const std::vector<std::pair<std::string, std::string>> damaged{
        {"empty", ""},
        {"short", good.substr(0, good.rfind(','))},
        {"text in a number", std::string(good).replace(good.find(",800,"), 5, ",abc,")},
        {"quoted", "\"hello\"\r\n"},
        {"unclosed", "1,2,\"3"},
        {"missing", "-"},
    };
    const std::vector<std::pair<BackgroundBank*, std::string>> banks{
        {&app->frmback, "There was a problem loading the background bank one settings."},
        {&app->frmback2, "There was a problem loading the background bank two settings."},
        {&app->frmbackcustom,
         "One or more custom backgrounds could not be located. The most likely reason for this "
         "is that they have be moved or deleted. To prevent this message showing in the future, "
         "please reselect the sounds on the custom backgrounds panel and resave the scenario."},
    };
    setKnownState(app->frmback);
    for (const auto& [bank, message] : banks) {
        const std::string before = test::snapshot(*bank);
        for (const auto& [what, content] : damaged) {
            fs::remove(file("bad"));
            if (what != "missing") {
                h.writeFile("bad", content);
            }
            h.engine.clearCalls();
            h.dialogs.clear();
            EXPECT_FALSE(bank->doload(file("bad"))) << what;
            ASSERT_EQ(h.dialogs.messages(), Strings{message}) << what;
            EXPECT_EQ(h.dialogs.shown()[0].messageKind, MessageKind::Information);
            EXPECT_TRUE(h.engine.calls().empty()) << what;
            EXPECT_EQ(test::snapshot(*bank), before) << what;
        }
    }
}

TEST_F(BackgroundFilesTest, LoadAndSaveGoThroughTheirDialogsAndACancelledSaveStillWrites) {
    BackgroundBank& b = app->frmback2;
    const fs::path folder = h.tree.root() / "config/main/background bank two";

    // Save: preset to slot 1's lower limit; Cancel still saves under that name.
    b.slot(1).lowLimitBar.setValue(200);
    b.saveButton.click();
    ASSERT_EQ(h.dialogs.shown().size(), 1u);
    const FileDialogRequest& request = h.dialogs.shown()[0].request;
    EXPECT_EQ(request.startFolder, folder);
    EXPECT_EQ(request.filter, "Background Config Files (*.bcf)|*.bcf");
    EXPECT_EQ(request.fileName, "50");
    EXPECT_EQ(readWholeFile(folder / "50"), b.record());

    // Load: no preset name; Cancel loads nothing.
    b.slot(1).lowLimitBar.setValue(250);
    h.dialogs.clear();
    b.loadButton.click();
    ASSERT_EQ(h.dialogs.shown().size(), 1u);
    EXPECT_EQ(h.dialogs.shown()[0].kind, ScriptedDialogs::Kind::OpenFile);
    EXPECT_EQ(h.dialogs.shown()[0].request.fileName, "");
    EXPECT_EQ(h.dialogs.shown()[0].request.startFolder, folder);
    EXPECT_EQ(b.slot(1).lowLimitText.text(), "0");
    h.dialogs.answerFile(folder / "50");
    b.loadButton.click();
    EXPECT_EQ(b.slot(1).lowLimitText.text(), "50");
}

}  // namespace
}  // namespace brevane
