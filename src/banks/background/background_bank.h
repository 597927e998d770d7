#pragma once
// A background bank: 17 looping sounds, each with its level, its place between left
// and right, and a range and speed within which its level wanders by itself.
// frmback, frmback2 and frmbackcustom are three instances, differing only by their
// BackgroundBankConfig.
//
// A loop's sample is in memory only while the loop is on: its check box loads and
// plays it when set and stops and frees it when cleared. The check box, sliders, scroll
// bars and text boxes are the whole state; weather, night, scenario loads and Master
// Stop act on them through the same setters as a hand.
//
// Drift. Each slot has a timer of its own, running while the slot is on. Every tick
// walks the Volume slider one step towards driftTarget, and a tick that lands on the
// target draws a new one inside the slot's Volume Range. The speed is the Rate Of
// Change slider: (1000 - rate) x 5 ms a step, no steps at all at rate 0.
//
// Volume Range. Each limit is a scroll bar and the text box beside it, tied by
// limit = 250 - u (u the bar's value, the top of a vertical bar being the loudest).
// Bank files store u. A limit's text changing draws a new target at once.
//
// Volume follows the one law (core/slot_volume.h) from the slot's Volume slider, the
// bank's `maxvol` (its copy of the console's Background slider) and the console's
// Master, read live.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "banks/background/background_bank_config.h"
#include "base/controls.h"
#include "base/event_loop.h"
#include "core/mix_group.h"
#include "engine/sound_engine.h"
#include "shell/panel_colours.h"

namespace brevane {

class Application;

// One sound position of a background bank.
struct BackgroundSoundSlot {
    explicit BackgroundSoundSlot(EventLoop& loop);

    // On or off; its caption is the sound's name.
    CheckBox on;
    // The custom bank's chooser beside the name; hidden on the fixed banks.
    CommandButton chooser;
    // Enabled only while the loop is on.
    Slider volume{0, 255, 0};
    Slider balance{0, 255, 0};
    Slider rate{0, 999, 800};
    // Volume Range: u of each limit, 0 at the top (limit 250) to 250 (limit 0). The bar
    // takes up to 255, which its handler corrects to 250; below 0 it refuses.
    ScrollBar lowLimitBar{0, 255, 250};
    ScrollBar highLimitBar{0, 255, 0};
    // The limits as text, 250 - u, written by the bars. The drift reads its limits here.
    TextBox lowLimitText;
    TextBox highLimitText;
    // The drift timer, enabled while the slot is on.
    Timer timer;

    // Valid only while on; stale afterwards, and the engine ignores a stale handle.
    SampleHandle sample = 0;
    ChannelHandle channel = 0;
    // The volume the drift is walking to.
    std::int16_t driftTarget = 0;
    // The custom bank's file, relative to the program's folder ("" when unset).
    std::string path;
};

class BackgroundBank : public MixGroupFollower {
  public:
    // limit = kLimitTop - u.
    static constexpr int kLimitTop = 250;
    static constexpr int kLimitBarMax = 255;
    static constexpr int kLimitStep = 5;
    // The drift timers' interval before the first applyRate replaces it.
    static constexpr int kDesignDriftMs = 20;
    static constexpr int kBankRecordFields = 128;
    static constexpr int kCustomRecordFields = 162;
    // The hand-over array of the sound selection panel.
    static constexpr int kHandOverEntries = 28;

    BackgroundBank(Application& app, BackgroundBankConfig config);
    BackgroundBank(const BackgroundBank&) = delete;
    BackgroundBank& operator=(const BackgroundBank&) = delete;
    ~BackgroundBank() override;

    const BackgroundBankConfig& config() const { return config_; }
    bool custom() const { return config_.custom; }

    PanelWindow window;
    // What the panel is painted in: docolors paints it from the program's scheme each
    // time the window opens, and on the scheme panel's Apply while it is open.
    PanelColours colours{window, [this] { docolors(); }};
    void docolors();

    // Slot 1 to 17.
    BackgroundSoundSlot& slot(int s) { return *slots_.at(static_cast<std::size_t>(s - 1)); }
    const BackgroundSoundSlot& slot(int s) const {
        return *slots_.at(static_cast<std::size_t>(s - 1));
    }

    // The strip of group sliders, the panel's copies of the console's MixGroup sliders.
    // Moving one writes it to the console, which writes it back to every panel.
    GroupSlider MP3{MixGroup::MP3};
    GroupSlider CD{MixGroup::CD};
    GroupSlider Random{MixGroup::Random};
    // The bank's own group: its copy of the console's Background slider.
    GroupSlider maxvol{MixGroup::Background};
    GroupSlider Bwaves{MixGroup::Bwaves};
    GroupSlider Master{MixGroup::Master};

    // Bulk buttons, each acting on all 17 slots in slot order through the sliders'
    // own setters. Volume: set 0, -15, +15, set 250. Balance: set 0, -15, +up step,
    // set 250. Rate: set 0, -50, +50, set 999. Range: lower limit up 10, lower limit
    // down 10, upper limit up 10, upper limit down 10.
    std::array<CommandButton, 4> volumeButtons;
    std::array<CommandButton, 4> balanceButtons;
    std::array<CommandButton, 4> rateButtons;
    std::array<CommandButton, 4> rangeButtons;

    // "Stop", "Load", "Save"; the custom bank's "Reset All" (hidden elsewhere).
    CommandButton stopButton;
    CommandButton loadButton;
    CommandButton saveButton;
    CommandButton resetAllButton;
    // The custom bank's "Select Sounds": opens Form2 to fill the bank in one go.
    CommandButton selectSoundsButton;

    // The custom bank's hidden controls that its record keeps: an eighteenth Volume
    // slider (field 18), a further Rate slider (field 58) and an eighteenth check box
    // (field 76). Nothing on the panel moves them; a bank file does.
    Slider hiddenVolume{0, 255, 0};
    Slider hiddenRate{0, 999, 800};
    CheckBox hiddenCheck;

    // The custom bank's rename flag: while it is set, clicking slot 1's check box asks
    // for a name for the row instead of switching the loop.
    bool renameFirstSlot = false;

    // The last limits a target draw read, shared by all slots. They carry nothing
    // from one draw to the next.
    std::int16_t lowScratch = 0;
    std::int16_t highScratch = 0;

    // Panel creation: every slot's rate is applied; no sample is loaded.
    void load();
    // Program end: the session copy is written and the drift stops.
    void unload();
    // Shows the panel; the custom bank sets the panel marker to 3.
    void show();
    // The session copy in the program's folder (back.ini, back2.ini, backc.ini).
    std::filesystem::path sessionPath() const;

    // The check box's work, by its new value.
    void switchOn(int s);
    void switchOff(int s);
    // The running loop's volume: Master x ((maxvol / 6 / 100) x (Volume / 14)). Runs
    // for a slot that is off as well, on its stale channel.
    void applySlotVolume(int s);
    void applySlotPan(int s);
    // Rate 0 stops the ticks (the timer stays enabled); else (1000 - rate) x 5 ms.
    void applyRate(int s);
    // One drift step of slot s.
    void driftTick(int s);
    // A new driftTarget from the two limit texts: draw x (high - low) + low, rounded
    // to nearest, halves to even.
    void drawTarget(int s);
    int slotVolumeOf(int s) const;

    // "Stop": clears the check boxes of slots 1 to 17 in order.
    void stopAll();

    // Reads a bank file and applies it, the loops restarting at their new values. A
    // file that cannot be read (missing, short, not numbers) shows the bank's message
    // and changes nothing; false then.
    bool doload(const std::filesystem::path& file);
    // Writes the bank file whole. False when it cannot be written.
    bool dosave(const std::filesystem::path& file);
    // The record dosave writes, CR LF included.
    std::string record() const;

    // "Load" and "Save" with their dialogs. A cancelled Save still writes, under the
    // name the dialog was preset to (slot 1's lower limit), in the bank folder.
    void loadCommand();
    void saveCommand();

    // The custom bank's commands. chooseFile keeps the dialog coming back until a file
    // inside the background sound folder is chosen or the dialog is cancelled.
    void chooseFile(int s);
    // Takes the hand-over entries from the first up to the first empty one; answers the
    // names of the files that do not decode.
    std::vector<std::string> bulkLoad(const std::array<std::string, kHandOverEntries>& handOver);
    // Asks first; on Yes every slot becomes "Not Set" with no file.
    void resetAll();
    // The right button on the custom bank's first check box: the rename flag is set for
    // that one click, so the row is named, not switched. Elsewhere it does nothing.
    void renameFirstSlotByRightButton();

    // The volume-update entry the console calls after a Master move is left empty: the
    // move reaches the bank's Master copy first, whose handler has already recomputed
    // all 17 slots.
    Slider* groupCopy(MixGroup group) override;

  private:
    struct FileValues;

    void checkClicked(int s);
    void lowLimitBarChanged(int s);
    void highLimitBarChanged(int s);
    void maxvolChanged();
    void masterChanged();
    void bulkVolume(int button);
    void bulkBalance(int button);
    void bulkRate(int button);
    void bulkRange(int button);

    std::filesystem::path slotFile(int s) const;
    bool weatherOrder(int s) const;
    // Sample bookkeeping: a load or a free through these keeps `held_` true exactly
    // while the slot's handle is one the engine has not freed. `checked`: decoded before
    // this returns, for a file the user has just chosen.
    void loadSlotSample(int s, const std::filesystem::path& file, bool checked = false);
    void freeSlotSample(int s);
    void storePath(int s, const std::string& relative);

    std::optional<FileValues> readFile(const std::filesystem::path& file) const;
    void applyBankFile(const FileValues& v);
    void applyCustomFile(const FileValues& v);
    void setCheckBoxesFrom(const FileValues& v);
    void clearCheckBoxesForRestart();
    void setLimitBarsFrom(const FileValues& v);
    std::vector<int> numericFields() const;

    Application& app_;
    BackgroundBankConfig config_;
    std::vector<std::unique_ptr<BackgroundSoundSlot>> slots_;
    std::array<bool, kBackgroundSlots> held_{};
};

}  // namespace brevane
