#include "core/random.h"

namespace lumenfold {

namespace {
std::uint32_t state = 1;
} // namespace

std::int32_t rand() {
    state = state * 214013U + 2531011U;
    return static_cast<std::int32_t>(state >> 16 & 0x7FFF);
}

void resetRand() {
    state = 1;
}

} // namespace lumenfold
