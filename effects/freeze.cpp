#include "effects/freeze.h"

#include "core/convert.h"
#include "core/kernels.h"

#include <algorithm>

namespace lumenfold {

void freezeFrame(Pixel32* still, const Pixel32* frame, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const Pixel32 pixel = frame[i];
        const Pixel32 grey = ((pixel & 255) + (pixel >> 8 & 255) + (pixel >> 16 & 255)) / 3;
        const Pixel32 red = lowByte(grey * 0.9);
        const Pixel32 blue = static_cast<Pixel32>(std::min(truncate(grey * 1.05), 255));
        still[i] = (still[i] & 0xFF000000) | red << 16 | grey << 8 | blue;
    }
}

void Flash::addTo(Pixel32* frame, std::size_t count) {
    if (level == 0)
        return;
    level = static_cast<std::uint8_t>(std::max(level - 32, 0));
    addSaturatedConstant(frame, level * 0x01010101U, count); // all four bytes, the top one too
}

} // namespace lumenfold
