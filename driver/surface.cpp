#include "driver/ptc.h"

#include "core/kernels.h"

#include <cstddef>

namespace lumenfold::ptc {

Surface::Surface(std::int32_t width, std::int32_t height, const Format&)
    : pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

Pixel32* Surface::lock() {
    return pixels.data();
}

void Surface::unlock() {}

void Surface::copy(Console& console) const {
    console.load(pixels.data());
}

void Surface::clear() {
    fillPixels(pixels.data(), 0, pixels.size());
}

} // namespace lumenfold::ptc
