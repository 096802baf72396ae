#pragma once

#include "forge/picture.h"

#include <cstddef>
#include <string>
#include <vector>

// The picture files of the show, in exactly the forms that the demo's readers take.

namespace lumenfold::art {

inline constexpr std::size_t jpegLimit = 100000; // bytes

// Baseline JPEG (ITU-T T.81), three components without subsampling, one table per segment, at the best quality whose
// file stays within `limit` bytes. Throws std::runtime_error when not even the lowest does.
std::vector<std::uint8_t> encodeJpeg(const Bitmap& bitmap, std::size_t limit = jpegLimit);

// PCX version 5, 24 bits in three planes, lines of exactly `width` bytes without padding, run-length encoded.
std::vector<std::uint8_t> encodePcx(const Bitmap& bitmap);

// Uncompressed 24-bit TGA, bottom row first.
std::vector<std::uint8_t> encodeTga(const Bitmap& bitmap);

// By the ending of the name (.jpg, .pcx, .tga); throws std::runtime_error for any other.
std::vector<std::uint8_t> encodeBitmap(const Bitmap& bitmap, const std::string& fileName);

} // namespace lumenfold::art
