// Damaged JPEG files: nothing is read or written beyond its memory (each file and picture has an allocation of its
// own size, for the address sanitizer to watch), and both forms of the decoder make the same of them.

#include "assets/jpeg.h"
#include "core/dynamic_error.h"
#include "jpeg_writer.h"
#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace lumenfold::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int width = 37;
constexpr int height = 21;

Bytes picture(int restartInterval) {
    return makeJpeg({width, height, {{2, 2}, {1, 1}, {1, 1}}, 1, 20, restartInterval});
}

struct Outcome {
    std::vector<Pixel32> pixels;
    std::string message;
    bool operator==(const Outcome&) const = default;
};

Outcome decode(const Bytes& file) {
    const auto data = std::make_unique<std::uint8_t[]>(file.size());
    std::copy(file.begin(), file.end(), data.get());
    Outcome outcome{std::vector<Pixel32>(width * height, 0xABCDEF), {}};
    try {
        decodeJpegFile(data.get(), file.size(), "cut.jpg", outcome.pixels.data(), {width, height, 0, 0, 0});
    } catch (const DynamicError& error) {
        outcome.message = error.what();
    }
    return outcome;
}

void expectSameOnEveryTarget(const Bytes& file) {
    useVectorTarget(vectorTargets().back());
    const Outcome plain = decode(file);
    test::onEveryTarget([&] { EXPECT_EQ(decode(file), plain); });
}

} // namespace

TEST(JpegDamage, EveryTruncationKeepsWhatWasDecoded) {
    for (const int restartInterval : {0, 2}) {
        const Bytes whole = picture(restartInterval);
        const Outcome complete = decode(whole);
        const std::size_t start = entropyStart(whole);
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            const Outcome cut = decode(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
            EXPECT_EQ(cut.message, "") << length;
            if (length >= whole.size() - 2) {
                EXPECT_EQ(cut.pixels, complete.pixels) << length;
            }
            if (length < (start + whole.size()) / 2)
                continue;
            for (std::size_t y = 0; y < 15; ++y) // half of the data holds more than the first coded unit
                EXPECT_TRUE(
                    std::equal(&cut.pixels[y * width], &cut.pixels[y * width + 15], &complete.pixels[y * width]))
                    << length << ' ' << y;
        }
    }
}

TEST(JpegDamage, RandomChangesGiveTheSameInBothForms) {
    std::mt19937 random(2000);
    const Bytes pictures[3] = {picture(0), picture(1), picture(2)};
    for (int round = 0; round < 3000; ++round) {
        Bytes file = pictures[round % 3];
        const int changes = 1 + static_cast<int>(random() % 6);
        // Half of the rounds leave the headers whole, so that the damage reaches the coefficients.
        const std::size_t first = round % 2 == 0 ? 0 : entropyStart(file);
        for (int i = 0; i < changes; ++i)
            file[first + random() % (file.size() - first)] = static_cast<std::uint8_t>(random());
        expectSameOnEveryTarget(file);
    }
}

// Coefficients beyond all limits: the largest categories times the largest steps, summed up by the predictor.
TEST(JpegDamage, EnormousCoefficients) {
    for (const unsigned char category : {11, 14, 15}) {
        Bytes file = {0xFF, 0xD8, 0xFF, 0xDB, 0, 131, 0x10};
        file.insert(file.end(), 128, 0xFF);
        for (const unsigned char tableClass : {0x00, 0x10}) { // one code, "0": a value of that category
            file.insert(file.end(), {0xFF, 0xC4, 0, 20, tableClass, 1});
            file.insert(file.end(), 15, 0);
            file.push_back(category);
        }
        file.insert(file.end(), {0xFF, 0xC0, 0, 11, 8, 0, height, 0, width, 1, 1, 0x11, 0});
        file.insert(file.end(), {0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 63, 0});
        for (int i = 0; i < 4000; ++i)
            file.push_back(static_cast<std::uint8_t>(i % 2 ? 0x7F : 0x3F));
        expectSameOnEveryTarget(file);
    }
}

} // namespace lumenfold::test
