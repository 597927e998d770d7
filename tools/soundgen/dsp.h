// The generator's signal toolkit: buffers, filters, noise colours, control curves,
// resonators and a small room. Everything is plain single-threaded code on float
// buffers at 44100 Hz; an object is used by one thread at a time.
//
// Loops are built "circular": a loop of n samples is treated as a ring, so that a
// filter, a grain or a control curve that runs past the end comes round to the start.
// That makes every loop seamless by construction, with no crossfade and no level dip.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "random.h"

namespace brevane::soundgen {

inline constexpr int kRate = 44100;

using Buffer = std::vector<float>;

// Whole samples in a duration, rounded.
std::size_t samples(double seconds);
double dbToGain(double db);
double gainToDb(double gain);

// How a buffer's ends behave: Linear for one-shots (silence before and after),
// Circular for loops (the end runs on into the start).
enum class Edge { Linear, Circular };

// How much of a ring's tail a filter runs over before the real pass, so that its state
// at sample 0 is the state it has at the end. Two seconds outlast every filter here.
inline constexpr std::size_t kWarmup = 2 * kRate;

// Runs f(x, i) -> y over the buffer in place. With Edge::Circular, f first runs over the
// last `warmup` samples (output dropped), so the pass starts in the state the ring ends in.
template <class F>
void process(Buffer& b, Edge edge, F&& f, std::size_t warmup = kWarmup) {
    const std::size_t n = b.size();
    if (n == 0) {
        return;
    }
    if (edge == Edge::Circular) {
        const std::size_t w = warmup < n ? warmup : n;
        for (std::size_t i = n - w; i < n; ++i) {
            (void)f(b[i], i);
        }
    }
    for (std::size_t i = 0; i < n; ++i) {
        b[i] = f(b[i], i);
    }
}

// ---- buffers -------------------------------------------------------------------------

double rmsOf(std::span<const float> x);
double peakOf(std::span<const float> x);
void scale(Buffer& b, double gain);
// out += gain * in, up to the shorter length.
void mixInto(Buffer& out, const Buffer& in, double gain = 1.0);
// out[i] *= env[i].
void multiply(Buffer& out, const Buffer& env);
// Scales to the given RMS (no change for silence).
void normaliseRms(Buffer& b, double rms = 1.0);
// Adds a layer to a mix at a level in dB relative to unit RMS, whatever the layer's own
// level: recipes balance their layers by these figures.
void addLayer(Buffer& mix, Buffer layer, double db);

// ---- filters -------------------------------------------------------------------------

// Second-order section (RBJ cookbook forms), transposed direct form II in double.
class Biquad {
  public:
    static Biquad lowpass(double hz, double q = 0.7071);
    static Biquad highpass(double hz, double q = 0.7071);
    // Constant 0 dB peak gain at the centre.
    static Biquad bandpass(double hz, double q);
    static Biquad peaking(double hz, double q, double db);
    static Biquad lowShelf(double hz, double db);
    static Biquad highShelf(double hz, double db);

    float operator()(float x) {
        const double y = b0_ * x + z1_;
        z1_ = b1_ * x - a1_ * y + z2_;
        z2_ = b2_ * x - a2_ * y;
        return static_cast<float>(y);
    }
    void reset() { z1_ = z2_ = 0.0; }
    // Gain of the section at a frequency, for checks.
    double magnitudeAt(double hz) const;

  private:
    Biquad(double b0, double b1, double b2, double a0, double a1, double a2);
    double b0_, b1_, b2_, a1_, a2_;
    double z1_ = 0.0, z2_ = 0.0;
};

// Topology-preserving state variable filter: stays stable and click-free when its
// frequency and Q change every few samples, which Biquad does not.
class Svf {
  public:
    Svf(double hz = 1000.0, double q = 0.7071) { set(hz, q); }
    void set(double hz, double q);
    struct Out {
        float low, band, high;
    };
    Out operator()(float x);
    void reset() { ic1_ = ic2_ = 0.0; }

  private:
    double a1_ = 0, a2_ = 0, a3_ = 0, k_ = 1;
    double ic1_ = 0.0, ic2_ = 0.0;
};

// First-order low-pass; high() gives the complementary high-pass of the same input.
class OnePole {
  public:
    explicit OnePole(double hz = 1000.0) { set(hz); }
    void set(double hz);
    float operator()(float x) {
        y_ += a_ * (x - y_);
        return static_cast<float>(y_);
    }
    float high(float x) { return x - (*this)(x); }

  private:
    double a_ = 1.0, y_ = 0.0;
};

// Chain of biquads applied one after the other.
void filter(Buffer& b, Edge edge, std::vector<Biquad> chain);

// Runs the buffer through an Svf whose frequency follows `hz` (one value per sample,
// applied every 16 samples) at quality q, keeping the chosen output.
enum class Pass { Low, Band, High };
void sweep(Buffer& b, Edge edge, const Buffer& hz, double q, Pass pass);

// ---- noise ---------------------------------------------------------------------------

// Each is scaled to unit RMS. With Edge::Circular the colour filters run round the ring,
// so the noise loops without a seam.
Buffer whiteNoise(Rng& rng, std::size_t n);
Buffer pinkNoise(Rng& rng, std::size_t n, Edge edge);
Buffer brownNoise(Rng& rng, std::size_t n, Edge edge);

// ---- control curves ------------------------------------------------------------------

// A value that wanders smoothly between lo and hi: random knots about `spacing` seconds
// apart joined by Catmull-Rom segments (clamped to [lo, hi]). Circular curves have a whole
// number of knot spans, so the curve's end meets its start with matching slope.
Buffer wander(Rng& rng, std::size_t n, double spacing, double lo, double hi, Edge edge);

// A breakpoint envelope: (seconds, value) points, joined by raised-cosine segments, held
// flat before the first point and after the last.
struct Point {
    double t, v;
};
Buffer envelope(std::size_t n, std::span<const Point> points);

// exp decay reaching -60 dB after t60 seconds, starting at 1 at sample 0.
Buffer decay(std::size_t n, double t60);

// Sine of a (possibly moving) frequency in Hz, phase continuous, amplitude 1.
Buffer sine(std::span<const float> hz, double phase = 0.0);

// ---- resonators ----------------------------------------------------------------------

// A two-pole resonator: a unit impulse rings as a unit-amplitude sine dying away by
// 60 dB in t60 seconds.
class Resonator {
  public:
    Resonator(double hz, double t60);
    float operator()(float x) {
        const double y = b0_ * x + c1_ * y1_ - c2_ * y2_;
        y2_ = y1_;
        y1_ = y;
        return static_cast<float>(y);
    }

  private:
    double b0_, c1_, c2_;
    double y1_ = 0.0, y2_ = 0.0;
};

// A struck object: modes of given frequency, decay and gain, rung in parallel.
struct Mode {
    double hz, t60, gain;
};
class ModalBody {
  public:
    explicit ModalBody(std::span<const Mode> modes);
    float operator()(float x);

  private:
    std::vector<Resonator> res_;
    std::vector<float> gain_;
};

// ---- space ---------------------------------------------------------------------------

// An eight-line feedback delay network: a diffuse tail of the given decay time, darker
// above `dampHz`. Returns the wet signal only.
class Room {
  public:
    Room(double t60, double sizeMs, double dampHz, std::uint64_t seed = 1);
    float operator()(float x);

  private:
    static constexpr int kLines = 8;
    std::vector<float> line_[kLines];
    std::size_t pos_[kLines] = {};
    double gain_[kLines] = {};
    OnePole damp_[kLines];
};

// Adds `wet` of a Room's tail to the buffer.
void reverberate(Buffer& b, Edge edge, double t60, double sizeMs, double dampHz, double wet);

}  // namespace brevane::soundgen
