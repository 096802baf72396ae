#include "core/kernels.h"

#include "core/kernel_table.h"

#include <algorithm>
#include <cstring>

namespace lumenfold {

namespace {
const KernelTable* kernels = vectorKernels() != nullptr ? vectorKernels() : &plainKernels;
} // namespace

bool vectorCode() {
    return kernels != &plainKernels;
}

void setVectorCode(bool on) {
    kernels = on && vectorKernels() != nullptr ? vectorKernels() : &plainKernels;
}

void addSaturated(Pixel32* destination, const Pixel32* source, std::size_t count) {
    kernels->addSaturated(destination, destination, source, count);
}

void addSaturated(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    kernels->addSaturated(destination, a, b, count);
}

void addSaturatedConstant(Pixel32* destination, Pixel32 value, std::size_t count) {
    kernels->addSaturatedConstant(destination, value, count);
}

void fade(Pixel32* pixels, std::uint8_t factor, std::size_t count) {
    kernels->fade(pixels, factor, count);
}

void crossFade(Pixel32* pixels, const Pixel32* other, std::uint8_t factor, std::size_t count) {
    kernels->crossFade(pixels, other, factor, count);
}

void averageHalves(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count) {
    kernels->averageHalves(destination, a, b, count);
}

void smearHalves(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    kernels->smearHalves(pixels, distance, count);
}

void smearQuarters(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count) {
    kernels->smearQuarters(pixels, distance, count);
}

void mapTable(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
              std::size_t count) {
    kernels->mapTable(destination, table, offset, texture, count);
}

void mapTableReversed(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
                      std::size_t count) {
    kernels->mapTableReversed(destination, table, offset, texture, count);
}

void overlayKeyed(Pixel32* pixels, const Pixel32* overlay, Pixel32 key, std::size_t count) {
    kernels->overlayKeyed(pixels, overlay, key, count);
}

void copyPixels(Pixel32* destination, const Pixel32* source, std::size_t count) {
    std::memcpy(destination, source, count * sizeof(Pixel32));
}

void fillPixels(Pixel32* destination, Pixel32 value, std::size_t count) {
    kernels->fillPixels(destination, value, count);
}

void stampAdd(Pixel32* target, int targetWidth, int targetHeight, const Pixel32* sprite, int width, int height, int x,
              int y) {
    // 64-bit corners: the place may be any integer
    const std::int64_t left = std::max<std::int64_t>(0, x);
    const std::int64_t top = std::max<std::int64_t>(0, y);
    const std::int64_t right = std::min<std::int64_t>(targetWidth, std::int64_t{x} + width);
    const std::int64_t bottom = std::min<std::int64_t>(targetHeight, std::int64_t{y} + height);
    if (left >= right || top >= bottom)
        return;
    kernels->addBlock(target + top * targetWidth + left, targetWidth, sprite + (top - y) * width + (left - x), width,
                      static_cast<int>(right - left), static_cast<int>(bottom - top));
}

void copyBlock(Pixel32* destination, int destinationPitch, const Pixel32* source, int sourcePitch, int width,
               int height) {
    for (int row = 0; row < height; ++row, destination += destinationPitch, source += sourcePitch)
        copyPixels(destination, source, static_cast<std::size_t>(width));
}

void fillBlock(Pixel32* destination, int pitch, int width, int height, Pixel32 value) {
    for (int row = 0; row < height; ++row, destination += pitch)
        fillPixels(destination, value, static_cast<std::size_t>(width));
}

} // namespace lumenfold
