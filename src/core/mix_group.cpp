#include "core/mix_group.h"

namespace brevane {

MixGroupRange mixGroupRange(MixGroup group) {
    switch (group) {
        case MixGroup::Master:
            return {1, 100, 2};
        case MixGroup::MP3:
            return {0, 5000, 2500};
        case MixGroup::CD:
            return {0, 100, 0};
        case MixGroup::Background:
        case MixGroup::Random:
        case MixGroup::Bwaves:
            return {1, 100, 1};
    }
    return {0, 100, 0};
}

GroupSlider::GroupSlider(MixGroup group)
    : Slider(mixGroupRange(group).low, mixGroupRange(group).high, mixGroupRange(group).initial),
      group_(group) {
    setLargeChange(mixGroupRange(group).high >= 1000 ? 250 : 10);
}

Slider* groupCopyAmong(MixGroup group, std::initializer_list<GroupSlider*> strip) {
    for (GroupSlider* copy : strip) {
        if (copy->group() == group) {
            return copy;
        }
    }
    return nullptr;
}

}  // namespace brevane
