#pragma once

#include "core/pixel.h"

#include <cstdint>
#include <string>

namespace lumenfold::film {

inline constexpr std::int32_t glyphAdvance = 6; // pixels from letter to letter
inline constexpr std::int32_t glyphHeight = 7;

// Writes text in capitals of 5 x 7 pixels into a picture of rows of pitch pixels, top left corner at (x, y). The
// text lies wholly inside the picture. Signs that the font lacks leave a gap.
void drawText(Pixel32* pixels, std::int32_t pitch, std::int32_t x, std::int32_t y, const std::string& text,
              Pixel32 colour);

} // namespace lumenfold::film
