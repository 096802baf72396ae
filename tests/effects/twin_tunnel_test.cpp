#include "effects/freeze.h"
#include "effects/light_spot.h"
#include "effects/twin_tunnel_grid.h"

#include "core/convert.h"
#include "core/trig.h"
#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace lumenfold {
namespace {

using test::randomPixels;
using trig::atan2;
using trig::cos;
using trig::sin;

int s16(double value) {
    const int low = truncate(value) & 0xFFFF;
    return low >= 0x8000 ? low - 0x10000 : low;
}

void expectGrid(const WarpGrid& grid, double T) {
    const double c1x = (sin(1.2 * T) * 5 + 14) * sin(0.7 * T) - 7, c1y = (sin(1.4 * T) * 5 + 14) * cos(1.4 * T) - 7;
    const double c2x = (sin(1.5 * T) * 5 + 14) * sin(0.2 * T + 3) + 7;
    const double c2y = (sin(1.6 * T) * 5 + 14) * cos(0.5 * T + 3) + 7;
    const double A1 = sin(T) * 700 + 1100, A2 = cos(0.7 * T) * 700 + 1000, S = sin(2 * T);
    const double k = 81.16908953746352;
    std::size_t n = 0;
    for (int j = -24; j <= 24; ++j)
        for (int i = -32; i <= 32; ++i, ++n) {
            const double X1 = i + c1x, Y1 = 0.625 * j + c1y, X2 = i + c2x, Y2 = 0.625 * j + c2y;
            const double t1 = atan2(X1, Y1), t2 = atan2(X2, Y2);
            const double r1 = std::sqrt(X1 * X1 + Y1 * Y1), r2 = std::sqrt(X2 * X2 + Y2 * Y2);
            const int u = truncate(s16(std::fabs(t1) * k + 128) + std::fabs(t2) * k);
            const int v = truncate(s16(A1 / r1 + sin(4 * t1 + T) * S * 50) + A2 / r2 + sin(4 * t2 + T) * S * 50);
            ASSERT_EQ(grid[n].u, s16(u)) << "T " << T << " point " << n;
            ASSERT_EQ(grid[n].v, s16(v)) << "T " << T << " point " << n;
        }
}

TEST(TwinTunnelGrid, EveryPulseGoesBackToThePulseBefore) {
    const struct {
        float time;
        bool pulse;
    } steps[] = {{0.0F, false}, {40.3F, false}, {52.7F, true},  {60.1F, false},
                 {71.9F, true}, {90.5F, true},  {93.0F, false}, {1354752.125F, false}}; // the last one after a day
    WarpGrid grid;
    TwinTunnelClock clock;
    float offset = 0.0F, last = 0.0F;
    for (const auto& step : steps) {
        if (step.pulse) {
            offset = static_cast<float>(offset - (step.time - last) * 0.12);
            last = step.time;
        }
        buildTwinTunnelGrid(grid, clock, step.pulse, step.time);
        expectGrid(grid, step.time * 0.12 + offset);
    }
    // 90.5 went back to what 71.9 showed, and that to the beginning
    EXPECT_NEAR(90.5 * 0.12 + clock.offset, 0.0, 1e-5);
}

TEST(LightSpot, PictureFallsOffToBlack) {
    std::vector<Pixel32> picture(512 * 512);
    paintLightSpot(picture.data());
    const auto at = [&](int x, int y) { return picture[static_cast<std::size_t>((y + 256) * 512 + x + 256)]; };
    EXPECT_EQ(at(0, 0), 0x00FFFFFEU); // blue 255 x 255 / 256
    EXPECT_EQ(at(0, 15), 0x00FFFFFEU);
    EXPECT_EQ(at(16, 0), 0x00FEFEFCU);
    EXPECT_EQ(at(0, -255), 0x00010100U);
    EXPECT_EQ(at(-256, -256), 0U);
    EXPECT_EQ(at(-180, 180), 0x00020200U);
}

TEST(LightSpot, RadiusShrinksAfterItsUse) {
    const float directions[4] = {static_cast<float>(atan2(-160, -120)), static_cast<float>(atan2(160, -120)),
                                 static_cast<float>(atan2(-160, 120)), static_cast<float>(atan2(160, 120))};
    LightSpot spot;
    float R = 10000.0F;
    int D = 300;
    for (int frame = 0; frame < 500; ++frame) {
        const float t = 600.0F + static_cast<float>(frame) * 0.26F;
        if (frame >= 35) { // it waits for its step to fall below it
            ASSERT_EQ(spot.radius, frame <= 206 ? 95.0F : 1.0F) << frame;
        }
        const WarpQuad quad = spot.closeIn(t);
        for (std::size_t k = 0; k < 4; ++k) {
            const double angle = directions[k] + t * 0.04;
            ASSERT_EQ(quad.x[k], truncate(cos(angle) * R) + 256) << frame;
            ASSERT_EQ(quad.y[k], truncate(sin(angle) * R) + 256) << frame;
        }
        if (R > static_cast<float>(D))
            R = R - static_cast<float>(D);
        if (D > 5)
            D = D - 1;
    }
}

TEST(Freeze, TintsTheMeanAndKeepsTheTopByte) {
    auto frame = randomPixels(4096, 7);
    for (Pixel32 grey = 0; grey < 256; ++grey)
        frame[grey] = grey * 0x010101;
    const auto before = randomPixels(frame.size(), 8);
    auto still = before;
    freezeFrame(still.data(), frame.data(), frame.size());
    for (std::size_t i = 0; i < frame.size(); ++i) {
        const int m = static_cast<int>((frame[i] & 255) + (frame[i] >> 8 & 255) + (frame[i] >> 16 & 255)) / 3;
        const int red = truncate(m * 0.9) & 255, blue = std::min(truncate(m * 1.05), 255);
        ASSERT_EQ(still[i], (before[i] & 0xFF000000) + static_cast<Pixel32>(red * 65536 + m * 256 + blue)) << i;
    }
}

} // namespace
} // namespace lumenfold
