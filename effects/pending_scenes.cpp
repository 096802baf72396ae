// Scenes that are not built yet hold a black frame. Whoever builds one deletes its line here.

#include "effects/framed_fire_pole.h"
#include "effects/metaball_flares.h"
#include "effects/pulsing_tube.h"
#include "effects/stealth_flight.h"
#include "effects/twin_tunnel.h"
#include "effects/welding_film.h"

#include <algorithm>

namespace lumenfold {

namespace {
void black(FrameInfo info, EffectCommand command, Pixel32* pixels) {
    if (command == EffectCommand::Render)
        std::fill_n(pixels, info.width * info.height, 0U);
}
} // namespace

// clang-format off
void twinTunnel(FrameInfo i, EffectCommand c, Pixel32* p, float) { black(i, c, p); }
void weldingFilm(FrameInfo i, EffectCommand c, Pixel32* p, float) { black(i, c, p); }
void stealthFlight(FrameInfo i, EffectCommand c, Pixel32* p, float) { black(i, c, p); }
void framedFirePole(FrameInfo i, EffectCommand c, Pixel32* p, float) { black(i, c, p); }
void pulsingTube(FrameInfo i, EffectCommand c, Pixel32* p, float) { black(i, c, p); }
void metaballFlares(FrameInfo i, EffectCommand c, Pixel32* p, float) { black(i, c, p); }
// clang-format on

} // namespace lumenfold
