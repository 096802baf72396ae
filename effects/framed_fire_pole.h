#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 8 of the timeline: a small set behind a frame, with fire pole and nameplate.
void framedFirePole(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

} // namespace lumenfold
