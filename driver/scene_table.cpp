#include "driver/scene_table.h"

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

#include <algorithm>

namespace lumenfold {

const std::array<SceneRow, 13> sceneTable{{
    {"tunnelOpening", tunnelOpening, 25, 1, true},
    {"spriteRingCube", spriteRingCube, 50, 2, true},
    {"tumblingShowcase", tumblingShowcase, 100, 3, true},
    {"twinTunnel", twinTunnel, 150, 4, true},
    {"weldingFilm", weldingFilm, 200, 5, true},
    {"stealthFlight", stealthFlight, 250, 6, true},
    {"waveWarp", waveWarp, 300, 7, true},
    {"framedFirePole", framedFirePole, 350, 8, true},
    {"pulsingTube", pulsingTube, 400, 9, true},
    {"dormantSparkPlane", dormantSparkPlane, 450, noPart, true},
    {"dormantFlarePicture", dormantFlarePicture, 500, noPart, false},
    {"metaballFlares", metaballFlares, 0, 10, false},
    {"endScroller", endScroller, 0, scrollerPart, false},
}};

const SceneRow& sceneOfPart(std::int32_t part) {
    return *std::find_if(sceneTable.begin(), sceneTable.end(),
                         [part](const SceneRow& row) { return row.part == part; });
}

} // namespace lumenfold
