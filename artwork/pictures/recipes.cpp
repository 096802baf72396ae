#include "artwork/pictures/pictures.h"
#include "forge/recipe.h"

namespace lumenfold::art {

std::vector<Recipe> pictureRecipes() {
    return {
        {"skum3.jpg", true, makeOilPool},       {"morph3.jpg", false, makeMachineCore},
        {"bkfire.jpg", false, makeFireWreath},  {"svampbak.jpg", true, makeMasonry},
        {"part3bak.jpg", true, makeIvoryStage}, {"3dframe.jpg", false, makeForgeDoor},
    };
}

} // namespace lumenfold::art
