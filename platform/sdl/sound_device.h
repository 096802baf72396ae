#pragma once

#include "platform/sdl/sound_keeper.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

namespace lumenfold {

// SDL's sound device. Whatever may wait for a sound server runs on a thread of its own; one that hangs is abandoned
// together with its device. SDL's sound is started at most once in the life of a process. Must not be destroyed,
// because an abandoned thread may wake up at any time.
class SdlSoundDevice : public SoundDevice {
  public:
    // Receives the device's requests; before the first open().
    void connect(SoundKeeper& newKeeper) { keeper = &newKeeper; }

    void open() override;
    State state() override;
    std::string fault() override;

    // Gives the device back if that takes no longer than a moment. For the program's end.
    void release();

  private:
    struct Link;

    void tryToOpen(const std::shared_ptr<Link>& link);
    std::string openDevice(Link& link);

    SoundKeeper* keeper = nullptr;
    std::shared_ptr<Link> current;
    std::atomic<State> outcome = State::lost; // of the last attempt
    bool started = false;                     // SDL's sound; belongs to the attempt that runs

    std::mutex guard;
    std::string cause = "no sound device"; // of the last failure
};

} // namespace lumenfold
