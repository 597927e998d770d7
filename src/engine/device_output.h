// Keeps the mixer playing on a sound device, across the loss of that device.
#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

#include "engine/device_backend.h"

namespace brevane {

class Mixer;

// Plays the mixer on a device of the backend. A watcher thread checks the device; when
// it has gone away (a headset unplugged), the watcher keeps the mix running in real time
// (sounds go on and end as if heard) and opens the default device as soon as one is
// available, where the mix resumes.
//
// Thread: start() and stop() on the interface thread.
class DeviceOutput {
  public:
    DeviceOutput(DeviceBackend& backend, Mixer& mixer);
    ~DeviceOutput();
    DeviceOutput(const DeviceOutput&) = delete;
    DeviceOutput& operator=(const DeviceOutput&) = delete;

    // Opens device `driver` of the backend's list, or the default device when the list
    // does not have that number. False when no device opens.
    bool start(int driver);
    // Stops the output; when it returns, nothing mixes any more. Safe to call twice.
    void stop();
    bool running() const { return watcher_.joinable(); }

  private:
    static void renderInto(void* mixer, float* out, int frames);
    void watch();

    DeviceBackend& backend_;
    Mixer& mixer_;
    std::thread watcher_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool stopRequested_ = false;
};

}  // namespace brevane
