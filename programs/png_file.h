#pragma once

#include "core/pixel.h"

#include <cstdint>
#include <string>

namespace lumenfold::film {

// Writes width x height pixels as an RGB picture without transparency. Throws std::runtime_error naming the file
// and the cause.
void writePng(const std::string& fileName, const Pixel32* pixels, std::int32_t width, std::int32_t height);

} // namespace lumenfold::film
