#include "effects/welding_film.h"

#include "core/convert.h"
#include "core/trig.h"
#include "effects/sprite_ring_cube.h"
#include "effects/stealth_flight.h"
#include "effects/twin_tunnel.h"
#include "show_scenes.h"
#include "tests/support/pixels.h"

#include <algorithm>

namespace lumenfold {
namespace {

using test::saturatedSum;

constexpr float start = 3000.0F;

class WeldingFilm : public test::ShowScenes {
  protected:
    void loadAll() {
        load({spriteRingCube, twinTunnel, weldingFilm, stealthFlight});
        const auto still = test::randomPixels(pixelCount(test::show), 4);
        for (std::size_t i = 0; i < still.size(); ++i)
            frozenStill()[i] = still[i] & 0x003F3F3F;
    }

    // The welding told step by step.
    struct Literal {
        struct Spark {
            float x, y, vx, vy;
        };
        test::Frame still, torch, sparkSprite;
        std::array<Spark, 200> sparks{};
        int count = 0;

        static void add(test::Frame& target, const test::Frame& sprite, int side, int x, int y) {
            for (int r = 0; r < side; ++r)
                for (int c = 0; c < side && y + r > 0; ++c) {
                    Pixel32& pixel = target[static_cast<std::size_t>((y + 1 + r) * 512 + x - side + c)];
                    pixel = saturatedSum(pixel, sprite[static_cast<std::size_t>(r * side + c)]);
                }
        }

        void render(test::Frame& frame, float t) {
            const float lt = t - start;
            const int y0 = truncate(lt * 13.0 - 10.0);
            if (count < 199) {
                const int first = rand() / 16000;
                const int second = rand() / 16000;
                sparks[static_cast<std::size_t>(count)] = {256.0F, static_cast<float>(y0),
                                                           static_cast<float>(first - second),
                                                           static_cast<float>(rand() * 1.6666667e-05)};
            }
            const int x0 = truncate((rand() & 15) + trig::sin(y0 * 0.03) * 5.0 + 262.0);
            add(still, torch, 32, x0, y0);
            for (int i = 0; i < count; ++i) {
                Spark& s = sparks[static_cast<std::size_t>(i)];
                s = s.y + s.vy < 384.0F ? Spark{s.x + s.vx, s.y + s.vy, s.vx, static_cast<float>(s.vy + 0.9)}
                                        : Spark{256.0F, static_cast<float>(y0), s.vx, 0.0F};
            }
            count = std::min(count + 1, 199);
            frame = still;
            for (int i = 0; i < count; ++i) {
                const Spark& s = sparks[static_cast<std::size_t>(i)];
                if (18 < s.x && s.x < 512 - 18 && s.y < 384 - 18)
                    add(frame, sparkSprite, 16, truncate(s.x), truncate(s.y));
            }
        }
    };
};

TEST_F(WeldingFilm, WeldingEqualsTheLiteralOne) {
    loadAll();
    Literal scene;
    scene.still.assign(frozenStill(), frozenStill() + pixelCount(test::show));
    scene.torch.assign(flareSprite(), flareSprite() + 32 * 32);
    scene.sparkSprite = picture("bfs0.pcx", 16, 16);
    std::vector<test::Moment> script;
    for (int n = 0; n < 250; ++n) // all 199 sparks fly before the split
        script.push_back({start + static_cast<float>(n) * 0.107F});
    compare(weldingFilm, scene, script);
    EXPECT_EQ(scene.count, 199);
}

TEST_F(WeldingFilm, SplitEndsTheWeldingAtItsTime) {
    loadAll();
    test::Frame frame = blank(), still;
    for (const float t : {0.0F, 26.99F, 27.0F, 27.01F}) {
        draw(weldingFilm, frame, start + t);
        const test::Frame burned(frozenStill(), frozenStill() + pixelCount(test::show));
        EXPECT_EQ(burned == still, t >= 27.0F) << t;
        still = burned;
    }
}

TEST_F(WeldingFilm, FilmRollsUntilItsCameraArrivesThenHoldsTheNextPicture) {
    loadAll();
    const test::Frame held(heldPicture(), heldPicture() + pixelCount(test::show));
    test::Frame frame = blank();
    draw(weldingFilm, frame, start - 30.0F);
    syncState.syncFlag59 = 1;
    for (const float t : {0.0F, 45.0F, 89.99F, 90.0F}) { // the camera that 90.0 sets is used by the frame after
        draw(weldingFilm, frame, start + t);
        EXPECT_NE(frame, held) << t;
    }
    for (const float t : {90.1F, 91.0F, 400.0F, 2.0F}) {
        draw(weldingFilm, frame, start + t);
        EXPECT_EQ(frame, held) << t;
    }
    EXPECT_EQ(syncState.syncFlag59, 1);
}

} // namespace
} // namespace lumenfold
