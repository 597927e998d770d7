// The random banks' scheduler, firing, preview, stop and volume paths with the oddities
// each bank keeps, and the Identify panel the firings write to.

#include <gtest/gtest.h>

#include <cmath>

#include "banks/random/random_bank_fixture.h"
#include "core/slot_volume.h"

namespace brevane::test {
namespace {

class RandomBankTest : public RandomBankFixture {
  protected:
    // Fires slot s and checks the calls: a play, a fresh pan from the bank's range, the
    // custom bank's loop off, then a coarse random level from Volume value v.
    void expectFiring(RandomBank& b, int s, int v) {
        const bool custom = b.custom();
        brevane::Random peek = h.random;
        const int pan = custom ? peek.roll(255) : peek.roll(250) + 5;
        const double level = std::floor(peek.next() * (static_cast<double>(v) / 14.0));
        h.engine.clearCalls();
        b.fire(s);
        const auto& calls = h.engine.calls();
        ASSERT_EQ(calls.size(), custom ? 4u : 3u) << b.number() << " slot " << s;
        const ChannelHandle channel = b.slot(s).channel;
        EXPECT_EQ(calls[0].op, Op::Play);
        EXPECT_EQ(calls[0].a, b.slot(s).sample);
        EXPECT_EQ(static_cast<ChannelHandle>(calls[0].result), channel);
        EXPECT_EQ(calls[1].op, Op::SetPan);
        EXPECT_EQ(calls[1].a, channel);
        EXPECT_EQ(calls[1].b, pan);
        if (custom) {
            EXPECT_EQ(calls[2].op, Op::SetLoopMode);
            EXPECT_EQ(calls[2].b, 0);  // off
        }
        EXPECT_EQ(calls.back().op, Op::SetVolume);
        EXPECT_EQ(calls.back().a, channel);
        EXPECT_EQ(calls.back().b, slotVolumeWithFactor(100, 100, level))
            << b.number() << " slot " << s;
    }

    // SetVolume calls on one channel.
    std::vector<RecordingEngine::Call> volumesOn(ChannelHandle channel) const {
        std::vector<RecordingEngine::Call> out;
        for (const auto& c : h.engine.callsOf(Op::SetVolume)) {
            if (static_cast<ChannelHandle>(c.a) == channel) {
                out.push_back(c);
            }
        }
        return out;
    }
};

TEST_F(RandomBankTest, ATickDrawsInTheBanksOrderAndFiresOnlyWhenTheRollIsBelowTheFrequency) {
    struct Scheme {
        int bank;
        DrawOrder order;
        int picks;
        int rolls;
        int rollOffset;
    };
    const Scheme schemes[] = {{1, DrawOrder::RollThenPick, 56, 250, 5},
                              {2, DrawOrder::PickThenRoll, 56, 250, 5},
                              {3, DrawOrder::PickThenRoll, 56, 250, 5},
                              {4, DrawOrder::PickThenRoll, 56, 250, 5},
                              {5, DrawOrder::PickThenRollWhenPicked, 42, 255, 0}};
    for (const Scheme& sc : schemes) {
        RandomBank& b = bank(sc.bank);
        int fired = 0;
        int held = 0;
        int unpicked = 0;
        for (int t = 0; t < 400; ++t) {
            brevane::Random peek = h.random;
            int roll = -1;
            if (sc.order == DrawOrder::RollThenPick) {
                roll = peek.roll(sc.rolls) + sc.rollOffset;
            }
            const int pick = peek.roll(sc.picks);
            const bool picked = pick >= 1 && pick <= kRandomSlots;
            if (sc.order == DrawOrder::PickThenRoll ||
                (sc.order == DrawOrder::PickThenRollWhenPicked && picked)) {
                roll = peek.roll(sc.rolls) + sc.rollOffset;
            }
            // A Frequency equal to the roll holds; one above it fires.
            const bool fires = picked && t % 2 == 0;
            if (picked) {
                b.slot(pick).frequency.setValue(fires ? roll + 1 : roll);
            }
            if (fires) {
                peek.next();  // the firing's pan
                peek.next();  // and its level
            }
            h.engine.clearCalls();
            b.tick();
            EXPECT_EQ(b.pickValue, pick) << sc.bank;
            if (roll >= 0) {
                EXPECT_EQ(b.rollValue, roll) << sc.bank;
            }
            ASSERT_EQ(h.engine.callsOf(Op::Play).size(), fires ? 1u : 0u) << sc.bank;
            // No draw was taken beyond these.
            brevane::Random check = h.random;
            EXPECT_EQ(check.next(), peek.next()) << sc.bank;
            if (picked) {
                b.slot(pick).frequency.setValue(0);
            }
            fired += fires ? 1 : 0;
            held += picked && !fires ? 1 : 0;
            unpicked += picked ? 0 : 1;
        }
        EXPECT_GT(fired, 20) << sc.bank;
        EXPECT_GT(held, 20) << sc.bank;
        EXPECT_GT(unpicked, 20) << sc.bank;
    }
}

TEST_F(RandomBankTest, AFiringPansAndTakesACoarseLevelFromTheSlotsSource) {
    app->frmmain.MP3.setValue(2500);
    app->frmmain.Background.setValue(50);
    for (int n = 1; n <= 4; ++n) {
        RandomBank& b = bank(n);
        b.slot(24).volume.setValue(0);
        b.slot(25).volume.setValue(0);
        b.slot(26).volume.setValue(200);
        b.slot(27).volume.setValue(255);
        b.slot(28).volume.setValue(255);
        // Slot: the Volume value its firing uses. Slot 24 is heard at the MP3 level
        // though its own slider stands at 0; rows 27 and 28 have no say.
        const std::pair<int, int> expected[] = {{9, 220}, {24, 2500}, {25, 50},
                                                {26, 0},  {27, 0},    {28, 200}};
        for (const auto& [s, v] : expected) {
            for (int repeat = 0; repeat < 3; ++repeat) {
                expectFiring(b, s, v);
            }
        }
    }
    // The custom bank pans over 0 to 254, turns looping off, and every slot fires at its
    // own slider.
    RandomBank& c = bank(kCustomRandomBankNumber);
    h.dialogs.answerFile(soundFile("Owl.wav"));
    c.chooseFile(24);
    c.slot(24).volume.setValue(0);
    c.slot(27).volume.setValue(140);
    for (int repeat = 0; repeat < 3; ++repeat) {
        expectFiring(c, 24, 0);
        expectFiring(c, 27, 140);
    }
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
    // The custom bank's slot 24 goes to the end like any other.
    bank(kCustomRandomBankNumber).fire(24);
    EXPECT_EQ(id.soundPlaying.items().back(), "Not Set");
    EXPECT_EQ(id.location.items().back(), "Custom - column 2");
    bank(kCustomRandomBankNumber).fire(3);
    EXPECT_EQ(id.location.items().back(), "Custom - column 1");
}

TEST_F(RandomBankTest, APreviewPlaysAtTheRowsLevelWithEachBanksOddities) {
    for (int n = 1; n <= 4; ++n) {
        RandomBank& b = bank(n);
        // A click on the row's name plays it at its slider's level, with no pan and no
        // listing.
        const int listed = app->Frmsoundindent.soundPlaying.count();
        h.engine.clearCalls();
        b.slot(21).name.click();
        const ChannelHandle slot21 = b.slot(21).channel;
        ASSERT_EQ(h.engine.calls().size(), 2u);
        EXPECT_EQ(h.engine.calls()[0].op, Op::Play);
        EXPECT_EQ(volumesOn(slot21).at(0).b, slotVolume(100, 100, 220));
        EXPECT_EQ(app->Frmsoundindent.soundPlaying.count(), listed);

        // Slot 20's preview sets the volume of slot 21's latest play, not its own.
        b.slot(20).volume.setValue(70);
        h.engine.clearCalls();
        b.previewSlot(20);
        EXPECT_TRUE(volumesOn(b.slot(20).channel).empty()) << n;
        ASSERT_EQ(volumesOn(slot21).size(), 1u) << n;
        EXPECT_EQ(volumesOn(slot21)[0].b, slotVolume(100, 100, 70));

        // Slot 2's preview pans slot 1's latest play to 122 in banks 2 to 4, right after
        // its play.
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
            EXPECT_EQ(h.engine.calls()[1].op, Op::SetPan);
        }

        // Bank 3 loads slot 12 again on every preview, the old sample left unfreed.
        const SampleHandle before = b.slot(12).sample;
        h.engine.clearCalls();
        b.previewSlot(12);
        b.previewSlot(12);
        const auto loads = h.engine.callsOf(Op::LoadSample);
        if (n == 3) {
            ASSERT_EQ(loads.size(), 2u);
            EXPECT_EQ(loads[0].path.filename(), "162.raz");
            EXPECT_TRUE(h.engine.isLoaded(before));
            EXPECT_TRUE(h.engine.callsOf(Op::FreeSample).empty());
            EXPECT_EQ(h.engine.callsOf(Op::Play).back().a, b.slot(12).sample);
        } else {
            EXPECT_TRUE(loads.empty()) << n;
            EXPECT_EQ(b.slot(12).sample, before);
        }
    }

    // The custom bank: an unset slot plays no sample and loads none; a set one plays at
    // its own level (slot 20 included), then turns looping off.
    RandomBank& c = bank(kCustomRandomBankNumber);
    h.engine.clearCalls();
    c.previewSlot(6);
    EXPECT_EQ(h.engine.calls()[0].a, 0);
    EXPECT_TRUE(h.engine.callsOf(Op::LoadSample).empty());
    h.dialogs.answerFile(soundFile("Chime.wav"));
    c.chooseFile(20);
    c.slot(20).volume.setValue(100);
    h.engine.clearCalls();
    c.previewSlot(20);
    const auto& calls = h.engine.calls();
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_EQ(calls[0].op, Op::Play);
    EXPECT_EQ(calls[1].op, Op::SetVolume);
    EXPECT_EQ(calls[1].a, c.slot(20).channel);
    EXPECT_EQ(calls[1].b, slotVolume(100, 100, 100));
    EXPECT_EQ(calls[2].op, Op::SetLoopMode);
    EXPECT_EQ(h.engine.channel(c.slot(20).channel)->loop, LoopMode::Off);
}

TEST_F(RandomBankTest, Bank4LoadsTheFileOfSlot21ForSlot22AndAMissingSamplePreviewsFrom222) {
    const auto startLoads = h.engine.callsOf(Op::LoadSample);
    EXPECT_EQ(startLoads[84 + 20].path.filename(), "221.raz");
    EXPECT_EQ(startLoads[84 + 21].path.filename(), "221.raz");
    EXPECT_EQ(startLoads[84 + 22].path.filename(), "223.raz");
    EXPECT_EQ(startLoads[21].path.filename(), "122.raz");

    AppHarness<RecordingEngine> h3;
    h3.engine.failLoading(h3.tree.root() / "bin" / "221.raz");
    Application& app3 = h3.startAndLoad();
    EXPECT_EQ(app3.frmrandommain4.slot(22).sample, 0u);
    h3.engine.clearCalls();
    app3.frmrandommain4.previewSlot(22);
    ASSERT_EQ(h3.engine.callsOf(Op::LoadSample).size(), 1u);
    EXPECT_EQ(h3.engine.callsOf(Op::LoadSample)[0].path.filename(), "222.raz");
    EXPECT_NE(app3.frmrandommain4.slot(22).sample, 0u);
}

TEST_F(RandomBankTest, VolumeSlidersReachTheLatestPlayAndStopBankStopsSlots5To28) {
    RandomBank& b = bank(4);
    for (int s = 1; s <= kRandomSlots; ++s) {
        b.fire(s);
    }
    const ChannelHandle earlier = b.slot(6).channel;
    b.fire(6);
    h.engine.clearCalls();
    b.slot(6).volume.setValue(140);
    // Full value of the slider, no randomness: 100 x (100 / 600) x (140 / 14).
    ASSERT_EQ(h.engine.callsOf(Op::SetVolume).size(), 1u);
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume)[0].a, b.slot(6).channel);
    EXPECT_EQ(h.engine.callsOf(Op::SetVolume)[0].b, 167);
    EXPECT_TRUE(h.engine.channel(earlier)->playing);

    // maxvol recomputes slots 2 to 28 in order, never slot 1.
    h.engine.clearCalls();
    b.maxvol.setValue(50);
    std::vector<int> touched;
    for (const auto& c : h.engine.callsOf(Op::SetVolume)) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            if (static_cast<ChannelHandle>(c.a) == b.slot(s).channel) {
                touched.push_back(s);
                EXPECT_EQ(c.b, slotVolume(100, 50, b.slot(s).volume.value()));
            }
        }
    }
    ASSERT_EQ(touched.size(), 27u);
    EXPECT_EQ(touched.front(), 2);
    EXPECT_EQ(touched.back(), 28);

    bank(3).fire(10);
    h.engine.clearCalls();
    b.stopBank();
    const auto stops = h.engine.callsOf(Op::Stop);
    ASSERT_EQ(stops.size(), 24u);
    for (int s = 5; s <= kRandomSlots; ++s) {
        EXPECT_EQ(stops[static_cast<std::size_t>(s - 5)].a, b.slot(s).channel);
    }
    EXPECT_TRUE(h.engine.channel(b.slot(4).channel)->playing);
    EXPECT_TRUE(h.engine.channel(bank(3).slot(10).channel)->playing);
}

// ---- the Identify panel ----

TEST_F(RandomBankTest, TheIdentifyPanelShowsTheLatestFiringEachRefreshAndClearsToWaiting) {
    IdentifyPanel& id = app->Frmsoundindent;
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(app->frmmain.latestSoundName.text(), "Waiting...");
    EXPECT_EQ(app->frmmain.latestSoundLocation.text(), "Waiting...");

    app->frmrandommain2.fire(8);
    EXPECT_EQ(app->frmmain.latestSoundName.text(), "Waiting...");
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(app->frmmain.latestSoundName.text(), "Prarie cicada");
    EXPECT_EQ(app->frmmain.latestSoundLocation.text(), "Bank 2 - column 1");
    EXPECT_EQ(id.soundPlaying.listIndex(), 1);
    EXPECT_EQ(id.location.listIndex(), 1);

    id.clearList.click();
    EXPECT_EQ(id.soundPlaying.items(), std::vector<std::string>{"Waiting..."});
    EXPECT_EQ(id.location.items(), std::vector<std::string>{"Waiting..."});
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(app->frmmain.latestSoundName.text(), "Waiting...");

    // Each refresh trims one row from a list of more than 20; the newest stay selected.
    for (int i = 0; i < 25; ++i) {
        app->frmrandommain.fire(1 + i % 14);
    }
    ASSERT_EQ(id.soundPlaying.count(), 26);
    h.loop.advance(IdentifyPanel::kRefreshMs);
    EXPECT_EQ(id.soundPlaying.count(), 25);
    EXPECT_EQ(id.soundPlaying.item(0), "Barn owl 1");
    h.loop.advance(IdentifyPanel::kRefreshMs * 10);
    EXPECT_EQ(id.soundPlaying.count(), 20);
    EXPECT_EQ(id.location.count(), 20);
    EXPECT_EQ(id.soundPlaying.items().back(), "Seagulls 1");  // the 25th firing, slot 11
    EXPECT_EQ(id.soundPlaying.listIndex(), 19);
}

TEST_F(RandomBankTest, TheIdentifyPanelsBankButtonsShowTheBankInTheConsolesPlace) {
    app->frmrandommain.show();
    app->frmrandommain2.show();
    app->Frmsoundindent.window.show();
    std::vector<std::pair<const PanelWindow*, const PanelWindow*>> placed;
    app->placeWindow = [&](const PanelWindow& target, const PanelWindow& reference) {
        placed.emplace_back(&target, &reference);
    };
    app->Frmsoundindent.bankButtons[3].click();
    ASSERT_EQ(placed.size(), 1u);
    EXPECT_EQ(placed[0].first, &app->frmrandommain4.window);
    EXPECT_EQ(placed[0].second, &app->frmmain.window);
    EXPECT_FALSE(app->frmmain.window.visible());
    EXPECT_FALSE(app->frmrandommain.window.visible());
    EXPECT_FALSE(app->frmrandommain2.window.visible());
    EXPECT_TRUE(app->frmrandommain4.window.visible());
    EXPECT_TRUE(app->Frmsoundindent.window.visible());
    EXPECT_EQ(app->CurrentRandomBank, 4);

    app->Frmsoundindent.customButton.click();
    EXPECT_TRUE(app->frmcustom.window.visible());
    EXPECT_FALSE(app->frmrandommain4.window.visible());
    EXPECT_EQ(app->CurrentRandomBank, kCustomRandomBankNumber);
}

}  // namespace
}  // namespace brevane::test
