#include "test_sounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace brevane::test {

std::vector<float> sine(double hz, int rate, std::size_t frames, float amplitude) {
    std::vector<float> out(frames);
    for (std::size_t i = 0; i < frames; ++i) {
        out[i] = amplitude * static_cast<float>(std::sin(2.0 * std::numbers::pi * hz *
                                                         static_cast<double>(i) / rate));
    }
    return out;
}

std::vector<float> asFloats(const SampleFrames& frames) {
    if (const auto* floats = std::get_if<std::vector<float>>(&frames)) {
        return *floats;
    }
    const auto& ints = std::get<std::vector<std::int16_t>>(frames);
    std::vector<float> out(ints.size());
    std::transform(ints.begin(), ints.end(), out.begin(),
                   [](std::int16_t x) { return static_cast<float>(x) / kInt16FullScale; });
    return out;
}

std::vector<float> constant(float value, std::size_t frames) {
    return std::vector<float>(frames, value);
}

std::filesystem::path writeMono(const std::filesystem::path& dir, const char* name,
                                const std::vector<float>& frames, int rate,
                                SoundFileFormat format) {
    const std::filesystem::path file = dir / name;
    EXPECT_TRUE(writeSoundFile(file, frames, 1, rate, format)) << file;
    return file;
}

std::vector<float> side(std::span<const float> stereo, int which, std::size_t from,
                        std::size_t to) {
    to = std::min(to, stereo.size() / 2);
    std::vector<float> out;
    for (std::size_t i = from; i < to; ++i) {
        out.push_back(stereo[2 * i + static_cast<std::size_t>(which)]);
    }
    return out;
}

double rms(std::span<const float> x) {
    if (x.empty()) {
        return 0.0;
    }
    double sum = 0.0;
    for (float v : x) {
        sum += static_cast<double>(v) * v;
    }
    return std::sqrt(sum / static_cast<double>(x.size()));
}

double peak(std::span<const float> x) {
    double p = 0.0;
    for (float v : x) {
        p = std::max(p, static_cast<double>(std::fabs(v)));
    }
    return p;
}

double largestStep(std::span<const float> x) {
    double step = 0.0;
    for (std::size_t i = 1; i < x.size(); ++i) {
        step = std::max(step, static_cast<double>(std::fabs(x[i] - x[i - 1])));
    }
    return step;
}

double measureFrequency(std::span<const float> x, int rate) {
    double first = -1.0;
    double last = -1.0;
    long crossings = 0;
    for (std::size_t i = 1; i < x.size(); ++i) {
        if (x[i - 1] < 0.0f && x[i] >= 0.0f) {
            const double at = static_cast<double>(i - 1) + x[i - 1] / (x[i - 1] - x[i]);
            if (first < 0.0) {
                first = at;
            }
            last = at;
            ++crossings;
        }
    }
    if (crossings < 2) {
        return 0.0;
    }
    return static_cast<double>(crossings - 1) * rate / (last - first);
}

}  // namespace brevane::test
