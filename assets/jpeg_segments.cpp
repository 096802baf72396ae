// The marker segments of a file: tables, frame and scan headers (T.81, annex B).

#include "assets/jpeg.h"
#include "assets/jpeg_markers.h"

#include <algorithm>

namespace lumenfold {

namespace {

std::string hexadecimal(std::uint8_t value) {
    constexpr char digits[] = "0123456789ABCDEF";
    return {digits[value >> 4], digits[value & 15]};
}

std::string sizeText(int width, int height) {
    return std::to_string(width) + " x " + std::to_string(height);
}

int bigEndian16(const std::uint8_t* bytes) {
    return bytes[0] << 8 | bytes[1];
}

// Names the coding process of a frame marker that is not decoded.
std::string unsupportedFrame(std::uint8_t marker) {
    if (marker >= 0xC9)
        return "arithmetic coding is not supported";
    if (marker == 0xC2)
        return "progressive JPEG is not supported";
    return "JPEG frame type FF" + hexadecimal(marker) + " is not supported";
}

// Room for whole coded units of size 8 x factor, and for the column or row of zeros behind the part that counts.
std::size_t paddedSamples(std::size_t units, int factor) {
    return units * static_cast<std::size_t>(factor) * 8 + 2;
}

// Black until the scan says otherwise: luminance and the fourth component 0, chrominance in its middle.
constexpr std::array<std::uint8_t, 4> undecoded = {0, 128, 128, 0};

} // namespace

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
    const Segment segment = takeSegment();
    if (done)
        return;
    if (marker == jpeg::huffmanTables)
        readHuffmanTables(segment);
    else if (marker == jpeg::quantisationTables)
        readQuantisationTables(segment);
    else if (marker == jpeg::restartIntervalMarker && segment.end - segment.begin >= 2)
        restartInterval = static_cast<std::size_t>(bigEndian16(segment.begin));
    else if (marker == jpeg::baselineFrame || marker == jpeg::extendedFrame)
        readFrame(segment);
    else if (marker >= jpeg::baselineFrame && marker <= jpeg::lastFrame && marker != jpeg::arithmeticTables &&
             marker != jpeg::extension)
        throw JpegError(unsupportedFrame(marker));
    else if (marker == jpeg::startOfScan)
        readScan(segment);
}

// The parameters of the segment whose length stands at the position, which moves behind it. A segment that the file
// does not hold whole ends the parsing.
JpegDecoder::Segment JpegDecoder::takeSegment() {
    const std::ptrdiff_t left = end - position;
    const int length = left < 2 ? 2 : bigEndian16(position);
    if (length < 2)
        throw JpegError("segment shorter than its length field");
    if (left < length) {
        done = true;
        return {end, end};
    }
    const Segment segment{position + 2, position + length};
    position += length;
    return segment;
}

void JpegDecoder::readHuffmanTables(Segment segment) {
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
        auto& tables = tableClass == 0 ? dcTables : acTables;
        if (!tables[static_cast<std::size_t>(number)].build(counts, segment.begin))
            throw JpegError("Huffman table that is not a code");
        segment.begin += values;
    }
}

void JpegDecoder::readQuantisationTables(Segment segment) {
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

void JpegDecoder::readFrame(Segment segment) {
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
        throw JpegError("the picture is " + sizeText(width, height) + " pixels, not " +
                        sizeText(expectedWidth, expectedHeight));
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

void JpegDecoder::readScan(Segment segment) {
    if (frame.components.empty()) { // nothing to decode into
        done = true;
        return;
    }
    const std::size_t count = segment.begin == segment.end ? 0 : segment.begin[0];
    if (count != frame.components.size())
        throw JpegError("scans that do not hold every component are not supported");
    if (static_cast<std::size_t>(segment.end - segment.begin) < 1 + 2 * count)
        throw JpegError("scan header cut short");
    std::array<bool, 4> taken{};
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t* entry = segment.begin + 1 + 2 * i;
        const auto found = std::find_if(frame.components.begin(), frame.components.end(),
                                        [&](const JpegComponent& c) { return c.identifier == entry[0]; });
        const auto component = static_cast<std::size_t>(found - frame.components.begin());
        if (found == frame.components.end() || taken[component])
            throw JpegError("scan of components that the frame does not have");
        taken[component] = true;
        scan.push_back({component, entry[1] >> 4, entry[1] & 15, 0});
    }
    checkTables();
    decodeScan();
    done = true; // every component is there: nothing behind the scan belongs to the picture
}

void JpegDecoder::checkTables() const {
    for (const JpegScanComponent& part : scan) {
        if (part.dcTable > 3 || part.acTable > 3 || !dcTables[static_cast<std::size_t>(part.dcTable)].defined() ||
            !acTables[static_cast<std::size_t>(part.acTable)].defined())
            throw JpegError("Huffman table missing");
        const int number = frame.components[part.component].quantisation;
        if (!quantisation[static_cast<std::size_t>(number)].defined)
            throw JpegError("quantisation table missing");
    }
}

} // namespace lumenfold
