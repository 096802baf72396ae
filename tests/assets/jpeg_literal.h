#pragma once

#include "core/pixel.h"

#include <cstdint>
#include <vector>

namespace lumenfold::test {

// The decoder as the formulas are written: bit by bit, the whole sum for every pixel, everything in double precision.
// For valid files with one table in each segment and without restart intervals. The picture has no edge repair.
struct LiteralPicture {
    int width = 0;
    int height = 0;
    std::vector<Pixel32> pixels;
};
LiteralPicture decodeLiterally(const std::vector<std::uint8_t>& file);

// The edge repair, for a picture of at least 2 x 2 pixels.
void repairLiterally(LiteralPicture& picture);

} // namespace lumenfold::test
