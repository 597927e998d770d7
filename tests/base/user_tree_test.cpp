#include "base/user_tree.h"

#include <gtest/gtest.h>

#include "base/file_io.h"
#include "temp_tree.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, std::string_view text) {
    fs::create_directories(file.parent_path());
    ASSERT_TRUE(writeFileAtomically(file, text));
}

// An installed prefix: the program in bin/, the stock tree in share/brevane/stock.
struct Installed : ::testing::Test {
    TempTree tmp;
    fs::path prefix = tmp.root() / "usr";
    fs::path stock = prefix / "share/brevane/stock";
    fs::path user = tmp.root() / "home/.local/share/brevane";

    void SetUp() override {
        fs::create_directories(prefix / "bin");
        write(stock / "config/scenarios/Summer Storm.scn", "stock storm");
        write(stock / "config/fx/EQ Presets/Warm.eqf", "warm");
        write(stock / "bin/1.isz", "rain");
        write(stock / "soundbanks/random sounds/owl.wav", "owl");
        fs::create_directories(stock / "visual/panoramics");
    }
};

TEST_F(Installed, TheStockTreeIsFoundFromTheProgramOnlyWhenNoTreeStandsBesideIt) {
    EXPECT_EQ(installedStockTree(prefix / "bin", "../share/brevane/stock"), stock);
    // The build folder's way: the tree beside the program wins.
    fs::create_directories(prefix / "bin/config");
    EXPECT_EQ(installedStockTree(prefix / "bin", "../share/brevane/stock"), std::nullopt);
    EXPECT_EQ(installedStockTree(tmp.root() / "nowhere", "../share/brevane/stock"), std::nullopt);

    EXPECT_EQ(userDataHome("/data", "/home/me"), "/data");
    EXPECT_EQ(userDataHome("relative/data", "/home/me"), "/home/me/.local/share");
    EXPECT_EQ(userDataHome(nullptr, "/home/me"), "/home/me/.local/share");
}

TEST_F(Installed, SettingsAreCopiedForTheUserAndSoundsLinkedIntoFoldersOfTheirOwn) {
    ASSERT_TRUE(prepareUserTree(stock, user, "1").ok);
    const fs::path scenario = user / "config/scenarios/Summer Storm.scn";
    EXPECT_FALSE(fs::is_symlink(scenario));
    EXPECT_EQ(readWholeFile(scenario), "stock storm");
    EXPECT_TRUE(fs::is_symlink(user / "bin/1.isz"));
    EXPECT_EQ(readWholeFile(user / "soundbanks/random sounds/owl.wav"), "owl");
    EXPECT_FALSE(fs::is_symlink(user / "soundbanks/random sounds"));
    EXPECT_TRUE(fs::is_directory(user / "visual/panoramics"));

    // Saving over a copied file leaves the stock file as it was.
    ASSERT_TRUE(writeFileAtomically(scenario, "my storm"));
    EXPECT_EQ(readWholeFile(stock / "config/scenarios/Summer Storm.scn"), "stock storm");
}

TEST_F(Installed, TheFolderFollowsANewStockTreeWithoutUndoingWhatTheUserDid) {
    ASSERT_TRUE(prepareUserTree(stock, user, "1").ok);
    write(user / "config/scenarios/Summer Storm.scn", "my storm");
    fs::remove(user / "config/fx/EQ Presets/Warm.eqf");
    write(stock / "bin/2.isz", "wind");

    // The same version: nothing is looked at again, a deleted preset stays deleted.
    ASSERT_TRUE(prepareUserTree(stock, user, "1").ok);
    EXPECT_FALSE(fs::exists(user / "bin/2.isz"));
    EXPECT_FALSE(fs::exists(user / "config/fx/EQ Presets/Warm.eqf"));

    // A new version adds what it brings and never overwrites the user's file.
    ASSERT_TRUE(prepareUserTree(stock, user, "2").ok);
    EXPECT_EQ(readWholeFile(user / "bin/2.isz"), "wind");
    EXPECT_EQ(readWholeFile(user / "config/scenarios/Summer Storm.scn"), "my storm");

    // Installed elsewhere: the links into the old place are made again.
    const fs::path moved = tmp.root() / "opt/share/brevane/stock";
    fs::create_directories(moved.parent_path());
    fs::rename(stock, moved);
    ASSERT_TRUE(prepareUserTree(moved, user, "2").ok);
    EXPECT_EQ(readWholeFile(user / "bin/1.isz"), "rain");
    EXPECT_EQ(readWholeFile(user / "config/scenarios/Summer Storm.scn"), "my storm");
}

TEST_F(Installed, InstalledIntoTheUsersOwnDataFolderTheStockTreeLiesInsideTheirs) {
    // Installed with the prefix ~/.local, the user's folder holds the stock tree.
    const fs::path home = prefix / "share/brevane";
    ASSERT_TRUE(prepareUserTree(stock, home, "1").ok);
    EXPECT_EQ(readWholeFile(home / "config/scenarios/Summer Storm.scn"), "stock storm");
    EXPECT_TRUE(fs::is_symlink(home / "bin/1.isz"));
    ASSERT_TRUE(writeFileAtomically(home / "config/scenarios/Summer Storm.scn", "my storm"));
    EXPECT_EQ(readWholeFile(stock / "config/scenarios/Summer Storm.scn"), "stock storm");
}

TEST_F(Installed, AFolderThatCannotBeMadeIsReportedByName) {
    write(tmp.root() / "file", "in the way");
    const UserTreeResult result = prepareUserTree(stock, tmp.root() / "file/brevane", "1");
    EXPECT_FALSE(result.ok);
    EXPECT_NE(result.error.find("file/brevane"), std::string::npos);
}

}  // namespace
}  // namespace brevane
