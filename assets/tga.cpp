#include "assets/tga.h"

#include "assets/file.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace lumenfold {

namespace {
constexpr std::size_t headerSize = 18;
constexpr std::size_t pixelSize = 3;
} // namespace

std::int32_t readTga(const char* fileName, Pixel32* destination, std::int32_t, std::int32_t, FrameInfo target,
                     std::int32_t) {
    const std::size_t pixels =
        static_cast<std::size_t>(std::max(target.width, 0)) * static_cast<std::size_t>(std::max(target.height, 0));
    const std::vector<std::uint8_t> file = requireFile(fileName, headerSize + pixels * pixelSize);
    decodeTga(file.data(), file.size(), destination, target);
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
