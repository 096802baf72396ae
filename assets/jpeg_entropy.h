#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// Entropy-coded data: markers, bits and Huffman codes.

namespace lumenfold {

// Second bytes of the markers (T.81, table B.1).
namespace jpeg {

inline constexpr std::uint8_t baselineFrame = 0xC0;
inline constexpr std::uint8_t extendedFrame = 0xC1;
inline constexpr std::uint8_t lastFrame = 0xCF;
inline constexpr std::uint8_t huffmanTables = 0xC4;
inline constexpr std::uint8_t arithmeticTables = 0xCC;
inline constexpr std::uint8_t extension = 0xC8;
inline constexpr std::uint8_t startOfImage = 0xD8;
inline constexpr std::uint8_t endOfImage = 0xD9;
inline constexpr std::uint8_t startOfScan = 0xDA;
inline constexpr std::uint8_t adobe = 0xEE; // application segment 14
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

} // namespace jpeg

// The next bits of a scan, small enough to stay in registers while a block is read.
struct JpegBits {
    std::uint64_t bits = 0; // the next bits at the top
    int available = 0;

    std::uint32_t peek(int count) const { return static_cast<std::uint32_t>(bits >> (64 - count)); } // 1 to 32
    void drop(int count) {
        bits <<= count;
        available -= count;
    }
    // The count bits, 0 to 15, that follow the first skipped ones, as a signed number of that category (T.81, F.2.2.1,
    // EXTEND): those of a negative number are the complement of its absolute value's.
    std::int32_t extended(int skipped, int count) const {
        const std::uint64_t value = bits << skipped;
        const std::uint64_t negative = (value >> 63) - 1;
        const std::uint64_t magnitude = (value ^ negative) >> 1 >> (63 - count);
        return static_cast<std::int32_t>((magnitude ^ negative) - negative);
    }
};

// The entropy-coded data of a scan, most significant bit of each byte first, without stuffed bytes and markers.
// After the end marker, or the end of the data, every bit is 0. Reads up to 8 bytes ahead; pastEnd() is true once a bit
// has been taken that the data did not supply.
class JpegBitReader {
  public:
    // With restarts, a restart marker stops the reader until restart() is called; otherwise it is passed over.
    JpegBitReader(const std::uint8_t* begin, const std::uint8_t* dataEnd, bool withRestarts)
        : next(begin), end(dataEnd), restarts(withRestarts) {}

    // The bits read ahead, for the caller to use up, refill and put back.
    JpegBits take() const { return ahead; }
    void putBack(JpegBits window) { ahead = window; }

    // Makes at least 32 bits available.
    void refill(JpegBits& window) {
        if (window.available >= 32)
            return;
        if (stop == Stop::None && end - next >= 8) {
            const std::uint64_t word = bigEndian(next);
            if (!holdsFF(word)) {
                // The bits below the available ones are those of the next byte and will be laid over themselves.
                window.bits |= word >> window.available;
                next += (63 - window.available) >> 3;
                window.available |= 56;
                return;
            }
        }
        window = refillBytes(window);
    }

    bool pastEnd() const { return stop == Stop::End && ahead.available < padding; }

    // Continues after the next restart marker; false when there is none.
    bool restart();

  private:
    enum class Stop { None, Restart, End };

    static std::uint64_t bigEndian(const std::uint8_t* bytes) {
        const auto byte = [bytes](int i) { return std::uint64_t{bytes[i]} << (56 - 8 * i); };
        return byte(0) | byte(1) | byte(2) | byte(3) | byte(4) | byte(5) | byte(6) | byte(7); // one load and a swap
    }
    static bool holdsFF(std::uint64_t word) {
        return ((~word - 0x0101010101010101u) & word & 0x8080808080808080u) != 0;
    }
    JpegBits refillBytes(JpegBits window);
    std::uint8_t nextByte();
    void skipMarker(std::uint8_t marker);

    const std::uint8_t* next;
    const std::uint8_t* end;
    JpegBits ahead;
    std::int64_t padding = 0; // zero bits added since the reader stopped
    Stop stop = Stop::None;
    bool restarts;
};

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

    // The table that T.81 (K.3) offers for luminance or chrominance.
    void buildStandard(bool ac, bool chrominance);

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
