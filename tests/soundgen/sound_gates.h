// The quality gates every stock sound must pass, as reusable checks: each returns a
// verdict with the measured figure, so a failing test says by how much it failed.
// They work on the samples as written (16-bit) or as floats with full scale 1.0.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "dsp.h"
#include "sound_file.h"

namespace brevane::soundgen::gates {

struct Verdict {
    bool ok = true;
    std::string why;  // the figures, also when it passes
    explicit operator bool() const { return ok; }
};

// 44100 Hz, one channel, 16-bit PCM, WAV or FLAC content as asked.
Verdict format(const SoundData& d, bool wantWav);
// Loops last 20 to 40 s.
Verdict loopLength(std::size_t frames);
// The step from the last sample to the first is no larger than the 99.9th percentile of
// the steps inside, and the level of the last 50 ms is within 1 dB of the first 50 ms.
Verdict seamlessWrap(std::span<const float> ring);
// Only the first half of that: no click at the wrap. For rings that begin on a strike
// (the alarm chime), where the level rightly leaps at the wrap.
Verdict noClickAtWrap(std::span<const float> ring);
// No stretch of the loop comes back within it (see innerRepetition).
Verdict noInnerRepetition(std::span<const float> ring);
// -20 dBFS RMS within 2 dB.
Verdict loopLoudness(std::span<const float> x);
// Peak at -3 dBFS within 1 dB.
Verdict oneShotPeak(std::span<const float> x);
// No sample at either end of the 16-bit range.
Verdict noFullScale(std::span<const std::int16_t> pcm);
// Mean under 0.1% of full scale.
Verdict dcOffset(std::span<const std::int16_t> pcm);
// The sound is under way within its first 5 ms: it reaches 30 dB under its peak there.
Verdict onsetAtStart(std::span<const float> x);
// It ends in a fade to silence: the last 20 ms lie 50 dB under the peak, the last sample
// within 16 steps of zero, and no more than half a second of near silence (60 dB under
// the peak) trails behind the sound.
Verdict fadesToSilence(std::span<const float> x);
// Two files of one bank are alike when both the correlation of their 20 ms level
// envelopes and that of their third-octave spectra (dB) reach 0.95. Loops compare over
// the shorter length, one-shots with the shorter padded by silence. The fingerprint
// holds what the comparison needs, so a bank's files are measured once each.
struct Fingerprint {
    std::vector<double> envelope, spectrum;
};
Fingerprint fingerprint(std::span<const float> x);
Verdict notAlike(const Fingerprint& a, const Fingerprint& b, bool loops);
// Every sample equals the one `period` later, round the ring, the length is a whole
// number of periods, and no shorter period fits.
Verdict exactPeriod(std::span<const std::int16_t> pcm, std::size_t period);

}  // namespace brevane::soundgen::gates
