#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 7 of the timeline: the wave warp under a turning slime quad.
void waveWarp(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

} // namespace lumenfold
