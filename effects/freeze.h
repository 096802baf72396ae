#pragma once

#include "core/pixel.h"

#include <cstddef>
#include <cstdint>

namespace lumenfold {

// Makes a still of a frame: grey by the mean of the three colours, a little less in red and a little more in blue. The
// still's top bytes are left as they are.
void freezeFrame(Pixel32* still, const Pixel32* frame, std::size_t count);

// A flash of white that fades within eight frames.
struct Flash {
    std::uint8_t level = 0;

    void strike() { level = 255; }

    // Lowers the flash, then adds what is left of it onto the frame; does nothing once it has gone out.
    void addTo(Pixel32* frame, std::size_t count);
};

} // namespace lumenfold
