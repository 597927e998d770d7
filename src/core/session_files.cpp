#include "core/session_files.h"

#include <charconv>

#include "base/comma_record.h"

namespace brevane {

namespace {

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

}  // namespace

std::string writeSoundCardFile(int soundCardIndex) {
    return RecordWriter().number(soundCardIndex).endRecord().str();
}

SessionRead<int> readSoundCardFile(std::string_view content) {
    SessionRead<int> read;
    FieldTaker take(content, 1);
    take.number(read.record);
    read.fields = take.fields();
    return read;
}

std::string writeStatesFile(const StatesRecord& r) {
    return RecordWriter()
        .truth(r.RemoteShown)
        .truth(r.MainShown)
        .truth(r.PanoramicShown)
        .truth(r.SlideshowShown)
        .truth(r.VisualFlag5)
        .endRecord()
        .str();
}

SessionRead<StatesRecord> readStatesFile(std::string_view content) {
    SessionRead<StatesRecord> read;
    StatesRecord& r = read.record;
    FieldTaker take(content, StatesRecord::kFields);
    take.truth(r.RemoteShown);
    take.truth(r.MainShown);
    take.truth(r.PanoramicShown);
    take.truth(r.SlideshowShown);
    take.truth(r.VisualFlag5);
    read.fields = take.fields();
    return read;
}

std::string writeMainFile(const MainRecord& r) {
    return RecordWriter()
        .text(r.alarmState)
        .text(r.scenarioName)
        .number(r.form3Randomise)
        .number(r.form33Randomise)
        .text(r.slideshowLabel)
        .text(r.panoramicLabel)
        .text(r.colourSchemeName)
        .number(r.soundCardIndex)
        .endRecord()
        .str();
}

SessionRead<MainRecord> readMainFile(std::string_view content, int maxFields) {
    SessionRead<MainRecord> read;
    MainRecord& r = read.record;
    FieldTaker take(content, maxFields);
    take.text(r.alarmState);
    take.text(r.scenarioName);
    take.number(r.form3Randomise);
    take.number(r.form33Randomise);
    take.text(r.slideshowLabel);
    take.text(r.panoramicLabel);
    take.text(r.colourSchemeName);
    take.number(r.soundCardIndex);
    read.fields = take.fields();
    return read;
}

std::string writeMainbFile(const MainbRecord& r) {
    RecordWriter w;
    for (int g : r.groups) {
        w.number(g);
    }
    for (int p = 0; p < 12; ++p) {
        w.text(r.presetCaptions[static_cast<std::size_t>(p)]);
    }
    for (const std::string& c : r.colours) {
        w.text(c);
    }
    for (const std::string& f : r.hiddenConsoleFields) {
        w.text(f);
    }
    w.text(r.remoteFolder).text(r.remoteCaption).text(r.slideshowLabel);
    w.truth(r.customRandomAuto).truth(r.randomAuto);
    // Preset 12's caption goes out twice; the reader takes the first copy elsewhere.
    w.text(r.presetCaptions[12]).text(r.presetCaptions[12]).text(r.presetCaptions[13]);
    w.text(r.scenarioName).text(r.presetListName).text(r.remoteCaptionAgain);
    w.text(r.schedulerCaption);
    w.text(r.remoteTexts[0]).text(r.remoteTexts[1]);
    w.truth(r.remoteOptions[0]).truth(r.remoteOptions[1]);
    w.number(r.remoteScrolls[0]).number(r.remoteScrolls[1]);
    w.text(r.brainwaveList);
    return w.endRecord().str();
}

SessionRead<MainbRecord> readMainbFile(std::string_view content) {
    SessionRead<MainbRecord> read;
    MainbRecord& r = read.record;
    FieldTaker take(content, MainbRecord::kFields);
    for (int& g : r.groups) {
        take.number(g);
    }
    for (int p = 0; p < 12; ++p) {
        take.text(r.presetCaptions[static_cast<std::size_t>(p)]);
    }
    for (std::string& c : r.colours) {
        take.text(c);
    }
    for (std::string& f : r.hiddenConsoleFields) {
        take.text(f);
    }
    take.text(r.remoteFolder);
    take.text(r.remoteCaption);
    take.text(r.slideshowLabel);
    take.truth(r.customRandomAuto);
    take.truth(r.randomAuto);
    take.text(r.field37);
    take.text(r.presetCaptions[12]);
    take.text(r.presetCaptions[13]);
    take.text(r.scenarioName);
    take.text(r.presetListName);
    take.text(r.remoteCaptionAgain);
    take.text(r.schedulerCaption);
    take.text(r.remoteTexts[0]);
    take.text(r.remoteTexts[1]);
    take.truth(r.remoteOptions[0]);
    take.truth(r.remoteOptions[1]);
    take.number(r.remoteScrolls[0]);
    take.number(r.remoteScrolls[1]);
    take.text(r.brainwaveList);
    read.fields = take.fields();
    return read;
}

std::optional<int> wholeNumberText(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) {
        text.remove_suffix(1);
    }
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, ec] = std::from_chars(text.data(), end, value);
    if (text.empty() || ec != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

}  // namespace brevane
