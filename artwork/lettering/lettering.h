#pragma once

#include <string>

// One function per picture that carries type; each writes the finished file.

namespace lumenfold::art {

void makeLogo(const std::string& path);         // goodlog512a.jpg: the name, added and smeared in the opening
void makeTextStrip(const std::string& path);    // cptext6.pcx: added at the left of the sprite ring
void makeRoleStrip(const std::string& path);    // sidogrej91x351.tga: added at the right of the showcase
void makeBanner(const std::string& path);       // bajsa.jpg: runs above and below the twin tunnel
void makeGreetings(const std::string& path);    // greets2.pcx: vertical greetings beside the ray tunnel
void makeCircuitBand(const std::string& path);  // circ3.jpg: bands added over the sprite ring
void makeOverlayPlate(const std::string& path); // designfusk.pcx: the frame over the metaballs
void makeEndScroll(const std::string& path);    // endscroll.pcx: credits and farewell

} // namespace lumenfold::art
