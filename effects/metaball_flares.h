#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 10 of the timeline: metaballs of flares over a turning plane.
void metaballFlares(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

} // namespace lumenfold
