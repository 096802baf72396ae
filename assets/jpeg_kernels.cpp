#include "assets/jpeg_kernels.h"

#include "assets/jpeg_transform.h"
#include "core/kernels.h"

namespace lumenfold {

void jpegMixRows(const std::uint8_t* top, const std::uint8_t* bottom, int quarters, std::uint16_t* mixed,
                 std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        mixed[i] = static_cast<std::uint16_t>(top[i] * (4 - quarters) + bottom[i] * quarters);
}

void jpegDoubleRow(const std::uint16_t* mixed, std::uint8_t* row, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        row[2 * i] = static_cast<std::uint8_t>(mixed[i] >> 2);
        row[2 * i + 1] = static_cast<std::uint8_t>((mixed[i] + mixed[i + 1]) >> 3);
    }
}

void jpegConvertRow(const std::uint8_t* const components[4], Pixel32* pixels, std::size_t count) {
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = jpegPixel(components[0][x], components[1][x], components[2][x], components[3][x]);
}

const JpegKernels jpegPlainKernels = {jpegTransformPlain, jpegMixRows, jpegDoubleRow, jpegConvertRow};

const JpegKernels& jpegKernels() {
    const JpegKernels* vectorised = vectorCode() ? jpegVectorKernels() : nullptr;
    return vectorised != nullptr ? *vectorised : jpegPlainKernels;
}

} // namespace lumenfold
