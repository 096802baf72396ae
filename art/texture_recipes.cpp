#include "art/recipe.h"

namespace lumenfold::art {

std::vector<Recipe> textureRecipes() {
    return {};
}

} // namespace lumenfold::art
