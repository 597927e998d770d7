#include "base/comma_record.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace brevane {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}
bool isLineEnd(char c) {
    return c == '\r' || c == '\n';
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
               return lower(x) == lower(y);
           });
}

// Parses a decimal number, with optional sign, fraction and exponent.
bool parseNumber(std::string_view s, double& out) {
    if (s.empty()) {
        return false;
    }
    if (s.front() == '+') {
        s.remove_prefix(1);
    }
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), out);
    return ec == std::errc() && end == s.data() + s.size() && std::isfinite(out);
}

}  // namespace

void RecordWriter::separate() {
    if (fieldInRecord_) {
        out_ += ',';
    }
    fieldInRecord_ = true;
}

RecordWriter& RecordWriter::text(std::string_view value) {
    separate();
    out_ += '"';
    for (char c : value) {
        if (c == '"') {
            out_ += '"';
        }
        out_ += c;
    }
    out_ += '"';
    return *this;
}

RecordWriter& RecordWriter::number(long long value) {
    separate();
    out_ += std::to_string(value);
    return *this;
}

RecordWriter& RecordWriter::number(double value) {
    separate();
    if (!std::isfinite(value)) {
        value = 0.0;
    }
    if (value == 0.0) {
        value = 0.0;  // no "-0"
    }
    char buf[64];
    const auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value);
    out_.append(buf, ec == std::errc() ? end : buf);
    return *this;
}

RecordWriter& RecordWriter::truth(bool value) {
    separate();
    out_ += value ? "#TRUE#" : "#FALSE#";
    return *this;
}

RecordWriter& RecordWriter::empty() {
    separate();
    return *this;
}

RecordWriter& RecordWriter::endRecord() {
    out_ += "\r\n";
    fieldInRecord_ = false;
    return *this;
}

bool RecordReader::atEnd() const {
    for (std::size_t i = pos_; i < data_.size(); ++i) {
        if (!isBlank(data_[i]) && !isLineEnd(data_[i])) {
            return false;
        }
    }
    return true;
}

bool RecordReader::next(Field& field) {
    if (!ok_) {
        return false;
    }
    // A record end between fields is a separator like a comma, and blank lines
    // before a field are passed over; but after a comma the field is there even
    // when empty, up to the line end.
    while (pos_ < data_.size() &&
           (isBlank(data_[pos_]) || (!afterComma_ && isLineEnd(data_[pos_])))) {
        ++pos_;
    }
    field = Field{};
    if (pos_ >= data_.size()) {
        if (!afterComma_) {
            fail();
            return false;
        }
        afterComma_ = false;
        ++fieldsRead_;
        return true;
    }
    if (data_[pos_] == '"') {
        field.quoted = true;
        ++pos_;
        bool closed = false;
        while (pos_ < data_.size()) {
            const char c = data_[pos_++];
            if (c == '"') {
                if (pos_ < data_.size() && data_[pos_] == '"') {
                    field.value += '"';
                    ++pos_;
                    continue;
                }
                closed = true;
                break;
            }
            field.value += c;
        }
        if (!closed) {
            fail();
            return false;
        }
        // Anything between the closing quote and the separator is not part of the
        // text.
        while (pos_ < data_.size() && data_[pos_] != ',' && !isLineEnd(data_[pos_])) {
            ++pos_;
        }
    } else {
        const std::size_t start = pos_;
        while (pos_ < data_.size() && data_[pos_] != ',' && !isLineEnd(data_[pos_])) {
            ++pos_;
        }
        std::size_t end = pos_;
        while (end > start && isBlank(data_[end - 1])) {
            --end;
        }
        field.value.assign(data_.substr(start, end - start));
    }
    // Consume the separator: a comma, or one line end (CR LF, LF or CR).
    afterComma_ = false;
    if (pos_ < data_.size()) {
        if (data_[pos_] == ',') {
            ++pos_;
            afterComma_ = true;
        } else if (data_[pos_] == '\r') {
            ++pos_;
            if (pos_ < data_.size() && data_[pos_] == '\n') {
                ++pos_;
            }
        } else if (data_[pos_] == '\n') {
            ++pos_;
        }
    }
    ++fieldsRead_;
    return true;
}

std::string RecordReader::readText() {
    Field f;
    if (!next(f)) {
        return {};
    }
    if (!f.quoted) {
        if (f.value == "#TRUE#") {
            return "True";
        }
        if (f.value == "#FALSE#") {
            return "False";
        }
    }
    return f.value;
}

double RecordReader::readNumber() {
    Field f;
    if (!next(f)) {
        return 0.0;
    }
    if (f.value.empty()) {
        return 0.0;
    }
    if (f.value == "#TRUE#") {
        return -1.0;
    }
    if (f.value == "#FALSE#") {
        return 0.0;
    }
    double v = 0.0;
    if (!parseNumber(f.value, v)) {
        --fieldsRead_;
        fail();
        return 0.0;
    }
    return v;
}

std::int32_t RecordReader::readLong() {
    const double v = std::nearbyint(readNumber());  // default rounding: halves to even
    if (!ok_) {
        return 0;
    }
    if (v < std::numeric_limits<std::int32_t>::min() ||
        v > std::numeric_limits<std::int32_t>::max()) {
        --fieldsRead_;
        fail();
        return 0;
    }
    return static_cast<std::int32_t>(v);
}

std::int16_t RecordReader::readShort() {
    const std::int32_t v = readLong();
    if (!ok_) {
        return 0;
    }
    if (v < std::numeric_limits<std::int16_t>::min() ||
        v > std::numeric_limits<std::int16_t>::max()) {
        --fieldsRead_;
        fail();
        return 0;
    }
    return static_cast<std::int16_t>(v);
}

bool RecordReader::readTruth() {
    Field f;
    if (!next(f)) {
        return false;
    }
    if (f.value.empty() || f.value == "#FALSE#" || equalsIgnoringCase(f.value, "false")) {
        return false;
    }
    if (f.value == "#TRUE#" || equalsIgnoringCase(f.value, "true")) {
        return true;
    }
    double v = 0.0;
    if (!parseNumber(f.value, v)) {
        --fieldsRead_;
        fail();
        return false;
    }
    return v != 0.0;
}

std::string writeLineList(const std::vector<std::string>& entries) {
    std::string out;
    for (const auto& e : entries) {
        out += e;
        out += "\r\n";
    }
    return out;
}

std::vector<std::string> readLineList(std::string_view data) {
    std::vector<std::string> entries;
    RecordReader reader(data);
    while (!reader.atEnd()) {
        std::string entry = reader.readText();
        if (!reader.ok()) {
            break;
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

}  // namespace brevane
