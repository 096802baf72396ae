#pragma once

#include "driver/midas.h"
#include "platform/player/module_player.h"

#include <cstddef>
#include <cstdint>
#include <mutex>

namespace lumenfold {

// The tune that plays and the callback for its sync commands. Shared by the main thread, which starts and stops tunes,
// and the threads that ask for sound.
class Playback {
  public:
    void run(bool on);
    void start(ModulePlayer& tune); // not owned
    void stop();
    void setSyncCallback(MIDASsyncCallback newCallback);

    // Delivers the sync commands that are heard by now, then renders the next frames. latency: frames from this call
    // to their being heard.
    void fill(float* samples, std::size_t frames, std::int64_t latency);

  private:
    std::mutex guard;
    bool running = false;
    ModulePlayer* player = nullptr;
    MIDASsyncCallback callback = nullptr;
};

} // namespace lumenfold
