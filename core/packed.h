#pragma once

#include "core/pixel.h"

// Arithmetic on the four bytes of one pixel at once. The two even and the two odd bytes are worked on as 16-bit lanes
// of one 32-bit word, so that no carry leaves its byte.

namespace lumenfold {

inline constexpr Pixel32 evenBytes = 0x00FF00FF;

// Per-byte sum, saturating at 255.
inline Pixel32 addSaturated(Pixel32 a, Pixel32 b) {
    const auto lanes = [](Pixel32 x, Pixel32 y) {
        const Pixel32 sum = (x & evenBytes) + (y & evenBytes);
        return (sum | (sum >> 8 & 0x00010001) * 255) & evenBytes;
    };
    return lanes(a, b) | lanes(a >> 8, b >> 8) << 8;
}

// Per-byte difference, not below 0.
inline Pixel32 subtractSaturated(Pixel32 a, Pixel32 b) {
    return ~addSaturated(~a, b);
}

// Each byte (a x factor + b x (255 - factor)) >> 8; factor 0 to 255.
inline Pixel32 crossFaded(Pixel32 a, Pixel32 b, Pixel32 factor) {
    const Pixel32 rest = 255 - factor;
    const Pixel32 even = ((a & evenBytes) * factor + (b & evenBytes) * rest) >> 8 & evenBytes;
    const Pixel32 odd = ((a >> 8 & evenBytes) * factor + (b >> 8 & evenBytes) * rest) & ~evenBytes;
    return even | odd;
}

// Half and quarter of each byte, rounded down.
inline Pixel32 half(Pixel32 pixel) {
    return pixel >> 1 & 0x7F7F7F7F;
}
inline Pixel32 quarter(Pixel32 pixel) {
    return pixel >> 2 & 0x3F3F3F3F;
}

} // namespace lumenfold
