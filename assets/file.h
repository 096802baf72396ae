#pragma once

#include "core/dynamic_error.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lumenfold {

// Far more than any file of the show; the rest of a longer file is not read.
inline constexpr std::size_t longestFile = std::size_t{64} << 20;

// A file that cannot be read. The message is the file name alone.
class FileError : public DynamicError {
  public:
    FileError(const std::string& fileName, int theReason) : DynamicError(fileName), reason(theReason) {}
    const int reason; // errno of the attempt
};

// The first bytes of a file, at most limit of them, read in one go; nothing, with the reason in errno, when the file
// cannot be opened.
std::optional<std::vector<std::uint8_t>> readFile(const char* fileName, std::size_t limit = longestFile);

// The same for files that the demo cannot do without: throws FileError.
std::vector<std::uint8_t> requireFile(const char* fileName, std::size_t limit = longestFile);

inline int littleEndian16(const std::uint8_t* bytes) {
    return bytes[0] | bytes[1] << 8;
}

// Why a file was not read, for the user: "not found in FOLDER", "cannot be read in FOLDER: Permission denied". reason:
// the errno of the attempt.
std::string unreadableText(const std::string& fileName, int reason);

} // namespace lumenfold
