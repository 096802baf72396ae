#pragma once

#include "forge/colour.h"

namespace lumenfold::art {

// The light that comes from a place of the oil pool, in pixels of "skum3.jpg". The pool also lies at the bottom of part
// 1's shaft, where the same picture fades in.
Colour oilPoolAt(float x, float y);

} // namespace lumenfold::art
