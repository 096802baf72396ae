#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <array>
#include <cstdint>
#include <vector>

namespace lumenfold {

struct TubePoint {
    float x, z;     // of the cross-section; z away from the viewer
    std::int32_t u; // texture column
};

// A tube that stands upright across the frame: one ring of six corners for every row of the frame, drawn on that row.
struct Tube {
    static constexpr int corners = 6;
    std::vector<TubePoint> points; // ring by ring

    Tube() = default;
    explicit Tube(int rings) : points(static_cast<std::size_t>(rings) * corners) {}
};

// Places all points for this moment: hexagons that twist along the tube and whose corners ripple about radius 20.
void buildTube(Tube& tube, float time);

// Lays the texture around the tube as it stands: column 0 at the back to column 127 in front, mirrored left and right.
void mapTube(Tube& tube);

// Draws the segments that run from left to right, each as a span on its ring's row, seen from the distance given.
// Texture (256 x 256) plus shade replaces the frame's pixels, depth-tested and depth-written with depthBase + 1/z in
// the depth buffer. frame and depth buffer: info.width wide, at least as many rows as the tube has rings. What lies
// outside the row is left out.
void drawTube(const Tube& tube, const Pixel32* texture, std::uint32_t zoomDistance, Pixel32* frame, FrameInfo info,
              float depthBase);

} // namespace lumenfold
