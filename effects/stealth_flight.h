#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 6 of the timeline: the flight over water.
void stealthFlight(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

} // namespace lumenfold
