#include "programs/png_file.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace lumenfold::film {

void writePng(const std::string& place, const Pixel32* pixels, std::int32_t width, std::int32_t height,
              const std::string& name) {
    std::vector<std::uint8_t> bytes;
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    bytes.reserve(count * 3);
    for (const Pixel32* pixel = pixels; pixel != pixels + count; ++pixel)
        for (const int shift : {16, 8, 0})
            bytes.push_back(static_cast<std::uint8_t>(*pixel >> shift));

    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB;
    image.flags = PNG_IMAGE_FLAG_FAST;
    errno = 0;
    std::FILE* file = std::fopen(place.c_str(), "wb");
    if (file == nullptr)
        throw std::runtime_error(name + ": " + std::strerror(errno));
    const bool written = png_image_write_to_stdio(&image, file, 0, bytes.data(), 0, nullptr) != 0;
    const int writeError = errno;
    const bool closed = std::fclose(file) == 0;
    if (!written || !closed)
        throw std::runtime_error(name + ": " + std::strerror(written ? errno : writeError));
}

} // namespace lumenfold::film
