#pragma once

#include "core/pixel.h"

namespace lumenfold {

// A white line one pixel wide, both ends drawn, without depth; pixels outside the target's width x height are left out.
// The ends may lie anywhere in the range of int.
// Source: J. E. Bresenham, Algorithm for computer control of a digital plotter (1965).
void drawLine(int x0, int y0, int x1, int y1, Pixel32* target, int width, int height);

} // namespace lumenfold
