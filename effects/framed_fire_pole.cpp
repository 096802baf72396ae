#include "effects/framed_fire_pole.h"

#include "core/kernels.h"
#include "core/sync_state.h"
#include "core/trig.h"
#include "effects/commands.h"
#include "effects/frame_size.h"
#include "effects/picture.h"
#include "effects/scene_objects.h"
#include "render/depth_buffer.h"
#include "render/scene.h"

#include <vector>

namespace lumenfold {

namespace {

constexpr FrameInfo pane{320, 220, 0, 0, 0};
constexpr int paneColumn = 160;
constexpr int paneRow = 85;
constexpr std::size_t firePole = 5;
constexpr std::size_t nameplate = 7;

struct State {
    // loaded once
    std::vector<Pixel32> framePicture; // the frame's size, painted by the first frame only
    std::vector<Pixel32> backPicture;  // the frame's size, loaded with the others, never shown

    // runs on from frame to frame
    Scene scene;
    std::vector<Pixel32> paneTarget; // the pane as drawn
    std::uint32_t frames = 0;
    float startTime = 0.0F;
    float previousTime = 0.0F;
    std::uint32_t nameplateJumps = 0; // counted for a third jump that was to bring the back picture; never read
} state;

// Turns a new object for good: every draw turns it by its spin, so one draw that nobody sees is enough.
void turnOnce(Mesh& mesh, float degrees, FrameInfo info) {
    std::vector<Pixel32> scratch(pixelCount(info));
    mesh.spin[1] = degrees;
    drawScene(state.scene, pane, scratch.data(), sharedDepthBias);
    mesh.spin[1] = 0.0F;
}

// Four claws around the middle, each facing it.
void addClaws(FrameInfo info) {
    addObjectFromFile(state.scene, "claw2.lwo").position[0] = -0.75F;

    Mesh& right = addObjectFromFile(state.scene, "claw2.lwo");
    right.position[0] = 0.75F;
    sharedDepthBias += 3.0F; // once for the three draws
    turnOnce(right, 180.0F, info);

    Mesh& back = addObjectFromFile(state.scene, "claw2.lwo");
    back.position[2] = 0.75F;
    turnOnce(back, 90.0F, info);

    Mesh& front = addObjectFromFile(state.scene, "claw2.lwo");
    front.position[2] = -0.75F;
    turnOnce(front, -90.0F, info);
}

// An object that is added onto the picture.
Mesh& addGlowingObject(const char* fileName) {
    Mesh& mesh = addObjectFromFile(state.scene, fileName);
    setModes(mesh, DrawMode::PerspectiveAdd);
    return mesh;
}

void addPoleAndNameplate() {
    addGlowingObject("firepole.lwo");
    addGlowingObject("firebase.lwo").position[1] = 0.2F;
    Mesh& plate = addGlowingObject("nameplate.lwo");
    for (MeshMaterial& material : plate.materials)
        material.doubleSided = 1;
    plate.position[1] = 0.2F;
}

void init(FrameInfo info) {
    state = State{};
    state.paneTarget.resize(pixelCount(pane));
    allocateDepthBuffer(info.width, info.height);
    addObjectFromFile(state.scene, "credt.lwo");
    addClaws(info);
    addPoleAndNameplate();
    state.framePicture = loadPicture("3dframe.jpg", info.width, info.height);
    state.backPicture = loadPicture("svampbak.jpg", info.width, info.height);
    state.scene.cameraPosition[1] = 0.3F;
}

void paintFirstFrame(FrameInfo info, Pixel32* frame, float time) {
    if (++state.frames != 1)
        return;
    copyPixels(frame, state.framePicture.data(), pixelCount(info));
    state.startTime = time;
    state.previousTime = time;
}

// Circles the set, bobbing, and turns with the circle. Places are in world units; the angle around the circle is in
// radians, those of the camera in degrees.
void moveCamera(float time) {
    const double around = 0.04 * time + 3.14159; // radians
    const double radius = trig::cos(0.16 * time + 0.4) * 0.2 + 1.3;
    Scene& scene = state.scene;
    scene.cameraPosition = {static_cast<float>(trig::sin(around) * radius),
                            static_cast<float>(trig::sin(0.08 * time) * 0.2 + 0.33),
                            static_cast<float>(trig::cos(around) * radius)};
    scene.cameraAngles[1] = static_cast<float>(3.14159 - 2.2933607 * time); // nearly 0.04 radians
    scene.cameraAngles[2] = static_cast<float>(trig::cos(around) * 25.0);
}

void jumpNameplate() {
    if (!syncState.syncFlag37.take())
        return;
    ++state.nameplateJumps;
    Mesh& plate = *state.scene.objects[nameplate];
    if (!plate.materials.empty())
        plate.materials[0].scroll += 32;
}

void turnAndScrollPole(float elapsed) {
    Mesh& pole = *state.scene.objects[firePole];
    pole.spin[1] = static_cast<float>(elapsed * 2.2933607);
    for (MeshMaterial& material : pole.materials)
        material.scroll += 8;
}

void render(FrameInfo info, Pixel32* frame, float time) {
    paintFirstFrame(info, frame, time);
    fillPixels(state.paneTarget.data(), 0, pixelCount(pane));
    moveCamera(time - state.startTime);
    jumpNameplate();
    turnAndScrollPole(time - state.previousTime);
    sharedDepthBias += 3.0F;
    drawScene(state.scene, pane, state.paneTarget.data(), sharedDepthBias);
    copyBlock(frame + paneRow * frameWidth + paneColumn, frameWidth, state.paneTarget.data(), pane.width, pane.width,
              pane.height);
    state.previousTime = time;
}

} // namespace

void framedFirePole(FrameInfo info, EffectCommand command, Pixel32* pixels, float time) {
    follow(command, info, pixels, time, init, render);
}

} // namespace lumenfold
