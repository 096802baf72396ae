#pragma once

#include "core/effect.h"

namespace lumenfold {

// Two scenes that load their pictures with all the others but that no part of the timeline shows.
void dormantSparkPlane(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);
void dormantFlarePicture(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

} // namespace lumenfold
