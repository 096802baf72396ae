#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// What the readers say about files that they cannot show as these were meant.

namespace lumenfold {

// Prints "lumenfold: FILE: text" on standard error, for each file only the first time. Nothing for an empty text.
// For the thread that loads.
void notice(const std::string& fileName, const std::string& text);

// Empty when the file begins as files of that kind do ("JPEG", "PCX", "TGA", "LightWave", "XM"), else "not a PCX file"
// and, where its first bytes show it, what it is instead. TGA files have no signature: only those of other kinds count.
std::string foreignText(const std::string& kind, const std::uint8_t* data, std::size_t size);

// "the picture is 320 x 200 pixels, not 256 x 256".
std::string otherSizeText(int width, int height, int expectedWidth, int expectedHeight);

} // namespace lumenfold
