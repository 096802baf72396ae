#pragma once

#include "core/convert.h"
#include "core/float_sum.h"
#include "render/affine_span.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

// The walk over the rows of a triangle that the affine fillers share: no correction within a pixel, every edge starts
// at its corner's whole pixel.

namespace lumenfold {

// A corner snapped to whole pixels and texels.
template <int layers>
struct SnappedCorner {
    std::int32_t x, y;
    float z;
    Coordinates<layers> coordinates;
};

template <int layers>
class AffineEdge {
  public:
    // At the first corner; no steps between corners of one row.
    AffineEdge(const SnappedCorner<layers>& from, const SnappedCorner<layers>& to) {
        at.x = toFixed16(from.x);
        at.z = from.z;
        for (int i = 0; i < at.coordinates.count; ++i)
            at.coordinates.of[i] = toFixed16(from.coordinates.of[i]);
        const std::int32_t rows = to.y - from.y;
        if (rows == 0)
            return;
        step_.x = toFixed16(wrapSub(to.x, from.x)) / rows;
        step_.z = (to.z - from.z) / static_cast<float>(rows);
        for (int i = 0; i < at.coordinates.count; ++i)
            step_.coordinates.of[i] = toFixed16(wrapSub(to.coordinates.of[i], from.coordinates.of[i])) / rows;
    }

    void advance() {
        at.x = wrapAdd(at.x, step_.x);
        at.z += step_.z;
        for (int i = 0; i < at.coordinates.count; ++i)
            at.coordinates.of[i] = wrapAdd(at.coordinates.of[i], step_.coordinates.of[i]);
    }

    // The same as so many single steps.
    void advance(std::int32_t rows) {
        at.x = wrapAdd(at.x, wrapMul(rows, step_.x));
        at.z = addRepeatedly(at.z, step_.z, rows);
        for (int i = 0; i < at.coordinates.count; ++i)
            at.coordinates.of[i] = wrapAdd(at.coordinates.of[i], wrapMul(rows, step_.coordinates.of[i]));
    }

    AffineEnd<layers> at{};

  private:
    AffineEnd<layers> step_{};
};

// Calls drawRow(a, b, row) for every row that lies on a target of the given height. Triangles that reach farther than
// 2^30 rows (or whose corners are no numbers) are left out: their heights would not fit.
template <int layers, class DrawRow>
void walkAffineTriangle(std::array<SnappedCorner<layers>, 3> corners, std::int32_t height, DrawRow drawRow) {
    constexpr std::int32_t farthestRow = 1 << 30;
    for (const SnappedCorner<layers>& corner : corners) {
        if (corner.y < -farthestRow || corner.y > farthestRow)
            return;
    }
    const auto sort = [&corners](std::size_t first, std::size_t second) {
        if (corners[first].y > corners[second].y)
            std::swap(corners[first], corners[second]);
    };
    sort(0, 1);
    sort(1, 2);
    sort(0, 2);
    sort(0, 1);

    AffineEdge<layers> longEdge(corners[0], corners[2]);
    const auto walk = [&](AffineEdge<layers> shortEdge, std::int32_t row, std::int32_t end) {
        end = std::min(end, height);
        if (const std::int32_t hidden = std::min(end, 0) - row; hidden > 0) {
            shortEdge.advance(hidden);
            longEdge.advance(hidden);
            row += hidden;
        }
        for (; row < end; ++row) {
            drawRow(shortEdge.at, longEdge.at, row);
            shortEdge.advance();
            longEdge.advance();
        }
    };
    walk(AffineEdge<layers>(corners[0], corners[1]), corners[0].y, corners[1].y);
    walk(AffineEdge<layers>(corners[1], corners[2]), corners[1].y, corners[2].y);
}

} // namespace lumenfold
