#include "assets/tga.h"

#include "assets/file.h"
#include "assets/notice.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace lumenfold {

namespace {
constexpr std::size_t headerSize = 18;
constexpr std::size_t pixelSize = 3;

// What the header says that the reader does not follow.
std::string headerFault(const std::uint8_t* header) {
    constexpr int colourMapped = 1;
    constexpr int trueColour = 2;
    constexpr int grey = 3;
    constexpr int runLength = 8; // added to these
    constexpr int rightToLeft = 0x10;
    constexpr int topDown = 0x20;
    const int type = header[2] & ~runLength;
    if (type < colourMapped || type > grey)
        return "not a TGA file";
    if (header[2] & runLength)
        return "a run-length coded TGA file";
    if (type != trueColour)
        return type == grey ? "a grey TGA file" : "a TGA file with a palette";
    if (header[16] != 8 * pixelSize)
        return "a TGA file with " + std::to_string(header[16]) + " bits a pixel";
    if (header[17] & topDown)
        return "a TGA file with its top row first";
    if (header[17] & rightToLeft)
        return "a TGA file with its right column first";
    if (header[0] != 0 || header[1] != 0)
        return "a TGA file with an identification field or a palette before its pixels";
    return "";
}

std::string faultOf(const std::vector<std::uint8_t>& file, FrameInfo target, std::size_t wholeSize) {
    std::string fault = foreignText("TGA", file.data(), file.size());
    if (fault.empty() && file.size() >= headerSize)
        fault = headerFault(file.data());
    if (!fault.empty())
        return fault + "; only uncompressed 24-bit TGA, bottom row first, is drawn as it is meant";
    const int width = file.size() >= headerSize ? littleEndian16(&file[12]) : target.width;
    const int height = file.size() >= headerSize ? littleEndian16(&file[14]) : target.height;
    if (width != target.width || height != target.height)
        return otherSizeText(width, height, target.width, target.height);
    return file.size() < wholeSize ? "the file ends early; the rest of the picture is black" : "";
}

} // namespace

std::int32_t readTga(const char* fileName, Pixel32* destination, std::int32_t, std::int32_t, FrameInfo target,
                     std::int32_t) {
    const std::size_t pixels =
        static_cast<std::size_t>(std::max(target.width, 0)) * static_cast<std::size_t>(std::max(target.height, 0));
    const std::size_t wholeSize = headerSize + pixels * pixelSize;
    const std::vector<std::uint8_t> file = requireFile(fileName, wholeSize);
    decodeTga(file.data(), file.size(), destination, target);
    notice(fileName, faultOf(file, target, wholeSize));
    return 1;
}

void decodeTga(const std::uint8_t* data, std::size_t size, Pixel32* destination, FrameInfo target) {
    if (target.width <= 0 || target.height <= 0)
        return;
    const std::size_t width = static_cast<std::size_t>(target.width);
    std::vector<std::uint8_t> line(width * pixelSize);
    std::size_t position = std::min(size, headerSize);
    for (std::int32_t y = target.height - 1; y >= 0; --y) {
        const std::size_t present = std::min(size - position, line.size());
        if (present > 0)
            std::memcpy(line.data(), data + position, present);
        std::fill(line.begin() + static_cast<std::ptrdiff_t>(present), line.end(), std::uint8_t{0});
        position += present;
        Pixel32* row = destination + static_cast<std::size_t>(y) * width;
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint8_t* blue = &line[x * pixelSize];
            row[x] = Pixel32{blue[2]} << 16 | Pixel32{blue[1]} << 8 | Pixel32{blue[0]};
        }
    }
}

} // namespace lumenfold
