#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 1 of the timeline: the letterboxed tunnel, its dissolve, the logo, and the prison hall.
void tunnelOpening(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

} // namespace lumenfold
