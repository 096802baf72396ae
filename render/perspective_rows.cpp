#include "render/perspective_rows.h"

#include "core/convert.h"
#include "core/packed.h"

#include <algorithm>

namespace lumenfold {

namespace {

constexpr std::int32_t blockLength = 16;

struct Opaque {
    static constexpr bool scrolls = false;
    static void write(Pixel32& pixel, float& depth, Pixel32 texel, float d) {
        pixel = texel;
        depth = d;
    }
};

struct Added {
    static constexpr bool scrolls = true;
    static void write(Pixel32& pixel, float&, Pixel32 texel, float) { pixel = addSaturated(texel, pixel); }
};

struct TexturePoint {
    std::uint32_t u, v; // 16.16
};

TexturePoint texturePoint(const Planar& planar) {
    const float z = 65536.0F / planar.w;
    return {static_cast<std::uint32_t>(truncate(z * planar.u)), static_cast<std::uint32_t>(truncate(z * planar.v))};
}

Planar stepped(const Planar& planar, const Planar& step, float count) {
    return {planar.w + count * step.w, planar.u + count * step.u, planar.v + count * step.v};
}

// A run of pixels within which u, v and w change by constant steps.
template <class Operation>
void drawRun(const PerspectiveTriangle& triangle, std::int64_t at, std::int32_t count, TexturePoint point,
             TexturePoint step, float w, float wStep) {
    Pixel32* pixel = triangle.target + at;
    float* depth = triangle.depth + at;
    if (Operation::scrolls)
        point.u += triangle.scroll;
    for (std::int32_t i = 0; i < count; ++i) {
        const float d = w + triangle.depthBias;
        if (depth[i] < d)
            Operation::write(pixel[i], depth[i], triangle.texture[(point.v >> 8 & 0xFF00) | (point.u >> 16 & 0xFF)], d);
        point.u += step.u;
        point.v += step.v;
        w += wStep;
    }
}

std::uint32_t shiftedDifference(std::uint32_t end, std::uint32_t start) {
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(end - start) >> 4);
}
std::uint32_t dividedDifference(std::uint32_t end, std::uint32_t start, std::int32_t count) {
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(end - start) / count);
}

template <class Operation>
void drawSpan(const PerspectiveTriangle& triangle, const PerspectiveEdges& edges, std::int32_t row) {
    const std::int32_t left = std::max(truncate(edges.left), 0);
    const std::int32_t right = std::min(truncate(edges.right), triangle.width);
    if (right <= left)
        return;
    std::int64_t at = std::int64_t{row} * triangle.width + left;
    std::int32_t remaining = right - left;

    // measured from the true edge, so a span cut at the left border starts inside the texture
    Planar planar = stepped(edges.planar, triangle.perPixel, 1.0F - (edges.left - static_cast<float>(left)));
    TexturePoint point = texturePoint(planar);
    for (; remaining >= blockLength; remaining -= blockLength, at += blockLength) {
        const Planar end = stepped(planar, triangle.perBlock, 1.0F);
        const TexturePoint endPoint = texturePoint(end);
        drawRun<Operation>(triangle, at, blockLength, point,
                           {shiftedDifference(endPoint.u, point.u), shiftedDifference(endPoint.v, point.v)}, planar.w,
                           (end.w - planar.w) * 0.0625F);
        planar = end;
        point = endPoint;
    }
    if (remaining > 0) {
        const Planar end = stepped(planar, triangle.perPixel, static_cast<float>(remaining));
        const auto u = static_cast<std::uint32_t>(truncate(end.u * 65536.0F / end.w));
        const auto v = static_cast<std::uint32_t>(truncate(end.v * 65536.0F / end.w));
        drawRun<Operation>(triangle, at, remaining, point,
                           {dividedDifference(u, point.u, remaining), dividedDifference(v, point.v, remaining)},
                           planar.w, triangle.perPixel.w);
    }
}

template <class Operation>
void drawRows(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row, std::int32_t end) {
    for (; row < end; ++row) {
        drawSpan<Operation>(triangle, edges, row);
        edges.advance();
    }
}

} // namespace

void drawRowsPlain(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row, std::int32_t end) {
    drawRows<Opaque>(triangle, edges, row, end);
}

void drawRowsAddPlain(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row,
                      std::int32_t end) {
    drawRows<Added>(triangle, edges, row, end);
}

} // namespace lumenfold
