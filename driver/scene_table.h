#pragma once

#include "core/effect.h"

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

// In the order in which the scenes load, are shown and are released; parts are numbered on from 1.
using SceneTable = std::vector<SceneRow>;

// All scenes of the demo.
const SceneTable& sceneTable();

// Numbers by which the scene table and the film name what is on screen.
inline constexpr std::int32_t noPart = 0;                   // loading, or a scene that is never shown
inline constexpr std::int32_t mainParts = 10;               // parts 1 to mainParts follow currentPart
inline constexpr std::int32_t scrollerPart = mainParts + 1; // the end scroller, until it sets endScrollDone

// The row of the scene that a part shows; part is 1 to scrollerPart.
const SceneRow& sceneOfPart(std::int32_t part);

} // namespace lumenfold
