#include "artwork/textures/textures.h"
#include "forge/recipe.h"

namespace lumenfold::art {

std::vector<Recipe> textureRecipes() {
    return {
        {"petrolenv.jpg", true, makePetrolEnvironment},
        {"phong5.jpg", true, makeDaylightMirror},
        {"eftex.jpg", true, makeLacquerMirror},
        {"cubet5.jpg", true, makeBoneMirror},
        {"cells3c.jpg", true, makeObsidianMirror},
        {"cell1.jpg", true, makeTunnelCells},
        {"cell5a.jpg", true, makeAddedCells},
        {"slem4.jpg", true, makeSlime},
        {"paper1.jpg", true, makeFoldedPaper},
        {"fdgrid.jpg", true, makeFloorGrid},
        {"cubet4.jpg", true, makeThroat},
        {"bfs1.pcx", true, makeRingFlare},
        {"bfs0.pcx", true, makeSparkFlare},
        {"petrolflare.jpg", true, makePetrolFlare},
        {"hullpan.jpg", true, makeHullPanels},
        {"ribwall.jpg", true, makeRibWall},
        {"hall1.jpg", true, makeHallStone},
        {"shaft1.jpg", true, makeShaftWall},
        {"pool1.jpg", true, makeShaftPool},
        {"ripple.jpg", true, makeRipples},
        {"fire1.jpg", true, makeFire},
        {"dome1.jpg", true, makeDomeWall},
        {"steel1.jpg", true, makeClawSteel},
        {"head1.jpg", true, makeHotHead},
        {"tunbay1.jpg", true, makeTunnelBay},
        {"tunbay2.jpg", true, makeTunnelBayTurned},
        {"lamps.jpg", true, makeLampBands},
        {"medal1.jpg", true, makeMedallion},
        {"cave1.jpg", true, makeCaveNear},
        {"cave2.jpg", true, makeCaveMiddle},
        {"cave3.jpg", true, makeCaveFar},
        {"dawn1.jpg", true, makeDawn},
        {"glow1.jpg", true, makeEngineGlow},
        {"plate1.jpg", true, makeNameplate},
        {"film1.jpg", true, makeFilmStrip},
    };
}

} // namespace lumenfold::art
