#pragma once
// The console's session files, field by field: what the program writes at quit and
// reads at the next start. Pure text in, text out; the console (frmmain_session.cpp)
// gathers the values from the panels and applies them back.
//
// All four are one comma record each, in the program's folder:
//
// scard.tmp, one field:
//   1 SoundCardIndex (number)
//
// states.tmp, five truth values:
//   1 RemoteShown  2 MainShown  3 PanoramicShown  4 SlideshowShown  5 VisualFlag5
//
// main.tmp, eight fields (the console's load reads 1 to 4, recallprevious 1 to 7):
//   1 alarm state ("True" when armed, else "False")   2 current scenario name
//   3 Form3's randomise slider (number)   4 Form33's randomise slider (number)
//   5 slideshow label   6 panoramic label   7 colour scheme name
//   8 SoundCardIndex (number)
//
// mainb.tmp, fifty fields:
//   1-5   group sliders Master, Background, Random, MP3, CD (numbers)
//   6-17  captions of presets 0 to 11
//   18-27 colour values as decimal texts: gradient start, gradient end, button back,
//         active, back, rollover, button text, text, text box back and fore
//   28-31 four hidden console text fields
//   32    remote's folder path   33 remote's caption   34 slideshow label
//   35    custom random bank's Auto state   36 the random banks' Auto state (truth)
//   37,38 caption of preset 12, written twice   39 caption of preset 13
//   40    current scenario name   41 preset list name   42 remote's caption again
//   43    scheduler caption   44,45 remote text boxes   46,47 remote option buttons
//   48,49 remote scroll values (numbers)   50 brainwave list text
// Field 37 is not read back as a caption: the reader keeps it as text, and the
// console takes it as the sound card number when it is one (wholeNumberText).
//
// Texts are quoted, numbers decimal, truth values #TRUE# / #FALSE#.
//
// Reading. A session file is read as far as it goes: each reader stops at the first
// field it cannot read (the file ends, a quote never closes, a number is not one)
// and reports how many fields came through. Unlike a bank file, the fields of a
// session file stand alone, so the console applies every field that was read and
// leaves the built-in value for the rest.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/field_list.h"

namespace brevane {

// The files, in the program's folder.
inline constexpr const char* kSoundCardFile = "scard.tmp";
inline constexpr const char* kStatesFile = "states.tmp";
inline constexpr const char* kMainFile = "main.tmp";
inline constexpr const char* kMainbFile = "mainb.tmp";

// A record read from a session file, with how far the read went.
template <class Record>
using SessionRead = FieldsRead<Record>;

struct StatesRecord {
    static constexpr int kFields = 5;
    bool RemoteShown = false;
    bool MainShown = false;
    bool PanoramicShown = false;
    bool SlideshowShown = false;
    bool VisualFlag5 = false;
};

struct MainRecord {
    static constexpr int kFields = 8;
    std::string alarmState = "False";
    std::string scenarioName;
    int form3Randomise = 0;
    int form33Randomise = 0;
    std::string slideshowLabel;
    std::string panoramicLabel;
    std::string colourSchemeName;
    int soundCardIndex = 0;
};

// The ten colour values mainb.tmp keeps, in its order (shell/colour_scheme.h gives the
// roles): the gradient pair, the button face, Active Color, Back Color, Rollover, then
// button text, Text Color and the text box pair.
enum class SchemeColour {
    GradientStart,
    GradientEnd,
    ButtonBack,
    Active,
    Back,
    Rollover,
    ButtonText,
    Text,
    TextBoxBack,
    TextBoxFore,
};
inline constexpr int kSchemeColours = 10;

struct MainbRecord {
    static constexpr int kFields = 50;
    static constexpr int kPresets = 14;
    // Master, Background, Random, MP3, CD.
    std::array<int, 5> groups{};
    // Presets 0 to 13. Written as fields 6-17, 37 (12 again), 38 and 39; read from
    // 6-17, 38 and 39.
    std::array<std::string, kPresets> presetCaptions{};
    std::array<std::string, kSchemeColours> colours{};
    std::array<std::string, 4> hiddenConsoleFields{};
    std::string remoteFolder;
    std::string remoteCaption;
    std::string slideshowLabel;
    bool customRandomAuto = false;
    bool randomAuto = false;
    // Field 37 as read. The writer ignores it and writes preset 12's caption.
    std::string field37;
    std::string scenarioName;
    std::string presetListName;
    std::string remoteCaptionAgain;
    std::string schedulerCaption;
    std::array<std::string, 2> remoteTexts{};
    std::array<bool, 2> remoteOptions{};
    std::array<int, 2> remoteScrolls{};
    std::string brainwaveList;

    std::string& colour(SchemeColour which) { return colours[static_cast<std::size_t>(which)]; }
};

// Values of the session the console itself keeps: its hidden fields, the remote's scenario
// caption, the slideshow and panoramic labels, the scenario's extra fields and the beat
// generator's list text. They pass from the files read at start to the files written at quit,
// so a session comes through whole.
struct SessionCarry {
    std::array<std::string, 4> hiddenConsoleFields{};
    std::string remoteCaption;
    std::string slideshowLabel;
    std::string panoramicLabel;
    // The scenario's main settings keep these beside the session's.
    std::string remoteScenarioCaption;
    std::string slideshowSecondEntry;
    std::string scenarioFlag;
    std::string brainwaveList;
};

std::string writeSoundCardFile(int soundCardIndex);
SessionRead<int> readSoundCardFile(std::string_view content);

std::string writeStatesFile(const StatesRecord& record);
SessionRead<StatesRecord> readStatesFile(std::string_view content);

std::string writeMainFile(const MainRecord& record);
// Reads up to `maxFields` fields (the console's load reads four).
SessionRead<MainRecord> readMainFile(std::string_view content, int maxFields = MainRecord::kFields);

std::string writeMainbFile(const MainbRecord& record);
SessionRead<MainbRecord> readMainbFile(std::string_view content);

// A text field holding a whole number (field 37 as a sound card, a colour value):
// the number, blanks around it allowed; nothing for any other text.
std::optional<int> wholeNumberText(std::string_view text);

}  // namespace brevane
