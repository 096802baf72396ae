#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"

#include <cstddef>
#include <cstdint>
#include <string>

// JPEG files (ITU-T T.81): sequential Huffman coding, 8-bit samples, at most four components in one scan or several,
// the standard Huffman tables where the file has none. A component that is the only one of its picture is to have the
// sampling factors 1 x 1 (with others its blocks are not taken in T.81's order). The inverse transform is a direct sum
// in double precision and chroma is sampled bilinearly without a half-sample offset, so pictures differ by a few steps
// from other decoders' and never between machines.

namespace lumenfold {

// Reads a picture of exactly target.width x target.height pixels into destination (owned by the caller); the last
// column and row are copies of their neighbours. A file that ends early keeps what was decoded, with black after it;
// one without a frame header leaves the block as it was. sourceWidth, sourceHeight and resample are not read. Throws
// DynamicError: the file name when the file cannot be opened, "FILE: reason" when it is of a kind that is not
// supported, damaged in its headers or of another size. Nothing is written then. Gives a notice of a file that is no
// JPEG file, holds no picture or not all of it.
void readJpegFile(const char* fileName, Pixel32* destination, std::int32_t sourceWidth, std::int32_t sourceHeight,
                  FrameInfo target, std::int32_t resample);

// The same from a file that is in memory; fileName is for the messages.
// Returns what the picture lacks ("the file ends early; ..."), empty when it is whole.
std::string decodeJpegFile(const std::uint8_t* data, std::size_t size, const std::string& fileName,
                           Pixel32* destination, FrameInfo target);

} // namespace lumenfold
