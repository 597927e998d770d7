// soundgen: writes every stock sound into an install tree.
//
//   soundgen <tree>                 all sounds
//   soundgen <tree> <file>...       only those files ("bin/3.isz" ...)
//   soundgen --markdown <file>      writes the recipe list (docs/SOUNDS.md)
//   soundgen --analyse <tree> [file...]
//                                   prints figures of written sounds: octave band levels,
//                                   spectral centroid, crest factor, level movement
//
// Work is spread over two threads; each sound is made from its own seeded random stream,
// so the bytes are the same whatever thread makes it.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "analysis.h"
#include "registry.h"
#include "sound_file.h"

using namespace brevane::soundgen;

namespace {

constexpr int kThreads = 2;

double seconds(std::chrono::steady_clock::duration d) {
    return std::chrono::duration<double>(d).count();
}

int generate(const std::filesystem::path& tree, const std::vector<std::string>& only) {
    std::vector<const Recipe*> jobs;
    for (const auto& r : recipes()) {
        if (only.empty() || std::find(only.begin(), only.end(), r.file) != only.end()) {
            jobs.push_back(&r);
        }
    }
    if (jobs.empty()) {
        std::fprintf(stderr, "soundgen: no such sound\n");
        return 1;
    }
    // Longest first, so the two threads finish close together.
    std::stable_sort(jobs.begin(), jobs.end(),
                     [](const Recipe* a, const Recipe* b) { return a->seconds > b->seconds; });
    std::atomic<std::size_t> next{0};
    std::atomic<bool> failed{false};
    std::mutex printing;
    const auto start = std::chrono::steady_clock::now();
    auto worker = [&] {
        for (std::size_t i = next++; i < jobs.size(); i = next++) {
            const Recipe& r = *jobs[i];
            const auto t0 = std::chrono::steady_clock::now();
            const auto pcm = renderFinished(r);
            const std::string error = writeSound(tree / r.file, pcm);
            const auto t1 = std::chrono::steady_clock::now();
            double sum = 0.0;
            int peak = 0;
            for (auto v : pcm) {
                sum += static_cast<double>(v) * v;
                peak = std::max(peak, std::abs(static_cast<int>(v)));
            }
            const double rms =
                std::sqrt(sum / std::max<double>(1.0, static_cast<double>(pcm.size())));
            std::lock_guard lock(printing);
            if (!error.empty()) {
                std::fprintf(stderr, "soundgen: %s\n", error.c_str());
                failed = true;
            } else {
                std::printf("%-28s %6.2f s  rms %6.1f dBFS  peak %6.1f dBFS  %5.2f s  %s\n",
                            r.file.c_str(), static_cast<double>(pcm.size()) / kRate,
                            20 * std::log10(std::max(rms, 1.0) / 32768.0),
                            20 * std::log10(std::max(peak, 1) / 32768.0), seconds(t1 - t0),
                            r.name.c_str());
            }
        }
    };
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back(worker);
    }
    for (auto& t : threads) {
        t.join();
    }
    std::printf("soundgen: %zu sounds in %.1f s\n", jobs.size(),
                seconds(std::chrono::steady_clock::now() - start));
    return failed ? 1 : 0;
}

int analyse(const std::filesystem::path& tree, const std::vector<std::string>& only) {
    std::printf("%-26s %5s %5s %5s %5s %5s %5s %5s %5s %5s | %6s %5s %5s %5s\n", "file", "63",
                "125", "250", "500", "1k", "2k", "4k", "8k", "16k", "centr", "crest", "mov", "rep");
    for (const auto& r : recipes()) {
        if (!only.empty() && std::find(only.begin(), only.end(), r.file) == only.end()) {
            continue;
        }
        const auto data = readSound(tree / r.file);
        if (!data) {
            std::printf("%-26s missing\n", r.file.c_str());
            continue;
        }
        const Buffer x = fromPcm16(data->samples);
        const auto bands = bandLevelsDb(x, 1);  // 31.5 Hz .. 16 kHz octaves
        const double top = *std::max_element(bands.begin(), bands.end());
        std::printf("%-26s", r.file.c_str());
        for (std::size_t i = 1; i < bands.size(); ++i) {
            std::printf(" %5.1f", bands[i] - top);
        }
        // Level movement: spread of 100 ms levels (dB) between their 10th and 90th percentile.
        std::vector<double> levels;
        for (double v : frameRms(x, samples(0.1))) {
            levels.push_back(20 * std::log10(std::max(v, 1e-6)));
        }
        const double crest = gainToDb(peakOf(x) / std::max(rmsOf(x), 1e-9));
        const double rep = r.kind == Kind::Loop ? innerRepetition(x, samples(0.25)).score : 0.0;
        std::printf(" | %6.0f %5.1f %5.1f %5.3f  %s\n", spectralCentroid(x), crest,
                    percentile(levels, 90) - percentile(levels, 10), rep, r.name.c_str());
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: soundgen <tree> [file...] | soundgen --markdown <file>\n");
        return 2;
    }
    const std::string first = argv[1];
    if (first == "--markdown") {
        if (argc != 3) {
            std::fprintf(stderr, "usage: soundgen --markdown <file>\n");
            return 2;
        }
        std::ofstream out(argv[2], std::ios::binary);
        out << soundsMarkdown();
        return out ? 0 : 1;
    }
    if (first == "--analyse") {
        if (argc < 3) {
            std::fprintf(stderr, "usage: soundgen --analyse <tree> [file...]\n");
            return 2;
        }
        return analyse(argv[2], std::vector<std::string>(argv + 3, argv + argc));
    }
    std::vector<std::string> only(argv + 2, argv + argc);
    return generate(first, only);
}
