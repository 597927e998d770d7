#include "scenarios/scenario_files.h"

namespace brevane {

namespace fs = std::filesystem;

fs::path scenarioMarkerFile(const fs::path& folder, const std::string& name) {
    return folder / (name + kScenarioMarkerExtension);
}

fs::path scenarioMemberFile(const fs::path& folder, const std::string& name,
                            ScenarioMember member) {
    return folder / (name + std::to_string(static_cast<int>(member)) + ".scs");
}

fs::path scenarioInformationFile(const fs::path& folder, const std::string& name) {
    return folder / (name + ".txt");
}

std::string trimTrailingBlanks(std::string_view name) {
    while (!name.empty() && name.back() == ' ') {
        name.remove_suffix(1);
    }
    return std::string(name);
}

std::string writeScenarioMarker(const std::string& name) {
    return RecordWriter().text(name).endRecord().str();
}

namespace {

template <class Io, class Record>
void mainFields(Io& io, Record& r) {
    io.number(r.random);
    io.number(r.background);
    io.number(r.cd);
    io.number(r.mp3);
    io.text(r.hiddenField1);
    io.text(r.remoteScenarioCaption);
    io.text(r.hiddenField2);
    io.text(r.hiddenField3);
    io.text(r.slideshowFolder);
    io.text(r.slideshowSecondEntry);
    io.text(r.panoramicName);
    io.text(r.scenarioFlag);
}

template <class Io, class Captions>
void presetFields(Io& io, Captions& captions) {
    for (auto& caption : captions) {
        io.text(caption);
    }
}

}  // namespace

std::string writeScenarioMainFile(const ScenarioMainRecord& record) {
    return writeFields(record, [](auto& io, auto& r) { mainFields(io, r); });
}

FieldsRead<ScenarioMainRecord> readScenarioMainFile(std::string_view content) {
    return readFields<ScenarioMainRecord>(content, ScenarioMainRecord::kFields,
                                          [](auto& io, auto& r) { mainFields(io, r); });
}

std::string writePresetList(const PresetCaptions& captions) {
    // One caption a line, so the list reads well in a text editor.
    return writeFields(
        captions, [](auto& io, auto& c) { presetFields(io, c); }, true);
}

FieldsRead<PresetCaptions> readPresetList(std::string_view content) {
    FieldsRead<PresetCaptions> read = readFields<PresetCaptions>(
        content, kPresetCount, [](auto& io, auto& c) { presetFields(io, c); });
    if (!read.whole(kPresetCount)) {
        read.record = {};
    }
    return read;
}

}  // namespace brevane
