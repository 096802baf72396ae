#include "render/filler_perspective.h"

#include "core/convert.h"
#include "render/depth_buffer.h"
#include "render/perspective_rows.h"
#include "render/planar.h"

#include <algorithm>
#include <utility>

// Source: P. S. Heckbert and H. P. Moreton, Interpolation for Polygon Texture Mapping and Shading (1991): what is
// linear on a plane in space is, divided by z, linear on the screen.

namespace lumenfold {

namespace {

// Triangles that begin higher (or hold NaN) are left out: no 32-bit row says where.
constexpr float highestRow = -2147483648.0F;

struct Corner {
    float x, y; // screen + 0.5
    Planar planar;

    std::int32_t row() const { return truncate(y); }
    // from the corner to the first row
    float preStep() const { return 1.0F - (y - static_cast<float>(row())); }
};

Corner makeCorner(const PerspectiveCorner& corner) {
    const float w = 1.0F / corner.z;
    return {corner.x + 0.5F, corner.y + 0.5F, {w * corner.u, w * corner.v, w, w}};
}

class Walker {
  public:
    Walker(const PerspectiveTriangle& triangle, std::int32_t height, const Planar& perRow, PerspectiveRows drawRows)
        : triangle_(triangle), height_(height), perRow_(perRow), drawRows_(drawRows) {}

    void startLeft(const Corner& corner, float slope) {
        const float p = corner.preStep();
        edges_.left = corner.x + slope * p;
        edges_.leftStep = slope;
        edges_.planarStep = triangle_.perPixel * slope + perRow_;
        edges_.planar = corner.planar + edges_.planarStep * p;
    }

    void startRight(const Corner& corner, float slope) {
        edges_.right = corner.x + slope * corner.preStep();
        edges_.rightStep = slope;
    }

    void walk(std::int32_t row, std::int32_t end) {
        // the edges add up row by row from the top corner, on the screen or not
        if (const std::int32_t seen = std::min(end, 0); row < seen) {
            advance(edges_, std::int64_t{seen} - row);
            row = seen;
        }
        end = std::min(end, height_);
        if (row < end)
            drawRows_(triangle_, edges_, row, end);
    }

  private:
    const PerspectiveTriangle& triangle_;
    std::int32_t height_;
    Planar perRow_;
    PerspectiveRows drawRows_;
    PerspectiveEdges edges_{};
};

bool middleIsLeft(const Corner& top, const Corner& middle, const Corner& bottom, float slopeToMiddle,
                  float slopeToBottom) {
    if (middle.y == bottom.y)
        return bottom.x > middle.x;
    if (top.y == middle.y)
        return top.x > middle.x;
    return slopeToBottom > slopeToMiddle;
}

// 0 where the edge has no height: it is not used there.
float slope(const Corner& from, const Corner& to) {
    return to.y > from.y ? (to.x - from.x) / (to.y - from.y) : 0.0F;
}

void drawTriangle(const PerspectiveCorner (&projected)[3], PerspectiveTriangle& triangle, std::int32_t height,
                  PerspectiveRows drawRows) {
    Corner top = makeCorner(projected[0]);
    Corner middle = makeCorner(projected[1]);
    Corner bottom = makeCorner(projected[2]);
    for (const Corner* corner : {&top, &middle, &bottom}) {
        if (!(corner->y >= highestRow))
            return;
    }
    if (middle.y < top.y)
        std::swap(top, middle);
    if (bottom.y < top.y)
        std::swap(top, bottom);
    if (bottom.y < middle.y)
        std::swap(middle, bottom);

    const std::int32_t topRow = top.row();
    const std::int32_t middleRow = middle.row();
    const std::int32_t bottomRow = bottom.row();
    if (topRow >= bottomRow)
        return;
    if (truncate(top.x) == truncate(middle.x) && truncate(middle.x) == truncate(bottom.x))
        return;
    // x and y from the top to the middle (1) and to the bottom corner (2)
    const float dx1 = middle.x - top.x;
    const float dy1 = middle.y - top.y;
    const float dx2 = bottom.x - top.x;
    const float dy2 = bottom.y - top.y;
    const float denominator = dx2 * dy1 - dx1 * dy2;
    if (denominator == 0.0F)
        return;
    const Planar d1 = middle.planar - top.planar;
    const Planar d2 = bottom.planar - top.planar;
    triangle.perPixel = (d2 * dy1 - d1 * dy2) / denominator;
    triangle.perBlock = triangle.perPixel * 16.0F;
    const Planar perRow = (d1 * dx2 - d2 * dx1) / denominator;
    const float topMiddle = slope(top, middle);
    const float topBottom = slope(top, bottom);
    const float middleBottom = slope(middle, bottom);

    Walker walker(triangle, height, perRow, drawRows);
    if (middleIsLeft(top, middle, bottom, topMiddle, topBottom)) {
        walker.startRight(top, topBottom);
        walker.startLeft(top, topMiddle);
        walker.walk(topRow, middleRow);
        walker.startLeft(middle, middleBottom);
        walker.walk(middleRow, bottomRow);
    } else {
        walker.startLeft(top, topBottom);
        walker.startRight(top, topMiddle);
        walker.walk(topRow, middleRow);
        walker.startRight(middle, middleBottom);
        walker.walk(middleRow, bottomRow);
    }
}

} // namespace

void drawTexturedPerspective(const PerspectiveCorner (&corners)[3], const Pixel32* texture, FrameInfo info,
                             Pixel32* target, float depthBias) {
    PerspectiveTriangle triangle{texture, target, depthBuffer, info.width, depthBias, 0, {}, {}};
    drawTriangle(corners, triangle, info.height, drawPerspectiveRows);
}

void drawTexturedPerspectiveAdd(const PerspectiveCorner (&corners)[3], const Pixel32* texture, FrameInfo info,
                                Pixel32* target, float depthBias, std::int32_t scroll) {
    PerspectiveTriangle triangle{
        texture, target, depthBuffer, info.width, depthBias, static_cast<std::uint32_t>(toFixed16(scroll)), {}, {}};
    drawTriangle(corners, triangle, info.height, drawPerspectiveRowsAdd);
}

} // namespace lumenfold
