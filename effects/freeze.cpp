#include "effects/freeze.h"

#include "core/convert.h"
#include "core/kernels.h"

#include <algorithm>
#include <array>

namespace lumenfold {

namespace {

// The cool tint of every grey.
std::array<Pixel32, 256> makeTints() {
    std::array<Pixel32, 256> tints;
    for (Pixel32 grey = 0; grey < tints.size(); ++grey) {
        const Pixel32 red = lowByte(grey * 0.9);
        const Pixel32 blue = static_cast<Pixel32>(std::min(truncate(grey * 1.05), 255));
        tints[grey] = red << 16 | grey << 8 | blue;
    }
    return tints;
}

} // namespace

void freezeFrame(Pixel32* still, const Pixel32* frame, std::size_t count) {
    const std::array<Pixel32, 256> tints = makeTints();
    for (std::size_t i = 0; i < count; ++i) {
        const Pixel32 pixel = frame[i];
        const Pixel32 grey = ((pixel & 255) + (pixel >> 8 & 255) + (pixel >> 16 & 255)) / 3;
        still[i] = (still[i] & 0xFF000000) | tints[grey];
    }
}

void Flash::addTo(Pixel32* frame, std::size_t count) {
    if (level == 0)
        return;
    level = static_cast<std::uint8_t>(std::max(level - 32, 0));
    addSaturatedConstant(frame, level * 0x01010101U, count); // all four bytes, the top one too
}

} // namespace lumenfold
