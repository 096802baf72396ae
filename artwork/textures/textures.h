#pragma once

#include <string>

// One function per texture; each writes the finished file. The list of recipes stands in recipes.cpp.

namespace lumenfold::art {

void makePetrolEnvironment(const std::string& path);

void makeDaylightMirror(const std::string& path);
void makeLacquerMirror(const std::string& path);
void makeBoneMirror(const std::string& path);
void makeObsidianMirror(const std::string& path);

void makeTunnelCells(const std::string& path);
void makeAddedCells(const std::string& path);
void makeFoldedPaper(const std::string& path);
void makeSlime(const std::string& path);

void makeFloorGrid(const std::string& path);
void makeThroat(const std::string& path);

void makeRingFlare(const std::string& path);
void makeSparkFlare(const std::string& path);
void makePetrolFlare(const std::string& path);

void makeHullPanels(const std::string& path);
void makeRibWall(const std::string& path);
void makeHallStone(const std::string& path);
void makeShaftWall(const std::string& path);
void makeShaftPool(const std::string& path);
void makeRipples(const std::string& path);
void makeFire(const std::string& path);
void makeDomeWall(const std::string& path);
void makeClawSteel(const std::string& path);
void makeHotHead(const std::string& path);

void makeTunnelBay(const std::string& path);
void makeTunnelBayTurned(const std::string& path);
void makeLampBands(const std::string& path);
void makeMedallion(const std::string& path);
void makeCaveNear(const std::string& path);
void makeCaveMiddle(const std::string& path);
void makeCaveFar(const std::string& path);
void makeDawn(const std::string& path);
void makeEngineGlow(const std::string& path);

void makeNameplate(const std::string& path);
void makeFilmStrip(const std::string& path);

} // namespace lumenfold::art
