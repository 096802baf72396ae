#pragma once

#include "core/pixel.h"

namespace lumenfold {

// Fills a 256 x 256 texture from a 512 x 384 picture, nearest pixels: texel (u, v) is the picture's pixel in column
// 2u of row trunc(1.5v).
void textureFromPicture(Pixel32* texture, const Pixel32* picture);

} // namespace lumenfold
