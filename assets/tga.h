#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <cstddef>
#include <cstdint>

// Truevision TGA, the uncompressed 24-bit kind: 18 bytes of header (the caller knows the size; one that says something
// else gives a notice), then rows of blue, green, red bytes without padding, bottom row first. No identification field,
// no colour map.

namespace lumenfold {

// Reads a picture of target.width x target.height pixels into destination (owned by the caller); what a short file
// does not supply is 0. sourceWidth, sourceHeight and resample are not read. Returns 1. Throws DynamicError with the
// file name when the file cannot be opened.
std::int32_t readTga(const char* fileName, Pixel32* destination, std::int32_t sourceWidth, std::int32_t sourceHeight,
                     FrameInfo target, std::int32_t resample);

// The same from a file that is in memory.
void decodeTga(const std::uint8_t* data, std::size_t size, Pixel32* destination, FrameInfo target);

} // namespace lumenfold
