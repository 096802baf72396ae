#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace lumenfold::film {

inline constexpr std::uint32_t soundChannels = 2;
inline constexpr std::uint32_t soundFrameBytes = 4;

// Pairs of samples as 16-bit little-endian numbers, rounded and limited.
inline std::vector<std::uint8_t> soundBytes(const float* samples, std::size_t frames) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(frames * soundFrameBytes);
    for (const float* sample = samples; sample != samples + frames * soundChannels; ++sample) {
        const double scaled = std::clamp(static_cast<double>(*sample) * 32767.0, -32768.0, 32767.0);
        const auto value = static_cast<std::uint16_t>(static_cast<std::int16_t>(std::lround(scaled)));
        bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(value >> 8));
    }
    return bytes;
}

} // namespace lumenfold::film
