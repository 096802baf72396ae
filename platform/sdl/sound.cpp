#include "platform/player/sound_output.h"

#include <SDL.h>
#include <algorithm>
#include <stdexcept>
#include <string>

namespace lumenfold {

namespace {

// Sound through the system's device. SDL asks for a buffer while the one before it is heard: what stood in the
// buffer before has then been heard to its first sample at least, and its sync commands are told.
class DeviceSound : public SoundOutput {
  public:
    // A program that ends on an error may leave the device playing a tune that is about to go.
    ~DeviceSound() override {
        if (device != 0)
            DeviceSound::close();
    }
    DeviceSound() = default;
    DeviceSound(const DeviceSound&) = delete;
    DeviceSound& operator=(const DeviceSound&) = delete;

    void open() override;
    void close() override;
    void run() override { SDL_PauseAudioDevice(device, 0); }
    void pause() override { SDL_PauseAudioDevice(device, 1); }
    void start(ModulePlayer& tune) override;
    void stop() override;
    void report(MIDASsyncCallback newCallback) override;

  private:
    static constexpr std::uint16_t bufferFrames = 512; // 11 ms

    // Held while the playback thread is kept out.
    class Lock {
      public:
        explicit Lock(SDL_AudioDeviceID locked) : device(locked) { SDL_LockAudioDevice(device); }
        ~Lock() { SDL_UnlockAudioDevice(device); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

      private:
        SDL_AudioDeviceID device;
    };

    static void fill(void* self, Uint8* bytes, int size);
    void fill(float* samples, std::size_t frames);
    void keepPace(std::size_t frames);

    SDL_AudioDeviceID device = 0;
    std::int64_t latency = 0; // frames from rendering to hearing
    bool silent = false;      // SDL's own substitutes for a device
    std::uint64_t due = 0;    // counter reading at which a substitute's next buffer is due

    // shared with the playback thread
    ModulePlayer* player = nullptr;
    MIDASsyncCallback callback = nullptr;
};

void DeviceSound::open() {
    SDL_AudioSpec wanted{};
    wanted.freq = soundRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = bufferFrames;
    wanted.callback = fill;
    wanted.userdata = this;
    SDL_AudioSpec got{};
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) == 0) {
        device = SDL_OpenAudioDevice(nullptr, 0, &wanted, &got, 0);
        if (device != 0) {
            latency = got.samples;
            const std::string driver = SDL_GetCurrentAudioDriver();
            silent = driver == "dummy" || driver == "disk";
            return;
        }
    }
    const std::string cause = SDL_GetError();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    throw std::runtime_error("no sound device (" + cause +
                             "); to watch without sound, start with SDL_AUDIODRIVER=dummy");
}

void DeviceSound::close() {
    SDL_CloseAudioDevice(device);
    device = 0;
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

void DeviceSound::start(ModulePlayer& tune) {
    const Lock lock(device);
    player = &tune;
}

void DeviceSound::stop() {
    const Lock lock(device);
    player = nullptr;
}

void DeviceSound::report(MIDASsyncCallback newCallback) {
    const Lock lock(device);
    callback = newCallback;
}

void DeviceSound::fill(void* self, Uint8* bytes, int size) {
    static_cast<DeviceSound*>(self)->fill(reinterpret_cast<float*>(bytes),
                                          static_cast<std::size_t>(size) / (2 * sizeof(float)));
}

// The substitutes wait for whole milliseconds and so would play some percent too fast: they are held to the clock.
void DeviceSound::keepPace(std::size_t frames) {
    const std::uint64_t frequency = SDL_GetPerformanceFrequency();
    const std::uint64_t now = SDL_GetPerformanceCounter();
    if (now < due)
        SDL_Delay(static_cast<Uint32>((due - now) * 1000 / frequency + 1));
    const bool lost = now > due + frequency / 5; // after a pause a new count begins
    due = (lost ? now : due) + frames * frequency / soundRate;
}

void DeviceSound::fill(float* samples, std::size_t frames) {
    if (silent)
        keepPace(frames);
    if (player == nullptr) {
        std::fill_n(samples, frames * 2, 0.0F);
        return;
    }
    const std::int64_t heard = player->position() - latency;
    SyncCommand command;
    while (callback != nullptr && heard >= 0 && player->takeSync(heard, command))
        callback(command.value, command.order, command.row);
    player->render(samples, frames);
}

} // namespace

SoundOutput& soundOutput() {
    static DeviceSound output;
    return output;
}

} // namespace lumenfold
