// The pixels of a span, several at once: depths and masks, for the fillers' loops. Compiled for every target as
// core/lanes.h is.

#include "core/lanes.h"
#include "render/float_ramp.h"

#if defined(LUMENFOLD_RENDER_SPAN_LANES_H) == defined(HWY_TARGET_TOGGLE)
#ifdef LUMENFOLD_RENDER_SPAN_LANES_H
#undef LUMENFOLD_RENDER_SPAN_LANES_H
#else
#define LUMENFOLD_RENDER_SPAN_LANES_H
#endif

HWY_BEFORE_NAMESPACE();
namespace lumenfold {
namespace HWY_NAMESPACE {

// Floats number place, place + 1, ... of a regular ramp.
template <class D>
HWY_INLINE hn::Vec<Floats<D>> rampLanes(D, const FloatRamp& ramp, std::int32_t place) {
    const Floats<D> d;
    const auto numbers = hn::ConvertTo(d, hn::Iota(Ints<D>(), place - 1));
    const auto all = hn::Add(hn::Set(d, ramp.first), hn::Mul(numbers, hn::Set(d, ramp.difference)));
    return place == 0 ? hn::IfThenElse(hn::FirstN(d, 1), hn::Set(d, ramp.start), all) : all;
}

// Draws a run of 4 pixels or more in groups: draw(d, begin, drawn) gets the place of a group's first pixel in the run,
// and how many of its pixels belong to the group before, which the last one overlaps. So whole vectors are loaded,
// mixed and stored: masked stores are slow on many processors, and on all of them they hold up the loads that follow.
template <class Draw>
HWY_INLINE void drawInGroups(std::int32_t count, Draw& draw) {
    constexpr std::int32_t wide = lanesOf<Pixels<16>>;
    constexpr std::int32_t size = lanesOf<Pixels<8>>;
    std::int32_t next = 0;
    if constexpr (wide > size)
        for (; next + wide <= count; next += wide)
            draw(Pixels<16>(), next, 0);
    for (; next + size <= count; next += size)
        draw(Pixels<8>(), next, 0);
    if constexpr (size > 4) {
        if (next == 0) {
            draw(Pixels<4>(), 0, 0);
            next = 4;
        } else if (count - next > 4) {
            return draw(Pixels<8>(), count - size, next + size - count);
        }
    }
    if (next < count)
        draw(Pixels<4>(), count - 4, next + 4 - count);
}

// The lanes of a group that belong to it alone.
template <class D>
HWY_INLINE hn::Mask<D> fresh(D d, hn::Mask<D> mask, std::int32_t drawn) {
    return drawn == 0 ? mask : hn::AndNot(hn::FirstN(d, static_cast<std::size_t>(drawn)), mask);
}

// Replaces the values of the lanes in mask.
template <class D, typename T>
HWY_INLINE void mixInto(D d, T* values, hn::Mask<D> mask, hn::Vec<D> changed) {
    if (hn::AllTrue(d, mask))
        hn::StoreU(changed, d, values);
    else
        hn::StoreU(hn::IfThenElse(mask, changed, hn::LoadU(d, values)), d, values);
}

} // namespace HWY_NAMESPACE
} // namespace lumenfold
HWY_AFTER_NAMESPACE();

#endif // per target
