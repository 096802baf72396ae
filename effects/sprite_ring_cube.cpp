#include "effects/sprite_ring_cube.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "core/sync_state.h"
#include "core/trig.h"
#include "effects/commands.h"
#include "effects/phase_clock.h"
#include "effects/picture.h"
#include "effects/ring_backdrop.h"
#include "effects/scene_objects.h"
#include "effects/sprite_ring.h"
#include "effects/tunnel_tables.h"
#include "render/depth_buffer.h"

#include <memory>

namespace lumenfold {

namespace {

// The cube turns half a revolution about y, then a whole one about x. The formulas give the angle since the phase
// began; the renderer wants the step of each frame.
struct CubeTurn {
    float b = 0.0F; // degrees already turned
    float a = 0.0F;
};

struct State {
    // loaded once
    std::vector<Pixel32> background; // 512 x 384
    std::vector<Pixel32> fire;       // 512 x 384
    std::vector<Pixel32> endPicture; // 512 x 384, the next scene's background
    std::vector<Pixel32> flare;      // 32 x 32, kept to the end: also the welding torch
    const Pixel32* tunnelTexture = nullptr;
    TunnelTable warpTable; // one entry a frame pixel
    std::unique_ptr<Scene> cube;

    // runs on from frame to frame
    RingBackdrop backdrop;
    SpriteRing ring;
    std::int32_t warpOffset = 0; // added to every entry of the table
    CubeTurn turned;
    float drawCounter = 0.0F; // depth bias

    // per phase
    PhaseClock ringClock;
    PhaseClock cubeClock;
} state;

void init(FrameInfo info) {
    state = State{};
    state.background = loadPicture("skum3.jpg", 512, 384);
    state.flare = loadPicture("bfs1.pcx", SpriteRing::spriteSide, SpriteRing::spriteSide);
    state.ring.sprite = state.flare.data();
    auto strip = loadPicture("cptext6.pcx", RingBackdrop::stripWidth, RingBackdrop::stripHeight);
    state.backdrop.set(loadPicture("circ3.jpg", RingBackdrop::bandWidth, RingBackdrop::bandHeight), std::move(strip));
    state.cube = std::make_unique<Scene>();
    addObjectFromFile(*state.cube, "cube6.lwo");
    allocateDepthBuffer(info.width, info.height);
    state.fire = loadPicture("bkfire.jpg", info.width, info.height);
    state.endPicture = loadPicture("part3bak.jpg", info.width, info.height);
    state.tunnelTexture = getTexture("cell1.jpg");
    buildWarpTable(state.warpTable, info);
    state.cube->cameraPosition[2] = -1.3F;
}

void release() {
    state.background = {};
    state.backdrop = {};
    state.fire = {};
    state.endPicture = {};
}

void addRing(FrameInfo info, Pixel32* pixels, float lt) {
    const bool pulse = syncState.syncFlag32 != 0;
    drawSpriteRing(state.ring, info, lt * 1.6 + 30.0, pixels, pulse);
    if (pulse)
        syncState.syncFlag32 = 0;
}

void renderRing(FrameInfo info, Pixel32* pixels, float time) {
    const float lt = state.ringClock.advance(time);
    copyPixels(pixels, state.background.data(), state.background.size());
    state.backdrop.addBands(pixels);
    state.backdrop.addStrip(pixels);
    state.backdrop.scroll();
    addRing(info, pixels, lt);
}

void drawTunnel(Pixel32* pixels) {
    mapTable(pixels, state.warpTable.data(), state.warpOffset, state.tunnelTexture, state.warpTable.size());
    state.warpOffset = wrapAdd(state.warpOffset, 0x101); // one texel along both axes
}

void moveCube(Mesh& mesh, float lt) {
    auto& [a, b, c] = mesh.spin;                                        // degrees for this frame
    mesh.position[2] = static_cast<float>(trig::sin(lt * 0.044) * 5.0); // world units
    if (lt <= 30) {
        a = 0.0F;
        b = static_cast<float>(lt * 6.0 - state.turned.b); // 6 degrees a unit of demo time
        state.turned.b += b;
    } else if (lt <= 60) {
        b = 0.0F;
        a = static_cast<float>((lt - 30) * 12.0 - state.turned.a);
        state.turned.a += a;
    }
    if (lt > 60) {
        a = 0.0F;
        if (state.turned.a < 360.0F) { // true again in the frames that follow, because it starts from 0
            a = static_cast<float>(360.0 - state.turned.a);
            state.turned.a = 0.0F;
        }
        b = 0.0F;
    }
    if (mesh.position[2] < 0.0F)
        mesh.position[2] = 0.0F;
}

void renderCube(FrameInfo info, Pixel32* pixels, float time) {
    const float lt = state.cubeClock.advance(time);
    drawTunnel(pixels);
    addSaturated(pixels, state.fire.data(), state.fire.size());
    moveCube(*state.cube->objects[0], lt);
    state.drawCounter += 3.0F;
    drawScene(*state.cube, info, pixels, state.drawCounter);
    if (lt > 72)
        copyPixels(pixels, state.endPicture.data(), state.endPicture.size());
}

void render(FrameInfo info, Pixel32* pixels, float time) {
    syncState.syncFlag59 ? renderCube(info, pixels, time) : renderRing(info, pixels, time);
}

} // namespace

const Pixel32* flareSprite() {
    return state.flare.data();
}

void spriteRingCube(FrameInfo info, EffectCommand command, Pixel32* pixels, float time) {
    follow(command, info, pixels, time, init, render, release);
}

} // namespace lumenfold
