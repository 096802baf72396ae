#pragma once

#include "programs/film_output.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace lumenfold::test {

// 32 bits for the picture of a frame: FNV-1a over words of two pixels, in four lanes that do not wait for each other.
inline std::uint32_t frameHash(const film::Frame& frame) {
    constexpr std::uint64_t offset = 14695981039346656037U;
    constexpr std::uint64_t prime = 1099511628211U;
    constexpr std::uint64_t colours = 0x00FFFFFF00FFFFFF;
    std::array<std::uint64_t, 4> lanes{offset, offset, offset, offset};
    std::array<std::uint64_t, 4> words;
    constexpr std::size_t step = sizeof words / sizeof(Pixel32);
    const auto count = static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height);
    for (std::size_t i = 0; i + step <= count; i += step) {
        std::memcpy(words.data(), frame.pixels + i, sizeof words);
        for (std::size_t lane = 0; lane < lanes.size(); ++lane)
            lanes[lane] = (lanes[lane] ^ (words[lane] & colours)) * prime;
    }
    std::uint64_t all = offset;
    for (const std::uint64_t lane : lanes)
        all = (all ^ lane) * prime;
    return static_cast<std::uint32_t>(all ^ (all >> 32));
}

} // namespace lumenfold::test
