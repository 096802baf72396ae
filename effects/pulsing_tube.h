#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 9 of the timeline: the hexagonal tube over a ring of smeared flares.
void pulsingTube(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

} // namespace lumenfold
