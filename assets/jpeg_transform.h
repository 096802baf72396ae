#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

// The inverse transform of one block (T.81, A.3.3). A pixel is the sum, in double precision and in the order of the
// coefficients, of cosine entry x coefficient, plus 128, truncated towards zero and clamped to 0 to 255.

namespace lumenfold {

// Dequantised coefficients in natural order, row by row of vertical frequencies.
struct alignas(32) JpegBlock {
    std::array<std::int32_t, 64> coefficients;
    std::uint64_t present; // bit i: coefficient i has been set, as coefficient 0 always is; all others are 0
    std::uint32_t range;   // every coefficient + jpegRangeLimit, or-ed together
};

// Coefficients from -jpegRangeLimit to jpegRangeLimit - 1 leave range below twice the limit.
inline constexpr std::uint32_t jpegRangeLimit = 1u << 11;

// What the forms share. products[coefficient][pixel]: the cosine entries, for the sums that are the definition.
// lines[frequency][position]: one dimension of them, for a first try in two passes, down the columns of a block after
// its rows. A sample is taken from there only where a value even jpegMargin away would truncate to the same.
struct JpegCosines {
    alignas(32) double products[64][64];
    alignas(32) double lines[8][8];
};
const JpegCosines& jpegCosines();

// With coefficients in the range the two ways to a value differ by less than 2^-15: by 70 roundings each, to 2^-53
// of at most 64 x 2^11 / 4, and, where the second half of a column is mirrored from the first, by what the 10 digits of
// pi make of the cosine's symmetry, 7 x 15 / 16 x 9e-11 for each of 64 x 2^11 / 4.
inline constexpr double jpegMargin = 0x1p-14;

// Whether the two passes are possible and cheaper than the sums.
inline bool jpegWorthTwoPasses(const JpegBlock& block) {
    return std::popcount(block.present) > 4 && block.range < 2 * jpegRangeLimit;
}

// A block of nothing but its mean, coefficient 0.
void jpegFlatBlock(std::int32_t coefficient, std::uint8_t* destination, std::size_t stride);

// The plain form of JpegKernels::transform.
void jpegTransformPlain(const JpegBlock& block, std::uint8_t* destination, std::size_t stride);

} // namespace lumenfold
