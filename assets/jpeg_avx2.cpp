// The decoder's inner loops in 256-bit vectors. They keep the order of the plain forms' additions and leave the last
// samples of a row to them.

#include "assets/jpeg_colour.h"
#include "assets/jpeg_kernels.h"
#include "assets/jpeg_transform.h"

#if defined(__AVX2__)

#include <bit>
#include <immintrin.h>

namespace lumenfold {

namespace {

// Eight values of a row, truncated and clamped, in the low 8 bytes. The conversion gives the smallest integer for
// what fits none, as truncate() does; the two narrowings together clamp to 0 to 255.
__m128i samples(__m256d left, __m256d right) {
    const __m128i words = _mm_packs_epi32(_mm256_cvttpd_epi32(left), _mm256_cvttpd_epi32(right));
    return _mm_packus_epi16(words, words);
}

void storeSamples(std::uint8_t* destination, __m128i bytes) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(destination), bytes);
}

// Four rows at a time: their 32 values are what the registers hold.
void sumProducts(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    const JpegCosines& cosines = jpegCosines();
    const __m256d middle = _mm256_set1_pd(128.0);
    for (int half = 0; half < 64; half += 32) {
        __m256d sums[8];
        for (__m256d& sum : sums)
            sum = _mm256_setzero_pd();
        for (std::uint64_t left = block.present; left != 0; left &= left - 1) {
            const auto i = static_cast<std::size_t>(std::countr_zero(left));
            const __m256d coefficient = _mm256_set1_pd(block.coefficients[i]);
            const double* products = cosines.products[i] + half;
#pragma GCC unroll 8
            for (int n = 0; n < 8; ++n)
                sums[n] = _mm256_add_pd(sums[n], _mm256_mul_pd(_mm256_load_pd(products + 4 * n), coefficient));
        }
        for (int n = 0; n < 8; n += 2, destination += stride)
            storeSamples(destination, samples(_mm256_add_pd(sums[n], middle), _mm256_add_pd(sums[n + 1], middle)));
    }
}

// False where a value is so near to a step that only the long sum decides.
bool sumTwoPasses(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    const auto& lines = jpegCosines().lines;
    __m256d rows[8][2];
    int frequencies[8];
    int rowCount = 0;
    for (int v = 0; v < 8; ++v) {
        auto left = static_cast<std::uint32_t>(block.present >> (v * 8) & 0xFF);
        if (left == 0)
            continue;
        __m256d sums[2] = {_mm256_setzero_pd(), _mm256_setzero_pd()};
        for (; left != 0; left &= left - 1) {
            const auto u = static_cast<std::size_t>(std::countr_zero(left));
            const __m256d coefficient = _mm256_set1_pd(block.coefficients[static_cast<std::size_t>(v) * 8 + u]);
            sums[0] = _mm256_add_pd(sums[0], _mm256_mul_pd(_mm256_load_pd(lines[u]), coefficient));
            sums[1] = _mm256_add_pd(sums[1], _mm256_mul_pd(_mm256_load_pd(lines[u] + 4), coefficient));
        }
        frequencies[rowCount] = v;
        rows[rowCount][0] = sums[0];
        rows[rowCount][1] = sums[1];
        ++rowCount;
    }
    const __m256d below = _mm256_set1_pd(128.0 - jpegMargin);
    const __m256d above = _mm256_set1_pd(128.0 + jpegMargin);
    __m128i doubt = _mm_setzero_si128();
    for (int y = 0; y < 8; ++y, destination += stride) {
        __m256d left = _mm256_setzero_pd();
        __m256d right = _mm256_setzero_pd();
        for (int n = 0; n < rowCount; ++n) {
            const __m256d cosine = _mm256_set1_pd(lines[frequencies[n]][y]);
            left = _mm256_add_pd(left, _mm256_mul_pd(rows[n][0], cosine));
            right = _mm256_add_pd(right, _mm256_mul_pd(rows[n][1], cosine));
        }
        const __m128i low = samples(_mm256_add_pd(left, below), _mm256_add_pd(right, below));
        const __m128i high = samples(_mm256_add_pd(left, above), _mm256_add_pd(right, above));
        doubt = _mm_or_si128(doubt, _mm_xor_si128(low, high));
        storeSamples(destination, low);
    }
    return _mm_testz_si128(doubt, doubt) != 0;
}

void transform(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    if (block.count == 1)
        jpegFlatBlock(block.coefficients[0], destination, stride);
    else if (!jpegWorthTwoPasses(block) || !sumTwoPasses(block, destination, stride))
        sumProducts(block, destination, stride);
}

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

constexpr JpegKernels vectorKernels = {transform, mixRows, doubleRow, convertRow};

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
