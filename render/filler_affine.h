#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <cstdint>

namespace lumenfold {

// Fillers that interpolate texture coordinates linearly over the screen, and 1/z linearly within a row. All are
// depth-tested (strictly) and depth-written, the added ones too; a row that is cut at the right border leaves out the
// last column. Textures: 256 x 256, wrapping. target and depth buffer: info.width x info.height.

// A projected corner: x, y in screen pixels, z in camera space, u and v in texels; snapped to whole pixels and whole
// texels by the set-up. The second pair is used by the two-layer filler only.
struct AffineCorner {
    float x, y, z;
    float u1, v1;
    float u2, v2;
};

// Triangle set-up and walk of modes 0x401 and 0x11 (opaque) and 0x501 (added); coordinates from u1, v1.
void drawTriangleAffine(const AffineCorner (&corners)[3], const Pixel32* texture, FrameInfo info, Pixel32* target,
                        float depthBias);
void drawTriangleAffineAdd(const AffineCorner (&corners)[3], const Pixel32* texture, FrameInfo info, Pixel32* target,
                           float depthBias);

// One row: ends a and b in any order; x, u, v in 16.16, z as floats in camera space.
void drawSpanAffine(std::int32_t xa, std::int32_t xb, float za, float zb, std::int32_t ua, std::int32_t ub,
                    std::int32_t va, std::int32_t vb, std::int32_t row, const Pixel32* texture, FrameInfo info,
                    Pixel32* target, float depthBias);
void drawSpanAffineAdd(std::int32_t xa, std::int32_t xb, float za, float zb, std::int32_t ua, std::int32_t ub,
                       std::int32_t va, std::int32_t vb, std::int32_t row, const Pixel32* texture, FrameInfo info,
                       Pixel32* target, float depthBias);

// Mode 0x19: the sum (saturating) of two textures, each addressed with column v and row u.
void drawTriangleTwoLayer(const AffineCorner (&corners)[3], const Pixel32* first, const Pixel32* second, FrameInfo info,
                          Pixel32* target, float depthBias);

// Coordinates of one span end in both textures, 16.16.
struct TwoLayerCoordinates {
    std::int32_t u1, v1;
    std::int32_t u2, v2;
};

// One row of mode 0x19, as drawSpanAffine.
void drawSpanTwoLayer(std::int32_t xa, std::int32_t xb, float za, float zb, const TwoLayerCoordinates& a,
                      const TwoLayerCoordinates& b, std::int32_t row, const Pixel32* first, const Pixel32* second,
                      FrameInfo info, Pixel32* target, float depthBias);

} // namespace lumenfold
