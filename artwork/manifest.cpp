#include "forge/manifest.h"

#include "artwork/lettering/lettering.h"
#include "artwork/objects/objects.h"
#include "artwork/pictures/pictures.h"
#include "artwork/textures/textures.h"
#include "artwork/tunes/parts.h"

namespace lumenfold::art {

namespace {

constexpr double wide = 1e9;

constexpr PictureAsset texture(Bitmap (*make)(), unsigned rules = 0) {
    return {make, 256, 256, rules};
}
constexpr PictureAsset flare(Bitmap (*make)(), int side) {
    return {make, side, side, blackRim | blackGround};
}
constexpr PictureAsset fullScreen(Bitmap (*make)(), unsigned rules = 0) {
    return {make, 512, 384, rules};
}

} // namespace

const std::vector<Asset>& manifest() {
    static const std::vector<Asset> assets = {
        // textures
        {"petrolenv.jpg", texture(makePetrolEnvironment, seamless)},
        {"phong5.jpg", texture(makeDaylightMirror)},
        {"eftex.jpg", texture(makeLacquerMirror)},
        {"cubet5.jpg", texture(makeBoneMirror)},
        {"cells3c.jpg", texture(makeObsidianMirror)},
        {"cell1.jpg", texture(makeTunnelCells, seamless)},
        {"cell5a.jpg", texture(makeAddedCells, seamless)},
        {"slem4.jpg", texture(makeSlime, seamless)},
        {"paper1.jpg", texture(makeFoldedPaper)},
        {"fdgrid.jpg", texture(makeFloorGrid, seamless)},
        {"cubet4.jpg", texture(makeThroat, wrapsInY)},
        {"hullpan.jpg", texture(makeHullPanels, seamless)},
        {"ribwall.jpg", texture(makeRibWall, seamless)},
        {"hall1.jpg", texture(makeHallStone, seamless)},
        {"shaft1.jpg", texture(makeShaftWall)},
        {"pool1.jpg", texture(makeShaftPool)},
        {"ripple.jpg", texture(makeRipples, seamless | blackGround)},
        {"fire1.jpg", texture(makeFire, seamless | blackGround)},
        {"dome1.jpg", texture(makeDomeWall)},
        {"steel1.jpg", texture(makeClawSteel)},
        {"head1.jpg", texture(makeHotHead)},
        {"tunbay1.jpg", texture(makeTunnelBay, seamless)},
        {"tunbay2.jpg", texture(makeTunnelBayTurned, seamless)},
        {"lamps.jpg", texture(makeLampBands, wrapsInX)},
        {"medal1.jpg", texture(makeMedallion)},
        {"cave1.jpg", texture(makeCaveNear, seamless)},
        {"cave2.jpg", texture(makeCaveMiddle, seamless)},
        {"cave3.jpg", texture(makeCaveFar, seamless)},
        {"dawn1.jpg", texture(makeDawn)},
        {"glow1.jpg", texture(makeEngineGlow, blackRim | blackGround)},
        {"plate1.jpg", texture(makeNameplate, wrapsInX | blackGround)},
        {"film1.jpg", texture(makeFilmStrip, wrapsInX)},
        {"bfs1.pcx", flare(makeRingFlare, 32)},
        {"bfs0.pcx", flare(makeSparkFlare, 16)},
        {"petrolflare.jpg", flare(makePetrolFlare, 32)},
        // full-screen pictures
        {"skum3.jpg", fullScreen(makeOilPool)},
        {"morph3.jpg", fullScreen(makeMachineCore), false},
        {"bkfire.jpg", fullScreen(makeFireWreath, blackGround)},
        {"svampbak.jpg", fullScreen(makeMasonry)},
        {"part3bak.jpg", fullScreen(makeIvoryStage, darkRight)},
        {"3dframe.jpg", fullScreen(makeForgeDoor)},
        // pictures with type
        {"goodlog512a.jpg", PictureAsset{makeLogo, 512, 80, blackRim | blackGround}},
        {"circ3.jpg", PictureAsset{makeCircuitBand, 512, 70, seamless}},
        {"cptext6.pcx", PictureAsset{makeTextStrip, 128, 512, wrapsInY | blackGround}, false},
        {"sidogrej91x351.tga", PictureAsset{makeRoleStrip, 91, 351, 0}, false},
        {"bajsa.jpg", PictureAsset{makeBanner, 256, 36, wrapsInX}, false},
        {"greets2.pcx", PictureAsset{makeGreetings, 32, 2048, wrapsInY}, false},
        {"designfusk.pcx", fullScreen(makeOverlayPlate, whiteKeyed), false},
        {"endscroll.pcx", PictureAsset{makeEndScroll, 512, 1400, wrapsInY}, false},
        // objects
        {"mytun_ny1a.lwo", ObjectAsset{makeTunnel, 2000, 9000, false, {-4, -4, -25}, {32, 4, 20}}},
        {"prison2.lwo", ObjectAsset{makeHall, 2000, 9000, false, {-16, -18, -16}, {16, 40, 50}}},
        {"cube6.lwo", ObjectAsset{makeCube, 50, 2000, false, {-0.45, -0.45, -0.45}, {0.45, 0.45, 0.45}}},
        {"hum.lwo", ObjectAsset{makeHead, 3000, 5000, true, {-13, -14, -13}, {13, 13, 13}}},
        {"blob1.lwo", ObjectAsset{makeBlob, 2000, 5000, true, {-1.8, -1.8, -1.8}, {1.8, 1.8, 1.8}}},
        {"blob2.lwo", ObjectAsset{makePaperStar, 200, 3000, false, {-0.6, -0.6, -0.6}, {0.6, 0.6, 0.6}}},
        {"blb3.lwo", ObjectAsset{makeKnot, 2500, 5000, true, {-1.25, -1.25, -1.25}, {1.25, 1.25, 1.25}}},
        {"svets1.lwo", ObjectAsset{makePlateLeft, 500, 4000, false, {-2.5, 0.045, -0.01}, {0.3, 3.795, 0.2}}},
        {"svets2.lwo", ObjectAsset{makePlateRight, 500, 4000, false, {-0.3, 0.045, -0.01}, {2.5, 3.795, 0.2}}},
        {"filmrulle1.lwo", ObjectAsset{makeFilm, 1000, 6000, false, {-wide, -0.4, -0.001}, {wide, 0.4, wide}}},
        {"mytube3b.lwo", ObjectAsset{makeLandscape, 2000, 9000, false, {-30, -20, -85}, {50, 30, 35}}},
        {"water.lwo", ObjectAsset{makeWater, 200, 4000, false, {-wide, -0.2, -wide}, {wide, 0.2, wide}}},
        {"stealth.lwo", ObjectAsset{makeAircraft, 100, 3000, false, {-7, -4, -4}, {7, 4, 4}}},
        {"credt.lwo", ObjectAsset{makeCentrepiece, 200, 4000, false, {-3.5, -0.6, -3.5}, {3.5, 2.4, 3.5}}},
        {"claw2.lwo", ObjectAsset{makeClaw, 500, 4000, true, {-0.4, -0.6, -0.4}, {0.6, 0.6, 0.4}}},
        {"firepole.lwo", ObjectAsset{makeFirePole, 200, 4000, false, {-0.3, -0.2, -0.3}, {0.3, 1.2, 0.3}}},
        {"firebase.lwo", ObjectAsset{makeFireBase, 50, 4000, false, {-0.5, -0.5, -0.5}, {0.5, 0.2, 0.5}}},
        {"nameplate.lwo", ObjectAsset{makeLettering, 8, 1000, false, {-0.5, -0.1, -0.5}, {0.5, 0.6, 0.5}}},
        // tunes
        {"bzzzz.xm", TuneAsset{demoTune}},
        {"endtune.xm", TuneAsset{endTune}},
    };
    return assets;
}

} // namespace lumenfold::art
