#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <cstddef>
#include <cstdint>

// ZSoft PCX, the 24-bit run-length encoded kind: 128 bytes of header (the caller knows the size; one that says
// something else gives a notice), then for every row three plane lines red, green, blue of exactly the picture's width,
// without a padding byte.

namespace lumenfold {

// Reads a picture of sourceWidth x sourceHeight pixels into destination (target.width x target.height pixels, owned by
// the caller). resample 0: its top-left part that fits, the rest of the block stays; otherwise scaled to the whole
// block, nearest neighbour. Returns 0, or -1 when the file ends before the picture does (or the source size
// holds no pixel); then nothing is written. Throws DynamicError with the file name when the file cannot be opened.
std::int32_t readPcx(const char* fileName, Pixel32* destination, std::int32_t sourceWidth, std::int32_t sourceHeight,
                     FrameInfo target, std::int32_t resample);

// The same from a file that is in memory.
std::int32_t decodePcx(const std::uint8_t* data, std::size_t size, Pixel32* destination, std::int32_t sourceWidth,
                       std::int32_t sourceHeight, FrameInfo target, std::int32_t resample);

} // namespace lumenfold
