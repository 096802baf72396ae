#pragma once

#include "assets/mesh.h"
#include "core/frame_info.h"
#include "core/pixel.h"

// The clipper, the set-up of a triangle and the line once more, one statement for each rule.

namespace lumenfold::reference {

void clipAndDrawFace(const MeshFace& face, FrameInfo info, Pixel32* target, float depthBias);
void drawTriangle(const MeshFace& face, FrameInfo info, Pixel32* target, float depthBias);
void drawLine(int x0, int y0, int x1, int y1, Pixel32* target, int width, int height);

} // namespace lumenfold::reference
