// The pixel loops of the affine fillers, compiled for every target.

#include "render/affine_run.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/affine_run.cpp"
#include <hwy/foreach_target.h> // before anything that includes hwy/highway.h

#include "core/packed.h"
#include "render/span_lanes.h"
#include "render/texel.h"

HWY_BEFORE_NAMESPACE();
namespace lumenfold {
namespace HWY_NAMESPACE {
namespace {

template <class D, int layers>
using At = hn::Vec<D>[Coordinates<layers>::count]; // 16.16, in the order of the run

// Each gives new pixels: shade() of a group, shadePixel() of one.
struct Opaque {
    template <class D>
    static HWY_INLINE hn::Vec<D> shade(D d, const AffineRun<1>& run, const At<D, 1>& at, const Pixel32*) {
        return lookUp(d, run.textures.of[0], texelIndex(d, at[0], at[1]));
    }
    static Pixel32 shadePixel(const AffineRun<1>& run, const std::uint32_t (&at)[2], Pixel32) {
        return texelAt(run.textures.of[0], at[0], at[1]);
    }
};

struct Added {
    template <class D>
    static HWY_INLINE hn::Vec<D> shade(D d, const AffineRun<1>& run, const At<D, 1>& at, const Pixel32* pixels) {
        return addBytes(d, Opaque::shade(d, run, at, pixels), hn::LoadU(d, pixels));
    }
    static Pixel32 shadePixel(const AffineRun<1>& run, const std::uint32_t (&at)[2], Pixel32 pixel) {
        return addSaturated(Opaque::shadePixel(run, at, pixel), pixel);
    }
};

struct TwoLayers {
    // v is the column and u the row here
    template <class D>
    static HWY_INLINE hn::Vec<D> shade(D d, const AffineRun<2>& run, const At<D, 2>& at, const Pixel32*) {
        return addBytes(d, lookUp(d, run.textures.of[0], texelIndex(d, at[1], at[0])),
                        lookUp(d, run.textures.of[1], texelIndex(d, at[3], at[2])));
    }
    static Pixel32 shadePixel(const AffineRun<2>& run, const std::uint32_t (&at)[4], Pixel32) {
        return addSaturated(texelAt(run.textures.of[0], at[1], at[0]), texelAt(run.textures.of[1], at[3], at[2]));
    }
};

template <class Operation, int layers>
struct Groups {
    const AffineRun<layers>& run;
    const FloatRamp& ramp;

    template <class D>
    HWY_INLINE void operator()(D d, std::int32_t begin, std::int32_t drawn) const {
        constexpr int coordinates = Coordinates<layers>::count;
        const Floats<D> df;
        Pixel32* pixels = run.target + begin;
        float* depth = run.depth + begin;
        const auto depths = rampLanes(d, ramp, begin);
        const auto seen = hn::Gt(hn::Sub(depths, hn::Set(df, run.depthBias)), hn::Zero(df));
        const auto mask = fresh(df, hn::And(seen, hn::Lt(hn::LoadU(df, depth), depths)), drawn);
        if (hn::AllFalse(df, mask))
            return;
        At<D, layers> at;
        for (int k = 0; k < coordinates; ++k) {
            const auto step = static_cast<std::uint32_t>(run.step.of[k]);
            at[k] =
                steps(d, static_cast<std::uint32_t>(run.start.of[k]) + static_cast<std::uint32_t>(begin) * step, step);
        }
        mixInto(d, pixels, hn::RebindMask(d, mask), Operation::shade(d, run, at, pixels));
        mixInto(df, depth, mask, depths);
    }
};

template <class Operation, int layers>
HWY_NOINLINE void drawPixels(const AffineRun<layers>& run) {
    constexpr int coordinates = Coordinates<layers>::count;
    std::uint32_t at[coordinates];
    for (int k = 0; k < coordinates; ++k)
        at[k] = static_cast<std::uint32_t>(run.start.of[k]);
    float d = run.d;
    for (std::int32_t i = 0; i < run.count; ++i) {
        if (d - run.depthBias > 0.0F && run.depth[i] < d) {
            run.target[i] = Operation::shadePixel(run, at, run.target[i]);
            run.depth[i] = d;
        }
        for (int k = 0; k < coordinates; ++k)
            at[k] += static_cast<std::uint32_t>(run.step.of[k]);
        d += run.dStep;
    }
}

template <class Operation, int layers>
HWY_INLINE void draw(const AffineRun<layers>& run) {
    const FloatRamp ramp(run.d, run.dStep, run.count);
    if (run.count < 4 || !ramp.regular)
        return drawPixels<Operation>(run);
    const Groups<Operation, layers> groups{run, ramp};
    drawInGroups(run.count, groups);
}

void drawOpaque(const AffineRun<1>& run) {
    draw<Opaque>(run);
}
void drawAdded(const AffineRun<1>& run) {
    draw<Added>(run);
}
void drawTwoLayers(const AffineRun<2>& run) {
    draw<TwoLayers>(run);
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace lumenfold
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "core/dispatch.h"

namespace lumenfold {

LUMENFOLD_TARGETS(drawOpaque);
LUMENFOLD_TARGETS(drawAdded);
LUMENFOLD_TARGETS(drawTwoLayers);

void drawAffineRun(const AffineRun<1>& run) {
    LUMENFOLD_TARGET(drawOpaque)(run);
}
void drawAffineRunAdd(const AffineRun<1>& run) {
    LUMENFOLD_TARGET(drawAdded)(run);
}
void drawTwoLayerRun(const AffineRun<2>& run) {
    LUMENFOLD_TARGET(drawTwoLayers)(run);
}

} // namespace lumenfold

#endif // HWY_ONCE
