#pragma once

#include "core/pixel.h"

#include <array>
#include <vector>

namespace lumenfold {

// The first picture of the flight over water. The flight draws it while loading; the film strip of the part before
// shows it in its last frame and holds it at its end, so that one part passes into the other.
struct FlightOpening {
    std::vector<Pixel32> picture;                 // 512 x 384; empty before the flight has loaded
    std::array<Pixel32, texturePixels> texture{}; // the same made a texture; stays in its place
};

inline FlightOpening flightOpening;

} // namespace lumenfold
