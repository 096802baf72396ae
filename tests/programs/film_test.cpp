#include "programs/film_hash.h"
#include "programs/film_output.h"
#include "programs/pipe_process.h"
#include "programs/sound_bytes.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace lumenfold::film {
namespace {

std::string contents(const std::string& fileName) {
    std::ifstream file(fileName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(Hash, IsFnv1aOverBlueGreenRed) {
    // The published value for the three bytes "foo", and the top byte does not count.
    const Pixel32 foo = 0xFF000000U | 'o' << 16 | 'o' << 8 | 'f';
    const Pixel32 other = 0;
    EXPECT_EQ(hashPictures({&foo, &other, &foo, &other}, 1)[0], 0xDCB27518FED9D577U);
    EXPECT_EQ(hashPictures({&other, &other, &foo, &other}, 1)[2], 0xDCB27518FED9D577U);
}

TEST(Hash, PrintsEveryFrameOnce) {
    for (const bool ended : {true, false}) { // or given up after an error
        std::FILE* file = std::tmpfile();
        auto lines = makeHashLines(file);
        const Pixel32 foo = 'o' << 16 | 'o' << 8 | 'f';
        for (int number = 0; number < 6; ++number)
            lines->frame({number, 2.86399997F, 7, &foo, 1, 1});
        if (ended)
            lines->finish();
        lines.reset();
        std::rewind(file);
        char text[64];
        for (int number = 0; number < 6; ++number) {
            ASSERT_NE(std::fgets(text, sizeof text, file), nullptr);
            EXPECT_EQ(std::string(text), std::to_string(number) + " 2.86400008 7 dcb27518fed9d577\n");
        }
        EXPECT_EQ(std::fgets(text, sizeof text, file), nullptr);
        std::fclose(file);
    }
}

TEST(Sound, IsRoundedLimitedAndHasItsLengthInTheFile) {
    const float samples[] = {0.0F, 1.0F, -1.0F, 2.0F, -2.0F, 0.5F};
    const std::vector<std::uint8_t> bytes = soundBytes(samples, 3);
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{0, 0, 0xFF, 0x7F, 0x01, 0x80, 0xFF, 0x7F, 0x00, 0x80, 0x00, 0x40}));
    const std::string path = testing::TempDir() + "film_test.wav";
    const auto wave = makeWaveFile(path);
    wave->sound(samples, 3);
    wave->finish();
    const std::string file = contents(path);
    ASSERT_EQ(file.size(), 44U + 12U);
    EXPECT_EQ(file[4], 36 + 12);
    EXPECT_EQ(file[40], 12);
}

std::vector<std::string> shell(const std::string& script) {
    return {"sh", "-c", script};
}

// A reader that wants whole stretches of one stream before it touches the other.
TEST(Pipes, NeverWaitForOneStreamWhileTheOtherIsWanted) {
    const std::string path = testing::TempDir() + "film_test.pipes";
    PipeProcess reader(shell("for i in 1 2 3 4 5; do head -c 400000 <&3; head -c 1000000; done >" + path), path);
    const std::vector<std::uint8_t> picture(50000, 'p');
    const std::vector<std::uint8_t> sound(20000, 's');
    for (int frame = 0; frame < 100; ++frame) {
        reader.write(PipeProcess::pictures, picture.data(), picture.size());
        reader.write(PipeProcess::sounds, sound.data(), sound.size());
    }
    reader.finish();
    std::string expected;
    for (int i = 0; i < 5; ++i)
        expected += std::string(400000, 's') + std::string(1000000, 'p');
    EXPECT_TRUE(contents(path) == expected);
}

TEST(Pipes, TellTheReadersReason) {
    const auto failure = [](const std::vector<std::string>& command, int frames) -> std::string {
        try {
            PipeProcess reader(command, "film.mp4");
            const std::vector<std::uint8_t> picture(100000, 'p');
            for (int frame = 0; frame < frames; ++frame)
                reader.write(PipeProcess::pictures, picture.data(), picture.size());
            reader.finish();
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(failure(shell("echo first >&2; echo disk full >&2; exit 3"), 50),
              "film.mp4: the encoder failed: disk full");
    EXPECT_EQ(failure(shell("cat >/dev/null; echo late >&2; exit 1"), 2), "film.mp4: the encoder failed: late");
    EXPECT_EQ(failure(shell("exit 0"), 50), "film.mp4: the encoder ended before the film");
    EXPECT_EQ(failure({"no-such-encoder"}, 1),
              "film.mp4: no-such-encoder cannot be started: No such file or directory; it makes the film and has to be "
              "installed");
}

// Long parts and short ones; the sheet holds four moments of each.
TEST(Sheet, TakesAnyNumberOfFrames) {
    const std::string path = testing::TempDir() + "film_test.png";
    const std::vector<Pixel32> picture(64 * 48, 0x00808080);
    for (const int frames : {0, 1, 3, 16, 17, 1000}) {
        const auto sheet = makeContactSheet(path, 60, false);
        for (int number = 0; number < frames; ++number)
            sheet->frame({number, 0.0F, number < 5 ? 1 : 2, picture.data(), 64, 48});
        sheet->finish();
        EXPECT_EQ(contents(path).substr(1, 3), "PNG") << frames;
    }
}

} // namespace
} // namespace lumenfold::film
