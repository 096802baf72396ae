#include "effects/warp_span.h"

#include "core/convert.h"
#include "core/kernels.h"

#include <algorithm>

namespace lumenfold {

namespace {
constexpr std::int32_t lastClamped = 511; // column and row of a 512 x 512 source
} // namespace

void fillWrappedSpan(const WarpSpan& span, const Pixel32* texture) {
    std::int32_t x = span.x;
    std::int32_t y = span.y;
    for (Pixel32* pixel = span.target; pixel != span.target + span.count; ++pixel) {
        *pixel = texture[(y >> 16 & 255) * textureSide + (x >> 16 & 255)];
        x = wrapAdd(x, span.dx);
        y = wrapAdd(y, span.dy);
    }
}

void fillClampedSpan(const WarpSpan& span, const Pixel32* source) {
    std::int32_t x = span.x;
    std::int32_t y = span.y;
    for (Pixel32* pixel = span.target; pixel != span.target + span.count; ++pixel) {
        const std::int32_t row = std::clamp(y >> 16, 0, lastClamped);
        *pixel = source[row * (lastClamped + 1) + std::clamp(x >> 16, 0, lastClamped)];
        x = wrapAdd(x, span.dx);
        y = wrapAdd(y, span.dy);
    }
}

WarpSpanTable warpSpans() {
    if (vectorWarpSpans != nullptr && vectorCode())
        return *vectorWarpSpans;
    return {fillWrappedSpan, fillClampedSpan};
}

} // namespace lumenfold
