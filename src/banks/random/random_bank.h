#pragma once
// A random bank: 28 one-shot sounds and a one-second scheduler. frmrandommain to
// frmrandommain4 are four instances, differing only by their RandomBankConfig.
//
// Every tick of Timer2 draws a roll (5..254) and a pick (0..55); a pick of 1..28 names
// a slot, which fires when the roll is below its Frequency slider. A firing plays the
// slot's resident sample at a random pan (5..254) and a coarse random level, and
// writes the slot's name and location into the Identify panel's lists. The scheduler
// runs from load to unload, seen or unseen; a bank is "off" only in that its
// Frequency sliders stand low.
//
// Volume follows the one law (core/slot_volume.h) from the slot's Volume slider, the
// bank's `maxvol` (its copy of the console's Random slider) and the console's Master,
// read live.
//
// Not thread-safe: a panel lives on the event thread.

#include <array>
#include <cstdint>
#include <string>

#include "banks/random/random_bank_config.h"
#include "base/controls.h"
#include "base/event_loop.h"
#include "core/mix_group.h"
#include "engine/sound_engine.h"

namespace brevane {

class Application;

// One sound position of a random bank.
struct RandomSoundSlot {
    // The row's name; clicking it previews the slot.
    CommandButton name;
    Slider volume{0, 255, 220};
    Slider frequency{0, 255, 0};
    // Resident from load to exit; 0 when the file could not be loaded.
    SampleHandle sample = 0;
    // The latest play of the slot; earlier plays go on untracked. May be stale.
    ChannelHandle channel = 0;
};

class RandomBank : public MixGroupFollower {
  public:
    static constexpr int kTickMs = 1000;

    RandomBank(Application& app, RandomBankConfig config);

    const RandomBankConfig& config() const { return config_; }
    int number() const { return config_.number; }

    PanelWindow window;
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

    // Buttons to the four banks ("Bank 1" to "Bank 4", this bank's own disabled) and to
    // the console ("Main"): the target takes this panel's place on screen. "Identify"
    // opens the Identify panel beside it.
    std::array<CommandButton, 4> bankButtons;
    CommandButton mainButton;
    CommandButton identifyButton;

    // The one-second scheduler.
    Timer Timer2;

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

    Slider* groupCopy(MixGroup group) override;
    // After a Master change: the same pass as a maxvol change, slots 2 to 28.
    void updateVolumes() override;

  private:
    // The Volume value V a firing of slot s draws its level from.
    int fireLevelValue(int s) const;
    std::string locationOf(int s) const;
    void loadSlotSample(int s, const std::string& file);
    void maxvolChanged();

    Application& app_;
    RandomBankConfig config_;
    std::array<RandomSoundSlot, kRandomSlots> slots_;
};

}  // namespace brevane
