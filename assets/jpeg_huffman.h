#pragma once

#include "assets/jpeg_bits.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace lumenfold {

// A Huffman table (T.81, annex C and F.2.2.3) with a direct look-up of the short codes.
class JpegHuffmanTable {
  public:
    static constexpr int fastBits = 10;

    // An AC code together with the value that follows it, where both fit into fastBits bits.
    struct Coefficient {
        std::int16_t value;
        std::uint8_t run;
        std::uint8_t length; // of both, 0: does not fit
    };

    // counts: 16 numbers of codes of the lengths 1 to 16; values: as many as these add up to, at most 256.
    // False when the lengths do not form a code.
    bool build(const std::uint8_t* counts, const std::uint8_t* values);

    bool defined() const { return built; }

    // The next value; -1 when the bits are no code. Takes at most 16 bits.
    int decode(JpegBits& bits) const {
        const Entry entry = fast[bits.peek(fastBits)];
        if (entry.length == 0)
            return decodeLong(bits);
        bits.drop(entry.length);
        return entry.value;
    }

    const Coefficient& coefficient(const JpegBits& bits) const { return coefficients[bits.peek(fastBits)]; }

  private:
    struct Entry {
        std::uint8_t value;
        std::uint8_t length; // 0: a longer code
    };

    int decodeLong(JpegBits& bits) const;
    void buildFast(const std::uint8_t* counts);
    void buildCoefficients();

    bool built = false;
    std::array<Entry, 1 << fastBits> fast;
    std::array<Coefficient, 1 << fastBits> coefficients;
    std::array<std::uint32_t, 17> limits;       // by length: one past its last code, moved up to 16 bits
    std::array<std::int32_t, 17> firstValues;   // by length: index of its first value less its first code
    std::array<std::uint8_t, 256> codeValues{}; // in order of the codes
};

} // namespace lumenfold
