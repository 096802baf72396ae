#include "platform/player/sound_output.h"
#include "platform/sdl/sound_device.h"

#include <atomic>
#include <cstdio>
#include <thread>

namespace lumenfold {

namespace {

Playback playback;
SoundDevice device(playback);

// Sound through the system's device. The show hangs on the tune's sync commands: while no device plays any more, a
// stand-in lets the tune go on in silence at its speed.
class DeviceSound : public SoundOutput {
  public:
    DeviceSound() = default;
    ~DeviceSound() override;
    DeviceSound(const DeviceSound&) = delete;
    DeviceSound& operator=(const DeviceSound&) = delete;

    void open() override;
    void close() override;
    void run() override { playback.run(true); }
    void pause() override { playback.run(false); }
    void start(ModulePlayer& tune) override { playback.start(tune); }
    void stop() override { playback.stop(); }
    void setSyncCallback(MIDASsyncCallback callback) override { playback.setSyncCallback(callback); }

  private:
    void keepPlaying();
    void standIn();

    std::thread keeper;
    std::atomic<bool> ending = false;
    bool lost = false; // the device; from one tune to the next
    Pace pace;
    std::uint64_t nextTry = 0; // counter reading
};

// A program that ends on an error may leave the device playing a tune that is about to go.
DeviceSound::~DeviceSound() {
    playback.stop();
    if (keeper.joinable())
        DeviceSound::close();
}

void DeviceSound::open() {
    if (!lost)
        device.open();
    ending = false;
    keeper = std::thread([this] { keepPlaying(); });
}

void DeviceSound::close() {
    ending = true;
    keeper.join();
    if (!lost)
        device.close();
}

void DeviceSound::keepPlaying() {
    while (!ending) {
        const bool works = device.works();
        if (!works && !lost)
            std::fputs("lumenfold: the sound device is lost; the tune goes on in silence until there is one again\n",
                       stderr);
        lost = !works;
        if (works)
            SDL_Delay(20);
        else
            standIn();
    }
}

void DeviceSound::standIn() {
    float samples[SoundDevice::bufferFrames * 2];
    pace.wait(SoundDevice::bufferFrames);
    playback.fill(samples, SoundDevice::bufferFrames, 0);
    const std::uint64_t now = SDL_GetPerformanceCounter();
    if (now < nextTry)
        return;
    device.reopen();
    nextTry = now + 2 * SDL_GetPerformanceFrequency();
}

} // namespace

SoundOutput& soundOutput() {
    static DeviceSound output;
    return output;
}

} // namespace lumenfold
