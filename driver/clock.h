#pragma once

#include <cstdint>

// The high-resolution counter, implemented by the platform.

namespace lumenfold {

// Counts a second; more than 0 and constant.
std::int64_t counterFrequency();

// Counts from the program's start on, never backwards. Counting from the start keeps demo time small: as a 32-bit
// float it would move in visible steps on a machine that has been up for days.
std::int64_t readCounter();

// Called again and again while the demo has nothing to draw and waits for the music: gives the processor away for
// about a millisecond, or moves a virtual clock on.
void idle();

} // namespace lumenfold
