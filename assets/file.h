#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace lumenfold {

// No file of the show comes near this; what a longer file holds behind it is not read.
inline constexpr std::size_t longestFile = std::size_t{64} << 20;

// The first bytes of a file, at most limit of them, read in one go; nothing when the file cannot be opened.
std::optional<std::vector<std::uint8_t>> readFile(const char* fileName, std::size_t limit = longestFile);

// The same for files that the demo cannot do without: throws DynamicError with the file name as its message.
std::vector<std::uint8_t> requireFile(const char* fileName, std::size_t limit = longestFile);

} // namespace lumenfold
