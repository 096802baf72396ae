#pragma once

#include "forge/model.h"
#include "forge/picture.h"
#include "forge/xm_writer.h"

#include <variant>

// The files of the show: how each is made and what it must hold. The list stands in artwork/manifest.cpp; the forge
// makes its files, the checks verify them.

namespace lumenfold::art {

// What a picture must hold besides its form and size.
enum PictureRule : unsigned {
    wrapsInX = 1,
    wrapsInY = 2,
    seamless = wrapsInX | wrapsInY,
    blackRim = 4,    // every border pixel exactly 0
    blackGround = 8, // added: a good part of it exactly 0
    darkRight = 16,  // columns 420 to 510 leave room for what is added there
    whiteKeyed = 32, // exactly white or clearly not
};

struct PictureAsset {
    Bitmap (*make)();
    int width;
    int height;
    unsigned rules;
};

struct ObjectAsset {
    Model (*make)();
    std::uint32_t fewest, most; // triangles
    bool closed;
    Point low, high; // it lies within
};

struct TuneAsset {
    XmSong (*make)();
};

struct Asset {
    const char* fileName; // in show/; a picture's ending says how it is encoded
    std::variant<PictureAsset, ObjectAsset, TuneAsset> form;
    bool rebuilt = true; // --check makes it again and compares; not what takes a minute or shows a font's version
};

const std::vector<Asset>& manifest(); // each name once

// Makes the asset: the bytes of its file. Throws std::runtime_error with the cause.
std::vector<std::uint8_t> make(const Asset& asset);

} // namespace lumenfold::art
