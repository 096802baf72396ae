#pragma once

#include "core/pixel.h"
#include "forge/picture.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace lumenfold::art {

// A finished picture as the demo's own readers give it.
struct PictureFile {
    int width = 0;
    int height = 0;
    std::vector<Pixel32> pixels;
    Pixel32 at(int x, int y) const { return pixels[static_cast<std::size_t>(y) * width + x]; }
};

// Reads the file at the size that the demo expects. Throws DynamicError when it cannot be read and
// std::runtime_error when it does not fill that size.
PictureFile readPicture(const std::string& path, int width, int height);

// The same from a JPEG file that is in memory; name is for the messages.
PictureFile pictureIn(const std::vector<std::uint8_t>& jpeg, const std::string& name, int width, int height);

// Whether the outermost rows and columns are exactly 0.
bool borderIsBlack(const PictureFile& picture);

// The bitmap that `develop` makes at an exposure of the given share of the usual one: the first, from 1 downwards,
// whose JPEG file has a black border. Rounding leaves single bits of colour there, and another exposure rounds
// otherwise. Throws std::runtime_error when none has.
Bitmap withBlackBorder(const std::function<Bitmap(float share)>& develop);

// What keeps a JPEG file from being read by the demo; empty if nothing does: baseline, 8 bits, no subsampling, no
// restart interval, one table per segment, the right size, at most jpegLimit bytes.
std::string jpegFault(const std::vector<std::uint8_t>& bytes, int width, int height);

} // namespace lumenfold::art
