// All scenes in one process.

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

#include "show_scenes.h"

namespace lumenfold {
namespace {

constexpr Effect scenes[] = {tunnelOpening,       spriteRingCube, tumblingShowcase, twinTunnel,  weldingFilm,
                             stealthFlight,       waveWarp,       framedFirePole,   pulsingTube, dormantSparkPlane,
                             dormantFlarePicture, metaballFlares, endScroller};

using SceneRuns = test::ShowScenes;

// Everything that a scene keeps starts again with loading, so that one process can run the show twice.
TEST_F(SceneRuns, LoadingAgainGivesTheSamePictures) {
    const auto play = [this] {
        load({std::begin(scenes), std::end(scenes)});
        std::vector<test::Frame> last;
        test::Frame pixels(pixelCount(test::show), 0x00123456);
        for (const Effect scene : scenes) {
            clearDepthBuffer();
            for (int n = 0; n < 24; ++n) {
                syncState.syncFlag37 = n % 5 == 0;
                syncState.syncFlag32 = n == 3 || n == 11;
                syncState.syncFlag39 = n == 8;
                if (n == 13) {
                    syncState.syncFlag36 = 1;
                    syncState.syncFlag59 = 1;
                }
                draw(scene, pixels, 40.0F + static_cast<float>(n) * 3.1F);
            }
            syncState.zero();
            last.push_back(pixels);
        }
        return last;
    };
    const auto first = play(), second = play();
    for (std::size_t i = 0; i < first.size(); ++i)
        EXPECT_TRUE(first[i] == second[i]) << "scene " << i;
}

} // namespace
} // namespace lumenfold
