#pragma once

#include "driver/show.h"

namespace lumenfold {

// Plays the parts as the music counts them, then the end scroller, again and again, until a key press is waiting or
// the music has counted to the end. The music is running and the depth buffer allocated.
// Throws what the music and the scenes throw.
void playTimeline(Show& show);

} // namespace lumenfold
