// The inverse transform in 256-bit vectors: a first try in single precision, eight values at a time and its error
// known, then the definition's sums for those rows in which the error could change a sample.

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

// Bit i: coefficient i is not 0. The others would add nothing.
std::uint64_t presentOf(const JpegBlock& block) {
    std::uint64_t present = 0;
    for (int v = 7; v >= 0; --v) {
        const __m256i row = _mm256_load_si256(reinterpret_cast<const __m256i*>(block.coefficients.data() + 8 * v));
        const __m256i zeros = _mm256_cmpeq_epi32(row, _mm256_setzero_si256());
        const int mask = ~_mm256_movemask_ps(_mm256_castsi256_ps(zeros)) & 0xFF;
        present = present << 8 | static_cast<std::uint64_t>(mask);
    }
    return present;
}

// The sums for some neighbouring rows.
template <int rows>
void sumProducts(const JpegBlock& block, std::uint64_t present, int first, std::uint8_t* destination,
                 std::size_t stride) {
    const JpegCosines& cosines = jpegCosines();
    const __m256d middle = _mm256_set1_pd(128.0);
    __m256d sums[2 * rows];
    for (__m256d& sum : sums)
        sum = _mm256_setzero_pd();
    for (std::uint64_t left = present; left != 0; left &= left - 1) {
        const auto i = static_cast<std::size_t>(std::countr_zero(left));
        const __m256d coefficient = _mm256_set1_pd(block.coefficients[i]);
        const double* products = cosines.products[i] + 8 * first;
#pragma GCC unroll 8
        for (int n = 0; n < 2 * rows; ++n)
            sums[n] = _mm256_add_pd(sums[n], _mm256_mul_pd(_mm256_load_pd(products + 4 * n), coefficient));
    }
    for (int n = 0; n < 2 * rows; n += 2, destination += stride)
        storeSamples(destination, samples(_mm256_add_pd(sums[n], middle), _mm256_add_pd(sums[n + 1], middle)));
}

// 256 x cos(k pi / 16) / 2. Both passes together scale by 2^16: their results are 16.16 fixed point.
constexpr float cosine1 = 125.540515892f;
constexpr float cosine2 = 118.256580161f;
constexpr float cosine3 = 106.428110375f;
constexpr float cosine4 = 90.509667992f;
constexpr float cosine5 = 71.112989827f;
constexpr float cosine6 = 48.983479343f;
constexpr float cosine7 = 24.971561218f;

// A value's way through transformLines() takes at most five roundings, that of the cosine included, and a cosine is at
// most 0.491. Two passes are off by 10 x 2^-24 x 0.491^2 of the coefficients' absolute sum, less than 2.5 x 2^-24; the
// products of the roundings, what the 10 digits of pi make of the cosines' symmetries (3e-10 for each coefficient) and
// the roundings of the definition itself stay below the rest. Here in units of 2^-16.
constexpr float errorPerCoefficient = 2.75f * 0x1p-24f * 0x1p+16f;

// Beyond this sum of absolute values the fixed-point numbers and the errors would grow too large.
constexpr float largestSum = 0x1p+14f;

using Lines = __m256[8];

__m256 scaled(__m256 value, float factor) {
    return _mm256_mul_ps(value, _mm256_set1_ps(factor));
}

// One dimension of the transform across the eight vectors.
inline void transformLines(Lines& x) {
    const __m256 sum = scaled(_mm256_add_ps(x[0], x[4]), cosine4);
    const __m256 difference = scaled(_mm256_sub_ps(x[0], x[4]), cosine4);
    const __m256 outer = _mm256_add_ps(scaled(x[2], cosine2), scaled(x[6], cosine6));
    const __m256 inner = _mm256_sub_ps(scaled(x[2], cosine6), scaled(x[6], cosine2));
    const __m256 even[4] = {_mm256_add_ps(sum, outer), _mm256_add_ps(difference, inner),
                            _mm256_sub_ps(difference, inner), _mm256_sub_ps(sum, outer)};
    const __m256 odd[4] = {_mm256_add_ps(_mm256_add_ps(scaled(x[1], cosine1), scaled(x[3], cosine3)),
                                         _mm256_add_ps(scaled(x[5], cosine5), scaled(x[7], cosine7))),
                           _mm256_sub_ps(_mm256_sub_ps(scaled(x[1], cosine3), scaled(x[3], cosine7)),
                                         _mm256_add_ps(scaled(x[5], cosine1), scaled(x[7], cosine5))),
                           _mm256_add_ps(_mm256_sub_ps(scaled(x[1], cosine5), scaled(x[3], cosine1)),
                                         _mm256_add_ps(scaled(x[5], cosine7), scaled(x[7], cosine3))),
                           _mm256_add_ps(_mm256_sub_ps(scaled(x[1], cosine7), scaled(x[3], cosine5)),
                                         _mm256_sub_ps(scaled(x[5], cosine3), scaled(x[7], cosine1)))};
    for (int n = 0; n < 4; ++n) {
        x[n] = _mm256_add_ps(even[n], odd[n]);
        x[7 - n] = _mm256_sub_ps(even[n], odd[n]);
    }
}

void transpose(Lines& x) {
    __m256 pairs[8];
    for (int n = 0; n < 8; n += 2) {
        pairs[n] = _mm256_unpacklo_ps(x[n], x[n + 1]);
        pairs[n + 1] = _mm256_unpackhi_ps(x[n], x[n + 1]);
    }
    __m256 fours[8]; // columns 0 to 3, and 4 to 7 in the upper halves, of rows 0 to 3 and then of rows 4 to 7
    for (int n = 0; n < 8; n += 4) {
        fours[n] = _mm256_shuffle_ps(pairs[n], pairs[n + 2], _MM_SHUFFLE(1, 0, 1, 0));
        fours[n + 1] = _mm256_shuffle_ps(pairs[n], pairs[n + 2], _MM_SHUFFLE(3, 2, 3, 2));
        fours[n + 2] = _mm256_shuffle_ps(pairs[n + 1], pairs[n + 3], _MM_SHUFFLE(1, 0, 1, 0));
        fours[n + 3] = _mm256_shuffle_ps(pairs[n + 1], pairs[n + 3], _MM_SHUFFLE(3, 2, 3, 2));
    }
    for (int n = 0; n < 4; ++n) {
        x[n] = _mm256_permute2f128_ps(fours[n], fours[n + 4], 0x20);
        x[n + 4] = _mm256_permute2f128_ps(fours[n], fours[n + 4], 0x31);
    }
}

void loadRows(const JpegBlock& block, Lines& rows) {
    for (int v = 0; v < 8; ++v)
        rows[v] =
            _mm256_cvtepi32_ps(_mm256_load_si256(reinterpret_cast<const __m256i*>(block.coefficients.data() + 8 * v)));
}

float sumOf(__m256 values) {
    __m128 sum = _mm_add_ps(_mm256_castps256_ps128(values), _mm256_extractf128_ps(values, 1));
    sum = _mm_add_ps(sum, _mm_movehl_ps(sum, sum));
    return _mm_cvtss_f32(_mm_add_ss(sum, _mm_movehdup_ps(sum)));
}

// The absolute values, those of the frequencies 0 with the share that their smaller cosines have.
float absoluteSum(const Lines& rows) {
    const __m256 magnitude = _mm256_castsi256_ps(_mm256_set1_epi32(0x7FFFFFFF));
    const __m256 shares = _mm256_setr_ps(0.53f, 0.73f, 0.73f, 0.73f, 0.73f, 0.73f, 0.73f, 0.73f);
    __m256 sum = _mm256_mul_ps(_mm256_and_ps(rows[0], magnitude), shares);
    for (int v = 1; v < 8; ++v)
        sum = _mm256_add_ps(sum, _mm256_and_ps(rows[v], magnitude));
    return sumOf(sum);
}

// Writes the samples from eight columns; returns a bit for every row in which a value is within the error from a step.
unsigned writeColumns(const Lines& columns, int error, std::uint8_t* destination, std::size_t stride) {
    const __m256i middle = _mm256_set1_epi32(128 << 16);
    const __m256i fraction = _mm256_set1_epi32(0xFFFF);
    const __m256i below = _mm256_set1_epi32(error);
    const __m256i within = _mm256_set1_epi32(2 * error + 1);
    __m256i whole[8];
    __m256i doubt = _mm256_setzero_si256();
    for (int x = 0; x < 8; ++x) {
        const __m256i fixed = _mm256_add_epi32(_mm256_cvtps_epi32(columns[x]), middle);
        const __m256i shifted = _mm256_and_si256(_mm256_add_epi32(fixed, below), fraction);
        doubt = _mm256_or_si256(doubt, _mm256_cmpgt_epi32(within, shifted));
        whole[x] = _mm256_srai_epi32(fixed, 16);
    }
    // Four columns to a vector, then each row's four neighbours together: rows 0 to 3 below, 4 to 7 above.
    const __m256i rowByRow =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15));
    __m256i halves[2];
    for (int n = 0; n < 2; ++n) {
        const __m256i* four = whole + 4 * n;
        const __m256i bytes =
            _mm256_packus_epi16(_mm256_packs_epi32(four[0], four[1]), _mm256_packs_epi32(four[2], four[3]));
        halves[n] = _mm256_shuffle_epi8(bytes, rowByRow);
    }
    const __m256i first = _mm256_unpacklo_epi32(halves[0], halves[1]);  // rows 0, 1 and 4, 5
    const __m256i second = _mm256_unpackhi_epi32(halves[0], halves[1]); // rows 2, 3 and 6, 7
    for (const __m128i pair : {_mm256_castsi256_si128(first), _mm256_castsi256_si128(second),
                               _mm256_extracti128_si256(first, 1), _mm256_extracti128_si256(second, 1)}) {
        storeSamples(destination, pair);
        storeSamples(destination + stride, _mm_unpackhi_epi64(pair, pair));
        destination += 2 * stride;
    }
    return static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(doubt)));
}

// False, and nothing is written, where the coefficients are too large for it.
bool transformSingle(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    Lines lines;
    loadRows(block, lines);
    const float sum = absoluteSum(lines);
    if (!(sum < largestSum))
        return false;
    transformLines(lines);
    transpose(lines);
    transformLines(lines);
    // and one for the rounding to fixed point, another for that of the error itself
    const int error = static_cast<int>(sum * errorPerCoefficient) + 2;
    unsigned rows = writeColumns(lines, error, destination, stride);
    if (rows == 0)
        return true;
    const std::uint64_t present = presentOf(block);
    for (; rows != 0; rows &= rows - 1) {
        const int y = std::countr_zero(rows);
        sumProducts<1>(block, present, y, destination + static_cast<std::size_t>(y) * stride, stride);
    }
    return true;
}

// So few coefficients that their sums are the shorter way.
constexpr int fewCoefficients = 2;

} // namespace

void jpegTransformVector(const JpegBlock& block, std::uint8_t* destination, std::size_t stride) {
    if (block.count == 1)
        return jpegFlatBlock(block.coefficients[0], destination, stride);
    if (block.count > fewCoefficients && transformSingle(block, destination, stride))
        return;
    const std::uint64_t present = presentOf(block);
    sumProducts<4>(block, present, 0, destination, stride);
    sumProducts<4>(block, present, 4, destination + 4 * stride, stride);
}

} // namespace lumenfold

#endif
