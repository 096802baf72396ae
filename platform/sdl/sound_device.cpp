#include "platform/sdl/sound_device.h"

#include <algorithm>
#include <chrono>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

namespace lumenfold {

namespace {
constexpr std::uint32_t looks = 150; // 3 s
} // namespace

void SoundDevice::open() {
    if (stuck || (SDL_InitSubSystem(SDL_INIT_AUDIO) == 0 && openDevice()))
        return;
    const std::string cause = SDL_GetError();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    throw std::runtime_error("no sound device (" + cause +
                             "); to watch without sound, start with SDL_AUDIODRIVER=dummy");
}

bool SoundDevice::openDevice() {
    SDL_AudioSpec wanted{};
    wanted.freq = soundRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = bufferFrames;
    wanted.callback = fill;
    wanted.userdata = this;
    SDL_AudioSpec got{};
    const SDL_AudioDeviceID opened = SDL_OpenAudioDevice(nullptr, 0, &wanted, &got, 0);
    if (opened == 0)
        return false;
    latency = got.samples;
    driver = SDL_GetCurrentAudioDriver();
    silent = std::string(driver) == "dummy" || std::string(driver) == "disk";
    patience = looks;
    device = opened;
    SDL_PauseAudioDevice(opened, 0);
    return true;
}

// SDL waits for its playback thread, which a hanging device may keep.
void SoundDevice::close() {
    const SDL_AudioDeviceID closing = device.exchange(0);
    const auto closed = std::make_shared<std::promise<void>>();
    const std::future<void> done = closed->get_future();
    std::thread([closing, closed] {
        SDL_CloseAudioDevice(closing);
        closed->set_value();
    }).detach();
    stuck = done.wait_for(std::chrono::seconds(1)) != std::future_status::ready;
    if (!stuck)
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool SoundDevice::gone() const {
    const SDL_AudioDeviceID opened = device;
    return opened == 0 || SDL_GetAudioDeviceStatus(opened) == SDL_AUDIO_STOPPED;
}

bool SoundDevice::works() {
    const std::uint32_t asked = requests;
    if (asked != seen)
        patience = looks;
    else if (patience > 0)
        --patience;
    seen = asked;
    return patience > 0 && !gone();
}

// The driver stays the same: the others may have much to say about devices that are not there.
void SoundDevice::reopen() {
    if (stuck || reopening || !gone())
        return;
    reopening = true;
    device = 0;
    std::thread([this] {
        SDL_AudioQuit();
        if (SDL_AudioInit(driver) == 0 && SDL_GetNumAudioDevices(0) != 0)
            openDevice();
        reopening = false;
    }).detach();
}

void SoundDevice::fill(void* self, Uint8* bytes, int size) {
    static_cast<SoundDevice*>(self)->fill(reinterpret_cast<float*>(bytes),
                                          static_cast<std::size_t>(size) / (2 * sizeof(float)));
}

// SDL goes on asking for a device that is gone, at a pace of its own, while the stand-in plays.
// Its substitutes wait for whole milliseconds and so would play some percent too fast.
void SoundDevice::fill(float* samples, std::size_t frames) {
    ++requests;
    if (gone()) {
        std::fill_n(samples, frames * 2, 0.0F);
        return;
    }
    if (silent)
        pace.wait(frames);
    playback.fill(samples, frames, latency);
}

} // namespace lumenfold
