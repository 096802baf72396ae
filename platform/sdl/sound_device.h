#pragma once

#include "platform/sdl/pace.h"
#include "platform/sdl/playback.h"

#include <SDL.h>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace lumenfold {

// The system's sound device, which may go away or hang while it plays. SDL asks for a buffer while the one before it is
// heard: what stood in the buffer before has then been heard to its first sample at least. Must not be destroyed before
// the program has ended, for the same reason as Playback.
class SoundDevice {
  public:
    static constexpr std::size_t bufferFrames = 512; // 11 ms

    explicit SoundDevice(Playback& played) : playback(played) {}

    // Throws std::runtime_error with the cause.
    void open();

    // Within a second; a device that hangs is left behind, and SDL's sound with it, for ever.
    void close();

    // Whether the device asks for sound. To be called again and again, a hundred times a second at most: it counts
    // the calls between which the device has asked for nothing.
    bool works();

    // Begins to open a device again if the one before is gone, on a thread of its own, because that may hang as well;
    // a device that only hangs is given its time.
    void reopen();

  private:
    static void fill(void* self, Uint8* bytes, int size);
    void fill(float* samples, std::size_t frames);
    bool openDevice();
    bool gone() const;

    Playback& playback;
    const char* driver = nullptr;
    bool stuck = false;
    std::uint32_t seen = 0; // requests, at the last look

    // shared with the thread that opens a device again
    std::atomic<bool> reopening = false;
    std::atomic<std::uint32_t> patience = 0; // looks at a silent device until it counts as hanging

    // shared with the playback thread
    std::atomic<SDL_AudioDeviceID> device = 0;
    std::atomic<std::uint32_t> requests = 0;
    std::int64_t latency = 0; // frames from rendering to hearing
    bool silent = false;      // SDL's own substitutes for a device
    Pace pace;                // of those
};

} // namespace lumenfold
