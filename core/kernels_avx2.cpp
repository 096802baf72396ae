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

__m256i halves(__m256i pixels) {
    return _mm256_and_si256(_mm256_srli_epi32(pixels, 1), broadcast(0x7F7F7F7F));
}

void average(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        store(destination + i, _mm256_add_epi32(halves(load(a + i)), halves(load(b + i))));
    plainKernels.averageHalves(destination + i, a + i, b + i, count - i);
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

void addBlock(Pixel32* destination, int destinationPitch, const Pixel32* source, int sourcePitch, int width,
              int height) {
    for (int row = 0; row < height; ++row, destination += destinationPitch, source += sourcePitch)
        add(destination, destination, source, static_cast<std::size_t>(width));
}

const KernelTable avx2Kernels = {add, addConstant, fade, crossFade, average, map, mapReversed, overlay, addBlock};

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
