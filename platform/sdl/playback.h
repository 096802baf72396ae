#pragma once

#include "driver/midas.h"
#include "platform/player/module_player.h"

#include <cstddef>
#include <cstdint>
#include <mutex>

namespace lumenfold {

// The tune that plays and who is told of its sync commands. Whoever has sound to hand out asks here: the device's
// thread or, while no device plays, its stand-in. Keeps nothing that is to be destroyed, because a device that hangs
// may ask once more while the program ends.
class Playback {
  public:
    void run(bool on);
    void start(ModulePlayer& tune);
    void stop();
    void setSyncCallback(MIDASsyncCallback newCallback);

    // The next frames. What is heard by now has its sync commands told. latency: frames from asking to hearing.
    void fill(float* samples, std::size_t frames, std::int64_t latency);

  private:
    std::mutex guard;
    bool running = false;
    ModulePlayer* player = nullptr;
    MIDASsyncCallback callback = nullptr;
};

} // namespace lumenfold
