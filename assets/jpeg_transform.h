#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// The inverse transform of one block (T.81, A.3.3). A pixel is the sum, in double precision and in the order of the
// coefficients, of cosine entry x coefficient, plus 128, truncated towards zero and clamped to 0 to 255.

namespace lumenfold {

// Dequantised coefficients in natural order, row by row of vertical frequencies.
struct alignas(32) JpegBlock {
    std::array<std::int32_t, 64> coefficients;
    int count; // of the coefficients that have been set, as coefficient 0 always is; all others are 0
};

// products[coefficient][pixel]: the cosine entries, for the sums that are the definition.
struct JpegCosines {
    alignas(32) double products[64][64];
};
const JpegCosines& jpegCosines();

// Writes a block's 8 x 8 samples to destination, rows stride bytes apart.
void jpegTransform(const JpegBlock& block, std::uint8_t* destination, std::size_t stride);

} // namespace lumenfold
