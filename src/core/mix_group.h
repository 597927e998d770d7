#pragma once
// The console's six group sliders (MixGroup) and the copies other panels hold of them.
//
// Volume has one road: the console's group slider is copied into every panel that
// follows it, in a fixed order; a panel's own strip of group sliders writes back to the
// console, whose change handler writes the value out again. The copies end the round
// trip because a setter that stores an equal value runs nothing.

#include <array>
#include <initializer_list>

#include "base/controls.h"

namespace brevane {

// In the order the session keeps them.
enum class MixGroup { Master, Background, Random, MP3, CD, Bwaves };

inline constexpr std::array<MixGroup, 6> kMixGroups{MixGroup::Master, MixGroup::Background,
                                                    MixGroup::Random, MixGroup::MP3,
                                                    MixGroup::CD,     MixGroup::Bwaves};

// Range and first value of a group slider; the console's slider and every copy share
// them. Master, Background, Random and Bwaves run from 1 (so the volume law never gets
// a zero from them) to 100; CD from 0 to 100; MP3 from 0 to 5000. The top of 100 is
// chosen: with Master and the group at 100 a slot at its loudest lands a little above
// the engine's 255 (303), so the faders reach full level and a slot at an ordinary
// level still changes over their whole travel.
// Master starts at 2, the others at their lower end. The console's mute is the one
// thing that puts Master below its lower end, to 0, and only while it lasts.
struct MixGroupRange {
    int low;
    int high;
    int initial;
};
MixGroupRange mixGroupRange(MixGroup group);

// A slider with the range and first value of its group.
class GroupSlider : public Slider {
  public:
    explicit GroupSlider(MixGroup group);
    MixGroup group() const { return group_; }

  private:
    MixGroup group_;
};

// The one of a panel's strip of copies that follows `group`, or nullptr.
Slider* groupCopyAmong(MixGroup group, std::initializer_list<GroupSlider*> strip);

// A panel holding copies of the console's group sliders. The console writes each
// change into every follower's copy, in its fixed order, and after a Master change
// asks each follower to bring its playing channels up to date.
class MixGroupFollower {
  public:
    virtual ~MixGroupFollower() = default;
    // The panel's copy of `group`, or nullptr when it holds none.
    virtual Slider* groupCopy(MixGroup group) = 0;
    // The panel's volume-update entry: recompute the volume of its playing channels.
    virtual void updateVolumes() {}
};

}  // namespace brevane
