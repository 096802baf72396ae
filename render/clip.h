#pragma once

#include "assets/mesh.h"
#include "core/frame_info.h"
#include "core/pixel.h"

namespace lumenfold {

// Draws a face whose corners are in camera space: cut at the near plane z = 0.2 into one or two triangles, dropped
// when wholly behind it or wholly beyond z = 90.
void clipAndDrawFace(const MeshFace& face, FrameInfo info, Pixel32* target, float depthBias);

// Projects a triangle with all z >= 0.2, rejects it when off screen, degenerate or facing away, and hands it to the
// filler that its material's mode word selects. Faces without a material or texture draw nothing.
void drawTriangle(const MeshFace& face, FrameInfo info, Pixel32* target, float depthBias);

} // namespace lumenfold
