#include "effects/wave_warp.h"

#include "assets/image.h"
#include "core/convert.h"
#include "core/kernels.h"
#include "core/trig.h"
#include "effects/frame_size.h"
#include "effects/phase_clock.h"
#include "effects/turning_quad.h"
#include "effects/wave_grid.h"

#include <vector>

namespace lumenfold {

namespace {

struct State {
    // loaded once
    const Pixel32* flow = nullptr;  // 256 x 256, through the grid
    const Pixel32* slime = nullptr; // 256 x 256, through the turning quad
    std::vector<Pixel32> quadLayer; // the frame's size, rewritten by every frame

    // runs on from frame to frame
    PhaseClock clock;
} state;

void init(FrameInfo info, float time) {
    state = State{};
    state.flow = getTexture("petrolenv.jpg");
    state.slime = getTexture("slem4.jpg");
    state.quadLayer.resize(pixelCount(info));
    buildWaveGrid(warpGrid, time);
}

// The slime under four corners that turn about the texture point (256, 256) and breathe.
void drawQuadLayer(FrameInfo info, float time) {
    const double radius = trig::sin(time * 0.1) * 60.0 + 150.0;
    warpQuadWrapped(info, state.quadLayer.data(), state.slime, turningQuad(time, radius));
}

void drawFlow(FrameInfo info, Pixel32* pixels, float time) {
    buildWaveGrid(warpGrid, time);
    drawGridWarp(pixels, info, warpGrid, state.flow, 0);
}

void fadeIn(FrameInfo info, Pixel32* pixels, float time) {
    const float elapsed = state.clock.advance(time);
    if (elapsed < 256.0)
        fade(pixels, lowByte(elapsed), pixelCount(info));
}

void blackBars(FrameInfo info, Pixel32* pixels) {
    fillBlock(pixels + 352 * info.width, info.width, info.width, 32, 0);
    fillBlock(pixels + 480, info.width, 8, info.height, 0);
}

void render(FrameInfo info, Pixel32* pixels, float time) {
    drawQuadLayer(info, time);
    drawFlow(info, pixels, time);
    addSaturated(pixels, state.quadLayer.data(), pixelCount(info));
    fadeIn(info, pixels, time);
    blackBars(info, pixels);
}

} // namespace

void waveWarp(FrameInfo info, EffectCommand command, Pixel32* pixels, float time) {
    if (command == EffectCommand::Init)
        init(info, time);
    else if (command == EffectCommand::Render)
        render(info, pixels, time);
}

} // namespace lumenfold
