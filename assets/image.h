#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace lumenfold {

// Reads a picture file into the caller's block; the last three letters of the name choose the reader (any case):
// "tga" and "jpg" files are exactly target.width x target.height, "pcx" files sourceWidth x sourceHeight, cropped to
// the target or, if resample is not 0, scaled to it (nearest neighbour). A name with another ending reads nothing.
// destination: target.width x target.height pixels, owned by the caller.
// Returns 1 always. Throws DynamicError (file name first) when the file cannot be opened, or when a JPEG file is of
// another size, of a kind that is not supported or damaged in its headers. Files that end early give what was decoded
// and black after it (JPEG, TGA), or leave the block as it was (PCX). A file that its reader does not read as it was
// meant gives a notice (assets/notice.h).
std::int32_t loadImage(const char* fileName, Pixel32* destination, std::int32_t sourceWidth, std::int32_t sourceHeight,
                       FrameInfo target, std::int32_t resample);

struct TextureEntry {
    std::unique_ptr<Pixel32[]> texels; // 256 x 256
    std::string fileName;
};

// The textures in use, shared by file name; entries are never removed while the demo runs.
struct TextureCache {
    static constexpr std::int32_t capacity = 40;
    std::vector<std::unique_ptr<TextureEntry>> entries; // room for capacity entries once opened
    std::int32_t count = 0;

    void open();  // an empty table; what it held before is freed
    void close(); // frees every texture and the table
};

extern TextureCache textureCache;

// The 256 x 256 texture of that name (letter case ignored), read on the first request; what its file does not cover is
// 0. Owned by the cache, valid until it is closed; who draws into it changes it for every user of the name.
// Throws as loadImage does, and DynamicError for a 41st name; then nothing is added.
Pixel32* getTexture(const char* fileName);

} // namespace lumenfold
