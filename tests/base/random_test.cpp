#include "base/random.h"

#include <gtest/gtest.h>

#include <array>

namespace brevane {
namespace {

TEST(Random, TheSameSeedGivesTheSameSequenceAndRollCoversEveryValueEvenly) {
    Random a(42), b(42), c(43);
    bool differs = false;
    for (int i = 0; i < 100; ++i) {
        const double x = a.next();
        EXPECT_EQ(x, b.next());
        differs = differs || x != c.next();
    }
    EXPECT_TRUE(differs);
    // Roll covers every value evenly and never its bound.
    Random r(7);
    std::array<int, 6> counts{};
    const int draws = 60'000;
    for (int i = 0; i < draws; ++i) {
        const int v = r.roll(6);
        ASSERT_GE(v, 0);
        ASSERT_LT(v, 6);
        ++counts[static_cast<std::size_t>(v)];
    }
    for (int count : counts) {
        EXPECT_NEAR(count, draws / 6, 400);  // about 4.5 standard deviations
    }
    EXPECT_EQ(r.roll(0), 0);
    EXPECT_EQ(r.roll(1), 0);
}

}  // namespace
}  // namespace brevane
