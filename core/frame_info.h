#pragma once

#include <cstdint>

namespace lumenfold {

// The size of a block of pixels and, in the driver's own record, the output mode. Passed by value.
// The driver's record is {512, 384, 1, 22050, 1}; records {w, h, 0, 0, 0} describe other blocks and viewports.
struct FrameInfo {
    std::int32_t width;
    std::int32_t height;
    std::int32_t extra1; // travels along unread, as extra2 does
    std::int32_t extra2;
    std::int32_t fullscreen; // 1: full screen, 0: window
};

} // namespace lumenfold
