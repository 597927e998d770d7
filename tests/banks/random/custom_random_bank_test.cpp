// The custom random bank frmcustom: its own scheduler constants measured on virtual
// time, its firing and preview, the user's files (chooser, rename, bulk load, "Reset
// All"), the .crf record and the place it takes among the console's panels.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "banks/random/random_bank.h"
#include "base/file_io.h"
#include "core/app_harness.h"
#include "core/application.h"
#include "core/slot_volume.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;
namespace fs = std::filesystem;

class CustomRandomBankTest : public ::testing::Test {
  protected:
    void SetUp() override {
        app = &h.startAndLoad();
        app->frmmain.Master.setValue(100);
        app->frmmain.Random.setValue(100);
        for (RandomBank* b : app->randomBanks()) {
            for (int s = 1; s <= kRandomSlots; ++s) {
                b->slot(s).frequency.setValue(0);
            }
        }
        h.engine.clearCalls();
    }

    RandomBank& custom() { return app->frmcustom; }

    // A sound file inside the random sound folder, as a full path.
    fs::path soundFile(const std::string& name) {
        const std::string relative = "soundbanks/random sounds/" + name;
        h.writeFile(relative, "not really audio");
        return h.tree.root() / relative;
    }

    test::AppHarness<RecordingEngine> h{31337};
    Application* app = nullptr;
};

TEST_F(CustomRandomBankTest, ATickPicksFromFortyTwoAndRollsOnlyForAPickedSlot) {
    RandomBank& c = custom();
    c.slot(7).frequency.setValue(128);
    int picked = 0;
    for (int t = 0; t < 400; ++t) {
        brevane::Random peek = h.random;
        const int pick = peek.roll(42);
        const bool slot = pick >= 1 && pick <= 28;
        const int roll = slot ? peek.roll(255) : -1;
        const double afterDraws = peek.next();

        h.engine.clearCalls();
        c.tick();
        EXPECT_EQ(c.pickValue, pick);
        if (slot) {
            ++picked;
            EXPECT_EQ(c.rollValue, roll);
        }
        const bool fires = pick == 7 && roll < 128;
        EXPECT_EQ(h.engine.callsOf(Op::Play).size(), fires ? 1u : 0u);
        if (!fires) {
            // No draw was taken but the pick and, for a slot, the roll.
            brevane::Random check = h.random;
            EXPECT_EQ(check.next(), afterDraws);
        }
    }
    EXPECT_GT(picked, 200);
}

TEST_F(CustomRandomBankTest, FrequencyOneFiresAboutOnceIn255PicksAndZeroNever) {
    RandomBank& c = custom();
    for (int s = 1; s <= 14; ++s) {
        c.slot(s).frequency.setValue(1);
    }
    c.slot(15).frequency.setValue(255);
    // Slots 16 to 28 stand at 0.

    std::vector<int> picks(kRandomSlots + 1, 0);
    std::vector<int> fires(kRandomSlots + 1, 0);
    const int ticks = 120000;  // about 33 hours of the one-second scheduler
    for (int t = 0; t < ticks; ++t) {
        h.engine.clearCalls();
        h.loop.advance(RandomBank::kTickMs);
        // The fixed banks stand at 0: every play is the custom bank's.
        const std::size_t plays = h.engine.callsOf(Op::Play).size();
        ASSERT_LE(plays, 1u);
        const int pick = c.pickValue;
        if (pick >= 1 && pick <= kRandomSlots) {
            ++picks[static_cast<std::size_t>(pick)];
            fires[static_cast<std::size_t>(pick)] += static_cast<int>(plays);
        } else {
            EXPECT_EQ(plays, 0u);
        }
    }
    int onePicks = 0;
    int oneFires = 0;
    for (int s = 1; s <= 14; ++s) {
        onePicks += picks[static_cast<std::size_t>(s)];
        oneFires += fires[static_cast<std::size_t>(s)];
    }
    // A slot is picked on one tick in 42.
    const double expectedPicks = ticks * 14.0 / 42.0;
    EXPECT_NEAR(onePicks, expectedPicks, 5 * std::sqrt(expectedPicks));
    // Frequency 1 fires when the roll is 0: one pick in 255.
    const double expectedFires = onePicks / 255.0;
    EXPECT_GT(oneFires, 0);
    EXPECT_NEAR(oneFires, expectedFires, 5 * std::sqrt(expectedFires));
    // 255 fires on every pick, 0 never.
    EXPECT_EQ(fires[15], picks[15]);
    EXPECT_GT(picks[15], 0);
    for (int s = 16; s <= kRandomSlots; ++s) {
        EXPECT_GT(picks[static_cast<std::size_t>(s)], 0);
        EXPECT_EQ(fires[static_cast<std::size_t>(s)], 0) << s;
    }
}

TEST_F(CustomRandomBankTest, AFiringPansFreelyTurnsLoopingOffAndUsesItsOwnSlider) {
    RandomBank& c = custom();
    app->frmmain.MP3.setValue(2500);
    // Slot 24 fires at its own Volume slider here, not at the MP3 group.
    c.slot(24).volume.setValue(0);
    // The pan is the next draw x 255: 0 to 254, both ends within reach.
    for (int i = 0; i < 30; ++i) {
        brevane::Random peek = h.random;
        const int pan = peek.roll(255);
        h.engine.clearCalls();
        c.fire(24);
        const auto& calls = h.engine.calls();
        ASSERT_EQ(calls.size(), 4u);
        EXPECT_EQ(calls[0].op, Op::Play);
        EXPECT_EQ(calls[1].op, Op::SetPan);
        EXPECT_EQ(calls[1].b, pan);
        EXPECT_EQ(calls[2].op, Op::SetLoopMode);
        EXPECT_EQ(calls[2].b, 0);  // off
        EXPECT_EQ(calls[3].op, Op::SetVolume);
        EXPECT_EQ(calls[3].b, 0);
    }
    c.slot(27).volume.setValue(140);
    brevane::Random peek = h.random;
    peek.roll(255);
    const double level = peek.next();
    h.engine.clearCalls();
    c.fire(27);
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume)[0].b,
              slotVolumeWithFactor(100, 100, std::floor(level * 10.0)));

    // Names go to the end of both lists, slot 24 included.
    const IdentifyPanel& id = app->Frmsoundindent;
    EXPECT_EQ(id.soundPlaying.items().back(), "Not Set");
    EXPECT_EQ(id.location.items().back(), "Custom - column 2");
    EXPECT_EQ(id.location.items()[1], "Custom - column 2");
    c.fire(3);
    EXPECT_EQ(id.location.items().back(), "Custom - column 1");
}

TEST_F(CustomRandomBankTest, APreviewPlaysAtTheSliderLevelThenTurnsLoopingOff) {
    RandomBank& c = custom();
    c.previewSlot(6);
    // An unset slot plays no sample and loads none.
    EXPECT_EQ(h.engine.calls()[0].op, Op::Play);
    EXPECT_EQ(h.engine.calls()[0].a, 0);
    EXPECT_TRUE(h.engine.callsOf(Op::LoadSample).empty());

    h.dialogs.answerFile(soundFile("Chime.wav"));
    c.chooseFile(20);
    c.slot(20).volume.setValue(100);
    h.engine.clearCalls();
    c.previewSlot(20);
    const auto& calls = h.engine.calls();
    // No pan, and slot 20 keeps its own volume here.
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_EQ(calls[0].op, Op::Play);
    EXPECT_NE(c.slot(20).channel, 0u);
    EXPECT_EQ(calls[1].op, Op::SetVolume);
    EXPECT_EQ(calls[1].a, c.slot(20).channel);
    EXPECT_EQ(calls[1].b, c.slotVolumeOf(20));
    EXPECT_EQ(calls[2].op, Op::SetLoopMode);
    EXPECT_EQ(calls[2].a, c.slot(20).channel);
    EXPECT_EQ(app->Frmsoundindent.soundPlaying.count(), 1);
    EXPECT_EQ(h.engine.channel(c.slot(20).channel)->loop, LoopMode::Off);
}

TEST_F(CustomRandomBankTest, ChoosingAFileOutsideTheFolderAsksAgainUntilInsideOrCancel) {
    RandomBank& c = custom();
    const fs::path inside = soundFile("birds/Wren song.wav");
    h.writeFile("elsewhere/owl.wav", "x");
    c.previewSlot(4);
    const ChannelHandle playing = c.slot(4).channel;

    h.dialogs.answerFile(h.tree.root() / "elsewhere/owl.wav");
    h.dialogs.answerFile(h.tree.root() / "elsewhere/owl.wav");
    h.dialogs.answerFile(inside);
    h.engine.clearCalls();
    c.slot(4).chooser.click();

    const auto& shown = h.dialogs.shown();
    ASSERT_EQ(shown.size(), 5u);
    EXPECT_EQ(shown[0].kind, ScriptedDialogs::Kind::OpenFile);
    EXPECT_EQ(shown[0].request.startFolder, h.tree.root() / "soundbanks/random sounds");
    EXPECT_EQ(shown[0].request.filter,
              "All Supported Samples (*.wav, *.mp3, *.ogg, *.wma)|*.wav;*.ogg;*.mp3;*.wma");
    EXPECT_EQ(shown[1].text, "Please choose a file from within the random soundbanks directory.");
    EXPECT_EQ(shown[3].text, "Please choose a file from within the random soundbanks directory.");
    EXPECT_EQ(shown[4].kind, ScriptedDialogs::Kind::OpenFile);

    EXPECT_EQ(c.slot(4).path, "soundbanks/random sounds/birds/Wren song.wav");
    EXPECT_EQ(c.slot(4).name.caption(), "Wren song");
    EXPECT_NE(c.slot(4).sample, 0u);
    // The channel is stopped once the new sample is in.
    const auto& calls = h.engine.calls();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].op, Op::LoadSample);
    EXPECT_EQ(calls[0].path, inside);
    EXPECT_EQ(calls[1].op, Op::Stop);
    EXPECT_EQ(calls[1].a, playing);

    // A second choice frees the first sample; a cancelled one changes nothing.
    const SampleHandle first = c.slot(4).sample;
    h.dialogs.answerFile(soundFile("Robin.ogg"));
    c.chooseFile(4);
    EXPECT_FALSE(h.engine.isLoaded(first));
    EXPECT_EQ(c.slot(4).name.caption(), "Robin");
    h.dialogs.clear();
    c.chooseFile(4);
    EXPECT_EQ(h.dialogs.shown().size(), 1u);
    EXPECT_EQ(c.slot(4).name.caption(), "Robin");
    EXPECT_NE(c.slot(4).sample, 0u);
}

TEST_F(CustomRandomBankTest, AFileTheEngineCannotOpenIsSaidWithOneFullStop) {
    const fs::path bad = soundFile("broken.wav");
    h.engine.failLoading(bad);
    h.dialogs.answerFile(bad);
    custom().chooseFile(9);
    EXPECT_EQ(h.dialogs.messages(),
              std::vector<std::string>{"This audio file could not be opened."});
    EXPECT_EQ(custom().slot(9).sample, 0u);
    EXPECT_EQ(custom().slot(9).name.caption(), "broken");
}

TEST_F(CustomRandomBankTest, TheRightButtonRenamesAndPlaysNothing) {
    RandomBank& c = custom();
    h.dialogs.answerInput("Garden wren");
    c.renameSlot(2);
    ASSERT_EQ(h.dialogs.shown().size(), 1u);
    EXPECT_EQ(h.dialogs.shown()[0].kind, ScriptedDialogs::Kind::Input);
    EXPECT_EQ(h.dialogs.shown()[0].text, "Please type a name to identify this sound.");
    EXPECT_EQ(c.slot(2).name.caption(), "Garden wren");
    c.renameSlot(2);  // an empty answer
    EXPECT_EQ(c.slot(2).name.caption(), "Garden wren");
    EXPECT_TRUE(h.engine.calls().empty());

    // The fixed banks have no rename.
    app->frmrandommain.renameSlot(2);
    EXPECT_EQ(h.dialogs.shown().size(), 2u);
    EXPECT_EQ(app->frmrandommain.slot(2).name.caption(), "Barn owl 2");
}

TEST_F(CustomRandomBankTest, BulkLoadFillsFromTheFirstEntryUpToTheFirstEmptyOne) {
    RandomBank& c = custom();
    h.dialogs.answerFile(soundFile("Old.wav"));
    c.chooseFile(7);
    const SampleHandle old7 = c.slot(7).sample;
    c.previewSlot(7);

    std::array<std::string, kRandomSlots> handOver{};
    for (int i = 0; i < 5; ++i) {
        handOver[static_cast<std::size_t>(i)] =
            soundFile("set/Sound " + std::to_string(i + 1) + ".mp3").string();
    }
    handOver[6] = soundFile("set/After the gap.wav").string();
    h.engine.clearCalls();
    c.bulkLoad(handOver);

    for (int s = 1; s <= 5; ++s) {
        EXPECT_EQ(c.slot(s).name.caption(), "Sound " + std::to_string(s));
        EXPECT_EQ(c.slot(s).path,
                  "soundbanks/random sounds/set/Sound " + std::to_string(s) + ".mp3");
        EXPECT_NE(c.slot(s).sample, 0u);
    }
    EXPECT_EQ(c.slot(6).name.caption(), "Not Set");
    EXPECT_EQ(c.slot(7).name.caption(), "Old");
    EXPECT_EQ(c.slot(7).sample, old7);
    // Every latest play was stopped first.
    const auto stops = h.engine.callsOf(Op::Stop);
    ASSERT_EQ(stops.size(), 28u);
    EXPECT_FALSE(h.engine.channel(c.slot(7).channel)->playing);
    EXPECT_EQ(h.engine.calls()[0].op, Op::Stop);
}

TEST_F(CustomRandomBankTest, ResetAllAsksThenLeavesEveryRowNotSetAndSilent) {
    RandomBank& c = custom();
    h.dialogs.answerFile(soundFile("Keep.wav"));
    c.chooseFile(1);
    c.slot(1).volume.setValue(77);

    c.resetAllButton.click();  // No
    EXPECT_EQ(h.dialogs.shown().back().text, "This will reset all sounds on this panel. Continue?");
    EXPECT_EQ(c.slot(1).name.caption(), "Keep");

    const SampleHandle kept = c.slot(1).sample;
    h.dialogs.answerYesNo(true);
    c.resetAllButton.click();
    EXPECT_EQ(c.slot(1).name.caption(), "Not Set");
    EXPECT_EQ(c.slot(1).path, "");
    EXPECT_EQ(c.slot(1).sample, 0u);
    EXPECT_FALSE(h.engine.isLoaded(kept));
    EXPECT_EQ(c.slot(1).volume.value(), 77);

    // Firing a reset slot plays nothing and still names it.
    h.engine.clearCalls();
    c.fire(1);
    EXPECT_EQ(h.engine.callsOf(Op::Play)[0].a, 0);
    EXPECT_EQ(h.engine.playingCount(), 0u);
    EXPECT_EQ(app->Frmsoundindent.soundPlaying.items().back(), "Not Set");
}

TEST_F(CustomRandomBankTest, TheRecordHolds117FieldsByteForByte) {
    RandomBank& c = custom();
    for (int s = 1; s <= kRandomSlots; ++s) {
        c.slot(s).volume.setValue(s);
        c.slot(s).frequency.setValue(100 + s);
    }
    c.hiddenSlider39.setValue(39);
    c.hiddenSlider41.setValue(41);
    app->frmmain.Bwaves.setValue(8);
    h.dialogs.answerFile(soundFile("A \"quoted\" name.wav"));
    c.chooseFile(1);
    h.dialogs.answerFile(soundFile("Two.ogg"));
    c.chooseFile(2);
    h.dialogs.answerInput("Renamed, with a comma");
    c.renameSlot(2);

    std::string expected =
        "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,8,100,"
        "101,102,103,104,105,106,107,108,109,110,111,112,113,114,"
        "19,20,21,22,39,23,41,24,25,26,27,28,"
        "115,116,117,118,119,120,121,122,123,124,125,126,127,128,#FALSE#,"
        "\"soundbanks/random sounds/A \"\"quoted\"\" name.wav\","
        "\"soundbanks/random sounds/Two.ogg\"";
    for (int s = 3; s <= kRandomSlots; ++s) {
        expected += ",\"\"";
    }
    expected += ",\"A \"\"quoted\"\" name\",\"Renamed, with a comma\"";
    for (int s = 3; s <= kRandomSlots; ++s) {
        expected += ",\"Not Set\"";
    }
    expected += "\r\n";
    EXPECT_EQ(c.record(), expected);
    ASSERT_TRUE(c.dosave(h.tree.root() / "mine.crf"));
    EXPECT_EQ(readWholeFile(h.tree.root() / "mine.crf"), expected);

    // Back in, with field 61 changed: the same bank, the console's mix untouched.
    std::string changed = expected;
    changed.replace(changed.find("#FALSE#"), 7, "#TRUE#");
    h.writeFile("changed.crf", changed);
    for (int s = 1; s <= kRandomSlots; ++s) {
        c.slot(s).volume.setValue(0);
        c.slot(s).frequency.setValue(0);
    }
    c.hiddenSlider39.setValue(0);
    c.hiddenSlider41.setValue(0);
    h.dialogs.answerYesNo(true);
    c.resetAll();
    app->frmmain.Bwaves.setValue(50);
    h.dialogs.clear();
    ASSERT_TRUE(c.doload(h.tree.root() / "changed.crf"));
    EXPECT_EQ(c.record(), expected.replace(expected.find(",8,100,"), 7, ",50,100,"));
    EXPECT_EQ(app->frmmain.Bwaves.value(), 50);
    EXPECT_TRUE(h.dialogs.shown().empty());
}

TEST_F(CustomRandomBankTest, FilesGoneSinceTheSaveShowNotSetAndNoMessage) {
    RandomBank& c = custom();
    const fs::path kept = soundFile("Kept.wav");
    const fs::path gone = soundFile("Gone.wav");
    h.dialogs.answerFile(kept);
    c.chooseFile(1);
    h.dialogs.answerFile(gone);
    c.chooseFile(2);
    h.dialogs.answerInput("My own name");
    c.renameSlot(1);
    ASSERT_TRUE(c.dosave(h.tree.root() / "scene.crf"));
    fs::remove(gone);

    h.dialogs.answerYesNo(true);
    c.resetAll();
    h.dialogs.clear();
    h.engine.clearCalls();
    ASSERT_TRUE(c.doload(h.tree.root() / "scene.crf"));
    EXPECT_TRUE(h.dialogs.shown().empty());
    EXPECT_EQ(c.slot(1).name.caption(), "My own name");
    EXPECT_EQ(c.slot(2).name.caption(), "Not Set");
    EXPECT_EQ(c.slot(2).path, "soundbanks/random sounds/Gone.wav");
    EXPECT_EQ(c.slot(3).name.caption(), "Not Set");
    EXPECT_EQ(h.engine.callsOf(Op::LoadSample).size(), 2u);
}

TEST_F(CustomRandomBankTest, ADamagedFileChangesNothingAndSaysNothing) {
    RandomBank& c = custom();
    c.slot(3).volume.setValue(33);
    std::string record = c.record();
    h.writeFile("cut.crf", record.substr(0, record.size() / 2));
    h.writeFile("sixty.crf", record.substr(0, record.find(",#FALSE#")) + "\r\n");
    for (const char* name : {"cut.crf", "sixty.crf", "absent.crf"}) {
        c.slot(3).volume.setValue(1);
        EXPECT_FALSE(c.doload(h.tree.root() / name)) << name;
        EXPECT_EQ(c.slot(3).volume.value(), 1);
    }
    EXPECT_TRUE(h.dialogs.shown().empty());
}

TEST_F(CustomRandomBankTest, ReloadingTheSameFilesLeavesTheirSoundsPlaying) {
    RandomBank& c = custom();
    h.dialogs.answerFile(soundFile("Long.wav"));
    c.chooseFile(5);
    c.previewSlot(5);
    const ChannelHandle playing = c.slot(5).channel;
    const SampleHandle sample = c.slot(5).sample;
    ASSERT_TRUE(c.dosave(h.tree.root() / "again.crf"));
    h.engine.clearCalls();
    ASSERT_TRUE(c.doload(h.tree.root() / "again.crf"));
    EXPECT_EQ(c.slot(5).sample, sample);
    EXPECT_TRUE(h.engine.channel(playing)->playing);
    EXPECT_TRUE(h.engine.callsOf(Op::FreeSample).empty());
}

TEST_F(CustomRandomBankTest, ShowingItMakesTheConsolesRandomButtonShowIt) {
    RandomBank& c = custom();
    app->frmrandommain2.customButton.click();
    EXPECT_TRUE(c.window.visible());
    EXPECT_FALSE(app->frmrandommain2.window.visible());
    EXPECT_EQ(app->CurrentRandomBank, 5);
    EXPECT_FALSE(c.customButton.enabled());
    for (const CommandButton& b : c.bankButtons) {
        EXPECT_TRUE(b.enabled());
    }

    c.window.hide();
    app->frmmain.randomButton.click();
    EXPECT_TRUE(c.window.visible());

    c.bankButtons[3].click();
    EXPECT_TRUE(app->frmrandommain4.window.visible());
    EXPECT_FALSE(c.window.visible());
    EXPECT_EQ(app->CurrentRandomBank, 4);

    // The Identify panel's "Custom" shows it in the console's place.
    app->Frmsoundindent.customButton.click();
    EXPECT_TRUE(c.window.visible());
    EXPECT_FALSE(app->frmrandommain4.window.visible());
    EXPECT_FALSE(app->frmmain.window.visible());
}

TEST_F(CustomRandomBankTest, ItFollowsTheConsolesGroupsAndMasterStopSilencesIt) {
    RandomBank& c = custom();
    app->frmmain.Random.setValue(40);
    EXPECT_EQ(c.maxvol.value(), 40);
    c.maxvol.setValue(60);
    EXPECT_EQ(app->frmmain.Random.value(), 60);
    EXPECT_EQ(app->frmrandommain3.maxvol.value(), 60);

    for (int s = 1; s <= kRandomSlots; ++s) {
        c.slot(s).frequency.setValue(200);
    }
    h.dialogs.answerFile(soundFile("Bell.wav"));
    c.chooseFile(1);
    c.previewSlot(1);
    const ChannelHandle first = c.slot(1).channel;
    ASSERT_NE(h.engine.channel(first), nullptr);
    app->frmmain.masterStopButton.click();
    for (int s = 1; s <= kRandomSlots; ++s) {
        EXPECT_EQ(c.slot(s).volume.value(), 0);
        EXPECT_EQ(c.slot(s).frequency.value(), 0);
    }
    EXPECT_EQ(h.engine.channel(first)->volume, 0);
    h.engine.clearCalls();
    h.loop.advance(10 * 60 * 1000);
    EXPECT_TRUE(h.engine.callsOf(Op::Play).empty());
}

}  // namespace
}  // namespace brevane
