// The entropy-coded data of the scan (T.81, F.2.2) into component planes.

#include "assets/jpeg.h"
#include "assets/jpeg_kernels.h"
#include "assets/jpeg_transform.h"
#include "core/convert.h"

#include <algorithm>

namespace lumenfold {

namespace {

// Natural position of each coefficient in the order of the file (T.81, figure A.6).
constexpr std::array<std::uint8_t, 64> zigzag = {0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,
                                                 12, 19, 26, 33, 40, 48, 41, 34, 27, 20, 13, 6,  7,  14, 21, 28,
                                                 35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23, 30, 37, 44, 51,
                                                 58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

constexpr int longestRun = 15; // with no value behind it: 16 zeros; any other run without one ends the block

struct BlockTables {
    const JpegHuffmanTable& dc;
    const JpegHuffmanTable& ac;
    const std::array<std::uint16_t, 64>& steps;
};

void setCoefficient(JpegBlock& block, std::size_t k, std::int32_t value, std::uint16_t step) {
    block.coefficients[zigzag[k]] = wrapMul(value, step);
}

// Reads the coefficients of one block, which is all zeros; false when the data is no code.
bool readCoefficients(JpegBitReader& reader, JpegBits& bits, const BlockTables& tables, std::int32_t& predictor,
                      JpegBlock& block) {
    using Symbol = JpegHuffmanTable::Symbol;
    reader.refill(bits);
    const Symbol first = tables.dc.find(bits);
    if (first.codeLength == 0 || first.run != 0)
        return false;
    predictor = wrapAdd(predictor, bits.extended(first.codeLength, first.category));
    bits.drop(first.length);
    setCoefficient(block, 0, predictor, tables.steps[0]);
    int count = 1;
    for (std::size_t k = 1; k < 64; ++k) {
        reader.refill(bits);
        const Symbol symbol = tables.ac.find(bits);
        const std::int32_t value = bits.extended(symbol.codeLength, symbol.category);
        bits.drop(symbol.length);
        k += symbol.run;
        if (symbol.category == 0) {
            if (symbol.codeLength == 0)
                return false;
            if (symbol.run != longestRun)
                break;
            continue;
        }
        if (k > 63)
            break;
        setCoefficient(block, k, value, tables.steps[k]);
        ++count;
    }
    block.count = count;
    return true;
}

bool decodeBlock(JpegBitReader& reader, const BlockTables& tables, std::int32_t& predictor, JpegBlock& block) {
    block.coefficients.fill(0);
    JpegBits bits = reader.take();
    const bool good = readCoefficients(reader, bits, tables, predictor, block);
    reader.putBack(bits);
    return good;
}

} // namespace

// Damage ends an interval early, and the scan where there are no intervals.
void JpegDecoder::decodeScan() {
    JpegBitReader reader(position, end, restartInterval != 0);
    const std::size_t units = frame.unitsAcross * frame.unitsDown;
    const std::size_t interval = restartInterval != 0 ? restartInterval : units;
    for (std::size_t first = 0; first < units; first += interval) {
        if (first != 0 && !reader.restart())
            return;
        for (JpegScanComponent& part : scan)
            part.predictor = 0;
        const std::size_t last = std::min(first + interval, units);
        for (std::size_t unit = first; unit < last && decodeUnit(reader, unit); ++unit)
            if (reader.pastEnd())
                return;
    }
}

// The blocks of one minimum coded unit; false when the data is no code. A single component has as many of them as its
// sampling factors say, where T.81 (A.2.2) has one: grey pictures are to be written with factors 1 x 1.
bool JpegDecoder::decodeUnit(JpegBitReader& reader, std::size_t unit) {
    const auto transform = jpegKernels().transform;
    const std::size_t unitRow = unit / frame.unitsAcross;
    const std::size_t unitColumn = unit % frame.unitsAcross;
    JpegBlock block;
    for (JpegScanComponent& part : scan) {
        JpegComponent& component = frame.components[part.component];
        const BlockTables tables{dcTables[static_cast<std::size_t>(part.dcTable)],
                                 acTables[static_cast<std::size_t>(part.acTable)],
                                 quantisation[static_cast<std::size_t>(component.quantisation)].steps};
        const auto across = static_cast<std::size_t>(component.horizontal);
        const auto down = static_cast<std::size_t>(component.vertical);
        for (std::size_t by = 0; by < down; ++by)
            for (std::size_t bx = 0; bx < across; ++bx) {
                if (!decodeBlock(reader, tables, part.predictor, block))
                    return false;
                const std::size_t row = (unitRow * down + by) * 8;
                const std::size_t column = (unitColumn * across + bx) * 8;
                transform(block, component.samples.data() + row * component.stride + column, component.stride);
            }
    }
    return true;
}

} // namespace lumenfold
