#include "engine/device_output.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "engine/mix_format.h"
#include "engine/mixer.h"

namespace brevane {

namespace {

constexpr int kBufferFrames = kMixRate * kDeviceBufferMs / 1000;
constexpr auto kCheckInterval = std::chrono::milliseconds(200);
constexpr auto kLostTick = std::chrono::milliseconds(20);
constexpr auto kRetryInterval = std::chrono::seconds(1);

}  // namespace

DeviceOutput::DeviceOutput(DeviceBackend& backend, Mixer& mixer)
    : backend_(backend), mixer_(mixer) {}

DeviceOutput::~DeviceOutput() {
    stop();
}

void DeviceOutput::renderInto(void* mixer, float* out, int frames) {
    static_cast<Mixer*>(mixer)->render(out, frames);
}

bool DeviceOutput::start(int driver) {
    stop();
    const int index = driver >= 0 && driver < backend_.deviceCount() ? driver : -1;
    if (!backend_.open(index, kBufferFrames, &DeviceOutput::renderInto, &mixer_)) {
        return false;
    }
    {
        std::lock_guard lock(mutex_);
        stopRequested_ = false;
    }
    watcher_ = std::thread([this] { watch(); });
    return true;
}

void DeviceOutput::stop() {
    if (watcher_.joinable()) {
        {
            std::lock_guard lock(mutex_);
            stopRequested_ = true;
        }
        wake_.notify_all();
        watcher_.join();
    }
    backend_.close();
}

void DeviceOutput::watch() {
    using Clock = std::chrono::steady_clock;
    // While no device plays, the mix runs here in real time into this buffer.
    std::vector<float> scratch(2 * static_cast<std::size_t>(kBufferFrames));
    bool lost = false;
    Clock::time_point rendered{};
    Clock::time_point nextTry{};
    double owedFrames = 0.0;
    for (;;) {
        {
            std::unique_lock lock(mutex_);
            if (wake_.wait_for(lock, lost ? kLostTick : kCheckInterval,
                               [this] { return stopRequested_; })) {
                return;
            }
        }
        const Clock::time_point now = Clock::now();
        if (!lost) {
            if (backend_.alive()) {
                continue;
            }
            backend_.close();
            lost = true;
            rendered = now;
            nextTry = now;
            owedFrames = 0.0;
        }
        owedFrames += std::chrono::duration<double>(now - rendered).count() * kMixRate;
        rendered = now;
        // After a stall (the machine slept), a second of catching up is enough.
        owedFrames = std::min(owedFrames, static_cast<double>(kMixRate));
        while (owedFrames >= 1.0) {
            const int n = std::min(static_cast<int>(owedFrames), kBufferFrames);
            mixer_.render(scratch.data(), n);
            owedFrames -= n;
        }
        if (now >= nextTry) {
            if (backend_.open(-1, kBufferFrames, &DeviceOutput::renderInto, &mixer_)) {
                lost = false;
            } else {
                nextTry = now + kRetryInterval;
            }
        }
    }
}

}  // namespace brevane
