#include "effects/stealth_flight.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "core/sync_state.h"
#include "core/trig.h"
#include "effects/commands.h"
#include "effects/flight_opening.h"
#include "effects/frame_size.h"
#include "effects/phase_clock.h"
#include "effects/picture_texture.h"
#include "effects/scene_objects.h"
#include "render/depth_buffer.h"
#include "render/scene.h"

namespace lumenfold {

namespace {

struct State {
    // runs on from frame to frame
    Scene scene; // landscape, water, aircraft
    PhaseClock clock;
    int shake = 0; // frames of shaking left, also the distance of the double image in pixels
} state;

Mesh& aircraft() {
    return *state.scene.objects[2];
}

void drawFlight(FrameInfo info, Pixel32* target) {
    sharedDepthBias += 3.0F;
    drawScene(state.scene, info, target, sharedDepthBias);
}

void loadScene() {
    addObjectFromFile(state.scene, "mytube3b.lwo");
    setModes(addObjectFromFile(state.scene, "water.lwo"), DrawMode::PerspectiveAdd);
    Mesh& stealth = addObjectFromFile(state.scene, "stealth.lwo");
    setModes(stealth, DrawMode::Affine);
    if (stealth.materials.size() > 1)
        stealth.materials[1].mode = DrawMode::AffineAdd;
    stealth.position = {10.0F, 2.2F, -30.0F};
    state.scene.cameraPosition = {6.5F, 2.5F, -10.0F};
}

void drawFirstPicture(FrameInfo info) {
    flightOpening.picture.assign(pixelCount(info), 0);
    drawFlight(info, flightOpening.picture.data());
    textureFromPicture(flightOpening.texture.data(), flightOpening.picture.data());
}

void init(FrameInfo info) {
    state = State{};
    loadScene();
    allocateDepthBuffer(info.width, info.height);
    drawFirstPicture(info);
}

// Forward with a sway; sideways until the far wall is reached; turning all the time. World units; degrees for the turn.
void moveCamera(float time) {
    Vector3& position = state.scene.cameraPosition;
    const double sway = trig::sin(time * 0.01);
    position[2] = static_cast<float>(sway * 8.0 - 10.0 + time * 0.04);
    if (position[0] < 13.7)
        position[0] = static_cast<float>(sway * sway * 7.5 + 6.5);
    state.scene.cameraAngles[1] = static_cast<float>(time * -0.8); // degrees a unit of the scene's time
}

// The factor keeps its low byte only: it reaches 0 at 460 and starts again at 255 after that.
void fadeOut(FrameInfo info, Pixel32* frame, float time) {
    if (time > 332)
        fade(frame, lowByte((460 - time) * 2), pixelCount(info));
}

void shakeSideways(Pixel32* frame) {
    constexpr std::size_t shakenRows = 382; // all but the first and the last
    if (state.shake > 0) {
        smearHalves(frame + frameWidth, state.shake, shakenRows * frameWidth);
        --state.shake;
    }
}

void render(FrameInfo info, Pixel32* frame, float demoTime) {
    const float time = static_cast<float>(state.clock.advance(demoTime) * 1.5); // the scene's: 23.52 units a second
    if (syncState.syncFlag37.take())
        state.shake = 8;
    fillPixels(frame, 0, pixelCount(info));
    moveCamera(time);
    aircraft().position[2] = static_cast<float>(time * 0.2 - 65.0);
    drawFlight(info, frame);
    fadeOut(info, frame, time);
    shakeSideways(frame);
}

} // namespace

void stealthFlight(FrameInfo info, EffectCommand command, Pixel32* pixels, float time) {
    follow(command, info, pixels, time, init, render);
}

} // namespace lumenfold
