#pragma once

#include "assets/mesh.h"
#include "core/frame_info.h"
#include "core/pixel.h"

#include <cstdint>

namespace lumenfold {

// A small picture at a point in space, facing the viewer.
struct Sprite {
    Vector3 position{};
    const Pixel32* image = nullptr; // width x height pixels, owned by the scene
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint8_t scaled = 0; // 0: at its own size, top-left at the point; else scaled with distance and centred
    std::uint32_t blend = 0; // 1 add with saturation, 2 average, 3 opaque with 0 transparent
};

// Draws a sprite whose position is in camera space (drawn from z > 0.35 on). Target: info.width x info.height.
// Unscaled: wholly inside the target or not at all, no depth. Scaled and added: hidden or seen as a whole by the depth
// at its centre, none written. Scaled and opaque: not depth-tested, writes its z as it stands. Scaled average: nothing.
void drawSprite(const Sprite& sprite, Pixel32* target, FrameInfo info, float depthBias);

} // namespace lumenfold
