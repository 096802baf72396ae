#pragma once

#include "forge/colour.h"

namespace lumenfold::art {

// The light that every chrome surface of the show mirrors. Directions: x right, y up, z towards the viewer.

// 1 within a rectangular lamp seen around the direction `centre`, falling softly to 0 at its edges; sizes are
// tangents of half angles.
struct SoftBox {
    Vec3 centre;
    Vec3 up{0, 1, 0};
    float halfWidth = 0.2F;
    float halfHeight = 0.6F;
    float softness = 0.2F;
};
float seen(const SoftBox& box, Vec3 direction);

// A dark petrol room: a tall ice key lamp with a narrow companion at the upper left, an amber lamp at the right, teal
// light from above, a trace of violet low at the left, an ember glow along the horizon, all slightly clouded.
Colour studioLight(Vec3 direction);

// What a mirror with this normal shows to a viewer straight ahead.
inline Colour mirrored(Vec3 normal) {
    return studioLight(reflect({0, 0, -1}, normal));
}

} // namespace lumenfold::art
