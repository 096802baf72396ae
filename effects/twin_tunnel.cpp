#include "effects/twin_tunnel.h"

#include "assets/prepare.h"
#include "core/convert.h"
#include "core/kernels.h"
#include "core/sync_state.h"
#include "core/trig.h"
#include "effects/commands.h"
#include "effects/frame_size.h"
#include "effects/freeze.h"
#include "effects/light_spot.h"
#include "effects/phase_clock.h"
#include "effects/picture.h"
#include "effects/scene_objects.h"
#include "effects/twin_tunnel_grid.h"
#include "render/depth_buffer.h"
#include "render/ray_field.h"
#include "render/scene.h"

#include <algorithm>
#include <array>
#include <vector>

namespace lumenfold {

namespace {

constexpr int bannerWidth = 256;
constexpr int bannerHeight = 36;
constexpr int greetingsWidth = 32;
constexpr int greetingsHeight = 2048;

struct State {
    // loaded once
    std::vector<Pixel32> lightSpot;       // 512 x 512, painted here
    std::vector<Pixel32> banner;          // 256 x 36
    std::vector<Pixel32> greetings;       // 32 x 2048
    const Pixel32* bandTexture = nullptr; // owned by the cache
    Scene objectScene;                    // the spinning object of phase 2

    // runs on from frame to frame
    RayField tunnel;            // of phase 2; turned and scrolled in phase 1 too
    float tunnelTurn = 0.0F;    // radians; swings the tunnel's roll
    int bannerScroll = 0;       // texels
    bool secondPhase = false;   // from the first sync flag 32 on
    std::vector<Pixel32> still; // 512 x 384, kept to the end: the next part continues from it
    bool frozen = false;        // the still has been made and stands over the frame
    Flash flash;

    // phase 1
    TwinTunnelClock tunnelClock;
    LightSpot spot;
    std::vector<Pixel32> spotLayer; // 512 x 384, the light to add over the frame

    // phase 2
    PhaseClock clock;
} state;

void init(FrameInfo info) {
    state = State{};
    buildTwinTunnelGrid(warpGrid, state.tunnelClock, false, 0.0F);
    state.lightSpot.resize(lightSpotSide * lightSpotSide);
    paintLightSpot(state.lightSpot.data());
    state.spotLayer.resize(pixelCount(info));
    state.still.resize(pixelCount(info));

    Mesh& object = addEmptyObject(state.objectScene);
    state.bandTexture = getTexture("petrolenv.jpg");
    state.banner = loadPicture("bajsa.jpg", bannerWidth, bannerHeight);
    state.greetings = loadPicture("greets2.pcx", greetingsWidth, greetingsHeight);
    state.tunnel = makeRayField(RayShape::Tunnel, getTexture("cubet4.jpg"));
    loadObject(object, "blb3.lwo", "cubet5.jpg", nullptr, DrawMode::Reflection, 2.7F);
    object.spin = {1.8F, 3.3F, -1.3F};
    state.objectScene.cameraPosition[2] = -10.0F;
    allocateDepthBuffer(info.width, info.height);
}

void switchToSecondPhase() {
    syncState.zero(); // takes back the flags of phase 1 and the parts that the music has counted meanwhile
    syncState.currentPart = 4;
    state.secondPhase = true;
    state.flash.strike();
}

void drawTwinTunnel(Pixel32* frame, bool pulse, float time) {
    constexpr FrameInfo band{frameWidth, 240, 0, 0, 0};
    buildTwinTunnelGrid(warpGrid, state.tunnelClock, pulse, time);
    drawGridWarp(frame + 64 * frameWidth, band, warpGrid, state.bandTexture, 257);
}

// The banner runs along the top and, turned by half a revolution, along the bottom.
void drawBanners(Pixel32* frame) {
    constexpr std::size_t firstPixel = 32 * frameWidth;
    constexpr std::size_t lastPixel = 330 * frameWidth; // the turned banner begins here and goes backwards
    std::array<Pixel32, frameWidth> line;
    for (std::size_t row = 0; row < bannerHeight; ++row) {
        const Pixel32* banner = state.banner.data() + row * bannerWidth;
        for (std::size_t x = 0; x < frameWidth; ++x)
            line[x] = banner[(static_cast<std::size_t>(state.bannerScroll) + x) % bannerWidth];
        copyPixels(frame + firstPixel + row * frameWidth, line.data(), frameWidth);
        std::reverse_copy(line.begin(), line.end(), frame + lastPixel - row * frameWidth - (frameWidth - 1));
    }
}

// Sync flag 59 is not cleared: the spot stays until the second phase clears all flags.
void renderFirstPhase(FrameInfo info, Pixel32* frame, bool pulse, float time) {
    const bool spotOpen = syncState.syncFlag59 != 0;
    drawTwinTunnel(frame, pulse, time);
    if (spotOpen)
        warpQuadClamped(info, state.spotLayer.data(), state.lightSpot.data(), state.spot.closeIn(time));
    drawBanners(frame);
    if (spotOpen)
        addSaturated(frame, state.spotLayer.data(), pixelCount(info));
}

void drawBars(Pixel32* frame) {
    fillPixels(frame, 0, 25 * frameWidth);
    fillPixels(frame + 359 * frameWidth, 0, 25 * frameWidth);
}

// A column of lettering that scrolls up the right-hand side.
void drawGreetings(FrameInfo info, Pixel32* frame, float phaseTime) {
    constexpr int column = 479;
    const std::int32_t scroll = truncate(phaseTime * 5.0);
    for (std::int32_t y = 0; y < info.height; ++y) {
        const std::int32_t row = wrapAdd(y, scroll) & (greetingsHeight - 1);
        copyPixels(frame + y * frameWidth + column, state.greetings.data() + row * greetingsWidth, greetingsWidth);
    }
}

void drawObject(FrameInfo info, Pixel32* frame) {
    sharedDepthBias += 3.0F;
    drawScene(state.objectScene, info, frame, sharedDepthBias);
}

// The last frame as drawn, without the flash, becomes the still.
void freezeOnSync(FrameInfo info, const Pixel32* frame) {
    if (!syncState.syncFlag59)
        return;
    syncState.syncFlag32 = 0;
    syncState.syncFlag59 = 0;
    state.frozen = true;
    freezeFrame(state.still.data(), frame, pixelCount(info));
}

void renderSecondPhase(FrameInfo info, Pixel32* frame, float time) {
    const float phaseTime = state.clock.advance(time);
    drawRayField(state.tunnel, frame, info);
    drawBars(frame);
    drawGreetings(info, frame, phaseTime);
    drawObject(info, frame);
    freezeOnSync(info, frame);
    if (state.frozen)
        copyPixels(frame, state.still.data(), pixelCount(info));
    state.flash.addTo(frame, pixelCount(info));
}

void moveOn() {
    state.tunnel.scrollV += 4;
    state.tunnelTurn = static_cast<float>(state.tunnelTurn + 0.02);
    state.tunnel.angles = {-0.3F, -0.6F, static_cast<float>(trig::sin(state.tunnelTurn) * 1.7)}; // degrees a frame
    state.bannerScroll += 3;
}

void render(FrameInfo info, Pixel32* frame, float time) {
    const bool pulse = syncState.syncFlag37.take();
    if (syncState.syncFlag32)
        switchToSecondPhase();
    if (state.secondPhase)
        renderSecondPhase(info, frame, time);
    else
        renderFirstPhase(info, frame, pulse, time);
    moveOn();
}

void release() {
    state.lightSpot = {};
    state.spotLayer = {};
    state.banner = {};
}

} // namespace

void twinTunnel(FrameInfo info, EffectCommand command, Pixel32* pixels, float time) {
    follow(command, info, pixels, time, init, render, release);
}

Pixel32* frozenStill() {
    return state.still.data();
}

} // namespace lumenfold
