#include "base/app_path.h"

#include <gtest/gtest.h>

namespace brevane {
namespace {

TEST(AppPath, TreePathsAcceptEitherSeparatorAndRelativeTextKeepsOutsidePathsWhole) {
    const AppPath app("/opt/brevane");
    EXPECT_EQ(app.resolve("\\config\\scenarios"), "/opt/brevane/config/scenarios");
    EXPECT_EQ(app / "config/scenarios", "/opt/brevane/config/scenarios");
    EXPECT_EQ(app / "/bin/1.isz", "/opt/brevane/bin/1.isz");
    EXPECT_EQ(app / "", "/opt/brevane");
    EXPECT_EQ(app.text(), "/opt/brevane/");
    // Relative text uses forward slashes and keeps outside paths whole.
    EXPECT_EQ(app.relativeText("/opt/brevane/soundbanks/random sounds/owl.wav"),
              "soundbanks/random sounds/owl.wav");
    EXPECT_EQ(app.relativeText("/home/me/owl.wav"), "/home/me/owl.wav");
    EXPECT_EQ(withoutLastFour("Summer Storm.scn"), "Summer Storm");
    EXPECT_EQ(withoutLastFour(".scn"), "");
    EXPECT_EQ(withoutLastFour("ab"), "");
}

}  // namespace
}  // namespace brevane
