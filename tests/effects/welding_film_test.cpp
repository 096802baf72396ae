#include "effects/welding_film.h"

#include "effects/flight_opening.h"
#include "effects/sprite_ring_cube.h"
#include "effects/stealth_flight.h"
#include "effects/twin_tunnel.h"
#include "show_scenes.h"
#include "tests/support/pixels.h"

namespace lumenfold {
namespace {

constexpr float start = 3000.0F;

class WeldingFilm : public test::ShowScenes {
  protected:
    void loadAll() {
        load({spriteRingCube, twinTunnel, weldingFilm, stealthFlight});
        const auto still = test::randomPixels(pixelCount(frameInfo), 4);
        for (std::size_t i = 0; i < still.size(); ++i)
            frozenStill()[i] = still[i] & 0x003F3F3F;
    }
};

TEST_F(WeldingFilm, SplitEndsTheWeldingAtItsTime) {
    loadAll();
    test::Frame frame = blank(), still;
    for (const float t : {0.0F, 26.99F, 27.0F, 27.01F}) {
        draw(weldingFilm, frame, start + t);
        const test::Frame burned(frozenStill(), frozenStill() + pixelCount(frameInfo));
        EXPECT_EQ(burned == still, t >= 27.0F) << t;
        still = burned;
    }
}

TEST_F(WeldingFilm, FilmRollsUntilItsCameraArrivesThenHoldsTheNextPicture) {
    loadAll();
    const test::Frame held = flightOpening.picture;
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
