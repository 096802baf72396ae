#pragma once

#include <cairo.h>

namespace lumenfold::art {

// Strokes the name "lumenfold" in the show's own lettering: x height 28 to 62, ascenders from 9, strokes 10.5 wide,
// beginning at the given x. The source colour is the caller's.
void drawName(cairo_t* cairo, double x);
double nameWidth();

} // namespace lumenfold::art
