#pragma once

#include <cstddef>
#include <cstdint>

namespace lumenfold {

// Holds whoever plays without a device to the speed of the clock.
class Pace {
  public:
    // Returns when the sound before these frames has passed. What is late is made up for, up to a second; after a
    // longer pause a new count begins.
    void wait(std::size_t frames);

  private:
    std::uint64_t due = 0; // counter reading
};

} // namespace lumenfold
