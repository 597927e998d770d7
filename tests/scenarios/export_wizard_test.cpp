// formexportscen and the custom sounds it carries: a scenario with sounds of the user's
// own, a slideshow and a panoramic is packed on one tree, installed by Frmimport on a
// second, fresh tree, and loads and plays there through the real mixer; sounds from
// outside the tree are taken in as copies first.

#include <gtest/gtest.h>
#include <zip.h>

#include <algorithm>

#include "base/file_io.h"
#include "core/app_harness.h"
#include "engine/mixer_engine.h"
#include "engine/test_sounds.h"
#include "scenarios/scenario_files.h"

namespace brevane::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kName = "Harbour Night";
constexpr double kAudibleRms = 0.005;

std::vector<std::string> zipMembers(const fs::path& file) {
    std::vector<std::string> names;
    int error = 0;
    zip_t* archive = zip_open(file.c_str(), ZIP_RDONLY, &error);
    EXPECT_NE(archive, nullptr) << file;
    if (archive == nullptr) {
        return names;
    }
    for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
        names.emplace_back(zip_get_name(archive, static_cast<zip_uint64_t>(i), 0));
    }
    zip_discard(archive);
    std::sort(names.begin(), names.end());
    return names;
}

std::string member(int number) {
    return std::string("config/scenarios/") + kName + std::to_string(number) + ".scs";
}

TEST(ExportWizardTest, AScenarioPackedOnOneTreeInstallsOnAnotherAndPlays) {
    AppHarness<MixerEngine> a(11, MixerEngine::Output::Offline);
    const fs::path sounds = a.tree.root() / "soundbanks";
    fs::create_directories(sounds / "background sounds/mine");
    fs::create_directories(sounds / "random sounds");
    writeMono(sounds / "background sounds/mine", "surf.wav", sine(220, 44100, 44100), 44100);
    writeMono(sounds / "random sounds", "bell.wav", sine(880, 44100, 4410), 44100);
    a.writeFile("visual/slideshow/Coast/2.jpg", "picture two");
    a.writeFile("visual/slideshow/Coast/10.jpg", "picture ten");
    a.writeFile("visual/panoramics/Bay.jpg", "panorama");
    Application& app = a.startAndLoad();
    app.handOverFiles = {(sounds / "background sounds/mine/surf.wav").string()};
    EXPECT_TRUE(app.frmbackcustom.bulkLoad(app.handOverFiles).empty());
    app.frmbackcustom.slot(1).on.setValue(1);
    app.frmbackcustom.slot(1).volume.setValue(200);
    app.handOverFiles = {(sounds / "random sounds/bell.wav").string()};
    EXPECT_TRUE(app.frmcustom.bulkLoad(app.handOverFiles).empty());
    app.frmmain.Background.setValue(100);
    app.frmremote2.pointAtSlideshow("Coast");
    app.frmmain.carry.slideshowLabel = "Coast";
    app.frmremote2.setPanoramic("Bay");
    ASSERT_TRUE(app.frmmain.dosave(kName));
    // A member no save writes; like 7, it stays home.
    a.writeFile(member(5), "x");

    ExportWizard& w = app.formexportscen;
    app.frmmain.exportButton.click();
    ASSERT_TRUE(w.window.visible());
    EXPECT_EQ(w.scenarioName(), kName);
    EXPECT_FALSE(w.back.enabled());
    w.next.click();
    w.includePanoramic.setValue(1);
    EXPECT_EQ(w.panoramicLabel.caption(), "Associated Panoramic: Bay.jpg");
    EXPECT_EQ(w.panoramicPreview.text(), (a.tree.root() / "visual/panoramics/Bay.jpg").string());
    w.includeSlideshow.setValue(1);
    EXPECT_EQ(w.slideshowLabel.caption(), "Associated Slideshow: Coast");
    // The first picture as a person counts.
    EXPECT_EQ(fs::path(w.slideshowPreview.text()).filename(), "2.jpg");
    w.next.click();
    w.createdBy.setText("Ann");
    w.description.setText("Waves");
    w.next.click();
    EXPECT_EQ(*readWholeFile(a.tree.root() / "Harbour Night.txt"),
              "Created by: \r\nAnn\r\n\r\nDescription: \r\nWaves\r\n\r\nInformation: \r\n");
    EXPECT_FALSE(w.next.enabled());
    w.collect.click();
    EXPECT_TRUE(w.next.enabled());
    const std::string zip = (a.tree.root() / "zipped scenarios/Harbour Night.zip").string();
    EXPECT_EQ(w.status.text(),
              "Starting File Copy...\r\nSlideshow\r\n=================\r\nPanoramic\r\n"
              "=================\r\nBackground Sounds\r\n=================\r\n"
              "soundbanks/background sounds/mine/surf.wav\r\nRandom Sounds\r\n"
              "=================\r\nsoundbanks/random sounds/bell.wav\r\n"
              "Scenario Config Files\r\n=================\r\nHarbour Night.scn\r\n"
              "Harbour Night1.scs\r\nHarbour Night2.scs\r\nHarbour Night3.scs\r\n"
              "Harbour Night4.scs\r\nHarbour Night6.scs\r\nHarbour Night8.scs\r\n"
              "Harbour Night9.scs\r\nHarbour Night10.scs\r\nHarbour Night11.scs\r\n"
              "Harbour Night12.scs\r\nHarbour Night13.scs\r\nZipping Files\r\n"
              "=================\r\n" +
                  zip + "\r\nProcess Complete\r\nClick Next to continue...\r\n");
    w.next.click();
    EXPECT_FALSE(fs::exists(a.tree.root() / "packaged scenarios"));
    EXPECT_FALSE(fs::exists(a.tree.root() / "Harbour Night.txt"));
    // No uploader beside the program: its message.
    w.upload.click();
    EXPECT_EQ(a.dialogs.messages().back(),
              "The uploading utility could not be located, please contact support.");
    // A scenario load closes the wizard, and the next one starts without these pictures.
    app.frmmain.doload(kName);
    EXPECT_FALSE(w.window.visible());
    EXPECT_FALSE(w.includePanoramic.checked());

    // The members: the scenario without 5, 7 and 14, the sounds that are on, the
    // pictures and the details.
    std::vector<std::string> expected{"Harbour Night.txt", "config/scenarios/Harbour Night.scn"};
    for (int n : {1, 2, 3, 4, 6, 8, 9, 10, 11, 12, 13}) {
        expected.push_back(member(n));
    }
    for (const char* file : {"soundbanks/background sounds/mine/surf.wav",
                             "soundbanks/random sounds/bell.wav", "visual/panoramics/Bay.jpg",
                             "visual/slideshow/Coast/10.jpg", "visual/slideshow/Coast/2.jpg"}) {
        expected.emplace_back(file);
    }
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(zipMembers(zip), expected);

    // A fresh tree, with nothing of the scenario's: installed, loaded, heard.
    AppHarness<MixerEngine> b(12, MixerEngine::Output::Offline);
    Application& other = b.startAndLoad();
    b.dialogs.answerFile(zip);
    other.frmmain.importButton.click();
    other.Frmimport.importButton.click();
    EXPECT_EQ(b.dialogs.messages(),
              std::vector<std::string>{"The scenario has been successfully installed and can be "
                                       "loaded from the main interface."});
    ASSERT_GE(other.frmmain.scenarioList.find(kName), 0);
    other.frmmain.Master.setValue(Frmmain::kBuiltInMasterLevel);
    other.frmmain.doload(kName);
    EXPECT_EQ(other.frmbackcustom.slot(1).path, "soundbanks/background sounds/mine/surf.wav");
    EXPECT_TRUE(other.frmbackcustom.slot(1).on.checked());
    EXPECT_NE(other.frmcustom.slot(1).sample, 0u);
    EXPECT_EQ(other.frmmain.carry.slideshowLabel, "Coast");
    EXPECT_TRUE(fs::exists(b.tree.root() / "visual/panoramics/Bay.jpg"));
    EXPECT_GT(rms(renderInStep(b, 200)), kAudibleRms);
}

TEST(ExportWizardTest, SoundsFromOutsideTheTreeComeInAsCopiesAndBadOnesAreNamed) {
    AppHarness<MixerEngine> h(13, MixerEngine::Output::Offline);
    TempTree outside;
    const fs::path rain = writeMono(outside.root(), "rain.wav", sine(300, 44100, 4410), 44100);
    ASSERT_TRUE(writeFileAtomically(outside.root() / "noise.wav", "not a sound"));
    // A different sound already has the name inside.
    const fs::path background = h.tree.root() / "soundbanks/background sounds";
    fs::create_directories(background);
    writeMono(background, "rain.wav", sine(500, 44100, 4410), 44100);
    Application& app = h.startAndLoad();

    // The folder's name on the way out ("..") passes the folder test, and is taken as a
    // copy under a free name, once however often it is chosen.
    const fs::path roundabout =
        background / ".." / ".." / outside.root().lexically_relative(h.tree.root()) / "rain.wav";
    for (int s : {1, 2}) {
        h.dialogs.answerFile(roundabout);
        app.frmbackcustom.chooseFile(s);
        EXPECT_EQ(app.frmbackcustom.slot(s).path, "soundbanks/background sounds/rain 2.wav");
    }
    EXPECT_TRUE(readWholeFile(background / "rain 2.wav") == readWholeFile(rain));
    EXPECT_FALSE(fs::exists(background / "rain 3.wav"));
    EXPECT_TRUE(h.dialogs.messages().empty());

    // The bulk load takes the same care, and names the file that does not decode.
    app.handOverFiles = {rain.string(), (outside.root() / "noise.wav").string()};
    EXPECT_EQ(app.frmcustom.bulkLoad(app.handOverFiles), std::vector<std::string>{"noise.wav"});
    EXPECT_EQ(app.frmcustom.slot(1).path, "soundbanks/random sounds/rain.wav");
    EXPECT_NE(app.frmcustom.slot(1).sample, 0u);
    EXPECT_EQ(app.frmcustom.slot(2).path, "soundbanks/random sounds/noise.wav");
    EXPECT_TRUE(isRegularFile(outside.root() / "noise.wav"));
}

}  // namespace
}  // namespace brevane::test
