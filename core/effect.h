#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

namespace lumenfold {

enum class EffectCommand {
    Init = 0,    // load everything; pixels is null, time 0
    Render = 1,  // draw one frame into pixels at the demo time given
    Release = 2, // free the scene's own pictures; pixels is null, time 0
};

// One scene of the demo. time is the demo time, which grows by 15.68 a second.
using Effect = void (*)(FrameInfo info, EffectCommand command, Pixel32* pixels, float time);

} // namespace lumenfold
