// The console's session files as text: every field in its place and form, and reads
// that go as far as a damaged file allows.

#include "core/session_files.h"

#include <gtest/gtest.h>

namespace brevane {
namespace {

MainbRecord sampleMainb() {
    MainbRecord r;
    r.groups = {40, 3, 5, 3100, 7};
    for (int p = 0; p < MainbRecord::kPresets; ++p) {
        r.presetCaptions[static_cast<std::size_t>(p)] = "P" + std::to_string(p);
    }
    for (int c = 0; c < kSchemeColours; ++c) {
        r.colours[static_cast<std::size_t>(c)] = std::to_string(100 + c);
    }
    r.hiddenConsoleFields = {"h1", "h2", "", "h4"};
    r.remoteFolder = "Default";
    r.remoteCaption = "Scenario: Rain";
    r.slideshowLabel = "Beach";
    r.customRandomAuto = true;
    r.randomAuto = false;
    r.field37 = "ignored by the writer";
    r.scenarioName = "Rain";
    r.presetListName = "Evenings";
    r.remoteCaptionAgain = "Scenario: Rain again";
    r.schedulerCaption = "Sched";
    r.remoteTexts = {"t1", "t2"};
    r.remoteOptions = {false, true};
    r.remoteScrolls = {12, -3};
    r.brainwaveList = "Alpha";
    return r;
}

TEST(SessionFiles, MainbHoldsFiftyFieldsWithPresetTwelveTwice) {
    const std::string expected =
        "40,3,5,3100,7,"
        "\"P0\",\"P1\",\"P2\",\"P3\",\"P4\",\"P5\",\"P6\",\"P7\",\"P8\",\"P9\",\"P10\",\"P11\","
        "\"100\",\"101\",\"102\",\"103\",\"104\",\"105\",\"106\",\"107\",\"108\",\"109\","
        "\"h1\",\"h2\",\"\",\"h4\","
        "\"Default\",\"Scenario: Rain\",\"Beach\","
        "#TRUE#,#FALSE#,"
        "\"P12\",\"P12\",\"P13\","
        "\"Rain\",\"Evenings\",\"Scenario: Rain again\",\"Sched\","
        "\"t1\",\"t2\",#FALSE#,#TRUE#,12,-3,\"Alpha\"\r\n";
    EXPECT_EQ(writeMainbFile(sampleMainb()), expected);
}

TEST(SessionFiles, MainbReadsField37AsTextAndPresetTwelveFrom38) {
    const MainbRecord written = sampleMainb();
    std::string text = writeMainbFile(written);
    // A file from a session whose 37th field differs from the 38th.
    const std::string twice = "\"P12\",\"P12\"";
    text.replace(text.find(twice), twice.size(), "\"2\",\"P12\"");

    const SessionRead<MainbRecord> read = readMainbFile(text);
    EXPECT_EQ(read.fields, 50);
    EXPECT_EQ(read.record.field37, "2");
    // Every other field comes back as written, preset 12 from field 38.
    EXPECT_EQ(writeMainbFile(read.record), writeMainbFile(written));
}

TEST(SessionFiles, ADamagedFileReadsUpToItsFirstBadField) {
    // Cut off inside a text: the quote never closes.
    std::string text = writeMainbFile(sampleMainb());
    const std::size_t cut = text.find("\"Beach\"") + 3;
    const SessionRead<MainbRecord> cutOff = readMainbFile(text.substr(0, cut));
    EXPECT_EQ(cutOff.fields, 33);
    EXPECT_EQ(cutOff.record.slideshowLabel, "");

    // The end of the file after field 5: the rest keeps the record's own values.
    const SessionRead<StatesRecord> states = readStatesFile("#TRUE#,#TRUE#");
    EXPECT_EQ(states.fields, 2);
    EXPECT_FALSE(states.record.PanoramicShown);

    // Binary rubbish is text to the reader, never a crash.
    const std::string rubbish("\x01\xff,\"\x00\x02", 6);
    EXPECT_EQ(readMainFile(rubbish).fields, 1);
    EXPECT_FALSE(readMainFile("").has(1));
}

TEST(SessionFiles, WholeNumberTextTakesOnlyAWholeNumber) {
    EXPECT_EQ(wholeNumberText(" 17 "), 17);
    EXPECT_EQ(wholeNumberText("-1"), -1);
    for (const char* text : {"Currently Unassigned", "3 Forest", "2.5", "", "99999999999"}) {
        EXPECT_EQ(wholeNumberText(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace brevane
