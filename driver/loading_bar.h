#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <cstdint>

namespace lumenfold {

// Draws the loading bar: 16 rows in the middle of the frame, width pixels from the left, every other column, shading
// from red towards yellow. The even columns and everything around stay as they are.
void drawLoadingBar(FrameInfo info, Pixel32* frame, std::int32_t width);

} // namespace lumenfold
