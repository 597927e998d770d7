#include "base/comma_record.h"

#include <gtest/gtest.h>

namespace brevane {
namespace {

TEST(CommaRecord, WritesTheExactTextFormWithTheShortestNumbers) {
    RecordWriter w;
    w.text("Summer Storm").number(255).number(-3).truth(true).truth(false).empty().number(0.5);
    w.endRecord();
    w.number(2.0).number(0.1).number(-0.0).number(1e-7).endRecord();
    EXPECT_EQ(w.str(), "\"Summer Storm\",255,-3,#TRUE#,#FALSE#,,0.5\r\n2,0.1,0,1e-07\r\n");
}

TEST(CommaRecord, EveryTypeReadsBackAsWrittenAndQuotesOrBreaksInTextsShiftNothing) {
    RecordWriter w;
    w.text("a, \"quoted\" text").number(-2147483647LL).number(32767).truth(true).empty();
    w.number(12.25).text("line one\r\nline \"two\",").text("\"").endRecord();
    w.truth(false).text("next record").endRecord();
    RecordReader r(w.str());
    EXPECT_EQ(r.readText(), "a, \"quoted\" text");
    EXPECT_EQ(r.readLong(), -2147483647);
    EXPECT_EQ(r.readShort(), 32767);
    EXPECT_TRUE(r.readTruth());
    EXPECT_EQ(r.readText(), "");
    EXPECT_DOUBLE_EQ(r.readNumber(), 12.25);
    EXPECT_EQ(r.readText(), "line one\r\nline \"two\",");
    EXPECT_EQ(r.readText(), "\"");
    EXPECT_FALSE(r.readTruth());
    EXPECT_EQ(r.readText(), "next record");
    EXPECT_TRUE(r.ok());
    EXPECT_TRUE(r.atEnd());
    EXPECT_EQ(r.fieldsRead(), 10);
}

TEST(CommaRecord, ReaderAcceptsLfBlanksAndATrailingEmptyFieldAndRoundsHalfToEven) {
    RecordReader r(" 12 , \"x\" ,#TRUE#\n 3,\r\n2.5,3.5,-2.5,2.4999");
    EXPECT_EQ(r.readLong(), 12);
    EXPECT_EQ(r.readText(), "x");
    EXPECT_EQ(r.readLong(), -1);  // #TRUE# read into a number
    EXPECT_EQ(r.readLong(), 3);
    EXPECT_EQ(r.readText(), "");  // an empty field at the end of a record is still a field
    for (const long whole : {2L, 4L, -2L, 2L}) {
        EXPECT_EQ(r.readLong(), whole);
    }
    EXPECT_TRUE(r.ok());
}

TEST(CommaRecord, AShortFileFailsAtTheFirstMissingFieldAndStaysFailed) {
    RecordReader r("1,2\r\n");
    EXPECT_EQ(r.readLong(), 1);
    EXPECT_EQ(r.readLong(), 2);
    EXPECT_EQ(r.readLong(), 0);
    EXPECT_FALSE(r.ok());
    EXPECT_EQ(r.fieldsRead(), 2);
    EXPECT_EQ(r.readText(), "");
    EXPECT_FALSE(r.ok());
}

TEST(CommaRecord, DamagedFieldsFailTheReader) {
    RecordReader letters("12,abc,3");
    letters.readLong();
    letters.readLong();
    EXPECT_FALSE(letters.ok());
    EXPECT_EQ(letters.fieldsRead(), 1);
    const std::pair<const char*, void (*)(RecordReader&)> damaged[] = {
        {"\"never closed,1,2", [](RecordReader& r) { r.readText(); }},
        {"40000", [](RecordReader& r) { r.readShort(); }},
        {"99999999999", [](RecordReader& r) { r.readLong(); }},
        {"maybe", [](RecordReader& r) { r.readTruth(); }},
        {"nan,inf", [](RecordReader& r) { r.readNumber(); }},
    };
    for (const auto& [text, read] : damaged) {
        RecordReader r(text);
        read(r);
        EXPECT_FALSE(r.ok()) << text;
    }
}

TEST(CommaRecord, BinaryGarbageRunsTheReaderOutWithoutReadingPastTheEnd) {
    std::string garbage;
    unsigned x = 12345;
    for (int i = 0; i < 4096; ++i) {
        x = x * 1103515245u + 12345u;
        garbage += static_cast<char>(x >> 16);
    }
    // Every field read consumes input, so the reader runs out and fails instead
    // of looping or reading past the end.
    RecordReader r(garbage);
    for (int i = 0; i < 5000; ++i) {
        r.readText();
    }
    EXPECT_FALSE(r.ok());
    EXPECT_LE(r.fieldsRead(), static_cast<int>(garbage.size()) + 1);
}

TEST(CommaRecord, LineListsEndUnquotedEntriesAtACommaAndSkipBlankLines) {
    const std::string written = writeLineList({"Summer Storm.scn", "Night, Rain.scn", "Dawn.scn"});
    EXPECT_EQ(written, "Summer Storm.scn\r\nNight, Rain.scn\r\nDawn.scn\r\n");
    EXPECT_EQ(readLineList(written),
              (std::vector<std::string>{"Summer Storm.scn", "Night", "Rain.scn", "Dawn.scn"}));
    EXPECT_EQ(readLineList("a\n\n\"b, c\"\nd"), (std::vector<std::string>{"a", "b, c", "d"}));
    EXPECT_TRUE(readLineList("").empty());
}

}  // namespace
}  // namespace brevane
