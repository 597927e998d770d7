// A whole session and the next: a mix set by hand, quit, every session file checked
// field by field, and the mix found playing again in a new Application on the same
// tree.

#include <gtest/gtest.h>

#include <array>

#include "base/temp_tree.h"
#include "core/application.h"
#include "core/session_run.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;
using test::fileText;
using test::putFile;
using test::SessionRun;
using Op = RecordingEngine::Op;

struct LoopSetting {
    BackgroundBank* bank;
    int slot;
    int volume;
    int balance;
};

int playsOf(const RecordingEngine& engine, SampleHandle sample) {
    int plays = 0;
    for (const auto& call : engine.callsOf(Op::Play)) {
        plays += call.a == static_cast<std::int64_t>(sample) ? 1 : 0;
    }
    return plays;
}

std::string unassignedCaptions(int count) {
    std::string out;
    for (int i = 0; i < count; ++i) {
        out += "\"Currently Unassigned\",";
    }
    return out;
}

class SessionRoundTrip : public ::testing::Test {
  protected:
    void SetUp() override {
        putFile(tree.root() / "bin" / "1.isz", "loop");
        putFile(tree.root() / "soundbanks" / "background sounds" / "brook.wav", "loop");
        putFile(tree.root() / "soundbanks" / "random sounds" / "owl.wav", "call");
    }
    fs::path at(const std::string& name) const { return tree.root() / name; }

    TempTree tree;
};

TEST_F(SessionRoundTrip, AMixComesBackWholeAtTheNextStart) {
    std::array<std::string, 8> bankCopies;
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
        loopOn(app.frmback, 1, 180, 40);
        loopOn(app.frmback, 6, 120, 200);
        app.frmback.slot(6).lowLimitBar.setValue(150);
        app.frmback.slot(6).highLimitBar.setValue(30);
        loopOn(app.frmback2, 3, 90, 128);
        first.dialogs.answerFile(at("soundbanks/background sounds/brook.wav"));
        app.frmbackcustom.chooseFile(2);
        loopOn(app.frmbackcustom, 2, 200, 10);

        // Random frequencies and levels, the custom bank with a file of the user's.
        app.frmrandommain.slot(3).frequency.setValue(200);
        app.frmrandommain.slot(3).volume.setValue(150);
        app.frmrandommain4.slot(10).frequency.setValue(255);
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
        app.frmmain.carry.PresetCaption[0] = "Forest Rain";
        app.frmmain.carry.PresetCaption[12] = "Night Sea";
        app.frmmain.carry.PresetCaption[13] = "Thunder";
        app.Form3.threshold.setValue(120);
        app.Form33.threshold.setValue(80);
        app.FRMOPTIONS.soundDevices.setListIndex(2);
        app.FRMOPTIONS.applyButton.click();

        BackgroundBank* const backgrounds[] = {&app.frmback, &app.frmback2, &app.frmbackcustom};
        RandomBank* const randoms[] = {&app.frmrandommain, &app.frmrandommain2, &app.frmrandommain3,
                                       &app.frmrandommain4, &app.frmcustom};
        std::size_t i = 0;
        for (BackgroundBank* bank : backgrounds) {
            bankCopies[i++] = bank->record();
        }
        for (RandomBank* bank : randoms) {
            bankCopies[i++] = bank->record();
        }

        app.frmmain.QuitCommand.click();
        ASSERT_EQ(first.exits, std::vector<ExitKind>{ExitKind::AfterCleanUp});
    }

    // Every session file, byte for byte.
    EXPECT_EQ(fileText(at("states.tmp")), "#FALSE#,#TRUE#,#FALSE#,#FALSE#,#FALSE#\r\n");
    EXPECT_EQ(fileText(at("main.tmp")), "\"False\",\"Summer Storm\",120,80,\"\",\"\",\"\",2\r\n");
    EXPECT_EQ(fileText(at("scard.tmp")), "2\r\n");
    EXPECT_EQ(fileText(at("mainb.tmp")),
              "60,80,70,3000,7,\"Forest Rain\"," + unassignedCaptions(11) +
                  "\"16761024\",\"4194304\",\"33023\",\"16744576\",\"16777215\",\"5592405\","
                  "\"16777215\",\"0\",\"16777215\",\"0\","
                  "\"\",\"\",\"\",\"\",\"\",\"\",\"\","
                  "#FALSE#,#TRUE#,"
                  "\"Night Sea\",\"Night Sea\",\"Thunder\","
                  "\"Summer Storm\",\"\",\"\",\"\","
                  "\"\",\"\",#FALSE#,#FALSE#,0,0,\"\"\r\n");
    EXPECT_EQ(fileText(at("opti.tmp")), "1,1,1,1,1,\"60\",0,0,0\r\n");
    const char* const copies[] = {"back.ini",  "back2.ini", "backc.ini", "rand.ini",
                                  "rand2.ini", "rand3.ini", "rand4.ini", "randc.ini"};
    for (std::size_t c = 0; c < bankCopies.size(); ++c) {
        EXPECT_EQ(fileText(at(copies[c])), bankCopies[c]) << copies[c];
    }

    // The next start on the same tree.
    SessionRun second(tree.root());
    Application& app = second.startAndLoad();
    EXPECT_EQ(second.engine.callsOf(Op::Start).at(0).a, 2);
    EXPECT_FALSE(app.frmmain.Timer4.enabled());
    // The intro fade brings Master back up to its saved level, and no further.
    second.loop.advance(100 * Frmmain::kIntroFadeMs);
    EXPECT_EQ(app.frmmain.Master.value(), 60);
    EXPECT_EQ(app.frmmain.Background.value(), 80);
    EXPECT_EQ(app.frmmain.Random.value(), 70);
    EXPECT_EQ(app.frmmain.MP3.value(), 3000);
    EXPECT_EQ(app.frmmain.CD.value(), 7);
    EXPECT_EQ(app.frmback.maxvol.value(), 80);
    EXPECT_EQ(app.frmcustom.maxvol.value(), 70);

    const LoopSetting loops[] = {{&app.frmback, 1, 180, 40},
                                 {&app.frmback, 6, 120, 200},
                                 {&app.frmback2, 3, 90, 128},
                                 {&app.frmbackcustom, 2, 200, 10}};
    for (const LoopSetting& l : loops) {
        const BackgroundSoundSlot& slot = l.bank->slot(l.slot);
        SCOPED_TRACE(l.bank->sessionPath().filename().string() + " slot " + std::to_string(l.slot));
        EXPECT_TRUE(slot.on.checked());
        EXPECT_EQ(slot.volume.value(), l.volume);
        EXPECT_EQ(slot.balance.value(), l.balance);
        const RecordingEngine::ChannelState* channel = second.engine.channel(slot.channel);
        ASSERT_NE(channel, nullptr);
        EXPECT_TRUE(channel->playing);
        EXPECT_EQ(channel->loop, LoopMode::Normal);
        EXPECT_EQ(channel->pan, l.balance);
        EXPECT_EQ(channel->volume, l.bank->slotVolumeOf(l.slot));
        EXPECT_GT(channel->volume, 0);
    }
    EXPECT_EQ(app.frmback.slot(6).lowLimitText.text(), "100");
    EXPECT_EQ(app.frmback.slot(6).highLimitText.text(), "220");
    EXPECT_EQ(app.frmbackcustom.slot(2).path, "soundbanks/background sounds/brook.wav");
    int loopsOn = 0;
    for (BackgroundBank* bank : app.backgroundBanks()) {
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            loopsOn += bank->slot(s).on.checked() ? 1 : 0;
        }
    }
    EXPECT_EQ(loopsOn, 4);

    EXPECT_EQ(app.frmrandommain.slot(3).frequency.value(), 200);
    EXPECT_EQ(app.frmrandommain.slot(3).volume.value(), 150);
    EXPECT_EQ(app.frmrandommain4.slot(10).frequency.value(), 255);
    EXPECT_EQ(app.frmcustom.slot(4).frequency.value(), 255);
    EXPECT_EQ(app.frmcustom.slot(4).path, "soundbanks/random sounds/owl.wav");
    for (RandomBank* bank : app.randomBanks()) {
        EXPECT_TRUE(bank->autoButton.value());
    }
    EXPECT_TRUE(app.frmrandommain.timerautorandom.enabled());
    EXPECT_FALSE(app.frmcustom.autoButton.value());

    // Ten minutes of the schedulers: the sounds with a frequency fire, the others stay
    // silent.
    second.loop.advance(600'000);
    EXPECT_GT(playsOf(second.engine, app.frmrandommain.slot(3).sample), 0);
    EXPECT_GT(playsOf(second.engine, app.frmrandommain4.slot(10).sample), 0);
    EXPECT_GT(playsOf(second.engine, app.frmcustom.slot(4).sample), 0);
    EXPECT_EQ(playsOf(second.engine, app.frmrandommain2.slot(3).sample), 0);

    EXPECT_EQ(app.frmmain.carry.PresetCaption[0], "Forest Rain");
    EXPECT_EQ(app.frmmain.carry.PresetCaption[11], "Currently Unassigned");
    EXPECT_EQ(app.frmmain.carry.PresetCaption[12], "Night Sea");
    EXPECT_EQ(app.frmmain.carry.PresetCaption[13], "Thunder");
    EXPECT_EQ(app.Form3.threshold.value(), 120);
    EXPECT_EQ(app.Form33.threshold.value(), 80);
    EXPECT_EQ(app.CurrentScenarioName, "Summer Storm");
    EXPECT_EQ(app.SoundCardIndex, 2);
    EXPECT_EQ(app.FRMOPTIONS.soundDevices.listIndex(), 2);
    EXPECT_FALSE(app.Formtips.window.visible());
    EXPECT_TRUE(second.dialogs.shown().empty());
}

TEST_F(SessionRoundTrip, ASecondQuitWritesTheSameFilesAgain) {
    {
        SessionRun first(tree.root());
        first.startAndLoad();
        first.loop.advance(Frmmain::kFirstRunMs);
        first.app->frmmain.Random.setValue(33);
        first.app->frmmain.carry.PresetCaption[5] = "Dawn, \"early\"";
        first.app->frmmain.quitWithoutAsking();
    }
    const char* const names[] = {"states.tmp", "main.tmp", "mainb.tmp", "scard.tmp", "opti.tmp",
                                 "back.ini",   "rand.ini", "randc.ini", "backc.ini"};
    std::vector<std::string> before;
    for (const char* n : names) {
        before.push_back(fileText(at(n)));
    }
    // A session that changes nothing leaves every file as it found it: no field drifts
    // from one session to the next.
    {
        SessionRun second(tree.root());
        second.startAndLoad();
        second.loop.advance(60'000);
        second.app->frmmain.quitWithoutAsking();
    }
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(fileText(at(names[i])), before[i]) << names[i];
    }
    EXPECT_NE(before[2].find("\"Dawn, \"\"early\"\"\""), std::string::npos);
}

}  // namespace
}  // namespace brevane
