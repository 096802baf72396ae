#pragma once

#include "core/pixel.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace lumenfold {

// Y, Cb, Cr (JFIF) and the fourth component to a pixel; truncated towards zero, then clamped. Red and blue come from
// 16.16 factors: 1.402 and 1.772 times a whole number, 0 apart, stay at least 0.002 away from the next whole number,
// more than these factors are off; so the result is that of the products in double precision. Green has sums that
// are whole but for their rounding, which only the same arithmetic gives.
inline constexpr int jpegRedFactor = 91881;   // 1.402 x 65536
inline constexpr int jpegBlueFactor = 116130; // 1.772 x 65536
inline constexpr double jpegGreenCb = 0.34414;
inline constexpr double jpegGreenCr = 0.71414;

inline Pixel32 jpegPixel(int y, int cb, int cr, int k) {
    const int red = y + (jpegRedFactor * (cr - 128) >> 16);
    const int green = static_cast<int>(y - jpegGreenCb * (cb - 128) - jpegGreenCr * (cr - 128));
    const int blue = y + (jpegBlueFactor * (cb - 128) >> 16);
    const auto byte = [](int value) { return static_cast<Pixel32>(std::clamp(value, 0, 255)); };
    return static_cast<Pixel32>(k) << 24 | byte(red) << 16 | byte(green) << 8 | byte(blue);
}

// mixed[i] = top[i] x (4 - quarters) + bottom[i] x quarters; quarters 0 to 3.
void jpegMixRows(const std::uint8_t* top, const std::uint8_t* bottom, int quarters, std::uint16_t* mixed,
                 std::size_t count);

// From samples in quarters: row[2i] = sample i, row[2i + 1] = the mean of samples i and i + 1, both truncated. Writes
// 2 x count bytes and reads count + 1 samples.
void jpegDoubleRow(const std::uint16_t* mixed, std::uint8_t* row, std::size_t count);

// One row of pixels from its components (jpegPixel).
void jpegConvertRow(const std::uint8_t* const components[4], Pixel32* pixels, std::size_t count);

} // namespace lumenfold
