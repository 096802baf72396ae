#pragma once

#include "core/pixel.h"
#include "effects/warp.h"

namespace lumenfold {

inline constexpr int lightSpotSide = 512;

// Paints the disc of light, lightSpotSide x lightSpotSide pixels: yellow-white in the middle, black from radius 255
// on.
void paintLightSpot(Pixel32* picture);

// The frame seen as a quad on the picture of the spot: it turns while its corners close in on the middle by a step
// that shrinks too. They wait at 95 texels until the step is shorter than that; then the light fills the frame.
struct LightSpot {
    float radius = 10000.0F; // of the corners, in texels of the picture
    int shrink = 300;        // taken from the radius in a frame

    // The corners for this frame; the radius shrinks afterwards.
    WarpQuad closeIn(float time);
};

} // namespace lumenfold
