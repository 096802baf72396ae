#include "forge/encode.h"

#include <stdexcept>

namespace lumenfold::art {

namespace {

void putWord(std::vector<std::uint8_t>& bytes, std::size_t offset, int value) { // little-endian
    bytes[offset] = static_cast<std::uint8_t>(value & 255);
    bytes[offset + 1] = static_cast<std::uint8_t>(value >> 8 & 255);
}

void putRun(std::vector<std::uint8_t>& bytes, std::uint8_t value, int count) {
    constexpr int runMark = 0xC0; // also the values that can only be stored as a run
    if (count > 1 || value >= runMark) {
        bytes.push_back(static_cast<std::uint8_t>(runMark | count));
    }
    bytes.push_back(value);
}

} // namespace

std::vector<std::uint8_t> encodePcx(const Bitmap& bitmap) {
    std::vector<std::uint8_t> bytes(128);
    bytes[0] = 10; // manufacturer
    bytes[1] = 5;  // version
    bytes[2] = 1;  // run-length encoded
    bytes[3] = 8;  // bits per pixel and plane
    putWord(bytes, 8, bitmap.width - 1);
    putWord(bytes, 10, bitmap.height - 1);
    putWord(bytes, 12, 72); // dots per inch
    putWord(bytes, 14, 72);
    bytes[65] = 3; // planes
    putWord(bytes, 66, bitmap.width);
    putWord(bytes, 68, 1); // colour
    for (int y = 0; y < bitmap.height; ++y) {
        for (int plane = 0; plane < 3; ++plane) {
            const auto valueAt = [&](int x) {
                return bitmap.rgb[(static_cast<std::size_t>(y) * bitmap.width + x) * 3 + plane];
            };
            for (int x = 0; x < bitmap.width;) {
                int count = 1;
                while (count < 63 && x + count < bitmap.width && valueAt(x + count) == valueAt(x)) {
                    ++count;
                }
                putRun(bytes, valueAt(x), count);
                x += count;
            }
        }
    }
    return bytes;
}

std::vector<std::uint8_t> encodeTga(const Bitmap& bitmap) {
    std::vector<std::uint8_t> bytes(18);
    bytes[2] = 2; // uncompressed true colour
    putWord(bytes, 12, bitmap.width);
    putWord(bytes, 14, bitmap.height);
    bytes[16] = 24; // bits per pixel; descriptor 0: bottom row first
    for (int y = bitmap.height - 1; y >= 0; --y) {
        for (int x = 0; x < bitmap.width; ++x) {
            const std::uint8_t* pixel = &bitmap.rgb[(static_cast<std::size_t>(y) * bitmap.width + x) * 3];
            bytes.insert(bytes.end(), {pixel[2], pixel[1], pixel[0]});
        }
    }
    return bytes;
}

std::vector<std::uint8_t> encodeBitmap(const Bitmap& bitmap, const std::string& fileName) {
    const std::string ending = fileName.size() < 4 ? fileName : fileName.substr(fileName.size() - 4);
    if (ending == ".jpg")
        return encodeJpeg(bitmap);
    if (ending == ".pcx")
        return encodePcx(bitmap);
    if (ending == ".tga")
        return encodeTga(bitmap);
    throw std::runtime_error(fileName + ": no encoder for this ending");
}

} // namespace lumenfold::art
