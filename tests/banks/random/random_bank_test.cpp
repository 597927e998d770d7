// One random bank's scheduler, firing, preview, stop and volume paths, and each of the
// oddities the banks keep, through a recording engine.

#include "banks/random/random_bank.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/app_harness.h"
#include "core/application.h"
#include "core/slot_volume.h"
#include "engine/recording_engine.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;

class RandomBankTest : public ::testing::Test {
  protected:
    void SetUp() override {
        app = &h.startAndLoad();
        app->frmmain.Master.setValue(100);
        app->frmmain.Random.setValue(100);
        h.engine.clearCalls();
    }

    RandomBank& bank(int n) { return *app->randomBank(n); }

    // The draws a firing will take, read from a copy of the program's random source.
    struct FireDraws {
        int pan;
        double level;
    };
    FireDraws nextFireDraws() const {
        brevane::Random peek = h.random;
        const int pan = peek.roll(250) + 5;
        return {pan, peek.next()};
    }

    // The volume a firing gives for Volume value V and the level draw.
    int firingVolume(int v, double draw) const {
        const double b = std::floor(draw * (static_cast<double>(v) / 14.0));
        return slotVolumeWithFactor(app->frmmain.Master.value(), 100, b);
    }

    // The calls after `op` of a given kind for channel `channel`.
    std::vector<RecordingEngine::Call> callsOn(Op op, ChannelHandle channel) const {
        std::vector<RecordingEngine::Call> out;
        for (const auto& c : h.engine.callsOf(op)) {
            if (static_cast<ChannelHandle>(c.a) == channel) {
                out.push_back(c);
            }
        }
        return out;
    }

    test::AppHarness<RecordingEngine> h{77};
    Application* app = nullptr;
};

TEST_F(RandomBankTest, FiringPlaysThenPansThenSetsACoarseRandomLevel) {
    RandomBank& b = bank(1);
    const FireDraws draws = nextFireDraws();
    b.fire(9);
    const auto& calls = h.engine.calls();
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_EQ(calls[0].op, Op::Play);
    EXPECT_EQ(calls[0].a, b.slot(9).sample);
    EXPECT_EQ(static_cast<ChannelHandle>(calls[0].result), b.slot(9).channel);
    EXPECT_EQ(calls[1].op, Op::SetPan);
    EXPECT_EQ(calls[1].a, b.slot(9).channel);
    EXPECT_EQ(calls[1].b, draws.pan);
    EXPECT_EQ(calls[2].op, Op::SetVolume);
    EXPECT_EQ(calls[2].b, firingVolume(220, draws.level));
}

TEST_F(RandomBankTest, EveryBankTakesTheLevelsOfSlots24To28FromElsewhere) {
    for (int n = 1; n <= 4; ++n) {
        RandomBank& b = bank(n);
        app->frmmain.MP3.setValue(2500);
        app->frmmain.Background.setValue(50);
        b.slot(24).volume.setValue(0);
        b.slot(25).volume.setValue(0);
        b.slot(26).volume.setValue(200);
        b.slot(27).volume.setValue(255);
        b.slot(28).volume.setValue(255);
        // Slot: the Volume value its firing uses.
        const std::vector<std::pair<int, int>> expected{{24, 2500}, {25, 50},  {26, 0},
                                                        {27, 0},    {28, 200}, {23, 220}};
        for (const auto& [s, v] : expected) {
            for (int repeat = 0; repeat < 5; ++repeat) {
                const FireDraws draws = nextFireDraws();
                h.engine.clearCalls();
                b.fire(s);
                const auto volumes = h.engine.callsOf(Op::SetVolume);
                ASSERT_EQ(volumes.size(), 1u);
                EXPECT_EQ(volumes[0].b, firingVolume(v, draws.level))
                    << "bank " << n << " slot " << s;
            }
        }
        // Slot 24 is heard at the MP3 level though its own slider stands at 0: with
        // 2500 its levels reach far past 255.
        int loudest = 0;
        for (int i = 0; i < 40; ++i) {
            h.engine.clearCalls();
            b.fire(24);
            loudest = std::max(loudest, static_cast<int>(h.engine.callsOf(Op::SetVolume)[0].b));
        }
        EXPECT_GT(loudest, 255);
    }
}

TEST_F(RandomBankTest, AVolumeOf13OrLessFiresInSilenceAndStillTellsTheIdentifyPanel) {
    RandomBank& b = bank(2);
    b.slot(4).volume.setValue(13);
    for (int i = 0; i < 20; ++i) {
        h.engine.clearCalls();
        b.fire(4);
        EXPECT_EQ(h.engine.callsOf(Op::SetVolume)[0].b, 0);
    }
    EXPECT_EQ(app->Frmsoundindent.soundPlaying.items().back(), "Hoverfly 2");
    EXPECT_EQ(app->Frmsoundindent.location.items().back(), "Bank 2 - column 1");
}

TEST_F(RandomBankTest, FiringsNameTheSlotAndItsColumnAndSlot24PutsItsLocationOnTop) {
    IdentifyPanel& id = app->Frmsoundindent;
    bank(3).fire(14);
    bank(3).fire(15);
    EXPECT_EQ(id.soundPlaying.items(),
              (std::vector<std::string>{"Waiting...", "Sheep 1", "Sheep 2"}));
    EXPECT_EQ(id.location.items(),
              (std::vector<std::string>{"Waiting...", "Bank 3 - column 1", "Bank 3 - column 2"}));
    bank(1).fire(24);
    EXPECT_EQ(id.soundPlaying.items().back(), "Starling");
    EXPECT_EQ(id.location.items().front(), "Bank 1 - column 2");
    EXPECT_EQ(id.location.items().back(), "Bank 3 - column 2");
    EXPECT_EQ(id.soundPlaying.count(), id.location.count());
}

TEST_F(RandomBankTest, ASlotWhoseFileFailedStillFiresIntoTheLists) {
    test::AppHarness<RecordingEngine> h2;
    h2.engine.failLoading(h2.tree.root() / "bin" / "105.raz");
    Application& app2 = h2.startAndLoad();
    EXPECT_EQ(app2.frmrandommain.slot(5).sample, 0u);
    app2.frmrandommain.fire(5);
    EXPECT_EQ(app2.Frmsoundindent.soundPlaying.items().back(), "Wings flap 1");
    EXPECT_EQ(h2.engine.playingCount(), 0u);
    // A preview tries the file again.
    h2.engine.clearCalls();
    app2.frmrandommain.previewSlot(5);
    ASSERT_EQ(h2.engine.callsOf(Op::LoadSample).size(), 1u);
    EXPECT_EQ(h2.engine.callsOf(Op::LoadSample)[0].path.filename(), "105.raz");
}

TEST_F(RandomBankTest, TickFiresOnlyWhenTheRollIsStrictlyBelowTheFrequency) {
    for (int n : {1, 2}) {
        RandomBank& b = bank(n);
        for (const bool raiseAboveRoll : {false, true}) {
            // Tick until the next tick picks a slot, then place its frequency.
            for (;;) {
                brevane::Random peek = h.random;
                int roll = 0;
                int pick = 0;
                if (n == 1) {
                    roll = peek.roll(250) + 5;
                    pick = peek.roll(56);
                } else {
                    pick = peek.roll(56);
                    roll = peek.roll(250) + 5;
                }
                if (pick < 1 || pick > 28) {
                    b.tick();
                    EXPECT_EQ(b.pickValue, pick);
                    EXPECT_EQ(b.rollValue, roll);
                    continue;
                }
                b.slot(pick).frequency.setValue(raiseAboveRoll ? roll + 1 : roll);
                h.engine.clearCalls();
                b.tick();
                EXPECT_EQ(b.pickValue, pick);
                EXPECT_EQ(b.rollValue, roll);
                EXPECT_EQ(h.engine.callsOf(Op::Play).size(), raiseAboveRoll ? 1u : 0u);
                if (raiseAboveRoll) {
                    EXPECT_EQ(h.engine.callsOf(Op::Play)[0].a, b.slot(pick).sample);
                }
                b.slot(pick).frequency.setValue(0);
                break;
            }
        }
    }
}

TEST_F(RandomBankTest, OnlyTheFirstBankDrawsItsRollBeforeItsPick) {
    EXPECT_EQ(bank(1).config().drawOrder, DrawOrder::RollThenPick);
    for (int n = 2; n <= 4; ++n) {
        RandomBank& b = bank(n);
        brevane::Random peek = h.random;
        const double first = peek.next();
        const double second = peek.next();
        b.tick();
        EXPECT_EQ(b.pickValue, static_cast<int>(std::floor(first * 56)));
        EXPECT_EQ(b.rollValue, static_cast<int>(std::floor(second * 250)) + 5);
    }
    brevane::Random peek = h.random;
    const double first = peek.next();
    const double second = peek.next();
    bank(1).tick();
    EXPECT_EQ(bank(1).rollValue, static_cast<int>(std::floor(first * 250)) + 5);
    EXPECT_EQ(bank(1).pickValue, static_cast<int>(std::floor(second * 56)));
}

TEST_F(RandomBankTest, MovingAVolumeSliderChangesOnlyTheLatestPlayOfItsSlot) {
    RandomBank& b = bank(1);
    b.fire(6);
    const ChannelHandle first = b.slot(6).channel;
    b.fire(6);
    const ChannelHandle second = b.slot(6).channel;
    ASSERT_NE(first, second);
    h.engine.clearCalls();
    b.slot(6).volume.setValue(140);
    ASSERT_EQ(h.engine.callsOf(Op::SetVolume).size(), 1u);
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume)[0].a, second);
    // Full value of the slider, no randomness: 100 x (100 / 600) x (140 / 14).
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume)[0].b, 167);
    EXPECT_TRUE(h.engine.channel(first)->playing);
}

TEST_F(RandomBankTest, MaxvolRecomputesSlots2To28InOrderButNotSlot1) {
    RandomBank& b = bank(4);
    for (int s = 1; s <= 28; ++s) {
        b.previewSlot(s);
    }
    h.engine.clearCalls();
    b.maxvol.setValue(50);
    // The other banks follow the console; only their own slots 2-28 are touched, so
    // read this bank's calls.
    std::vector<int> touched;
    for (const auto& c : h.engine.callsOf(Op::SetVolume)) {
        for (int s = 1; s <= 28; ++s) {
            if (static_cast<ChannelHandle>(c.a) == b.slot(s).channel) {
                touched.push_back(s);
                EXPECT_EQ(c.b, slotVolume(100, 50, b.slot(s).volume.value()));
            }
        }
    }
    std::vector<int> expected;
    for (int s = 2; s <= 28; ++s) {
        expected.push_back(s);
    }
    EXPECT_EQ(touched, expected);
}

TEST_F(RandomBankTest, PreviewPlaysAtTheSliderLevelWithoutPanOrListing) {
    RandomBank& b = bank(1);
    b.slot(3).frequency.setValue(0);
    b.previewSlot(3);
    const auto& calls = h.engine.calls();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].op, Op::Play);
    EXPECT_EQ(calls[1].op, Op::SetVolume);
    EXPECT_EQ(calls[1].a, b.slot(3).channel);
    EXPECT_EQ(calls[1].b, slotVolume(100, 100, 220));
    EXPECT_EQ(app->Frmsoundindent.soundPlaying.count(), 1);
    // A click on the row's name is the same preview.
    h.engine.clearCalls();
    b.slot(3).name.click();
    EXPECT_EQ(h.engine.callsOf(Op::Play).size(), 1u);
}

TEST_F(RandomBankTest, PreviewOfSlot20SetsTheVolumeOfSlot21sLatestPlay) {
    for (int n = 1; n <= 4; ++n) {
        RandomBank& b = bank(n);
        b.slot(20).volume.setValue(70);
        b.previewSlot(21);
        const ChannelHandle slot21 = b.slot(21).channel;
        h.engine.clearCalls();
        b.previewSlot(20);
        const ChannelHandle slot20 = b.slot(20).channel;
        ASSERT_NE(slot20, slot21);
        EXPECT_TRUE(callsOn(Op::SetVolume, slot20).empty());
        ASSERT_EQ(callsOn(Op::SetVolume, slot21).size(), 1u);
        EXPECT_EQ(callsOn(Op::SetVolume, slot21)[0].b, slotVolume(100, 100, 70));
        EXPECT_EQ(h.engine.channel(slot20)->volume, 255);
    }
}

TEST_F(RandomBankTest, PreviewOfSlot2RepansSlot1InBanks2To4Only) {
    for (int n = 1; n <= 4; ++n) {
        RandomBank& b = bank(n);
        b.fire(1);
        const ChannelHandle slot1 = b.slot(1).channel;
        h.engine.clearCalls();
        b.previewSlot(2);
        const auto pans = h.engine.callsOf(Op::SetPan);
        if (n == 1) {
            EXPECT_TRUE(pans.empty());
        } else {
            ASSERT_EQ(pans.size(), 1u) << n;
            EXPECT_EQ(pans[0].a, slot1);
            EXPECT_EQ(pans[0].b, 122);
            // Right after the play, before the volume.
            EXPECT_EQ(h.engine.calls()[1].op, Op::SetPan);
        }
    }
}

TEST_F(RandomBankTest, Bank3ReloadsSlot12OnEveryPreviewWithoutFreeing) {
    for (int n = 1; n <= 4; ++n) {
        RandomBank& b = bank(n);
        const SampleHandle before = b.slot(12).sample;
        h.engine.clearCalls();
        b.previewSlot(12);
        b.previewSlot(12);
        const auto loads = h.engine.callsOf(Op::LoadSample);
        if (n == 3) {
            ASSERT_EQ(loads.size(), 2u);
            EXPECT_EQ(loads[0].path.filename(), "162.raz");
            EXPECT_NE(b.slot(12).sample, before);
            EXPECT_TRUE(h.engine.isLoaded(before));
            EXPECT_TRUE(h.engine.callsOf(Op::FreeSample).empty());
            EXPECT_EQ(h.engine.callsOf(Op::Play).back().a, b.slot(12).sample);
        } else {
            EXPECT_TRUE(loads.empty()) << n;
            EXPECT_EQ(b.slot(12).sample, before);
        }
    }
}

TEST_F(RandomBankTest, Bank4LoadsTheFileOfSlot21ForSlot22AndPreviewsFrom222) {
    test::AppHarness<RecordingEngine> h2;
    Application& app2 = h2.startAndLoad();
    const auto startLoads = h2.engine.callsOf(Op::LoadSample);
    EXPECT_EQ(startLoads[84 + 20].path.filename(), "221.raz");
    EXPECT_EQ(startLoads[84 + 21].path.filename(), "221.raz");
    EXPECT_EQ(startLoads[84 + 22].path.filename(), "223.raz");
    EXPECT_NE(app2.frmrandommain4.slot(22).sample, 0u);
    // Banks 1 to 3 load their own file for slot 22.
    EXPECT_EQ(startLoads[21].path.filename(), "122.raz");

    test::AppHarness<RecordingEngine> h3;
    h3.engine.failLoading(h3.tree.root() / "bin" / "221.raz");
    Application& app3 = h3.startAndLoad();
    EXPECT_EQ(app3.frmrandommain4.slot(22).sample, 0u);
    h3.engine.clearCalls();
    app3.frmrandommain4.previewSlot(22);
    ASSERT_EQ(h3.engine.callsOf(Op::LoadSample).size(), 1u);
    EXPECT_EQ(h3.engine.callsOf(Op::LoadSample)[0].path.filename(), "222.raz");
    EXPECT_NE(app3.frmrandommain4.slot(22).sample, 0u);
}

TEST_F(RandomBankTest, StopBankStopsSlots5To28OfThisBankInOrder) {
    RandomBank& b = bank(2);
    for (int s = 1; s <= 28; ++s) {
        b.fire(s);
    }
    bank(3).fire(10);
    h.engine.clearCalls();
    b.stopBank();
    const auto stops = h.engine.callsOf(Op::Stop);
    ASSERT_EQ(stops.size(), 24u);
    for (int s = 5; s <= 28; ++s) {
        EXPECT_EQ(stops[static_cast<std::size_t>(s - 5)].a, b.slot(s).channel);
    }
    for (int s = 1; s <= 4; ++s) {
        EXPECT_TRUE(h.engine.channel(b.slot(s).channel)->playing);
    }
    EXPECT_TRUE(h.engine.channel(bank(3).slot(10).channel)->playing);
}

TEST(RandomBankConfig, BanksDifferByHeadingFilesNamesAndLocations) {
    const RandomBankConfig b1 = randomBankConfig(1);
    const RandomBankConfig b2 = randomBankConfig(2);
    const RandomBankConfig b3 = randomBankConfig(3);
    const RandomBankConfig b4 = randomBankConfig(4);
    EXPECT_EQ(b1.heading, "BANK1");
    EXPECT_EQ(b4.heading, "BANK4");
    EXPECT_EQ(b2.startFiles[0], "bin/51.raz");
    EXPECT_EQ(b2.startFiles[27], "bin/78.raz");
    EXPECT_EQ(b3.startFiles[0], "bin/151.raz");
    EXPECT_EQ(b3.locationColumn2, "Bank 3 - column 2");
    // Names kept exactly, trailing blanks and spellings included.
    EXPECT_EQ(b1.names[2], "Tawny owl ");
    EXPECT_EQ(b1.names[22], "Thrush ");
    EXPECT_EQ(b2.names[7], "Prarie cicada");
    EXPECT_EQ(b2.names[18], "Leaf roller ");
    EXPECT_EQ(b3.names[23], "Goat bleat 1 ");
    EXPECT_EQ(b4.names[9], "Thunder rumble10");
    EXPECT_EQ(b4.names[27], "Large wave");
    EXPECT_EQ(b1.names[16], b1.names[23]);  // "Starling" twice
}

}  // namespace
}  // namespace brevane
