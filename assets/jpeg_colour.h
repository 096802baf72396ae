#pragma once

#include "assets/jpeg_frame.h"
#include "core/pixel.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

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

// The plain forms of the kernels of the same names.
void jpegMixRows(const std::uint8_t* top, const std::uint8_t* bottom, int quarters, std::uint16_t* mixed,
                 std::size_t count);
void jpegDoubleRow(const std::uint16_t* mixed, std::uint8_t* row, std::size_t count);
void jpegConvertRow(const std::uint8_t* const components[4], Pixel32* pixels, std::size_t count);

// A component at the resolution of the picture, row by row: bilinear between the samples at x H / Hmax, y V / Vmax
// (no half-sample offset), truncated. Keeps a reference to the component.
class JpegRowSampler {
  public:
    JpegRowSampler(const JpegFrame& frame, const JpegComponent& component);

    // The frame's width of samples, valid until the next call.
    const std::uint8_t* row(int y);

  private:
    void sampleQuarters(int y);
    void sampleDouble(int y);

    const JpegFrame& frame;
    const JpegComponent& component;
    std::vector<std::uint8_t> samples;
    std::vector<std::uint16_t> mixed; // two rows of the plane mixed for one of the picture, in quarters
};

} // namespace lumenfold
