// Frmimport on the whole headless program: a package installs and its scenario shows
// in the console's list; a refused one is explained and the button comes back.

#include <gtest/gtest.h>
#include <zip.h>

#include "core/app_harness.h"
#include "engine/recording_engine.h"

namespace brevane::test {
namespace {

namespace fs = std::filesystem;

fs::path writeZip(const fs::path& path,
                  const std::vector<std::pair<std::string, std::string>>& files) {
    int error = 0;
    zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    EXPECT_NE(archive, nullptr);
    for (const auto& [name, content] : files) {
        zip_file_add(archive, name.c_str(),
                     zip_source_buffer(archive, content.data(), content.size(), 0), 0);
    }
    EXPECT_EQ(zip_close(archive), 0);
    return path;
}

TEST(ImportPanelTest, APackageInstallsAndAHostileOneIsExplained) {
    AppHarness<RecordingEngine> h;
    Application& app = h.startAndLoad();
    app.frmmain.importButton.click();
    ASSERT_TRUE(app.Frmimport.window.visible());

    // Cancelled: nothing but the button back.
    app.Frmimport.importButton.click();
    EXPECT_TRUE(app.Frmimport.importButton.enabled());
    ASSERT_EQ(h.dialogs.shown().size(), 1u);
    EXPECT_EQ(h.dialogs.shown()[0].text, "Select scenario to install");
    EXPECT_EQ(h.dialogs.shown()[0].request.filter, "Zip Files|*.zip");

    h.dialogs.clear();
    const fs::path bad = writeZip(h.tree.root() / "bad.zip",
                                  {{"config/scenarios/Evil.scn", ""}, {"../evil.txt", "x"}});
    h.dialogs.answerFile(bad);
    app.Frmimport.importButton.click();
    EXPECT_EQ(h.dialogs.messages(),
              std::vector<std::string>{
                  "This package was not installed: these entries would be written outside the "
                  "program's folder, or are not plain files:\r\n../evil.txt (leads out of the "
                  "folder)"});
    EXPECT_FALSE(fs::exists(h.tree.root() / "config/scenarios/Evil.scn"));
    EXPECT_EQ(app.Frmimport.progress.value(), 0);

    h.dialogs.clear();
    const fs::path good = writeZip(h.tree.root() / "good.zip",
                                   {{"config/scenarios/Harbour.scn", ""}, {"Harbour.txt", "x"}});
    h.dialogs.answerFile(good);
    app.Frmimport.importButton.click();
    EXPECT_EQ(h.dialogs.messages(),
              std::vector<std::string>{"The scenario has been successfully installed and can be "
                                       "loaded from the main interface."});
    EXPECT_EQ(app.Frmimport.progress.value(), 100);
    EXPECT_GE(app.frmmain.scenarioList.find("Harbour"), 0);
}

}  // namespace
}  // namespace brevane::test
