#pragma once

#include "forge/colour.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace lumenfold::art {

// A picture in linear light, rows from the top.
class Picture {
  public:
    Picture(int width, int height)
        : width_(width), height_(height), pixels_(static_cast<std::size_t>(width) * height) {}

    int width() const { return width_; }
    int height() const { return height_; }
    Colour& at(int x, int y) { return pixels_[static_cast<std::size_t>(y) * width_ + x]; }
    const Colour& at(int x, int y) const { return pixels_[static_cast<std::size_t>(y) * width_ + x]; }

    // Every pixel becomes change(pixel, x, y).
    void change(const std::function<Colour(Colour, int x, int y)>& change);

  private:
    int width_;
    int height_;
    std::vector<Colour> pixels_;
};

// A finished picture: red, green, blue bytes, rows from the top.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb; // width x height x 3
};

// What lies beyond an edge: the edge pixel again, or the other side (for seamless pictures).
enum class Edge { clamp, wrap };

using Shader = std::function<Colour(float x, float y, std::uint32_t seed)>;

// Each pixel is the mean of samples x samples jittered points of `shade`, which takes picture coordinates (pixel
// (0, 0) covers 0 to 1) and a number of the point's own for random choices. Bright points are weighed down before the
// mean and the mean weighed up again by `highlightWeight` (0 none, 0.25 for scenes with lamps), so that a highlight's
// edge stays smooth.
Picture renderPicture(int width, int height, int samples, const Shader& shade, float highlightWeight = 0);

// From now on pictures are rendered with 2 x 2 samples per pixel, for a fast look at a work in progress.
void renderQuickly();

Picture blurred(const Picture& picture, float sigma, Edge edge); // Gaussian, sigma in pixels

// Light that spreads in the lens: strength of a narrow and a wide blur of the picture are mixed in.
struct Bloom {
    float narrowSigma = 3;
    float narrow = 0.10F;
    float wideSigma = 18;
    float wide = 0.10F;
};
Picture withBloom(const Picture& picture, const Bloom& bloom, Edge edge);

// Darkens towards the corners; strength 0 none, 0.55 strong.
void addVignette(Picture& picture, float strength);

// How light becomes bytes.
struct Develop {
    float exposure = 1;
    bool film = true;    // filmic shoulder; otherwise cut at 1
    float dither = 0.6F; // triangular noise in byte steps against banding; pixels of no light stay exactly 0
};
Bitmap developed(const Picture& picture, const Develop& develop = {});

// The bitmap with everything darker than `floor` (0 to 255, largest channel) exactly black, and a smooth rise above
// it, for pictures that are added.
Bitmap withTrueBlack(const Bitmap& bitmap, int floor);

} // namespace lumenfold::art
