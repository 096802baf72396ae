#pragma once

#include "core/pixel.h"

#include <cstdint>
#include <string>

namespace lumenfold::film {

// Writes width x height pixels to the file at place as an RGB picture without transparency. Throws std::runtime_error
// with the cause and the name that the file will have.
void writePng(const std::string& place, const Pixel32* pixels, std::int32_t width, std::int32_t height,
              const std::string& name);

} // namespace lumenfold::film
