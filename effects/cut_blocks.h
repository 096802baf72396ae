#pragma once

#include "core/pixel.h"

#include <cstdint>

namespace lumenfold {

// Blackens the blocks of 32 x 24 pixels along one diagonal of a 512-pixel-wide picture: steps blocks from the top row
// of blocks down, the last one at the right edge. steps: at most 16.
void cutDiagonal(Pixel32* picture, std::uint32_t steps);

} // namespace lumenfold
