// The SDL2 audio output.
#pragma once

#include <cstdint>

#include "engine/device_backend.h"

namespace brevane {

// SDL2's output devices; the list index is the driver number. Holds SDL's audio
// subsystem initialised for its lifetime.
class SdlBackend final : public DeviceBackend {
  public:
    SdlBackend();
    ~SdlBackend() override;
    SdlBackend(const SdlBackend&) = delete;
    SdlBackend& operator=(const SdlBackend&) = delete;

    int deviceCount() override;
    std::string deviceName(int index) override;
    bool open(int index, int bufferFrames, RenderCallback callback, void* user) override;
    bool alive() override;
    void close() override;

  private:
    static void onAudio(void* self, std::uint8_t* stream, int bytes);

    bool initialised_ = false;
    std::uint32_t device_ = 0;
    RenderCallback callback_ = nullptr;
    void* user_ = nullptr;
};

}  // namespace brevane
