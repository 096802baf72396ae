#include "effects/metaball_flares.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "core/trig.h"
#include "effects/commands.h"
#include "effects/frame_size.h"
#include "effects/metaballs.h"
#include "effects/picture.h"
#include "effects/whirl.h"
#include "render/depth_buffer.h"
#include "render/ray_field.h"

#include <vector>

namespace lumenfold {

namespace {

constexpr Pixel32 transparent = 0x00FFFFFF;

struct State {
    // loaded once
    std::vector<Pixel32> overlay; // the frame's size; white shows the picture
    std::vector<Pixel32> flare;   // 16 x 16

    // runs on from frame to frame
    RayField plane;
    float spin = 0.0F; // radians; turns the cloud and moves its centre

    // made anew by every frame
    std::vector<Pixel32> previousFrame;
    MetaballGrid grid;
    std::vector<Vector3> crossings;
} state;

void init(FrameInfo info) {
    state = State{};
    state.plane = makeRayField(RayShape::Plane, getTexture("fdgrid.jpg"));
    state.crossings.reserve(maxCrossings);
    state.previousFrame.resize(pixelCount(info));
    state.overlay = loadPicture("designfusk.pcx", info.width, info.height);
    state.flare = loadPicture("bfs0.pcx", whirlFlareSide, whirlFlareSide);
    allocateDepthBuffer(info.width, info.height);
}

void drawPlane(FrameInfo info, Pixel32* frame) {
    drawRayField(state.plane, frame, info);
    state.plane.angles = {0.2F, 0.0F, -0.4F};
    state.plane.scrollV += 22;
}

void moveMetaballs(float t) {
    using trig::cos;
    using trig::sin;
    const std::int32_t a = truncate(350 - 80 * cos(0.2 * t));
    const std::int32_t b = truncate(350 - 90 * sin(0.3 * t));
    state.grid.samples.fill(0.0F);
    addMetaball(state.grid, {b, truncate(400 + 75 * cos(0.15 * t)), a, 100, 0.004F});
    addMetaball(state.grid, {truncate(450 + 80 * sin(0.3 * t)), a, b, 100, 0.004F});
    addMetaball(state.grid, {truncate(300 + 70 * sin(0.1 * t)), truncate(450 + 90 * cos(0.4 * t)),
                             truncate(450 - 60 * cos(0.5 * t)), 120, 0.004F});
}

void stampFlares(FrameInfo info, Pixel32* frame) {
    state.spin = static_cast<float>(state.spin + 0.05);
    const Whirl whirl(state.spin);
    for (const Vector3& point : state.crossings)
        stampFlare(info, frame, state.flare.data(), whirl, point);
}

void render(FrameInfo info, Pixel32* frame, float time) {
    constexpr float level = 60.0F;
    const std::size_t count = pixelCount(info);
    copyPixels(state.previousFrame.data(), frame, count);
    drawPlane(info, frame);
    moveMetaballs(time);
    polygonise(state.grid, level, state.crossings);
    stampFlares(info, frame);
    averageHalves(frame, frame, state.previousFrame.data(), count); // trails
    overlayKeyed(frame, state.overlay.data(), transparent, count);
}

} // namespace

void metaballFlares(FrameInfo info, EffectCommand command, Pixel32* pixels, float time) {
    follow(command, info, pixels, time, init, render);
}

} // namespace lumenfold
