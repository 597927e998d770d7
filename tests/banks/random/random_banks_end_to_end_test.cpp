// The five random banks running for half an hour of virtual time inside the whole
// Application: firing rates, the dead stretch and pans; then the real mixer on
// generated samples.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <map>
#include <string>

#include "core/app_harness.h"
#include "core/application.h"
#include "engine/mixer_engine.h"
#include "engine/recording_engine.h"
#include "engine/sound_file_writer.h"
#include "engine/test_sounds.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;
constexpr int kMinutes = 30;
constexpr int kTicks = kMinutes * 60;

// The chance that a slot fires on one tick of its bank: a fixed bank picks one slot in
// 56 and rolls 5 to 254; the custom bank picks one in 42 and rolls 0 to 254.
double firingChance(int bank, int frequency) {
    if (bank == kCustomRandomBankNumber) {
        return (1.0 / 42.0) * frequency / 255.0;
    }
    return (1.0 / 56.0) * std::clamp(frequency - 5, 0, 250) / 250.0;
}

// Frequencies for a bank: a spread over the whole slider, the dead stretch included.
int frequencyFor(int bank, int slot) {
    switch (bank) {
        case 1:
            return 255;
        case 2:
            return slot <= 14 ? 130 : 255;
        case 3:
        case kCustomRandomBankNumber:
            return slot * 9;  // 9 .. 252
        default:
            return slot % 6;  // 0 .. 5: never fires
    }
}

TEST(RandomBanksEndToEnd, HalfAnHourOfSchedulingMatchesTheChancePerTick) {
    test::AppHarness<RecordingEngine> h(20240601);
    Application& app = h.startAndLoad();
    // The custom bank's rows take files of their own.
    std::array<std::string, kRandomSlots> handOver;
    for (int s = 1; s <= kRandomSlots; ++s) {
        const std::string relative = "soundbanks/random sounds/" + std::to_string(s) + ".wav";
        h.writeFile(relative, "x");
        handOver[static_cast<std::size_t>(s - 1)] = (h.tree.root() / relative).string();
    }
    app.frmcustom.bulkLoad(handOver);

    // Which bank each loaded sample belongs to.
    const int banks[] = {1, 2, 3, 4, kCustomRandomBankNumber};
    std::map<SampleHandle, int> owner;
    for (int b : banks) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            RandomBank& bank = *app.randomBank(b);
            bank.slot(s).frequency.setValue(frequencyFor(b, s));
            owner.emplace(bank.slot(s).sample, b);
        }
    }
    // Bank 4's slot 22 shares slot 21's file but has a handle of its own.
    ASSERT_EQ(owner.size(), 140u);
    h.engine.clearCalls();

    h.loop.advance(kTicks * 1000LL);

    // Each play is followed by its pan: 5 to 254 on the fixed banks, 0 to 254 on the
    // custom bank, spread over the range.
    std::map<int, int> count;
    std::map<bool, std::pair<int, int>> panRange{{false, {255, 0}}, {true, {255, 0}}};
    const auto& calls = h.engine.calls();
    for (std::size_t i = 0; i + 1 < calls.size(); ++i) {
        if (calls[i].op == Op::Play) {
            const int b = owner.at(static_cast<SampleHandle>(calls[i].a));
            ++count[b];
            ASSERT_EQ(calls[i + 1].op, Op::SetPan);
            auto& [lowest, highest] = panRange[b == kCustomRandomBankNumber];
            lowest = std::min(lowest, static_cast<int>(calls[i + 1].b));
            highest = std::max(highest, static_cast<int>(calls[i + 1].b));
        }
    }
    // Per bank, within four standard deviations of the binomial mean; bank 4 stands in
    // the dead stretch and never fires.
    for (int b : banks) {
        double expected = 0;
        for (int s = 1; s <= kRandomSlots; ++s) {
            expected += kTicks * firingChance(b, frequencyFor(b, s));
        }
        const double p = expected / kTicks;
        EXPECT_NEAR(count[b], expected, 4 * std::sqrt(kTicks * p * (1 - p)) + 0.5) << b;
    }
    EXPECT_EQ(count[4], 0);
    EXPECT_EQ(panRange[false].first, 5);
    EXPECT_EQ(panRange[false].second, 254);
    EXPECT_LT(panRange[true].first, 5);
    EXPECT_GE(panRange[true].second, 249);
    EXPECT_LE(panRange[true].second, 254);
}

// A short tone for each slot file, as a sample file of any name the decoder takes.
void writeTestSamples(const std::filesystem::path& bin) {
    const std::vector<float> tone = test::sine(440.0, 22050, 4410);
    for (int base : {50, 100, 150, 200}) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            const auto file = bin / (std::to_string(base + s) + ".raz");
            ASSERT_TRUE(writeSoundFile(file, tone, 1, 22050, SoundFileFormat::Wav16));
        }
    }
}

// Advances the program and renders the mix in step, 100 ms at a time.
std::vector<float> run(test::AppHarness<MixerEngine>& h, int seconds) {
    std::vector<float> out;
    for (int i = 0; i < seconds * 10; ++i) {
        h.loop.advance(100);
        const auto block = h.engine.render(4410);
        out.insert(out.end(), block.begin(), block.end());
    }
    return out;
}

TEST(RandomBanksEndToEnd, RaisedFrequenciesAreHeardThroughTheMixerAndMasterStopSilences) {
    test::AppHarness<MixerEngine> h(99, MixerEngine::Output::Offline);
    writeTestSamples(h.tree.root() / "bin");
    Application& app = h.startAndLoad();
    for (int s = 1; s <= 28; ++s) {
        ASSERT_NE(app.frmrandommain2.slot(s).sample, 0u) << s;
    }
    app.frmmain.Master.setValue(80);
    app.frmmain.Random.setValue(80);

    EXPECT_EQ(test::rms(run(h, 5)), 0.0);

    for (int s = 1; s <= 28; ++s) {
        app.frmrandommain2.slot(s).frequency.setValue(255);
    }
    const auto loud = run(h, 60);
    EXPECT_GT(test::rms(loud), 0.005);

    app.frmmain.masterStopButton.click();
    // Slots 1 to 4 may ring out; a tone lasts 0.2 s.
    run(h, 1);
    EXPECT_EQ(test::rms(run(h, 20)), 0.0);
}

}  // namespace
}  // namespace brevane
