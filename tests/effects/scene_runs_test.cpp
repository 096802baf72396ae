// Whole scenes with the show's pictures: what holds whatever the pictures are.

#include "effects/dormant.h"
#include "effects/end_scroller.h"
#include "effects/framed_fire_pole.h"
#include "effects/metaball_flares.h"
#include "effects/pulsing_tube.h"
#include "effects/sprite_ring_cube.h"
#include "effects/stealth_flight.h"
#include "effects/tumbling_showcase.h"
#include "effects/tunnel_opening.h"
#include "effects/twin_tunnel.h"
#include "effects/wave_warp.h"
#include "effects/welding_film.h"

#include "assets/image.h"
#include "core/random.h"
#include "core/sync_state.h"
#include "effects/picture.h"
#include "effects/warp.h"
#include "render/depth_buffer.h"
#include "render/scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace lumenfold {
namespace {

constexpr FrameInfo frame{512, 384, 1, 22050, 1};
constexpr Pixel32 untouched = 0x00123456;

struct Named {
    const char* name;
    Effect effect;
};

const Named scenes[] = {{"tunnelOpening", tunnelOpening},
                        {"spriteRingCube", spriteRingCube},
                        {"tumblingShowcase", tumblingShowcase},
                        {"twinTunnel", twinTunnel},
                        {"weldingFilm", weldingFilm},
                        {"stealthFlight", stealthFlight},
                        {"waveWarp", waveWarp},
                        {"framedFirePole", framedFirePole},
                        {"pulsingTube", pulsingTube},
                        {"dormantSparkPlane", dormantSparkPlane},
                        {"dormantFlarePicture", dormantFlarePicture},
                        {"metaballFlares", metaballFlares},
                        {"endScroller", endScroller}};

void loadAll() {
    resetRand();
    warpOffset = 0;
    sharedDepthBias = 0.0F;
    textureCache.open();
    syncState.zero();
    for (const Named& scene : scenes)
        scene.effect(frame, EffectCommand::Init, nullptr, 0.0F);
    allocateDepthBuffer(frame.width, frame.height);
}

class SceneRuns : public testing::Test {
  protected:
    void SetUp() override {
        home = std::filesystem::current_path();
        std::filesystem::current_path(LUMENFOLD_SHOW);
        loadAll();
    }
    void TearDown() override {
        syncState.zero();
        std::filesystem::current_path(home);
    }

    void render(Effect effect, float time) { effect(frame, EffectCommand::Render, pixels.data(), time); }

    bool rowsAre(int from, int to, Pixel32 colour) const {
        return std::all_of(pixels.begin() + from * 512, pixels.begin() + to * 512,
                           [colour](Pixel32 pixel) { return pixel == colour; });
    }

    std::vector<Pixel32> pixels = std::vector<Pixel32>(512 * 384, untouched);
    std::filesystem::path home;
};

TEST_F(SceneRuns, OpeningKeepsToItsLetterbox) {
    for (int n = 0; n < 100; ++n) {
        syncState.syncFlag39 = n == 60; // the first frames, the dissolve, and the logo's smear
        render(tunnelOpening, 70.0F + static_cast<float>(n) * 1.5F);
        ASSERT_EQ(syncState.syncFlag39, 0);
    }
    EXPECT_TRUE(rowsAre(0, 57, untouched));
    EXPECT_TRUE(rowsAre(327, 384, untouched));
}

TEST_F(SceneRuns, OpeningEndsOnThePicture) {
    syncState.syncFlag36 = 1;
    render(tunnelOpening, 100.0F);
    EXPECT_TRUE(rowsAre(57, 327, 0)); // the first frame of the fade-in
    render(tunnelOpening, 100.0F + 389.9F);
    EXPECT_EQ(syncState.syncFlag36, 1);
    // (picture x 255) >> 8: at most one below the picture
    const auto picture = loadPicture("skum3.jpg", 512, 384);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        for (int shift = 0; shift < 24; shift += 8) {
            const int byte = static_cast<int>(picture[i] >> shift & 255);
            ASSERT_EQ(pixels[i] >> shift & 255, static_cast<Pixel32>(byte * 255 >> 8)) << i;
        }
}

TEST_F(SceneRuns, RingTakesItsPulseAndCubeEndsOnThePicture) {
    syncState.syncFlag32 = 1;
    render(spriteRingCube, 10.0F);
    EXPECT_EQ(syncState.syncFlag32, 0);
    syncState.syncFlag59 = 1;
    const auto picture = loadPicture("part3bak.jpg", 512, 384);
    render(spriteRingCube, 100.0F);
    EXPECT_NE(pixels, picture);
    render(spriteRingCube, 172.0F);
    EXPECT_NE(pixels, picture);
    render(spriteRingCube, 172.1F);
    EXPECT_EQ(pixels, picture);
    EXPECT_EQ(syncState.syncFlag59, 1);
}

TEST_F(SceneRuns, ShowcaseSwapsThrowsAndFades) {
    for (int swap = 0; swap < 6; ++swap) { // two more than there are objects for
        syncState.syncFlag59 = 1;
        syncState.syncFlag37 = 1;
        render(tumblingShowcase, static_cast<float>(swap));
        EXPECT_EQ(syncState.syncFlag59, 0);
        EXPECT_EQ(syncState.syncFlag37, 0);
    }
    syncState.syncFlag33 = 1;
    render(tumblingShowcase, 10.0F);
    EXPECT_EQ(syncState.syncFlag33, 0);
    EXPECT_FALSE(rowsAre(0, 384, 0));
    render(tumblingShowcase, 83.0F); // 73 x 3.5 is just past 255
    EXPECT_TRUE(rowsAre(0, 384, 0));
    syncState.syncFlag33 = 1; // starts it again
    render(tumblingShowcase, 84.0F);
    EXPECT_FALSE(rowsAre(0, 384, 0));
}

TEST_F(SceneRuns, WaveWarpFadesInBetweenItsBars) {
    render(waveWarp, 500.0F);
    EXPECT_TRUE(rowsAre(0, 384, 0));
    render(waveWarp, 500.0F + 256.0F);
    EXPECT_FALSE(rowsAre(0, 352, 0));
    EXPECT_TRUE(rowsAre(352, 384, 0));
    for (std::size_t y = 0; y < 384; ++y)
        EXPECT_TRUE(std::all_of(&pixels[y * 512 + 480], &pixels[y * 512 + 488], [](Pixel32 p) { return p == 0; }));
    EXPECT_NE(pixels[479] | pixels[488], 0U);
}

// Everything that a scene keeps starts again with loading, so that one process can run the show twice.
TEST_F(SceneRuns, LoadingAgainGivesTheSamePictures) {
    const auto play = [this] {
        std::vector<std::vector<Pixel32>> last;
        std::fill(pixels.begin(), pixels.end(), untouched);
        for (const Named& scene : scenes) {
            clearDepthBuffer();
            for (int n = 0; n < 24; ++n) {
                syncState.syncFlag37 = n % 5 == 0;
                syncState.syncFlag32 = n == 3 || n == 11;
                syncState.syncFlag39 = n == 8;
                if (n == 13) {
                    syncState.syncFlag36 = 1;
                    syncState.syncFlag59 = 1;
                }
                render(scene.effect, 40.0F + static_cast<float>(n) * 3.1F);
            }
            syncState.zero();
            last.push_back(pixels);
        }
        return last;
    };
    const auto first = play();
    loadAll();
    const auto second = play();
    for (std::size_t i = 0; i < first.size(); ++i)
        EXPECT_TRUE(first[i] == second[i]) << scenes[i].name;
}

} // namespace
} // namespace lumenfold
