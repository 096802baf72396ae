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
    std::uint64_t present;   // bit i: coefficient i has been set; all others are 0
    std::uint32_t magnitude; // all absolute values, or-ed together
    int count;               // number of coefficients set; coefficient 0 always is
};

// What the forms share. cosines[coefficient][pixel]: the whole products, for the sums that are the definition.
// lines[frequency][position]: one dimension of them, for a first try in two passes: where its value, give or take
// jpegMargin, leaves no doubt about the truncated sample, the long sum would give the same.
struct JpegCosines {
    alignas(32) double products[64][64];
    alignas(32) double lines[8][8];
};
const JpegCosines& jpegCosines();

// With magnitudes below this limit both ways to a sample differ by less than 2^-26: each rounds at most 70 times by
// 2^-53 of a sum of absolute values below 64 x 2^16 / 4.
inline constexpr std::uint32_t jpegMagnitudeLimit = 1u << 16;
inline constexpr double jpegMargin = 0x1p-20;

// Whether the two passes are cheaper than the sums.
inline bool jpegWorthTwoPasses(const JpegBlock& block) {
    return block.count > 6 && block.magnitude < jpegMagnitudeLimit;
}

// A block of nothing but its mean, coefficient 0.
void jpegFlatBlock(std::int32_t coefficient, std::uint8_t* destination, std::size_t stride);

// The plain form of JpegKernels::transform.
void jpegTransformPlain(const JpegBlock& block, std::uint8_t* destination, std::size_t stride);

} // namespace lumenfold
