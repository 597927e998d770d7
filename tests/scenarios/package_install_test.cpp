// Installing a scenario package: a good package lands in the tree, and hostile ones are
// refused whole, with nothing written outside the tree and nothing changed inside it.

#include <gtest/gtest.h>
#include <zip.h>

#include <sys/stat.h>

#include <map>
#include <string>
#include <vector>

#include "base/file_io.h"
#include "base/temp_tree.h"
#include "scenarios/package_install.h"

namespace brevane::test {
namespace {

namespace fs = std::filesystem;

struct ZipEntry {
    std::string name;
    std::string content;
    unsigned type = S_IFREG;  // the file type the maker records
};

class PackageInstallTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(root() / "config/scenarios");
        ASSERT_TRUE(writeFileAtomically(root() / "config/scenarios/Dawn.scn", "mine"));
        ASSERT_TRUE(writeFileAtomically(outer.root() / "keep.txt", "outside"));
    }
    fs::path root() const { return outer.root() / "tree"; }

    // A package written with the same library the program reads it with.
    fs::path makeZip(const std::string& file, const std::vector<ZipEntry>& entries) {
        const fs::path path = outer.root() / file;
        int error = 0;
        zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
        EXPECT_NE(archive, nullptr);
        for (const ZipEntry& e : entries) {
            zip_source_t* source =
                zip_source_buffer(archive, e.content.data(), e.content.size(), 0);
            const zip_int64_t index =
                zip_file_add(archive, e.name.c_str(), source, ZIP_FL_ENC_RAW | ZIP_FL_OVERWRITE);
            EXPECT_GE(index, 0) << e.name;
            zip_file_set_external_attributes(archive, static_cast<zip_uint64_t>(index), 0,
                                             ZIP_OPSYS_UNIX, (e.type | 0644u) << 16);
        }
        EXPECT_EQ(zip_close(archive), 0);
        return path;
    }

    // Every file under the test's folder with its content, the package files aside.
    std::map<std::string, std::string> snapshot() const {
        std::map<std::string, std::string> files;
        for (const auto& e : fs::recursive_directory_iterator(outer.root())) {
            if (e.path().extension() != ".zip") {
                files[e.path().lexically_relative(outer.root()).string()] =
                    e.is_regular_file() ? readWholeFile(e.path()).value_or("?") : "<dir>";
            }
        }
        return files;
    }

    PackageResult install(const fs::path& zip, const PackageLimits& limits = {}) {
        PackageInstallHooks hooks;
        hooks.confirmReplace = [this](const std::vector<std::string>& replaced) {
            asked.push_back(replaced);
            return replaceAnswer;
        };
        hooks.progress = [this](int percent) { progress.push_back(percent); };
        return installPackage(zip, root(), hooks, limits);
    }

    TempTree outer;
    bool replaceAnswer = false;
    std::vector<std::vector<std::string>> asked;
    std::vector<int> progress;
};

TEST_F(PackageInstallTest, AGoodPackageAsksOnceBeforeReplacingTheUsersFiles) {
    const fs::path zip = makeZip("good.zip", {{"config/scenarios/Dawn.scn", "theirs"},
                                              {"config/scenarios/Dawn1.scs", "1"},
                                              {"soundbanks/random sounds/x/", "", S_IFDIR},
                                              {"soundbanks/random sounds/x/bird.wav", "wav"}});
    const auto before = snapshot();
    EXPECT_EQ(install(zip).outcome, PackageOutcome::Declined);
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_EQ(asked[0], std::vector<std::string>{"config/scenarios/Dawn.scn"});
    EXPECT_EQ(snapshot(), before);

    replaceAnswer = true;
    progress.clear();
    const PackageResult result = install(zip);
    EXPECT_EQ(result.outcome, PackageOutcome::Installed);
    EXPECT_EQ(result.installed.size(), 3u);
    EXPECT_EQ(readWholeFile(root() / "config/scenarios/Dawn.scn"), "theirs");
    EXPECT_EQ(readWholeFile(root() / "soundbanks/random sounds/x/bird.wav"), "wav");
    ASSERT_FALSE(progress.empty());
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
    EXPECT_EQ(progress.back(), 100);
    // The staging folder is gone.
    for (const auto& e : fs::directory_iterator(root())) {
        EXPECT_NE(e.path().filename().string().front(), '.') << e.path();
    }
}

TEST_F(PackageInstallTest, HostileArchivesAreRefusedWholeAndChangeNothing) {
    const ZipEntry harmless{"config/scenarios/New.scn", "new"};
    const std::string absolute = (outer.root() / "abs.txt").string();
    struct Case {
        const char* what;
        std::vector<ZipEntry> entries;
        PackageOutcome outcome;
        PackageLimits limits;
    };
    const std::vector<Case> cases = {
        {"zip-slip", {harmless, {"../slip.txt", "x"}}, PackageOutcome::HostileEntries, {}},
        {"zip-slip inside a path",
         {harmless, {"config/../../slip.txt", "x"}},
         PackageOutcome::HostileEntries,
         {}},
        {"zip-slip with backslashes",
         {harmless, {"config\\..\\..\\slip.txt", "x"}},
         PackageOutcome::HostileEntries,
         {}},
        {"absolute path", {harmless, {absolute, "x"}}, PackageOutcome::HostileEntries, {}},
        {"drive letter", {harmless, {"C:/slip.txt", "x"}}, PackageOutcome::HostileEntries, {}},
        {"symbolic link",
         {harmless, {"config/link", "../../keep.txt", S_IFLNK}},
         PackageOutcome::HostileEntries,
         {}},
        {"device", {harmless, {"config/dev", "", S_IFCHR}}, PackageOutcome::HostileEntries, {}},
        {"bomb by declared size",
         {harmless, {"config/zeros.bin", std::string(1 << 20, '\0')}},
         PackageOutcome::TooLarge,
         {64 * 1024, 10000}},
        {"too many entries",
         {harmless, {"a", "1"}, {"b", "2"}, {"c", "3"}},
         PackageOutcome::TooManyEntries,
         {1 << 20, 3}},
    };
    const auto before = snapshot();
    for (const Case& c : cases) {
        const PackageResult result = install(makeZip("hostile.zip", c.entries), c.limits);
        EXPECT_EQ(result.outcome, c.outcome) << c.what;
        if (c.outcome == PackageOutcome::HostileEntries) {
            // Only the hostile entry is listed.
            EXPECT_EQ(result.refused.size(), 1u) << c.what;
        }
        EXPECT_EQ(snapshot(), before) << c.what;
    }
    EXPECT_TRUE(asked.empty());

    // A link already in the tree that leads out is no way out either.
    fs::create_directory_symlink(outer.root(), root() / "out");
    const auto withLink = snapshot();
    EXPECT_EQ(install(makeZip("link.zip", {harmless, {"out/slip.txt", "x"}})).outcome,
              PackageOutcome::HostileEntries);
    EXPECT_EQ(snapshot(), withLink);

    EXPECT_EQ(install(outer.root() / "keep.txt").outcome, PackageOutcome::Unreadable);
}

}  // namespace
}  // namespace brevane::test
