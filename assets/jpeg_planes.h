#pragma once

#include "core/pixel.h"

#include <cstddef>
#include <cstdint>
#include <vector>

// The decoded components of a picture, and how they become pixels.

namespace lumenfold {

// One component's samples. The part that counts is width x height samples at the top left; the plane is stored with
// whole coded units and with a column and a row more on the right and below, which are 0: the bilinear sampling
// reads them, and what lies outside the part counts as 0 there.
struct JpegComponent {
    std::uint8_t identifier = 0;
    int horizontal = 1; // sampling factors, 1 to 4
    int vertical = 1;
    int quantisation = 0;
    int width = 0;
    int height = 0;
    std::size_t stride = 0; // bytes from row to row
    std::vector<std::uint8_t> samples;

    const std::uint8_t* row(int y) const { return samples.data() + static_cast<std::size_t>(y) * stride; }
};

struct JpegFrame {
    int width = 0;
    int height = 0;
    int horizontalMax = 1;
    int verticalMax = 1;
    std::size_t unitsAcross = 0; // minimum coded units
    std::size_t unitsDown = 0;
    std::vector<JpegComponent> components;
};

// Writes the picture, frame.width x frame.height pixels, the fourth component in the top byte. The last column and row
// are copies of their neighbours. Writes nothing when the frame has no component. Clears what lies in the planes beside
// the part that counts.
void convertPlanes(JpegFrame& frame, Pixel32* destination);

} // namespace lumenfold
