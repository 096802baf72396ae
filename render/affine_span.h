#pragma once

#include "core/convert.h"
#include "core/frame_info.h"
#include "core/pixel.h"
#include "render/affine_run.h"
#include "render/depth_buffer.h"

#include <cstdint>
#include <utility>

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

// The plain walk over a run; shade(coordinates, pixel) gives the new pixel.
template <int layers, class Shade>
void drawRunPlain(const AffineRun<layers>& run, Shade shade) {
    Coordinates<layers> coordinates = run.start;
    float d = run.d;
    for (std::int32_t i = 0; i < run.count; ++i) {
        if (d - run.depthBias > 0.0F && run.depth[i] < d) {
            run.target[i] = shade(coordinates, run.target[i]);
            run.depth[i] = d;
        }
        for (int k = 0; k < coordinates.count; ++k)
            coordinates.of[k] = wrapAdd(coordinates.of[k], run.step.of[k]);
        d += run.dStep;
    }
}

} // namespace lumenfold
