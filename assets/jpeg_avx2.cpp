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

// The columns of a row in the order in which two vectors of doubles are narrowed to one of integers.
struct ColumnPair {
    __m256d outer; // columns 0, 1, 4, 5
    __m256d inner; // columns 2, 3, 6, 7
};

ColumnPair lineOf(const double (&line)[8]) {
    const __m256d left = _mm256_load_pd(line);
    const __m256d right = _mm256_load_pd(line + 4);
    return {_mm256_permute2f128_pd(left, right, 0x20), _mm256_permute2f128_pd(left, right, 0x31)};
}

ColumnPair addScaled(ColumnPair sum, ColumnPair values, __m256d factor) {
    return {_mm256_add_pd(sum.outer, _mm256_mul_pd(values.outer, factor)),
            _mm256_add_pd(sum.inner, _mm256_mul_pd(values.inner, factor))};
}

// A row's values plus 128 as 18.14 fixed point, rounded: the sum with a number so large that its last bit weighs 2^-14.
__m256i fixedPoint(__m256d outer, __m256d inner) {
    const __m256d large = _mm256_set1_pd(0x1.8p+38 + 128.0);
    const __m256 first = _mm256_castpd_ps(_mm256_add_pd(outer, large));
    const __m256 second = _mm256_castpd_ps(_mm256_add_pd(inner, large));
    return _mm256_castps_si256(_mm256_shuffle_ps(first, second, _MM_SHUFFLE(2, 0, 2, 0)));
}

// Rows of horizontal sums for those vertical frequencies that occur.
struct FrequencyRows {
    ColumnPair sums[8];
    const double* cosines[8]; // by position
    int even;                 // rows of even frequencies, from the start
    int odd;                  // rows of odd ones, from the end
};

FrequencyRows sumRows(const JpegBlock& block) {
    const auto& lines = jpegCosines().lines;
    FrequencyRows rows;
    rows.even = 0;
    rows.odd = 0;
    for (std::size_t v = 0; v < 8; ++v) {
        auto left = static_cast<std::uint32_t>(block.present >> (v * 8) & 0xFF);
        if (left == 0)
            continue;
        ColumnPair sum = {_mm256_setzero_pd(), _mm256_setzero_pd()};
        for (; left != 0; left &= left - 1) {
            const auto u = static_cast<std::size_t>(std::countr_zero(left));
            sum = addScaled(sum, lineOf(lines[u]), _mm256_set1_pd(block.coefficients[v * 8 + u]));
        }
        const int place = v % 2 == 0 ? rows.even++ : 7 - rows.odd++;
        rows.sums[place] = sum;
        rows.cosines[place] = lines[v];
    }
    return rows;
}

ColumnPair sumColumn(const FrequencyRows& rows, int first, int last, int y) {
    ColumnPair sum = {_mm256_setzero_pd(), _mm256_setzero_pd()};
    for (int n = first; n < last; ++n)
        sum = addScaled(sum, rows.sums[n], _mm256_broadcast_sd(rows.cosines[n] + y));
    return sum;
}

// False where a value is so near to a step that only the long sum decides. The cosines of even frequencies are the
// same at position 7 - y as at y, those of odd ones change their sign.
bool sumTwoPasses(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    const FrequencyRows rows = sumRows(block);
    __m256i fixed[8];
    for (int y = 0; y < 4; ++y) {
        const ColumnPair even = sumColumn(rows, 0, rows.even, y);
        const ColumnPair odd = sumColumn(rows, 8 - rows.odd, 8, y);
        fixed[y] = fixedPoint(_mm256_add_pd(even.outer, odd.outer), _mm256_add_pd(even.inner, odd.inner));
        fixed[7 - y] = fixedPoint(_mm256_sub_pd(even.outer, odd.outer), _mm256_sub_pd(even.inner, odd.inner));
    }
    // In doubt: a fraction of -2 to 1 units of 2^-14, the rounding being half a unit and the margin one.
    const __m256i fraction = _mm256_set1_epi32(0x3FFF);
    const __m256i two = _mm256_set1_epi32(2);
    __m256i doubt = _mm256_setzero_si256();
    for (__m256i& row : fixed) {
        const __m256i shifted = _mm256_and_si256(_mm256_add_epi32(row, two), fraction);
        doubt = _mm256_or_si256(doubt, _mm256_cmpgt_epi32(_mm256_set1_epi32(4), shifted));
        row = _mm256_srai_epi32(row, 14);
    }
    if (_mm256_testz_si256(doubt, doubt) == 0)
        return false;
    const __m256i order = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7);
    for (int y = 0; y < 8; y += 4) {
        const __m256i narrow = _mm256_packus_epi16(_mm256_packs_epi32(fixed[y], fixed[y + 1]),
                                                   _mm256_packs_epi32(fixed[y + 2], fixed[y + 3]));
        const __m256i bytes = _mm256_permutevar8x32_epi32(narrow, order);
        const __m128i upper = _mm256_castsi256_si128(bytes);
        const __m128i lower = _mm256_extracti128_si256(bytes, 1);
        for (const __m128i pair : {upper, lower}) {
            storeSamples(destination, pair);
            storeSamples(destination + stride, _mm_unpackhi_epi64(pair, pair));
            destination += 2 * stride;
        }
    }
    return true;
}

void transform(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    if (block.present == 1)
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
