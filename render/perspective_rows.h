#pragma once

#include "core/pixel.h"

#include <cstdint>

// What the set-up of the perspective filler hands to the routines that draw its rows.

namespace lumenfold {

// Quantities that are planar over the screen: the texture coordinates times w, and w = 1/z. w stands there twice to
// make four lanes.
struct Planar {
    float u, v, w, again;
};

// What does not change within one triangle.
struct PerspectiveTriangle {
    const Pixel32* texture;
    Pixel32* target;
    float* depth;
    std::int32_t width;
    float depthBias;
    std::uint32_t scroll; // 16.16, added to the column of the added triangle
    Planar perPixel;
    Planar perBlock; // of 16 pixels
};

// The two edges at one row, and their steps from row to row. The planar quantities travel with the left one.
struct PerspectiveEdges {
    float left, right; // x + 0.5
    Planar planar;
    float leftStep, rightStep;
    Planar planarStep;
};

// Draws rows [row, end), all of them on the target, and leaves the edges at row end.
using PerspectiveRows = void (*)(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row,
                                 std::int32_t end);

void drawPerspectiveRows(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row,
                         std::int32_t end);

// The texels added to the pixels, and no depth written.
void drawPerspectiveRowsAdd(const PerspectiveTriangle& triangle, PerspectiveEdges& edges, std::int32_t row,
                            std::int32_t end);

} // namespace lumenfold
