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

// What the forms share. products[coefficient][pixel]: the cosine entries, for the sums that are the definition.
// lines[frequency][position]: one dimension of them. Both forms first try two passes, through the rows and the columns
// of a block, and take a sample from there only where the largest possible error would not change it.
struct JpegCosines {
    alignas(32) double products[64][64];
    double lines[8][8];
};
const JpegCosines& jpegCosines();

// A block of nothing but its mean, coefficient 0.
void jpegFlatBlock(std::int32_t coefficient, std::uint8_t* destination, std::size_t stride);

// The forms of JpegKernels::transform; the second one needs the vector instructions.
void jpegTransformPlain(const JpegBlock& block, std::uint8_t* destination, std::size_t stride);
void jpegTransformVector(const JpegBlock& block, std::uint8_t* destination, std::size_t stride);

} // namespace lumenfold
