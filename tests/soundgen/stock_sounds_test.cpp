// The quality gates on the stock sounds as the build wrote them into the install tree.
// Every recipe of the generator is checked, so a new recipe is covered the moment it is
// registered.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <span>
#include <sstream>

#include "analysis.h"
#include "registry.h"
#include "sound_file.h"
#include "sound_gates.h"

namespace brevane::soundgen {
namespace {

const std::filesystem::path kTree = BREVANE_TREE_DIR;

struct Loaded {
    SoundData data;
    Buffer x;
    gates::Fingerprint print;
};

const Loaded* load(const std::string& file) {
    static std::map<std::string, std::optional<Loaded>> cache;
    auto it = cache.find(file);
    if (it == cache.end()) {
        std::optional<Loaded> l;
        if (auto d = readSound(kTree / file)) {
            Buffer x = fromPcm16(d->samples);
            auto print = gates::fingerprint(x);
            l = Loaded{std::move(*d), std::move(x), std::move(print)};
        }
        it = cache.emplace(file, std::move(l)).first;
    }
    return it->second ? &*it->second : nullptr;
}

std::string testName(const std::string& file) {
    std::string s;
    for (char c : file) {
        s += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    }
    return s;
}

class StockSound : public testing::TestWithParam<const Recipe*> {};

TEST_P(StockSound, PassesItsQualityGates) {
    const Recipe& r = *GetParam();
    const Loaded* s = load(r.file);
    ASSERT_NE(s, nullptr) << r.file << " is missing or unreadable in " << kTree;
    const auto& pcm = s->data.samples;
    const auto expect = [&](const gates::Verdict& v, const char* gate) {
        EXPECT_TRUE(v.ok) << r.file << " (" << r.name << ") fails " << gate << ": " << v.why;
    };
    expect(gates::format(s->data, wantsWav(r.file)), "the format");
    expect(gates::noFullScale(pcm), "full scale");
    expect(gates::dcOffset(pcm), "DC offset");
    switch (r.kind) {
        case Kind::Loop:
            expect(gates::loopLength(pcm.size()), "loop length");
            expect(gates::seamlessWrap(s->x), "seamless wrap");
            expect(gates::noInnerRepetition(s->x), "inner repetition");
            expect(gates::loopLoudness(s->x), "loudness");
            break;
        case Kind::OneShot:
            expect(gates::oneShotPeak(s->x), "peak level");
            expect(gates::onsetAtStart(s->x), "onset");
            expect(gates::fadesToSilence(s->x), "fade to silence");
            break;
        case Kind::Tone:
            expect(gates::exactPeriod(pcm, 100), "the 100-sample period");
            expect(gates::seamlessWrap(s->x), "seamless wrap");
            expect(gates::loopLoudness(s->x), "loudness");
            break;
        case Kind::Chime:
            expect(gates::noClickAtWrap(s->x), "no click at the wrap");
            expect(gates::oneShotPeak(s->x), "peak level");
            break;
    }
}

INSTANTIATE_TEST_SUITE_P(Library, StockSound, testing::ValuesIn([] {
                             std::vector<const Recipe*> all;
                             for (const auto& r : recipes()) {
                                 all.push_back(&r);
                             }
                             return all;
                         }()),
                         [](const testing::TestParamInfo<const Recipe*>& p) {
                             return testName(p.param->file);
                         });

class StockBank : public testing::TestWithParam<std::string> {};

TEST_P(StockBank, HasNoTwoFilesAlike) {
    std::vector<const Recipe*> members;
    for (const auto& r : recipes()) {
        if (r.bank == GetParam() && (r.kind == Kind::Loop || r.kind == Kind::OneShot)) {
            members.push_back(&r);
        }
    }
    for (std::size_t i = 0; i < members.size(); ++i) {
        for (std::size_t j = i + 1; j < members.size(); ++j) {
            const Loaded* a = load(members[i]->file);
            const Loaded* b = load(members[j]->file);
            ASSERT_TRUE(a && b) << members[i]->file << " or " << members[j]->file << " missing";
            const auto v = gates::notAlike(a->print, b->print, members[i]->kind == Kind::Loop);
            EXPECT_TRUE(v.ok) << members[i]->file << " and " << members[j]->file
                              << " are alike: " << v.why;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Library, StockBank, testing::ValuesIn([] {
                             std::vector<std::string> banks;
                             for (const auto& r : recipes()) {
                                 if (std::find(banks.begin(), banks.end(), r.bank) == banks.end()) {
                                     banks.push_back(r.bank);
                                 }
                             }
                             return banks;
                         }()),
                         [](const testing::TestParamInfo<std::string>& p) {
                             return testName(p.param);
                         });

TEST(StockLibrary, LoopLengthsAllDifferSoLoopsNeverFallIntoStep) {
    std::vector<std::pair<double, std::string>> lengths;
    for (const auto& r : recipes()) {
        if (r.kind == Kind::Loop) {
            if (const Loaded* s = load(r.file)) {
                lengths.emplace_back(static_cast<double>(s->data.samples.size()) / kRate, r.file);
            }
        }
    }
    std::sort(lengths.begin(), lengths.end());
    for (std::size_t i = 1; i < lengths.size(); ++i) {
        EXPECT_GE(lengths[i].first - lengths[i - 1].first, 0.2)
            << lengths[i - 1].second << " and " << lengths[i].second
            << " are nearly the same length";
    }
}

// Coarse checks that each sound is the kind of sound its name says, so a recipe wired to
// the wrong file or a family gone wrong is caught without anyone listening.
double centroidOf(const std::string& file) {
    const Loaded* s = load(file);
    return s ? spectralCentroid(s->x) : 0.0;
}

TEST(StockCharacter, RainIsBrightBroadbandAndWindIsLowNoise) {
    for (int f : {3, 4, 5, 6}) {
        EXPECT_GT(centroidOf("bin/" + std::to_string(f) + ".isz"), 1800.0) << "rain loop " << f;
    }
    for (int f : {7, 9}) {
        EXPECT_LT(centroidOf("bin/" + std::to_string(f) + ".isz"), 900.0) << "wind loop " << f;
    }
    // Heard from inside a car the rain is muffled; leaves rustle high.
    EXPECT_LT(centroidOf("bin/2.isz"), centroidOf("bin/3.isz"));
    EXPECT_GT(centroidOf("bin/10.isz"), centroidOf("bin/12.isz"));
}

TEST(StockCharacter, NearThunderCracksAndFarThunderOnlyRumbles) {
    // Share of the first half second above 2 kHz: the crack of a near strike.
    auto crackShare = [](const std::string& file) {
        const Loaded* s = load(file);
        if (!s) {
            return -1.0;
        }
        const auto head = std::span(s->x).subspan(0, std::min(s->x.size(), samples(0.5)));
        Buffer high(head.begin(), head.end());
        filter(high, Edge::Linear, {Biquad::highpass(2000), Biquad::highpass(2000)});
        return rmsOf(high) / std::max(rmsOf(head), 1e-9);
    };
    for (int near : {201, 204, 208}) {
        EXPECT_GT(crackShare("bin/" + std::to_string(near) + ".raz"), 0.2) << near;
    }
    for (int far : {203, 206, 210}) {
        const std::string f = "bin/" + std::to_string(far) + ".raz";
        EXPECT_LT(crackShare(f), 0.02) << far;
        EXPECT_LT(centroidOf(f), 150.0) << far;
    }
}

TEST(StockCharacter, GustsAndWavesSwellBeforeTheyPass) {
    // The loudest moment of a gust or a wave comes after its start and well before its end.
    for (int n = 212; n <= 228; ++n) {
        const std::string f = "bin/" + std::to_string(n) + ".raz";
        const Loaded* s = load(f);
        ASSERT_NE(s, nullptr) << f;
        const auto env = frameRms(s->x, samples(0.1));
        const auto loudest =
            static_cast<double>(std::max_element(env.begin(), env.end()) - env.begin());
        const double at = loudest / static_cast<double>(env.size());
        EXPECT_GT(at, 0.05) << f << " is loudest at its very start";
        EXPECT_LT(at, 0.75) << f << " is still swelling at its end";
    }
}

TEST(StockCharacter, AlarmChimeRisesNoteByNote) {
    const Loaded* s = load("config/alarms/default.wav");
    ASSERT_NE(s, nullptr);
    double last = 0.0;
    for (int note = 0; note < 4; ++note) {
        const auto from = samples(0.02 + 0.32 * note);
        const double c = spectralCentroid(std::span(s->x).subspan(from, samples(0.12)));
        EXPECT_GT(c, last * 1.1) << "note " << note + 1 << " does not rise";
        last = c;
    }
}

TEST(StockLibrary, HoldsEveryFileOfTheWeatherWaterFireAndToneSet) {
    std::vector<std::string> wanted{"bin/1.BWZ", "bin/2.BWZ", "config/alarms/default.wav"};
    for (int i = 1; i <= 228; ++i) {
        if (i <= 17 || i == 51 || i == 52 || i == 53 || i == 66 || i == 67) {
            wanted.push_back("bin/" + std::to_string(i) + ".isz");
        } else if (i >= 201) {
            wanted.push_back("bin/" + std::to_string(i) + ".raz");
        }
    }
    for (const auto& f : wanted) {
        EXPECT_NE(findRecipe(f), nullptr) << "no recipe writes " << f;
        EXPECT_TRUE(std::filesystem::is_regular_file(kTree / f)) << f << " is not in the tree";
    }
}

TEST(StockLibrary, FilesAreExactlyWhatAFreshRenderGives) {
    // A cheap loop, a one-shot and the tones: any hidden state (an unseeded draw, a
    // thread-dependent order) would make the build's bytes differ from a second render.
    for (const char* f : {"bin/1.BWZ", "config/alarms/default.wav", "bin/223.raz", "bin/3.isz"}) {
        const Recipe* r = findRecipe(f);
        ASSERT_NE(r, nullptr) << f;
        const Loaded* s = load(f);
        ASSERT_NE(s, nullptr) << f;
        EXPECT_EQ(renderFinished(*r), s->data.samples) << f << " differs from a fresh render";
    }
}

TEST(StockLibrary, RecipeListInTheDocsMatchesTheGenerator) {
    std::ifstream in(std::filesystem::path(BREVANE_SOURCE_DIR) / "docs/SOUNDS.md",
                     std::ios::binary);
    ASSERT_TRUE(in) << "docs/SOUNDS.md is missing";
    std::stringstream text;
    text << in.rdbuf();
    std::istringstream doc(text.str()), gen(soundsMarkdown());
    std::string a, b;
    int line = 1;
    for (; std::getline(doc, a) && std::getline(gen, b); ++line) {
        ASSERT_EQ(a, b) << "docs/SOUNDS.md line " << line
                        << " is stale: build the sound_sheets target to rewrite it";
    }
    EXPECT_EQ(text.str().size(), soundsMarkdown().size())
        << "docs/SOUNDS.md has a different number of lines than the generator gives";
}

}  // namespace
}  // namespace brevane::soundgen
