#include "platform/sdl/sound_device.h"

#include "platform/sdl/pulse_server.h"

#include <SDL.h>
#include <chrono>
#include <future>
#include <thread>

namespace lumenfold {

namespace {
constexpr Uint16 bufferFrames = 512; // 11 ms
constexpr std::chrono::milliseconds closingTime{300};
} // namespace

// One device from the attempt to open it until SDL has closed it. SDL asks for a buffer while the one before it is
// heard: what stood in the buffer before has then been heard to its first sample at least.
struct SdlSoundDevice::Link {
    explicit Link(SoundKeeper& listening) : keeper(listening) {}

    bool gone() const { return SDL_GetAudioDeviceStatus(id) == SDL_AUDIO_STOPPED; }

    static void fill(void* self, Uint8* bytes, int size);
    void fill(float* samples, std::size_t frames);

    static std::future<void> close(const std::shared_ptr<Link>& link);

    SoundKeeper& keeper;
    std::atomic<bool> abandoned = false;
    std::atomic<SDL_AudioDeviceID> id = 0;
    std::int64_t latency = 0; // frames from rendering to hearing
    bool substitute = false;  // a driver of SDL's that makes no sound
    Pace pace;                // of a substitute
};

void SdlSoundDevice::Link::fill(void* self, Uint8* bytes, int size) {
    static_cast<Link*>(self)->fill(reinterpret_cast<float*>(bytes),
                                   static_cast<std::size_t>(size) / (2 * sizeof(float)));
}

// SDL goes on asking for a device that is gone, at a pace of its own. Its substitutes wait for whole milliseconds and
// so would play some percent too fast.
void SdlSoundDevice::Link::fill(float* samples, std::size_t frames) {
    if (substitute) {
        std::this_thread::sleep_until(pace.end());
        pace.limitDelay(SoundClock::now());
        pace.handOut(frames);
    }
    if (abandoned || gone())
        std::fill_n(samples, frames * 2, 0.0F);
    else
        keeper.request(samples, frames, latency, SoundClock::now());
}

// SDL waits for the device's thread, which a sound server that hangs may keep for ever.
std::future<void> SdlSoundDevice::Link::close(const std::shared_ptr<Link>& link) {
    link->abandoned = true;
    std::promise<void> closed;
    std::future<void> done = closed.get_future();
    std::thread([link, closed = std::move(closed)]() mutable {
        SDL_CloseAudioDevice(link->id);
        closed.set_value();
    }).detach();
    return done;
}

void SdlSoundDevice::open() {
    if (current != nullptr)
        Link::close(current);
    current = std::make_shared<Link>(*keeper);
    outcome = State::opening;
    std::thread([this, link = current] { tryToOpen(link); }).detach();
}

void SdlSoundDevice::tryToOpen(const std::shared_ptr<Link>& link) {
    const std::string failure = openDevice(*link);
    {
        const std::lock_guard lock(guard);
        cause = failure.empty() ? "the sound device is lost" : "no sound device (" + failure + ")";
    }
    outcome = failure.empty() ? State::open : State::lost;
}

// Returns why there is none. Only SDL's sound is started, not its events, which belong to the main thread.
std::string SdlSoundDevice::openDevice(Link& link) {
    const bool first = !started;
    if (first && soundServerWithoutSink())
        return "the sound server has none";
    started = started || SDL_AudioInit(nullptr) == 0;
    if (!started)
        return SDL_GetError();
    const std::string driver = SDL_GetCurrentAudioDriver();
    if (!first && driver == "alsa" && SDL_GetNumAudioDevices(0) == 0)
        return "no sound card"; // ALSA would fill the terminal with what it thinks of that
    SDL_AudioSpec wanted{};
    wanted.freq = soundRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = bufferFrames;
    wanted.callback = Link::fill;
    wanted.userdata = &link;
    SDL_AudioSpec got{};
    link.id = SDL_OpenAudioDevice(nullptr, 0, &wanted, &got, 0);
    if (link.id == 0)
        return SDL_GetError();
    link.substitute = driver == "dummy" || driver == "disk";
    link.latency = got.samples;
    SDL_PauseAudioDevice(link.id, 0);
    return "";
}

SoundDevice::State SdlSoundDevice::state() {
    return outcome == State::open && current->gone() ? State::lost : outcome.load();
}

std::string SdlSoundDevice::fault() {
    const std::lock_guard lock(guard);
    return cause;
}

void SdlSoundDevice::release() {
    if (outcome == State::open)
        Link::close(current).wait_for(closingTime);
}

} // namespace lumenfold
