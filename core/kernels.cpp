// The pixel loops, compiled for every target; the last pixels of a block, fewer than a vector's, go one by one.

#include "core/kernels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "core/kernels.cpp"
#include <hwy/foreach_target.h> // before anything that includes hwy/highway.h

#include "core/lanes.h"

#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace lumenfold {
namespace HWY_NAMESPACE {
namespace {

constexpr std::size_t lanes = static_cast<std::size_t>(lanesOf<AllPixels>);

using AllWords = hn::Repartition<std::uint16_t, AllPixels>;
using PixelVector = hn::Vec<AllPixels>;

HWY_INLINE PixelVector load(const Pixel32* pixels) {
    return hn::LoadU(AllPixels(), pixels);
}
HWY_INLINE void store(PixelVector vector, Pixel32* pixels) {
    hn::StoreU(vector, AllPixels(), pixels);
}

void addSaturated(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    const AllPixels d;
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(addBytes(d, load(a + i), load(b + i)), destination + i);
    for (; i < count; ++i)
        destination[i] = lumenfold::addSaturated(a[i], b[i]);
}

void addSaturatedConstant(Pixel32* destination, Pixel32 value, std::size_t count) {
    const AllPixels d;
    const PixelVector all = hn::Set(d, value);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(addBytes(d, load(destination + i), all), destination + i);
    for (; i < count; ++i)
        destination[i] = lumenfold::addSaturated(destination[i], value);
}

// The even bytes times a factor, and the odd ones: 16 bits for each.
struct Products {
    hn::Vec<AllWords> even;
    hn::Vec<AllWords> odd;
};
HWY_INLINE Products multiply(PixelVector pixels, hn::Vec<AllWords> factor) {
    const AllWords d;
    const auto pairs = hn::BitCast(d, pixels);
    return {hn::Mul(hn::And(pairs, hn::Set(d, 0xFF)), factor), hn::Mul(hn::ShiftRight<8>(pairs), factor)};
}
HWY_INLINE PixelVector highBytes(Products p) {
    const AllWords d;
    return hn::BitCast(AllPixels(), hn::Or(hn::ShiftRight<8>(p.even), hn::AndNot(hn::Set(d, 0xFF), p.odd)));
}

void fade(Pixel32* pixels, std::uint8_t factor, std::size_t count) {
    const auto scale = hn::Set(AllWords(), factor);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(highBytes(multiply(load(pixels + i), scale)), pixels + i);
    for (; i < count; ++i)
        pixels[i] = crossFaded(pixels[i], 0, factor);
}

void crossFade(Pixel32* pixels, const Pixel32* other, std::uint8_t factor, std::size_t count) {
    const AllWords d;
    const auto scale = hn::Set(d, factor);
    const auto rest = hn::Set(d, static_cast<std::uint16_t>(255 - factor));
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const Products p = multiply(load(pixels + i), scale);
        const Products q = multiply(load(other + i), rest);
        store(highBytes({hn::Add(p.even, q.even), hn::Add(p.odd, q.odd)}), pixels + i);
    }
    for (; i < count; ++i)
        pixels[i] = crossFaded(pixels[i], other[i], factor);
}

// The sum of two halves, each rounded down: where both bytes are even, the instruction's own rounding up has no effect.
template <class D>
HWY_INLINE hn::Vec<D> addHalves(D d, hn::Vec<D> a, hn::Vec<D> b) {
    const auto even = hn::Set(d, 0xFEFEFEFEU);
    return hn::BitCast(d, hn::AverageRound(bytes(d, hn::And(a, even)), bytes(d, hn::And(b, even))));
}

void averageHalves(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(addHalves(AllPixels(), load(a + i), load(b + i)), destination + i);
    for (; i < count; ++i)
        destination[i] = half(a[i]) + half(b[i]);
}

// Stores the first lanes alone, without a mask, which would hold up the loads that follow.
template <int count, class D>
HWY_INLINE void storeFirst(D d, hn::Vec<D> vector, Pixel32* pixels) {
    constexpr int all = lanesOf<D>;
    if constexpr (count == all) {
        hn::StoreU(vector, d, pixels);
    } else if constexpr (count == 1) {
        *pixels = hn::GetLane(vector);
    } else if constexpr (count < all / 2) {
        storeFirst<count>(hn::Half<D>(), hn::LowerHalf(vector), pixels);
    } else {
        const hn::Half<D> halves;
        hn::StoreU(hn::LowerHalf(vector), halves, pixels);
        if constexpr (count > all / 2)
            storeFirst<count - all / 2>(halves, hn::UpperHalf(halves, vector), pixels + all / 2);
    }
}

// As many pixels at a time as the distance: none of them depends on another, and they are those before for the next.
// Those before are kept complemented: the average of complements is rounded down, and with the low bit of those ahead
// cleared (set, in the complement) that is the sum of the halves in a single instruction from one to the next.
template <int distance>
std::size_t smearHalvesNear(Pixel32* pixels, std::size_t count) {
    const Pixels<distance <= 4 ? 4 : 8> d;
    constexpr std::size_t width = static_cast<std::size_t>(lanesOf<Pixels<distance <= 4 ? 4 : 8>>);
    std::size_t i = 0;
    if constexpr (distance <= width) {
        const auto lowBits = bytes(d, hn::Set(d, 0x01010101U));
        auto before = bytes(d, hn::Not(hn::LoadU(d, pixels - distance)));
        for (; i + width <= count; i += distance) {
            const auto ahead = bytes(d, hn::Not(hn::LoadU(d, pixels + i + distance)));
            before = hn::AverageRound(before, hn::Or(ahead, lowBits));
            storeFirst<distance>(d, hn::Not(hn::BitCast(d, before)), pixels + i);
        }
    }
    return i;
}

// No more pixels at a time than the distance.
template <class D>
std::size_t smearHalvesFar(D d, Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    std::size_t i = 0;
    for (; i + lanesOf<D> <= count; i += lanesOf<D>) {
        Pixel32* p = pixels + i;
        hn::StoreU(addHalves(d, hn::LoadU(d, p - distance), hn::LoadU(d, p + distance)), d, p);
    }
    return i;
}

void smearHalves(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    constexpr std::size_t (*near[])(Pixel32*, std::size_t) = {
        smearHalvesNear<1>, smearHalvesNear<2>, smearHalvesNear<3>, smearHalvesNear<4>,
        smearHalvesNear<5>, smearHalvesNear<6>, smearHalvesNear<7>, smearHalvesNear<8>};
    std::size_t i = 0;
    if (distance <= 4 || (distance <= 8 && lanes >= 8))
        i = count < 8 ? 0 : near[distance - 1](pixels, count);
    else if (distance >= lanesOf<AllPixels>)
        i = smearHalvesFar(AllPixels(), pixels, distance, count);
    else
        i = smearHalvesFar(Pixels<4>(), pixels, distance, count);
    for (Pixel32* pixel = pixels + i; pixel != pixels + count; ++pixel)
        *pixel = half(pixel[distance]) + half(pixel[-distance]);
}

using FourPixels = Pixels<4>;
using EightBytes = hn::CappedTag<std::uint8_t, 8>;
using EightWords = hn::CappedTag<std::uint16_t, 8>;
using WordVector = hn::Vec<EightWords>;

// Four pixels' bytes as words: of the first two and of the last two.
HWY_INLINE WordVector firstWords(hn::Vec<FourPixels> pixels) {
    return hn::PromoteTo(EightWords(), hn::LowerHalf(bytes(FourPixels(), pixels)));
}
HWY_INLINE WordVector lastWords(hn::Vec<FourPixels> pixels) {
    return hn::PromoteTo(EightWords(), hn::UpperHalf(EightBytes(), bytes(FourPixels(), pixels)));
}
// Words up to 255 as bytes again; both vectors hold pairs of pixels.
template <class D>
HWY_INLINE hn::Vec<hn::Repartition<Pixel32, D>> packWords(D, hn::Vec<D> first, hn::Vec<D> last) {
    const hn::Repartition<std::uint8_t, D> d;
    alignas(16) static constexpr std::uint8_t order[16] = {0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7, 9, 11, 13, 15};
    const auto pairs = hn::BitCast(d, hn::Or(first, hn::ShiftLeft<8>(last)));
    return hn::BitCast(hn::Repartition<Pixel32, D>(), hn::TableLookupBytes(pairs, hn::LoadDup128(d, order)));
}
// The second of two pixels in both places; the first one, and the first one of another.
HWY_INLINE WordVector secondPixel(WordVector pixels) {
    const hn::Repartition<std::uint64_t, EightWords> d;
    return hn::BitCast(EightWords(), hn::InterleaveUpper(d, hn::BitCast(d, pixels), hn::BitCast(d, pixels)));
}
HWY_INLINE WordVector firstPixels(WordVector a, WordVector b) {
    const hn::Repartition<std::uint64_t, EightWords> d;
    return hn::BitCast(EightWords(), hn::InterleaveLower(d, hn::BitCast(d, a), hn::BitCast(d, b)));
}

// One pixel after the other, its words in the lower half: two instructions from one to the next.
struct Smear {
    WordVector pixel;

    // rest: two pixels' three other quarters. Returns the two pixels.
    HWY_INLINE WordVector next(WordVector rest) {
        const WordVector first = hn::Add(hn::ShiftRight<2>(pixel), rest);
        pixel = hn::Add(hn::ShiftRight<2>(first), secondPixel(rest));
        return firstPixels(first, pixel);
    }
};

// A distance of four pixels: those go on in the registers, as words, from four to four.
std::size_t smearQuartersNear(Pixel32* pixels, std::size_t count) {
    const FourPixels d;
    const auto mask = hn::Set(d, 0x3F3F3F3FU);
    Smear smear = {firstWords(hn::Set(d, pixels[-1]))};
    WordVector first = firstWords(hn::LoadU(d, pixels - 4));
    WordVector second = lastWords(hn::LoadU(d, pixels - 4));
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        Pixel32* p = pixels + i;
        const auto next = hn::And(hn::ShiftRight<2>(hn::LoadU(d, p + 1)), mask);
        const auto ahead = hn::Add(next, hn::And(hn::ShiftRight<2>(hn::LoadU(d, p + 4)), mask));
        first = smear.next(hn::Add(firstWords(ahead), hn::ShiftRight<2>(first)));
        second = smear.next(hn::Add(lastWords(ahead), hn::ShiftRight<2>(second)));
        hn::StoreU(packWords(EightWords(), first, second), d, p);
    }
    return i;
}

// The pixel before every four, given what each four add to it; leaves the one before the next four.
template <class D>
HWY_INLINE hn::Vec<D> beforeEachFour(D d, WordVector& before, hn::Vec<D> sums) {
    const WordVector start = before;
    if constexpr (lanesOf<D> == lanesOf<EightWords>) {
        before = hn::ShiftRight<8>(hn::Add(before, sums));
        return start;
    } else {
        const WordVector between = hn::ShiftRight<8>(hn::Add(before, hn::LowerHalf(EightWords(), sums)));
        before = hn::ShiftRight<8>(hn::Add(between, hn::UpperHalf(EightWords(), sums)));
        return hn::Combine(d, between, start);
    }
}

// From four pixels on the three other quarters, r, are known for several pixels at once. Rounding down can wait: a
// quarter of (a quarter of p, plus r0), plus r1 is (p + 4 r0 + 16 r1) >> 4, and so on; four pixels take 16 bits. So the
// pixel before needs two instructions from four pixels to the next four.
template <class D>
std::size_t smearQuartersFar(D d, Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    const hn::Repartition<std::uint8_t, D> db;
    const hn::Repartition<std::uint16_t, D> dw;
    const hn::Repartition<std::uint64_t, D> dp; // a pixel's four words
    const auto secondOf = [dw, dp](auto words) HWY_ATTR {
        return hn::BitCast(dw, hn::InterleaveUpper(dp, hn::BitCast(dp, words), hn::BitCast(dp, words)));
    };
    const auto ofPairs = [dw, dp](std::uint64_t a, std::uint64_t b) HWY_ATTR {
        alignas(16) const std::uint64_t words[2] = {a * 0x0001000100010001U, b * 0x0001000100010001U};
        return hn::BitCast(dw, hn::LoadDup128(dp, words));
    };
    const auto multiplesOfFour = hn::Set(d, 0xFCFCFCFCU);
    const auto weights = ofPairs(4, 16);
    const auto lastWeights = ofPairs(64, 256);
    const auto shifts = ofPairs(1 << 14, 1 << 12);    // to the right by 2 and 4
    const auto lastShifts = ofPairs(1 << 10, 1 << 8); // by 6 and 8
    WordVector before = firstWords(hn::Set(FourPixels(), pixels[-1]));
    std::size_t i = 0;
    for (; i + lanesOf<D> <= count; i += lanesOf<D>) {
        Pixel32* p = pixels + i;
        const auto back = bytes(d, hn::And(hn::LoadU(d, p - distance), multiplesOfFour));
        const auto ahead = bytes(d, hn::And(hn::LoadU(d, p + distance), multiplesOfFour));
        const auto next = hn::And(hn::LoadU(d, p + 1), multiplesOfFour);
        const auto r = bytes(
            d, hn::Add(hn::ShiftRight<1>(hn::BitCast(d, hn::AverageRound(back, ahead))), hn::ShiftRight<2>(next)));

        // sums of the weighted r up to each pixel: the first two and the last two of every four
        auto first = hn::Mul(hn::BitCast(dw, hn::InterleaveLower(db, r, hn::Zero(db))), weights);
        auto last = hn::Mul(hn::BitCast(dw, hn::InterleaveUpper(db, r, hn::Zero(db))), lastWeights);
        first = hn::Add(first, hn::BitCast(dw, hn::ShiftLeftBytes<8>(db, hn::BitCast(db, first))));
        last = hn::Add(last, hn::BitCast(dw, hn::ShiftLeftBytes<8>(db, hn::BitCast(db, last))));
        last = hn::Add(last, secondOf(first));

        const auto whole = secondOf(last);
        const auto start = beforeEachFour(dw, before, whole);
        first = hn::MulHigh(hn::Add(first, start), shifts);
        last = hn::MulHigh(hn::Add(last, start), lastShifts);
        hn::StoreU(packWords(dw, first, last), d, p);
    }
    return i;
}

void smearQuarters(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    std::size_t i = 0;
    if (distance == 4)
        i = smearQuartersNear(pixels, count);
    else if (distance >= lanesOf<AllPixels>)
        i = smearQuartersFar(AllPixels(), pixels, distance, count);
    if (i == count)
        return;
    Pixel32 before = pixels[static_cast<std::ptrdiff_t>(i) - 1];
    for (Pixel32* pixel = pixels + i; pixel != pixels + count; ++pixel) {
        before = quarter(before) + quarter(pixel[1]) + quarter(pixel[-distance]) + quarter(pixel[distance]);
        *pixel = before;
    }
}

// Where the entries of a table lie in the texture.
HWY_INLINE PixelVector entries(const std::uint16_t* table, PixelVector offset) {
    const AllPixels d;
    const hn::Rebind<std::uint16_t, AllPixels> words;
    return hn::And(hn::Add(hn::PromoteTo(d, hn::LoadU(words, table)), offset), hn::Set(d, 0xFFFFU));
}

void mapTable(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
              std::size_t count) {
    const AllPixels d;
    const auto shift = static_cast<std::uint32_t>(offset);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(lookUp(d, texture, entries(table + i, hn::Set(d, shift))), destination + i);
    for (; i < count; ++i)
        destination[i] = texture[(table[i] + shift) & 0xFFFF];
}

void mapTableReversed(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
                      std::size_t count) {
    const AllPixels d;
    const auto shift = static_cast<std::uint32_t>(offset);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const auto index = entries(table + count - lanes - i, hn::Set(d, shift));
        store(lookUp(d, texture, hn::Reverse(d, index)), destination + i);
    }
    for (; i < count; ++i)
        destination[i] = texture[(table[count - 1 - i] + shift) & 0xFFFF];
}

void overlayKeyed(Pixel32* pixels, const Pixel32* overlay, Pixel32 key, std::size_t count) {
    const auto transparent = hn::Set(AllPixels(), key);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const PixelVector top = load(overlay + i);
        store(hn::IfThenElse(hn::Eq(top, transparent), load(pixels + i), top), pixels + i);
    }
    for (; i < count; ++i)
        pixels[i] = overlay[i] == key ? pixels[i] : overlay[i];
}

void fillPixels(Pixel32* destination, Pixel32 value, std::size_t count) {
    const PixelVector all = hn::Set(AllPixels(), value);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(all, destination + i);
    for (; i < count; ++i)
        destination[i] = value;
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace lumenfold
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "core/dispatch.h"

#include <algorithm>

namespace lumenfold {

LUMENFOLD_TARGETS(addSaturated);
LUMENFOLD_TARGETS(addSaturatedConstant);
LUMENFOLD_TARGETS(fade);
LUMENFOLD_TARGETS(crossFade);
LUMENFOLD_TARGETS(averageHalves);
LUMENFOLD_TARGETS(smearHalves);
LUMENFOLD_TARGETS(smearQuarters);
LUMENFOLD_TARGETS(mapTable);
LUMENFOLD_TARGETS(mapTableReversed);
LUMENFOLD_TARGETS(overlayKeyed);
LUMENFOLD_TARGETS(fillPixels);

void addSaturated(Pixel32* destination, const Pixel32* source, std::size_t count) {
    LUMENFOLD_TARGET(addSaturated)(destination, destination, source, count);
}

void addSaturated(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    LUMENFOLD_TARGET(addSaturated)(destination, a, b, count);
}

void addSaturatedConstant(Pixel32* destination, Pixel32 value, std::size_t count) {
    LUMENFOLD_TARGET(addSaturatedConstant)(destination, value, count);
}

void fade(Pixel32* pixels, std::uint8_t factor, std::size_t count) {
    LUMENFOLD_TARGET(fade)(pixels, factor, count);
}

void crossFade(Pixel32* pixels, const Pixel32* other, std::uint8_t factor, std::size_t count) {
    LUMENFOLD_TARGET(crossFade)(pixels, other, factor, count);
}

void averageHalves(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    LUMENFOLD_TARGET(averageHalves)(destination, a, b, count);
}

void smearHalves(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    LUMENFOLD_TARGET(smearHalves)(pixels, distance, count);
}

void smearQuarters(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    LUMENFOLD_TARGET(smearQuarters)(pixels, distance, count);
}

void mapTable(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
              std::size_t count) {
    LUMENFOLD_TARGET(mapTable)(destination, table, offset, texture, count);
}

void mapTableReversed(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
                      std::size_t count) {
    LUMENFOLD_TARGET(mapTableReversed)(destination, table, offset, texture, count);
}

void overlayKeyed(Pixel32* pixels, const Pixel32* overlay, Pixel32 key, std::size_t count) {
    LUMENFOLD_TARGET(overlayKeyed)(pixels, overlay, key, count);
}

void copyPixels(Pixel32* destination, const Pixel32* source, std::size_t count) {
    std::memcpy(destination, source, count * sizeof(Pixel32));
}

void fillPixels(Pixel32* destination, Pixel32 value, std::size_t count) {
    LUMENFOLD_TARGET(fillPixels)(destination, value, count);
}

void stampAdd(Pixel32* target, int targetWidth, int targetHeight, const Pixel32* sprite, int width, int height, int x,
              int y) {
    // 64-bit corners: the place may be any integer
    const std::int64_t left = std::max<std::int64_t>(0, x);
    const std::int64_t top = std::max<std::int64_t>(0, y);
    const std::int64_t right = std::min<std::int64_t>(targetWidth, std::int64_t{x} + width);
    const std::int64_t bottom = std::min<std::int64_t>(targetHeight, std::int64_t{y} + height);
    if (left >= right || top >= bottom)
        return;
    Pixel32* row = target + top * targetWidth + left;
    const Pixel32* source = sprite + (top - y) * width + (left - x);
    for (std::int64_t rest = bottom - top; rest > 0; --rest, row += targetWidth, source += width)
        addSaturated(row, source, static_cast<std::size_t>(right - left));
}

void copyBlock(Pixel32* destination, int destinationPitch, const Pixel32* source, int sourcePitch, int width,
               int height) {
    for (int row = 0; row < height; ++row, destination += destinationPitch, source += sourcePitch)
        copyPixels(destination, source, static_cast<std::size_t>(width));
}

void fillBlock(Pixel32* destination, int pitch, int width, int height, Pixel32 value) {
    for (int row = 0; row < height; ++row, destination += pitch)
        fillPixels(destination, value, static_cast<std::size_t>(width));
}

} // namespace lumenfold

#endif // HWY_ONCE
