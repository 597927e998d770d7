// The sound device under the mixer, behind an interface so that the recovery from a
// lost device can be tested without hardware.
#pragma once

#include <string>

namespace brevane {

// Called on the backend's audio thread for every buffer: fill `frames` interleaved
// stereo float frames at `out`.
using RenderCallback = void (*)(void* user, float* out, int frames);

// One output device at a time, stereo float at the mix rate.
//
// Thread: open, alive and close are called by one thread at a time (the interface
// thread, then the device watcher); deviceCount and deviceName also from the interface
// thread meanwhile. The callback runs on a thread of the backend's own, and close()
// returns only once the callback can no longer run.
class DeviceBackend {
  public:
    virtual ~DeviceBackend() = default;
    virtual int deviceCount() = 0;
    virtual std::string deviceName(int index) = 0;
    // Opens device `index` of the list, or the system's default device for -1, with a
    // buffer of about `bufferFrames`, and starts calling `callback`.
    virtual bool open(int index, int bufferFrames, RenderCallback callback, void* user) = 0;
    // False once the open device has gone away (unplugged).
    virtual bool alive() = 0;
    // Stops the callback and closes the device; nothing when none is open.
    virtual void close() = 0;
};

}  // namespace brevane
