#pragma once

#include "forge/picture.h"

// One function per texture; the manifest gives their files.

namespace lumenfold::art {

Bitmap makePetrolEnvironment();

Bitmap makeDaylightMirror();
Bitmap makeLacquerMirror();
Bitmap makeBoneMirror();
Bitmap makeObsidianMirror();

Bitmap makeTunnelCells();
Bitmap makeAddedCells();
Bitmap makeFoldedPaper();
Bitmap makeSlime();

Bitmap makeFloorGrid();
Bitmap makeThroat();

Bitmap makeRingFlare();
Bitmap makeSparkFlare();
Bitmap makePetrolFlare();

Bitmap makeHullPanels();
Bitmap makeRibWall();
Bitmap makeHallStone();
Bitmap makeShaftWall();
Bitmap makeShaftPool();
Bitmap makeRipples();
Bitmap makeFire();
Bitmap makeDomeWall();
Bitmap makeClawSteel();
Bitmap makeHotHead();

Bitmap makeTunnelBay();
Bitmap makeTunnelBayTurned();
Bitmap makeLampBands();
Bitmap makeMedallion();
Bitmap makeCaveNear();
Bitmap makeCaveMiddle();
Bitmap makeCaveFar();
Bitmap makeDawn();
Bitmap makeEngineGlow();

Bitmap makeNameplate();
Bitmap makeFilmStrip();

} // namespace lumenfold::art
