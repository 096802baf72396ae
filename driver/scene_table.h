#pragma once

#include "core/effect.h"

#include <array>
#include <cstdint>

namespace lumenfold {

// Numbers by which the scene table and the film name what is on screen.
inline constexpr std::int32_t noPart = 0;        // loading, or a scene that is never shown
inline constexpr std::int32_t mainParts = 10;    // parts 1 to 10 follow currentPart
inline constexpr std::int32_t scrollerPart = 11; // the end-scroller loop

struct SceneRow {
    const char* name; // of the Effect
    Effect effect;
    std::int32_t barWidth; // pixels of the loading bar drawn before Init; 0: no bar
    std::int32_t part;     // during which it is shown
    bool released;         // gets the Release command at the end
};

// All scenes in the order of their Init.
extern const std::array<SceneRow, 13> sceneTable;

// The row of the scene that a part shows; part is 1 to scrollerPart.
const SceneRow& sceneOfPart(std::int32_t part);

} // namespace lumenfold
