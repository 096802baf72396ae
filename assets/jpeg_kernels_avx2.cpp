// The decoder's inner loops in 256-bit vectors. They keep the order of the plain forms' additions and leave the last
// samples of a row to them.

#include "assets/jpeg_kernels.h"
#include "assets/jpeg_transform.h"

#if defined(__AVX2__)

#include <immintrin.h>

namespace lumenfold {

namespace {

__m256i widen16(const std::uint8_t* bytes) {
    return _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)));
}

void mixRows(const std::uint8_t* top, const std::uint8_t* bottom, int quarters, std::uint16_t* mixed,
             std::size_t count) {
    const __m256i topWeight = _mm256_set1_epi16(static_cast<short>(4 - quarters));
    const __m256i bottomWeight = _mm256_set1_epi16(static_cast<short>(quarters));
    std::size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        const __m256i sum = _mm256_add_epi16(_mm256_mullo_epi16(widen16(top + i), topWeight),
                                             _mm256_mullo_epi16(widen16(bottom + i), bottomWeight));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(mixed + i), sum);
    }
    jpegMixRows(top + i, bottom + i, quarters, mixed + i, count - i);
}

void doubleRow(const std::uint16_t* mixed, std::uint8_t* row, std::size_t count) {
    std::size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        const __m256i here = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(mixed + i));
        const __m256i next = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(mixed + i + 1));
        const __m256i even = _mm256_srli_epi16(here, 2);
        const __m256i odd = _mm256_srli_epi16(_mm256_add_epi16(here, next), 3);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(row + 2 * i), _mm256_or_si256(even, _mm256_slli_epi16(odd, 8)));
    }
    jpegDoubleRow(mixed + i, row + 2 * i, count - i);
}

__m256i widen32(const std::uint8_t* bytes) {
    return _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes)));
}

__m128i green(__m128i y, __m128i cb, __m128i cr) {
    const __m256d fromCb = _mm256_mul_pd(_mm256_set1_pd(jpegGreenCb), _mm256_cvtepi32_pd(cb));
    const __m256d fromCr = _mm256_mul_pd(_mm256_set1_pd(jpegGreenCr), _mm256_cvtepi32_pd(cr));
    return _mm256_cvttpd_epi32(_mm256_sub_pd(_mm256_sub_pd(_mm256_cvtepi32_pd(y), fromCb), fromCr));
}

__m256i clampByte(__m256i values) {
    return _mm256_min_epi32(_mm256_max_epi32(values, _mm256_setzero_si256()), _mm256_set1_epi32(255));
}

void convertRow(const std::uint8_t* const components[4], Pixel32* pixels, std::size_t count) {
    const __m256i middle = _mm256_set1_epi32(128);
    const __m256i redFactor = _mm256_set1_epi32(jpegRedFactor);
    const __m256i blueFactor = _mm256_set1_epi32(jpegBlueFactor);
    std::size_t x = 0;
    for (; x + 8 <= count; x += 8) {
        const __m256i y = widen32(components[0] + x);
        const __m256i cb = _mm256_sub_epi32(widen32(components[1] + x), middle);
        const __m256i cr = _mm256_sub_epi32(widen32(components[2] + x), middle);
        const __m256i red = _mm256_add_epi32(y, _mm256_srai_epi32(_mm256_mullo_epi32(cr, redFactor), 16));
        const __m256i blue = _mm256_add_epi32(y, _mm256_srai_epi32(_mm256_mullo_epi32(cb, blueFactor), 16));
        const __m256i greens = _mm256_set_m128i(
            green(_mm256_extracti128_si256(y, 1), _mm256_extracti128_si256(cb, 1), _mm256_extracti128_si256(cr, 1)),
            green(_mm256_castsi256_si128(y), _mm256_castsi256_si128(cb), _mm256_castsi256_si128(cr)));
        __m256i pixel = _mm256_slli_epi32(widen32(components[3] + x), 24);
        pixel = _mm256_or_si256(pixel, _mm256_slli_epi32(clampByte(red), 16));
        pixel = _mm256_or_si256(pixel, _mm256_slli_epi32(clampByte(greens), 8));
        pixel = _mm256_or_si256(pixel, clampByte(blue));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels + x), pixel);
    }
    const std::uint8_t* rest[4] = {components[0] + x, components[1] + x, components[2] + x, components[3] + x};
    jpegConvertRow(rest, pixels + x, count - x);
}

constexpr JpegKernels vectorKernels = {jpegTransformVector, mixRows, doubleRow, convertRow};

} // namespace

const JpegKernels* jpegVectorKernels() {
    return &vectorKernels;
}

} // namespace lumenfold

#else

namespace lumenfold {

const JpegKernels* jpegVectorKernels() {
    return nullptr;
}

} // namespace lumenfold

#endif
