#include "artwork/drafts.h"
#include "forge/recipe.h"

#include <algorithm>
#include <cstring>

namespace lumenfold::art {

std::vector<Recipe> allRecipes() {
    std::vector<Recipe> all;
    for (const auto& family :
         {textureRecipes(), pictureRecipes(), letteringRecipes(), objectRecipes(), tuneRecipes(), draftRecipes()}) {
        for (const Recipe& recipe : family) {
            const auto sameName = [&](const Recipe& other) {
                return std::strcmp(other.fileName, recipe.fileName) == 0;
            };
            if (std::none_of(all.begin(), all.end(), sameName)) {
                all.push_back(recipe);
            }
        }
    }
    return all;
}

} // namespace lumenfold::art
