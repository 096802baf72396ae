// The front end: which reader a name selects, what it says of missing files, and the textures shared by name.

#include "assets/image.h"
#include "core/dynamic_error.h"
#include "jpeg_writer.h"
#include "tests/support/temporary_file.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lumenfold::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr Pixel32 untouched = 0x7E57BEEF;

Bytes jpegTexture() {
    return makeJpeg({.width = 256, .height = 256, .density = 1});
}

// A 24-bit PCX of one grey level.
Bytes greyPcx(int side, std::uint8_t level) {
    Bytes file(128, 0);
    file.insert(file.end(), static_cast<std::size_t>(3 * side * side), level);
    return file;
}

std::string upperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

std::string messageOf(const std::string& name) {
    Pixel32 pixel = untouched;
    try {
        loadImage(name.c_str(), &pixel, 1, 1, {1, 1, 0, 0, 0}, 0);
    } catch (const DynamicError& error) {
        EXPECT_EQ(pixel, untouched);
        return error.what();
    }
    return "";
}

class Textures : public ::testing::Test {
  protected:
    void SetUp() override { textureCache.open(); }
    void TearDown() override { textureCache.close(); }
};

} // namespace

TEST(LoadImage, TheLastThreeLettersSelectTheReader) {
    const FrameInfo target = {4, 4, 0, 0, 0};
    const Bytes pcx = greyPcx(4, 0x21);
    struct Case {
        const char* name;
        Pixel32 first; // the same bytes, as each reader sees them
    };
    for (const auto& [name, first] :
         {Case{"a.pcx", 0x212121}, Case{"a.PCX", 0x212121}, Case{"b_pCx", 0x212121}, Case{"a.tga", 0x000000},
          Case{"a.Tga", 0x000000}, Case{"a.jpg", untouched}, Case{"a.jpeg", untouched}, Case{"a.pcx2", untouched}}) {
        const TemporaryFile file(name, pcx);
        std::vector<Pixel32> pixels(16, untouched);
        EXPECT_EQ(loadImage(file.name(), pixels.data(), 4, 4, target, 0), 1);
        EXPECT_EQ(pixels[0], first) << name;
    }
    for (const char* name : {"", "a", "pg", "jpeg", "missing.gif"}) // nothing is opened
        EXPECT_EQ(loadImage(name, nullptr, 4, 4, target, 0), 1);
    EXPECT_EQ(messageOf("jpg"), "jpg");
}

TEST(LoadImage, AMissingFileIsNamed) {
    for (const char* name : {"no such picture.jpg", "nowhere/no such.PCX", "no such.tga"})
        EXPECT_EQ(messageOf(name), name);
    EXPECT_EQ(messageOf(LUMENFOLD_TEST_DATA "/../assets/.tga"), LUMENFOLD_TEST_DATA "/../assets/.tga");
}

TEST_F(Textures, AreSharedByNameInAnyCase) {
    const TemporaryFile file("cell.jpg", jpegTexture());
    const TemporaryFile other("cell2.jpg", jpegTexture());
    Pixel32* const texels = getTexture(file.name());
    EXPECT_NE(texels[100 * 256 + 7], 0u);
    EXPECT_EQ(getTexture(upperCase(file.name()).c_str()), texels);
    EXPECT_EQ(textureCache.count, 1);
    EXPECT_NE(getTexture(other.name()), texels);
    EXPECT_EQ(textureCache.count, 2);
    EXPECT_EQ(textureCache.entries[0]->fileName, file.name());
    EXPECT_EQ(getTexture(file.name()), texels);
}

TEST_F(Textures, WhatTheFileDoesNotCoverIsZero) {
    Bytes small = greyPcx(256, 0x40);
    const TemporaryFile whole("whole.pcx", small);
    small.resize(small.size() - 1);
    const TemporaryFile cut("cut.pcx", small);
    const TemporaryFile unread("texture.jpeg", small);
    EXPECT_EQ(getTexture(whole.name())[texturePixels - 1], 0x404040u);
    for (const TemporaryFile* file : {&cut, &unread}) {
        const Pixel32* texels = getTexture(file->name());
        EXPECT_TRUE(std::all_of(texels, texels + texturePixels, [](Pixel32 pixel) { return pixel == 0; }));
    }
    EXPECT_EQ(textureCache.count, 3);
}

TEST_F(Textures, AFailureAddsNothing) {
    EXPECT_THROW(getTexture("no such.jpg"), DynamicError);
    EXPECT_EQ(textureCache.count, 0);
    EXPECT_TRUE(textureCache.entries.empty());
}

TEST_F(Textures, TheNextOneAfterFortyIsAnError) {
    for (int i = 0; i < TextureCache::capacity; ++i)
        getTexture(("name " + std::to_string(i)).c_str()); // no reader: nothing needs to exist
    EXPECT_EQ(textureCache.count, TextureCache::capacity);
    EXPECT_EQ(getTexture("NAME 39"), textureCache.entries[39]->texels.get());
    try {
        getTexture("one too many.jpg");
        ADD_FAILURE();
    } catch (const DynamicError& error) {
        EXPECT_EQ(std::string(error.what()).rfind("one too many.jpg: ", 0), 0u);
    }
    EXPECT_EQ(textureCache.count, TextureCache::capacity);
}

} // namespace lumenfold::test
