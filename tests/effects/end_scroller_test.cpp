#include "effects/end_scroller.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <vector>

namespace lumenfold {
namespace {

constexpr FrameInfo frame{512, 384, 1, 22050, 1};
constexpr int pictureRows = 1400;

// Row y in one colour: blue y / 16, green y % 16 (below the values that PCX marks runs with).
Pixel32 colourOf(int row) {
    return static_cast<Pixel32>((row % 16) << 8 | row / 16);
}

void writePicture(const std::filesystem::path& path) {
    std::ofstream file(path, std::ios::binary);
    file << std::string(128, '\0');
    for (int row = 0; row < pictureRows; ++row)
        for (const int shift : {16, 8, 0}) // lines of red, green and blue in runs of 32
            for (int x = 0; x < 512; x += 32)
                file << static_cast<char>(0xC0 | 32) << static_cast<char>(colourOf(row) >> shift & 255);
}

class EndScroller : public testing::Test {
  protected:
    void SetUp() override {
        home = std::filesystem::current_path();
        folder = std::filesystem::temp_directory_path() / "lumenfold_end_scroller";
        std::filesystem::create_directories(folder);
        writePicture(folder / "endscroll.pcx");
        std::filesystem::current_path(folder);
        endScroller(frame, EffectCommand::Init, nullptr, 0.0F);
    }
    void TearDown() override {
        std::filesystem::current_path(home);
        std::filesystem::remove_all(folder);
    }

    std::filesystem::path home, folder;
};

TEST_F(EndScroller, RollsWrapsAndEnds) {
    std::vector<Pixel32> pixels(512 * 384);
    int frames = 0;
    while (!endScrollDone) {
        endScroller(frame, EffectCommand::Render, pixels.data(), 0.0F);
        ++frames;
        ASSERT_LE(frames, 10006);
        if (frames == 1 || frames == 4 || frames == 5092 || frames == 7003 || frames == 10006) {
            // the row at the top tells the scroll position; every row below follows, wrapping at 1400
            int top = 0;
            while (colourOf(top) != pixels[0])
                ++top;
            for (int y = 0; y < 384; ++y)
                for (const int x : {0, 511})
                    ASSERT_EQ(pixels[static_cast<std::size_t>(y * 512 + x)], colourOf((top + y) % pictureRows))
                        << "frame " << frames << " row " << y;
            if (frames < 5 || frames == 10006) {
                EXPECT_EQ(top, frames < 5 ? 0 : 601);
            }
        }
    }
    EXPECT_EQ(frames, 10006);
    endScroller(frame, EffectCommand::Init, nullptr, 0.0F);
    EXPECT_EQ(endScrollDone, 0); // loading again starts again
}

} // namespace
} // namespace lumenfold
