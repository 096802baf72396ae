// The decoder's loops over rows, compiled for every target; the last samples of a row go one by one.

#include "assets/jpeg_kernels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "assets/jpeg_kernels.cpp"
#include <hwy/foreach_target.h> // before anything that includes hwy/highway.h

#include "core/lanes.h"

HWY_BEFORE_NAMESPACE();
namespace lumenfold {
namespace HWY_NAMESPACE {
namespace {

using Words = hn::CappedTag<std::uint16_t, 16>;

void mixRows(const std::uint8_t* top, const std::uint8_t* bottom, int quarters, std::uint16_t* mixed,
             std::size_t count) {
    const Words d;
    const hn::Rebind<std::uint8_t, Words> bytes;
    const auto topWeight = hn::Set(d, static_cast<std::uint16_t>(4 - quarters));
    const auto bottomWeight = hn::Set(d, static_cast<std::uint16_t>(quarters));
    std::size_t i = 0;
    for (; i + lanesOf<Words> <= count; i += lanesOf<Words>)
        hn::StoreU(hn::Add(hn::Mul(hn::PromoteTo(d, hn::LoadU(bytes, top + i)), topWeight),
                           hn::Mul(hn::PromoteTo(d, hn::LoadU(bytes, bottom + i)), bottomWeight)),
                   d, mixed + i);
    for (; i < count; ++i)
        mixed[i] = static_cast<std::uint16_t>(top[i] * (4 - quarters) + bottom[i] * quarters);
}

void doubleRow(const std::uint16_t* mixed, std::uint8_t* row, std::size_t count) {
    const Words d;
    const hn::Repartition<std::uint8_t, Words> bytes;
    std::size_t i = 0;
    for (; i + lanesOf<Words> <= count; i += lanesOf<Words>) {
        const auto here = hn::LoadU(d, mixed + i);
        const auto between = hn::ShiftRight<3>(hn::Add(here, hn::LoadU(d, mixed + i + 1)));
        const auto pairs = hn::Or(hn::ShiftRight<2>(here), hn::ShiftLeft<8>(between)); // little-endian
        hn::StoreU(hn::BitCast(bytes, pairs), bytes, row + 2 * i);
    }
    for (; i < count; ++i) {
        row[2 * i] = static_cast<std::uint8_t>(mixed[i] >> 2);
        row[2 * i + 1] = static_cast<std::uint8_t>((mixed[i] + mixed[i + 1]) >> 3);
    }
}

#if HWY_HAVE_FLOAT64

using D = hn::CappedTag<std::int32_t, 8>;
using Ints8 = hn::Vec<D>;
constexpr std::size_t lanes = static_cast<std::size_t>(lanesOf<D>);

HWY_INLINE Ints8 widen(const std::uint8_t* bytes) {
    return hn::PromoteTo(D(), hn::LoadU(hn::Rebind<std::uint8_t, D>(), bytes));
}

using Half = hn::Half<D>;

// Green of half the pixels, in double precision.
HWY_INLINE hn::Vec<Half> green(hn::Vec<Half> y, hn::Vec<Half> cb, hn::Vec<Half> cr) {
    const hn::RepartitionToWide<hn::Rebind<float, D>> d;
    const auto fromCb = hn::Mul(hn::Set(d, jpegGreenCb), hn::PromoteTo(d, cb));
    const auto fromCr = hn::Mul(hn::Set(d, jpegGreenCr), hn::PromoteTo(d, cr));
    return hn::DemoteTo(Half(), hn::Sub(hn::Sub(hn::PromoteTo(d, y), fromCb), fromCr));
}

HWY_INLINE Ints8 clampByte(Ints8 values) {
    return hn::Min(hn::Max(values, hn::Zero(D())), hn::Set(D(), 255));
}

#endif

void convertRow(const std::uint8_t* const components[4], Pixel32* pixels, std::size_t count) {
    std::size_t x = 0;
#if HWY_HAVE_FLOAT64 // else all pixels go one by one
    const D d;
    const Half h;
    for (; x + lanes <= count; x += lanes) {
        const Ints8 y = widen(components[0] + x);
        const Ints8 cb = hn::Sub(widen(components[1] + x), hn::Set(d, 128));
        const Ints8 cr = hn::Sub(widen(components[2] + x), hn::Set(d, 128));
        const Ints8 red = hn::Add(y, hn::ShiftRight<16>(hn::Mul(cr, hn::Set(d, jpegRedFactor))));
        const Ints8 blue = hn::Add(y, hn::ShiftRight<16>(hn::Mul(cb, hn::Set(d, jpegBlueFactor))));
        const Ints8 greens = hn::Combine(d, green(hn::UpperHalf(h, y), hn::UpperHalf(h, cb), hn::UpperHalf(h, cr)),
                                         green(hn::LowerHalf(h, y), hn::LowerHalf(h, cb), hn::LowerHalf(h, cr)));
        const Ints8 high = hn::Or(hn::ShiftLeft<24>(widen(components[3] + x)), hn::ShiftLeft<16>(clampByte(red)));
        const Ints8 low = hn::Or(hn::ShiftLeft<8>(clampByte(greens)), clampByte(blue));
        hn::StoreU(hn::BitCast(hn::RebindToUnsigned<D>(), hn::Or(high, low)), hn::RebindToUnsigned<D>(), pixels + x);
    }
#endif
    for (; x < count; ++x)
        pixels[x] = jpegPixel(components[0][x], components[1][x], components[2][x], components[3][x]);
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace lumenfold
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "core/dispatch.h"

namespace lumenfold {

LUMENFOLD_TARGETS(mixRows);
LUMENFOLD_TARGETS(doubleRow);
LUMENFOLD_TARGETS(convertRow);

void jpegMixRows(const std::uint8_t* top, const std::uint8_t* bottom, int quarters, std::uint16_t* mixed,
                 std::size_t count) {
    LUMENFOLD_TARGET(mixRows)(top, bottom, quarters, mixed, count);
}

void jpegDoubleRow(const std::uint16_t* mixed, std::uint8_t* row, std::size_t count) {
    LUMENFOLD_TARGET(doubleRow)(mixed, row, count);
}

void jpegConvertRow(const std::uint8_t* const components[4], Pixel32* pixels, std::size_t count) {
    LUMENFOLD_TARGET(convertRow)(components, pixels, count);
}

} // namespace lumenfold

#endif // HWY_ONCE
