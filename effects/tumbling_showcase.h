#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 3 of the timeline: environment-mapped objects that tumble in front of a picture.
void tumblingShowcase(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

} // namespace lumenfold
