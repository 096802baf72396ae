// The warped scenes, every frame beside the scene told step by step. Grids, warpers and the picture of the spot have
// tests of their own and are used as they are.

#include "effects/twin_tunnel.h"
#include "effects/wave_warp.h"

#include "core/convert.h"
#include "core/trig.h"
#include "effects/light_spot.h"
#include "effects/twin_tunnel_grid.h"
#include "effects/wave_grid.h"
#include "show_scenes.h"
#include "tests/support/pixels.h"

#include <algorithm>

namespace lumenfold {
namespace {

using test::Frame;
using test::perByte;
using test::saturatedSum;
using trig::cos;
using trig::sin;

// Corners at rest, those of a rectangle 240 wide and 320 high: top-left, top-right, bottom-left, bottom-right.
WarpQuad cornersAt(double phi, double R) {
    const int rest[4][2] = {{-160, -120}, {160, -120}, {-160, 120}, {160, 120}};
    WarpQuad quad{};
    for (std::size_t k = 0; k < 4; ++k) {
        const float a = static_cast<float>(trig::atan2(rest[k][0], rest[k][1]));
        quad.x[k] = truncate(cos(a + phi) * R) + 256;
        quad.y[k] = truncate(sin(a + phi) * R) + 256;
    }
    return quad;
}

struct LiteralTwinTunnel {
    Frame spot = Frame(512 * 512), layer = Frame(512 * 384), banner;
    const Pixel32* texture = getTexture("petrolenv.jpg");
    WarpGrid grid;
    TwinTunnelClock clock;
    float R = 10000.0F;
    int D = 300, scroll = 0;

    void render(Frame& frame, float t) {
        const bool pulse = syncState.syncFlag37 != 0, open = syncState.syncFlag59 != 0;
        syncState.syncFlag37 = 0;
        buildTwinTunnelGrid(grid, clock, pulse, t);
        drawGridWarp(&frame[64 * 512], {512, 240, 0, 0, 0}, grid, texture, 257);
        if (open) {
            const WarpQuad quad = cornersAt(t * 0.04, R);
            if (R > static_cast<float>(D))
                R = R - static_cast<float>(D);
            if (D > 5)
                D = D - 1;
            warpQuadClamped(test::show, layer.data(), spot.data(), quad);
        }
        for (std::size_t r = 0; r < 36; ++r)
            for (std::size_t x = 0; x < 512; ++x) {
                const std::size_t k = 512 * r + x;
                const Pixel32 p = banner[((static_cast<std::size_t>(scroll) + x) & 255) + 256 * r];
                frame[16384 + k] = p;
                frame[168960 - k] = p;
            }
        if (open)
            for (std::size_t i = 0; i < frame.size(); ++i)
                frame[i] = saturatedSum(frame[i], layer[i]);
        scroll += 3;
    }
};

struct LiteralWaveWarp {
    Frame layer = Frame(512 * 384);
    const Pixel32* flow = getTexture("petrolenv.jpg");
    const Pixel32* slime = getTexture("slem4.jpg");
    WarpGrid grid;
    int counter = 0;
    float start = 0.0F;

    void render(Frame& frame, float t) {
        warpQuadWrapped(test::show, layer.data(), slime, cornersAt(t * 0.04, sin(t * 0.1) * 60.0 + 150.0));
        buildWaveGrid(grid, t);
        drawGridWarp(frame.data(), test::show, grid, flow, 0);
        if (++counter == 1)
            start = t;
        const float d = t - start;
        for (std::size_t i = 0; i < frame.size(); ++i) {
            frame[i] = saturatedSum(frame[i], layer[i]);
            if (d < 256.0)
                frame[i] = perByte(frame[i], 0,
                                   [a = truncate(d)](Pixel32 p, Pixel32) { return p * static_cast<Pixel32>(a) >> 8; });
            if (i / 512 >= 352 || (i % 512 >= 480 && i % 512 <= 487))
                frame[i] = 0;
        }
    }
};

using FlatScenes = test::ShowScenes;

// The offset that the first scene leaves moves the second one's flow.
TEST_F(FlatScenes, TwinTunnelThenWaveWarpEqualTheLiteralOnes) {
    constexpr int tunnelFrames = 70, waveFrames = 24;
    std::vector<test::Moment> script;
    for (int n = 0; n < tunnelFrames; ++n) {
        script.push_back({1800.0F + static_cast<float>(n) * 2.3F});
        if (n == 4 || n == 9 || n == 15 || n == 50)
            script.back().flags.push_back(&syncState.syncFlag37);
        if (n == 12) // stays
            script.back().flags.push_back(&syncState.syncFlag59);
    }
    load({twinTunnel, waveWarp});
    LiteralTwinTunnel tunnel;
    paintLightSpot(tunnel.spot.data());
    tunnel.banner = picture("bajsa.jpg", 256, 36);
    compare(twinTunnel, tunnel, script);
    EXPECT_EQ(warpOffset, tunnelFrames * 257);
    script.clear();
    for (int n = 0; n < waveFrames; ++n)
        script.push_back({3000.0F + static_cast<float>(n) * 13.45F}); // the fade's last step too
    LiteralWaveWarp wave;
    compare(waveWarp, wave, script);
}

} // namespace
} // namespace lumenfold
