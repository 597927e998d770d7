#pragma once
// What makes frmback, frmback2 and frmbackcustom different from one another. One
// BackgroundBank serves all three; everything a bank does differently is written
// here, the oddities each bank has always had included.

#include <array>
#include <string>
#include <vector>

namespace brevane {

inline constexpr int kBackgroundSlots = 17;
// Fields 76 to 94 of a bank file: filler that every bank writes and none reads.
inline constexpr int kBackgroundFillerFields = 19;

// The three background banks of the program.
enum class BackgroundBankId { One, Two, Custom };

struct BackgroundBankConfig {
    BackgroundBankId id = BackgroundBankId::One;
    // The panel's caption.
    std::string caption;
    // The check box captions of slots 1 to 17 at creation ("Not Set" on the custom bank).
    std::array<std::string, kBackgroundSlots> names;
    // Fixed banks: slot s plays bin/<fileBase + s>.isz.
    int fileBase = 0;
    // The slots the weather drives, which set the old channel's volume before playing
    // and apply their volume again after (slots 3, 4, 5 of bank one only).
    std::vector<int> weatherOrderSlots;
    // What the "L / R Balance" up button adds: 10 on bank one, 15 elsewhere.
    int balanceUpStep = 15;
    // The session copy in the program's folder, written at unload ("back.ini").
    std::string sessionFile;
    // Start folder of the Load and Save dialogs, and their filter.
    std::string bankFolder;
    std::string bankFilter;
    // The information box of a bank file that cannot be read.
    std::string loadFailedText;
    // Fields 76 to 94 of the fixed banks' record: the slot whose check box each holds.
    std::array<int, kBackgroundFillerFields> fillerCheckSlots{};

    // The custom bank: its slots hold files the user chose (a chooser per row, bulk
    // load, "Reset All") and its record is the longer one with paths and captions.
    bool custom = false;
};

// The configuration of one of the three banks.
BackgroundBankConfig backgroundBankConfig(BackgroundBankId id);

// The texts the custom bank uses.
inline constexpr const char* kNotSetCaption = "Not Set";
inline constexpr const char* kSoundFileFilter =
    "All Supported Samples (*.wav, *.mp3, *.ogg, *.wma)|*.wav;*.ogg;*.mp3;*.wma";
inline constexpr const char* kBackgroundSoundsFolder = "soundbanks/background sounds";
inline constexpr const char* kOutsideFolderText =
    "Please choose a file from within the background soundbanks directory.";
inline constexpr const char* kCannotOpenText = "This audio file could not be opened..";
inline constexpr const char* kResetAllQuestion =
    "This will reset all sounds on this panel. Continue?";
inline constexpr const char* kRenamePrompt = "Please type a name to identify this sound.";

}  // namespace brevane
