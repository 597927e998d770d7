// The fixed format of the mix.
#pragma once

namespace brevane {

// Output rate of the mix, in frames per second.
inline constexpr int kMixRate = 44100;
// Channels a play can take.
inline constexpr int kChannelCount = 32;
// Length of the device buffer, in milliseconds.
inline constexpr int kDeviceBufferMs = 100;
// Commands take effect at the start of a sub-block, a fixed grid of frames counted from
// the first frame ever rendered, so that the same calls always give the same samples.
inline constexpr int kSubBlockFrames = 64;
// Starts, stops, pauses and changes of volume or pan ramp over this many frames
// (about 5.8 ms): short enough to feel immediate, long enough not to click. A
// multiple of the sub-block.
inline constexpr int kRampFrames = 256;
// Playback rates are held to this range, in Hz.
inline constexpr int kMinFrequency = 100;
inline constexpr int kMaxFrequency = 705600;

}  // namespace brevane
