#include "assets/image.h"

#include "assets/jpeg.h"
#include "assets/notice.h"
#include "assets/pcx.h"
#include "assets/tga.h"
#include "core/dynamic_error.h"

#include <algorithm>
#include <string_view>

namespace lumenfold {

TextureCache textureCache;

namespace {

// Independent of the locale, unlike std::tolower.
char lowerCase(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowerCase(x) == lowerCase(y); });
}

} // namespace

std::int32_t loadImage(const char* fileName, Pixel32* destination, std::int32_t sourceWidth, std::int32_t sourceHeight,
                       FrameInfo target, std::int32_t resample) {
    const std::string_view name = fileName;
    const std::string_view extension = name.substr(name.size() - std::min<std::size_t>(name.size(), 3));
    if (equalIgnoringCase(extension, "tga"))
        readTga(fileName, destination, sourceWidth, sourceHeight, target, resample);
    else if (equalIgnoringCase(extension, "pcx"))
        readPcx(fileName, destination, sourceWidth, sourceHeight, target, resample);
    else if (equalIgnoringCase(extension, "jpg"))
        readJpegFile(fileName, destination, sourceWidth, sourceHeight, target, resample);
    else
        notice(fileName, "the name ends in none of jpg, pcx and tga; nothing is drawn");
    return 1;
}

void TextureCache::open() {
    close();
    entries.reserve(capacity);
}

void TextureCache::close() {
    entries = std::vector<std::unique_ptr<TextureEntry>>();
    count = 0;
}

Pixel32* getTexture(const char* fileName) {
    for (const auto& entry : textureCache.entries)
        if (equalIgnoringCase(entry->fileName, fileName))
            return entry->texels.get();
    if (textureCache.count >= TextureCache::capacity)
        throw DynamicError(std::string(fileName) + ": the texture cache is full (" +
                           std::to_string(TextureCache::capacity) + " textures)");
    // What the picture does not cover stays 0.
    auto entry = std::make_unique<TextureEntry>(TextureEntry{std::make_unique<Pixel32[]>(texturePixels), fileName});
    Pixel32* texels = entry->texels.get();
    loadImage(fileName, texels, textureSide, textureSide, {textureSide, textureSide, 0, 0, 0}, 0);
    textureCache.entries.push_back(std::move(entry));
    ++textureCache.count;
    return texels;
}

} // namespace lumenfold
