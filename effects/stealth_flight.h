#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 6 of the timeline: the flight over water.
void stealthFlight(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

// The first picture of this scene, 512 x 384, drawn once by its Init and owned by it: the end of the film roll holds
// it. Null before.
const Pixel32* heldPicture();

} // namespace lumenfold
