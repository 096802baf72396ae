#include "artwork/objects/objects.h"
#include "forge/recipe.h"

namespace lumenfold::art {

namespace {

template <Model (*make)()>
void write(const std::string& path) {
    writeLightWaveObject(make(), path);
}

} // namespace

std::vector<Recipe> objectRecipes() {
    return {
        {"mytun_ny1a.lwo", true, write<makeTunnel>},  {"prison2.lwo", true, write<makeHall>},
        {"cube6.lwo", true, write<makeCube>},         {"hum.lwo", true, write<makeHead>},
        {"blob1.lwo", true, write<makeBlob>},         {"blob2.lwo", true, write<makePaperStar>},
        {"blb3.lwo", true, write<makeKnot>},          {"svets1.lwo", true, write<makePlateLeft>},
        {"svets2.lwo", true, write<makePlateRight>},  {"filmrulle1.lwo", true, write<makeFilm>},
        {"mytube3b.lwo", true, write<makeLandscape>}, {"water.lwo", true, write<makeWater>},
        {"stealth.lwo", true, write<makeAircraft>},   {"credt.lwo", true, write<makeCentrepiece>},
        {"claw2.lwo", true, write<makeClaw>},         {"firepole.lwo", true, write<makeFirePole>},
        {"firebase.lwo", true, write<makeFireBase>},  {"nameplate.lwo", true, write<makeLettering>},
    };
}

} // namespace lumenfold::art
