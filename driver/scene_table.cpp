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
#include <cassert>

namespace lumenfold {

const SceneTable& sceneTable() {
    using enum AfterLoop;
    static const SceneTable table{
        // name, Effect, loading bar, part, after its loop, released
        {"tunnelOpening", tunnelOpening, 25, 1, ForceNext, true},
        {"spriteRingCube", spriteRingCube, 50, 2, ForceNext, true},
        {"tumblingShowcase", tumblingShowcase, 100, 3, ForceNext, true},
        {"twinTunnel", twinTunnel, 150, 4, ClearDepth, true},
        {"weldingFilm", weldingFilm, 200, 5, ClearDepth, true},
        {"stealthFlight", stealthFlight, 250, 6, ClearDepth, true},
        {"waveWarp", waveWarp, 300, 7, ClearDepth, true},
        {"framedFirePole", framedFirePole, 350, 8, ClearDepth, true},
        {"pulsingTube", pulsingTube, 400, 9, ClearDepth, true},
        {"dormantSparkPlane", dormantSparkPlane, 450, noPart, Nothing, true},
        {"dormantFlarePicture", dormantFlarePicture, 500, noPart, Nothing, false},
        {"metaballFlares", metaballFlares, 0, 10, StartEndTune, false},
        {"endScroller", endScroller, 0, scrollerPart, Nothing, false},
    };
    return table;
}

const SceneRow& sceneOfPart(std::int32_t part) {
    const SceneTable& table = sceneTable();
    const auto found =
        std::find_if(table.begin(), table.end(), [part](const SceneRow& row) { return row.part == part; });
    assert(part != noPart && found != table.end());
    return *found;
}

} // namespace lumenfold
