#pragma once

#include "effects/warp.h"

namespace lumenfold {

// The clock of the twin tunnels, which the music turns back.
struct TwinTunnelClock {
    float offset = 0.0F;    // of the animation's time
    float lastPulse = 0.0F; // demo time of the last pulse
};

// Fills the grid with a look into two tunnels whose centres wander and whose walls wobble. pulse puts the animation
// back to where it stood at the pulse before (at the first one, to its beginning).
void buildTwinTunnelGrid(WarpGrid& grid, TwinTunnelClock& clock, bool pulse, float time);

} // namespace lumenfold
