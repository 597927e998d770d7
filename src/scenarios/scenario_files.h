#pragma once
// The files of a scenario and of a preset list, field by field. Pure text in and out,
// and the names of the files; the console (core/frmmain_scenarios.cpp) does the
// saving, loading and deleting.
//
// A scenario is a family of files in config/scenarios, all beginning with its name:
//   <name>.scn     the marker the scenario list shows: one field, the name
//   <name>N.scs    one member per panel, N by panel (memberFile); each panel writes
//                  and reads its own member with its own record
//   <name>6.scs    the console's main settings (ScenarioMainRecord)
//   <name>.txt     the information text, written by the user with any editor
//
// A preset list (config/presets/<list>.pst) holds the fourteen preset captions in
// button order, one per line.

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/field_list.h"

namespace brevane {

inline constexpr const char* kScenarioFolder = "config/scenarios";
inline constexpr const char* kPresetFolder = "config/presets";
inline constexpr const char* kScenarioMarkerExtension = ".scn";
inline constexpr const char* kPresetListExtension = ".pst";

// The members by number, as the panels write them.
enum class ScenarioMember : int {
    BackgroundOne = 1,     // frmback
    CustomBackground = 2,  // frmbackcustom
    CustomRandom = 3,      // frmcustom
    RandomOne = 4,         // frmrandommain
    Unused = 5,            // written by nobody; a delete still removes it
    Main = 6,              // the console's main settings
    ColoursAgain = 7,      // the colour scheme's second copy
    BackgroundTwo = 8,     // frmback2
    Colours = 9,           // the colour scheme
    RandomTwo = 10,        // frmrandommain2
    RandomThree = 11,      // frmrandommain3
    RandomFour = 12,       // frmrandommain4
    Brainwaves = 13,       // the beat generator
    Weather = 14,          // rain, thunder and night
};

std::filesystem::path scenarioMarkerFile(const std::filesystem::path& folder,
                                         const std::string& name);
std::filesystem::path scenarioMemberFile(const std::filesystem::path& folder,
                                         const std::string& name, ScenarioMember member);
std::filesystem::path scenarioInformationFile(const std::filesystem::path& folder,
                                              const std::string& name);

// A name as Save As keeps it: trailing blanks gone.
std::string trimTrailingBlanks(std::string_view name);

std::string writeScenarioMarker(const std::string& name);

// <name>6.scs, twelve fields.
struct ScenarioMainRecord {
    static constexpr int kFields = 12;
    int random = 0;                     // 1 the console's Random group slider
    int background = 0;                 // 2 its Background group slider
    int cd = 0;                         // 3 the CD group slider (read, not applied)
    int mp3 = 0;                        // 4 the MP3 group slider (read, not applied)
    std::string hiddenField1;           // 5 the console's first hidden text field
    std::string remoteScenarioCaption;  // 6 the remote's scenario caption
    std::string hiddenField2;           // 7 the second hidden text field
    std::string hiddenField3;           // 8 the third, shown on the latest-sound line
    std::string slideshowFolder;        // 9 under visual/slideshow
    std::string slideshowSecondEntry;   // 10 the slideshow list's second entry, kept
    std::string panoramicName;          // 11 under visual/panoramics
    std::string scenarioFlag;           // 12 kept as it stands
};

std::string writeScenarioMainFile(const ScenarioMainRecord& record);
FieldsRead<ScenarioMainRecord> readScenarioMainFile(std::string_view content);

// A preset list: the fourteen captions, buttons 0 to 13.
inline constexpr int kPresetCount = 14;
using PresetCaptions = std::array<std::string, kPresetCount>;

std::string writePresetList(const PresetCaptions& captions);
// All fourteen or nothing: a short or damaged list is not a list.
FieldsRead<PresetCaptions> readPresetList(std::string_view content);

}  // namespace brevane
