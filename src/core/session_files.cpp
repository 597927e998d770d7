#include "core/session_files.h"

#include <charconv>
#include <type_traits>

#include "base/comma_record.h"
#include "base/field_list.h"

namespace brevane {

std::string writeSoundCardFile(int soundCardIndex) {
    return RecordWriter().number(soundCardIndex).endRecord().str();
}

SessionRead<int> readSoundCardFile(std::string_view content) {
    return readFields<int>(content, 1, [](auto& io, auto& r) { io.number(r); });
}

namespace {

// Each file's fields are listed once, in file order, and walked by the writer or by the
// taker: the record is const when writing.
template <class Io, class Record>
void statesFields(Io& io, Record& r) {
    io.truth(r.RemoteShown);
    io.truth(r.MainShown);
    io.truth(r.PanoramicShown);
    io.truth(r.SlideshowShown);
    io.truth(r.VisualFlag5);
}

template <class Io, class Record>
void mainFields(Io& io, Record& r) {
    io.text(r.alarmState);
    io.text(r.scenarioName);
    io.number(r.form3Randomise);
    io.number(r.form33Randomise);
    io.text(r.slideshowLabel);
    io.text(r.panoramicLabel);
    io.text(r.colourSchemeName);
    io.number(r.soundCardIndex);
}

template <class Io, class Record>
void mainbFields(Io& io, Record& r) {
    for (auto& g : r.groups) {
        io.number(g);
    }
    for (int p = 0; p < 12; ++p) {
        io.text(r.presetCaptions[static_cast<std::size_t>(p)]);
    }
    for (auto& c : r.colours) {
        io.text(c);
    }
    for (auto& f : r.hiddenConsoleFields) {
        io.text(f);
    }
    io.text(r.remoteFolder);
    io.text(r.remoteCaption);
    io.text(r.slideshowLabel);
    io.truth(r.customRandomAuto);
    io.truth(r.randomAuto);
    // Field 37: preset 12's caption goes out here and again in field 38; what comes back
    // here is kept apart, and preset 12 is taken from field 38.
    if constexpr (std::is_const_v<Record>) {
        io.text(r.presetCaptions[12]);
    } else {
        io.text(r.field37);
    }
    io.text(r.presetCaptions[12]);
    io.text(r.presetCaptions[13]);
    io.text(r.scenarioName);
    io.text(r.presetListName);
    io.text(r.remoteCaptionAgain);
    io.text(r.schedulerCaption);
    io.text(r.remoteTexts[0]);
    io.text(r.remoteTexts[1]);
    io.truth(r.remoteOptions[0]);
    io.truth(r.remoteOptions[1]);
    io.number(r.remoteScrolls[0]);
    io.number(r.remoteScrolls[1]);
    io.text(r.brainwaveList);
}

}  // namespace

std::string writeStatesFile(const StatesRecord& r) {
    return writeFields(r, [](auto& io, auto& rec) { statesFields(io, rec); });
}

SessionRead<StatesRecord> readStatesFile(std::string_view content) {
    return readFields<StatesRecord>(content, StatesRecord::kFields,
                                    [](auto& io, auto& rec) { statesFields(io, rec); });
}

std::string writeMainFile(const MainRecord& r) {
    return writeFields(r, [](auto& io, auto& rec) { mainFields(io, rec); });
}

SessionRead<MainRecord> readMainFile(std::string_view content, int maxFields) {
    return readFields<MainRecord>(content, maxFields,
                                  [](auto& io, auto& rec) { mainFields(io, rec); });
}

std::string writeMainbFile(const MainbRecord& r) {
    return writeFields(r, [](auto& io, auto& rec) { mainbFields(io, rec); });
}

SessionRead<MainbRecord> readMainbFile(std::string_view content) {
    return readFields<MainbRecord>(content, MainbRecord::kFields,
                                   [](auto& io, auto& rec) { mainbFields(io, rec); });
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
