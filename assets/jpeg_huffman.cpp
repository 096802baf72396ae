#include "assets/jpeg_huffman.h"

#include <algorithm>

namespace lumenfold {

bool JpegHuffmanTable::build(const std::uint8_t* counts, const std::uint8_t* values) {
    std::uint32_t code = 0;
    std::int32_t index = 0;
    for (std::size_t length = 1; length <= 16; ++length) {
        const std::uint32_t count = counts[length - 1];
        if (code + count > (1u << length) || index + static_cast<std::int32_t>(count) > 256)
            return false;
        firstValues[length] = index - static_cast<std::int32_t>(code);
        index += static_cast<std::int32_t>(count);
        code += count;
        limits[length] = code << (16 - length);
        code <<= 1;
    }
    std::copy_n(values, index, codeValues.begin());
    buildFast(counts);
    buildCoefficients();
    built = true;
    return true;
}

void JpegHuffmanTable::buildFast(const std::uint8_t* counts) {
    fast.fill({0, 0});
    auto entry = fast.begin();
    std::size_t index = 0;
    for (int length = 1; length <= fastBits; ++length) // codes in ascending order fill the table from its start
        for (int i = 0; i < counts[length - 1]; ++i, ++index)
            entry = std::fill_n(entry, 1 << (fastBits - length),
                                Entry{codeValues[index], static_cast<std::uint8_t>(length)});
}

void JpegHuffmanTable::buildCoefficients() {
    for (int bits = 0; bits < 1 << fastBits; ++bits) {
        const Entry entry = fast[static_cast<std::size_t>(bits)];
        const int category = entry.value & 15;
        const int length = entry.length + category;
        Coefficient& coefficient = coefficients[static_cast<std::size_t>(bits)];
        coefficient = {0, 0, 0};
        if (entry.length == 0 || category == 0 || length > fastBits)
            continue;
        const int value = (bits >> (fastBits - length)) & ((1 << category) - 1);
        const int extended = value < (1 << (category - 1)) ? value - (1 << category) + 1 : value;
        coefficient = {static_cast<std::int16_t>(extended), static_cast<std::uint8_t>(entry.value >> 4),
                       static_cast<std::uint8_t>(length)};
    }
}

int JpegHuffmanTable::decodeLong(JpegBits& bits) const {
    const std::uint32_t code = bits.peek(16);
    for (int length = fastBits + 1; length <= 16; ++length) {
        const auto i = static_cast<std::size_t>(length);
        if (code < limits[i]) {
            bits.drop(length);
            return codeValues[static_cast<std::size_t>(static_cast<std::int32_t>(code >> (16 - length)) +
                                                       firstValues[i])];
        }
    }
    return -1;
}

} // namespace lumenfold
