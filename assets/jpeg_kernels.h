#pragma once

#include "core/pixel.h"

#include <cstddef>
#include <cstdint>

namespace lumenfold {

struct JpegBlock;

// The decoder's inner loops, in a plain form and, where the processor offers it, a vectorised one with the same bits.
struct JpegKernels {
    // Writes a block's 8 x 8 samples to destination, rows stride bytes apart (jpeg_transform.h).
    void (*transform)(const JpegBlock& block, std::uint8_t* destination, std::size_t stride);

    // mixed[i] = top[i] x (4 - quarters) + bottom[i] x quarters; quarters 0 to 3.
    void (*mixRows)(const std::uint8_t* top, const std::uint8_t* bottom, int quarters, std::uint16_t* mixed,
                    std::size_t count);

    // From samples in quarters: row[2i] = sample i, row[2i + 1] = the mean of samples i and i + 1, both truncated.
    // Writes 2 x count bytes and reads count + 1 samples.
    void (*doubleRow)(const std::uint16_t* mixed, std::uint8_t* row, std::size_t count);

    // One row of pixels from its components (jpeg_colour.h).
    void (*convertRow)(const std::uint8_t* const components[4], Pixel32* pixels, std::size_t count);
};

extern const JpegKernels jpegPlainKernels;
const JpegKernels* jpegVectorKernels(); // null where there are none
const JpegKernels& jpegKernels();       // those to use

} // namespace lumenfold
