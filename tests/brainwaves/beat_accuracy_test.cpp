// The beat a listener hears is the beat the display shows: the stock tones played by the
// real mixer, each ear's pitch measured over twenty seconds, and their difference
// compared with the beat display. And the tones loop without a click.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <vector>

#include "core/app_harness.h"
#include "core/application.h"
#include "engine/mixer_engine.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

constexpr int kRate = 44100;

// The frequency of a steady tone from its upward zero crossings, each placed between
// its two samples: periods counted over the span between the first and the last.
double toneFrequency(const std::vector<float>& stereo, int channel) {
    double first = -1;
    double last = -1;
    int crossings = 0;
    for (std::size_t i = 2 + static_cast<std::size_t>(channel); i < stereo.size(); i += 2) {
        const float a = stereo[i - 2];
        const float b = stereo[i];
        if (a < 0 && b >= 0) {
            const double t = static_cast<double>(i / 2 - 1) + a / (a - b);
            if (first < 0) {
                first = t;
            } else {
                ++crossings;
            }
            last = t;
        }
    }
    return crossings > 0 ? crossings * kRate / (last - first) : 0;
}

TEST(BeatAccuracy, EachEarsPitchDiffersByTheBeatShownAndTheLoopsDoNotClick) {
    test::AppHarness<MixerEngine> h(3, MixerEngine::Output::Offline);
    fs::remove(h.tree.root() / "bin");
    fs::create_directory_symlink(fs::path(BREVANE_TREE_DIR) / "bin", h.tree.root() / "bin");
    h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
    Application& app = h.startAndLoad();
    app.frmmain.Bwaves.setValue(100);
    app.frmmain.Master.setValue(100);
    Frmbwave& b = app.frmbwave;
    ASSERT_NE(b.leftSample, 0u);

    struct Setting {
        int base;
        int beat;
    };
    for (const Setting s : {Setting{200000, 3000}, Setting{250000, 7500}, Setting{400000, 10000},
                            Setting{300000, 11500}, Setting{882000, 17000}}) {
        b.basestart.setValue(s.base);
        b.beatstart.setValue(s.beat);
        b.playtoggle.setValue(true);
        std::vector<float> out;
        for (int i = 0; i < 200; ++i) {
            h.loop.advance(100);
            const auto block = h.engine.render(kRate / 10);
            out.insert(out.end(), block.begin(), block.end());
        }
        b.playtoggle.setValue(false);
        // A moment for the start's fade-in: measured from the second second on.
        const std::vector<float> steady(out.begin() + 2 * kRate, out.end());
        const double heard = toneFrequency(steady, 0) - toneFrequency(steady, 1);
        const double shown = std::stod(b.currentBeatText.text());
        EXPECT_NEAR(heard, shown, 0.01) << "base " << s.base << " beat " << s.beat;

        // No step in either ear beyond what the sine itself moves in a sample.
        double largestStep = 0;
        double peak = 0;
        for (std::size_t i = 2; i < steady.size(); ++i) {
            largestStep = std::max(largestStep, std::abs(double(steady[i]) - steady[i - 2]));
            peak = std::max(peak, std::abs(double(steady[i])));
        }
        const double fastest = 2 * M_PI * (s.base / 10.0 / 100.0) / kRate * peak;
        EXPECT_LE(largestStep, fastest * 1.05) << "base " << s.base;
        // Printed for the record of what was measured.
        std::printf("base %g Hz, beat shown %s Hz, beat heard %.5f Hz\n", s.base / 10.0 / 100.0,
                    b.currentBeatText.text().c_str(), heard);
    }
}

}  // namespace
}  // namespace brevane
