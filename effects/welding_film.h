#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 5 of the timeline: the still is welded, split and rolled up as a film.
void weldingFilm(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

// Gives the film object's first surface its texture (256 x 256, owned by the caller, kept to the end).
void setFilmTexture(Pixel32* texels);

} // namespace lumenfold
