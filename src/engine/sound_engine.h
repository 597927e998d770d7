// The one layer between the program and the sound output: samples, channels and
// the effects on the whole mix.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "engine/effects/effect_params.h"

namespace brevane {

class MediaPlayer;

// A loaded sample. 0 means "no sample": every call taking it then does nothing.
using SampleHandle = std::uint32_t;

// A playing channel. The handle carries the channel's generation: once its sound has
// ended, been stopped or its channel was taken by another play, every call with the
// handle does nothing. 0 means "no channel".
using ChannelHandle = std::uint32_t;

enum class LoopMode { Off, Normal };

// Mixes 32 channels of mono samples to stereo at 44100 Hz.
//
// Thread-safety: every member is called from the interface thread only. An
// implementation may mix on a thread of its own, but the interface thread never waits
// on it for longer than a constant-time hand-over.
class SoundEngine {
  public:
    virtual ~SoundEngine() = default;

    // Output devices, the driver number being the index in this list. A device engine
    // lists the system's default output first, as driver 0.
    virtual int driverCount() = 0;
    // Empty for a number outside the list.
    virtual std::string driverName(int driver) = 0;

    // Opens the output at 44100 Hz with 32 channels and a 100 ms buffer. False on
    // failure; the caller tells the user and ends.
    virtual bool start(int driver) = 0;
    // Stops the output; every channel and sample is released. Safe to call twice.
    virtual void close() = 0;

    // Loads the whole file, decoded to mono at its own rate, without waiting for the
    // decode: the sample may be played, freed and changed at once, and a channel playing
    // it starts when its frames are in. 0 for a file that is not there (missing, a
    // folder); a file there that does not decode gives a sample that plays nothing.
    // Never a message.
    virtual SampleHandle loadSample(const std::filesystem::path& file) = 0;
    // Decodes the file before returning, on the caller's thread: 0 on any failure
    // (missing, unreadable, not audio, empty, a folder). For a file the user has just
    // chosen, where the answer decides what they are told.
    virtual SampleHandle loadCheckedSample(const std::filesystem::path& file) = 0;
    // Stops every channel playing the sample first.
    virtual void freeSample(SampleHandle sample) = 0;

    // Starts the sample on a free channel at full volume, centre pan, no loop and the
    // sample's own rate. When all channels play, the one-shot that started earliest
    // gives its channel; a looping channel only when no one-shot plays. A sample of 0
    // or a freed one gives a handle on which every later call is ignored.
    virtual ChannelHandle play(SampleHandle sample) = 0;
    virtual void stop(ChannelHandle channel) = 0;
    // Linear in amplitude, 0 to 255; above 255 acts as 255, below 0 as 0.
    virtual void setVolume(ChannelHandle channel, int volume) = 0;
    // Equal-power, 0 full left .. 255 full right; the ends are silent on the other side.
    virtual void setPan(ChannelHandle channel, int pan) = 0;
    virtual void setLoopMode(ChannelHandle channel, LoopMode mode) = 0;
    // Playback rate in Hz, clamped to the range the mixer supports (1,000 to 200,000
    // at least).
    virtual void setFrequency(ChannelHandle channel, int hz) = 0;
    virtual void setPaused(ChannelHandle channel, bool paused) = 0;
    virtual void setAllPaused(bool paused) = 0;
    // True while the channel's sound has not ended nor been stopped (paused counts as
    // playing).
    virtual bool isPlaying(ChannelHandle channel) = 0;

    // Effects on the whole mix, applied in the order they were enabled. enableEffect
    // returns the effect's id, or -1 when it cannot be added.
    virtual int enableEffect(EffectKind kind) = 0;
    virtual void disableEffects() = 0;
    virtual void setEqualizerBand(int id, const EqualizerBandParams& p) = 0;
    virtual void setReverb(int id, const ReverbParams& p) = 0;
    virtual void setEcho(int id, const EchoParams& p) = 0;

    // The music bus beside the effects: one file streamed at a time. Null where the
    // engine has none (then the music players play nothing).
    virtual MediaPlayer* mediaPlayer() { return nullptr; }
};

}  // namespace brevane
