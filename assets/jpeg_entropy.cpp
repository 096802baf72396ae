#include "assets/jpeg_entropy.h"

#include <algorithm>

namespace lumenfold {

namespace {

JpegHuffmanTable::Symbol symbolOf(std::uint8_t value, int codeLength) {
    const int category = value & 15;
    return {static_cast<std::uint8_t>(codeLength), static_cast<std::uint8_t>(category),
            static_cast<std::uint8_t>(value >> 4), static_cast<std::uint8_t>(codeLength + category)};
}

} // namespace

JpegBits JpegBitReader::refillBytes(JpegBits window) {
    while (window.available <= 56) {
        window.bits |= std::uint64_t{nextByte()} << (56 - window.available);
        window.available += 8;
    }
    return window;
}

std::uint8_t JpegBitReader::nextByte() {
    while (stop == Stop::None) {
        if (next == end) {
            stop = Stop::End;
            break;
        }
        const std::uint8_t byte = *next++;
        if (byte != 0xFF)
            return byte;
        while (next != end && *next == 0xFF) // fill bytes may stand before a marker
            ++next;
        if (next == end)
            continue;
        const std::uint8_t marker = *next++;
        if (marker == 0x00)
            return 0xFF;
        skipMarker(marker);
    }
    padding += 8;
    return 0;
}

void JpegBitReader::skipMarker(std::uint8_t marker) {
    if (marker == jpeg::endOfImage || marker == jpeg::numberOfLines) {
        stop = Stop::End;
    } else if (jpeg::isRestart(marker)) {
        if (restarts)
            stop = Stop::Restart;
    } else if (jpeg::hasSegment(marker)) {
        const std::ptrdiff_t left = end - next;
        const std::ptrdiff_t length = left < 2 ? left : next[0] << 8 | next[1];
        next = length < left ? next + length : end;
    }
}

bool JpegBitReader::restart() {
    while (stop == Stop::None)
        nextByte();
    if (stop == Stop::End)
        return false;
    stop = Stop::None;
    ahead = {};
    padding = 0;
    return true;
}

bool JpegHuffmanTable::build(const std::uint8_t* counts, const std::uint8_t* values) {
    fast.fill({0, 0, 0, 0});
    auto entry = fast.begin();
    std::uint32_t code = 0;
    std::int32_t index = 0;
    for (int length = 1; length <= 16; ++length) {
        const auto i = static_cast<std::size_t>(length);
        const std::uint32_t count = counts[i - 1];
        if (code + count > (1u << length) || index + static_cast<std::int32_t>(count) > 256)
            return false;
        firstValues[i] = index - static_cast<std::int32_t>(code);
        for (std::uint32_t n = 0; n < count; ++n, ++index) {
            codeValues[static_cast<std::size_t>(index)] = values[index];
            if (length <= fastBits) // codes in ascending order fill the table from its start
                entry = std::fill_n(entry, 1 << (fastBits - length), symbolOf(values[index], length));
        }
        code += count;
        limits[i] = code << (16 - length);
        code <<= 1;
    }
    built = true;
    return true;
}

JpegHuffmanTable::Symbol JpegHuffmanTable::findLong(JpegBits bits) const {
    const std::uint32_t code = bits.peek(16);
    for (int length = fastBits + 1; length <= 16; ++length) {
        const auto i = static_cast<std::size_t>(length);
        if (code < limits[i]) {
            const std::int32_t index = static_cast<std::int32_t>(code >> (16 - length)) + firstValues[i];
            return symbolOf(codeValues[static_cast<std::size_t>(index)], length);
        }
    }
    return {0, 0, 0, 0};
}

} // namespace lumenfold
