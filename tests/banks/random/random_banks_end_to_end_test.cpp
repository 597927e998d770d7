// The four random banks running for half an hour of virtual time inside the whole
// Application: firing rates per slot, the dead stretch, pans, coarse levels and the
// identification lists; then the real mixer on generated samples.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <set>

#include "core/app_harness.h"
#include "core/application.h"
#include "core/slot_volume.h"
#include "engine/mixer_engine.h"
#include "engine/recording_engine.h"
#include "engine/sound_file_writer.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;
constexpr int kMinutes = 30;
constexpr int kTicks = kMinutes * 60;

// The chance that a slot fires on one tick of its bank.
double firingChance(int frequency) {
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
            return slot * 9;  // 9 .. 252
        default:
            return slot % 6;  // 0 .. 5: never fires
    }
}

struct Firing {
    int bank;
    int slot;
    int pan;
    int volume;
};

TEST(RandomBanksEndToEnd, HalfAnHourOfSchedulingMatchesTheChancePerTick) {
    test::AppHarness<RecordingEngine> h(20240601);
    Application& app = h.startAndLoad();
    app.frmmain.Master.setValue(100);
    app.frmmain.Random.setValue(100);

    // Which bank and slot each loaded sample belongs to.
    std::map<SampleHandle, std::pair<int, int>> owner;
    for (int b = 1; b <= 4; ++b) {
        for (int s = 1; s <= 28; ++s) {
            RandomBank& bank = *app.randomBank(b);
            bank.slot(s).frequency.setValue(frequencyFor(b, s));
            owner.emplace(bank.slot(s).sample, std::make_pair(b, s));
        }
    }
    // Bank 4's slot 22 shares slot 21's file but has a handle of its own.
    ASSERT_EQ(owner.size(), 112u);
    h.engine.clearCalls();

    h.loop.advance(kTicks * 1000LL);

    // Read the firings back from the calls: play, pan, volume.
    std::vector<Firing> firings;
    const auto& calls = h.engine.calls();
    for (std::size_t i = 0; i < calls.size(); ++i) {
        if (calls[i].op != Op::Play) {
            continue;
        }
        ASSERT_LT(i + 2, calls.size());
        ASSERT_EQ(calls[i + 1].op, Op::SetPan);
        ASSERT_EQ(calls[i + 2].op, Op::SetVolume);
        const auto [b, s] = owner.at(static_cast<SampleHandle>(calls[i].a));
        firings.push_back(
            {b, s, static_cast<int>(calls[i + 1].b), static_cast<int>(calls[i + 2].b)});
    }

    std::map<std::pair<int, int>, int> count;
    for (const Firing& f : firings) {
        ++count[{f.bank, f.slot}];
    }
    // Per slot: within five standard deviations of the binomial mean.
    for (int b = 1; b <= 4; ++b) {
        double expectedBank = 0;
        int seenBank = 0;
        for (int s = 1; s <= 28; ++s) {
            const double p = firingChance(frequencyFor(b, s));
            const double mean = kTicks * p;
            const double sd = std::sqrt(kTicks * p * (1 - p));
            const int seen = count[{b, s}];
            EXPECT_NEAR(seen, mean, 5 * sd + 0.5) << "bank " << b << " slot " << s;
            expectedBank += mean;
            seenBank += seen;
        }
        // Per bank, the sum is far tighter: within four standard deviations.
        const double p = expectedBank / kTicks;
        EXPECT_NEAR(seenBank, expectedBank, 4 * std::sqrt(kTicks * p * (1 - p)) + 0.5)
            << "bank " << b;
    }
    // The dead stretch: bank 4 stands at 0 to 5 and never fires.
    for (int s = 1; s <= 28; ++s) {
        EXPECT_EQ(count[(std::pair{4, s})], 0) << s;
    }

    // Pans: 5 to 254, spread over the range.
    int lowest = 255;
    int highest = 0;
    for (const Firing& f : firings) {
        EXPECT_GE(f.pan, 5);
        EXPECT_LE(f.pan, 254);
        lowest = std::min(lowest, f.pan);
        highest = std::max(highest, f.pan);
    }
    EXPECT_LE(lowest, 10);
    EXPECT_GE(highest, 249);

    // Levels: with Volume 220 and Master and Random at 100, b is one of 0..15 and the
    // level one of sixteen steps; each step turns up about as often as the next.
    std::map<int, int> stepCount;
    for (int step = 0; step <= 15; ++step) {
        stepCount[slotVolumeWithFactor(100, 100, step)] = 0;
    }
    for (const Firing& f : firings) {
        if (f.slot >= 24) {
            continue;  // those take their level from elsewhere
        }
        ASSERT_TRUE(stepCount.count(f.volume)) << f.volume;
        ++stepCount[f.volume];
    }
    int total = 0;
    for (const auto& [level, n] : stepCount) {
        total += n;
    }
    for (const auto& [level, n] : stepCount) {
        const double mean = total / 16.0;
        EXPECT_NEAR(n, mean, 5 * std::sqrt(mean)) << "level " << level;
    }
    EXPECT_EQ(stepCount.rbegin()->first, 250);

    // The identification lists end with the latest firings, in order, and the console
    // shows the last one.
    ASSERT_FALSE(firings.empty());
    const auto& names = app.Frmsoundindent.soundPlaying.items();
    ASSERT_GE(names.size(), 15u);
    ASSERT_LE(names.size(), 21u);
    for (std::size_t k = 1; k <= names.size(); ++k) {
        const Firing& f = firings[firings.size() - k];
        EXPECT_EQ(names[names.size() - k], app.randomBank(f.bank)->slot(f.slot).name.caption());
    }
    h.loop.advance(IdentifyPanel::kRefreshMs);
    const Firing& last = firings.back();
    EXPECT_EQ(app.frmmain.latestSoundName.text(),
              app.randomBank(last.bank)->slot(last.slot).name.caption());
}

TEST(RandomBanksEndToEnd, AllFrequenciesAtZeroPlayNothingAndLeaveTheListsWaiting) {
    test::AppHarness<RecordingEngine> h(5);
    Application& app = h.startAndLoad();
    h.engine.clearCalls();
    h.loop.advance(10 * 60 * 1000);
    EXPECT_TRUE(h.engine.callsOf(Op::Play).empty());
    EXPECT_EQ(app.Frmsoundindent.soundPlaying.items(), std::vector<std::string>{"Waiting..."});
    EXPECT_EQ(app.frmmain.latestSoundName.text(), "Waiting...");
}

// A short tone for each slot file, as a sample file of any name the decoder takes.
void writeTestSamples(const std::filesystem::path& bin) {
    std::vector<float> tone(4410);
    for (std::size_t i = 0; i < tone.size(); ++i) {
        tone[i] = 0.5f * static_cast<float>(std::sin(2.0 * std::numbers::pi * 440.0 *
                                                     static_cast<double>(i) / 22050.0));
    }
    for (int base : {50, 100, 150, 200}) {
        for (int s = 1; s <= 28; ++s) {
            const auto file = bin / (std::to_string(base + s) + ".raz");
            ASSERT_TRUE(writeSoundFile(file, tone, 1, 22050, SoundFileFormat::Wav16));
        }
    }
}

double rmsOf(const std::vector<float>& x) {
    double sum = 0;
    for (float v : x) {
        sum += static_cast<double>(v) * v;
    }
    return x.empty() ? 0.0 : std::sqrt(sum / static_cast<double>(x.size()));
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

    EXPECT_EQ(rmsOf(run(h, 5)), 0.0);

    for (int s = 1; s <= 28; ++s) {
        app.frmrandommain2.slot(s).frequency.setValue(255);
    }
    const auto loud = run(h, 60);
    EXPECT_GT(rmsOf(loud), 0.005);

    app.frmmain.masterStopButton.click();
    // Slots 1 to 4 may ring out; a tone lasts 0.2 s.
    run(h, 1);
    EXPECT_EQ(rmsOf(run(h, 20)), 0.0);
}

}  // namespace
}  // namespace brevane
