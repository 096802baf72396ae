#pragma once

#include "assets/mesh.h"
#include "core/frame_info.h"
#include "core/pixel.h"

#include <cstdint>
#include <vector>

namespace lumenfold {

enum class RayShape : std::int32_t { Plane = 1, Tunnel = 2 };

// A texture seen along rays at the corners of a grid of 32 x 24 screen cells: an infinite plane or the inside of a
// cylinder. Owned by its scene; the texture belongs to the cache.
struct RayField {
    std::int32_t gridWidth = 0;  // rays per grid row: 33
    std::int32_t gridHeight = 0; // grid rows: 25
    RayShape shape = RayShape::Plane;
    std::vector<Vector3> rays; // row-major; turned in place by every draw
    const Pixel32* texture = nullptr;
    Vector3 angles{}; // degrees by which every draw turns the rays further
    std::int32_t scrollU = 0;
    std::int32_t scrollV = 0;              // texels added to every ray's coordinates
    Matrix matrix{};                       // read, never written
    float distance = 0.0F;                 // of the plane from the eye; not used by the tunnel
    std::vector<std::int32_t> coordinates; // work of one draw: v x 65536 + u per ray
    std::vector<std::int32_t> shades;      // work of one draw
};

// A field of 33 x 25 unit rays through the frame's grid, identity matrix, plane distance 30.
RayField makeRayField(RayShape shape, const Pixel32* texture);

// Turns the rays by the angles and fills the whole target (info.width x info.height, multiples of 32 x 24: what is left
// over stays as it was) with the field, darkened with distance. Needs at least 33 x 25 rays. No depth.
void drawRayField(RayField& field, Pixel32* target, FrameInfo info);

} // namespace lumenfold
