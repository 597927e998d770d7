#pragma once
// The comma record: the text form of every file the program keeps.
//
// Fields are joined by commas and a record ends in CR LF. Texts stand in double
// quotes, numbers in decimal, truth values as #TRUE# and #FALSE#, an unset field
// is empty. A double quote inside a text is written doubled, so a text holding
// quotes, commas or line breaks never shifts the fields after it.
//
// A file is read back field by field in the order it was written. A field that
// cannot be read (the file ends early, a quote never closes, a number is not a
// number) fails the reader: it stays failed, every later read gives the empty
// value, and ok() turns false. Callers read every field first and apply nothing
// unless ok(), so a damaged file never half-applies.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brevane {

class RecordWriter {
  public:
    RecordWriter& text(std::string_view value);
    RecordWriter& number(long long value);
    RecordWriter& number(int value) { return number(static_cast<long long>(value)); }
    // Shortest decimal form that reads back to the same double, no fixed places.
    RecordWriter& number(double value);
    RecordWriter& truth(bool value);
    RecordWriter& empty();
    // Ends the record with CR LF.
    RecordWriter& endRecord();

    const std::string& str() const { return out_; }

  private:
    void separate();
    std::string out_;
    bool fieldInRecord_ = false;
};

class RecordReader {
  public:
    explicit RecordReader(std::string_view data) : data_(data) {}

    // The next field as text: a quoted text, or an unquoted field as it stands
    // (#TRUE# and #FALSE# read as "True" and "False").
    std::string readText();
    // A whole number in the 32-bit range. A decimal fraction rounds to nearest,
    // halves to even; #TRUE# is -1 and #FALSE# 0; empty is 0.
    std::int32_t readLong();
    // The same within the 16-bit range; a value outside fails.
    std::int16_t readShort();
    double readNumber();
    // #TRUE#/#FALSE#, "True"/"False" in any case, or a number (non-zero is true).
    bool readTruth();

    bool ok() const { return ok_; }
    // Fields read successfully so far; on failure, the index of the failing field.
    int fieldsRead() const { return fieldsRead_; }
    // True when nothing but white space and line ends is left.
    bool atEnd() const;

  private:
    struct Field {
        std::string value;
        bool quoted = false;
    };
    bool next(Field& field);
    void fail() { ok_ = false; }

    std::string_view data_;
    std::size_t pos_ = 0;
    bool ok_ = true;
    bool afterComma_ = false;
    int fieldsRead_ = 0;
};

// Plain line lists: one entry a line, written unquoted; read with the record
// reader, so a comma ends an unquoted entry and what follows it is the next entry.
// Blank lines are skipped.
std::string writeLineList(const std::vector<std::string>& entries);
std::vector<std::string> readLineList(std::string_view data);

}  // namespace brevane
