#pragma once

#include <cstdint>

// Second bytes of the markers (T.81, table B.1).

namespace lumenfold::jpeg {

inline constexpr std::uint8_t baselineFrame = 0xC0;
inline constexpr std::uint8_t extendedFrame = 0xC1;
inline constexpr std::uint8_t lastFrame = 0xCF;
inline constexpr std::uint8_t huffmanTables = 0xC4;
inline constexpr std::uint8_t arithmeticTables = 0xCC;
inline constexpr std::uint8_t extension = 0xC8;
inline constexpr std::uint8_t startOfImage = 0xD8;
inline constexpr std::uint8_t endOfImage = 0xD9;
inline constexpr std::uint8_t startOfScan = 0xDA;
inline constexpr std::uint8_t quantisationTables = 0xDB;
inline constexpr std::uint8_t numberOfLines = 0xDC;
inline constexpr std::uint8_t restartIntervalMarker = 0xDD;

constexpr bool isRestart(std::uint8_t marker) {
    return marker >= 0xD0 && marker <= 0xD7;
}

// Whether a length and parameters follow the marker.
constexpr bool hasSegment(std::uint8_t marker) {
    return marker >= 0xC0 && !isRestart(marker) && marker != startOfImage && marker != endOfImage && marker != 0xFF;
}

} // namespace lumenfold::jpeg
