#include "artwork/pictures/pictures.h"
#include "forge/recipe.h"

namespace lumenfold::art {

std::vector<Recipe> pictureRecipes() {
    return {
        {"skum3.jpg", false, makeLiquidFolds},    {"morph3.jpg", false, makeMachineCore},
        {"bkfire.jpg", false, makeFireWreath},    {"svampbak.jpg", true, makeMasonry},
        {"part3bak.jpg", false, makeRingGallery}, {"3dframe.jpg", false, makePrisonFrame},
    };
}

} // namespace lumenfold::art
