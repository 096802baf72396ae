#pragma once

#include <cstddef>
#include <cstdint>

namespace lumenfold {

// The next bits of a scan, small enough to stay in registers while a block is read.
struct JpegBits {
    std::uint64_t bits = 0; // the next bits at the top
    int available = 0;

    std::uint32_t peek(int count) const { return static_cast<std::uint32_t>(bits >> (64 - count)); } // 1 to 32
    void drop(int count) {
        bits <<= count;
        available -= count;
    }
    // The next count bits, 0 to 15, as a signed number of that category (T.81, F.2.2.1, EXTEND).
    std::int32_t takeExtended(int count) {
        if (count == 0)
            return 0;
        const auto value = static_cast<std::int32_t>(peek(count));
        drop(count);
        return value < (1 << (count - 1)) ? value - (1 << count) + 1 : value;
    }
};

// The entropy-coded data of a scan, most significant bit of each byte first, without stuffed bytes and markers.
// Behind the end marker, or the end of the data, every bit is 0. Reads up to 8 bytes ahead; pastEnd() tells when a
// bit has been taken that the data did not supply.
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

    // Goes on behind the next restart marker; false when there is none.
    bool restart();

  private:
    enum class Stop { None, Restart, End };

    static std::uint64_t bigEndian(const std::uint8_t* bytes) {
        std::uint64_t word = 0;
        for (int i = 0; i < 8; ++i)
            word = word << 8 | bytes[i];
        return word;
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

} // namespace lumenfold
