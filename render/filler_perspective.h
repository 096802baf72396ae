#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <cstdint>

namespace lumenfold {

// A projected corner: x, y in screen pixels, z in camera space (>= 0.2), u and v in texels (wrapped at 256).
struct PerspectiveCorner {
    float x, y, z;
    float u, v; // u is the texture's column, v its row
};

// Perspective-correct triangle, u and v recomputed every 16 pixels, depth-tested (strictly) and depth-written.
// texture: 256 x 256. target and depth buffer: info.width x info.height.
void drawTexturedPerspective(const PerspectiveCorner (&corners)[3], const Pixel32* texture, FrameInfo info,
                             Pixel32* target, float depthBias);

// The same triangle added onto the picture (saturating); scroll texels are added to the column; depth-tested but not
// depth-written.
void drawTexturedPerspectiveAdd(const PerspectiveCorner (&corners)[3], const Pixel32* texture, FrameInfo info,
                                Pixel32* target, float depthBias, std::int32_t scroll);

} // namespace lumenfold
