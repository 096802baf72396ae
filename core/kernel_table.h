#pragma once

#include "core/pixel.h"

#include <cstddef>
#include <cstdint>

namespace lumenfold {

// The loops of kernels.h that exist in a plain and in a vectorised form.
struct KernelTable {
    void (*addSaturated)(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count);
    void (*addSaturatedConstant)(Pixel32* destination, Pixel32 value, std::size_t count);
    void (*fade)(Pixel32* pixels, std::uint8_t factor, std::size_t count);
    void (*crossFade)(Pixel32* pixels, const Pixel32* other, std::uint8_t factor, std::size_t count);
    void (*averageHalves)(Pixel32* destination, const Pixel32* a, const Pixel32* b, std::size_t count);
    void (*smearHalves)(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count);
    void (*smearQuarters)(Pixel32* pixels, std::ptrdiff_t distance, std::size_t count);
    void (*mapTable)(Pixel32* destination, const std::uint16_t* table, std::int32_t offset, const Pixel32* texture,
                     std::size_t count);
    void (*mapTableReversed)(Pixel32* destination, const std::uint16_t* table, std::int32_t offset,
                             const Pixel32* texture, std::size_t count);
    void (*overlayKeyed)(Pixel32* pixels, const Pixel32* overlay, Pixel32 key, std::size_t count);
    void (*fillPixels)(Pixel32* destination, Pixel32 value, std::size_t count);
    // Adds a block onto another, row lengths in pixels; both lie wholly inside their memory.
    void (*addBlock)(Pixel32* destination, int destinationPitch, const Pixel32* source, int sourcePitch, int width,
                     int height);
};

extern const KernelTable plainKernels;

// Null where the processor or the compiler's target lacks the instructions.
const KernelTable* vectorKernels();

} // namespace lumenfold
