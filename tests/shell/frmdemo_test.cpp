// The scheme panel frmDemo and its picker on the whole headless program: the start from
// colors.tmp or "Default", the named schemes and their commands, the picker, Apply
// reaching exactly the open panels, the session's round trip, and scenarios carrying
// their colours when the option says so.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/app_harness.h"
#include "core/application.h"
#include "core/session_files.h"
#include "engine/recording_engine.h"
#include "scenarios/scenario_files.h"
#include "shell/colour_files.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;
using L = std::vector<std::string>;

// Named test schemes, each colour apart from the others'.
ColourScheme scheme(Colour seed, int palette = 2) {
    ColourScheme s;
    for (int t = 1; t <= kSchemeTargets; ++t) {
        s.setTarget(t, seed + static_cast<Colour>(t));
    }
    s.palette = palette;
    return s;
}

const ColourScheme kDefault = scheme(100000, 2);
const ColourScheme kDusk = scheme(200000, 7);
const ColourScheme kNight = scheme(300000, 10);

class FrmDemo : public ::testing::Test {
  protected:
    void SetUp() override {
        // A session of its own, so this is no first run.
        h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
        putScheme("Default", kDefault);
        putScheme("Dusk", kDusk);
        putScheme("Night", kNight);
    }

    void putScheme(const std::string& name, const ColourScheme& s) {
        h.writeFile(std::string(kColourFolder) + "/" + name + kSchemeExtension, writeSchemeFile(s));
    }
    fs::path file(const std::string& relative) const { return h.tree.root() / relative; }
    bool exists(const std::string& relative) const { return fs::exists(file(relative)); }

    Application& start() {
        app = &h.startAndLoad();
        return *app;
    }
    Frmdemo& demo() { return app->frmDemo; }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
};

// ---- the start and the session ----

TEST_F(FrmDemo, AFirstStartTakesDefaultAndTheSessionBringsTheAppliedSchemeBack) {
    start();
    EXPECT_EQ(demo().schemeList.items(), (L{"Default", "Dusk", "Night"}));
    EXPECT_EQ(demo().schemeName(), "Default");
    EXPECT_EQ(app->frmmain.colours.scheme(), kDefault);
    EXPECT_EQ(app->frmmain.LCD5.colours()->blend, kDefault.display[3]);
    EXPECT_FALSE(app->frmevolve.colours.scheme());  // closed: it paints as it opens

    demo().schemeList.setListIndex(2);  // Night, its displays "CUSTOM"
    demo().apply();
    app->frmmain.QuitCommand.click();
    EXPECT_EQ(readWholeFile(file("colors.tmp")),
              writeColoursSessionFile({10, kNight.display, colourText(kNight.line),
                                       colourText(kNight.active), "Night"}));
    const auto mainb = readMainbFile(*readWholeFile(file("mainb.tmp")));
    EXPECT_EQ(mainb.record.colours[9], colourText(kNight.textBoxFore));
    EXPECT_EQ(readMainFile(*readWholeFile(file("main.tmp"))).record.colourSchemeName, "Night");

    // The next start brings the session's scheme back, not the file's present colours.
    putScheme("Night", kDusk);
    test::AppHarness<RecordingEngine> next;
    fs::copy(h.tree.root(), next.tree.root(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    Application& again = next.startAndLoad();
    EXPECT_EQ(again.scheme, kNight);
    EXPECT_EQ(again.frmDemo.schemeName(), "Night");
    EXPECT_EQ(again.frmmain.LCD3.palette(), LcdPalette::Custom);
    EXPECT_EQ(again.frmmain.LCD3.colours()->on, kNight.display[1]);
}

TEST_F(FrmDemo, ColorsTmpIsReadAsFarAsItGoesAndThePositionsCreepAsTheyAlwaysDid) {
    h.writeFile("colors.tmp", "6,1,2,3,4,\"77\",\"oops\",\"Gone\"\r\n");
    h.settings.setValue("Settings15", "Maintop", "3000");
    h.settings.setValue("Settings13", "Maintop", "900");
    start();
    EXPECT_EQ(app->scheme.palette, 6);
    EXPECT_EQ(app->scheme.display, (std::array<Colour, 4>{1, 2, 3, 4}));
    EXPECT_EQ(app->scheme.line, 77u);
    EXPECT_EQ(app->scheme.active, builtInScheme().active);  // not a colour: it stays
    EXPECT_EQ(demo().schemeName(), "Gone");
    EXPECT_EQ(demo().schemeList.listIndex(), -1);
    app->frmmain.QuitCommand.click();
    EXPECT_EQ(h.settings.value("Settings15", "Maintop"), "3500");
    EXPECT_EQ(h.settings.value("Settings13", "Maintop"), "900");
}

// ---- editing, and the picker ----

TEST_F(FrmDemo, ASwatchOpensThePickerAtItsColourAndOkPaintsOnlyTheSample) {
    h.writeFile(kPaletteFile, writePaletteFile({rgbColour(1, 2, 3), rgbColour(4, 5, 6)}));
    start();
    app->frmevolve.window.show();
    app->frmmain.colorsButton.click();
    demo().swatches[9].click();  // "Text Color"
    EXPECT_EQ(demo().target.text(), "10");
    ColourPicker& picker = app->Frmcolorpicker;
    EXPECT_TRUE(picker.window.visible());
    EXPECT_EQ(picker.colour, kDefault.text);
    EXPECT_EQ(picker.palette, (std::vector<Colour>{rgbColour(1, 2, 3), rgbColour(4, 5, 6)}));
    picker.choose(0x00ABCDEF);
    picker.okButton.click();
    EXPECT_FALSE(picker.window.visible());
    EXPECT_EQ(demo().swatches[9].backColour(), 0x00ABCDEFu);
    EXPECT_EQ(demo().sample.scheme()->text, 0x00ABCDEFu);
    // Without Apply nothing else changes.
    EXPECT_EQ(app->frmevolve.colours.scheme(), kDefault);
    EXPECT_EQ(demo().colours.scheme(), kDefault);

    // Cancel keeps the colour; a display colour turns the sample's display to CUSTOM.
    demo().swatches[1].click();  // "LCD On"
    picker.choose(1);
    picker.cancelButton.click();
    EXPECT_EQ(demo().scheme().display[1], kDefault.display[1]);
    demo().swatches[1].click();
    picker.choose(0x0000FF00);
    picker.okButton.click();
    EXPECT_EQ(demo().paletteList.text(), "CUSTOM");
    EXPECT_EQ(demo().sampleDisplay.colours()->on, 0x0000FF00u);
    EXPECT_TRUE(h.dialogs.shown().empty());

    // A palette that cannot be read is said, and the picker works on without it.
    fs::remove(file(kPaletteFile));
    demo().swatches[4].click();
    EXPECT_EQ(h.dialogs.messages(), L{"The Pallet can not be loaded."});
    EXPECT_TRUE(picker.palette.empty());
    picker.choose(42);
    picker.okButton.click();
    EXPECT_EQ(demo().scheme().buttonBack, 42u);
}

// ---- the named schemes ----

TEST_F(FrmDemo, PickingAndSteppingLoadEachSchemeTheStepsDoNotWrapAndThePaletteStepsToo) {
    start();
    demo().show();
    demo().nextSchemeButton.click();
    EXPECT_EQ(demo().schemeName(), "Dusk");
    EXPECT_EQ(demo().sample.scheme(), kDusk);
    EXPECT_EQ(demo().sampleDisplay.palette(), LcdPalette::Orange);
    demo().nextSchemeButton.click();
    demo().nextSchemeButton.click();  // the last: no wrapping
    EXPECT_EQ(demo().scheme(), kNight);
    for (int i = 0; i < 3; ++i) {
        demo().previousSchemeButton.click();
    }
    EXPECT_EQ(demo().schemeName(), "Default");
    EXPECT_EQ(demo().scheme(), kDefault);

    demo().nextPaletteButton.click();
    EXPECT_EQ(demo().paletteList.text(), "Yellow Backlight");
    EXPECT_EQ(demo().sampleDisplay.palette(), LcdPalette::YellowBacklight);
    demo().paletteList.setListIndex(10);
    demo().nextPaletteButton.click();
    EXPECT_EQ(demo().scheme().palette, 10);
    demo().paletteList.setListIndex(0);
    demo().previousPaletteButton.click();
    EXPECT_EQ(demo().scheme().palette, 0);
    EXPECT_EQ(app->scheme, kDefault);  // only Apply reaches the program

    // A scheme whose file vanished, or is damaged, leaves the present colours.
    fs::remove(file("config/colors/Dusk.clr"));
    h.writeFile("config/colors/Night.clr", "\"1\",\"2\"\r\n");
    demo().schemeList.setListIndex(1);
    demo().schemeList.setListIndex(2);
    EXPECT_EQ(demo().scheme().back, kDefault.back);
    EXPECT_TRUE(h.dialogs.shown().empty());
}

TEST_F(FrmDemo, SaveAndSaveAsAskBeforeWritingOverAScheme) {
    h.writeFile("colors.tmp", "2,1,2,3,4,\"9\",\"9\",\"\"\r\n");
    start();
    demo().show();
    demo().saveButton.click();
    EXPECT_EQ(h.dialogs.messages(),
              L{"There is no scheme selected. Please use the 'save as' option"});
    demo().schemeList.setListIndex(1);
    demo().setColour(8, 123);
    h.dialogs.answerYesNo(false);
    demo().saveButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text,
              "This will overwrite the color profile - Dusk. Continue?");
    EXPECT_EQ(readSchemeFile(*readWholeFile(file("config/colors/Dusk.clr"))), kDusk);
    h.dialogs.answerYesNo(true);
    demo().saveButton.click();
    EXPECT_EQ(readSchemeFile(*readWholeFile(file("config/colors/Dusk.clr")))->back, 123u);

    h.dialogs.clear();
    h.dialogs.answerInput("Harbour  ");
    demo().saveAsButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text, "Please type a name for this color scheme");
    EXPECT_EQ(demo().schemeList.items(), (L{"Default", "Dusk", "Harbour", "Night"}));
    EXPECT_EQ(demo().schemeName(), "Harbour");
    EXPECT_EQ(readSchemeFile(*readWholeFile(file("config/colors/Harbour.clr")))->back, 123u);
    h.dialogs.answerInput("Night");
    h.dialogs.answerYesNo(false);
    demo().saveAsButton.click();
    EXPECT_EQ(readSchemeFile(*readWholeFile(file("config/colors/Night.clr"))), kNight);
    h.dialogs.answerInput("a/b");
    demo().saveAsButton.click();
    EXPECT_EQ(h.dialogs.messages(), L{"The color scheme could not be saved."});
    EXPECT_EQ(demo().schemeList.count(), 4);
}

TEST_F(FrmDemo, DelKeepsDefaultAndRestoreDefaultBringsItBackAfterAsking) {
    start();
    demo().show();
    demo().deleteButton.click();
    EXPECT_EQ(h.dialogs.messages(), L{"The default color scheme cannot be deleted."});
    demo().schemeList.setListIndex(1);
    h.dialogs.answerYesNo(false);
    demo().deleteButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text,
              "This will delete the color profile - Dusk. Continue?");
    EXPECT_TRUE(exists("config/colors/Dusk.clr"));
    h.dialogs.answerYesNo(true);
    demo().deleteButton.click();
    EXPECT_FALSE(exists("config/colors/Dusk.clr"));
    EXPECT_EQ(demo().schemeList.items(), (L{"Default", "Night"}));
    EXPECT_EQ(demo().schemeName(), "");
    demo().deleteButton.click();
    EXPECT_EQ(h.dialogs.messages().back(), "Please select the color scheme you wish to delete.");

    h.dialogs.answerYesNo(false);
    demo().restoreDefaultButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text,
              "This will restore the default color scheme. Continue?");
    EXPECT_EQ(demo().scheme(), kDusk);
    h.dialogs.answerYesNo(true);
    demo().restoreDefaultButton.click();
    EXPECT_EQ(demo().schemeName(), "Default");
    EXPECT_EQ(demo().scheme(), kDefault);
    demo().setColour(5, 1);  // selected already, and changed since
    h.dialogs.answerYesNo(true);
    demo().restoreDefaultButton.click();
    EXPECT_EQ(demo().scheme(), kDefault);
}

TEST_F(FrmDemo, OpeningKeepsTheProgramsSchemeInPreviousTmpAndRevertTakesChangesBack) {
    start();
    app->frmmain.colorsButton.click();
    EXPECT_EQ(readSchemeFile(*readWholeFile(file("config/colors/previous.tmp"))), kDefault);
    EXPECT_EQ(demo().schemeList.count(), 3);  // not a scheme of the list
    demo().schemeList.setListIndex(1);
    demo().apply();
    demo().setColour(6, 9);
    app->frmmain.colorsButton.click();  // open already: the editing stays
    EXPECT_EQ(demo().scheme().buttonText, 9u);
    demo().revertButton.click();
    EXPECT_EQ(demo().scheme(), kDefault);
    EXPECT_EQ(app->scheme, kDusk);
    // The next opening starts from what the program shows; Close kept it as applied.
    demo().setColour(6, 9);
    demo().closeButton.click();
    app->frmmain.colorsButton.click();
    EXPECT_EQ(demo().scheme(), kDusk);
}

// ---- Apply ----

TEST_F(FrmDemo, ApplyPaintsTheConsoleTheSchemePanelAndExactlyThePanelsThatAreOpen) {
    start();
    app->frmevolve.window.show();
    app->frmback.show();
    app->Alarm.window.show();
    app->frmbwave.window.show();
    app->Alarm.window.hide();
    app->frmmain.window.hide();
    app->frmmain.colorsButton.click();
    demo().schemeList.setListIndex(1);
    demo().applyButton.click();

    // The console paints even while hidden, displays and all; of the others, the open.
    EXPECT_EQ(app->frmmain.LCD8.palette(), LcdPalette::Orange);
    EXPECT_EQ(app->frmbwave.LCD2.palette(), LcdPalette::Orange);
    std::vector<std::string> painted;
    for (PanelColours* panel : app->paintedPanels()) {
        if (panel->scheme() == kDusk) {
            painted.push_back(panel->open() ? "open" : "closed");
        } else {
            EXPECT_FALSE(panel->open());
        }
    }
    // The console, then frmDemo, Background 1, Evolve and Brainwaves.
    EXPECT_EQ(painted, (L{"closed", "open", "open", "open", "open"}));
    EXPECT_EQ(app->Alarm.colours.scheme(), kDefault);  // open once, not at Apply
    // A closed panel paints itself as it opens.
    app->Alarm.window.show();
    EXPECT_EQ(app->Alarm.colours.scheme(), kDusk);
}

TEST_F(FrmDemo, AutoKeepsItsStateThroughASchemeWhoseButtonIsAnotherColour) {
    start();
    RandomBank& bank = *app->randomBank(2);
    bank.show();
    bank.autoButton.setValue(true);
    EXPECT_EQ(bank.autoButton.backColour(), kDefault.active);
    demo().schemeList.setListIndex(1);
    demo().apply();
    // The open bank shows Auto in the new scheme, still on; a closed one reads it in the
    // colours it has until it opens.
    EXPECT_EQ(bank.autoButton.backColour(), kDusk.active);
    RandomBank& closed = *app->randomBank(3);
    EXPECT_TRUE(closed.autoOn());
    closed.show();
    EXPECT_EQ(closed.autoButton.backColour(), kDusk.active);
    bank.autoButton.setValue(false);
    EXPECT_FALSE(closed.autoOn());
    EXPECT_EQ(closed.autoButton.backColour(), kDusk.buttonBack);
}

// ---- scenarios ----

class FrmDemoScenarios : public FrmDemo {
  protected:
    fs::path member(const std::string& name, ScenarioMember m) {
        return scenarioMemberFile(app->frmmain.scenarioFolder(), name, m);
    }
    std::optional<ColourScheme> read(const fs::path& f) {
        const auto text = readWholeFile(f);
        return text ? readSchemeFile(*text) : std::nullopt;
    }
};

TEST_F(FrmDemoScenarios, ASavedScenarioCarriesTheSchemeAndALoadAppliesItWhenTheOptionIsOn) {
    start();
    demo().schemeList.setListIndex(2);
    demo().apply();
    demo().setColour(8, 5);  // edited, not applied: not carried
    ASSERT_TRUE(app->frmmain.dosave("Night Sea"));
    EXPECT_EQ(read(member("Night Sea", ScenarioMember::Colours)), kNight);
    EXPECT_EQ(read(member("Night Sea", ScenarioMember::ColoursAgain)), kNight);
    // Seven says otherwise from here on: it is never read.
    ASSERT_TRUE(writeFileAtomically(member("Night Sea", ScenarioMember::ColoursAgain),
                                    writeSchemeFile(kDusk)));
    demo().schemeList.setListIndex(0);
    demo().apply();
    app->frmevolve.window.show();

    ASSERT_TRUE(app->FRMOPTIONS.colourWithScenario.checked());
    app->frmmain.doload("Night Sea");
    EXPECT_EQ(app->scheme, kNight);
    EXPECT_EQ(app->frmevolve.colours.scheme(), kNight);
    EXPECT_EQ(app->frmmain.LCD1.palette(), LcdPalette::Custom);
    EXPECT_TRUE(h.dialogs.shown().empty());

    // With the option off, or a scenario that carries no colours (a stock one), the
    // colours stay.
    demo().schemeList.setListIndex(1);
    demo().apply();
    app->FRMOPTIONS.colourWithScenario.setChecked(false);
    app->frmmain.doload("Night Sea");
    EXPECT_EQ(app->CurrentScenarioName, "Night Sea");
    EXPECT_EQ(app->scheme, kDusk);
    app->FRMOPTIONS.colourWithScenario.setChecked(true);
    fs::remove(member("Night Sea", ScenarioMember::Colours));
    app->frmmain.doload("Night Sea");
    EXPECT_EQ(app->frmmain.colours.scheme(), kDusk);

    // Delete takes the scheme's members with it.
    app->frmmain.scenarioList.setListIndex(app->frmmain.scenarioList.find("Night Sea"));
    h.dialogs.answerYesNo(true);
    app->frmmain.deleteScenario();
    EXPECT_FALSE(fs::exists(member("Night Sea", ScenarioMember::ColoursAgain)));
}

}  // namespace
}  // namespace brevane
