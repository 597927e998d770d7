#include "base/file_io.h"

#include <gtest/gtest.h>

#include <fstream>

#include "temp_tree.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

TEST(FileIo, WholeFileWriteReplacesTheOldContentLeavesNoTemporaryFileAndAFailedOneKeepsIt) {
    TempTree tree;
    const fs::path file = tree.root() / "main.tmp";
    ASSERT_TRUE(writeFileAtomically(file, "old\r\n"));
    ASSERT_TRUE(writeFileAtomically(file, "new,content\r\n"));
    EXPECT_EQ(readWholeFile(file).value_or("<none>"), "new,content\r\n");
    int entries = 0;
    for ([[maybe_unused]] const auto& e : fs::directory_iterator(tree.root())) {
        ++entries;
    }
    EXPECT_EQ(entries, 1);

    // A failed write (a folder in the way of the rename) keeps what was there.
    const fs::path blocked = tree.root() / "folder";
    fs::create_directory(blocked);
    std::ofstream(blocked / "inside") << "x";
    EXPECT_FALSE(writeFileAtomically(blocked, "data"));
    EXPECT_FALSE(writeFileAtomically(tree.root() / "missing" / "x.tmp", "data"));
    EXPECT_EQ(readWholeFile(file).value_or(""), "new,content\r\n");
    EXPECT_TRUE(fs::is_directory(blocked));
}

TEST(FileIo, ReadingMissingFoldersAndOversizedFilesGivesNothing) {
    TempTree tree;
    EXPECT_FALSE(readWholeFile(tree.root() / "absent"));
    EXPECT_FALSE(readWholeFile(tree.root()));
    ASSERT_TRUE(writeFileAtomically(tree.root() / "big", std::string(100, 'x')));
    EXPECT_FALSE(readWholeFile(tree.root() / "big", 99));
    EXPECT_EQ(readWholeFile(tree.root() / "big", 100)->size(), 100u);
    ASSERT_TRUE(writeFileAtomically(tree.root() / "empty", ""));
    EXPECT_EQ(readWholeFile(tree.root() / "empty").value_or("x"), "");
}

}  // namespace
}  // namespace brevane
