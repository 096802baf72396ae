#include "platform/player/sound_output.h"
#include "platform/sdl/sound_device.h"

#include <SDL.h>
#include <atomic>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>

namespace lumenfold {

namespace {

// How long the main thread waits for the first device: the viewer's keys wait as well.
constexpr std::chrono::milliseconds firstWait{400};

// Never destroyed: the thread of a device that hangs may use it while the program ends.
struct System {
    Playback playback;
    SdlSoundDevice device;
    SoundKeeper keeper{playback, device};
};

// Whether SDL_AUDIODRIVER names only drivers that SDL does not have.
bool unknownDriver() {
    const char* wish = std::getenv("SDL_AUDIODRIVER");
    if (wish == nullptr || *wish == 0)
        return false;
    std::stringstream names(wish);
    for (std::string name; std::getline(names, name, ',');)
        for (int driver = 0; driver < SDL_GetNumAudioDrivers(); ++driver)
            if (name == SDL_GetAudioDriver(driver) || name == "pulse")
                return false;
    return true;
}

// Sound through the system's device, or silence while there is none.
class DeviceSound : public SoundOutput {
  public:
    DeviceSound() = default;
    ~DeviceSound() override;
    DeviceSound(const DeviceSound&) = delete;
    DeviceSound& operator=(const DeviceSound&) = delete;

    void open() override;
    void close() override;
    void run() override { system.playback.run(true); }
    void pause() override { system.playback.run(false); }
    void start(ModulePlayer& tune) override { system.playback.start(tune); }
    void stop() override { system.playback.stop(); }
    void setSyncCallback(MIDASsyncCallback callback) override { system.playback.setSyncCallback(callback); }

  private:
    void openFirst();

    System& system = *new System;
    bool begun = false;
    std::thread looking;
    std::atomic<bool> ending = false;
};

// A program that ends on an error may leave the device playing a tune that is about to go.
DeviceSound::~DeviceSound() {
    system.playback.stop();
    if (looking.joinable())
        close();
    system.device.release();
}

void DeviceSound::open() {
    if (!begun)
        openFirst();
    ending = false;
    looking = std::thread([this] {
        while (!ending) {
            system.keeper.look(SoundClock::now());
            std::this_thread::sleep_for(SoundKeeper::step);
        }
    });
}

void DeviceSound::openFirst() {
    system.device.connect(system.keeper);
    system.device.open();
    const SoundTime end = SoundClock::now() + firstWait;
    while (system.device.state() == SoundDevice::State::opening && SoundClock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    if (system.device.state() == SoundDevice::State::lost && unknownDriver())
        throw std::runtime_error(system.device.fault() + "; to watch without sound, start with SDL_AUDIODRIVER=dummy");
    system.keeper.begin(SoundClock::now());
    begun = true;
}

// The device stays and goes on in silence, so that the next tune finds it open.
void DeviceSound::close() {
    ending = true;
    looking.join();
}

} // namespace

SoundOutput& soundOutput() {
    static DeviceSound output;
    return output;
}

} // namespace lumenfold
