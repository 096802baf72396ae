#pragma once

#include "core/effect.h"

#include <cstdint>

namespace lumenfold {

// The closing scene: the tall picture rolls up until endScrollDone is set.
void endScroller(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

// Set to 1 by the end scroller when the picture has rolled far enough; only a new run of the demo sets it back to 0.
extern std::uint8_t endScrollDone;

} // namespace lumenfold
