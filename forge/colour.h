#pragma once

#include "forge/maths.h"

#include <cstdint>

namespace lumenfold::art {

// Linear light: x red, y green, z blue; 1 is the brightest a screen shows, a scene may hold more.
using Colour = Vec3;

// 8-bit sRGB to linear light and back (IEC 61966-2-1); toScreen gives 0 to 255, not rounded, for light within 0 to 1.
Colour fromHex(std::uint32_t rgb);
float toScreen(float light);

inline float luminance(Colour c) {
    return 0.2126F * c.x + 0.7152F * c.y + 0.0722F * c.z;
}

// Filmic shoulder: a fitted curve with a soft toe that takes any light into 0 to 1. Fit of the ACES reference
// transform by K. Narkowicz.
float filmic(float light);
Colour filmic(Colour light);

// The show's palette. Violet and gold stand only in iridescence.
namespace palette {
extern const Colour ink, deep, petrol, teal, ice, amber, ember, violet, gold;
} // namespace palette

// Thin-film interference on dark metal, 0 to 1 per channel. cosine: between ray and normal; thickness in units of
// 500 nm (0.4 to 1.2 gives the petrol range). Refractive index 1.4, one wave per channel.
Colour thinFilm(float cosineToNormal, float thickness);

// Petrol, teal, ice, violet, magenta, amber, gold: the iridescent sequence at t = 0 to 1.
Colour iridescence(float t);

} // namespace lumenfold::art
