#include "effects/welding_film.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "core/random.h"
#include "core/sync_state.h"
#include "core/trig.h"
#include "effects/commands.h"
#include "effects/flight_opening.h"
#include "effects/frame_size.h"
#include "effects/phase_clock.h"
#include "effects/picture.h"
#include "effects/picture_texture.h"
#include "effects/scene_objects.h"
#include "effects/sparks.h"
#include "effects/sprite_ring_cube.h"
#include "effects/twin_tunnel.h"
#include "render/ray_field.h"
#include "render/scene.h"

#include <array>
#include <vector>

namespace lumenfold {

namespace {

constexpr int torchSide = 32;
constexpr double splitTime = 27.0;    // of the welding's time
constexpr double floorRoll = 3.14159; // pi, but taken as degrees: the most that a frame rolls the floor by

struct State {
    // loaded once
    std::vector<Pixel32> backPicture;                  // 512 x 384, stands behind the split still
    std::vector<Pixel32> sparkSprite;                  // 16 x 16
    std::array<std::vector<Pixel32>, 2> splitTextures; // of the halves, made of the still as the welding begins
    std::vector<Pixel32> filmTexture;                  // made of the back picture

    // runs on from frame to frame
    Scene splitScene; // two halves of a plate
    Scene filmScene;  // the film strip
    RayField floor;
    SparkShower shower;

    // per phase
    PhaseClock welding;
    PhaseClock film;
} state;

void loadSplitScene() {
    const char* const names[2] = {"svets1.lwo", "svets2.lwo"};
    const float spins[2] = {2.0F, -2.0F};
    for (std::size_t half = 0; half < 2; ++half) {
        Mesh& mesh = addObjectFromFile(state.splitScene, names[half]);
        mesh.spin[2] = spins[half];
        state.splitTextures[half].resize(texturePixels);
        setColourTexture(mesh, 0, state.splitTextures[half].data());
    }
    state.splitScene.cameraPosition[1] = 1.92F;
    state.splitScene.cameraPosition[2] = -4.0F;
}

void loadFilmScene() {
    Mesh& film = addObjectFromFile(state.filmScene, "filmrulle1.lwo");
    setModes(film, DrawMode::Affine);
    state.filmTexture.resize(texturePixels);
    textureFromPicture(state.filmTexture.data(), state.backPicture.data());
    setColourTexture(film, 0, flightOpening.texture.data());
    setColourTexture(film, 1, state.filmTexture.data());
    state.filmScene.cameraPosition[0] = -0.9F;
    state.filmScene.cameraPosition[2] = -0.41F;
}

void init(FrameInfo info) {
    state = State{};
    state.backPicture = loadPicture("morph3.jpg", info.width, info.height);
    state.sparkSprite = loadPicture("bfs0.pcx", sparkSide, sparkSide);
    loadSplitScene();
    state.floor = makeRayField(RayShape::Plane, getTexture("fdgrid.jpg"));
    loadFilmScene();
}

// Draws and turns the halves; they move apart and away for the next frame, in world units a frame, while the camera
// bobs.
void renderSplit(FrameInfo info, Pixel32* frame, float time) {
    copyPixels(frame, state.backPicture.data(), pixelCount(info));
    sharedDepthBias += 3.0F;
    drawScene(state.splitScene, info, frame, sharedDepthBias);

    Vector3& left = state.splitScene.objects[0]->position;
    Vector3& right = state.splitScene.objects[1]->position;
    left[0] = static_cast<float>(left[0] - 0.05);
    right[0] = static_cast<float>(right[0] + 0.05);
    left[2] = static_cast<float>(left[2] - 0.1);
    right[2] = static_cast<float>(right[2] - 0.1);
    state.splitScene.cameraPosition[1] = static_cast<float>(1.92 - trig::sin((time - 27) * 0.15) * 2.5);
}

void burnSeam(FrameInfo info, Pixel32* still, std::int32_t torchHeight) {
    const std::int32_t flicker = rand() & 15;
    const std::int32_t column = truncate(flicker + trig::sin(torchHeight * 0.03) * 5.0 + 262.0);
    stampGlow(still, info, flareSprite(), torchSide, column, torchHeight);
}

void renderWelding(FrameInfo info, Pixel32* frame, float time) {
    Pixel32* const still = frozenStill();
    if (state.welding.frames == 0)
        for (std::vector<Pixel32>& texture : state.splitTextures)
            textureFromPicture(texture.data(), still); // before the seam is burned into it
    const float phaseTime = state.welding.advance(time);
    if (phaseTime >= splitTime)
        return renderSplit(info, frame, phaseTime);

    SparkShower& shower = state.shower;
    const std::int32_t torchHeight = truncate(phaseTime * 13.0 - 10.0);
    igniteSpark(shower, torchHeight, info);
    burnSeam(info, still, torchHeight);
    updateSparks(shower.sparks.data(), torchHeight, info, shower.count);
    if (shower.count < SparkShower::maxCount)
        ++shower.count;
    copyPixels(frame, still, pixelCount(info));
    drawSparks(frame, info, shower, state.sparkSprite.data());
}

// Along the strip, away from it and back, with a roll. World units; the sine's argument in radians, the roll in
// degrees.
void moveFilmCamera(float time) {
    Scene& scene = state.filmScene;
    scene.cameraPosition[0] = static_cast<float>(time * 0.01 - 0.9);
    scene.cameraPosition[2] = static_cast<float>(-0.41 - trig::sin(time * 0.035) * 3.0);
    scene.cameraAngles[2] = static_cast<float>(trig::sin(time * 0.035) * 90.0);
}

// Once the camera stands before the last frame of the film, the picture of that frame is held: the next part begins
// with it.
void renderFilm(FrameInfo info, Pixel32* frame, float time) {
    const float phaseTime = state.film.advance(time);
    Scene& scene = state.filmScene;
    if (scene.cameraPosition[0] >= 0.0F) {
        scene.cameraPosition[2] = -0.41F;
        scene.cameraPosition[0] = 0.0F;
        copyPixels(frame, flightOpening.picture.data(), pixelCount(info));
        return;
    }
    drawRayField(state.floor, frame, info);
    fillBlock(frame + 479, frameWidth, 32, info.height, 0);
    state.floor.scrollV -= 4;
    state.floor.scrollU += 4;
    state.floor.angles[1] = -0.6F; // degrees, as the roll below
    state.floor.angles[2] = static_cast<float>(trig::cos(phaseTime * 0.035) * floorRoll);
    sharedDepthBias += 3.0F;
    drawScene(scene, info, frame, sharedDepthBias);
    moveFilmCamera(phaseTime);
}

void render(FrameInfo info, Pixel32* frame, float time) {
    if (syncState.syncFlag59) // left set: the film rolls to the end of the part
        renderFilm(info, frame, time);
    else
        renderWelding(info, frame, time);
}

void release() {
    state.backPicture = {};
}

} // namespace

void weldingFilm(FrameInfo info, EffectCommand command, Pixel32* pixels, float time) {
    follow(command, info, pixels, time, init, render, release);
}

} // namespace lumenfold
