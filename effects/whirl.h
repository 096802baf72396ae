#pragma once

#include "assets/mesh.h"
#include "core/frame_info.h"
#include "core/pixel.h"

namespace lumenfold {

// Where a cloud of flares stands in the frame: it turns about the middle while it circles it.
struct Whirl {
    float angle; // radians
    double x, y; // pixels from the middle

    explicit Whirl(float spin);
};

inline constexpr int whirlFlareSide = 16;

// Projects a point of the metaballs' space, turns it with the whirl and adds the flare (whirlFlareSide x
// whirlFlareSide pixels) onto the frame, its first pixel there. Left out in column 0 and row 0 and outside the frame,
// cut at its other borders.
void stampFlare(FrameInfo info, Pixel32* frame, const Pixel32* flare, const Whirl& whirl, const Vector3& point);

} // namespace lumenfold
