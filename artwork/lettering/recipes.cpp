#include "artwork/lettering/lettering.h"
#include "forge/recipe.h"

namespace lumenfold::art {

// Type depends on the installed version of its fonts, so only what is drawn without them is made again by --check.
std::vector<Recipe> letteringRecipes() {
    return {
        {"goodlog512a.jpg", true, makeLogo},          {"cptext6.pcx", false, makeTextStrip},
        {"sidogrej91x351.tga", false, makeRoleStrip}, {"bajsa.jpg", false, makeBanner},
        {"greets2.pcx", false, makeGreetings},        {"circ3.jpg", true, makeCircuitBand},
        {"designfusk.pcx", false, makeOverlayPlate},  {"endscroll.pcx", false, makeEndScroll},
    };
}

} // namespace lumenfold::art
