#pragma once

#include "core/pixel.h"

#include <cstdint>

namespace lumenfold {

// A texel of a 256 x 256 texture at coordinates in 16.16; both wrap.
inline Pixel32 texelAt(const Pixel32* texture, std::uint32_t column, std::uint32_t row) {
    return texture[(row >> 8 & 0xFF00) | (column >> 16 & 0xFF)];
}

} // namespace lumenfold
