#pragma once

#include "core/convert.h"
#include "render/affine_span.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
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

    AffineEnd<layers> at{};

  private:
    AffineEnd<layers> step_{};
};

// Calls drawRow(a, b, row) for every row that lies on a target of the given height. Rows above it are walked too,
// because z accumulates in floats; a float does not count more than 2^24 of them, and triangles that begin higher (or
// whose corners are no numbers) are left out.
template <int layers, class DrawRow>
void walkAffineTriangle(std::array<SnappedCorner<layers>, 3> corners, std::int32_t height, DrawRow drawRow) {
    constexpr std::int32_t mostRowsAbove = 1 << 24;
    constexpr std::int32_t lastRow = std::numeric_limits<std::int32_t>::max() - mostRowsAbove; // heights stay in range
    for (const SnappedCorner<layers>& corner : corners) {
        if (corner.y < -mostRowsAbove || corner.y > lastRow)
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
        for (; row < std::min(end, height); ++row) {
            if (row >= 0)
                drawRow(shortEdge.at, longEdge.at, row);
            shortEdge.advance();
            longEdge.advance();
        }
    };
    walk(AffineEdge<layers>(corners[0], corners[1]), corners[0].y, corners[1].y);
    walk(AffineEdge<layers>(corners[1], corners[2]), corners[1].y, corners[2].y);
}

} // namespace lumenfold
