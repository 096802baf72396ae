#pragma once

#include "core/packed.h"
#include "core/pixel.h"

#include <cstddef>
#include <cstdint>

// The loops over packed pixels that the scenes share, in the vector instructions that the processor has
// (core/vector_target.h). All four bytes of a pixel take part, the top byte too. Blocks are caller-owned; count is in
// pixels; sources may be the destination itself unless said otherwise, but must not overlap it partly.

namespace lumenfold {

// destination[i] = destination[i] +sat source[i].
void addSaturated(Pixel32* destination, const Pixel32* source, std::size_t count);

// destination[i] = a[i] +sat b[i].
void addSaturated(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count);

// destination[i] = destination[i] +sat value.
void addSaturatedConstant(Pixel32* destination, Pixel32 value, std::size_t count);

// Each byte becomes (byte x factor) >> 8.
void fade(Pixel32* pixels, std::uint8_t factor, std::size_t count);

// Each byte becomes (byte x factor + other byte x (255 - factor)) >> 8.
void crossFade(Pixel32* pixels, const Pixel32* other, std::uint8_t factor, std::size_t count);

// destination[i] = ((a[i] >> 1) & 0x7F7F7F7F) + ((b[i] >> 1) & 0x7F7F7F7F).
void averageHalves(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count);

// In ascending order and in place, so that the pixels before have already been averaged:
// pixels[i] = half of pixels[i + distance] + half of pixels[i - distance] (masks as in averageHalves).
// pixels[-distance] to pixels[count - 1 + distance] must be readable; distance is at least 1.
void smearHalves(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count);

// In ascending order and in place: pixels[i] = the sum of a quarter, ((p >> 2) & 0x3F3F3F3F), of the pixels at
// i - 1, i + 1, i - distance and i + distance, those before already averaged.
// pixels[-distance] to pixels[count - 1 + distance] must be readable; distance is at least 2.
void smearQuarters(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count);

// destination[i] = texture[(table[i] + offset) & 0xFFFF]; the table's low byte is the column, its high byte the row.
void mapTable(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
              std::size_t count);

// Reads the table backwards: destination[i] = texture[(table[count - 1 - i] + offset) & 0xFFFF].
void mapTableReversed(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
                      std::size_t count);

// Replaces each pixel by the overlay's where that is not exactly key.
void overlayKeyed(Pixel32* pixels, const Pixel32* overlay, Pixel32 key, std::size_t count);

void copyPixels(Pixel32* destination, const Pixel32* source, std::size_t count);
void fillPixels(Pixel32* destination, Pixel32 value, std::size_t count);

// Adds a sprite of width x height pixels (saturating) onto a target of targetWidth x targetHeight with its top-left
// corner at (x, y). What would fall outside the target is left out.
void stampAdd(Pixel32* target, int targetWidth, int targetHeight, const Pixel32* sprite, int width, int height, int x,
              int y);

// Copies a block of width x height pixels between blocks with the given row lengths (in pixels).
void copyBlock(Pixel32* destination, int destinationPitch, const Pixel32* source, int sourcePitch, int width,
               int height);

// Fills a block of width x height pixels within rows of the given length.
void fillBlock(Pixel32* destination, int pitch, int width, int height, Pixel32 value);

} // namespace lumenfold
