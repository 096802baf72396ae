#pragma once

#include "core/pixel.h"
#include "render/filler_affine.h"
#include "render/filler_perspective.h"

#include <cstdint>

// The fillers once more, pixel by pixel and as slow as they read: what the shipped ones must equal bit for bit.

namespace lumenfold::reference {

struct Picture {
    std::int32_t width, height;
    Pixel32* target;
    float* depth;
};

enum class Operation { Opaque, Add };

void perspective(const PerspectiveCorner (&corners)[3], const Pixel32* texture, const Picture& picture, float depthBias,
                 Operation operation, std::int32_t scroll);

// second: null for the modes of one texture.
void affine(const AffineCorner (&corners)[3], const Pixel32* texture, const Pixel32* second, const Picture& picture,
            float depthBias, Operation operation);

// One row; coordinates u1, v1, u2, v2 in 16.16.
struct SpanEnd {
    std::int32_t x;
    float z;
    std::int32_t coordinates[4];
};
void affineSpan(SpanEnd a, SpanEnd b, std::int32_t row, const Pixel32* texture, const Pixel32* second,
                const Picture& picture, float depthBias, Operation operation);

} // namespace lumenfold::reference
