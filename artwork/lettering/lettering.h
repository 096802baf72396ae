#pragma once

#include "forge/picture.h"

// One function per picture that carries type.

namespace lumenfold::art {

Bitmap makeLogo();         // goodlog512a.jpg: the name, added and smeared in the opening
Bitmap makeTextStrip();    // cptext6.pcx: added at the left of the sprite ring
Bitmap makeRoleStrip();    // sidogrej91x351.tga: added at the right of the showcase
Bitmap makeBanner();       // bajsa.jpg: runs above and below the twin tunnel
Bitmap makeGreetings();    // greets2.pcx: vertical greetings beside the ray tunnel
Bitmap makeCircuitBand();  // circ3.jpg: bands added over the sprite ring
Bitmap makeOverlayPlate(); // designfusk.pcx: the frame over the metaballs
Bitmap makeEndScroll();    // endscroll.pcx: credits and farewell

} // namespace lumenfold::art
