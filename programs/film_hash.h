#pragma once

#include "core/pixel.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace lumenfold::film {

inline constexpr std::size_t hashLanes = 4;

// The 64-bit FNV-1a hashes over blue, green and red of every pixel of four pictures of count pixels each. Four at a
// time, because one hash alone waits for its own multiplications.
std::array<std::uint64_t, hashLanes> hashPictures(const std::array<const Pixel32*, hashLanes>& pictures,
                                                  std::size_t count);

} // namespace lumenfold::film
