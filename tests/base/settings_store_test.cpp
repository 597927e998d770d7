#include "base/settings_store.h"

#include <gtest/gtest.h>

namespace brevane {
namespace {

TEST(MemorySettingsStore, NamesIgnoreCaseAsTheDesktopStoreDoes) {
    MemorySettingsStore store;
    store.setValue("Settings2", "Mainleft", "120");
    EXPECT_EQ(store.value("settings2", "MainLeft").value_or(""), "120");
    store.setValue("SETTINGS2", "MAINLEFT", "80");
    EXPECT_EQ(store.valueOr("Settings2", "Mainleft", "0"), "80");
    EXPECT_FALSE(store.value("Settings3", "Mainleft"));
    EXPECT_EQ(store.valueOr("Settings3", "Mainleft", "fallback"), "fallback");
}

}  // namespace
}  // namespace brevane
