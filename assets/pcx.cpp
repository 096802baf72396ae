#include "assets/pcx.h"

#include "assets/file.h"
#include "assets/notice.h"
#include "core/convert.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace lumenfold {

namespace {

constexpr std::size_t headerSize = 128;
constexpr std::size_t longestRun = 0x3F;

// A decoded picture as the file orders it: of each row the red line, the green line, the blue line.
struct PlaneLines {
    std::size_t width = 0;
    std::size_t height = 0;
    std::vector<std::uint8_t> bytes;

    Pixel32 pixel(std::size_t x, std::size_t y) const {
        const std::uint8_t* red = &bytes[3 * width * y + x];
        return Pixel32{red[0]} << 16 | Pixel32{red[width]} << 8 | Pixel32{red[2 * width]};
    }
};

// Unpacks runs until the block is full; false when the data ends first. Runs may cross lines and rows, and what the
// last one has too much is dropped.
bool unpackRuns(const std::uint8_t* data, std::size_t size, std::vector<std::uint8_t>& block) {
    std::size_t stored = 0;
    for (std::size_t position = 0; position < size; ++position) {
        const std::uint8_t byte = data[position];
        if ((byte & 0xC0) != 0xC0) {
            block[stored++] = byte;
        } else {
            if (++position == size)
                return false;
            const std::size_t count = std::min<std::size_t>(byte & 0x3F, block.size() - stored);
            std::memset(block.data() + stored, data[position], count);
            stored += count;
        }
        if (stored == block.size())
            return true;
    }
    return false;
}

void crop(const PlaneLines& picture, Pixel32* destination, FrameInfo target) {
    const std::size_t rowLength = static_cast<std::size_t>(std::max(target.width, 0));
    const std::size_t width = std::min(picture.width, rowLength);
    const std::size_t height = std::min(picture.height, static_cast<std::size_t>(std::max(target.height, 0)));
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x)
            destination[y * rowLength + x] = picture.pixel(x, y);
}

void scale(const PlaneLines& picture, Pixel32* destination, FrameInfo target) {
    const float stepX = static_cast<float>(picture.width) / static_cast<float>(target.width);
    const float stepY = static_cast<float>(picture.height) / static_cast<float>(target.height);
    const auto source = [](std::int32_t position, float step, std::size_t count) {
        const std::int32_t index = truncate(static_cast<float>(position) * step);
        return std::min(static_cast<std::size_t>(index), count - 1); // rounding must not step past the last one
    };
    for (std::int32_t y = 0; y < target.height; ++y)
        for (std::int32_t x = 0; x < target.width; ++x)
            *destination++ = picture.pixel(source(x, stepX, picture.width), source(y, stepY, picture.height));
}

int widthOf(const std::uint8_t* header) {
    return littleEndian16(header + 8) - littleEndian16(header + 4) + 1;
}

int heightOf(const std::uint8_t* header) {
    return littleEndian16(header + 10) - littleEndian16(header + 6) + 1;
}

// What the header says that the reader does not follow.
std::string headerFault(const std::uint8_t* header) {
    const int bits = header[3];
    const int planes = header[65];
    const int width = widthOf(header);
    const int lineBytes = littleEndian16(header + 66);
    if (header[2] != 1)
        return "a PCX file without run-length coding";
    if (bits != 8 || planes != 3)
        return "a PCX file with " + std::to_string(bits * planes) + " bits a pixel";
    if (lineBytes != width)
        return "a PCX file with padded lines (" + std::to_string(lineBytes) + " bytes for " + std::to_string(width) +
               " pixels)";
    return "";
}

std::string faultOf(const std::vector<std::uint8_t>& file, int width, int height, bool drawn) {
    std::string fault = foreignText("PCX", file.data(), file.size());
    if (fault.empty() && file.size() >= headerSize)
        fault = headerFault(file.data());
    if (!fault.empty())
        return fault + "; only run-length coded 24-bit PCX without padding is drawn as it is meant";
    if (file.size() >= headerSize && (widthOf(file.data()) != width || heightOf(file.data()) != height))
        return otherSizeText(widthOf(file.data()), heightOf(file.data()), width, height);
    return drawn ? "" : "the file ends before the picture does; nothing is drawn";
}

} // namespace

std::int32_t readPcx(const char* fileName, Pixel32* destination, std::int32_t sourceWidth, std::int32_t sourceHeight,
                     FrameInfo target, std::int32_t resample) {
    const std::vector<std::uint8_t> file = requireFile(fileName);
    const std::int32_t status =
        decodePcx(file.data(), file.size(), destination, sourceWidth, sourceHeight, target, resample);
    notice(fileName, faultOf(file, sourceWidth, sourceHeight, status == 0));
    return status;
}

std::int32_t decodePcx(const std::uint8_t* data, std::size_t size, Pixel32* destination, std::int32_t sourceWidth,
                       std::int32_t sourceHeight, FrameInfo target, std::int32_t resample) {
    if (sourceWidth <= 0 || sourceHeight <= 0 || size <= headerSize)
        return -1;
    PlaneLines picture{static_cast<std::size_t>(sourceWidth), static_cast<std::size_t>(sourceHeight), {}};
    // Two bytes give at most one run: a picture that the data cannot fill is not worth its memory.
    const std::size_t mostBytes = (size - headerSize + 1) / 2 * longestRun;
    if (picture.width > mostBytes / picture.height / 3)
        return -1;
    picture.bytes.resize(3 * picture.width * picture.height);
    if (!unpackRuns(data + headerSize, size - headerSize, picture.bytes))
        return -1;
    if (resample == 0)
        crop(picture, destination, target);
    else
        scale(picture, destination, target);
    return 0;
}

} // namespace lumenfold
