#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

namespace lumenfold {

// Flares on a closed curve that grows, breathes and is pushed outwards by pulses. The radius follows a wave along the
// ring, and the number of its crests steps through 2, 3, 4 and 5.
struct SpriteRing {
    static constexpr int spriteSide = 32;

    const Pixel32* sprite = nullptr; // spriteSide x spriteSide, owned by the scene
    int pulseRadius = 0;             // pixels by which the last pulse still pushes
    int span = 0;                    // degrees that hold sprites so far
    float frequency = 2.0F;          // crests of the wave
};

// Adds the ring onto the picture (settings.width x settings.height, saturating) at ring time T, of which 1.6 go into a
// unit of demo time, and moves it on by a frame; pulse starts a pulse. What falls outside the picture is left out.
void drawSpriteRing(SpriteRing& ring, FrameInfo settings, double T, Pixel32* pixels, bool pulse);

} // namespace lumenfold
