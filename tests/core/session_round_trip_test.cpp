// A whole session and the next: a mix set by hand, quit, every session file checked
// byte for byte, and the mix found playing again in a new Application on the same
// tree.

#include <gtest/gtest.h>

#include <map>

#include "core/application.h"
#include "core/session_run.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;
using test::fileText;
using test::SessionRun;
using Op = RecordingEngine::Op;

// Every bank's session copy as the bank would write it now, by file.
std::map<fs::path, std::string> bankRecords(Application& app) {
    std::map<fs::path, std::string> records;
    for (BackgroundBank* bank : app.backgroundBanks()) {
        records[bank->sessionPath()] = bank->record();
    }
    for (int n = 1; n <= kCustomRandomBankNumber; ++n) {
        records[app.randomBank(n)->sessionPath()] = app.randomBank(n)->record();
    }
    return records;
}

using SessionRoundTrip = test::SessionTree;

TEST_F(SessionRoundTrip, AMixComesBackWholeAtTheNextStart) {
    put("soundbanks/background sounds/brook.wav", "loop");
    put("soundbanks/random sounds/owl.wav", "call");
    std::map<fs::path, std::string> records;
    {
        SessionRun first(tree.root());
        Application& app = first.startAndLoad();
        // The first run's tips turn the restore of the previous session on.
        first.loop.advance(Frmmain::kFirstRunMs);
        ASSERT_TRUE(app.FRMOPTIONS.previousScenario.checked());

        // Loops on, with levels, balances and Volume Ranges; rate 0 keeps each level
        // where the hand put it.
        const auto loopOn = [](BackgroundBank& bank, int s, int volume, int balance) {
            bank.slot(s).rate.setValue(0);
            bank.slot(s).on.setValue(1);
            bank.slot(s).volume.setValue(volume);
            bank.slot(s).balance.setValue(balance);
        };
        loopOn(app.frmback, 6, 120, 200);
        app.frmback.slot(6).lowLimitBar.setValue(150);
        app.frmback.slot(6).highLimitBar.setValue(30);
        first.dialogs.answerFile(at("soundbanks/background sounds/brook.wav"));
        app.frmbackcustom.chooseFile(2);
        loopOn(app.frmbackcustom, 2, 200, 10);

        // Random frequencies and levels, the custom bank with a file of the user's.
        app.frmrandommain.slot(3).frequency.setValue(200);
        app.frmrandommain.slot(3).volume.setValue(150);
        first.dialogs.answerFile(at("soundbanks/random sounds/owl.wav"));
        app.frmcustom.chooseFile(4);
        app.frmcustom.slot(4).frequency.setValue(255);
        app.frmrandommain.autoButton.setValue(true);

        // Group sliders, preset captions, randomise sliders, the next start's device.
        app.frmmain.Master.setValue(60);
        app.frmmain.Background.setValue(80);
        app.frmmain.Random.setValue(70);
        app.frmmain.MP3.setValue(3000);
        app.frmmain.CD.setValue(7);
        app.frmmain.presetButtons[0].setCaption("Forest Rain");
        app.frmmain.presetButtons[12].setCaption("Night Sea");
        app.frmmain.presetButtons[13].setCaption("Thunder");
        app.Form3.threshold.setValue(120);
        app.Form33.threshold.setValue(80);
        app.FRMOPTIONS.soundDevices.setListIndex(2);
        app.FRMOPTIONS.applyButton.click();

        records = bankRecords(app);
        app.frmmain.QuitCommand.click();
        ASSERT_EQ(first.exits, std::vector<ExitKind>{ExitKind::AfterCleanUp});
    }

    // Every session file, byte for byte.
    // The first run went to the tray ("Minimize on startup"), and the session says so.
    EXPECT_EQ(fileText(at("states.tmp")), "#FALSE#,#FALSE#,#FALSE#,#FALSE#,#FALSE#\r\n");
    // The first start took the scheme "Default" (its colours, with no file of it here).
    EXPECT_EQ(fileText(at("main.tmp")),
              "\"False\",\"Summer Storm\",120,80,\"\",\"\",\"Default\",2\r\n");
    EXPECT_EQ(fileText(at("scard.tmp")), "2\r\n");
    std::string unassigned;
    for (int i = 0; i < 11; ++i) {
        unassigned += "\"Currently Unassigned\",";
    }
    std::string colours;
    for (const Colour c : sessionColours(programLook())) {
        colours += "\"" + colourText(c) + "\",";
    }
    EXPECT_EQ(fileText(at("mainb.tmp")), "60,80,70,3000,7,\"Forest Rain\"," + unassigned + colours +
                                             "\"\",\"\",\"\",\"\",\"Default\",\"Scenario: \",\"\","
                                             "#FALSE#,#TRUE#,"
                                             "\"Night Sea\",\"Night Sea\",\"Thunder\","
                                             "\"Summer Storm\",\"\",\"Scenario: \",\"Not Named\","
                                             // The remote's visual settings, as it starts.
                                             "\"1\",\"Default\",#TRUE#,#FALSE#,420,0,\"\"\r\n");
    EXPECT_EQ(fileText(at("opti.tmp")), "1,1,1,1,1,\"60\",0,0,0\r\n");
    const ColourScheme look = programLook();
    EXPECT_EQ(fileText(at("colors.tmp")),
              "2," + std::to_string(look.display[0]) + "," + std::to_string(look.display[1]) + "," +
                  std::to_string(look.display[2]) + "," + std::to_string(look.display[3]) + ",\"" +
                  colourText(look.line) + "\",\"" + colourText(look.active) + "\",\"Default\"\r\n");
    ASSERT_EQ(records.size(), 8u);
    for (const auto& [file, record] : records) {
        EXPECT_EQ(fileText(file), record) << file;
    }

    // The next start on the same tree finds every bank as it was, on the device kept.
    SessionRun second(tree.root());
    Application& app = second.startAndLoad();
    EXPECT_EQ(second.engine.callsOf(Op::Start).at(0).a, 2);
    EXPECT_EQ(app.FRMOPTIONS.soundDevices.listIndex(), 2);
    EXPECT_TRUE(app.frmrandommain.timerautorandom.enabled());
    EXPECT_EQ(app.frmmain.presetCaption(12), "Night Sea");
    EXPECT_EQ(app.Form33.threshold.value(), 80);
    EXPECT_EQ(app.CurrentScenarioName, "Summer Storm");
    EXPECT_FALSE(app.frmmain.Timer4.enabled());
    EXPECT_EQ(app.scheme, programLook());
    EXPECT_EQ(app.frmDemo.schemeName(), "Default");
    EXPECT_TRUE(second.dialogs.shown().empty());

    // The intro fade brings Master back up to its saved level, and no further; then
    // every bank, with its copies of the group sliders, holds what it held.
    second.loop.advance(100 * Frmmain::kIntroFadeMs);
    EXPECT_EQ(app.frmmain.Master.value(), 60);
    EXPECT_EQ(bankRecords(app), records);
    EXPECT_EQ(app.frmmain.MP3.value(), 3000);
    EXPECT_EQ(app.frmmain.CD.value(), 7);

    // The loops play at their levels and balances.
    for (const auto& [bank, s] : {std::pair{&app.frmback, 6}, {&app.frmbackcustom, 2}}) {
        const RecordingEngine::ChannelState* channel = second.engine.channel(bank->slot(s).channel);
        ASSERT_NE(channel, nullptr);
        EXPECT_TRUE(channel->playing);
        EXPECT_EQ(channel->loop, LoopMode::Normal);
        EXPECT_EQ(channel->pan, bank->slot(s).balance.value());
        EXPECT_EQ(channel->volume, bank->slotVolumeOf(s));
        EXPECT_GT(channel->volume, 0);
    }
    EXPECT_EQ(app.frmback.slot(6).balance.value(), 200);

    // Ten minutes of the schedulers: the sounds with a frequency fire, the others stay
    // silent.
    second.loop.advance(600'000);
    std::map<SampleHandle, int> plays;
    for (const auto& call : second.engine.callsOf(Op::Play)) {
        ++plays[static_cast<SampleHandle>(call.a)];
    }
    EXPECT_GT(plays[app.frmrandommain.slot(3).sample], 0);
    EXPECT_GT(plays[app.frmcustom.slot(4).sample], 0);
    EXPECT_EQ(plays[app.frmrandommain2.slot(3).sample], 0);
}

TEST_F(SessionRoundTrip, ASessionThatChangesNothingLeavesEveryFileAsItFoundIt) {
    const auto session = [this](int master, const std::string& preset) {
        SessionRun run(tree.root());
        run.startAndLoad();
        run.loop.advance(60'000);
        if (master > 0) {
            run.app->frmmain.Master.setValue(master);
            run.app->frmmain.presetButtons[5].setCaption(preset);
        }
        run.app->frmmain.quitWithoutAsking();
        std::map<std::string, std::string> written;
        for (const std::string& name : files()) {
            written[name] = fileText(at(name));
        }
        return written;
    };
    const auto first = session(33, "Dawn, \"early\"");
    EXPECT_NE(first.at("mainb.tmp").find("\"Dawn, \"\"early\"\"\""), std::string::npos);
    EXPECT_EQ(session(0, ""), first);
}

}  // namespace
}  // namespace brevane
