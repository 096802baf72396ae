// The JPEG reader beside the literal formulas, what it reads beyond them, and what it refuses.

#include "assets/jpeg.h"
#include "assets/jpeg_kernels.h"
#include "core/dynamic_error.h"
#include "jpeg_literal.h"
#include "jpeg_writer.h"
#include "tests/support/pixels.h"

#include <gtest/gtest.h>

namespace lumenfold::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr Pixel32 untouched = 0x12345678;

std::vector<Pixel32> decode(const Bytes& file, int width, int height) {
    std::vector<Pixel32> pixels(static_cast<std::size_t>(width * height), untouched);
    decodeJpegFile(file.data(), file.size(), "picture.jpg", pixels.data(), {width, height, 0, 0, 0});
    return pixels;
}

void expectLiteral(const Bytes& file, const char* what) {
    LiteralPicture expected = decodeLiterally(file);
    repairLiterally(expected);
    onEveryTarget([&] { EXPECT_EQ(decode(file, expected.width, expected.height), expected.pixels) << what; });
}

// Changes every segment of a kind, given the place of its marker.
template <class Change>
void atMarkers(Bytes& file, int marker, Change change) {
    for (std::size_t i = 0; i + 1 < entropyStart(file); ++i)
        if (file[i] == 0xFF && file[i + 1] == marker)
            change(i);
}

} // namespace

TEST(Jpeg, DecodesAsTheFormulas) {
    const std::vector<JpegFactors> samplings[] = {
        {{1, 1}},                         // grey
        {{2, 2}},                         // grey, four blocks to the unit
        {{1, 1}, {1, 1}},                 // without Cr
        {{1, 1}, {1, 1}, {1, 1}},         // 4:4:4
        {{2, 1}, {1, 1}, {1, 1}},         // 4:2:2
        {{2, 2}, {1, 1}, {1, 1}},         // 4:2:0
        {{1, 2}, {1, 1}, {1, 1}},         // 4:4:0
        {{4, 1}, {1, 1}, {1, 1}},         // 4:1:1
        {{4, 2}, {2, 1}, {1, 2}},         // all different
        {{4, 4}, {3, 1}, {1, 3}},         // quarters and three quarters
        {{3, 3}, {1, 2}, {2, 1}},         // thirds
        {{1, 1}, {2, 2}, {1, 1}},         // luminance coarser than Cb
        {{2, 2}, {1, 1}, {1, 1}, {2, 2}}, // four components
    };
    unsigned seed = 1;
    for (const auto& sampling : samplings)
        for (const auto& [width, height] : {std::pair(64, 48), std::pair(61, 35), std::pair(7, 5), std::pair(2, 2)})
            for (const int density : {0, 4, 30}) {
                const Bytes file = makeJpeg({width, height, sampling, seed, density});
                expectLiteral(file, ::testing::PrintToString(seed++).c_str());
            }
}

// The rest of the coded unit in which the data ends is read as zero bits; what follows stays black.
TEST(Jpeg, EndAndStopMarkersWithinTheScan) {
    const Bytes whole = makeJpeg({48, 40, {{2, 2}, {1, 1}, {1, 1}}});
    for (std::size_t length = entropyStart(whole); length < whole.size() - 2; length += 7) {
        Bytes file(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        if (file.back() == 0xFF)
            file.push_back(0);
        Bytes stopped = file;
        file.insert(file.end(), {0xFF, 0xD9});
        stopped.insert(stopped.end(), {0xFF, 0xDC, 0, 4, 0, 40, 0xFF, 0xD9});
        expectLiteral(file, "end of image");
        expectLiteral(stopped, "number of lines");
        EXPECT_EQ(decode(Bytes(file.begin(), file.end() - 2), 48, 40), decode(file, 48, 40)) << "nothing after it";
        file.insert(file.end(), 40, 0x55);
        expectLiteral(file, "bytes after the end");
    }
}

TEST(Jpeg, ReadsVariantsOfTheSamePicture) {
    const JpegRecipe recipe{40, 24, {{2, 1}, {1, 1}, {1, 1}}};
    const std::vector<Pixel32> expected = decode(makeJpeg(recipe), 40, 24);
    for (const auto variant : {&JpegRecipe::oneSegment, &JpegRecipe::wideQuantisation, &JpegRecipe::extraSegments}) {
        JpegRecipe varied = recipe;
        varied.*variant = true;
        EXPECT_EQ(decode(makeJpeg(varied), 40, 24), expected);
    }
    Bytes misnamed = makeJpeg(recipe); // 8-bit steps whose segment calls them 16-bit
    atMarkers(misnamed, 0xDB, [&](std::size_t i) { misnamed[i + 4] |= 0x10; });
    EXPECT_EQ(decode(misnamed, 40, 24), expected);
    Bytes extended = makeJpeg(recipe); // the extended process with 8-bit samples codes alike
    atMarkers(extended, 0xC0, [&](std::size_t i) { extended[i + 1] = 0xC1; });
    EXPECT_EQ(decode(extended, 40, 24), expected);
}

// Each interval starts from predictors 0, so its blocks are those of a picture of its own. Without an interval
// restart markers are passed over and the predictors run on.
TEST(Jpeg, RestartIntervals) {
    for (const int interval : {1, 3, 6}) {
        const Bytes file = makeJpeg({.width = 48, .density = 0, .restartInterval = interval});
        const std::vector<Pixel32> pixels = decode(file, 48, 16);
        Bytes single; // one interval's data under the header of an 8 x 8 picture
        std::size_t start = entropyStart(file);
        for (int unit = 0; unit < 12; unit += interval) {
            std::size_t finish = start;
            while (!(file[finish] == 0xFF && file[finish + 1] != 0))
                ++finish;
            single.assign(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(entropyStart(file)));
            atMarkers(single, 0xC0, [&](std::size_t i) { single[i + 6] = single[i + 8] = 8; }); // height and width
            single.insert(single.end(), file.begin() + static_cast<std::ptrdiff_t>(start),
                          file.begin() + static_cast<std::ptrdiff_t>(finish));
            const std::size_t corner = static_cast<std::size_t>(unit / 6 * 8 * 48 + unit % 6 * 8);
            EXPECT_EQ(pixels[corner], decode(single, 8, 8)[0]) << interval << ' ' << unit;
            start = finish + 2;
        }
    }
    Bytes file = makeJpeg({.width = 48});
    const std::vector<Pixel32> expected = decode(file, 48, 16);
    // Between two bytes of the data, neither of which belongs to a stuffed pair.
    std::size_t middle = (entropyStart(file) + file.size()) / 2;
    while (file[middle - 1] == 0xFF || file[middle] == 0)
        ++middle;
    file.insert(file.begin() + static_cast<std::ptrdiff_t>(middle), {0xFF, 0xD3, 0xFF, 0xFE, 0, 4, 0xFF, 0xD9});
    EXPECT_EQ(decode(file, 48, 16), expected);
}

// A damaged interval leaves the next ones alone.
TEST(Jpeg, RestartsAfterDamage) {
    Bytes file = makeJpeg({.width = 64, .height = 32, .density = 30, .restartInterval = 8});
    const std::vector<Pixel32> expected = decode(file, 64, 32);
    file.erase(file.begin() + static_cast<std::ptrdiff_t>(entropyStart(file)) + 4); // the first row of blocks
    const std::vector<Pixel32> pixels = decode(file, 64, 32);
    EXPECT_NE(std::vector(pixels.begin(), pixels.begin() + 512), std::vector(expected.begin(), expected.begin() + 512));
    EXPECT_EQ(std::vector(pixels.begin() + 512, pixels.end()), std::vector(expected.begin() + 512, expected.end()));
}

// Red and blue are computed in fixed point: for every pair of components the products in double precision give the
// same, and so does green for every third one.
TEST(Jpeg, ColourConversionIsExact) {
    const auto byte = [](double value) { return static_cast<Pixel32>(std::clamp(static_cast<int>(value), 0, 255)); };
    onEveryTarget([&] {
        std::vector<std::uint8_t> y(256);
        for (int i = 0; i < 256; ++i)
            y[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(i);
        int wrong = 0;
        for (int cb = 0; cb < 256; ++cb)
            for (int cr = 0; cr < 256; ++cr) {
                const std::vector<std::uint8_t> blue(256, static_cast<std::uint8_t>(cb));
                const std::vector<std::uint8_t> red(256, static_cast<std::uint8_t>(cr));
                const std::uint8_t* rows[4] = {y.data(), blue.data(), red.data(), y.data()};
                std::vector<Pixel32> pixels(256);
                jpegConvertRow(rows, pixels.data(), 256);
                for (int i = 0; i < 256; ++i)
                    wrong +=
                        pixels[static_cast<std::size_t>(i)] !=
                        (static_cast<Pixel32>(i) << 24 | byte(i + 1.402 * (cr - 128)) << 16 |
                         byte(i - 0.34414 * (cb - 128) - 0.71414 * (cr - 128)) << 8 | byte(i + 1.772 * (cb - 128)));
            }
        EXPECT_EQ(wrong, 0);
    });
}

namespace {

// A change to a valid 16 x 16 picture of three components, and what the message must say.
struct Refusal {
    const char* reason;
    void (*damage)(Bytes& file, std::size_t frame, std::size_t scan); // positions of the two headers' markers
};

const Refusal refusals[] = {
    {"progressive", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 1] = 0xC2; }},
    {"arithmetic", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 1] = 0xC9; }},
    {"FFC3", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 1] = 0xC3; }},
    {"12-bit", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 4] = 12; }},
    {"16 x 0 pixels, not 16 x 16", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 6] = 0; }},
    {"65296 x 16", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 7] = 0xFF; }},
    {"four components", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 9] = 5; }},
    {"sampling factor", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 11] = 0x10; }},
    {"sampling factor", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 11] = 0x51; }},
    {"quantisation table", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 12] = 4; }},
    {"quantisation table missing", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 12] = 3; }},
    {"does not have", [](Bytes& f, std::size_t, std::size_t scan) { f[scan + 4] = 0; }},
    {"does not have", [](Bytes& f, std::size_t, std::size_t scan) { f[scan + 4] = 4; }},
    {"does not have", [](Bytes& f, std::size_t, std::size_t scan) { f[scan + 5] = 9; }},
    {"does not have", [](Bytes& f, std::size_t, std::size_t scan) { f[scan + 7] = f[scan + 5]; }},
    {"Huffman table missing", [](Bytes& f, std::size_t, std::size_t scan) { f[scan + 6] = 0x02; }},
    {"Huffman table missing", [](Bytes& f, std::size_t, std::size_t scan) { f[scan + 6] = 0xF0; }},
    {"length field", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 3] = 1; }},
    {"frame header cut short", [](Bytes& f, std::size_t frame, std::size_t) { f[frame + 3] = 9; }},
    {"not a code",
     [](Bytes& f, std::size_t, std::size_t) {
         // three codes of one bit instead of three bits
         atMarkers(f, 0xC4, [&](std::size_t i) { std::swap(f[i + 5], f[i + 7]); });
     }},
};

} // namespace

TEST(Jpeg, RefusesWithFileNameAndReason) {
    for (const Refusal& refusal : refusals) {
        Bytes file = makeJpeg({.components = {{1, 1}, {1, 1}, {1, 1}}});
        std::size_t frame = 0, scan = 0;
        atMarkers(file, 0xC0, [&](std::size_t i) { frame = i; });
        atMarkers(file, 0xDA, [&](std::size_t i) { scan = i; });
        refusal.damage(file, frame, scan);
        std::vector<Pixel32> pixels(256, untouched);
        try {
            decodeJpegFile(file.data(), file.size(), "picture.jpg", pixels.data(), {16, 16, 0, 0, 0});
            ADD_FAILURE() << refusal.reason;
        } catch (const DynamicError& error) {
            const std::string message = error.what();
            EXPECT_EQ(message.rfind("picture.jpg: ", 0), 0u) << message;
            EXPECT_NE(message.find(refusal.reason), std::string::npos) << message;
        }
        EXPECT_EQ(pixels, std::vector<Pixel32>(256, untouched)) << refusal.reason;
    }
}

TEST(Jpeg, WithoutAFrameTheBlockStays) {
    const std::vector<Pixel32> same(16 * 16, untouched);
    const Bytes whole = makeJpeg({});
    for (const Bytes& file :
         {Bytes{}, Bytes{0xFF}, Bytes{0xFF, 0xD8}, Bytes{0xFF, 0xD8, 0xFF, 0xD9}, Bytes(1000, 0xFF), Bytes(1000, 'x'),
          Bytes(whole.begin() + 1, whole.end()), Bytes(whole.begin(), whole.begin() + 100)})
        EXPECT_EQ(decode(file, 16, 16), same);
}

TEST(Jpeg, NarrowPicturesKeepTheirEdges) {
    for (const auto& [width, height] : {std::pair(1, 1), std::pair(1, 9), std::pair(9, 1)}) {
        const Bytes file = makeJpeg({width, height});
        std::vector<Pixel32> expected = decodeLiterally(file).pixels;
        if (width > 1)
            expected[static_cast<std::size_t>(width) - 1] = expected[static_cast<std::size_t>(width) - 2];
        if (height > 1)
            expected.back() = expected[expected.size() - 2];
        EXPECT_EQ(decode(file, width, height), expected);
    }
}

} // namespace lumenfold::test
