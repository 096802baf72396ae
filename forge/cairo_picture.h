#pragma once

#include "forge/picture.h"

#include <cairo.h>
#include <functional>

namespace lumenfold::art {

// What `draw` paints with Cairo, in pixels from the upper left corner, as coverage: 0 untouched, 1 painted, in all
// three channels. The source is set to opaque white before the call.
Picture drawn(int width, int height, const std::function<void(cairo_t*)>& draw);

} // namespace lumenfold::art
