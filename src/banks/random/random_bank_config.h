#pragma once
// What makes frmrandommain, frmrandommain2, frmrandommain3, frmrandommain4 and the
// custom bank frmcustom different from one another. One RandomBank serves all five;
// everything a bank does differently is written here, including the oddities each bank
// has always had, which are kept exactly as they are.

#include <array>
#include <string>
#include <vector>

namespace brevane {

inline constexpr int kRandomSlots = 28;
// Rows per column on the panel: slots 1-14 left, 15-28 right.
inline constexpr int kRandomRowsPerColumn = 14;

// The CurrentRandomBank value of the custom bank.
inline constexpr int kCustomRandomBankNumber = 5;

// The order in which a tick draws its roll and its pick.
enum class DrawOrder {
    RollThenPick,
    PickThenRoll,
    // The roll is drawn only when the pick names a slot.
    PickThenRollWhenPicked,
};

// One integer draw of the scheduler: floor(r x count) + offset.
struct UniformDraw {
    int count = 0;
    int offset = 0;
};

// Where a firing takes the Volume value V of its random level from.
enum class FireLevelSource {
    OwnVolume,        // the slot's own Volume slider
    RowVolume,        // the Volume slider of another row (`row`)
    Mp3Group,         // the panel's copy of the MP3 group slider (0-5000)
    BackgroundGroup,  // the panel's copy of the Background group slider
};

struct FireLevel {
    FireLevelSource source = FireLevelSource::OwnVolume;
    int row = 0;  // for RowVolume: 1 to 28
};

struct RandomBankConfig {
    // 1 to 4, 5 for the custom bank: the value of CurrentRandomBank while this bank is
    // the one shown.
    int number = 1;
    // The heading on the panel, "BANK1".
    std::string heading;
    // The sound names of slots 1 to 28, as shown on the rows and in the Identify lists.
    std::array<std::string, kRandomSlots> names;
    // The sample file of each slot as loaded at start, and as a preview loads it when
    // the start left the slot without a sample; tree paths ("bin/101.raz"). Empty on
    // the custom bank, whose slots load as the user fills them.
    std::array<std::string, kRandomSlots> startFiles;
    std::array<std::string, kRandomSlots> previewFiles;
    // Location texts in the Identify panel for slots 1-14 and 15-28.
    std::string locationColumn1;
    std::string locationColumn2;

    // The scheduler's constants. A tick draws a pick (a slot when 1 to 28) and a roll
    // the slot's Frequency must beat strictly; a firing draws its pan.
    DrawOrder drawOrder = DrawOrder::PickThenRoll;
    UniformDraw pick{56, 0};
    UniformDraw roll{250, 5};
    UniformDraw pan{250, 5};
    // Every play (firing and preview) turns the channel's looping off, for files that
    // carry loop points of their own.
    bool loopOffOnPlay = false;
    // A preview of a slot without a sample tries its preview file first.
    bool previewLoadsMissingSample = true;
    // The first slot the volume pass of a maxvol or Master change reaches.
    int volumePassFirstSlot = 1;

    // Bank files: the session copy in the program's folder, the start folder and
    // filter of the Load and Save dialogs, and the information box of a file that
    // cannot be read (empty: the load fails without a word).
    std::string sessionFile;
    std::string bankFolder;
    std::string bankFilter;
    std::string loadFailedText;

    // The custom bank: the user chooses each slot's file (a chooser per row, rename,
    // bulk load, "Reset All"), its record adds paths and captions, and its Auto and
    // Randomize read its own settings panel, apart from the four fixed banks.
    bool userFiles = false;

    // --- Oddities, each reproduced as it stands. ---

    // Where each slot's firing level comes from (index slot - 1). In every bank slot 24
    // fires at the MP3 group copy, slot 25 at the Background copy, and slots 26 to 28
    // at the Volume sliders of rows 24 to 26, so rows 27 and 28 have no say in firings.
    // Preview and applySlotVolume always use the row's own slider.
    std::array<FireLevel, kRandomSlots> fireLevel;
    // The slot whose Location text goes to the top of the Location list instead of the
    // end (24 in every bank), so the two lists drift apart by a row; 0 for none.
    int locationAtTopSlot = 0;
    // The preview of slot `previewVolumeFrom` sends its volume to the latest channel of
    // slot `previewVolumeTo` instead of its own (20 to 21 in every bank); 0 for none.
    int previewVolumeFrom = 0;
    int previewVolumeTo = 0;
    // After playing the preview of `previewRepanSlot`, the latest channel of
    // `previewRepanTarget` is panned to `previewRepanValue` (banks 2 to 4: slot 2's
    // preview pans slot 1 to 122); 0 for none.
    int previewRepanSlot = 0;
    int previewRepanTarget = 0;
    int previewRepanValue = 0;
    // The slot whose preview loads its sample again every time, dropping the old
    // handle unfreed (12 in bank 3); 0 for none.
    int previewReloadSlot = 0;
    // The slots Master Stop stops, in order: 5 to 28 in every fixed bank.
    std::vector<int> stopSlots;
};

// The configuration of bank 1 to 4 (frmrandommain to frmrandommain4) and of the custom
// bank (kCustomRandomBankNumber); any other number gives bank 1.
RandomBankConfig randomBankConfig(int number);

// Texts of the custom bank.
inline constexpr const char* kRandomNotSetCaption = "Not Set";
inline constexpr const char* kRandomSoundsFolder = "soundbanks/random sounds";
inline constexpr const char* kRandomSoundFileFilter =
    "All Supported Samples (*.wav, *.mp3, *.ogg, *.wma)|*.wav;*.ogg;*.mp3;*.wma";
inline constexpr const char* kRandomOutsideFolderText =
    "Please choose a file from within the random soundbanks directory.";
inline constexpr const char* kRandomCannotOpenText = "This audio file could not be opened.";
inline constexpr const char* kRandomResetAllQuestion =
    "This will reset all sounds on this panel. Continue?";
inline constexpr const char* kRandomRenamePrompt = "Please type a name to identify this sound.";

}  // namespace brevane
