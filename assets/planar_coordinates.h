#pragma once

#include "assets/mesh.h"

namespace lumenfold {

struct TexturePoint {
    float u, v; // whole texels
};

// Where a point of object space lies in a planar texture layer. Other mappings, and planar ones without an axis, give
// random texels; two random numbers are drawn in every case, because the scenes share the sequence.
TexturePoint planarCoordinates(const TextureLayer& layer, float x, float y, float z);

} // namespace lumenfold
