#include "assets/jpeg.h"

#include "assets/file.h"
#include "assets/jpeg_entropy.h"
#include "assets/jpeg_kernels.h"
#include "assets/jpeg_planes.h"
#include "assets/jpeg_tables.h"
#include "assets/jpeg_transform.h"
#include "assets/notice.h"
#include "core/convert.h"
#include "core/dynamic_error.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace lumenfold {

namespace {

struct JpegScanComponent {
    std::size_t component; // index in the frame
    std::size_t dcTable;
    std::size_t acTable;
    std::size_t blocksAcross = 1; // in a coded unit
    std::size_t blocksDown = 1;
    std::int32_t predictor = 0;
};

// Decodes one file: tables, frame and scan headers (T.81, annex B), then the entropy-coded data (F.2.2). The data must
// stay valid during construction only.
class JpegDecoder {
  public:
    // Decodes all of it into component planes. Only a frame of width x height is accepted, and nothing is allocated
    // for any other. Throws JpegError.
    JpegDecoder(const std::uint8_t* data, std::size_t size, std::int32_t width, std::int32_t height)
        : position(data), end(data + size), expectedWidth(width), expectedHeight(height) {
        parse();
    }

    // Writes the picture; nothing when the file held none.
    void convert(Pixel32* destination) { convertPlanes(frame, destination); }

    // What the picture lacks, empty when it is whole.
    std::string remark() const;

  private:
    void parse();
    void readMarker(std::uint8_t marker);
    JpegSegment takeSegment();
    void readFrame(JpegSegment segment);
    void readScan(JpegSegment segment);
    std::size_t takeComponent(std::uint8_t identifier);
    void layOutUnits();
    const std::uint8_t* nextSegment() const;
    void decodeScan(const std::uint8_t* dataEnd);
    bool decodeUnit(JpegBitReader& reader, std::size_t unit);

    const std::uint8_t* position;
    const std::uint8_t* end;
    std::int32_t expectedWidth;
    std::int32_t expectedHeight;
    bool done = false;               // no more segments: end marker, end of the data, or every component is decoded
    bool cutShort = false;           // the data of a scan ended early
    bool unconverted = false;        // an Adobe marker says that the components are red, green and blue
    bool damaged = false;            // the data of a scan held bits that are no code
    std::size_t restartInterval = 0; // minimum coded units between restart markers, 0: none
    JpegFrame frame;
    std::array<bool, 4> scanned{}; // by component of the frame: it has had its scan
    std::size_t scannedCount = 0;
    std::vector<JpegScanComponent> scan;
    std::size_t unitsAcross = 0; // of the scan
    std::size_t unitsDown = 0;
    JpegTables tables;
};

std::string hexadecimal(std::uint8_t value) {
    constexpr char digits[] = "0123456789ABCDEF";
    return {digits[value >> 4], digits[value & 15]};
}

// Names the coding process of a frame marker that is not decoded.
std::string unsupportedFrame(std::uint8_t marker) {
    if (marker >= 0xC9)
        return "arithmetic coding is not supported";
    if (marker == 0xC2)
        return "progressive JPEG is not supported";
    return "JPEG frame type FF" + hexadecimal(marker) + " is not supported";
}

// Room for whole coded units of size 8 x factor, and for a column or row of zeros after the part that counts.
std::size_t paddedSamples(std::size_t units, int factor) {
    return units * static_cast<std::size_t>(factor) * 8 + 2;
}

// Black until the scan says otherwise: luminance and the fourth component 0, chrominance in its middle.
constexpr std::array<std::uint8_t, 4> undecoded = {0, 128, 128, 0};

// The file is one start marker and what follows it; any other beginning holds no picture.
void JpegDecoder::parse() {
    if (end - position < 2 || position[0] != 0xFF || position[1] != jpeg::startOfImage)
        return;
    while (!done) {
        while (end - position >= 2 && !(position[0] == 0xFF && position[1] != 0xFF && position[1] != 0x00))
            ++position; // bytes between segments, fill bytes among them
        if (end - position < 2)
            return;
        const std::uint8_t marker = position[1];
        position += 2;
        readMarker(marker);
    }
}

void JpegDecoder::readMarker(std::uint8_t marker) {
    if (marker == jpeg::startOfImage)
        restartInterval = 0;
    if (marker == jpeg::endOfImage)
        done = true;
    if (!jpeg::hasSegment(marker))
        return;
    const JpegSegment segment = takeSegment();
    if (done)
        return;
    if (marker == jpeg::huffmanTables)
        tables.readHuffman(segment);
    else if (marker == jpeg::quantisationTables)
        tables.readQuantisation(segment);
    else if (marker == jpeg::restartIntervalMarker && segment.end - segment.begin >= 2)
        restartInterval = static_cast<std::size_t>(bigEndian16(segment.begin));
    else if (marker == jpeg::adobe && segment.end - segment.begin >= 12)
        unconverted = std::memcmp(segment.begin, "Adobe", 5) == 0 && segment.begin[11] == 0;
    else if (marker == jpeg::baselineFrame || marker == jpeg::extendedFrame)
        readFrame(segment);
    else if (marker >= jpeg::baselineFrame && marker <= jpeg::lastFrame && marker != jpeg::arithmeticTables &&
             marker != jpeg::extension)
        throw JpegError(unsupportedFrame(marker));
    else if (marker == jpeg::startOfScan)
        readScan(segment);
}

// The parameters of the segment whose length stands at the position, which moves to its end. A segment that the file
// does not hold whole ends the parsing.
JpegSegment JpegDecoder::takeSegment() {
    const std::ptrdiff_t left = end - position;
    const int length = left < 2 ? 2 : bigEndian16(position);
    if (length < 2)
        throw JpegError("segment shorter than its length field");
    if (left < length) {
        done = true;
        return {end, end};
    }
    const JpegSegment segment{position + 2, position + length};
    position += length;
    return segment;
}

void JpegDecoder::readFrame(JpegSegment segment) {
    if (frame.width != 0)
        throw JpegError("more than one frame");
    if (segment.end - segment.begin < 6)
        throw JpegError("frame header cut short");
    const std::uint8_t* fields = segment.begin;
    const int precision = fields[0];
    const int height = bigEndian16(fields + 1);
    const int width = bigEndian16(fields + 3);
    const std::size_t count = fields[5];
    if (precision != 8)
        throw JpegError(std::to_string(precision) + "-bit samples are not supported");
    if (width != expectedWidth || height != expectedHeight || width == 0 || height == 0)
        throw JpegError(otherSizeText(width, height, expectedWidth, expectedHeight));
    if (count > 4)
        throw JpegError("more than four components");
    if (static_cast<std::size_t>(segment.end - fields) < 6 + 3 * count)
        throw JpegError("frame header cut short");
    frame.width = width;
    frame.height = height;
    frame.components.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        JpegComponent& component = frame.components[i];
        const std::uint8_t* entry = fields + 6 + 3 * i;
        component.identifier = entry[0];
        component.horizontal = entry[1] >> 4;
        component.vertical = entry[1] & 15;
        component.quantisation = entry[2];
        if (component.horizontal < 1 || component.horizontal > 4 || component.vertical < 1 || component.vertical > 4)
            throw JpegError("sampling factor outside 1 to 4");
        if (component.quantisation > 3)
            throw JpegError("quantisation table with a number that does not exist");
        frame.horizontalMax = std::max(frame.horizontalMax, component.horizontal);
        frame.verticalMax = std::max(frame.verticalMax, component.vertical);
    }
    const auto units = [](int samples, int factor) {
        return static_cast<std::size_t>(((samples + 7) / 8 + factor - 1) / factor);
    };
    frame.unitsAcross = units(width, frame.horizontalMax);
    frame.unitsDown = units(height, frame.verticalMax);
    for (std::size_t i = 0; i < count; ++i) {
        JpegComponent& component = frame.components[i];
        component.width = component.horizontal * width / frame.horizontalMax;
        component.height = component.vertical * height / frame.verticalMax;
        component.stride = paddedSamples(frame.unitsAcross, component.horizontal);
        component.samples.assign(component.stride * paddedSamples(frame.unitsDown, component.vertical), undecoded[i]);
    }
}

void JpegDecoder::readScan(JpegSegment segment) {
    if (frame.components.empty()) { // nothing to decode into
        done = true;
        return;
    }
    const std::size_t count = segment.begin == segment.end ? 0 : segment.begin[0];
    if (count == 0 || count > frame.components.size())
        throw JpegError("scan of components that the frame does not have");
    if (static_cast<std::size_t>(segment.end - segment.begin) < 1 + 2 * count)
        throw JpegError("scan header cut short");
    scan.clear();
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t* entry = segment.begin + 1 + 2 * i;
        scan.push_back({.component = takeComponent(entry[0]),
                        .dcTable = static_cast<std::size_t>(entry[1] >> 4),
                        .acTable = static_cast<std::size_t>(entry[1] & 15)});
    }
    layOutUnits();
    for (const JpegScanComponent& part : scan)
        tables.require(part.dcTable, part.acTable, frame.components[part.component].quantisation);
    if (count == frame.components.size()) {
        decodeScan(end); // markers within the data are passed over
    } else {
        const std::uint8_t* next = nextSegment();
        decodeScan(next);
        position = next;
    }
    done = scannedCount == frame.components.size(); // nothing after the last scan belongs to the picture
}

// The first component of that number which has had no scan: some files give all components the same number.
std::size_t JpegDecoder::takeComponent(std::uint8_t identifier) {
    for (std::size_t c = 0; c < frame.components.size(); ++c)
        if (frame.components[c].identifier == identifier && !scanned[c]) {
            scanned[c] = true;
            ++scannedCount;
            return c;
        }
    throw JpegError("scan of components that the frame does not have");
}

// T.81, A.2: one component of several has a block to the unit and only as many as its samples need. That a picture's
// only component would be coded so too is not followed: grey pictures are to be written with factors 1 x 1.
void JpegDecoder::layOutUnits() {
    if (scan.size() == 1 && frame.components.size() > 1) {
        const JpegComponent& component = frame.components[scan[0].component];
        const auto blocks = [](int size, int factor, int largest) {
            const int samples = (size * factor + largest - 1) / largest;
            return static_cast<std::size_t>((samples + 7) / 8);
        };
        unitsAcross = blocks(frame.width, component.horizontal, frame.horizontalMax);
        unitsDown = blocks(frame.height, component.vertical, frame.verticalMax);
        return;
    }
    unitsAcross = frame.unitsAcross;
    unitsDown = frame.unitsDown;
    for (JpegScanComponent& part : scan) {
        part.blocksAcross = static_cast<std::size_t>(frame.components[part.component].horizontal);
        part.blocksDown = static_cast<std::size_t>(frame.components[part.component].vertical);
    }
}

// Where the data that begins at the position ends: at the next marker other than a restart.
const std::uint8_t* JpegDecoder::nextSegment() const {
    for (const std::uint8_t* next = position; end - next >= 2; ++next)
        if (next[0] == 0xFF && next[1] != 0x00 && next[1] != 0xFF && !jpeg::isRestart(next[1]))
            return next;
    return end;
}

// Natural position of each coefficient in the order of the file (T.81, figure A.6).
constexpr std::array<std::uint8_t, 64> zigzag = {0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,
                                                 12, 19, 26, 33, 40, 48, 41, 34, 27, 20, 13, 6,  7,  14, 21, 28,
                                                 35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23, 30, 37, 44, 51,
                                                 58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

constexpr int longestRun = 15; // without a value after it: 16 zeros; any other run without one ends the block

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

// Damage ends an interval early, and the scan where there are no intervals.
void JpegDecoder::decodeScan(const std::uint8_t* dataEnd) {
    // Programs that rewrite the data may leave the interval in the header without a single restart marker.
    const bool restarts = restartInterval != 0 && JpegBitReader(position, dataEnd, true).restart();
    JpegBitReader reader(position, dataEnd, restarts);
    const std::size_t units = unitsAcross * unitsDown;
    const std::size_t interval = restarts ? restartInterval : units;
    for (std::size_t first = 0; first < units; first += interval) {
        if (first != 0 && !reader.restart()) {
            cutShort = true;
            return;
        }
        for (JpegScanComponent& part : scan)
            part.predictor = 0;
        const std::size_t last = std::min(first + interval, units);
        for (std::size_t unit = first; unit < last; ++unit) {
            if (!decodeUnit(reader, unit)) {
                damaged = true;
                break;
            }
            if (reader.pastEnd()) {
                cutShort = true;
                return;
            }
        }
    }
}

// The blocks of one minimum coded unit; false when the data is no code.
bool JpegDecoder::decodeUnit(JpegBitReader& reader, std::size_t unit) {
    const std::size_t unitRow = unit / unitsAcross;
    const std::size_t unitColumn = unit % unitsAcross;
    JpegBlock block;
    for (JpegScanComponent& part : scan) {
        JpegComponent& component = frame.components[part.component];
        const BlockTables blockTables{tables.dc[part.dcTable], tables.ac[part.acTable],
                                      tables.quantisation[static_cast<std::size_t>(component.quantisation)].steps};
        for (std::size_t by = 0; by < part.blocksDown; ++by)
            for (std::size_t bx = 0; bx < part.blocksAcross; ++bx) {
                if (!decodeBlock(reader, blockTables, part.predictor, block))
                    return false;
                const std::size_t row = (unitRow * part.blocksDown + by) * 8;
                const std::size_t column = (unitColumn * part.blocksAcross + bx) * 8;
                jpegTransform(block, component.samples.data() + row * component.stride + column, component.stride);
            }
    }
    return true;
}

std::string JpegDecoder::remark() const {
    if (frame.components.empty())
        return "no picture in this JPEG file; nothing is drawn";
    if (damaged)
        return "the data is damaged; parts of the picture are missing";
    if (cutShort || scannedCount < frame.components.size())
        return "the file ends early; the rest of the picture is missing";
    const JpegComponent& first = frame.components[0];
    if (frame.components.size() == 4)
        return "CMYK pictures are not supported; the colours are wrong";
    if (frame.components.size() == 3 && unconverted)
        return "RGB in JPEG is not supported; the colours are wrong";
    if (frame.components.size() == 1 && (first.horizontal > 1 || first.vertical > 1))
        return "sampling factors in a grey picture are not supported; its blocks are in the wrong places";
    return "";
}

} // namespace

std::string decodeJpegFile(const std::uint8_t* data, std::size_t size, const std::string& fileName,
                           Pixel32* destination, FrameInfo target) {
    try {
        JpegDecoder decoder(data, size, target.width, target.height);
        decoder.convert(destination);
        return decoder.remark();
    } catch (const JpegError& error) {
        throw DynamicError(fileName + ": " + error.what());
    }
}

void readJpegFile(const char* fileName, Pixel32* destination, std::int32_t, std::int32_t, FrameInfo target,
                  std::int32_t) {
    const std::vector<std::uint8_t> file = requireFile(fileName);
    const std::string remark = decodeJpegFile(file.data(), file.size(), fileName, destination, target);
    const std::string foreign = foreignText("JPEG", file.data(), file.size());
    notice(fileName, foreign.empty() ? remark : foreign + "; nothing is drawn");
}

} // namespace lumenfold
