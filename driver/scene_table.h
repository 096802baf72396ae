#pragma once

#include "core/effect.h"
#include "core/sync_values.h"

#include <cstdint>
#include <vector>

namespace lumenfold {

// What happens when the loop of a scene has ended, or was passed over because the music had counted past it.
enum class AfterLoop {
    Nothing,    // the scene has no loop, or the timeline starts again
    ClearDepth, // the depth buffer is cleared; flags and part number stay
    ForceNext,  // that, and every flag is cleared and the next part follows whatever the music has counted meanwhile
    StartEndTune,
};

struct SceneRow {
    const char* name; // of the Effect
    Effect effect;
    std::int32_t barWidth; // pixels of the loading bar drawn before Init; 0: no bar
    std::int32_t part;     // during which it is shown; noPart: never
    AfterLoop after;
    bool released; // gets the Release command at the end
};

// In the order in which the scenes load, are shown and are released.
using SceneTable = std::vector<SceneRow>;

// All scenes of the demo.
const SceneTable& sceneTable();

// Instead of a part's number, in the table and on film: loading, or a scene that is never shown.
inline constexpr std::int32_t noPart = 0;

// The row of the scene that a part shows; part is 1 to scrollerPart.
const SceneRow& sceneOfPart(std::int32_t part);

} // namespace lumenfold
