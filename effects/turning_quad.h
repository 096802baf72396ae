#pragma once

#include "effects/warp.h"

namespace lumenfold {

// The corners of a quad of frame shape, lying on its side, that turns with time about the source pixel (256, 256).
// radius: from the middle to every corner, in source pixels.
WarpQuad turningQuad(float time, double radius);

} // namespace lumenfold
