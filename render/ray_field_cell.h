#pragma once

#include "core/pixel.h"

#include <cstddef>
#include <cstdint>

namespace lumenfold {

// What travels over a cell of the ray field: texture coordinates and the darkening, 16.16.
struct FieldValue {
    std::int32_t u;
    std::int32_t v;
    std::int32_t shade;
};

// One cell: the values at both ends of its first row and their steps from row to row.
struct FieldCell {
    FieldValue left;
    FieldValue right;
    FieldValue leftStep;
    FieldValue rightStep;
    std::int32_t width; // in pixels
    std::int32_t height;
};

// A pixel subtracts (left - right) >> fieldCellShift: the 16 columns of a cell of the 512-pixel frame.
inline constexpr int fieldCellShift = 4;

// Fills a cell. pixels: its top-left one in rows of pitch; texture: 256 x 256.
void fillFieldCell(Pixel32* pixels, std::ptrdiff_t pitch, const FieldCell& cell, const Pixel32* texture);

} // namespace lumenfold
