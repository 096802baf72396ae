#include "assets/jpeg_tables.h"

namespace lumenfold {

void JpegTables::readHuffman(JpegSegment segment) {
    while (segment.begin != segment.end) {
        if (segment.end - segment.begin < 17)
            throw JpegError("Huffman table cut short");
        const int tableClass = segment.begin[0] >> 4;
        const int number = segment.begin[0] & 15;
        const std::uint8_t* counts = segment.begin + 1;
        int values = 0;
        for (int i = 0; i < 16; ++i)
            values += counts[i];
        segment.begin += 17;
        if (tableClass > 1 || number > 3)
            throw JpegError("Huffman table with a number that does not exist");
        if (segment.end - segment.begin < values)
            throw JpegError("Huffman table cut short");
        auto& tables = tableClass == 0 ? dc : ac;
        if (!tables[static_cast<std::size_t>(number)].build(counts, segment.begin))
            throw JpegError("Huffman table that is not a code");
        segment.begin += values;
    }
}

void JpegTables::readQuantisation(JpegSegment segment) {
    while (segment.begin != segment.end) {
        const int number = segment.begin[0] & 15;
        const bool wide = (segment.begin[0] >> 4) != 0;
        ++segment.begin;
        // What calls itself 16-bit but has room for 8-bit steps only is taken as such.
        const int bytes = wide && segment.end - segment.begin >= 128 ? 2 : 1;
        if (number > 3)
            throw JpegError("quantisation table with a number that does not exist");
        if (segment.end - segment.begin < 64 * bytes)
            throw JpegError("quantisation table cut short");
        JpegQuantisation& table = quantisation[static_cast<std::size_t>(number)];
        for (std::uint16_t& step : table.steps) {
            step = static_cast<std::uint16_t>(bytes == 2 ? bigEndian16(segment.begin) : segment.begin[0]);
            segment.begin += bytes;
        }
        table.defined = true;
    }
}

void JpegTables::require(std::size_t dcNumber, std::size_t acNumber, int quantisationNumber) {
    const auto requireHuffman = [](std::array<JpegHuffmanTable, 4>& tables, std::size_t number, bool isAc) {
        if (number < 2 && !tables[number].defined())
            tables[number].buildStandard(isAc, number == 1);
        if (number > 3 || !tables[number].defined())
            throw JpegError("Huffman table missing");
    };
    requireHuffman(dc, dcNumber, false);
    requireHuffman(ac, acNumber, true);
    if (!quantisation[static_cast<std::size_t>(quantisationNumber)].defined)
        throw JpegError("quantisation table missing");
}

} // namespace lumenfold
