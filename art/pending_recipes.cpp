// Families of assets that have no sources yet. A family that lists its own recipes takes its line out here.
#include "art/recipe.h"

namespace lumenfold::art {

std::vector<Recipe> letteringRecipes() {
    return {};
}

} // namespace lumenfold::art
