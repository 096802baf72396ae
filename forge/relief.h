#pragma once

#include "forge/picture.h"

#include <functional>
#include <vector>

namespace lumenfold::art {

// A seamless square grid of numbers: the heights under a texture. Indices wrap.
class Relief {
  public:
    // height: of the place (u, v), both 0 to 1, sampled at the middles of size x size squares.
    Relief(int size, const std::function<float(float u, float v)>& height);

    int size() const { return size_; }
    float at(int x, int y) const;

    // Unit normal, x right, y down, z towards the viewer. depth: how high 1 stands, in units of the whole side.
    Vec3 normal(int x, int y, float depth) const;

    // The heights under a Gaussian blur, reach in grid squares: softer shapes, or the level around a place, against
    // which hollows and crests are measured.
    Relief lowPass(float reach) const;

  private:
    explicit Relief(int size) : size_(size), heights_(static_cast<std::size_t>(size) * size) {}
    int size_;
    std::vector<float> heights_;
};

// A texture of side `side` from a relief of a multiple of that side: every square is shaded, the means are kept.
Picture shadedRelief(int side, const Relief& relief, const std::function<Colour(int x, int y)>& shade);

// A texture of side x side from samples x samples points each; place (u, v) runs 0 to 1.
Picture texture(int side, int samples, const std::function<Colour(float u, float v)>& shade);

} // namespace lumenfold::art
