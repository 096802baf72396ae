// The rows of the warps, compiled for every target; the last pixels of a row, fewer than a vector's, go one by one.

#include "effects/warp_span.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "effects/warp_span.cpp"
#include <hwy/foreach_target.h> // before anything that includes hwy/highway.h

#include "core/convert.h"
#include "core/lanes.h"

HWY_BEFORE_NAMESPACE();
namespace lumenfold {
namespace HWY_NAMESPACE {
namespace {

using D = Pixels<8>;
constexpr int lanes = lanesOf<D>;

struct Wrapped {
    static HWY_INLINE hn::Vec<D> index(hn::Vec<D> x, hn::Vec<D> y) { return texelIndex(D(), x, y); }

    static std::int32_t index(std::int32_t x, std::int32_t y) {
        return (y >> 16 & 255) * textureSide + (x >> 16 & 255);
    }
};

struct Clamped {
    static constexpr std::int32_t last = 511; // column and row of a 512 x 512 source

    static HWY_INLINE hn::Vec<D> clamp(hn::Vec<D> coordinate) {
        const Ints<D> d;
        const auto whole = hn::ShiftRight<16>(hn::BitCast(d, coordinate));
        return hn::BitCast(D(), hn::Min(hn::Max(whole, hn::Zero(d)), hn::Set(d, last)));
    }
    static std::int32_t clamp(std::int32_t coordinate) {
        const std::int32_t whole = coordinate >> 16;
        return whole < 0 ? 0 : whole > last ? last : whole;
    }

    static HWY_INLINE hn::Vec<D> index(hn::Vec<D> x, hn::Vec<D> y) {
        return hn::Or(hn::ShiftLeft<9>(clamp(y)), clamp(x));
    }
    static std::int32_t index(std::int32_t x, std::int32_t y) { return clamp(y) * (last + 1) + clamp(x); }
};

template <class Lookup>
HWY_INLINE void fill(const WarpSpan& span, const Pixel32* source) {
    const D d;
    auto x = static_cast<std::uint32_t>(span.x);
    auto y = static_cast<std::uint32_t>(span.y);
    const auto dx = static_cast<std::uint32_t>(span.dx);
    const auto dy = static_cast<std::uint32_t>(span.dy);
    int i = 0;
    for (; i + lanes <= span.count; i += lanes, x += dx * lanes, y += dy * lanes)
        hn::StoreU(lookUp(d, source, Lookup::index(steps(d, x, dx), steps(d, y, dy))), d, span.target + i);
    for (; i < span.count; ++i, x += dx, y += dy)
        span.target[i] = source[Lookup::index(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y))];
}

void fillWrapped(const WarpSpan& span, const Pixel32* texture) {
    fill<Wrapped>(span, texture);
}
void fillClamped(const WarpSpan& span, const Pixel32* source) {
    fill<Clamped>(span, source);
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace lumenfold
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "core/dispatch.h"

namespace lumenfold {

LUMENFOLD_TARGETS(fillWrapped);
LUMENFOLD_TARGETS(fillClamped);

void fillWrappedSpan(const WarpSpan& span, const Pixel32* texture) {
    LUMENFOLD_TARGET(fillWrapped)(span, texture);
}
void fillClampedSpan(const WarpSpan& span, const Pixel32* source) {
    LUMENFOLD_TARGET(fillClamped)(span, source);
}

} // namespace lumenfold

#endif // HWY_ONCE
