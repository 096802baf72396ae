#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 5 of the timeline: the still is welded, split and rolled up as a film.
void weldingFilm(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

} // namespace lumenfold
