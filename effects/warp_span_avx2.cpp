// The rows of the warps eight pixels at a time. The last pixels of a row are left to the plain form.

#include "effects/warp_span.h"

#if defined(__AVX2__)

#include "core/convert.h"

#include <immintrin.h>

namespace lumenfold {

namespace {

constexpr int lanes = 8;

struct Lanes {
    __m256i x;
    __m256i y;
};

// start, start + step, ... start + 7 step, wrapping.
__m256i ramp(std::int32_t start, std::int32_t step) {
    const __m256i numbers = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
    return _mm256_add_epi32(_mm256_set1_epi32(start), _mm256_mullo_epi32(_mm256_set1_epi32(step), numbers));
}

__m256i wrappedIndex(Lanes at) {
    const __m256i column = _mm256_and_si256(_mm256_srli_epi32(at.x, 16), _mm256_set1_epi32(0xFF));
    const __m256i row = _mm256_and_si256(_mm256_srli_epi32(at.y, 8), _mm256_set1_epi32(0xFF00));
    return _mm256_or_si256(row, column);
}

__m256i clamped(__m256i coordinate) {
    const __m256i whole = _mm256_srai_epi32(coordinate, 16);
    return _mm256_min_epi32(_mm256_max_epi32(whole, _mm256_setzero_si256()), _mm256_set1_epi32(511));
}
__m256i clampedIndex(Lanes at) {
    return _mm256_or_si256(_mm256_slli_epi32(clamped(at.y), 9), clamped(at.x));
}

template <__m256i (*index)(Lanes), WarpSpanFill plain>
void fill(const WarpSpan& span, const Pixel32* source) {
    Lanes at{ramp(span.x, span.dx), ramp(span.y, span.dy)};
    const __m256i stepX = _mm256_set1_epi32(wrapMul(span.dx, lanes));
    const __m256i stepY = _mm256_set1_epi32(wrapMul(span.dy, lanes));
    int done = 0;
    for (; done + lanes <= span.count; done += lanes) {
        const __m256i texels = _mm256_i32gather_epi32(reinterpret_cast<const int*>(source), index(at), 4);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(span.target + done), texels);
        at.x = _mm256_add_epi32(at.x, stepX);
        at.y = _mm256_add_epi32(at.y, stepY);
    }
    if (done < span.count)
        plain({span.target + done, span.count - done, wrapAdd(span.x, wrapMul(span.dx, done)),
               wrapAdd(span.y, wrapMul(span.dy, done)), span.dx, span.dy},
              source);
}

const WarpSpanTable avx2Spans = {fill<wrappedIndex, fillWrappedSpan>, fill<clampedIndex, fillClampedSpan>};

} // namespace

const WarpSpanTable* const vectorWarpSpans = &avx2Spans;

} // namespace lumenfold

#else

namespace lumenfold {

const WarpSpanTable* const vectorWarpSpans = nullptr;

} // namespace lumenfold

#endif
