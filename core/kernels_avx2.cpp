// The kernels eight pixels at a time. Each leaves the last pixels of a run to its plain form, so that both give the
// same bits for every length.

#include "core/kernel_table.h"

#if defined(__AVX2__)

#include <immintrin.h>

namespace lumenfold {

namespace {

constexpr std::size_t lanes = 8;

__m256i load(const Pixel32* pixels) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pixels));
}
void store(Pixel32* pixels, __m256i value) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels), value);
}
__m256i broadcast(Pixel32 value) {
    return _mm256_set1_epi32(static_cast<int>(value));
}

void add(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(destination + i, _mm256_adds_epu8(load(a + i), load(b + i)));
    plainKernels.addSaturated(destination + i, a + i, b + i, count - i);
}

void addConstant(Pixel32* destination, Pixel32 value, std::size_t count) {
    const __m256i all = broadcast(value);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(destination + i, _mm256_adds_epu8(load(destination + i), all));
    plainKernels.addSaturatedConstant(destination + i, value, count - i);
}

// Every byte of pixels times factor, halves of 16 bits: the low and the high eight bytes of each 128-bit lane.
struct Products {
    __m256i low;
    __m256i high;
};
Products multiply(__m256i pixels, __m256i factor) {
    const __m256i zero = _mm256_setzero_si256();
    return {_mm256_mullo_epi16(_mm256_unpacklo_epi8(pixels, zero), factor),
            _mm256_mullo_epi16(_mm256_unpackhi_epi8(pixels, zero), factor)};
}
__m256i packHighBytes(Products p) {
    return _mm256_packus_epi16(_mm256_srli_epi16(p.low, 8), _mm256_srli_epi16(p.high, 8));
}

void fade(Pixel32* pixels, std::uint8_t factor, std::size_t count) {
    const __m256i scale = _mm256_set1_epi16(factor);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(pixels + i, packHighBytes(multiply(load(pixels + i), scale)));
    plainKernels.fade(pixels + i, factor, count - i);
}

void crossFade(Pixel32* pixels, const Pixel32* other, std::uint8_t factor, std::size_t count) {
    const __m256i scale = _mm256_set1_epi16(factor);
    const __m256i rest = _mm256_set1_epi16(static_cast<short>(255 - factor));
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const Products p = multiply(load(pixels + i), scale);
        const Products q = multiply(load(other + i), rest);
        store(pixels + i, packHighBytes({_mm256_add_epi16(p.low, q.low), _mm256_add_epi16(p.high, q.high)}));
    }
    plainKernels.crossFade(pixels + i, other + i, factor, count - i);
}

// The sum of two halves, each rounded down: where both bytes are even, the instruction's own rounding up has no effect.
__m256i addHalves(__m256i a, __m256i b) {
    const __m256i even = broadcast(0xFEFEFEFE);
    return _mm256_avg_epu8(_mm256_and_si256(a, even), _mm256_and_si256(b, even));
}

void average(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(destination + i, addHalves(load(a + i), load(b + i)));
    plainKernels.averageHalves(destination + i, a + i, b + i, count - i);
}

// Stores the first lanes alone; a masked store would hold up the loads behind it.
template <int count>
void storeFirst(Pixel32* pixels, __m256i value) {
    if constexpr (count == 8)
        return store(pixels, value);
    __m128i part = _mm256_castsi256_si128(value);
    if constexpr ((count & 4) != 0) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), part);
        part = _mm256_extracti128_si256(value, 1);
    }
    if constexpr ((count & 2) != 0) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(pixels + (count & 4)), part);
        part = _mm_unpackhi_epi64(part, part);
    }
    if constexpr ((count & 1) != 0)
        pixels[count & 6] = static_cast<Pixel32>(_mm_cvtsi128_si32(part));
}

// As many pixels at a time as the distance: none of them depends on another, and they are those behind for the next.
// Those behind are kept complemented: the average of complements is rounded down, and with the low bit of those ahead
// cleared (set, in the complement) that is the sum of the halves in a single instruction from one to the next.
template <int distance>
void smearHalvesNear(Pixel32* pixels, std::size_t count) {
    const __m256i all = broadcast(0xFFFFFFFF);
    const __m256i lowBits = broadcast(0x01010101);
    std::size_t i = 0;
    if (count >= lanes) {
        __m256i behind = _mm256_xor_si256(load(pixels - distance), all);
        for (; i + lanes <= count; i += distance) {
            const __m256i ahead = _mm256_xor_si256(load(pixels + i + distance), all);
            behind = _mm256_avg_epu8(behind, _mm256_or_si256(ahead, lowBits));
            storeFirst<distance>(pixels + i, _mm256_xor_si256(behind, all));
        }
    }
    plainKernels.smearHalves(pixels + i, distance, count - i);
}

void smearHalvesFar(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        Pixel32* p = pixels + i;
        store(p, addHalves(load(p - distance), load(p + distance)));
    }
    plainKernels.smearHalves(pixels + i, distance, count - i);
}

void smearHalves(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    constexpr void (*near[])(Pixel32*, std::size_t) = {smearHalvesNear<1>, smearHalvesNear<2>, smearHalvesNear<3>,
                                                       smearHalvesNear<4>, smearHalvesNear<5>, smearHalvesNear<6>,
                                                       smearHalvesNear<7>, smearHalvesNear<8>};
    if (distance <= static_cast<std::ptrdiff_t>(lanes))
        near[distance - 1](pixels, count);
    else
        smearHalvesFar(pixels, distance, count);
}

// One pixel after the other, its bytes 16 bits wide in the lower half: two instructions from one to the next.
struct Smear {
    __m128i pixel;

    // rest: two pixels' three other quarters. Returns the two pixels.
    __m128i next(__m128i rest) {
        const __m128i first = _mm_add_epi16(_mm_srli_epi16(pixel, 2), rest);
        pixel = _mm_add_epi16(_mm_srli_epi16(first, 2), _mm_unpackhi_epi64(rest, rest));
        return _mm_unpacklo_epi64(first, pixel);
    }
};

// A distance of four pixels: those go on in the registers, 16 bits wide, from four to four.
std::size_t smearQuartersNear(Pixel32* pixels, std::size_t count) {
    const auto loadFour = [](const Pixel32* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); };
    const auto quartersOf = [](__m128i p) { return _mm_and_si128(_mm_srli_epi32(p, 2), _mm_set1_epi32(0x3F3F3F3F)); };
    const __m128i zero = _mm_setzero_si128();
    Smear smear = {_mm_cvtepu8_epi16(_mm_cvtsi32_si128(static_cast<int>(pixels[-1])))};
    __m128i first = _mm_unpacklo_epi8(loadFour(pixels - 4), zero);
    __m128i second = _mm_unpackhi_epi8(loadFour(pixels - 4), zero);
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        Pixel32* p = pixels + i;
        const __m128i ahead = _mm_add_epi32(quartersOf(loadFour(p + 1)), quartersOf(loadFour(p + 4)));
        first = smear.next(_mm_add_epi16(_mm_unpacklo_epi8(ahead, zero), _mm_srli_epi16(first, 2)));
        second = smear.next(_mm_add_epi16(_mm_unpackhi_epi8(ahead, zero), _mm_srli_epi16(second, 2)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm_packus_epi16(first, second));
    }
    return i;
}

// Four values of 16 bits for each pixel of pairs of pixels: a before b.
__m256i pairs(int a, int b) {
    const auto wide = [](int value) { return static_cast<long long>(value * 0x0001000100010001ULL); };
    return _mm256_setr_epi64x(wide(a), wide(b), wide(a), wide(b));
}

// From eight pixels on the three other quarters, r, are known for eight pixels at once. Rounding down can wait:
// a quarter of (a quarter of p, plus r0), plus r1 is (p + 4 r0 + 16 r1) >> 4, and so on; four pixels take 16 bits. So
// the pixel behind needs two instructions from four pixels to the next four.
std::size_t smearQuartersFar(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    const __m256i multiplesOfFour = broadcast(0xFCFCFCFC);
    const __m256i zero = _mm256_setzero_si256();
    __m128i behind = _mm_cvtepu8_epi16(_mm_set1_epi32(static_cast<int>(pixels[-1])));
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        Pixel32* p = pixels + i;
        const __m256i back = _mm256_and_si256(load(p - distance), multiplesOfFour);
        const __m256i ahead = _mm256_and_si256(load(p + distance), multiplesOfFour);
        const __m256i next = _mm256_and_si256(load(p + 1), multiplesOfFour);
        const __m256i r =
            _mm256_add_epi32(_mm256_srli_epi32(_mm256_avg_epu8(back, ahead), 1), _mm256_srli_epi32(next, 2));

        // sums of the weighted r up to each pixel: the first two and the last two of every four
        __m256i first = _mm256_mullo_epi16(_mm256_unpacklo_epi8(r, zero), pairs(4, 16));
        __m256i last = _mm256_mullo_epi16(_mm256_unpackhi_epi8(r, zero), pairs(64, 256));
        first = _mm256_add_epi16(first, _mm256_slli_si256(first, 8));
        last = _mm256_add_epi16(last, _mm256_slli_si256(last, 8));
        last = _mm256_add_epi16(last, _mm256_unpackhi_epi64(first, first));

        const __m256i whole = _mm256_unpackhi_epi64(last, last);
        const __m128i between = _mm_srli_epi16(_mm_add_epi16(behind, _mm256_castsi256_si128(whole)), 8);
        const __m256i start = _mm256_set_m128i(between, behind);
        behind = _mm_srli_epi16(_mm_add_epi16(between, _mm256_extracti128_si256(whole, 1)), 8);

        // shifts to the right by 2, 4, 6 and 8
        first = _mm256_mulhi_epu16(_mm256_add_epi16(first, start), pairs(1 << 14, 1 << 12));
        last = _mm256_mulhi_epu16(_mm256_add_epi16(last, start), pairs(1 << 10, 1 << 8));
        store(p, _mm256_packus_epi16(first, last));
    }
    return i;
}

void smearQuarters(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    std::size_t done = 0;
    if (distance == 4)
        done = smearQuartersNear(pixels, count);
    else if (distance >= static_cast<std::ptrdiff_t>(lanes))
        done = smearQuartersFar(pixels, distance, count);
    plainKernels.smearQuarters(pixels + done, distance, count - done);
}

__m256i lookUp(const std::uint16_t* table, __m256i offset, const Pixel32* texture) {
    const __m256i entries = _mm256_cvtepu16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(table)));
    const __m256i index = _mm256_and_si256(_mm256_add_epi32(entries, offset), _mm256_set1_epi32(0xFFFF));
    return _mm256_i32gather_epi32(reinterpret_cast<const int*>(texture), index, 4);
}

void map(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
         std::size_t count) {
    const __m256i shift = _mm256_set1_epi32(offset);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(destination + i, lookUp(table + i, shift, texture));
    plainKernels.mapTable(destination + i, table + i, offset, texture, count - i);
}

void mapReversed(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
                 std::size_t count) {
    const __m256i shift = _mm256_set1_epi32(offset);
    const __m256i backwards = _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const __m256i texels = lookUp(table + count - lanes - i, shift, texture);
        store(destination + i, _mm256_permutevar8x32_epi32(texels, backwards));
    }
    plainKernels.mapTableReversed(destination + i, table, offset, texture, count - i);
}

void overlay(Pixel32* pixels, const Pixel32* picture, Pixel32 key, std::size_t count) {
    const __m256i transparent = broadcast(key);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const __m256i top = load(picture + i);
        store(pixels + i, _mm256_blendv_epi8(top, load(pixels + i), _mm256_cmpeq_epi32(top, transparent)));
    }
    plainKernels.overlayKeyed(pixels + i, picture + i, key, count - i);
}

void fill(Pixel32* destination, Pixel32 value, std::size_t count) {
    const __m256i all = broadcast(value);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(destination + i, all);
    plainKernels.fillPixels(destination + i, value, count - i);
}

void addBlock(Pixel32* destination, int destinationPitch, const Pixel32* source, int sourcePitch, int width,
              int height) {
    for (int row = 0; row < height; ++row, destination += destinationPitch, source += sourcePitch)
        add(destination, destination, source, static_cast<std::size_t>(width));
}

const KernelTable avx2Kernels = {add,           addConstant, fade,        crossFade, average, smearHalves,
                                 smearQuarters, map,         mapReversed, overlay,   fill,    addBlock};

} // namespace

const KernelTable* vectorKernels() {
    return __builtin_cpu_supports("avx2") ? &avx2Kernels : nullptr;
}

} // namespace lumenfold

#else

namespace lumenfold {

const KernelTable* vectorKernels() {
    return nullptr;
}

} // namespace lumenfold

#endif
