#pragma once

#include "assets/mesh.h"
#include "core/frame_info.h"
#include "core/pixel.h"
#include "render/sprite.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace lumenfold {

// A camera with the objects and sprites that it sees. Camera space: x right, y up, z away from the viewer.
struct Scene {
    static constexpr std::int32_t maxObjects = 100;
    static constexpr std::int32_t maxSprites = 700;

    std::array<std::shared_ptr<Mesh>, maxObjects> objects; // drawn in index order
    std::vector<Sprite> sprites = std::vector<Sprite>(maxSprites);
    std::vector<Sprite> spriteWork = std::vector<Sprite>(maxSprites); // camera-space copies, rewritten by every draw
    std::int32_t objectCount = 0;
    std::int32_t spriteCount = 0;
    Vector3 cameraPosition{0.0F, 0.0F, -10.0F}; // world units, those of the object files
    Vector3 cameraAngles{};                     // degrees about x, y, z
    Matrix cameraMatrix{};                      // written by every draw

    // Adds an empty object; null when there are 100 already. The scene owns it.
    Mesh* addObject();
};

// Draws the scene into target (info.width x info.height, which may be a band of the frame: the depth buffer is
// indexed from its own start all the same). There must be a depth buffer. Turns every object by its spin first.
// depthBias is added to every depth; scenes raise it from draw to draw because the buffer is cleared only between
// parts.
void drawScene(Scene& scene, FrameInfo info, Pixel32* target, float depthBias);

// The depth bias that the scenes of parts 4, 5, 6 and 8 share; each raises it before its draws.
extern float sharedDepthBias;

} // namespace lumenfold
