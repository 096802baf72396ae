#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <array>
#include <cstdint>

namespace lumenfold {

// A spark in flight: frame pixels and pixels per frame.
struct Spark {
    float x, y;
    float vx, vy;
};

inline constexpr int sparkSide = 16; // of a spark's picture

// The sparks of the torch: one more leaves it in every frame until all are in flight; none ever goes out.
struct SparkShower {
    static constexpr std::int32_t maxCount = 199;

    std::array<Spark, maxCount + 1> sparks{};
    std::int32_t count = 0;
};

// Lets the next spark start at the torch (height y0, middle of the frame), if one is left. It is not counted yet.
// Draws three numbers from the generator.
void igniteSpark(SparkShower& shower, std::int32_t y0, FrameInfo settings);

// Moves the first count sparks and lets gravity pull. One that would reach the bottom starts again at resetHeight in
// the middle, without vertical speed.
void updateSparks(Spark* sparks, std::int32_t resetHeight, FrameInfo settings, std::int32_t count);

// Adds the counted sparks, sprite on sprite, onto the frame, the newest one too though it has not moved yet. Those
// within 18 pixels of the left, right and lower borders are left out.
void drawSparks(Pixel32* frame, FrameInfo settings, const SparkShower& shower, const Pixel32* sprite);

// Adds the torch's glow or a spark (side x side pixels) onto a picture of the frame's size, left of column x and below
// row y. The picture's first two rows stay free.
void stampGlow(Pixel32* picture, FrameInfo settings, const Pixel32* sprite, int side, std::int32_t x, std::int32_t y);

} // namespace lumenfold
