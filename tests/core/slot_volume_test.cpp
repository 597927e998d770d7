#include "core/slot_volume.h"

#include <gtest/gtest.h>

namespace brevane {
namespace {

TEST(SlotVolume, FollowsTheLawRoundingHalvesToEvenWithoutClipping) {
    // 100 x ((100 / 6 / 100) x (220 / 14)) = 261.9; 50 x ((80 / 6 / 100) x 10) = 66.67
    EXPECT_EQ(slotVolume(100, 100, 220), 262);
    EXPECT_EQ(slotVolume(50, 80, 140), 67);
    EXPECT_EQ(slotVolume(100, 100, 0), 0);
    // The lowest Master or group still gives a loud slot some volume.
    EXPECT_EQ(slotVolume(1, 100, 255), 3);
    EXPECT_EQ(slotVolume(100, 1, 255), 3);
    // (60 / 6 / 100) x (7 / 14) is 0.05 to within the last bit: 1.5 and 2.5 land on 2.
    EXPECT_EQ(slotVolume(30, 60, 7), 2);
    EXPECT_EQ(slotVolume(50, 60, 7), 2);
    EXPECT_EQ(slotVolume(70, 60, 7), 4);
    // Above 255 nothing is clipped or wrapped: the MP3 group's range as a slot value.
    EXPECT_EQ(slotVolume(100, 100, 5000), 5952);
    // A random firing's coarse step replaces Slot / 14.
    EXPECT_EQ(slotVolumeWithFactor(100, 100, 15.0), 250);
    EXPECT_EQ(slotVolumeWithFactor(100, 100, 1.0), 17);
}

}  // namespace
}  // namespace brevane
