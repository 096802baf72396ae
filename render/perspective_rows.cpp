// The rows of the perspective filler, compiled for every target.

#include "render/perspective_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/perspective_rows.cpp"
#include <hwy/foreach_target.h> // before anything that includes hwy/highway.h

#include "core/convert.h"
#include "core/packed.h"
#include "render/span_lanes.h"
#include "render/texel.h"

HWY_BEFORE_NAMESPACE();
namespace lumenfold {
namespace HWY_NAMESPACE {
namespace {

constexpr std::int32_t blockLength = 16;

struct Opaque {
    static void writePixel(Pixel32& pixel, float& depth, Pixel32 texel, float d) {
        pixel = texel;
        depth = d;
    }
    template <class D>
    static HWY_INLINE void write(D d, Pixel32* pixels, float* depth, hn::Mask<Floats<D>> mask, hn::Vec<D> texels,
                                 hn::Vec<Floats<D>> depths) {
        mixInto(d, pixels, hn::RebindMask(d, mask), texels);
        mixInto(Floats<D>(), depth, mask, depths);
    }
};

struct Added {
    static void writePixel(Pixel32& pixel, float&, Pixel32 texel, float) { pixel = addSaturated(texel, pixel); }

    template <class D>
    static HWY_INLINE void write(D d, Pixel32* pixels, float*, hn::Mask<Floats<D>> mask, hn::Vec<D> texels,
                                 hn::Vec<Floats<D>>) {
        const auto added = hn::IfThenElseZero(hn::RebindMask(d, mask), texels);
        hn::StoreU(addBytes(d, added, hn::LoadU(d, pixels)), d, pixels);
    }
};

// u, v, w, w
using PlanarTag = hn::FixedTag<float, 4>;
using PlanarLanes = hn::Vec<PlanarTag>;

HWY_INLINE PlanarLanes load(const Planar& planar) {
    return hn::LoadU(PlanarTag(), &planar.u);
}
HWY_INLINE float lastLane(PlanarLanes planar) {
    return hn::GetLane(hn::UpperHalf(hn::Half<PlanarTag>(), planar));
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

// Texture coordinates of a run of pixels: where it starts, and their steps per pixel; 16.16.
struct RunCoordinates {
    std::int32_t u, v;
    std::int32_t uStep, vStep;
};

// u and v at both ends of a run.
struct EndPoints {
    std::int32_t u, v, endU, endV;
};
HWY_INLINE EndPoints truncated(PlanarLanes points) {
    EndPoints ends;
    hn::StoreU(truncateLanes(points), hn::FixedTag<std::int32_t, 4>(), &ends.u);
    return ends;
}

// A whole block.
struct Block {
    PlanarLanes start, end;

    HWY_INLINE RunCoordinates coordinates() const {
        const PlanarTag d;
        const auto z = hn::Div(hn::Set(d, 65536.0F), hn::ConcatUpperUpper(d, end, start));
        const EndPoints at = truncated(hn::Mul(z, hn::ConcatLowerLower(d, end, start)));
        return {at.u, at.v, wrapSub(at.endU, at.u) >> 4, wrapSub(at.endV, at.v) >> 4};
    }
};

// The 1 to 15 pixels after the last whole block.
struct Rest {
    PlanarLanes start, end;
    std::int32_t count;

    HWY_INLINE RunCoordinates coordinates() const {
        const PlanarTag d;
        const auto one = hn::Set(d, 65536.0F);
        // here the end is multiplied before it is divided
        const auto quotients =
            hn::Div(hn::ConcatLowerLower(d, hn::Mul(end, one), one), hn::ConcatUpperUpper(d, end, start));
        const EndPoints at = truncated(hn::Mul(quotients, hn::ConcatLowerLower(d, hn::Set(d, 1.0F), start)));
        return {at.u, at.v, divided(wrapSub(at.endU, at.u)), divided(wrapSub(at.endV, at.v))};
    }

  private:
    HWY_INLINE std::int32_t divided(std::int32_t difference) const {
        return static_cast<std::int32_t>(difference * reciprocals.of[count]);
    }
};

// One triangle's rows.
template <class Operation>
class RowPainter {
  public:
    explicit RowPainter(const PerspectiveTriangle& painted)
        : triangle(painted), perPixel(load(painted.perPixel)), perBlock(load(painted.perBlock)) {}

    // leftX: the row's true edge; left: its first pixel; count: at least 1
    HWY_INLINE void drawRow(std::int64_t at, std::int32_t count, PlanarLanes edge, float leftX,
                            std::int32_t left) const {
        const PlanarTag d;
        // measured from the true edge, so a span cut at the left border starts inside the texture
        const auto preStep = hn::Set(d, 1.0F - (leftX - static_cast<float>(left)));
        PlanarLanes planar = hn::Add(edge, hn::Mul(preStep, perPixel));
        for (; count >= blockLength; count -= blockLength, at += blockLength) {
            const PlanarLanes end = hn::Add(planar, perBlock);
            const float w = lastLane(planar);
            drawRun(at, blockLength, w, (lastLane(end) - w) * 0.0625F, Block{planar, end});
            planar = end;
        }
        if (count > 0) {
            const auto steps = hn::Mul(hn::Set(d, static_cast<float>(count)), perPixel);
            drawRun(at, count, lastLane(planar), triangle.perPixel.w, Rest{planar, hn::Add(planar, steps), count});
        }
    }

  private:
    // 1 to 16 pixels with constant steps.
    template <class Ends>
    HWY_INLINE void drawRun(std::int64_t at, std::int32_t count, float w, float wStep, const Ends& ends) const {
        const FloatRamp ramp(w, wStep, count);
        if (count < 4 || !ramp.regular)
            return drawPixels(at, count, w, wStep, ends);
        Run<Ends> run{triangle, at, ramp, ends};
        drawInGroups(count, run);
    }

    // Depths are compared first: what is hidden needs no texture coordinates.
    template <class Ends>
    struct Run {
        const PerspectiveTriangle& triangle;
        std::int64_t at;
        const FloatRamp& ramp;
        const Ends& ends;
        RunCoordinates coordinates{};
        bool known = false;

        template <class D>
        HWY_INLINE void operator()(D d, std::int32_t begin, std::int32_t drawn) {
            const Floats<D> df;
            float* depth = triangle.depth + at + begin;
            const auto depths = hn::Add(rampLanes(d, ramp, begin), hn::Set(df, triangle.depthBias));
            const auto mask = fresh(df, hn::Lt(hn::LoadU(df, depth), depths), drawn);
            if (hn::AllFalse(df, mask))
                return;
            if (!known)
                coordinates = ends.coordinates();
            known = true;
            const auto uStep = static_cast<std::uint32_t>(coordinates.uStep);
            const auto vStep = static_cast<std::uint32_t>(coordinates.vStep);
            const auto first = static_cast<std::uint32_t>(begin);
            const auto u = steps(d, static_cast<std::uint32_t>(coordinates.u) + triangle.scroll + first * uStep, uStep);
            const auto v = steps(d, static_cast<std::uint32_t>(coordinates.v) + first * vStep, vStep);
            Operation::write(d, triangle.target + at + begin, depth, mask,
                             lookUp(d, triangle.texture, texelIndex(d, u, v)), depths);
        }
    };

    template <class Ends>
    HWY_NOINLINE void drawPixels(std::int64_t at, std::int32_t count, float w, float wStep, const Ends& ends) const {
        const RunCoordinates c = ends.coordinates();
        auto u = static_cast<std::uint32_t>(c.u) + triangle.scroll;
        auto v = static_cast<std::uint32_t>(c.v);
        Pixel32* pixels = triangle.target + at;
        float* depth = triangle.depth + at;
        for (std::int32_t i = 0; i < count; ++i) {
            const float d = w + triangle.depthBias;
            if (depth[i] < d)
                Operation::writePixel(pixels[i], depth[i], texelAt(triangle.texture, u, v), d);
            u += static_cast<std::uint32_t>(c.uStep);
            v += static_cast<std::uint32_t>(c.vStep);
            w += wStep;
        }
    }

    const PerspectiveTriangle& triangle;
    PlanarLanes perPixel;
    PlanarLanes perBlock;
};

template <class Operation>
HWY_INLINE void drawRowsWith(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row,
                             std::int32_t end) {
    const RowPainter<Operation> painter(triangle);
    const PlanarLanes perRow = load(edges.planarStep);
    PlanarLanes planar = load(edges.planar);
    float leftX = edges.left;
    float rightX = edges.right;
    for (; row < end; ++row) {
        const std::int32_t leftColumn = truncate(leftX);
        const std::int32_t rightColumn = truncate(rightX);
        const std::int32_t left = leftColumn < 0 ? 0 : leftColumn;
        const std::int32_t right = rightColumn > triangle.width ? triangle.width : rightColumn;
        if (left < right)
            painter.drawRow(std::int64_t{row} * triangle.width + left, right - left, planar, leftX, left);
        planar = hn::Add(planar, perRow);
        leftX += edges.leftStep;
        rightX += edges.rightStep;
    }
    edges.left = leftX;
    edges.right = rightX;
    hn::StoreU(planar, PlanarTag(), &edges.planar.u);
}

void drawRows(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row, std::int32_t end) {
    drawRowsWith<Opaque>(triangle, edges, row, end);
}
void drawRowsAdd(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row, std::int32_t end) {
    drawRowsWith<Added>(triangle, edges, row, end);
}

} // namespace
} // namespace HWY_NAMESPACE
} // namespace lumenfold
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "core/dispatch.h"

namespace lumenfold {

LUMENFOLD_TARGETS(drawRows);
LUMENFOLD_TARGETS(drawRowsAdd);

void drawPerspectiveRows(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row,
                         std::int32_t end) {
    LUMENFOLD_TARGET(drawRows)(triangle, edges, row, end);
}

void drawPerspectiveRowsAdd(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row,
                            std::int32_t end) {
    LUMENFOLD_TARGET(drawRowsAdd)(triangle, edges, row, end);
}

} // namespace lumenfold

#endif // HWY_ONCE
