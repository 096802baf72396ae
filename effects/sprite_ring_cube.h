#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 2 of the timeline: the ring of flares over scrolling bands, then the cube in the fire tunnel.
void spriteRingCube(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

// The 32 x 32 flare of the ring, loaded by this scene's Init (null before), owned by it and kept to the end: also the
// welding torch.
const Pixel32* flareSprite();

} // namespace lumenfold
