#include "effects/tumbling_showcase.h"

#include "assets/prepare.h"
#include "core/convert.h"
#include "core/kernels.h"
#include "core/sync_state.h"
#include "effects/commands.h"
#include "effects/picture.h"
#include "effects/scene_objects.h"
#include "effects/strip_reveal.h"
#include "render/depth_buffer.h"
#include "render/scene.h"

#include <algorithm>
#include <memory>

namespace lumenfold {

namespace {

constexpr float farthest = -40.0F; // z in world units where the camera comes to rest
constexpr float thrown = -30.0F;   // where a beat puts it

struct Exhibit {
    const char* object;
    const char* firstTexture;
    const char* secondTexture;
    DrawMode mode;
    float scale;
    Vector3 spin; // degrees each frame
};

constexpr std::array<Exhibit, 5> exhibits{{
    {"hum.lwo", "cells3c.jpg", "phong5.jpg", DrawMode::TwoLayers, 1.0F, {2.2F, 3.5F, 1.0F}},
    {"blob1.lwo", "eftex.jpg", nullptr, DrawMode::Reflection, 7.0F, {2.4F, 3.3F, 3.6F}},
    {"blob2.lwo", "cubet5.jpg", nullptr, DrawMode::Reflection, 22.0F, {1.4F, 3.2F, 3.1F}},
    {"blob1.lwo", "phong5.jpg", nullptr, DrawMode::Reflection, 7.0F, {2.4F, 1.7F, 3.6F}},
    {"hum.lwo", "phong5.jpg", nullptr, DrawMode::Reflection, 1.0F, {2.4F, 1.7F, 3.6F}},
}};

struct State {
    // loaded once
    std::unique_ptr<Scene> showcase; // holds all exhibits, draws slot 0
    std::vector<Pixel32> background; // 512 x 384; takes the strip in when that is wholly shown

    // runs on from frame to frame
    StripReveal reveal;
    float frames = 0.0F;    // tenths of the depth bias
    std::size_t swaps = 0;  // slot that slot 0 was last taken from
    bool fading = false;    // once on, it stays
    float fadeStart = 0.0F; // demo time
} state;

void addExhibit(Scene& scene, const Exhibit& exhibit) {
    Mesh& mesh = addEmptyObject(scene);
    loadObject(mesh, exhibit.object, exhibit.firstTexture, exhibit.secondTexture, exhibit.mode, exhibit.scale);
    mesh.spin = exhibit.spin;
    mesh.scale = {1.0F, 1.0F, 1.0F};
}

void init(FrameInfo info) {
    state = State{};
    state.showcase = std::make_unique<Scene>();
    allocateDepthBuffer(info.width, info.height);
    for (const Exhibit& exhibit : exhibits)
        addExhibit(*state.showcase, exhibit);
    state.showcase->objectCount = 1;
    state.showcase->cameraPosition[2] = farthest;
    state.showcase->cameraPosition[0] = 6.0F;
    state.background = loadPicture("part3bak.jpg", 512, 384);
    state.reveal.strip = loadPicture("sidogrej91x351.tga", StripReveal::width, StripReveal::height);
}

void release() {
    state.background = {};
    state.reveal.strip = {};
}

void followMusic(float time) {
    Scene& scene = *state.showcase;
    if (syncState.syncFlag59.take() && state.swaps + 1 < exhibits.size())
        scene.objects[0] = scene.objects[++state.swaps];
    if (syncState.syncFlag37.take())
        scene.cameraPosition[2] = thrown;
    if (syncState.syncFlag33.take()) {
        state.fadeStart = time;
        state.fading = true;
    }
}

void recede(Scene& scene) {
    if (scene.cameraPosition[2] > farthest)
        scene.cameraPosition[2] -= 1.0F; // world units a frame
}

void fadeOut(Pixel32* pixels, float time) {
    if (!state.fading)
        return;
    const int amount = std::min(truncate((time - state.fadeStart) * 3.5), 255);
    fade(pixels, static_cast<std::uint8_t>(255 - amount), state.background.size());
}

void render(FrameInfo info, Pixel32* pixels, float time) {
    state.frames += 1.0F;
    followMusic(time);
    recede(*state.showcase);
    copyPixels(pixels, state.background.data(), state.background.size());
    state.reveal.advance(pixels, state.background.data());
    drawScene(*state.showcase, info, pixels, static_cast<float>(state.frames * 10.0));
    fadeOut(pixels, time);
}

} // namespace

void tumblingShowcase(FrameInfo info, EffectCommand command, Pixel32* pixels, float time) {
    follow(command, info, pixels, time, init, render, release);
}

} // namespace lumenfold
