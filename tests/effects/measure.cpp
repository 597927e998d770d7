#include "measure.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>

namespace brevane::testing {

std::vector<float> render(EffectsChain& chain, std::vector<float> input, int block) {
    const int frames = static_cast<int>(input.size() / 2);
    for (int done = 0; done < frames; done += block) {
        chain.process(input.data() + 2 * done, std::min(block, frames - done));
    }
    return input;
}

std::vector<float> renderImpulse(EffectsChain& chain, int frames, bool left, bool right,
                                 int block) {
    std::vector<float> buffer(2 * static_cast<std::size_t>(frames), 0.0f);
    buffer[0] = left ? 1.0f : 0.0f;
    buffer[1] = right ? 1.0f : 0.0f;
    return render(chain, std::move(buffer), block);
}

std::vector<double> side(const std::vector<float>& interleaved, int which) {
    std::vector<double> out(interleaved.size() / 2);
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] = interleaved[2 * i + static_cast<std::size_t>(which)];
    }
    return out;
}

double responseDb(const std::vector<double>& ir, double hz) {
    const double w = 2.0 * std::numbers::pi * hz / kRate;
    std::complex<double> sum = 0.0;
    for (std::size_t n = 0; n < ir.size(); ++n) {
        sum += ir[n] * std::polar(1.0, -w * static_cast<double>(n));
    }
    return 20.0 * std::log10(std::abs(sum));
}

std::vector<double> bandPass(const std::vector<double>& x, double centreHz, double q, int stages) {
    const double w0 = 2.0 * std::numbers::pi * centreHz / kRate;
    const double alpha = std::sin(w0) / (2.0 * q);
    const double a0 = 1.0 + alpha;
    const double b0 = alpha / a0, b2 = -alpha / a0;
    const double a1 = -2.0 * std::cos(w0) / a0, a2 = (1.0 - alpha) / a0;
    std::vector<double> y = x;
    for (int s = 0; s < stages; ++s) {
        double x1 = 0, x2 = 0, y1 = 0, y2 = 0;
        for (double& v : y) {
            const double in = v;
            v = b0 * in + b2 * x2 - a1 * y1 - a2 * y2;
            x2 = x1;
            x1 = in;
            y2 = y1;
            y1 = v;
        }
    }
    return y;
}

double rt60(const std::vector<double>& ir, double fromDb, double toDb) {
    std::vector<double> decay(ir.size());
    double tail = 0.0;
    for (std::size_t n = ir.size(); n-- > 0;) {
        tail += ir[n] * ir[n];
        decay[n] = tail;
    }
    if (tail <= 0.0) {
        return 0.0;
    }
    const double total = decay[0];
    double st = 0, sd = 0, stt = 0, std_ = 0;
    int count = 0;
    bool reached = false;
    for (std::size_t n = 0; n < decay.size(); ++n) {
        const double db = 10.0 * std::log10(decay[n] / total);
        if (db > fromDb) {
            continue;
        }
        if (db < toDb) {
            reached = true;
            break;
        }
        const double t = static_cast<double>(n) / kRate;
        st += t;
        sd += db;
        stt += t * t;
        std_ += t * db;
        ++count;
    }
    if (!reached || count < 2) {
        return 0.0;
    }
    const double slope = (count * std_ - st * sd) / (count * stt - st * st);
    return -60.0 / slope;
}

int firstAbove(const std::vector<double>& x, double threshold) {
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (std::abs(x[i]) > threshold) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

double energy(const std::vector<double>& x, int from, int to) {
    double e = 0.0;
    for (int i = std::max(0, from); i < std::min(to, static_cast<int>(x.size())); ++i) {
        e += x[static_cast<std::size_t>(i)] * x[static_cast<std::size_t>(i)];
    }
    return e;
}

std::vector<float> noise(int frames, float amplitude, unsigned seed) {
    std::mt19937 gen(seed);
    std::uniform_real_distribution<float> dist(-amplitude, amplitude);
    std::vector<float> out(2 * static_cast<std::size_t>(frames));
    for (float& v : out) {
        v = dist(gen);
    }
    return out;
}

}  // namespace brevane::testing
