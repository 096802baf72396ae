#pragma once

#include "assets/jpeg_entropy.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

// The tables that a file defines before its scans (T.81, B.2.4.1 and B.2.4.2).

namespace lumenfold {

// Why a file cannot be decoded, without its name.
class JpegError : public std::runtime_error {
  public:
    explicit JpegError(const std::string& reason) : std::runtime_error(reason) {}
};

// The parameters of a marker segment, within the file.
struct JpegSegment {
    const std::uint8_t* begin;
    const std::uint8_t* end;
};

inline int bigEndian16(const std::uint8_t* bytes) {
    return bytes[0] << 8 | bytes[1];
}

struct JpegQuantisation {
    bool defined = false;
    std::array<std::uint16_t, 64> steps{}; // in zig-zag order, as in the file
};

struct JpegTables {
    std::array<JpegQuantisation, 4> quantisation;
    std::array<JpegHuffmanTable, 4> dc;
    std::array<JpegHuffmanTable, 4> ac;

    // One table or several; each replaces the one of its number. Throws JpegError.
    void readHuffman(JpegSegment segment);
    void readQuantisation(JpegSegment segment);

    // Throws JpegError unless these are there. Files without Huffman tables, such as the pictures of a motion JPEG,
    // mean the standard ones, which are built then.
    void require(std::size_t dcNumber, std::size_t acNumber, int quantisationNumber);
};

} // namespace lumenfold
