#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

namespace lumenfold {

// Reads big-endian values from a block of memory and never beyond its end: what is missing reads as zero bytes.
// The memory is the caller's and must outlive the reader.
class BigEndianReader {
  public:
    BigEndianReader(const std::uint8_t* bytes, std::size_t size) : next(bytes), left(size) {}

    std::size_t remaining() const { return left; }
    void skip(std::size_t count) { take(count); }

    // The next bytes, or as many as are left, as a reader of their own; this one continues after them.
    BigEndianReader take(std::size_t count) {
        count = std::min(count, left);
        const BigEndianReader part(next, count);
        next += count;
        left -= count;
        return part;
    }

    // The next byte without stepping over it.
    std::uint8_t peek() const { return left > 0 ? *next : std::uint8_t{0}; }

    std::uint8_t readU8() {
        const std::uint8_t byte = peek();
        skip(1);
        return byte;
    }
    std::uint16_t readU16() {
        const unsigned high = readU8();
        return static_cast<std::uint16_t>(high << 8 | readU8());
    }
    std::int16_t readI16() { return static_cast<std::int16_t>(readU16()); }
    std::uint32_t readU32() {
        const std::uint32_t high = readU16();
        return high << 16 | readU16();
    }
    float readFloat() {
        const std::uint32_t bits = readU32();
        float value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    // Four characters; fewer where a zero byte or the end comes first.
    std::string readIdentifier() {
        const BigEndianReader part = take(4);
        const std::uint8_t* end = std::find(part.next, part.next + part.left, std::uint8_t{0});
        return std::string(part.next, end);
    }

    // A text up to its zero byte, with one more zero byte skipped where one follows (names are padded to an even
    // length). Nothing, and nothing consumed, when it has no end.
    std::optional<std::string> readName() {
        const std::uint8_t* end = std::find(next, next + left, std::uint8_t{0});
        if (end == next + left)
            return std::nullopt;
        std::string name(next, end);
        skip(name.size() + 1);
        skipPadByte();
        return name;
    }

    // Steps over one byte if there is one and it is zero.
    void skipPadByte() {
        if (left > 0 && *next == 0)
            skip(1);
    }

  private:
    const std::uint8_t* next;
    std::size_t left;
};

} // namespace lumenfold
