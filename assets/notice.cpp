#include "assets/notice.h"

#include <cstdio>
#include <set>
#include <string_view>

namespace lumenfold {

namespace {

using namespace std::string_view_literals;

struct Signature {
    const char* kind;
    const char* name;
    std::string_view bytes;
};

constexpr Signature signatures[] = {
    {"JPEG", "a JPEG file", "\xFF\xD8"sv},
    {"PNG", "a PNG file", "\x89PNG"sv},
    {"GIF", "a GIF file", "GIF8"sv},
    {"BMP", "a BMP file", "BM"sv},
    {"TIFF", "a TIFF file", "II*\0"sv},
    {"TIFF", "a TIFF file", "MM\0*"sv},
    {"RIFF", "a RIFF file (WebP or sound)", "RIFF"sv},
    {"PCX", "a PCX file", "\x0A\x05"sv}, // the versions that a PCX header may name
    {"PCX", "a PCX file", "\x0A\x03"sv},
    {"PCX", "a PCX file", "\x0A\x04"sv},
    {"PCX", "a PCX file", "\x0A\x02"sv},
    {"PCX", "a PCX file", "\x0A\x00\x01"sv}, // without the coding's byte, TGA files begin so
    {"LightWave", "an IFF file (a LightWave object, perhaps)", "FORM"sv},
    {"XM", "an XM tune", "Extended Module: "sv},
};

} // namespace

void notice(const std::string& fileName, const std::string& text) {
    static std::set<std::string> named;
    if (!text.empty() && named.insert(fileName).second)
        std::fprintf(stderr, "lumenfold: %s: %s\n", fileName.c_str(), text.c_str());
}

std::string foreignText(const std::string& kind, const std::uint8_t* data, std::size_t size) {
    const std::string no = "not a " + kind + " file";
    if (size == 0)
        return no + ", it is empty";
    const std::string_view begin(reinterpret_cast<const char*>(data), size);
    for (const Signature& signature : signatures)
        if (begin.substr(0, signature.bytes.size()) == signature.bytes)
            return signature.kind == kind ? "" : no + " but " + signature.name;
    return kind == "TGA" ? "" : no;
}

std::string otherSizeText(int width, int height, int expectedWidth, int expectedHeight) {
    return "the picture is " + std::to_string(width) + " x " + std::to_string(height) + " pixels, not " +
           std::to_string(expectedWidth) + " x " + std::to_string(expectedHeight);
}

} // namespace lumenfold
