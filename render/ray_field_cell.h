#pragma once

#include "core/pixel.h"

#include <cstdint>

namespace lumenfold {

// What travels over a cell of the ray field: texture coordinates and the darkening, 16.16.
struct FieldValue {
    std::int32_t u;
    std::int32_t v;
    std::int32_t shade;
};

// Fills one row of a cell: count pixels from `left` on, `step` subtracted after each.
// pixels: count of them; texture: 256 x 256.
void fillFieldRow(Pixel32* pixels, std::int32_t count, FieldValue left, FieldValue step, const Pixel32* texture);

// The same bits, eight pixels at a time. Call only where vectorCode() holds.
void fillFieldRowVector(Pixel32* pixels, std::int32_t count, FieldValue left, FieldValue step, const Pixel32* texture);

} // namespace lumenfold
