#pragma once

#include "forge/recipe.h"

#include <vector>

namespace lumenfold::art {

// Plain stand-ins of the right format and size for pictures that no family makes yet. A family's recipe of the same
// name takes the place of a draft.
std::vector<Recipe> draftRecipes();

} // namespace lumenfold::art
