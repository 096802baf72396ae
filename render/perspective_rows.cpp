#include "render/perspective_rows.h"

#include "core/convert.h"
#include "core/packed.h"
#include "render/planar.h"
#include "render/texel.h"

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
    std::int32_t u, v; // 16.16
};

TexturePoint texturePoint(const Planar& planar) {
    const float z = 65536.0F / planar.w;
    return {truncate(z * planar.u), truncate(z * planar.v)};
}

// A run of pixels within which u, v and w change by constant steps.
template <class Operation>
void drawRun(const PerspectiveTriangle& triangle, std::int64_t at, std::int32_t count,
             const RunCoordinates& coordinates, float w, float wStep) {
    Pixel32* pixel = triangle.target + at;
    float* depth = triangle.depth + at;
    auto u = static_cast<std::uint32_t>(coordinates.u);
    auto v = static_cast<std::uint32_t>(coordinates.v);
    if (Operation::scrolls)
        u += triangle.scroll;
    for (std::int32_t i = 0; i < count; ++i) {
        const float d = w + triangle.depthBias;
        if (depth[i] < d)
            Operation::write(pixel[i], depth[i], texelAt(triangle.texture, u, v), d);
        u += static_cast<std::uint32_t>(coordinates.uStep);
        v += static_cast<std::uint32_t>(coordinates.vStep);
        w += wStep;
    }
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
    Planar planar = edges.planar + triangle.perPixel * (1.0F - (edges.left - static_cast<float>(left)));
    TexturePoint point = texturePoint(planar);
    for (; remaining >= blockLength; remaining -= blockLength, at += blockLength) {
        const Planar end = planar + triangle.perBlock;
        const TexturePoint endPoint = texturePoint(end);
        const RunCoordinates coordinates = {point.u, point.v, wrapSub(endPoint.u, point.u) >> 4,
                                            wrapSub(endPoint.v, point.v) >> 4};
        drawRun<Operation>(triangle, at, blockLength, coordinates, planar.w, (end.w - planar.w) * 0.0625F);
        planar = end;
        point = endPoint;
    }
    if (remaining > 0) {
        const Planar end = planar + triangle.perPixel * static_cast<float>(remaining);
        // here the end is multiplied before it is divided
        const std::int32_t u = truncate(end.u * 65536.0F / end.w);
        const std::int32_t v = truncate(end.v * 65536.0F / end.w);
        const RunCoordinates coordinates = {point.u, point.v, wrapSub(u, point.u) / remaining,
                                            wrapSub(v, point.v) / remaining};
        drawRun<Operation>(triangle, at, remaining, coordinates, planar.w, triangle.perPixel.w);
    }
}

template <class Operation>
void drawRows(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row, std::int32_t end) {
    for (; row < end; ++row) {
        drawSpan<Operation>(triangle, edges, row);
        advance(edges);
    }
}

} // namespace

void drawRunPlain(const PerspectiveTriangle& triangle, std::int64_t at, std::int32_t count,
                  const RunCoordinates& coordinates, float w, float wStep) {
    drawRun<Opaque>(triangle, at, count, coordinates, w, wStep);
}

void drawRowsPlain(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row, std::int32_t end) {
    drawRows<Opaque>(triangle, edges, row, end);
}

void drawRowsAddPlain(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row,
                      std::int32_t end) {
    drawRows<Added>(triangle, edges, row, end);
}

} // namespace lumenfold
