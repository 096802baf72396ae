#pragma once

#include "core/convert.h"
#include "core/float_sum.h"
#include "core/frame_info.h"
#include "core/pixel.h"
#include "render/affine_run.h"
#include "render/depth_buffer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

// From the corners of a triangle to runs of pixels, as the affine fillers share it: no correction within a pixel, every
// edge starts at its corner's whole pixel.

namespace lumenfold {

// One end of a row.
template <int layers>
struct AffineEnd {
    std::int32_t x; // 16.16
    float z;
    Coordinates<layers> coordinates; // 16.16
};

// Cuts the row between two ends at the target's borders. False when nothing of it is on the target.
template <int layers>
bool makeAffineRun(AffineRun<layers>& run, const AffineEnd<layers>& a, const AffineEnd<layers>& b, std::int32_t row,
                   FrameInfo info, Pixel32* target, float depthBias) {
    std::int32_t left = a.x >> 16;
    std::int32_t right = b.x >> 16;
    if (row < 0 || row >= info.height || left == right)
        return false;
    const AffineEnd<layers>* leftEnd = &a;
    const AffineEnd<layers>* rightEnd = &b;
    if (left > right) {
        std::swap(left, right);
        std::swap(leftEnd, rightEnd);
    }
    if (left >= info.width || right < 0)
        return false;

    const std::int32_t length = right - left;
    const float leftDepth = 1.0F / leftEnd->z;
    run.depthBias = depthBias;
    run.dStep = (1.0F / rightEnd->z - leftDepth) / static_cast<float>(length);
    run.d = leftDepth + depthBias;
    run.start = leftEnd->coordinates;
    // whole numbers of 32 bits: the same quotient as by double precision, truncated
    for (int i = 0; i < run.step.count; ++i)
        run.step.of[i] = wrapSub(rightEnd->coordinates.of[i], leftEnd->coordinates.of[i]) / length;

    if (left < 0) {
        run.d += static_cast<float>(-left) * run.dStep;
        for (int i = 0; i < run.step.count; ++i)
            run.start.of[i] = wrapAdd(run.start.of[i], wrapMul(-left, run.step.of[i]));
        left = 0;
    }
    if (right >= info.width)
        right = info.width - 1; // a row that is cut leaves out the last column
    const std::int64_t at = std::int64_t{row} * info.width + left;
    run.target = target + at;
    run.depth = depthBuffer + at;
    run.count = right - left;
    return run.count > 0;
}

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
