#pragma once

#include "platform/sdl/pace.h"
#include "platform/sdl/playback.h"

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>

namespace lumenfold {

// The system's sound device, which may come late, go away or hang. None of these calls waits for it.
class SoundDevice {
  public:
    enum class State { opening, open, lost };

    virtual ~SoundDevice() = default;

    // Begins to open a device, after the one before was lost.
    virtual void open() = 0;

    virtual State state() = 0;

    // What is wrong with a lost device, for people.
    virtual std::string fault() = 0;
};

// Keeps the tune at the clock's speed whatever becomes of the device, because the show follows its sync commands. The
// device's requests drive the tune. When they stop, the keeper plays the tune in silence, making up for what it
// missed, until the device asks again; a lost device is opened anew.
class SoundKeeper {
  public:
    static constexpr std::size_t silentFrames = 512; // handed out at a time
    static constexpr std::chrono::milliseconds step{10};
    static constexpr std::chrono::milliseconds patience{500};       // with a device that has run out of sound
    static constexpr std::chrono::milliseconds firstPatience{1500}; // with the first device: the tune waits
    static constexpr std::chrono::milliseconds retryInterval{2000};

    SoundKeeper(Playback& played, SoundDevice& kept) : playback(played), device(kept) {}

    // The first device has been asked for.
    void begin(SoundTime now);

    // Sound for the device, in its own thread.
    void request(float* samples, std::size_t frames, std::int64_t latency, SoundTime now);

    // To be called every step from one thread.
    void look(SoundTime now);

  private:
    bool advance(SoundTime now, SoundDevice::State state);
    void playInSilence(SoundTime now);

    Playback& playback;
    SoundDevice& device;
    SoundTime waitUntil{}; // for the first device
    SoundTime nextTry{};
    bool announced = false; // that the device is silent

    std::mutex guard;   // of what both threads use
    Pace pace;          // of the device and of silence
    bool asked = false; // by any device so far
    bool silent = false;
};

} // namespace lumenfold
