#pragma once

// What the tunes and the demo agree on: the parts that the music counts and the values of its sync commands.

namespace lumenfold {

// Values of currentPart, in the order in which the music counts them. 0 waits for the first advance.
inline constexpr int mainParts = 10;               // 1 to mainParts: the scenes
inline constexpr int scrollerPart = mainParts + 1; // the end scroller
inline constexpr int finishedPart = 31;            // the timeline ends instead of starting again

namespace sync {

inline constexpr int advance = 1;    // the next part, as every value below firstFlag
inline constexpr int firstFlag = 32; // from here on a value sets the flag that is named by it
inline constexpr int pulse = 32;     // part 2: the ring swells; part 4: a flash, and the ray tunnel begins
inline constexpr int fadeOut = 33;   // part 3: begins to fade out
inline constexpr int hall = 36;      // part 1: the tunnel gives way to the hall
inline constexpr int hit = 37;       // parts 3 and 9 lunge, 4 rewinds its tunnels, 6 shakes, 8 moves its nameplate
inline constexpr int dissolve = 39;  // part 1: the tunnel dissolves into the logo
inline constexpr int swap = 59;      // part 2: cube; 3: next object; 4: light spot, later the still; 5: film

} // namespace sync

} // namespace lumenfold
