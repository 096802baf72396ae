#pragma once

#include "forge/score.h"

// The sections of "bzzzz.xm", written in the order of the show.

namespace lumenfold::art {

void writeOpening(Score& score); // parts 1 and 2
void writeBodies(Score& score);  // parts 3 and 4
void writeVoyage(Score& score);  // parts 5 to 7
void writeFinale(Score& score);  // parts 8 to 10 and the ringing out

XmSong demoTune();
XmSong endTune();

} // namespace lumenfold::art
