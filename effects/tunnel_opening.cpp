#include "effects/tunnel_opening.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "core/sync_state.h"
#include "core/trig.h"
#include "effects/frame_size.h"
#include "effects/picture.h"
#include "effects/scene_objects.h"
#include "effects/title_logo.h"
#include "effects/tunnel_dissolve.h"
#include "render/depth_buffer.h"

#include <algorithm>
#include <memory>

namespace lumenfold {

namespace {

constexpr int boxTop = 57; // the letterbox: rows 57 to 326
constexpr FrameInfo boxView{frameWidth, 270, 0, 0, 0};
constexpr std::size_t boxPixels = 512 * 270;
constexpr int logoTop = 152;
constexpr double degree = 0.01745327777777778; // 3.14159 / 180 with 16 digits: not the double of the other scenes

struct State {
    // loaded once
    std::unique_ptr<Scene> tunnel;
    std::unique_ptr<Scene> prison;
    std::vector<Pixel32> picture; // 512 x 384, what the prison fades into

    // runs on from frame to frame
    TitleLogo logo;                 // smears while it is shown
    TunnelDissolve dissolve;        // tables, textures and their offset
    std::vector<Pixel32> hiddenBox; // letterbox that the tunnel is drawn into while it emerges
    float drawCounter = 0.0F;       // depth bias, one higher for every draw

    // per phase
    unsigned tunnelFrames = 0;
    unsigned prisonFrames = 0;
    float start = 0.0F;         // demo time of the first frame of the phase that began last
    float dissolveStart = 0.0F; // local time; 0.0 means not yet
} state;

std::unique_ptr<Scene> loadScene(FrameInfo info, const char* fileName) {
    auto scene = std::make_unique<Scene>();
    addObjectFromFile(*scene, fileName);
    allocateDepthBuffer(info.width, info.height);
    return scene;
}

void init(FrameInfo info) {
    state = State{};
    state.hiddenBox.resize(boxPixels);
    state.logo.set(loadPicture("goodlog512a.jpg", TitleLogo::width, TitleLogo::height));
    state.picture = loadPicture("skum3.jpg", frameWidth, frameHeight);
    buildTunnelTable(state.dissolve.tunnelTable, boxView);
    buildSpiralTable(state.dissolve.spiralTable, boxView);
    state.dissolve.spiralTexture = getTexture("cell5a.jpg");
    state.dissolve.tunnelTexture = getTexture("petrolenv.jpg");
    state.tunnel = loadScene(info, "mytun_ny1a.lwo");
    state.tunnel->cameraPosition = {-0.7F, -0.5F, -14.0F};
    state.prison = loadScene(info, "prison2.lwo");
    state.prison->cameraPosition[0] = 0.0F;
    state.prison->cameraPosition[2] = -6.0F;
    state.prison->cameraAngles[0] = 4.0F;
}

float localTime(unsigned& frames, float time) {
    if (++frames == 1)
        state.start = time;
    return time - state.start;
}

void draw(Scene& scene, Pixel32* box) {
    drawScene(scene, boxView, box, state.drawCounter);
}

void drawOnce(Scene& scene, Pixel32* box) {
    state.drawCounter += 1.0F;
    draw(scene, box);
}

// Straight on with a roll, then round the bend to the right. Places are in world units; the angles of the camera, b and
// c here, in degrees; the sway's own phase in radians.
void moveTunnelCamera(float lt) {
    auto& [x, y, z] = state.tunnel->cameraPosition;
    auto& [a, b, c] = state.tunnel->cameraAngles;
    if (lt <= 290) {
        z = static_cast<float>(lt * 0.08 - 14.0); // world units a unit of demo time
    } else {
        const float s = lt - 290;
        b = std::max(static_cast<float>(-0.065 * s * s), -90.0F);
        x = static_cast<float>(s * trig::cos((b + 90) * degree) * 0.05 - 0.7);
        z = static_cast<float>(z + s * trig::sin((b + 90) * degree) * 0.0082); // sums up from frame to frame
    }
    c = static_cast<float>(trig::sin(lt * 0.02 - 4.712385) * 20.0);
}

// The flat tunnels give way to the one in space.
void drawEmergingTunnel(Pixel32* box, float sinceDissolve, float time) {
    draw(*state.tunnel, state.hiddenBox.data());
    state.dissolve.draw(box, state.hiddenBox.data(), lowByte(255 - sinceDissolve * 4.0));
    state.dissolve.move(truncate(trig::sin(time * 0.03) * -4.0));
}

void drawDissolve(Pixel32* pixels, Pixel32* box, float lt, float time) {
    const float sinceDissolve = lt - state.dissolveStart;
    state.drawCounter += 1.0F;
    if (sinceDissolve < 63) {
        drawEmergingTunnel(box, sinceDissolve, time);
        state.logo.addTo(pixels + logoTop * frameWidth);
        state.tunnel->cameraPosition[2] = 16.0F; // stands where the camera sums up its z, round the bend
    } else {
        draw(*state.tunnel, box);
        if (sinceDissolve > 78)
            state.logo.blur();
        state.logo.addTo(pixels + logoTop * frameWidth);
    }
}

void renderTunnel(Pixel32* pixels, float time) {
    Pixel32* box = pixels + boxTop * frameWidth;
    const float lt = localTime(state.tunnelFrames, time);
    moveTunnelCamera(lt);
    if (state.dissolveStart == 0.0F)
        drawOnce(*state.tunnel, box);
    if (lt < 127)
        fade(box, lowByte(lt + lt), boxPixels);
    if (syncState.syncFlag39.take())
        state.dissolveStart = lt;
    if (state.dissolveStart != 0.0F)
        drawDissolve(pixels, box, lt, time);
    if (lt > 587 && lt < 650)
        fade(box, lowByte((650 - lt) * 4.0), boxPixels);
}

// Forward and down to the floor, rising, for the next frame: world units, and degrees for the tilt.
void movePrisonCamera(float lt) {
    auto& [x, y, z] = state.prison->cameraPosition;
    z = std::min(static_cast<float>(lt * 0.1 - 4.0), 32.0F);
    state.prison->cameraAngles[0] = std::max(static_cast<float>(-lt * 0.25), -90.0F);
    y = static_cast<float>((lt * 0.008) * (lt * 0.01) * (lt * 0.009) - 1.0);
    if (lt > 300)
        y = static_cast<float>(y - (lt - 300) * 0.4);
}

void renderPrison(Pixel32* pixels, float time) {
    Pixel32* box = pixels + boxTop * frameWidth;
    const float lt = localTime(state.prisonFrames, time);
    drawOnce(*state.prison, box);
    if (lt < 63)
        fade(box, lowByte(lt * 4.0), boxPixels);
    movePrisonCamera(lt);
    if (lt > 327 && lt < 390)
        crossFade(pixels, state.picture.data(), lowByte((390 - lt) * 4.0), state.picture.size());
}

} // namespace

void tunnelOpening(FrameInfo info, EffectCommand command, Pixel32* pixels, float time) {
    if (command == EffectCommand::Init)
        init(info);
    else if (command == EffectCommand::Render)
        syncState.syncFlag36 ? renderPrison(pixels, time) : renderTunnel(pixels, time);
}

} // namespace lumenfold
