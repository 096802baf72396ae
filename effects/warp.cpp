#include "effects/warp.h"

#include "core/convert.h"
#include "effects/warp_span.h"

namespace lumenfold {

WarpGrid warpGrid;
std::int32_t warpOffset = 0;

namespace {

constexpr int cellColumns = warpGridWidth - 1;
constexpr int cellRows = warpGridHeight - 1;

// A coordinate pair that runs down one side of an area, 16.16.
struct Edge {
    std::int32_t x, y;
    std::int32_t dx, dy; // for each row

    Edge(std::int32_t topX, std::int32_t topY, std::int32_t bottomX, std::int32_t bottomY, int rows)
        : x(toFixed16(topX)), y(toFixed16(topY)), dx(toFixed16(wrapSub(bottomX, topX)) / rows),
          dy(toFixed16(wrapSub(bottomY, topY)) / rows) {}

    void nextRow() {
        x = wrapAdd(x, dx);
        y = wrapAdd(y, dy);
    }
};

// Rows of columns pixels each, pitch apart, between two edges; corners as in WarpQuad.
void fillBetween(Pixel32* target, int pitch, int columns, int rows, const std::array<std::int32_t, 4>& x,
                 const std::array<std::int32_t, 4>& y, const Pixel32* source, WarpSpanFill fill) {
    if (columns <= 0 || rows <= 0)
        return;
    Edge left(x[0], y[0], x[2], y[2], rows);
    Edge right(x[1], y[1], x[3], y[3], rows);
    for (int row = 0; row < rows; ++row, target += pitch) {
        fill({target, columns, left.x, left.y, wrapSub(right.x, left.x) / columns, wrapSub(right.y, left.y) / columns},
             source);
        left.nextRow();
        right.nextRow();
    }
}

// The corners of the cell whose top-left grid point is given, moved by the warp offset.
std::array<std::int32_t, 4> cellCorners(const WarpPoint* point, std::int16_t WarpPoint::*coordinate) {
    const WarpPoint* below = point + warpGridWidth;
    return {wrapAdd(point[0].*coordinate, warpOffset), wrapAdd(point[1].*coordinate, warpOffset),
            wrapAdd(below[0].*coordinate, warpOffset), wrapAdd(below[1].*coordinate, warpOffset)};
}

int nextCell(int origin, float step) {
    return truncate(static_cast<float>(origin) + step);
}

} // namespace

void drawGridWarp(Pixel32* target, FrameInfo area, const WarpGrid& grid, const Pixel32* texture, std::int32_t step) {
    const float cellWidth = static_cast<float>(area.width) * 0.015625F;               // 1/64
    const float cellHeight = static_cast<float>(area.height) * 0.020833333333333332F; // 1/48
    // an area that is not a multiple of the cell leaves a border that the grid has no points for
    for (int row = 0, y = 0; row < cellRows && y < area.height; ++row, y = nextCell(y, cellHeight)) {
        const WarpPoint* point = grid.data() + row * warpGridWidth;
        for (int column = 0, x = 0; column < cellColumns && x < area.width;
             ++column, ++point, x = nextCell(x, cellWidth))
            fillWarpCell(area, target, texture, x, y, cellCorners(point, &WarpPoint::u),
                         cellCorners(point, &WarpPoint::v));
    }
    warpOffset = wrapAdd(warpOffset, step);
}

void fillWarpCell(FrameInfo area, Pixel32* target, const Pixel32* texture, int x0, int y0,
                  const std::array<std::int32_t, 4>& u, const std::array<std::int32_t, 4>& v) {
    fillBetween(target + y0 * area.width + x0, area.width, area.width / cellColumns, area.height / cellRows, u, v,
                texture, fillWrappedSpan);
}

void warpQuadClamped(FrameInfo area, Pixel32* target, const Pixel32* source, const WarpQuad& quad) {
    fillBetween(target, area.width, area.width, area.height, quad.x, quad.y, source, fillClampedSpan);
}

void warpQuadWrapped(FrameInfo area, Pixel32* target, const Pixel32* texture, const WarpQuad& quad) {
    fillBetween(target, area.width, area.width, area.height, quad.x, quad.y, texture, fillWrappedSpan);
}

} // namespace lumenfold
