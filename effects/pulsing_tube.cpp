#include "effects/pulsing_tube.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "core/sync_state.h"
#include "core/trig.h"
#include "effects/commands.h"
#include "effects/cut_blocks.h"
#include "effects/frame_size.h"
#include "effects/picture.h"
#include "effects/tube.h"
#include "render/depth_buffer.h"

#include <cmath>
#include <vector>

namespace lumenfold {

namespace {

constexpr int flareSide = 32;
constexpr std::uint32_t restDistance = 110;

struct State {
    // loaded once
    std::vector<Pixel32> flare;           // 32 x 32
    const Pixel32* tubeTexture = nullptr; // owned by the cache

    // runs on from frame to frame
    Tube tube;                                 // rebuilt by every frame; the texture columns are those of time 0
    std::vector<Pixel32> picture;              // the frame's size, cut away block by block
    std::vector<Pixel32> feedback;             // the frame's size, smears and darkens what the flares leave
    std::uint32_t zoomDistance = restDistance; // of the tube from the viewer
    std::uint32_t cutSteps = 2;
    std::uint32_t frames = 0;
} state;

void init(FrameInfo info) {
    state = State{};
    state.tube = Tube(info.height);
    allocateDepthBuffer(info.width, info.height);
    state.tubeTexture = getTexture("slem4.jpg");
    state.picture = loadPicture("svampbak.jpg", info.width, info.height);
    state.flare = loadPicture("petrolflare.jpg", flareSide, flareSide);
    state.feedback.resize(pixelCount(info));
    buildTube(state.tube, 0.0F);
    mapTube(state.tube);
}

// Cuts one more diagonal out of the picture and pulls the tube close.
void lungeOnSync() {
    if (!syncState.syncFlag37.take())
        return;
    if (state.cutSteps < 15)
        ++state.cutSteps;
    cutDiagonal(state.picture.data(), state.cutSteps);
    state.zoomDistance = 70;
}

// In the frame of the lunge too.
void moveTubeBack() {
    if (state.zoomDistance < restDistance)
        state.zoomDistance += 3;
}

void smearFeedback(FrameInfo info) {
    const std::size_t row = static_cast<std::size_t>(info.width);
    smearQuarters(state.feedback.data() + row, info.width, pixelCount(info) - 2 * row);
}

// 21 flares on a ring whose centre is fixed and whose radius and turn follow a point (p, q) that wanders.
void addFlares(FrameInfo info, float time) {
    const double s = trig::sin(0.06 * time) * 10 + 40;
    const float c = static_cast<float>(trig::cos(0.02 * time) * 10 + 40);
    const float p = static_cast<float>(s * (1 - trig::cos(0.12 * time + 0.02 * s)) * 0.6);
    const float q = static_cast<float>((1 - trig::sin(0.08 * time + 0.04 * c)) * c * 0.6);
    const double turn = trig::atan2(q, p);
    const float reach = std::sqrt(p * p + q * q);
    for (int i = 0; i < 628.318; i = truncate(i + 31.4159)) {
        const double radius = (std::fabs(trig::sin(5 * i)) + 3) * reach * 0.6 + 8;
        const double angle = 0.01 * i + 2 * turn + 0.02 * reach;
        const std::int32_t y = truncate(trig::sin(angle) * radius + 176);
        const std::int32_t x = truncate(trig::cos(angle) * radius + 320);
        if (x <= 480 && y >= 0 && y <= 348)
            stampAdd(state.feedback.data(), info.width, info.height, state.flare.data(), flareSide, flareSide, x, y);
    }
}

// The depth base grows with time, so that every tube passes the test against those of the frames before.
void drawTubeOver(FrameInfo info, Pixel32* frame, float time) {
    ++state.frames;
    buildTube(state.tube, time);
    if (state.frames % 16 == 0)
        clearDepthBuffer();
    drawTube(state.tube, state.tubeTexture, state.zoomDistance, frame, info, static_cast<float>(time * 200.0));
}

void render(FrameInfo info, Pixel32* frame, float time) {
    lungeOnSync();
    moveTubeBack();
    smearFeedback(info);
    addFlares(info, time);
    addSaturated(frame, state.feedback.data(), state.picture.data(), pixelCount(info));
    drawTubeOver(info, frame, time);
}

void release() {
    state.tube = Tube();
    state.picture = {};
}

} // namespace

void pulsingTube(FrameInfo info, EffectCommand command, Pixel32* pixels, float time) {
    follow(command, info, pixels, time, init, render, release);
}

} // namespace lumenfold
