#pragma once

#include "forge/picture.h"

namespace lumenfold::art {

// The crease that runs through the whole show: a white line from (0, 300) to (511, 282) that stands still through the
// cuts. Its skirt of light fades within ten pixels. strength: 1 as in the dark; less where the ground is bright.
void addCrease(Picture& picture, float strength = 1);

} // namespace lumenfold::art
