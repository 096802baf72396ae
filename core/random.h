#pragma once

#include <cstdint>

namespace lumenfold {

// The program's one pseudo-random generator: state = state x 214013 + 2531011 (modulo 2^32), result bits 16 to
// 30 of the state, 0 to 32767. The state starts at 1. Main thread only; the order of the calls is part of the
// show, because the object reader and the scenes draw from the same sequence.
std::int32_t rand();

// Puts the generator back to its first state (a new run of the program within one process).
void resetRand();

} // namespace lumenfold
