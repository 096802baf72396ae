// A row of the ray field eight pixels at a time; the last pixels of a row whose length is no multiple of eight are
// left to the plain form.

#include "render/ray_field_cell.h"

#if defined(__AVX2__)

#include <immintrin.h>

namespace lumenfold {

namespace {

constexpr std::int32_t lanes = 8;

// One 16.16 value at eight successive pixels.
class Walker {
  public:
    Walker(std::int32_t left, std::int32_t step)
        : value(_mm256_sub_epi32(_mm256_set1_epi32(left), _mm256_mullo_epi32(_mm256_set1_epi32(step), laneNumbers()))),
          stride(_mm256_slli_epi32(_mm256_set1_epi32(step), 3)) {}

    __m256i get() const { return value; }
    void advance() { value = _mm256_sub_epi32(value, stride); }

  private:
    static __m256i laneNumbers() { return _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7); }

    __m256i value;
    __m256i stride;
};

__m256i texelIndices(__m256i u, __m256i v) {
    const __m256i row = _mm256_and_si256(_mm256_srli_epi32(v, 8), _mm256_set1_epi32(0xFF00));
    const __m256i column = _mm256_and_si256(_mm256_srli_epi32(u, 16), _mm256_set1_epi32(0xFF));
    return _mm256_or_si256(row, column);
}

// Byte 2 of each lane, the whole part modulo 256, three times; the top byte 0.
__m256i spreadShade(__m256i shade) {
    const __m256i bytes = _mm256_set_epi8(-1, 14, 14, 14, -1, 10, 10, 10, -1, 6, 6, 6, -1, 2, 2, 2, //
                                          -1, 14, 14, 14, -1, 10, 10, 10, -1, 6, 6, 6, -1, 2, 2, 2);
    return _mm256_shuffle_epi8(shade, bytes);
}

} // namespace

void fillFieldRowVector(Pixel32* pixels, std::int32_t count, FieldValue left, FieldValue step, const Pixel32* texture) {
    Walker u(left.u, step.u);
    Walker v(left.v, step.v);
    Walker shade(left.shade, step.shade);
    std::int32_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const __m256i texels =
            _mm256_i32gather_epi32(reinterpret_cast<const int*>(texture), texelIndices(u.get(), v.get()), 4);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels + i), _mm256_subs_epu8(texels, spreadShade(shade.get())));
        u.advance();
        v.advance();
        shade.advance();
    }
    if (i < count) {
        const FieldValue rest = {_mm256_cvtsi256_si32(u.get()), _mm256_cvtsi256_si32(v.get()),
                                 _mm256_cvtsi256_si32(shade.get())};
        fillFieldRow(pixels + i, count - i, rest, step, texture);
    }
}

} // namespace lumenfold

#else

namespace lumenfold {

void fillFieldRowVector(Pixel32* pixels, std::int32_t count, FieldValue left, FieldValue step, const Pixel32* texture) {
    fillFieldRow(pixels, count, left, step, texture);
}

} // namespace lumenfold

#endif
