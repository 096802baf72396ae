#pragma once

#include <string>
#include <vector>

namespace lumenfold::art {

// How one file of the show is made.
struct Recipe {
    const char* fileName;                        // in show/
    bool cheap;                                  // made within a few seconds: --check makes it again and compares
    void (*make)(const std::string& outputPath); // writes the finished file; throws std::runtime_error with a cause
};

// Each family of assets lists its own.
std::vector<Recipe> textureRecipes();   // 256 x 256 textures and flares
std::vector<Recipe> pictureRecipes();   // full-screen pictures
std::vector<Recipe> letteringRecipes(); // logo, strips, banners, overlay, end scroller
std::vector<Recipe> objectRecipes();
std::vector<Recipe> tuneRecipes();

// All of them, each name once.
std::vector<Recipe> allRecipes();

} // namespace lumenfold::art
