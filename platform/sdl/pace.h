#pragma once

#include <chrono>
#include <cstddef>

namespace lumenfold {

using SoundClock = std::chrono::steady_clock;
using SoundTime = SoundClock::time_point;

// Sound that has been handed out, measured against the clock. Frames are counted, not their times added up, so nothing
// is lost to rounding.
class Pace {
  public:
    // Begins a new count: nothing has been handed out.
    void begin(SoundTime at);

    void handOut(std::size_t frames);

    // When all the sound handed out has passed, never too early.
    SoundTime end() const;

    // For sound that is late and has to make up for it: begins a new count if it is more than a second late.
    void limitDelay(SoundTime now);

  private:
    SoundTime origin{};
    std::size_t counted = 0; // frames since origin, less than a second
};

} // namespace lumenfold
