// The pixel loops of the affine fillers eight pixels at a time, the same bits as by the plain form.

#include "render/affine_run.h"

#if defined(__AVX2__)

#include "render/lanes_avx2.h"

namespace lumenfold {

namespace {

// Each gives the new pixels of the lanes in mask; coordinates are 16.16 in the order of the run.
struct Opaque {
    static __m256i shade(const AffineRun<1>& run, const __m256i (&at)[2], const Pixel32*, __m256i mask) {
        return gatherTexels(run.textures.of[0], at[0], at[1], mask);
    }
};
struct Added {
    static __m256i shade(const AffineRun<1>& run, const __m256i (&at)[2], const Pixel32* pixels, __m256i mask) {
        return _mm256_adds_epu8(gatherTexels(run.textures.of[0], at[0], at[1], mask), loadLanes(pixels, mask));
    }
};
struct TwoLayers {
    // v is the column and u the row here
    static __m256i shade(const AffineRun<2>& run, const __m256i (&at)[4], const Pixel32*, __m256i mask) {
        return _mm256_adds_epu8(gatherTexels(run.textures.of[0], at[1], at[0], mask),
                                gatherTexels(run.textures.of[1], at[3], at[2], mask));
    }
};

template <class Operation, int layers>
void drawRun(const AffineRun<layers>& run) {
    constexpr int coordinates = Coordinates<layers>::count;
    __m256i at[coordinates];
    __m256i step[coordinates];
    for (int k = 0; k < coordinates; ++k) {
        const __m256i one = _mm256_set1_epi32(run.step.of[k]);
        at[k] = _mm256_add_epi32(_mm256_set1_epi32(run.start.of[k]), _mm256_mullo_epi32(one, laneNumbers()));
        step[k] = _mm256_slli_epi32(one, 3);
    }
    const __m256 depthBias = _mm256_set1_ps(run.depthBias);
    FloatRamp ramp(run.d, run.dStep, run.count);
    for (std::int32_t i = 0; i < run.count; i += laneCount) {
        const __m256i inside = firstLanes(run.count - i);
        const __m256 d = ramp.next(i);
        const __m256 drawn = _mm256_and_ps(_mm256_cmp_ps(_mm256_sub_ps(d, depthBias), _mm256_setzero_ps(), _CMP_GT_OQ),
                                           _mm256_cmp_ps(_mm256_maskload_ps(run.depth + i, inside), d, _CMP_LT_OQ));
        const __m256i mask = _mm256_and_si256(_mm256_castps_si256(drawn), inside);
        if (!_mm256_testz_si256(mask, mask)) {
            storeLanes(run.target + i, mask, Operation::shade(run, at, run.target + i, mask));
            _mm256_maskstore_ps(run.depth + i, mask, d);
        }
        for (int k = 0; k < coordinates; ++k)
            at[k] = _mm256_add_epi32(at[k], step[k]);
    }
}

} // namespace

DrawAffineRun<1> vectorAffineRun() {
    return drawRun<Opaque, 1>;
}
DrawAffineRun<1> vectorAffineRunAdd() {
    return drawRun<Added, 1>;
}
DrawAffineRun<2> vectorTwoLayerRun() {
    return drawRun<TwoLayers, 2>;
}

} // namespace lumenfold

#else

namespace lumenfold {

DrawAffineRun<1> vectorAffineRun() {
    return nullptr;
}
DrawAffineRun<1> vectorAffineRunAdd() {
    return nullptr;
}
DrawAffineRun<2> vectorTwoLayerRun() {
    return nullptr;
}

} // namespace lumenfold

#endif
