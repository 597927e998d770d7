#pragma once
// A random bank: 28 one-shot sounds and a one-second scheduler. frmrandommain to
// frmrandommain4 and the custom bank frmcustom are five instances, differing only by
// their RandomBankConfig.
//
// Every tick of Timer2 draws a roll (5..254) and a pick (0..55); a pick of 1..28 names
// a slot, which fires when the roll is below its Frequency slider. A firing plays the
// slot's resident sample at a random pan (5..254) and a coarse random level, and
// writes the slot's name and location into the Identify panel's lists. The scheduler
// runs from load to unload, seen or unseen; a bank is "off" only in that its
// Frequency sliders stand low. The custom bank draws from other ranges (its config).
//
// Commands of the panel: bulk moves of a column, "All", Randomize and its automatic
// repeat ("Auto", whose on or off state is its colour), the bank file (.rcf, and .crf
// on the custom bank, which adds its files and captions) with Load, Save and the
// session copy, and on the custom bank the per-row chooser, rename, bulk load and
// "Reset All". Bulk commands write through the sliders' setters, so every changed
// value runs its slider's handler.
//
// Volume follows the one law (core/slot_volume.h) from the slot's Volume slider, the
// bank's `maxvol` (its copy of the console's Random slider) and the console's Master,
// read live.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "banks/random/random_bank_config.h"
#include "base/controls.h"
#include "base/event_loop.h"
#include "core/mix_group.h"
#include "engine/sound_engine.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;
class RandomizeSettings;

// One sound position of a random bank.
struct RandomSoundSlot {
    // The row's name; clicking it previews the slot (a right click on the custom bank
    // renames it instead, through RandomBank::renameSlot).
    CommandButton name;
    // The custom bank's file chooser beside the name; hidden on the fixed banks.
    CommandButton chooser;
    Slider volume{0, 255, 220};
    Slider frequency{0, 255, 0};
    // Resident from load to exit; 0 when the file could not be loaded.
    SampleHandle sample = 0;
    // The latest play of the slot; earlier plays go on untracked. May be stale.
    ChannelHandle channel = 0;
    // The custom bank's file, relative to the program's folder; "" when unset.
    std::string path;
};

class RandomBank : public MixGroupFollower {
  public:
    static constexpr int kTickMs = 1000;
    // Bulk buttons move a column by this much.
    static constexpr int kBulkStep = 25;
    // Randomize leaves a Frequency of this or less alone, and puts the others from here
    // up to threshold + 9.
    static constexpr int kRandomizeFloor = 10;
    // timerautorandom ticks per Randomize.
    static constexpr int kAutoTicksPerRandomize = 60;
    static constexpr int kRecordSliderFields = 60;
    static constexpr int kCustomRecordFields = 117;

    RandomBank(Application& app, RandomBankConfig config);

    const RandomBankConfig& config() const { return config_; }
    int number() const { return config_.number; }
    bool custom() const { return config_.userFiles; }

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();
    // The heading, "BANK1" to "BANK4".
    Label heading;

    // Slot 1 to 28.
    RandomSoundSlot& slot(int s) { return slots_.at(static_cast<std::size_t>(s - 1)); }
    const RandomSoundSlot& slot(int s) const { return slots_.at(static_cast<std::size_t>(s - 1)); }

    // The strip of group sliders, the panel's copies of the console's MixGroup sliders.
    // Moving one writes it to the console, which writes it back to every panel.
    GroupSlider MP3{MixGroup::MP3};
    GroupSlider CD{MixGroup::CD};
    GroupSlider Background{MixGroup::Background};
    // The bank's own group: its copy of the console's Random slider.
    GroupSlider maxvol{MixGroup::Random};
    GroupSlider Bwaves{MixGroup::Bwaves};
    GroupSlider Master{MixGroup::Master};

    // The custom bank's record keeps two further sliders of its panel (fields 39 and
    // 41), which nothing on screen moves; a bank file does.
    Slider hiddenSlider39{0, 255, 0};
    Slider hiddenSlider41{0, 255, 0};

    // Bulk buttons over all 28 slots. Volume: set 0, -25, +25, set 255; the -25 and +25
    // give row 15 row 16's value moved by 25, before row 16 moves from its own value.
    // Frequency: set 0, -25, +25 (only sliders above 0 unless "All" is down).
    std::array<CommandButton, 4> volumeButtons;
    std::array<CommandButton, 3> frequencyButtons;
    ToggleButton allButton;
    CommandButton randomizeButton;
    // "Auto": on while its colour is the scheme's highlight, off while it is the
    // scheme's button colour. The four fixed banks turn on and off together; the
    // custom bank's stands apart. Its checked state is what the session keeps.
    ToggleButton autoButton;
    // "...": shows the settings panel (Form3, Form33 for the custom bank).
    CommandButton settingsButton;
    CommandButton loadButton;
    CommandButton saveButton;
    // The custom bank's "Reset All"; hidden on the fixed banks.
    CommandButton resetAllButton;
    // The custom bank's "Select Sounds": opens Form2 to fill the bank in one go.
    CommandButton selectSoundsButton;

    // Navigation, each target taking this panel's place on screen: "Back2" and
    // "Cust B" (background banks), "Rand" (the console's Random command), "Main", the
    // four banks ("Bank 1" to "Bank 4", this bank's own disabled), "Custom" (the custom
    // bank, disabled on itself). "Identify" opens the Identify panel beside the bank.
    CommandButton back2Button;
    CommandButton customBackgroundButton;
    CommandButton randomButton;
    std::array<CommandButton, 4> bankButtons;
    CommandButton customButton;
    CommandButton mainButton;
    CommandButton identifyButton;

    // The one-second scheduler.
    Timer Timer2;
    // The automatic Randomize: one tick per minute of the period, Randomize on the
    // 60th. Disabled until Auto or the settings panel's Close starts it.
    Timer timerautorandom;
    std::int16_t autoTickCount = 0;

    // The file name the bank's file dialog holds between uses: Load clears it first,
    // Save shows it as it stands and, cancelled, still saves under it.
    std::string dialogFileName;

    // The tick's draws, kept from tick to tick as the bank always has, though read only
    // in the tick that set them.
    std::int16_t rollValue = 0;
    std::int16_t pickValue = 0;

    // Panel creation: loads the samples and starts the scheduler.
    void load();
    // Program end: the scheduler stops.
    void unload();
    // Shows the panel; it becomes the bank the console's "Random" button shows.
    void show();
    // The settings panel of this bank: Form3, or Form33 for the custom bank.
    RandomizeSettings& settingsPanel();

    // Loads all 28 samples in slot order; a file that cannot be loaded leaves 0.
    void loadSamples();
    // One scheduler step.
    void tick();
    // Plays slot s now, at its random pan and level, and tells the Identify panel.
    void fire(int s);
    // Plays slot s once at the level of its Volume slider (a click on its name).
    void previewSlot(int s);
    // Sets the latest play of slot s to the level of its Volume slider, no randomness.
    void applySlotVolume(int s);
    // Master Stop's entry: stops the latest plays of the configured slots (5 to 28).
    void stopBank();

    // The fixed-level volume of slot s: Master x ((maxvol / 6 / 100) x (Volume / 14)).
    int slotVolumeOf(int s) const;

    // Button 0 to 3 of the Volume column, 0 to 2 of the Frequency column.
    void bulkVolume(int button);
    void bulkFrequency(int button);
    // Every Frequency above 10 gets floor(draw x threshold) + 10, a fresh draw each.
    void randomize();
    // One tick of timerautorandom.
    void autoTick();
    // The Auto button's work after its checked state has turned.
    void autoClicked();
    // Sets the Auto button's checked state without running its command, as the mirror
    // between the fixed banks and the session's restore do.
    void setAutoChecked(bool checked);
    // Whether the automatic Randomize is on, as the Auto button's colour says: any
    // colour but the button colour of the scheme the bank is painted in.
    bool autoOn() const;

    // The bank file. doload reads every field before it moves a slider; a file that
    // cannot be read changes nothing and shows the bank's message (the custom bank
    // shows none). Playing sounds go on at their slots' new levels. False on failure.
    bool doload(const std::filesystem::path& file);
    // Writes the bank file whole; false when it cannot be written, with no message.
    bool dosave(const std::filesystem::path& file);
    // The record dosave writes, CR LF included.
    std::string record() const;
    // The session copy in the program's folder (rand.ini to rand4.ini, randc.ini).
    std::filesystem::path sessionPath() const;
    // "Load" and "Save" with their dialogs.
    void loadCommand();
    void saveCommand();

    // The custom bank's commands. chooseFile keeps the dialog coming back until a file
    // inside the random sound folder is chosen or the dialog is cancelled.
    void chooseFile(int s);
    // A right click on a row's name: a non-empty answer becomes the caption.
    void renameSlot(int s);
    // Takes the hand-over entries from the first up to the first empty one; the slots
    // behind it keep what they had.
    // Answers the names of the files that do not decode.
    std::vector<std::string> bulkLoad(const std::array<std::string, kRandomSlots>& handOver);
    // Asks first; on Yes every slot becomes "Not Set" with no file.
    void resetAll();

    Slider* groupCopy(MixGroup group) override;
    // After a Master change: the same pass as a maxvol change, slots 2 to 28.
    void updateVolumes() override;

  private:
    struct FileValues;

    // The Volume value V a firing of slot s draws its level from.
    int fireLevelValue(int s) const;
    std::string locationOf(int s) const;
    int draw(UniformDraw d);
    void loadSlotSample(int s, const std::string& file);
    // The custom bank's slot takes a new file: the old sample is freed once the new
    // one is loaded. `checked`: decoded before this returns, for a file the user has
    // just chosen, so that one that does not play is reported at once.
    void replaceSlotSample(int s, const std::string& relative, bool checked = false);
    void maxvolChanged();
    void wireNavigation();
    void goTo(PanelWindow& target, const std::function<void()>& show);
    // The banks an Auto click acts on: the four fixed banks, or the custom bank alone.
    std::vector<RandomBank*> autoBanks();
    // The 60 slider values in record order.
    std::array<int, kRecordSliderFields> sliderFields() const;
    void applySliderFields(const std::array<int, kRecordSliderFields>& fields);
    void applyCustomFile(const FileValues& v);

    Application& app_;
    RandomBankConfig config_;
    std::array<RandomSoundSlot, kRandomSlots> slots_;
    // Set while another bank mirrors its Auto state into this one.
    bool mirroringAuto_ = false;
    // Auto's two colours, off and on, from the scheme the bank was painted with last;
    // the built-in scheme's until the first painting.
    Colour autoOffColour_ = 0;
    Colour autoOnColour_ = 0;
    void showAuto(bool on);
};

}  // namespace brevane
