#pragma once

#include <cstdint>

namespace lumenfold {

// A 32-bit pixel 0x00RRGGBB: red in bits 16 to 23, green in 8 to 15, blue in 0 to 7, the top byte zero.
// Blocks of pixels are row-major, top row first, without padding between the rows.
using Pixel32 = std::uint32_t;

// A texture is a block of 256 x 256 pixels: texel (u, v) stands at index v x 256 + u.
inline constexpr int textureSide = 256;
inline constexpr int texturePixels = textureSide * textureSide;

} // namespace lumenfold
