#pragma once

#include "core/effect.h"

namespace lumenfold {

// Part 4 of the timeline: the twin tunnel warp with its light spot, then the ray tunnel and the frozen still.
void twinTunnel(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

// The frozen still, 512 x 384, owned by this scene from its Init on (null before) and black until it freezes a frame;
// the welding burns its seam into it.
Pixel32* frozenStill();

} // namespace lumenfold
