#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <array>
#include <cstdint>
#include <vector>

namespace lumenfold::bench {

enum class FillerMode { Perspective, PerspectiveAdd, Affine, AffineAdd, TwoLayer };

inline constexpr std::array fillerModes = {FillerMode::Perspective, FillerMode::PerspectiveAdd, FillerMode::Affine,
                                           FillerMode::AffineAdd, FillerMode::TwoLayer};
inline constexpr std::array fillerSides = {4, 16, 64, 128};

const char* fillerName(FillerMode mode);

// One corner of the load: screen pixels, camera-space z, texels of a 256 x 256 texture.
struct LoadCorner {
    float x, y, z, u, v;
};
using LoadTriangle = std::array<LoadCorner, 3>;

// Right triangles of one side, a picture of 512 x 384 full of them: pairs that make squares, neighbouring squares
// with neighbouring parts of the texture, as on a mesh; depths differ from corner to corner.
std::vector<LoadTriangle> loadTriangles(int side);

// A texture of noise.
std::vector<Pixel32> loadTexture();

// Draws those triangles with one filler. Every picture lies nearer than the one before, so that each pixel passes the
// depth test.
class FillerLoad {
  public:
    FillerLoad(FillerMode mode, int side);
    ~FillerLoad();
    FillerLoad(const FillerLoad&) = delete;
    FillerLoad& operator=(const FillerLoad&) = delete;

    void drawPicture();
    // Pixels that one picture changes, counted once.
    std::int64_t coveredPixels() const { return covered_; }

  private:
    FillerMode mode_;
    std::vector<LoadTriangle> triangles_;
    std::vector<Pixel32> texture_;
    std::vector<Pixel32> second_;
    std::vector<Pixel32> target_;
    std::vector<float> depth_;
    float* previousDepth_;
    float bias_ = 0.0F;
    std::int64_t covered_ = 0;
};

} // namespace lumenfold::bench
