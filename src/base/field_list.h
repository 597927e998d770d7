#pragma once
// One field list, two directions. A file's fields are listed once, in file order, in a
// function template `fields(io, record)` that calls io.text(), io.number() and
// io.truth() on the record's members; FieldGiver walks it to write a record and
// FieldTaker to read one, so the writer and the reader can never drift apart.
//
//   template <class Io, class Record> void fooFields(Io& io, Record& r) {
//       io.text(r.name);
//       io.number(r.level);
//   }
//   writeFields(record, [](auto& io, auto& r) { fooFields(io, r); });
//   readFields<Foo>(content, Foo::kFields, [](auto& io, auto& r) { fooFields(io, r); });

#include <string>
#include <string_view>
#include <utility>

#include "base/comma_record.h"

namespace brevane {

// A record read from a file, with how far the read went.
template <class Record>
struct FieldsRead {
    Record record{};
    // Fields read in full, counted from the first.
    int fields = 0;
    // Whether field `number` (1-based) came through.
    bool has(int number) const { return number >= 1 && number <= fields; }
    // Whether every one of `count` fields came through.
    bool whole(int count) const { return fields >= count; }
};

// Reads fields in order and counts those that came through. After the first failure
// every later take leaves its target alone: the reader stays failed.
class FieldTaker {
  public:
    FieldTaker(std::string_view content, int maxFields) : reader_(content), max_(maxFields) {}

    void text(std::string& out) {
        take(out, [this] { return reader_.readText(); });
    }
    void number(int& out) {
        take(out, [this] { return static_cast<int>(reader_.readLong()); });
    }
    void truth(bool& out) {
        take(out, [this] { return reader_.readTruth(); });
    }
    // A field kept empty: read and let go.
    void empty() {
        std::string ignored;
        text(ignored);
    }

    int fields() const { return fields_; }

  private:
    template <class T, class Read>
    void take(T& out, Read read) {
        if (fields_ >= max_ || !reader_.ok()) {
            return;
        }
        T value = read();
        if (reader_.ok()) {
            out = std::move(value);
            ++fields_;
        }
    }

    RecordReader reader_;
    int max_;
    int fields_ = 0;
};

// The writer's side of a field list: every field in one record, or, with
// recordPerField, each field a record (a line) of its own.
class FieldGiver {
  public:
    explicit FieldGiver(bool recordPerField = false) : recordPerField_(recordPerField) {}

    void text(const std::string& value) { end(writer_.text(value)); }
    void number(int value) { end(writer_.number(value)); }
    void truth(bool value) { end(writer_.truth(value)); }
    void empty() { end(writer_.empty()); }
    std::string record() {
        if (!recordPerField_) {
            writer_.endRecord();
        }
        return writer_.str();
    }

  private:
    void end(RecordWriter& writer) {
        if (recordPerField_) {
            writer.endRecord();
        }
    }
    RecordWriter writer_;
    bool recordPerField_;
};

template <class Record, class Fields>
std::string writeFields(const Record& r, Fields fields, bool recordPerField = false) {
    FieldGiver give(recordPerField);
    fields(give, r);
    return give.record();
}

template <class Record, class Fields>
FieldsRead<Record> readFields(std::string_view content, int maxFields, Fields fields) {
    FieldsRead<Record> read;
    FieldTaker take(content, maxFields);
    fields(take, read.record);
    read.fields = take.fields();
    return read;
}

}  // namespace brevane
