#pragma once

// Eight pixels of a span at once; for the *_avx2.cpp files only. Everything here is local to the file that includes
// it, so that no vector code gets shared with files compiled for older processors.

#include "core/pixel.h"

#include <cstdint>
#include <immintrin.h>

namespace lumenfold {

namespace {

constexpr std::int32_t laneCount = 8;

inline __m256i laneNumbers() {
    return _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
}

// All bits set in the first `count` lanes.
inline __m256i firstLanes(std::int32_t count) {
    return _mm256_cmpgt_epi32(_mm256_set1_epi32(count), laneNumbers());
}

// The texels of the lanes in mask, zero in the others; columns and rows (16.16) wrap.
inline __m256i gatherTexels(const Pixel32* texture, __m256i column, __m256i row, __m256i mask) {
    const __m256i index = _mm256_or_si256(_mm256_and_si256(_mm256_srli_epi32(row, 8), _mm256_set1_epi32(0xFF00)),
                                          _mm256_and_si256(_mm256_srli_epi32(column, 16), _mm256_set1_epi32(0xFF)));
    return _mm256_mask_i32gather_epi32(_mm256_setzero_si256(), reinterpret_cast<const int*>(texture), index, mask, 4);
}

inline void storeLanes(Pixel32* pixels, __m256i mask, __m256i value) {
    _mm256_maskstore_epi32(reinterpret_cast<int*>(pixels), mask, value);
}
inline __m256i loadLanes(const Pixel32* pixels, __m256i mask) {
    return _mm256_maskload_epi32(reinterpret_cast<const int*>(pixels), mask);
}

inline bool sameBinade(float a, float b) {
    const auto bits = [](float value) { return _mm_cvtsi128_si32(_mm_castps_si128(_mm_set_ss(value))); };
    return static_cast<std::uint32_t>(bits(a) ^ bits(b)) >> 23 == 0;
}

// The floats that repeated addition gives: start, start + step, (start + step) + step and so on, each sum rounded.
//
// As long as the sums keep sign and exponent they lie on one grid, and adding the step moves each by the same whole
// number of grid places: the step rounded to the grid. Only a step that falls half way between two places may round
// differently from the first sum, which lands on an even place, and from there on always alike. So the second
// difference holds for all that follow, and its multiples are exact. Sums that change their exponent on the way are
// added up one by one instead.
class FloatRamp {
  public:
    // count: floats that will be asked for, at most 2^23.
    FloatRamp(float start, float step, std::int32_t count) : start_(start), first_(start + step), step_(step) {
        difference_ = (first_ + step) - first_;
        // one place past the last float, so that no sum rounds on the finer grid below
        const float end = first_ + static_cast<float>(count - 1) * difference_;
        regular_ = sameBinade(start, end) && end == end;
    }

    // Floats number `at` to `at` + 7; at = 0, 8, 16 and so on, in this order.
    __m256 next(std::int32_t at) {
        if (!regular_)
            return addUp();
        const __m256 place = _mm256_cvtepi32_ps(_mm256_add_epi32(laneNumbers(), _mm256_set1_epi32(at - 1)));
        const __m256 all = _mm256_add_ps(_mm256_set1_ps(first_), _mm256_mul_ps(place, _mm256_set1_ps(difference_)));
        return at == 0 ? _mm256_blend_ps(all, _mm256_set1_ps(start_), 1) : all;
    }

  private:
    __m256 addUp() {
        alignas(32) float sums[laneCount];
        for (float& sum : sums) {
            sum = start_;
            start_ += step_;
        }
        return _mm256_load_ps(sums);
    }

    float start_; // of the next eight, where they are added up
    float first_; // the first sum
    float step_;
    float difference_;
    bool regular_;
};

} // namespace

} // namespace lumenfold
