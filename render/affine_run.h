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

// The loops of one mode. Short runs get the plain one: a load that meets part of a masked store has to wait for it,
// which on small triangles costs more than the lanes gain.
template <int layers>
struct AffineLoops {
    static constexpr std::int32_t shortRun = 4;

    DrawAffineRun<layers> shortRuns, longRuns;

    void operator()(const AffineRun<layers>& run) const { (run.count <= shortRun ? shortRuns : longRuns)(run); }
};

// The loops eight pixels at a time; null where this build has no vector code. To be called while vectorCode().
DrawAffineRun<1> vectorAffineRun();
DrawAffineRun<1> vectorAffineRunAdd();
DrawAffineRun<2> vectorTwoLayerRun();

} // namespace lumenfold
