// The custom random bank's own commands: the file chooser of each row, rename, bulk
// load, "Reset All", and the place it takes among the console's panels.

#include <gtest/gtest.h>

#include "banks/random/random_bank_fixture.h"

namespace brevane::test {
namespace {

namespace fs = std::filesystem;

class CustomRandomBankTest : public RandomBankFixture {
  protected:
    RandomBank& custom() { return app->frmcustom; }
};

TEST_F(CustomRandomBankTest, TheChooserAsksAgainUntilAFileInsideTheFolderOrCancel) {
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

    // A cancelled choice changes nothing.
    h.dialogs.clear();
    c.chooseFile(4);
    EXPECT_EQ(h.dialogs.shown().size(), 1u);
    EXPECT_EQ(c.slot(4).name.caption(), "Wren song");
    EXPECT_TRUE(h.engine.isLoaded(c.slot(4).sample));

    // A file the engine cannot open is taken, and said with one full stop.
    const fs::path bad = soundFile("broken.wav");
    h.engine.failLoading(bad);
    h.dialogs.clear();
    h.dialogs.answerFile(bad);
    c.chooseFile(9);
    EXPECT_EQ(h.dialogs.messages(),
              std::vector<std::string>{"This audio file could not be opened."});
    EXPECT_EQ(c.slot(9).sample, 0u);
    EXPECT_EQ(c.slot(9).name.caption(), "broken");
}

TEST_F(CustomRandomBankTest, TheRightButtonRenamesAndPlaysNothing) {
    RandomBank& c = custom();
    h.dialogs.answerInput("Garden wren");
    h.engine.clearCalls();
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

TEST_F(CustomRandomBankTest, BulkLoadStopsEveryRowThenFillsUpToTheFirstEmptyEntry) {
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
    ASSERT_EQ(h.engine.callsOf(Op::Stop).size(), 28u);
    EXPECT_EQ(h.engine.calls()[0].op, Op::Stop);
    EXPECT_FALSE(h.engine.channel(c.slot(7).channel)->playing);
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
}

TEST_F(CustomRandomBankTest, ShowingItMakesTheConsolesRandomButtonShowItAndMasterStopZeroesIt) {
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

    setFrequencies(c, 200);
    h.dialogs.answerFile(soundFile("Bell.wav"));
    c.chooseFile(1);
    c.previewSlot(1);
    app->frmmain.masterStopButton.click();
    EXPECT_EQ(frequencies(c), std::vector<int>(kRandomSlots, 0));
    EXPECT_EQ(c.slot(28).volume.value(), 0);
    EXPECT_EQ(h.engine.channel(c.slot(1).channel)->volume, 0);
    h.engine.clearCalls();
    h.loop.advance(10 * 60 * 1000);
    EXPECT_TRUE(h.engine.callsOf(Op::Play).empty());
}

}  // namespace
}  // namespace brevane::test
