// The creatures as a listener would tell them apart: each animal's call in its own band and
// at its own pitch, in its own rhythm, and the takes of one animal sharing its voice.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "analysis.h"
#include "calls.h"
#include "registry.h"
#include "voice_probe.h"

namespace brevane::soundgen {
namespace {

using probe::bandShareDb;
using probe::peakHz;
using probe::stretch;

double seconds(const Buffer& b) {
    return static_cast<double>(b.size()) / kRate;
}

std::string bankOf(const std::string& file) {
    const Recipe* r = findRecipe(file);
    return r ? r->bank : std::string();
}

// A stock file as the generator makes it, as floats.
Buffer stock(const std::string& file) {
    const Recipe* r = findRecipe(file);
    EXPECT_NE(r, nullptr) << file;
    return r ? fromPcm16(renderFinished(*r)) : Buffer{};
}

TEST(Owls, HootLowAndTonalWhileTheBarnOwlScreechesHighAndHarsh) {
    Rng r(1);
    const Buffer tawny = calls::tawnyHoot(r, 2.0);
    EXPECT_NEAR(peakHz(stretch(tawny, 0.1, 0.6), 100, 5000), 450, 60);
    EXPECT_GT(probe::pitch(stretch(tawny, 0.2, 0.5), 300, 700).strength, 0.9);
    const Buffer screech = calls::barnOwlScreech(r, 1.5);
    EXPECT_GT(spectralCentroid(screech), 2000.0);
    EXPECT_LT(bandShareDb(screech, 20, 500), -30.0);
    // Its power is spread over octaves, not held in a tone and its harmonics.
    EXPECT_GT(bandShareDb(screech, 2800, 9000), -6.0);
    EXPECT_LT(probe::pitch(stretch(screech, 0.3, 1.0), 1500, 2500).strength, 0.7);
}

TEST(Songbirds, EachSingsInItsOwnBandAndManner) {
    Rng r(4);
    // A gull cries in harmonics: its overtones are nearly as strong as its fundamental.
    const Buffer cry = calls::gullCry(r, 850, 0.5);
    const double f = peakHz(stretch(cry, 0.05, 0.2), 500, 1300);
    EXPECT_GT(bandShareDb(cry, 1.5 * f, 5.0 * f), -6.0);
    // A robin's warble is high and thin, a run of notes with gaps.
    const Buffer robin = calls::robinPhrase(r);
    EXPECT_GT(spectralCentroid(robin), 2500.0);
    EXPECT_GE(probe::onsets(robin, 0.02, 30.0).size(), 5u);
    // A chaffinch's trill falls from its first notes.
    const Buffer finch = calls::chaffinchSong(r);
    EXPECT_GT(peakHz(stretch(finch, 0.0, 0.2), 1000, 12000),
              peakHz(stretch(finch, 0.6, 0.9), 1000, 12000));
}

TEST(Loons, WailRisingAFifthAndTremoloThrobbing) {
    Rng r(5);
    const Buffer wail = calls::loonWail(r);
    const double start = peakHz(stretch(wail, 0.2, 0.6), 300, 3000);
    const double held = peakHz(stretch(wail, 1.5, 1.9), 300, 3000);
    EXPECT_NEAR(start, 600, 60);
    EXPECT_NEAR(held / start, 1.5, 0.1);
    const Buffer tremolo = calls::loonTremolo(r);
    EXPECT_GE(probe::onsets(tremolo, 0.05, 30.0).size(), 10u);
}

TEST(Insects, CricketChirpsAreTonePulsesAtTheirCarrier) {
    Rng r(6);
    const calls::Cricket c{4500.0, 4, 30.0, 0.02, 0.04};
    const Buffer chirp = calls::cricketChirp(r, c);
    EXPECT_EQ(probe::onsets(chirp, 0.015, 30.0).size(), 4u);
    EXPECT_NEAR(peakHz(chirp, 1000, 15000), 4450, 150);
    EXPECT_NEAR(seconds(chirp), 3.0 / 30.0 + 0.02, 0.01);
}

TEST(Insects, CicadasRingInTheirBodyBandAndThrobWhenTheyPulse) {
    Rng r(7);
    calls::Cicada c;
    c.seconds = 2.0;
    c.carrier = 5000.0;
    c.pulseHz = 8.0;
    c.pulseDepth = 1.0;
    const Buffer song = calls::cicadaSong(r, c, Edge::Linear, nullptr, nullptr);
    EXPECT_GT(bandShareDb(song, 3500, 8000), -3.0);
    EXPECT_LT(bandShareDb(song, 20, 1500), -30.0);
    const double crest = probe::rmsBetween(song, 1.0 - 0.01, 1.0 + 0.01);
    const double trough = probe::rmsBetween(song, 1.0625 - 0.01, 1.0625 + 0.01);
    EXPECT_GT(gainToDb(crest / trough), 12.0);
}

TEST(Frogs, CroaksArePulsedAtTheirRateAndRingAtTheirCarrier) {
    Rng r(12);
    calls::Croak c;
    c.seconds = 0.3;
    c.pulseRate = 50.0;
    c.carrier = 900.0;
    c.second = 1900.0;
    const Buffer b = calls::croak(r, c);
    // Every pulse rings out before the next: fifty distinct knocks a second.
    const auto pulses = probe::onsets(b, 0.01, 30.0);
    EXPECT_NEAR(static_cast<double>(pulses.size()), 15.0, 2.0);
    EXPECT_NEAR(probe::pitch(stretch(b, 0.05, 0.25), 30, 80).hz, 50.0, 4.0);
    EXPECT_NEAR(peakHz(b, 200, 5000), 900, 60);
}

TEST(FarmAnimals, SpeakAtTheirOwnPitch) {
    Rng r(9);
    const Buffer moo = calls::cowMoo(r, 120, 1.5, 0.0);
    EXPECT_NEAR(probe::pitch(stretch(moo, 0.6, 1.0), 80, 200).hz, 125, 15);
    EXPECT_LT(spectralCentroid(moo), 1500.0);
    // A big dog barks deep and a small one high; both are over in a fifth of a second.
    const Buffer big = calls::dogBark(r, 1.0), small = calls::dogBark(r, 0.0);
    EXPECT_LT(seconds(big), 0.25);
    EXPECT_LT(seconds(small), 0.25);
    EXPECT_LT(probe::pitch(stretch(big, 0.0, 0.1), 150, 900).hz,
              0.6 * probe::pitch(stretch(small, 0.0, 0.08), 150, 900).hz);
}

TEST(Horses, TrotFallsInEvenBeatsAndCanterInThrees) {
    // Footfalls closer than 60 ms (a trot's diagonal pair) count as one.
    const Buffer trot = stock("bin/168.raz");
    const auto beats = probe::onsets(stretch(trot, 0.0, 6.0), 0.06, 20.0);
    ASSERT_GE(beats.size(), 12u);
    for (std::size_t i = 1; i < beats.size(); ++i) {
        EXPECT_NEAR(beats[i] - beats[i - 1], 0.33, 0.08) << "trot beat " << i;
    }
    // Canter: two short gaps then the long one of the moment in the air. Judged where the
    // horse passes close, with the tack's jingle far under the hooves.
    const Buffer canter = stock("bin/171.raz");
    const auto falls = probe::onsets(stretch(canter, 1.6, 4.9), 0.06, 20.0);
    ASSERT_GE(falls.size(), 9u);
    int shortGaps = 0, longGaps = 0, longInARow = 0;
    bool lastLong = false;
    for (std::size_t i = 1; i < falls.size(); ++i) {
        const double gap = falls[i] - falls[i - 1];
        const bool isLong = gap > 0.25;
        (isLong ? longGaps : shortGaps) += 1;
        longInARow += isLong && lastLong;
        lastLong = isLong;
        EXPECT_TRUE(gap < 0.16 || (gap > 0.28 && gap < 0.5)) << "canter gap " << gap;
    }
    EXPECT_NEAR(static_cast<double>(shortGaps) / std::max(1, longGaps), 2.0, 0.7);
    EXPECT_EQ(longInARow, 0);
}

// The insect loops sing in their own bands: crickets near their carriers, each cicada
// chorus round its own body's ring.
TEST(LivingLoops, InsectChorusesSingInTheirOwnBands) {
    const auto peak = [](const char* file) { return peakHz(stock(file), 1000, 12000); };
    for (const char* file : {"bin/61.isz", "bin/62.isz"}) {
        EXPECT_NEAR(peak(file), 4700, 800) << file;
    }
    const double indian = peak("bin/63.isz"), african = peak("bin/64.isz"),
                 western = peak("bin/65.isz");
    EXPECT_NEAR(indian, 4300, 600);
    EXPECT_NEAR(african, 5300, 500);
    EXPECT_NEAR(western, 4000, 500);
    EXPECT_GT(african, indian + 500);
    EXPECT_GT(african, western + 800);
}

// The takes of one animal share its voice: their spectra correlate closely, closer than the
// spectrum of another animal of the same bank does (the gates see to it that their
// envelopes differ).
TEST(Variants, TakesOfOneAnimalShareItsVoice) {
    const std::vector<std::vector<std::string>> families{
        {"bin/101.raz", "bin/102.raz"},
        {"bin/107.raz", "bin/108.raz", "bin/109.raz"},
        {"bin/117.raz", "bin/118.raz", "bin/124.raz"},
        {"bin/53.raz", "bin/54.raz", "bin/55.raz", "bin/56.raz"},
        {"bin/75.raz", "bin/76.raz"},
        {"bin/151.raz", "bin/152.raz", "bin/153.raz"},
        {"bin/164.raz", "bin/165.raz", "bin/166.raz"},
        {"bin/169.raz", "bin/170.raz"},
    };
    std::vector<std::vector<std::vector<double>>> spectra;
    for (const auto& family : families) {
        spectra.emplace_back();
        for (const auto& file : family) {
            spectra.back().push_back(bandLevelsDb(stock(file)));
        }
    }
    for (std::size_t f = 0; f < families.size(); ++f) {
        double within = 1.0;
        for (std::size_t i = 0; i < spectra[f].size(); ++i) {
            for (std::size_t j = i + 1; j < spectra[f].size(); ++j) {
                within = std::min(within, pearson(spectra[f][i], spectra[f][j]));
            }
        }
        EXPECT_GT(within, 0.85) << families[f][0] << " and its other takes";
        for (std::size_t g = 0; g < families.size(); ++g) {
            if (g != f && bankOf(families[g][0]) == bankOf(families[f][0])) {
                EXPECT_LT(pearson(spectra[f][0], spectra[g][0]), within)
                    << families[f][0] << " is closer to " << families[g][0]
                    << " than to its own takes";
            }
        }
    }
}

}  // namespace
}  // namespace brevane::soundgen
