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

// ---- the start ----

TEST_F(FrmDemo, AFirstStartTakesDefaultAndPaintsTheConsoleAndItsDisplays) {
    start();
    EXPECT_EQ(demo().schemeList.items(), (L{"Default", "Dusk", "Night"}));
    EXPECT_EQ(demo().schemeName(), "Default");
    EXPECT_EQ(app->scheme, kDefault);
    EXPECT_EQ(app->frmmain.colours.scheme(), kDefault);
    EXPECT_EQ(demo().colours.scheme(), kDefault);
    for (LcdDisplay* d : app->frmmain.displays()) {
        EXPECT_EQ(d->palette(), LcdPalette::BlueBacklight);
        EXPECT_EQ(d->colours()->backlight, kDefault.display[0]);
        EXPECT_EQ(d->colours()->blend, kDefault.display[3]);
    }
    // Closed panels paint when they open.
    EXPECT_FALSE(app->frmevolve.colours.scheme());
    EXPECT_TRUE(h.dialogs.shown().empty());
}

TEST_F(FrmDemo, WithoutDefaultOnDiskTheStartTakesTheProgramsOwnLook) {
    fs::remove(file("config/colors/Default.clr"));
    start();
    EXPECT_EQ(app->scheme, programLook());
    EXPECT_EQ(demo().schemeName(), "Default");
}

TEST_F(FrmDemo, ASessionComesBackWholeThroughMainbAndColorsTmp) {
    start();
    demo().show();
    demo().schemeList.setListIndex(2);  // Night, palette "CUSTOM"
    demo().apply();
    app->frmmain.QuitCommand.click();
    ASSERT_EQ(h.exits.size(), 1u);
    EXPECT_EQ(readWholeFile(file("colors.tmp")),
              writeColoursSessionFile({10, kNight.display, colourText(kNight.line),
                                       colourText(kNight.active), "Night"}));
    const auto mainb = readMainbFile(*readWholeFile(file("mainb.tmp")));
    EXPECT_EQ(mainb.record.colours[0], colourText(kNight.startGradient));
    EXPECT_EQ(mainb.record.colours[9], colourText(kNight.textBoxFore));
    EXPECT_EQ(readMainFile(*readWholeFile(file("main.tmp"))).record.colourSchemeName, "Night");

    // The next start: Default is on disk, but the session's scheme is what comes back.
    putScheme("Night", kDusk);  // the file changed since: the session does not read it
    test::AppHarness<RecordingEngine> next;
    fs::copy(h.tree.root(), next.tree.root(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    Application& again = next.startAndLoad();
    EXPECT_EQ(again.scheme, kNight);
    EXPECT_EQ(again.frmDemo.schemeName(), "Night");
    EXPECT_EQ(again.frmmain.colours.scheme(), kNight);
    EXPECT_EQ(again.frmmain.LCD3.palette(), LcdPalette::Custom);
    EXPECT_EQ(again.frmmain.LCD3.colours()->on, kNight.display[1]);
}

TEST_F(FrmDemo, ColorsTmpIsReadAsFarAsItGoesAndANameNoLongerListedStillShows) {
    h.writeFile("colors.tmp", "6,1,2,3,4,\"77\",\"oops\",\"Gone\"\r\n");
    start();
    EXPECT_EQ(app->scheme.palette, 6);
    EXPECT_EQ(app->scheme.display, (std::array<Colour, 4>{1, 2, 3, 4}));
    EXPECT_EQ(app->scheme.line, 77u);
    // Not a colour: the value before it stays.
    EXPECT_EQ(app->scheme.active, builtInScheme().active);
    EXPECT_EQ(demo().schemeName(), "Gone");
    EXPECT_EQ(demo().schemeList.listIndex(), -1);
}

TEST_F(FrmDemo, WindowPositionsAreKeptInTheirSectionsTheSchemePanelsTopReadLower) {
    h.settings.setValue("Settings15", "MainLeft", "1500");
    h.settings.setValue("Settings15", "Maintop", "3000");
    h.settings.setValue("Settings13", "MainLeft", "600");
    h.settings.setValue("Settings13", "Maintop", "900");
    start();
    ASSERT_TRUE(demo().position);
    EXPECT_EQ(demo().position->left, 1500);
    EXPECT_EQ(demo().position->top, 3500);
    ASSERT_TRUE(app->Frmcolorpicker.position);
    EXPECT_EQ(app->Frmcolorpicker.position->top, 900);
    app->frmmain.QuitCommand.click();
    EXPECT_EQ(h.settings.value("Settings15", "Maintop"), "3500");
    EXPECT_EQ(h.settings.value("Settings13", "Mainleft"), "600");
}

// ---- editing, and the picker ----

TEST_F(FrmDemo, ASwatchOpensThePickerAtItsColourAndOkPaintsOnlyTheSample) {
    h.writeFile(kPaletteFile, writePaletteFile({rgbColour(1, 2, 3), rgbColour(4, 5, 6)}));
    start();
    app->frmevolve.window.show();
    app->frmmain.colorsButton.click();
    ASSERT_TRUE(demo().window.visible());

    demo().swatches[9].click();  // "Text Color"
    EXPECT_EQ(demo().target.text(), "10");
    ColourPicker& picker = app->Frmcolorpicker;
    EXPECT_TRUE(picker.window.visible());
    EXPECT_EQ(picker.colour, kDefault.text);
    EXPECT_EQ(picker.palette, (std::vector<Colour>{rgbColour(1, 2, 3), rgbColour(4, 5, 6)}));
    picker.choose(0x00ABCDEF);
    picker.okButton.click();
    EXPECT_FALSE(picker.window.visible());
    EXPECT_EQ(demo().scheme().text, 0x00ABCDEFu);
    EXPECT_EQ(demo().swatches[9].backColour(), 0x00ABCDEFu);
    EXPECT_EQ(demo().sample.scheme()->text, 0x00ABCDEFu);
    // Without Apply nothing else changes.
    EXPECT_EQ(app->scheme, kDefault);
    EXPECT_EQ(app->frmmain.colours.scheme(), kDefault);
    EXPECT_EQ(app->frmevolve.colours.scheme(), kDefault);
    EXPECT_EQ(demo().colours.scheme(), kDefault);

    // Cancel changes nothing; a display colour turns the sample's display to CUSTOM.
    demo().swatches[1].click();  // "LCD On"
    picker.choose(1);
    picker.cancelButton.click();
    EXPECT_EQ(demo().scheme().display[1], kDefault.display[1]);
    demo().swatches[1].click();
    picker.choose(0x0000FF00);
    picker.okButton.click();
    EXPECT_EQ(demo().scheme().palette, static_cast<int>(LcdPalette::Custom));
    EXPECT_EQ(demo().paletteList.text(), "CUSTOM");
    EXPECT_EQ(demo().sampleDisplay.palette(), LcdPalette::Custom);
    EXPECT_EQ(demo().sampleDisplay.colours()->on, 0x0000FF00u);
    EXPECT_EQ(app->frmmain.LCD1.palette(), LcdPalette::BlueBacklight);
    EXPECT_TRUE(h.dialogs.shown().empty());
}

TEST_F(FrmDemo, APaletteThatCannotBeReadIsSaidAndThePickerStillWorks) {
    start();
    demo().show();
    demo().swatches[4].click();
    EXPECT_EQ(h.dialogs.messages(), L{"The Pallet can not be loaded."});
    EXPECT_TRUE(app->Frmcolorpicker.palette.empty());
    app->Frmcolorpicker.choose(42);
    app->Frmcolorpicker.okButton.click();
    EXPECT_EQ(demo().scheme().buttonBack, 42u);
    h.writeFile(kPaletteFile, "JASC-PAL\r\n0100\r\n9\r\n");
    demo().swatches[4].click();
    EXPECT_EQ(h.dialogs.messages().size(), 2u);
}

TEST_F(FrmDemo, ThePaletteListAndItsSteppersSetTheDisplaysPaletteWithoutWrapping) {
    start();
    demo().show();
    EXPECT_EQ(demo().paletteList.count(), 11);
    EXPECT_EQ(demo().paletteList.item(10), "CUSTOM");
    EXPECT_EQ(demo().paletteList.text(), "Blue Backlight");
    demo().nextPaletteButton.click();
    EXPECT_EQ(demo().scheme().palette, 3);
    EXPECT_EQ(demo().sampleDisplay.palette(), LcdPalette::YellowBacklight);
    demo().paletteList.setListIndex(0);
    demo().previousPaletteButton.click();
    EXPECT_EQ(demo().scheme().palette, 0);
    demo().paletteList.setListIndex(10);
    demo().nextPaletteButton.click();
    EXPECT_EQ(demo().scheme().palette, 10);
}

// ---- the named schemes ----

TEST_F(FrmDemo, PickingAndSteppingLoadEachSchemeAndTheStepsDoNotWrap) {
    start();
    demo().show();
    demo().nextSchemeButton.click();
    EXPECT_EQ(demo().schemeName(), "Dusk");
    EXPECT_EQ(demo().scheme(), kDusk);
    EXPECT_EQ(demo().sample.scheme(), kDusk);
    EXPECT_EQ(demo().sampleDisplay.palette(), LcdPalette::Orange);
    demo().nextSchemeButton.click();
    EXPECT_EQ(demo().scheme(), kNight);
    demo().nextSchemeButton.click();  // the last: no wrapping
    EXPECT_EQ(demo().schemeName(), "Night");
    EXPECT_EQ(demo().scheme(), kNight);
    demo().previousSchemeButton.click();
    demo().previousSchemeButton.click();
    demo().previousSchemeButton.click();
    EXPECT_EQ(demo().schemeName(), "Default");
    EXPECT_EQ(demo().scheme(), kDefault);
    // Only Apply reaches the program.
    EXPECT_EQ(app->scheme, kDefault);
}

TEST_F(FrmDemo, ASchemeWhoseFileVanishedOrIsDamagedLeavesThePresentColours) {
    start();
    demo().show();
    fs::remove(file("config/colors/Dusk.clr"));
    h.writeFile("config/colors/Night.clr", "\"1\",\"2\"\r\n");
    demo().schemeList.setListIndex(1);
    EXPECT_EQ(demo().scheme(), kDefault);
    demo().schemeList.setListIndex(2);
    EXPECT_EQ(demo().scheme(), kDefault);
    EXPECT_TRUE(h.dialogs.shown().empty());
}

TEST_F(FrmDemo, SaveAsksBeforeWritingOverTheSchemeAndWithoutANameAsksForSaveAs) {
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
    ColourScheme saved = kDusk;
    saved.back = 123;
    EXPECT_EQ(readSchemeFile(*readWholeFile(file("config/colors/Dusk.clr"))), saved);
}

TEST_F(FrmDemo, SaveAsWritesANewSchemeListsItAndAsksBeforeWritingOverOne) {
    start();
    demo().show();
    demo().setColour(11, 4242);
    h.dialogs.answerInput("Harbour  ");
    demo().saveAsButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text, "Please type a name for this color scheme");
    EXPECT_EQ(demo().schemeList.items(), (L{"Default", "Dusk", "Harbour", "Night"}));
    EXPECT_EQ(demo().schemeName(), "Harbour");
    EXPECT_EQ(readSchemeFile(*readWholeFile(file("config/colors/Harbour.clr")))->active, 4242u);

    // Over Dusk only with a Yes; a name the folder cannot hold is refused; Cancel is
    // nothing.
    h.dialogs.clear();
    h.dialogs.answerInput("Dusk");
    h.dialogs.answerYesNo(false);
    demo().saveAsButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text,
              "This will overwrite the color profile - Dusk. Continue?");
    EXPECT_EQ(readSchemeFile(*readWholeFile(file("config/colors/Dusk.clr"))), kDusk);
    EXPECT_EQ(demo().schemeName(), "Harbour");
    h.dialogs.answerInput("a/b");
    demo().saveAsButton.click();
    EXPECT_EQ(h.dialogs.messages(), L{"The color scheme could not be saved."});
    demo().saveAsButton.click();
    EXPECT_EQ(demo().schemeList.count(), 4);
}

TEST_F(FrmDemo, DelRemovesTheSelectedSchemeAfterAskingButNeverDefault) {
    start();
    demo().show();
    demo().schemeList.setListIndex(-1);
    demo().deleteButton.click();
    EXPECT_EQ(h.dialogs.messages(), L{"Please select the color scheme you wish to delete."});
    demo().schemeList.setListIndex(0);
    demo().deleteButton.click();
    EXPECT_EQ(h.dialogs.messages().back(), "The default color scheme cannot be deleted.");
    EXPECT_TRUE(exists("config/colors/Default.clr"));

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
    // The colours on the sample stay until another is chosen.
    EXPECT_EQ(demo().scheme(), kDusk);
}

TEST_F(FrmDemo, RestoreDefaultAsksThenSelectsDefaultEvenWhenItIsSelectedAlready) {
    start();
    demo().show();
    demo().schemeList.setListIndex(2);
    h.dialogs.answerYesNo(false);
    demo().restoreDefaultButton.click();
    EXPECT_EQ(h.dialogs.shown().back().text,
              "This will restore the default color scheme. Continue?");
    EXPECT_EQ(demo().scheme(), kNight);
    h.dialogs.answerYesNo(true);
    demo().restoreDefaultButton.click();
    EXPECT_EQ(demo().schemeName(), "Default");
    EXPECT_EQ(demo().scheme(), kDefault);

    demo().setColour(5, 1);
    h.dialogs.answerYesNo(true);
    demo().restoreDefaultButton.click();
    EXPECT_EQ(demo().scheme(), kDefault);
    // Only Apply reaches the program.
    EXPECT_EQ(app->frmmain.colours.scheme(), kDefault);
}

TEST_F(FrmDemo, OpeningKeepsTheProgramsSchemeInPreviousTmpAndRevertTakesChangesBack) {
    start();
    app->frmmain.colorsButton.click();
    EXPECT_EQ(readSchemeFile(*readWholeFile(file("config/colors/previous.tmp"))), kDefault);
    // previous.tmp is not a scheme of the list.
    EXPECT_EQ(demo().schemeList.count(), 3);
    demo().schemeList.setListIndex(1);
    demo().apply();
    demo().setColour(6, 9);
    demo().revertButton.click();
    EXPECT_EQ(demo().scheme(), kDefault);
    EXPECT_EQ(app->scheme, kDusk);

    // The next opening starts from what the program shows, unapplied changes gone.
    demo().setColour(6, 9);
    demo().closeButton.click();
    EXPECT_EQ(app->scheme, kDusk);
    app->frmmain.colorsButton.click();
    EXPECT_EQ(demo().scheme(), kDusk);
    EXPECT_EQ(readSchemeFile(*readWholeFile(file("config/colors/previous.tmp"))), kDusk);
}

TEST_F(FrmDemo, AdvancedShowsAndHidesTheSingleSwatches) {
    start();
    EXPECT_FALSE(demo().advancedFrame.visible());
    demo().advancedButton.click();
    EXPECT_TRUE(demo().advancedFrame.visible());
    EXPECT_EQ(demo().advancedButton.caption(), "<< Advanced");
    demo().advancedButton.click();
    EXPECT_FALSE(demo().advancedFrame.visible());
    EXPECT_EQ(demo().advancedButton.caption(), "Advanced >>");
    EXPECT_EQ(demo().swatches[13].toolTip(), "Start Gradient");
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

    EXPECT_EQ(app->scheme, kDusk);
    EXPECT_EQ(demo().colours.scheme(), kDusk);
    // The console paints even while hidden, displays and all.
    EXPECT_EQ(app->frmmain.colours.scheme(), kDusk);
    EXPECT_EQ(app->frmmain.LCD8.palette(), LcdPalette::Orange);
    std::vector<std::string> painted;
    std::vector<std::string> stale;
    for (PanelColours* panel : app->paintedPanels()) {
        (panel->scheme() == kDusk ? painted : stale).push_back(panel->open() ? "open" : "closed");
    }
    // The console (hidden) and the open ones: scheme panel, Evolve, Background 1, Brainwaves.
    EXPECT_EQ(painted, (L{"closed", "open", "open", "open", "open"}));
    for (const std::string& s : stale) {
        EXPECT_EQ(s, "closed");
    }
    EXPECT_EQ(app->frmbwave.LCD2.palette(), LcdPalette::Orange);
    EXPECT_EQ(app->frmback.colours.scheme(), kDusk);
    EXPECT_EQ(app->Alarm.colours.scheme(), kDefault);  // it was open once, not at Apply
    EXPECT_FALSE(app->frmeffects.colours.scheme());

    // A closed panel paints itself as it opens.
    app->frmeffects.window.show();
    EXPECT_EQ(app->frmeffects.colours.scheme(), kDusk);
    app->Alarm.window.show();
    EXPECT_EQ(app->Alarm.colours.scheme(), kDusk);
    // Close keeps the colours as applied.
    demo().closeButton.click();
    EXPECT_EQ(app->scheme, kDusk);
}

TEST_F(FrmDemo, AutoKeepsItsStateThroughASchemeWhoseButtonIsAnotherColour) {
    start();
    RandomBank& bank = *app->randomBank(2);
    bank.show();
    bank.autoButton.setValue(true);
    ASSERT_TRUE(bank.autoOn());
    EXPECT_EQ(bank.autoButton.backColour(), kDefault.active);
    demo().schemeList.setListIndex(1);
    demo().apply();
    // The open bank repaints Auto in the new scheme, still on; a closed one keeps the
    // colours it had and reads them the same way.
    EXPECT_TRUE(bank.autoOn());
    EXPECT_EQ(bank.autoButton.backColour(), kDusk.active);
    RandomBank& closed = *app->randomBank(3);
    EXPECT_TRUE(closed.autoOn());
    closed.show();
    EXPECT_EQ(closed.autoButton.backColour(), kDusk.active);
    bank.autoButton.setValue(false);
    EXPECT_FALSE(bank.autoOn());
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

TEST_F(FrmDemoScenarios, SaveWritesTheProgramsSchemeAsMemberNineAndItsCopySeven) {
    start();
    demo().schemeList.setListIndex(1);
    demo().apply();
    demo().setColour(8, 5);  // edited, not applied: not carried
    ASSERT_TRUE(app->frmmain.dosave("Harbour"));
    EXPECT_EQ(read(member("Harbour", ScenarioMember::Colours)), kDusk);
    EXPECT_EQ(read(member("Harbour", ScenarioMember::ColoursAgain)), kDusk);

    // Delete takes both with it.
    app->frmmain.scenarioList.setListIndex(app->frmmain.scenarioList.find("Harbour"));
    h.dialogs.answerYesNo(true);
    app->frmmain.deleteScenario();
    EXPECT_FALSE(fs::exists(member("Harbour", ScenarioMember::Colours)));
    EXPECT_FALSE(fs::exists(member("Harbour", ScenarioMember::ColoursAgain)));
}

TEST_F(FrmDemoScenarios, WithTheOptionOnALoadAppliesMemberNineAndNeverReadsSeven) {
    start();
    ASSERT_TRUE(app->FRMOPTIONS.colourWithScenario.checked());
    demo().schemeList.setListIndex(2);
    demo().apply();
    ASSERT_TRUE(app->frmmain.dosave("Night Sea"));
    // Seven says otherwise: it is not read.
    ASSERT_TRUE(writeFileAtomically(member("Night Sea", ScenarioMember::ColoursAgain),
                                    writeSchemeFile(kDusk)));
    demo().schemeList.setListIndex(0);
    demo().apply();
    app->frmevolve.window.show();

    app->frmmain.doload("Night Sea");
    EXPECT_EQ(app->scheme, kNight);
    EXPECT_EQ(app->frmmain.colours.scheme(), kNight);
    EXPECT_EQ(app->frmevolve.colours.scheme(), kNight);
    EXPECT_EQ(app->frmmain.LCD1.palette(), LcdPalette::Custom);
    EXPECT_TRUE(h.dialogs.shown().empty());

    // A scenario that carries no colours (a stock one) leaves them.
    fs::remove(member("Night Sea", ScenarioMember::Colours));
    demo().schemeList.setListIndex(1);
    demo().apply();
    app->frmmain.doload("Night Sea");
    EXPECT_EQ(app->scheme, kDusk);
}

TEST_F(FrmDemoScenarios, WithTheOptionOffALoadLeavesTheColoursAlone) {
    start();
    demo().schemeList.setListIndex(2);
    demo().apply();
    ASSERT_TRUE(app->frmmain.dosave("Night Sea"));
    demo().schemeList.setListIndex(1);
    demo().apply();
    app->FRMOPTIONS.colourWithScenario.setChecked(false);
    app->frmmain.doload("Night Sea");
    EXPECT_EQ(app->scheme, kDusk);
    EXPECT_EQ(app->frmmain.colours.scheme(), kDusk);
    EXPECT_EQ(app->CurrentScenarioName, "Night Sea");
}

}  // namespace
}  // namespace brevane
