#pragma once

#include "assets/jpeg_bits.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace lumenfold {

// A Huffman table (T.81, annex C and F.2.2.3) with a direct look-up of the short codes.
class JpegHuffmanTable {
  public:
    // What a code says: how many zeros stand before a coefficient, and how many bits of its value follow the code.
    struct Symbol {
        std::uint8_t codeLength; // 0: the bits are no code
        std::uint8_t category;
        std::uint8_t run;
        std::uint8_t length; // of code and value together
    };

    // counts: 16 numbers of codes of the lengths 1 to 16; values: as many as these add up to, at most 256.
    // False when the lengths do not form a code.
    bool build(const std::uint8_t* counts, const std::uint8_t* values);

    bool defined() const { return built; }

    // The next code, which stays in the bits; at least 16 must be available.
    Symbol find(JpegBits bits) const {
        const Symbol symbol = fast[bits.peek(fastBits)];
        return symbol.codeLength != 0 ? symbol : findLong(bits);
    }

  private:
    static constexpr int fastBits = 10;

    Symbol findLong(JpegBits bits) const;

    bool built = false;
    std::array<Symbol, 1 << fastBits> fast;
    std::array<std::uint32_t, 17> limits;       // by length: one past its last code, moved up to 16 bits
    std::array<std::int32_t, 17> firstValues;   // by length: index of its first value less its first code
    std::array<std::uint8_t, 256> codeValues{}; // in order of the codes
};

} // namespace lumenfold
