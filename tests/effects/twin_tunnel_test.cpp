#include "effects/twin_tunnel.h"

#include "core/kernels.h"
#include "effects/freeze.h"
#include "effects/light_spot.h"
#include "effects/twin_tunnel_grid.h"
#include "show_scenes.h"

#include <set>

namespace lumenfold {
namespace {

TEST(TwinTunnelGrid, EveryPulseGoesBackToTheBeginning) {
    WarpGrid grid;
    TwinTunnelClock clock;
    for (const float time : {40.3F, 52.7F, 71.9F, 90.5F}) {
        buildTwinTunnelGrid(grid, clock, true, time);
        EXPECT_NEAR(time * 0.12 + clock.offset, 0.0, 1e-5);
    }
}

TEST(LightSpot, RadiusWaitsForItsStepToFallBelowIt) {
    LightSpot spot;
    for (int frame = 0; frame < 500; ++frame) {
        if (frame >= 35) {
            ASSERT_EQ(spot.radius, frame <= 206 ? 95.0F : 1.0F) << frame;
        }
        spot.closeIn(600.0F);
    }
}

class TwinTunnel : public test::ShowScenes {
  protected:
    // Frames of a new run that begins with the switch to the second phase, each drawn over the one before; flags are
    // set before the frames named.
    std::vector<test::Frame> run(const std::set<std::size_t>& flashes, const std::set<std::size_t>& freezes) {
        load({twinTunnel});
        std::vector<test::Frame> frames;
        test::Frame frame = blank();
        for (std::size_t n = 0; n < 16; ++n) {
            if (flashes.count(n) != 0)
                syncState.syncFlag32 = 1;
            if (freezes.count(n) != 0)
                syncState.syncFlag59 = 1;
            draw(twinTunnel, frame, 2000.0F + static_cast<float>(n) * 0.26F);
            frames.push_back(frame);
        }
        return frames;
    }
};

TEST_F(TwinTunnel, SwitchTakesBackFlagsAndPartAndFlashes) {
    load({twinTunnel});
    test::Frame frame = blank();
    draw(twinTunnel, frame, 0.0F);
    syncState.currentPart = 6;
    for (SyncByte* flag : {&syncState.syncFlag32, &syncState.syncFlag33, &syncState.syncFlag59})
        *flag = 1;
    draw(twinTunnel, frame, 1.0F);
    EXPECT_EQ(syncState.currentPart, 4);
    EXPECT_EQ(syncState.syncFlag32 + syncState.syncFlag33 + syncState.syncFlag59, 0);
    EXPECT_EQ(frame[0], 0xDFDFDFDFU); // a bar under the first step of the flash
    EXPECT_EQ(frame[25 * 512 - 1], 0xDFDFDFDFU);
    EXPECT_EQ(frame[359 * 512], 0xDFDFDFDFU);
    syncState.currentPart = 5; // the music's next advance ends the part
    draw(twinTunnel, frame, 2.0F);
    EXPECT_EQ(syncState.currentPart, 5);
}

TEST_F(TwinTunnel, FreezeHoldsTheFrameWithoutItsFlash) {
    const auto moving = run({0}, {});
    const auto frozen = run({0}, {10});
    EXPECT_EQ(syncState.syncFlag59, 0);
    test::Frame still = blank();
    freezeFrame(still.data(), moving[10].data(), still.size());
    for (std::size_t n = 0; n < 16; ++n)
        EXPECT_EQ(frozen[n], n < 10 ? moving[n] : still) << n;

    const auto both = run({0, 9}, {10});
    EXPECT_EQ(test::Frame(frozenStill(), frozenStill() + still.size()), still); // made before the flash
    addSaturatedConstant(still.data(), 0x9F9F9F9F, still.size());
    EXPECT_EQ(both[11], still);
}

} // namespace
} // namespace lumenfold
