// The cells of the ray field eight pixels at a time; the last pixels of a row whose length is no multiple of eight are
// left to the plain form.

#include "render/ray_field_cell.h"

#if defined(__AVX2__)

#include <immintrin.h>

namespace lumenfold {

namespace {

constexpr std::int32_t lanes = 8;

// Lanes of a packed value: 0 u, 1 v, 2 shade.
__m128i pack(const FieldValue& value) {
    return _mm_setr_epi32(value.u, value.v, value.shade, 0);
}
FieldValue unpack(__m128i value) {
    return {_mm_extract_epi32(value, 0), _mm_extract_epi32(value, 1), _mm_extract_epi32(value, 2)};
}

// One quantity at eight successive pixels.
class Walker {
  public:
    // left, step: the quantity itself in lane 0.
    Walker(__m128i left, __m128i step) {
        const __m256i steps = _mm256_broadcastd_epi32(step);
        const __m256i laneNumbers = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
        value = _mm256_sub_epi32(_mm256_broadcastd_epi32(left), _mm256_mullo_epi32(steps, laneNumbers));
        stride = _mm256_slli_epi32(steps, 3);
    }

    __m256i get() const { return value; }
    std::int32_t first() const { return _mm256_cvtsi256_si32(value); }
    void advance() { value = _mm256_sub_epi32(value, stride); }

  private:
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

void fillRow(Pixel32* pixels, std::int32_t count, __m128i left, __m128i step, const Pixel32* texture) {
    Walker u(left, step);
    Walker v(_mm_srli_si128(left, 4), _mm_srli_si128(step, 4));
    Walker shade(_mm_srli_si128(left, 8), _mm_srli_si128(step, 8));
    std::int32_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const __m256i texels =
            _mm256_i32gather_epi32(reinterpret_cast<const int*>(texture), texelIndices(u.get(), v.get()), 4);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels + i), _mm256_subs_epu8(texels, spreadShade(shade.get())));
        u.advance();
        v.advance();
        shade.advance();
    }
    if (i < count)
        fillFieldRow(pixels + i, count - i, {u.first(), v.first(), shade.first()}, unpack(step), texture);
}

} // namespace

void fillFieldCellVector(Pixel32* pixels, std::ptrdiff_t pitch, const FieldCell& cell, const Pixel32* texture) {
    __m128i left = pack(cell.left);
    __m128i right = pack(cell.right);
    const __m128i leftStep = pack(cell.leftStep);
    const __m128i rightStep = pack(cell.rightStep);
    for (std::int32_t row = 0; row < cell.height; ++row, pixels += pitch) {
        fillRow(pixels, cell.width, left, _mm_srai_epi32(_mm_sub_epi32(left, right), fieldCellShift), texture);
        left = _mm_add_epi32(left, leftStep);
        right = _mm_add_epi32(right, rightStep);
    }
}

} // namespace lumenfold

#else

namespace lumenfold {

void fillFieldCellVector(Pixel32* pixels, std::ptrdiff_t pitch, const FieldCell& cell, const Pixel32* texture) {
    fillFieldCell(pixels, pitch, cell, texture);
}

} // namespace lumenfold

#endif
