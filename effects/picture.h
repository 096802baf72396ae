#pragma once

#include "assets/image.h"
#include "effects/frame_size.h"

#include <vector>

namespace lumenfold {

// A picture file of exactly width x height pixels, owned by the caller. Throws as loadImage does.
inline std::vector<Pixel32> loadPicture(const char* fileName, int width, int height) {
    const FrameInfo size{width, height, 0, 0, 0};
    std::vector<Pixel32> picture(pixelCount(size));
    loadImage(fileName, picture.data(), width, height, size, 0);
    return picture;
}

} // namespace lumenfold
