// Scenarios on the whole headless program: save, load, delete, the list and the
// presets, with scripted dialogs on a temporary tree.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "base/file_io.h"
#include "base/natural_order.h"
#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"
#include "scenarios/scenario_files.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;
using L = std::vector<std::string>;

class Scenarios : public ::testing::Test {
  protected:
    void SetUp() override {
        // A session of its own, so this is no first run.
        h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
        app = &h.startAndLoad();
        // Past the intro fade, so Master holds still.
        h.loop.advance(Frmmain::kIntroFadeMs * Frmmain::kBuiltInMasterLevel);
    }

    Frmmain& console() { return app->frmmain; }

    // A soundscape touching every bank that saves a member.
    void mix() {
        Frmmain& c = console();
        c.Background.setValue(70);
        c.Random.setValue(55);
        app->frmback.slot(3).volume.setValue(140);
        app->frmback.slot(3).on.setValue(1);
        app->frmback2.slot(16).balance.setValue(90);
        app->frmback2.slot(16).on.setValue(1);
        app->frmbackcustom.slot(2).rate.setValue(500);
        for (int b = 1; b <= 5; ++b) {
            app->randomBank(b)->slot(b + 2).frequency.setValue(200 + b);
        }
    }

    // Every member a bank writes, as text.
    L records() {
        L out;
        for (BackgroundBank* bank : app->backgroundBanks()) {
            out.push_back(bank->record());
        }
        for (int b = 1; b <= 5; ++b) {
            out.push_back(app->randomBank(b)->record());
        }
        return out;
    }

    L scenarioFiles() {
        L names;
        for (const auto& e : fs::directory_iterator(console().scenarioFolder())) {
            names.push_back(e.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    void saveAs(const std::string& answer) {
        h.dialogs.answerInput(answer);
        console().saveAsButton.click();
    }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
};

TEST_F(Scenarios, SaveAsWritesTheFamilyAndLoadBringsEveryMemberBack) {
    mix();
    const L saved = records();
    saveAs("Evening Rain  ");
    // Trailing blanks gone; the family in full: every member but 5, which nobody writes.
    EXPECT_EQ(scenarioFiles(), (L{"Evening Rain.scn", "Evening Rain1.scs", "Evening Rain10.scs",
                                  "Evening Rain11.scs", "Evening Rain12.scs", "Evening Rain13.scs",
                                  "Evening Rain14.scs", "Evening Rain2.scs", "Evening Rain3.scs",
                                  "Evening Rain4.scs", "Evening Rain6.scs", "Evening Rain7.scs",
                                  "Evening Rain8.scs", "Evening Rain9.scs"}));
    EXPECT_EQ(readWholeFile(console().scenarioFolder() / "Evening Rain.scn"),
              "\"Evening Rain\"\r\n");
    EXPECT_EQ(console().scenarioList.items(), L{"Evening Rain"});
    EXPECT_EQ(console().scenarioList.listIndex(), 0);
    EXPECT_EQ(console().LCD1.line(3), "Evening Rain");
    EXPECT_EQ(console().carry.remoteCaption, "Scenario: Evening Rain");
    EXPECT_TRUE(h.dialogs.messages().empty());

    // Quit, start again with the banks as they come, and load: every bank and both
    // group levels come back.
    console().QuitCommand.click();
    h.app.reset();
    app = &h.startAndLoad();
    h.loop.advance(Frmmain::kIntroFadeMs * Frmmain::kBuiltInMasterLevel);
    ASSERT_NE(records(), saved);
    // The controls that could start a second load stand disabled while one runs.
    std::vector<bool> enabledDuringLoad;
    app->frmback.slot(3).on.watch([&] {
        enabledDuringLoad.push_back(console().loadButton.enabled() ||
                                    console().scenarioList.enabled() ||
                                    console().presetButtons[13].enabled());
    });
    console().scenarioList.setListIndex(0);
    console().loadButton.click();
    EXPECT_EQ(records(), saved);
    EXPECT_EQ(console().Background.value(), 70);
    EXPECT_EQ(console().Random.value(), 55);
    EXPECT_TRUE(app->frmback.slot(3).on.checked());
    ASSERT_FALSE(enabledDuringLoad.empty());
    EXPECT_EQ(enabledDuringLoad, std::vector<bool>(enabledDuringLoad.size(), false));
    EXPECT_TRUE(console().loadButton.enabled() && console().scenarioList.enabled() &&
                console().presetButtons[0].enabled());
    EXPECT_EQ(console().LCD1.line(3), "Evening Rain");
    EXPECT_EQ(console().LCD1.line(4), "Evening Rain");  // the session's last scenario
    EXPECT_EQ(console().information.text(), Frmmain::kNoInformationText);
    EXPECT_EQ(console().LCD4.line(3), "Static");
    EXPECT_EQ(console().LCD4.line(4), "Disabled");
    EXPECT_TRUE(h.dialogs.messages().empty());
}

TEST_F(Scenarios, SaveOverAnotherNameAsksAndNoKeepsTheOldFamily) {
    mix();
    saveAs("Harbour");
    const auto before = readWholeFile(console().scenarioFolder() / "Harbour1.scs");
    app->frmback.slot(3).volume.setValue(10);

    h.dialogs.answerYesNo(false);
    saveAs("Harbour");
    EXPECT_EQ(h.dialogs.shown().back().text, Frmmain::kNotSavedText);
    EXPECT_EQ(readWholeFile(console().scenarioFolder() / "Harbour1.scs"), before);

    h.dialogs.answerYesNo(true);
    saveAs("Harbour");
    EXPECT_NE(readWholeFile(console().scenarioFolder() / "Harbour1.scs"), before);
    const auto questions = h.dialogs.shown();
    EXPECT_EQ(
        std::count_if(questions.begin(), questions.end(),
                      [](const auto& s) { return s.text == Frmmain::kOverwriteScenarioText; }),
        2);

    // A name reaching into another folder is refused.
    saveAs("../Harbour");
    EXPECT_EQ(h.dialogs.shown().back().text, Frmmain::kNotSavedText);
    EXPECT_FALSE(fs::exists(h.tree.root() / "config/Harbour.scn"));

    // An empty answer is a cancel; Save writes over the current name without asking.
    h.dialogs.clear();
    saveAs("   ");
    app->frmback.slot(3).volume.setValue(30);
    console().saveButton.click();
    EXPECT_EQ(h.dialogs.shown().size(), 1u);  // the prompt only
    EXPECT_EQ(scenarioFiles().size(), 14u);
    EXPECT_EQ(readWholeFile(console().scenarioFolder() / "Harbour1.scs"), app->frmback.record());
}

TEST_F(Scenarios, DeleteAsksRemovesInItsOrderAndLeavesTenAndFourteen) {
    mix();
    saveAs("Storm");
    h.writeFile("config/scenarios/Storm14.scs", "weather");
    h.writeFile("config/scenarios/Storm5.scs", "old");
    h.writeFile("config/scenarios/Storm.txt", "notes");
    h.dialogs.clear();

    console().scenarioList.setListIndex(-1);
    console().deleteButton.click();
    EXPECT_EQ(h.dialogs.messages(), L{Frmmain::kSelectToDeleteText});

    console().scenarioList.setListIndex(0);
    h.dialogs.answerYesNo(false);
    console().deleteButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text,
              "This will delete the scenario -Storm .Do you wish to continue?");
    EXPECT_EQ(scenarioFiles().size(), 16u);

    h.dialogs.answerYesNo(true);
    console().deleteButton.click();
    EXPECT_EQ(scenarioFiles(), (L{"Storm.txt", "Storm10.scs", "Storm14.scs"}));
    EXPECT_TRUE(console().scenarioList.items().empty());
    EXPECT_EQ(console().mnuScenario().captions(),
              (L{"Load Random Scenario", "Load Scenario From Disk"}));

    // Saved again, the leftovers are simply written over.
    saveAs("Storm");
    EXPECT_EQ(scenarioFiles().size(), 15u);
}

TEST_F(Scenarios, AnUnknownNameChangesNothingAndAFailingMemberLetsTheRestLoad) {
    mix();
    saveAs("Woods");
    const L saved = records();
    console().masterStopButton.click();
    const L stopped = records();

    console().doload("Nowhere");
    EXPECT_EQ(records(), stopped);
    EXPECT_TRUE(h.dialogs.messages().empty());
    EXPECT_TRUE(console().loadButton.enabled() && console().presetButtons[5].enabled());
    EXPECT_EQ(console().LCD7.line(4), Frmmain::kWaitingText);

    // Bank two's loops cannot be read: it says so, and every other bank loads.
    h.writeFile("config/scenarios/Woods8.scs", "\"damaged\"\r\n");
    console().doload("Woods");
    EXPECT_EQ(h.dialogs.messages(),
              L{"There was a problem loading the background bank two settings."});
    L expected = saved;
    expected[1] = stopped[1];
    EXPECT_EQ(records(), expected);
}

TEST_F(Scenarios, MainSettingsInformationAndTheSlideshowFallBack) {
    fs::create_directories(h.tree.root() / "visual/slideshow/Beach");
    // The banks' members keep their copies of the group levels too, saved together.
    console().Random.setValue(44);
    console().Background.setValue(66);
    console().dosave("Coast");
    console().Random.setValue(5);
    console().Background.setValue(5);
    h.writeFile("config/scenarios/Coast.txt", "Waves on a beach.\nGulls overhead.\n");
    ScenarioMainRecord r;
    r.random = 44;
    r.background = 66;
    r.hiddenField3 = "Shown below";
    r.slideshowFolder = "Beach";
    r.panoramicName = "Bay.jpg";
    r.scenarioFlag = "7";
    h.writeFile("config/scenarios/Coast6.scs", writeScenarioMainFile(r));
    console().doload("Coast");
    EXPECT_EQ(console().information.text(), "Waves on a beach.\r\nGulls overhead.\r\n");
    EXPECT_EQ(console().Random.value(), 44);
    EXPECT_EQ(console().Background.value(), 66);
    EXPECT_EQ(console().carry.slideshowLabel, "Beach");
    EXPECT_EQ(console().carry.panoramicLabel, "Bay.jpg");
    EXPECT_EQ(console().LCD7.line(4), "Shown below");

    // Saved as it came, save writes the kept fields back.
    console().dosave("Coast Copy");
    const auto copy =
        readScenarioMainFile(readWholeFile(console().scenarioFolder() / "Coast Copy6.scs").value());
    ASSERT_TRUE(copy.whole(ScenarioMainRecord::kFields));
    EXPECT_EQ(copy.record.scenarioFlag, "7");
    EXPECT_EQ(copy.record.panoramicName, "Bay.jpg");

    // A folder gone since falls back to the stock one without a word.
    r.slideshowFolder = "Gone";
    h.writeFile("config/scenarios/Coast6.scs", writeScenarioMainFile(r));
    fs::remove(console().scenarioFolder() / "Coast.txt");
    console().doload("Coast");
    EXPECT_EQ(console().carry.slideshowLabel, "Default");
    EXPECT_EQ(console().information.text(), Frmmain::kNoInformationText);
    EXPECT_TRUE(h.dialogs.messages().empty());
}

TEST_F(Scenarios, TheListAndTheTrayFollowAFileManagersOrder) {
    for (const char* name : {"storm 10", "Storm 2", "autumn", "Beach", "Storm 2b"}) {
        h.writeFile(std::string("config/scenarios/") + name + ".scn", "x");
    }
    h.writeFile("config/scenarios/1.scs", "first run: no marker, no entry");
    console().refreshscenariolist();
    EXPECT_EQ(console().scenarioList.items(),
              (L{"autumn", "Beach", "Storm 2", "Storm 2b", "storm 10"}));
    EXPECT_TRUE(naturalLess("a02", "a2") != naturalLess("a2", "a02"));
    EXPECT_FALSE(naturalLess("x", "x"));

    // A random pick loads one of them; From Disk loads the family beside the marker.
    console().mnuScenario().find("Load Random Scenario")->click();
    EXPECT_NE(std::find(console().scenarioList.items().begin(),
                        console().scenarioList.items().end(), app->CurrentScenarioName),
              console().scenarioList.items().end());
    mix();
    const L saved = records();
    fs::create_directories(h.tree.root() / "elsewhere");
    console().dosave("Away");
    for (const auto& e : fs::directory_iterator(console().scenarioFolder())) {
        if (e.path().filename().string().rfind("Away", 0) == 0) {
            fs::rename(e.path(), h.tree.root() / "elsewhere" / e.path().filename());
        }
    }
    console().masterStopButton.click();
    h.dialogs.answerFile(h.tree.root() / "elsewhere/Away.scn");
    console().mnuScenario().find("Load Scenario From Disk")->click();
    EXPECT_EQ(h.dialogs.shown().back().request.filter, Frmmain::kScenarioFilter);
    EXPECT_EQ(records(), saved);
}

// ---- presets ----

TEST_F(Scenarios, AssignFlashesUntilAButtonTakesTheScenarioWithoutLoadingIt) {
    mix();
    saveAs("Night Sea");
    console().masterStopButton.click();
    const L stopped = records();

    h.dialogs.answerFile(console().scenarioFolder() / "Night Sea.scn");
    console().presetAssignButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text, Frmmain::kAssignTitle);
    EXPECT_EQ(console().PresetFlashState, "flashing");
    h.loop.advance(Frmmain::kFlashMs);
    EXPECT_EQ(console().presetButtons[0].foreColour(), Frmmain::kFlashRed);
    h.loop.advance(Frmmain::kFlashMs);
    EXPECT_EQ(console().presetButtons[13].foreColour(), Frmmain::kFlashWhite);

    console().presetButtons[4].click();
    EXPECT_EQ(console().presetCaption(4), "Night Sea");
    EXPECT_EQ(console().PresetFlashState, "notflashing");
    EXPECT_EQ(console().presetButtons[4].foreColour(), std::nullopt);
    EXPECT_FALSE(console().Timerflash.enabled());
    EXPECT_EQ(records(), stopped);

    // Now a press loads; an unassigned one does nothing; the pointer shows the name.
    console().presetButtons[4].click();
    EXPECT_NE(records(), stopped);
    console().presetHover(4);
    EXPECT_EQ(console().LCD5.line(4), "Night Sea");
    console().presetHover(5);
    EXPECT_EQ(console().LCD5.line(4), "Unassigned");
    h.loop.advance(Frmmain::kPresetStatusMs);
    EXPECT_EQ(console().LCD5.line(4), "");
    const std::string current = app->CurrentScenarioName;
    console().presetButtons[5].click();
    EXPECT_EQ(app->CurrentScenarioName, current);

    // A cancelled Assign changes nothing.
    console().presetAssignButton.click();
    EXPECT_EQ(console().PresetFlashState, "notflashing");
}

TEST_F(Scenarios, PresetListsSaveLoadAndClearAllFourteenAtOnce) {
    PresetCaptions captions;
    for (int p = 0; p < kPresetCount; ++p) {
        captions[static_cast<std::size_t>(p)] = "Scene " + std::to_string(p);
    }
    console().setPresetCaptions(captions);
    h.dialogs.answerFile(h.tree.root() / "config/presets/Evenings");
    console().presetSaveAsButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text, "Save Preset List");
    EXPECT_EQ(console().LCD5.line(3), "Presets: Evenings");

    h.dialogs.answerYesNo(true);
    console().presetClearButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text, Frmmain::kClearPresetsText);
    EXPECT_EQ(console().LCD5.line(3), "Presets: None");
    for (int p = 0; p < kPresetCount; ++p) {
        EXPECT_EQ(console().presetCaption(p), Frmmain::kUnassigned);
    }

    h.dialogs.answerFile(h.tree.root() / "config/presets/Evenings.pst");
    console().presetLoadButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text, "Load Preset List");
    EXPECT_EQ(console().presetCaptions(), captions);
    EXPECT_EQ(console().PresetListName, "Evenings");

    // A short or missing list is not a list: the message, and the captions stay.
    h.writeFile("config/presets/Short.pst", "\"One\"\r\n\"Two\"\r\n");
    for (const char* file : {"config/presets/Short.pst", "config/presets/Missing.pst"}) {
        h.dialogs.answerFile(h.tree.root() / file);
        console().presetLoadButton.click();
        EXPECT_EQ(h.dialogs.shown().back().text, Frmmain::kPresetListUnreadableText);
        EXPECT_EQ(console().presetCaptions(), captions);
    }

    // The captions and the list's name live on in the session.
    app->frmmain.QuitCommand.click();
    const auto mainb = readMainbFile(readWholeFile(h.tree.root() / "mainb.tmp").value());
    EXPECT_EQ(mainb.record.presetCaptions, captions);
    EXPECT_EQ(mainb.record.presetListName, "Evenings");
}

}  // namespace
}  // namespace brevane
