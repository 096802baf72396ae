// The cells of the ray field, compiled for every target; the last pixels of a row, fewer than a vector's, go one by
// one.

#include "render/ray_field_cell.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/ray_field_cell.cpp"
#include <hwy/foreach_target.h> // before anything that includes hwy/highway.h

#include "core/lanes.h"
#include "core/packed.h"
#include "render/texel.h"

HWY_BEFORE_NAMESPACE();
namespace lumenfold {
namespace HWY_NAMESPACE {
namespace {

using D = Pixels<16>; // a cell of the 512-pixel frame is 16 wide
constexpr std::int32_t lanes = lanesOf<D>;
constexpr std::uint32_t eachColour = 0x00010101;

// Of each pixel's word the third byte three times, the whole part of a 16.16 value, and nothing on top.
alignas(16) constexpr std::uint8_t third[16] = {2, 2, 2, 128, 6, 6, 6, 128, 10, 10, 10, 128, 14, 14, 14, 128};

// One quantity in as many rows as a vector has lanes: its value at the left, and what it changes by from pixel to
// pixel.
struct Rows {
    HWY_ALIGN std::uint32_t left[lanes];
    HWY_ALIGN std::uint32_t step[lanes];

    // first: the number of the first row
    HWY_INLINE Rows(std::int32_t atLeft, std::int32_t atRight, std::int32_t leftStep, std::int32_t rightStep,
                    std::int32_t first) {
        const Ints<D> d;
        const auto rows = hn::Iota(d, first);
        const auto lefts = hn::Add(hn::Set(d, atLeft), hn::Mul(rows, hn::Set(d, leftStep)));
        const auto rights = hn::Add(hn::Set(d, atRight), hn::Mul(rows, hn::Set(d, rightStep)));
        const auto steps = hn::Neg(hn::ShiftRight<fieldCellShift>(hn::Sub(lefts, rights)));
        hn::Store(hn::BitCast(D(), lefts), D(), left);
        hn::Store(hn::BitCast(D(), steps), D(), step);
    }
};

HWY_INLINE void fillRow(Pixel32* pixels, std::int32_t count, const Rows& us, const Rows& vs, const Rows& shades,
                        std::int32_t row, const Pixel32* texture) {
    const D d;
    const hn::Repartition<std::uint8_t, D> bytes;
    std::uint32_t u = us.left[row];
    std::uint32_t v = vs.left[row];
    std::uint32_t shade = shades.left[row];
    std::int32_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const auto texels = lookUp(d, texture, texelIndex(d, steps(d, u, us.step[row]), steps(d, v, vs.step[row])));
        const auto darkening = hn::TableLookupBytesOr0(hn::BitCast(bytes, steps(d, shade, shades.step[row])),
                                                       hn::LoadDup128(bytes, third));
        hn::StoreU(hn::BitCast(d, hn::SaturatedSub(hn::BitCast(bytes, texels), darkening)), d, pixels + i);
        u += us.step[row] * lanes;
        v += vs.step[row] * lanes;
        shade += shades.step[row] * lanes;
    }
    for (; i < count; ++i, u += us.step[row], v += vs.step[row], shade += shades.step[row])
        pixels[i] = subtractSaturated(texelAt(texture, u, v), (shade >> 16 & 255) * eachColour);
}

void fillCell(Pixel32* pixels, std::ptrdiff_t pitch, const FieldCell& cell, const Pixel32* texture) {
    for (std::int32_t first = 0; first < cell.height; first += lanes) {
        const Rows u(cell.left.u, cell.right.u, cell.leftStep.u, cell.rightStep.u, first);
        const Rows v(cell.left.v, cell.right.v, cell.leftStep.v, cell.rightStep.v, first);
        const Rows shade(cell.left.shade, cell.right.shade, cell.leftStep.shade, cell.rightStep.shade, first);
        for (std::int32_t row = 0; row < lanes && first + row < cell.height; ++row, pixels += pitch)
            fillRow(pixels, cell.width, u, v, shade, row, texture);
    }
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace lumenfold
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "core/dispatch.h"

namespace lumenfold {

LUMENFOLD_TARGETS(fillCell);

void fillFieldCell(Pixel32* pixels, std::ptrdiff_t pitch, const FieldCell& cell, const Pixel32* texture) {
    LUMENFOLD_TARGET(fillCell)(pixels, pitch, cell, texture);
}

} // namespace lumenfold

#endif // HWY_ONCE
