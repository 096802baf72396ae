// The rows of the perspective filler eight pixels at a time, the same bits as by the plain form.

#include "render/perspective_rows.h"

#if defined(__AVX2__)

#include "render/lanes_avx2.h"

namespace lumenfold {

namespace {

constexpr std::int32_t blockLength = 16;

struct Opaque {
    static void write(Pixel32* pixels, float* depth, __m256i mask, __m256i texels, __m256 d) {
        storeLanes(pixels, mask, texels);
        _mm256_maskstore_ps(depth, mask, d);
    }
};

struct Added {
    static void write(Pixel32* pixels, float*, __m256i mask, __m256i texels, __m256) {
        storeLanes(pixels, mask, _mm256_adds_epu8(texels, loadLanes(pixels, mask)));
    }
};

// w, u and v of one place in lanes 0, 1 and 2; lane 3 is not used.
__m128 load(const Planar& planar) {
    return _mm_setr_ps(planar.w, planar.u, planar.v, 0.0F);
}
__m128 firstLane(__m128 value) {
    return _mm_shuffle_ps(value, value, 0);
}

// u and v, 16.16, in lanes 1 and 2. The conversion truncates; what does not fit becomes the smallest integer.
__m128i texturePoint(__m128 planar) {
    const __m128 z = _mm_div_ps(_mm_set1_ps(65536.0F), firstLane(planar));
    return _mm_cvttps_epi32(_mm_mul_ps(z, planar));
}

// 1 / count, rounded upwards: a 32-bit integer times this, truncated, is the truncated quotient, because a whole
// quotient is never missed from below and any other is at least 1 / count away from the next whole number.
struct Reciprocals {
    double of[blockLength];
};
constexpr Reciprocals makeReciprocals() {
    Reciprocals table{};
    for (int count = 1; count < blockLength; ++count)
        table.of[count] = 1.0 / count * (1.0 + 2.220446049250313e-16); // one unit in the last place
    return table;
}
constexpr Reciprocals reciprocals = makeReciprocals();

// Differences of lanes 1 and 2, divided.
__m128i dividedDifference(__m128i end, __m128i start, std::int32_t count) {
    const __m128i difference = _mm_shuffle_epi32(_mm_sub_epi32(end, start), _MM_SHUFFLE(3, 3, 2, 1));
    const __m128d quotient = _mm_mul_pd(_mm_cvtepi32_pd(difference), _mm_set1_pd(reciprocals.of[count]));
    return _mm_shuffle_epi32(_mm_cvttpd_epi32(quotient), _MM_SHUFFLE(3, 1, 0, 3));
}

// What the pixel loop needs of the triangle, spread over the lanes.
struct Lanes {
    const Pixel32* texture;
    __m256 depthBias;
    __m256i scroll;
};

template <class Operation>
void drawLanes(const Lanes& lanes, Pixel32* pixels, float* depth, __m256i inside, __m256i u, __m256i v, __m256 w) {
    const __m256 d = _mm256_add_ps(w, lanes.depthBias);
    const __m256 old = _mm256_maskload_ps(depth, inside);
    const __m256i nearer = _mm256_and_si256(_mm256_castps_si256(_mm256_cmp_ps(old, d, _CMP_LT_OQ)), inside);
    if (_mm256_testz_si256(nearer, nearer))
        return;
    Operation::write(pixels, depth, nearer, gatherTexels(lanes.texture, u, v, nearer), d);
}

// A run of 1 to 16 pixels with constant steps; points in lanes 1 (u) and 2 (v).
template <class Operation>
void drawRun(const Lanes& lanes, Pixel32* pixels, float* depth, std::int32_t count, __m128i point, __m128i step,
             float w, float wStep) {
    const __m256i uStep = _mm256_set1_epi32(_mm_extract_epi32(step, 1));
    const __m256i vStep = _mm256_set1_epi32(_mm_extract_epi32(step, 2));
    const __m256i u = _mm256_add_epi32(_mm256_add_epi32(_mm256_set1_epi32(_mm_extract_epi32(point, 1)), lanes.scroll),
                                       _mm256_mullo_epi32(uStep, laneNumbers()));
    const __m256i v =
        _mm256_add_epi32(_mm256_set1_epi32(_mm_extract_epi32(point, 2)), _mm256_mullo_epi32(vStep, laneNumbers()));
    FloatRamp ramp(w, wStep, count);
    drawLanes<Operation>(lanes, pixels, depth, firstLanes(count), u, v, ramp.next(0));
    if (count > laneCount)
        drawLanes<Operation>(lanes, pixels + laneCount, depth + laneCount, firstLanes(count - laneCount),
                             _mm256_add_epi32(u, _mm256_slli_epi32(uStep, 3)),
                             _mm256_add_epi32(v, _mm256_slli_epi32(vStep, 3)), ramp.next(laneCount));
}

template <class Operation>
void drawRows(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row, std::int32_t end) {
    const Lanes lanes = {triangle.texture, _mm256_set1_ps(triangle.depthBias),
                         _mm256_set1_epi32(static_cast<std::int32_t>(triangle.scroll))};
    const __m128 perPixel = load(triangle.perPixel);
    const __m128 perBlock = load(triangle.perBlock);
    const __m128 perRow = load(edges.planarStep);
    const __m128 fixedOne = _mm_set1_ps(65536.0F);
    __m128 edge = load(edges.planar);
    float leftX = edges.left;
    float rightX = edges.right;

    for (; row < end; ++row) {
        const std::int32_t leftColumn = _mm_cvttss_si32(_mm_set_ss(leftX));
        const std::int32_t rightColumn = _mm_cvttss_si32(_mm_set_ss(rightX));
        const std::int32_t left = leftColumn < 0 ? 0 : leftColumn;
        const std::int32_t right = rightColumn > triangle.width ? triangle.width : rightColumn;
        if (left < right) {
            const std::int64_t at = std::int64_t{row} * triangle.width + left;
            Pixel32* pixels = triangle.target + at;
            float* depth = triangle.depth + at;
            std::int32_t remaining = right - left;
            const float preStep = 1.0F - (leftX - static_cast<float>(left));
            __m128 planar = _mm_add_ps(edge, _mm_mul_ps(_mm_set1_ps(preStep), perPixel));
            __m128i point = texturePoint(planar);
            for (; remaining >= blockLength; remaining -= blockLength) {
                const __m128 blockEnd = _mm_add_ps(planar, perBlock);
                const __m128i endPoint = texturePoint(blockEnd);
                const __m128 step = _mm_mul_ss(_mm_sub_ss(blockEnd, planar), _mm_set_ss(0.0625F));
                drawRun<Operation>(lanes, pixels, depth, blockLength, point,
                                   _mm_srai_epi32(_mm_sub_epi32(endPoint, point), 4), _mm_cvtss_f32(planar),
                                   _mm_cvtss_f32(step));
                planar = blockEnd;
                point = endPoint;
                pixels += blockLength;
                depth += blockLength;
            }
            if (remaining > 0) {
                const __m128 count = _mm_set1_ps(static_cast<float>(remaining));
                const __m128 rowEnd = _mm_add_ps(planar, _mm_mul_ps(count, perPixel));
                const __m128i endPoint = _mm_cvttps_epi32(_mm_div_ps(_mm_mul_ps(rowEnd, fixedOne), firstLane(rowEnd)));
                drawRun<Operation>(lanes, pixels, depth, remaining, point,
                                   dividedDifference(endPoint, point, remaining), _mm_cvtss_f32(planar),
                                   triangle.perPixel.w);
            }
        }
        edge = _mm_add_ps(edge, perRow);
        leftX += edges.leftStep;
        rightX += edges.rightStep;
    }

    edges.left = leftX;
    edges.right = rightX;
    edges.planar.w = _mm_cvtss_f32(edge);
    edges.planar.u = _mm_cvtss_f32(_mm_shuffle_ps(edge, edge, 1));
    edges.planar.v = _mm_cvtss_f32(_mm_shuffle_ps(edge, edge, 2));
}

} // namespace

PerspectiveRows vectorRows() {
    return drawRows<Opaque>;
}
PerspectiveRows vectorRowsAdd() {
    return drawRows<Added>;
}

} // namespace lumenfold

#else

namespace lumenfold {

PerspectiveRows vectorRows() {
    return nullptr;
}
PerspectiveRows vectorRowsAdd() {
    return nullptr;
}

} // namespace lumenfold

#endif
