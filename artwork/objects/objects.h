#pragma once

#include "forge/model.h"

// One function per object of the show.

namespace lumenfold::art {

Model makeTunnel(); // mytun_ny1a.lwo: the opening's tunnel with its bend
Model makeHall();   // prison2.lwo: the monumental hall
Model makeCube();   // cube6.lwo
Model makeHead();
// The same head without a surface, its middle in the origin; 1.45 high times the scale.
Model headOf(std::size_t triangles, double scale); // hum.lwo
Model makeBlob();                                  // blob1.lwo
Model makePaperStar();                             // blob2.lwo
Model makeKnot();                                  // blb3.lwo
Model makePlateLeft();                             // svets1.lwo
Model makePlateRight();                            // svets2.lwo
Model makeFilm();                                  // filmrulle1.lwo
Model makeLandscape();                             // mytube3b.lwo
Model makeWater();                                 // water.lwo
Model makeAircraft();                              // stealth.lwo
Model makeCentrepiece();                           // credt.lwo
Model makeClaw();                                  // claw2.lwo
Model makeFirePole();                              // firepole.lwo
Model makeFireBase();                              // firebase.lwo
Model makeLettering();                             // nameplate.lwo

} // namespace lumenfold::art
