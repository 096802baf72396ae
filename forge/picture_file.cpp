#include "forge/picture_file.h"

#include "assets/image.h"
#include "assets/jpeg.h"
#include "forge/encode.h"

#include <algorithm>
#include <stdexcept>

namespace lumenfold::art {

namespace {

template <typename Fill>
PictureFile filled(const std::string& name, int width, int height, Fill fill) {
    constexpr Pixel32 untouched = 0xAA000000; // no reader writes a top byte
    PictureFile picture{width, height, std::vector<Pixel32>(static_cast<std::size_t>(width) * height, untouched)};
    fill(picture.pixels.data(), FrameInfo{width, height, 0, 0, 0});
    if (std::count(picture.pixels.begin(), picture.pixels.end(), untouched) != 0)
        throw std::runtime_error(name + ": does not fill " + std::to_string(width) + " x " + std::to_string(height));
    return picture;
}

} // namespace

PictureFile readPicture(const std::string& path, int width, int height) {
    return filled(path, width, height, [&](Pixel32* pixels, const FrameInfo& size) {
        loadImage(path.c_str(), pixels, width, height, size, 0);
    });
}

PictureFile pictureIn(const std::vector<std::uint8_t>& jpeg, const std::string& name, int width, int height) {
    return filled(name, width, height, [&](Pixel32* pixels, const FrameInfo& size) {
        decodeJpegFile(jpeg.data(), jpeg.size(), name, pixels, size);
    });
}

bool borderIsBlack(const PictureFile& p) {
    for (int y = 0; y < p.height; ++y) {
        const int step = y == 0 || y == p.height - 1 ? 1 : p.width - 1;
        for (int x = 0; x < p.width; x += step) {
            if (p.at(x, y) != 0) {
                return false;
            }
        }
    }
    return true;
}

Bitmap withBlackBorder(const std::function<Bitmap(float share)>& develop) {
    for (float share = 1; share > 0.8F; share -= 0.005F) {
        Bitmap bitmap = develop(share);
        if (borderIsBlack(pictureIn(encodeJpeg(bitmap), "a picture with a black border", bitmap.width, bitmap.height)))
            return bitmap;
    }
    throw std::runtime_error("the border does not stay black");
}

std::string jpegFault(const std::vector<std::uint8_t>& bytes, int width, int height) {
    const auto word = [&bytes](std::size_t at) { return bytes.at(at) << 8 | bytes.at(at + 1); };
    if (bytes.size() > jpegLimit) {
        return std::to_string(bytes.size()) + " bytes";
    }
    try {
        bool frameSeen = false;
        for (std::size_t at = 2; word(at) != 0xFFDA; at += 2 + static_cast<std::size_t>(word(at + 2))) {
            const int marker = word(at);
            const int length = word(at + 2);
            if (marker == 0xFFC0) {
                frameSeen = true;
                if (bytes.at(at + 4) != 8 || word(at + 5) != height || word(at + 7) != width || bytes.at(at + 9) != 3) {
                    return "frame of another size or depth";
                }
                for (std::size_t component = 0; component < 3; ++component) {
                    if (bytes.at(at + 11 + 3 * component) != 0x11) {
                        return "subsampled";
                    }
                }
            } else if (marker > 0xFFC0 && marker <= 0xFFCF && marker != 0xFFC4) {
                return "not baseline";
            } else if (marker == 0xFFDB && length != 67) {
                return "several quantisation tables in one segment";
            } else if (marker == 0xFFDD) {
                return "restart interval";
            } else if (marker == 0xFFC4) {
                int values = 0;
                for (std::size_t i = 0; i < 16; ++i) {
                    values += bytes.at(at + 5 + i);
                }
                if (length != 19 + values) {
                    return "several Huffman tables in one segment";
                }
            }
        }
        return frameSeen ? "" : "no baseline frame";
    } catch (const std::out_of_range&) {
        return "ends early";
    }
}

} // namespace lumenfold::art
