#include "engine/sdl_backend.h"

#include <SDL.h>

#include <algorithm>

#include "engine/mix_format.h"

namespace brevane {

SdlBackend::SdlBackend() {
    // The program catches SIGTERM and SIGINT itself to save the session on the way out;
    // SDL must never take those signals over, whichever subsystems it starts.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    initialised_ = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
}

SdlBackend::~SdlBackend() {
    close();
    if (initialised_) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
}

int SdlBackend::deviceCount() {
    if (!initialised_) {
        return 0;
    }
    return std::max(0, SDL_GetNumAudioDevices(0));
}

std::string SdlBackend::deviceName(int index) {
    if (!initialised_ || index < 0 || index >= deviceCount()) {
        return {};
    }
    const char* name = SDL_GetAudioDeviceName(index, 0);
    return name != nullptr ? std::string(name) : std::string();
}

bool SdlBackend::open(int index, int bufferFrames, RenderCallback callback, void* user) {
    close();
    if (!initialised_) {
        return false;
    }
    // The name is copied first: SDL's list may change under a later call.
    std::string name;
    if (index >= 0) {
        name = deviceName(index);
    }
    callback_ = callback;
    user_ = user;
    SDL_AudioSpec want{};
    want.freq = kMixRate;
    want.format = AUDIO_F32SYS;
    want.channels = 2;
    want.samples = static_cast<Uint16>(bufferFrames);
    want.callback = &SdlBackend::onAudio;
    want.userdata = this;
    SDL_AudioSpec have{};
    // No change allowed: SDL converts to whatever the device wants, and our callback always
    // gets exactly this format and buffer length. (Letting SDL change the buffer length
    // makes it hand the callback more bytes than the buffer holds.)
    device_ = SDL_OpenAudioDevice(name.empty() ? nullptr : name.c_str(), 0, &want, &have, 0);
    if (device_ == 0) {
        return false;
    }
    SDL_PauseAudioDevice(device_, 0);
    return true;
}

bool SdlBackend::alive() {
    return device_ != 0 && SDL_GetAudioDeviceStatus(device_) != SDL_AUDIO_STOPPED;
}

void SdlBackend::close() {
    if (device_ != 0) {
        SDL_CloseAudioDevice(device_);  // waits for the callback to return
        device_ = 0;
    }
}

void SdlBackend::onAudio(void* self, std::uint8_t* stream, int bytes) {
    auto* backend = static_cast<SdlBackend*>(self);
    const int frames = bytes / static_cast<int>(2 * sizeof(float));
    backend->callback_(backend->user_, reinterpret_cast<float*>(stream), frames);
}

}  // namespace brevane
