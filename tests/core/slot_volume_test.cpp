#include "core/slot_volume.h"

#include <gtest/gtest.h>

namespace brevane {
namespace {

TEST(SlotVolume, FollowsTheLawOnOrdinaryValues) {
    // 100 x ((100 / 6 / 100) x (220 / 14)) = 261.9
    EXPECT_EQ(slotVolume(100, 100, 220), 262);
    // 50 x ((80 / 6 / 100) x (140 / 14)) = 66.67
    EXPECT_EQ(slotVolume(50, 80, 140), 67);
    EXPECT_EQ(slotVolume(2, 1, 220), 0);
}

TEST(SlotVolume, LowestMasterOrGroupStillGivesALoudSlotSomeVolume) {
    EXPECT_EQ(slotVolume(1, 100, 255), 3);
    EXPECT_EQ(slotVolume(100, 1, 255), 3);
    EXPECT_EQ(slotVolume(100, 100, 0), 0);
}

TEST(SlotVolume, ExactHalvesGoToTheEvenNeighbour) {
    // (60 / 6 / 100) x (7 / 14) is 0.05 to within the last bit, so these land on
    // exact halves: 0.5, 1.5, 2.5, 3.5.
    EXPECT_EQ(slotVolume(10, 60, 7), 0);
    EXPECT_EQ(slotVolume(30, 60, 7), 2);
    EXPECT_EQ(slotVolume(50, 60, 7), 2);
    EXPECT_EQ(slotVolume(70, 60, 7), 4);
}

TEST(SlotVolume, IsNotClippedOrWrappedAbove255) {
    EXPECT_EQ(slotVolume(100, 100, 255), 304);
    // The MP3 group's full range as a slot value, as one random slot uses it.
    EXPECT_EQ(slotVolume(100, 100, 5000), 5952);
}

TEST(SlotVolume, RandomStepsUseTheSameLaw) {
    // A firing's coarse step b replaces Slot / 14.
    EXPECT_EQ(slotVolumeWithFactor(100, 100, 15.0), 250);
    EXPECT_EQ(slotVolumeWithFactor(100, 100, 0.0), 0);
    EXPECT_EQ(slotVolumeWithFactor(100, 100, 1.0), 17);
    EXPECT_EQ(slotVolumeWithFactor(100, 100, 220.0 / 14.0), slotVolume(100, 100, 220));
}

}  // namespace
}  // namespace brevane
