#pragma once

#include "core/pixel.h"

#include <cstdint>

// What the affine fillers hand to the loops over the pixels of one row; with one texture (coordinates u, v) or two
// (u, v of the first, then u, v of the second).

namespace lumenfold {

template <int layers>
struct Coordinates {
    static constexpr int count = 2 * layers;
    std::int32_t of[count]; // 16.16, or whole texels at a corner
};

template <int layers>
struct Layers {
    const Pixel32* of[layers];
};

// Pixels of one row that lie on the target, before the depth test; at least one.
template <int layers>
struct AffineRun {
    Pixel32* target;
    float* depth;
    std::int32_t count;
    float depthBias;
    float d, dStep; // 1/z + bias
    Coordinates<layers> start, step;
    Layers<layers> textures;
};

template <int layers>
using DrawAffineRun = void (*)(const AffineRun<layers>& run);

// A pixel is drawn where its 1/z lies before the eye and nearer than what is there.
void drawAffineRun(const AffineRun<1>& run);
void drawAffineRunAdd(const AffineRun<1>& run); // added to the pixels
void drawTwoLayerRun(const AffineRun<2>& run);  // the sum of both textures

} // namespace lumenfold
