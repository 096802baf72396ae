#include "core/kernel_table.h"
#include "core/packed.h"

#include <algorithm>

namespace lumenfold {

namespace {

void addPlain(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        destination[i] = addSaturated(a[i], b[i]);
}

void addConstantPlain(Pixel32* destination, Pixel32 value, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        destination[i] = addSaturated(destination[i], value);
}

void fadePlain(Pixel32* pixels, std::uint8_t factor, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = crossFaded(pixels[i], 0, factor);
}

void crossFadePlain(Pixel32* pixels, const Pixel32* other, std::uint8_t factor, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = crossFaded(pixels[i], other[i], factor);
}

void averagePlain(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        destination[i] = half(a[i]) + half(b[i]);
}

// The smears depend on the pixels that they have just written, so one after the other is their only order.
void smearHalvesPlain(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    for (Pixel32* pixel = pixels; pixel != pixels + count; ++pixel)
        *pixel = half(pixel[distance]) + half(pixel[-distance]);
}

void smearQuartersPlain(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    if (count == 0)
        return;
    Pixel32 behind = pixels[-1];
    for (Pixel32* pixel = pixels; pixel != pixels + count; ++pixel) {
        behind = quarter(behind) + quarter(pixel[1]) + quarter(pixel[-distance]) + quarter(pixel[distance]);
        *pixel = behind;
    }
}

Pixel32 lookUp(std::uint16_t entry, std::int32_t offset, const Pixel32* texture) {
    return texture[(entry + static_cast<std::uint32_t>(offset)) & 0xFFFF];
}

void mapPlain(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
              std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        destination[i] = lookUp(table[i], offset, texture);
}

void mapReversedPlain(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
                      std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        destination[i] = lookUp(table[count - 1 - i], offset, texture);
}

void overlayPlain(Pixel32* pixels, const Pixel32* overlay, Pixel32 key, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = overlay[i] == key ? pixels[i] : overlay[i];
}

void fillPlain(Pixel32* destination, Pixel32 value, std::size_t count) {
    std::fill_n(destination, count, value);
}

void addBlockPlain(Pixel32* destination, int destinationPitch, const Pixel32* source, int sourcePitch, int width,
                   int height) {
    for (int row = 0; row < height; ++row, destination += destinationPitch, source += sourcePitch)
        addPlain(destination, destination, source, static_cast<std::size_t>(width));
}

} // namespace

const KernelTable plainKernels = {addPlain,         addConstantPlain, fadePlain,          crossFadePlain,
                                  averagePlain,     smearHalvesPlain, smearQuartersPlain, mapPlain,
                                  mapReversedPlain, overlayPlain,     fillPlain,          addBlockPlain};

} // namespace lumenfold
