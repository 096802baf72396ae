#pragma once

#include "core/pixel.h"

#include <cstdint>

namespace lumenfold {

// One row of a warp: count pixels whose source column x and row y (16.16, wrapping) step by dx and dy.
struct WarpSpan {
    Pixel32* target;
    int count;
    std::int32_t x;
    std::int32_t y;
    std::int32_t dx;
    std::int32_t dy;
};

using WarpSpanFill = void (*)(const WarpSpan& span, const Pixel32* source);

// From a 256 x 256 texture, both coordinates wrapped.
void fillWrappedSpan(const WarpSpan& span, const Pixel32* texture);

// From a 512 x 512 source, both coordinates limited to 0..511.
void fillClampedSpan(const WarpSpan& span, const Pixel32* source);

} // namespace lumenfold
