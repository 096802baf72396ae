#pragma once

#include "assets/image.h"

#include <cstddef>
#include <vector>

namespace lumenfold {

// A picture file of exactly width x height pixels, owned by the caller. Throws as loadImage does.
inline std::vector<Pixel32> loadPicture(const char* fileName, int width, int height) {
    std::vector<Pixel32> picture(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    loadImage(fileName, picture.data(), width, height, FrameInfo{width, height, 0, 0, 0}, 0);
    return picture;
}

} // namespace lumenfold
