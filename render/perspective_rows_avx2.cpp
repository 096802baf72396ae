// The rows of the perspective filler eight pixels at a time, the same bits as by the plain form.

#include "render/perspective_rows.h"

#if defined(__AVX2__)

#include "render/lanes_avx2.h"

namespace lumenfold {

namespace {

constexpr std::int32_t blockLength = 16;

struct Opaque {
    // Runs of up to this many pixels are drawn one by one: a load that meets part of a masked store has to wait for it,
    // which on small triangles costs more than the lanes gain.
    static constexpr std::int32_t shortRun = 4;

    static void write(Pixel32* pixels, float* depth, __m256i mask, __m256i texels, __m256 d) {
        storeLanes(pixels, mask, texels);
        _mm256_maskstore_ps(depth, mask, d);
    }
};

struct Added {
    static constexpr std::int32_t shortRun = 0;

    static void write(Pixel32* pixels, float*, __m256i mask, __m256i texels, __m256) {
        storeLanes(pixels, mask, _mm256_adds_epu8(texels, loadLanes(pixels, mask)));
    }
};

__m128 load(const Planar& planar) {
    return _mm_loadu_ps(&planar.u);
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

// Texture coordinates of a run, 16.16: lanes 0 and 1 hold u and v where it starts, then their steps per pixel.
__m128i blockCoordinates(__m128 start, __m128 end) {
    const __m128 z = _mm_div_ps(_mm_set1_ps(65536.0F), _mm_movehl_ps(end, start));
    // truncates; what does not fit becomes the smallest integer
    const __m128i points = _mm_cvttps_epi32(_mm_mul_ps(z, _mm_movelh_ps(start, end)));
    const __m128i difference = _mm_sub_epi32(_mm_unpackhi_epi64(points, points), points);
    return _mm_unpacklo_epi64(points, _mm_srai_epi32(difference, 4));
}
__m128i restCoordinates(__m128 start, __m128 end, std::int32_t count) {
    const __m128 one = _mm_set1_ps(1.0F);
    const __m128 fixedOne = _mm_set1_ps(65536.0F);
    // here the end is multiplied before it is divided
    const __m128 quotients = _mm_div_ps(_mm_movelh_ps(fixedOne, _mm_mul_ps(end, fixedOne)), _mm_movehl_ps(end, start));
    const __m128i points = _mm_cvttps_epi32(_mm_mul_ps(quotients, _mm_movelh_ps(start, one)));
    const __m128i difference = _mm_sub_epi32(_mm_unpackhi_epi64(points, points), points);
    const __m128d steps = _mm_mul_pd(_mm_cvtepi32_pd(difference), _mm_set1_pd(reciprocals.of[count]));
    return _mm_unpacklo_epi64(points, _mm_cvttpd_epi32(steps));
}

template <int lane>
__m256i spread(__m128i coordinates) {
    return _mm256_broadcastd_epi32(_mm_shuffle_epi32(coordinates, lane));
}

// One triangle's rows. Depths are compared first: what is hidden needs no texture coordinates.
template <class Operation>
class RowPainter {
  public:
    explicit RowPainter(const PerspectiveTriangle& triangle)
        : triangle_(triangle), depthBias_(_mm256_set1_ps(triangle.depthBias)),
          scroll_(_mm256_set1_epi32(static_cast<std::int32_t>(triangle.scroll))), perPixel_(load(triangle.perPixel)),
          perBlock_(load(triangle.perBlock)) {}

    // count: at least 1
    void drawRow(std::int64_t at, std::int32_t count, __m128 planar) const {
        for (; count >= blockLength; count -= blockLength, at += blockLength) {
            const __m128 end = _mm_add_ps(planar, perBlock_);
            const float w = lastLane(planar);
            drawRun(at, blockLength, w, (lastLane(end) - w) * 0.0625F, [&] { return blockCoordinates(planar, end); });
            planar = end;
        }
        if (count > 0)
            drawRest(at, count, planar);
    }

    __m128 perPixel() const { return perPixel_; }

  private:
    static float lastLane(__m128 planar) { return _mm_cvtss_f32(_mm_movehl_ps(planar, planar)); }

    __m256i nearer(const float* depth, __m256i inside, __m256 d) const {
        const __m256 old = _mm256_maskload_ps(depth, inside);
        return _mm256_and_si256(_mm256_castps_si256(_mm256_cmp_ps(old, d, _CMP_LT_OQ)), inside);
    }

    // 1 to 15 pixels
    void drawRest(std::int64_t at, std::int32_t count, __m128 planar) const {
        const auto makeCoordinates = [&] {
            const __m128 steps = _mm_mul_ps(_mm_set1_ps(static_cast<float>(count)), perPixel_);
            return restCoordinates(planar, _mm_add_ps(planar, steps), count);
        };
        if (count > Operation::shortRun) {
            drawRun(at, count, lastLane(planar), triangle_.perPixel.w, makeCoordinates);
            return;
        }
        RunCoordinates coordinates;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(&coordinates), makeCoordinates());
        drawRunPlain(triangle_, at, count, coordinates, lastLane(planar), triangle_.perPixel.w);
    }

    // 1 to 16 pixels with constant steps.
    template <class MakeCoordinates>
    void drawRun(std::int64_t at, std::int32_t count, float w, float wStep, MakeCoordinates makeCoordinates) const {
        Pixel32* pixels = triangle_.target + at;
        float* depth = triangle_.depth + at;
        FloatRamp ramp(w, wStep, count);
        const __m256 d = _mm256_add_ps(ramp.next(0), depthBias_);
        const __m256i mask = nearer(depth, firstLanes(count), d);
        if (count <= laneCount) {
            if (_mm256_testz_si256(mask, mask) == 0) {
                const __m128i coordinates = makeCoordinates();
                drawLanes(pixels, depth, mask, d, firstColumns(coordinates), firstRows(coordinates));
            }
            return;
        }
        const __m256 d2 = _mm256_add_ps(ramp.next(laneCount), depthBias_);
        const __m256i mask2 = nearer(depth + laneCount, firstLanes(count - laneCount), d2);
        const __m256i either = _mm256_or_si256(mask, mask2);
        if (_mm256_testz_si256(either, either) != 0)
            return;
        const __m128i coordinates = makeCoordinates();
        const __m256i u = firstColumns(coordinates);
        const __m256i v = firstRows(coordinates);
        drawLanes(pixels, depth, mask, d, u, v);
        drawLanes(pixels + laneCount, depth + laneCount, mask2, d2,
                  _mm256_add_epi32(u, _mm256_slli_epi32(spread<2>(coordinates), 3)),
                  _mm256_add_epi32(v, _mm256_slli_epi32(spread<3>(coordinates), 3)));
    }

    // of the first eight pixels
    __m256i firstColumns(__m128i coordinates) const {
        const __m256i steps = _mm256_mullo_epi32(spread<2>(coordinates), laneNumbers());
        return _mm256_add_epi32(_mm256_add_epi32(spread<0>(coordinates), scroll_), steps);
    }
    static __m256i firstRows(__m128i coordinates) {
        return _mm256_add_epi32(spread<1>(coordinates), _mm256_mullo_epi32(spread<3>(coordinates), laneNumbers()));
    }

    void drawLanes(Pixel32* pixels, float* depth, __m256i mask, __m256 d, __m256i u, __m256i v) const {
        Operation::write(pixels, depth, mask, gatherTexels(triangle_.texture, u, v, mask), d);
    }

    const PerspectiveTriangle& triangle_;
    __m256 depthBias_;
    __m256i scroll_;
    __m128 perPixel_;
    __m128 perBlock_;
};

template <class Operation>
void drawRows(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row, std::int32_t end) {
    const RowPainter<Operation> painter(triangle);
    const __m128 perRow = load(edges.planarStep);
    __m128 planar = load(edges.planar);
    float leftX = edges.left;
    float rightX = edges.right;
    for (; row < end; ++row) {
        const std::int32_t leftColumn = _mm_cvttss_si32(_mm_set_ss(leftX));
        const std::int32_t rightColumn = _mm_cvttss_si32(_mm_set_ss(rightX));
        const std::int32_t left = leftColumn < 0 ? 0 : leftColumn;
        const std::int32_t right = rightColumn > triangle.width ? triangle.width : rightColumn;
        if (left < right) {
            const std::int64_t at = std::int64_t{row} * triangle.width + left;
            const __m128 preStep = _mm_set1_ps(1.0F - (leftX - static_cast<float>(left)));
            painter.drawRow(at, right - left, _mm_add_ps(planar, _mm_mul_ps(preStep, painter.perPixel())));
        }
        planar = _mm_add_ps(planar, perRow);
        leftX += edges.leftStep;
        rightX += edges.rightStep;
    }
    edges.left = leftX;
    edges.right = rightX;
    _mm_storeu_ps(&edges.planar.u, planar);
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
