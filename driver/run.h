#pragma once

#include "driver/show.h"

#include <cstdint>

namespace lumenfold {

// The demo from start to end on the program's display: loading, music, timeline, shutdown. One process may run it
// several times.
// Throws DynamicError (a picture cannot be read, the display fails, the sync callback cannot be installed) and
// MusicFailure (any other music call failed).
void run(const SceneTable& scenes = sceneTable());

// The display that run() works on; null while there is none.
extern Display* programDisplay;

// The program: creates the display, runs the demo and reports a DynamicError to the user.
// Returns the exit status, 1 after a music failure and otherwise 0.
std::int32_t enterProgram(const SceneTable& scenes = sceneTable());

} // namespace lumenfold
