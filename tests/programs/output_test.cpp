// Outputs as transactions: until a film is finished nothing lies under its name that was not there before.

#include "driver/session.h"
#include "programs/film.h"
#include "programs/film_output.h"
#include "programs/pending_file.h"
#include "programs/progress.h"
#include "programs/system.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace lumenfold::film {
namespace {

namespace fs = std::filesystem;

class Outputs : public testing::Test {
  protected:
    Outputs() : folder(fs::path(testing::TempDir()) / ("output_test" + std::to_string(processNumber()))) {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    ~Outputs() override { fs::remove_all(folder); }

    std::string path(const std::string& name) const { return (folder / name).string(); }

    void put(const std::string& name, const std::string& text) const { std::ofstream(path(name)) << text; }

    std::string contents(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    std::size_t entries(const std::string& name = "") const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder / name), fs::directory_iterator()));
    }

    fs::path folder;
};

std::string errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

TEST_F(Outputs, KeepTheEarlierFileUntilTheEnd) {
    put("film", "earlier");
    {
        const PendingFile file(path("film"));
        std::ofstream(file.place()) << "half";
        EXPECT_EQ(contents("film"), "earlier");
    }
    EXPECT_EQ(contents("film"), "earlier");
    EXPECT_EQ(entries(), 1U);

    for (const char* name : {"film", "later"}) { // the latter is not there yet
        fs::remove(folder / "link");
        fs::create_symlink(name, folder / "link");
        PendingFile file(path("link"));
        std::ofstream(file.place()) << "whole";
        file.rename();
        EXPECT_EQ(contents(name), "whole");
        EXPECT_TRUE(fs::is_symlink(folder / "link"));
    }
    EXPECT_EQ(entries(), 3U);
}

TEST_F(Outputs, AreRefusedWhereTheyCannotBeWritten) {
    fs::create_directory(folder / "folder.mp4");
    EXPECT_NE(errorOf([&] { PendingFile file(path("folder.mp4")); }).find("is a folder"), std::string::npos);
    EXPECT_NE(errorOf([&] { PendingFile file(path("none/film.mp4")); }).find("No such file"), std::string::npos);
    EXPECT_NE(errorOf([] { PendingFile file("/dev/null"); }).find("plain file"), std::string::npos);
    put("file", "no folder");
    EXPECT_NE(errorOf([&] { makePictureFolder(path("file")); }).find("not a folder"), std::string::npos);
    EXPECT_NE(errorOf([&] { makePictureFolder(path("file/frames")); }), "");
    EXPECT_EQ(contents("file"), "no folder");
}

// What every kind of output leaves behind: nothing before the end, and something after it.
TEST_F(Outputs, LeaveNothingUnlessTheyAreFinished) {
    const std::vector<Pixel32> picture(std::size_t{64} * 48, 0x00808080);
    const std::vector<float> sound(2 * 800);
    Options options;
    for (const std::string name : {"deep/frames", "sound.wav", "sheet.png", "film.mp4"}) {
        const auto make = [&]() -> std::unique_ptr<Output> {
            if (ending(name) == ".png")
                return makeContactSheet(path(name), 60, false);
            return ending(name) == ".mp4"   ? makeEncodedFilm(options, path(name))
                   : ending(name) == ".wav" ? makeWaveFile(path(name))
                                            : makePictureFolder(path(name));
        };
        if (ending(name) == ".mp4" && !programExists("ffmpeg"))
            continue;
        {
            const auto output = make();
            EXPECT_EQ(entries(), 0U) << name;
            output->frame({0, 0.0F, 1, picture.data(), 64, 48});
            output->sound(sound.data(), 800);
            EXPECT_FALSE(fs::exists(path(name) + "/frame000000.png"));
        }
        EXPECT_EQ(entries(), 0U) << name;
        if (ending(name) == ".mp4")
            continue; // below
        const auto output = make();
        output->frame({0, 0.0F, 1, picture.data(), 64, 48});
        output->sound(sound.data(), 800);
        output->finish();
        EXPECT_TRUE(fs::exists(path(name)));
        EXPECT_EQ(output->written().rfind(path(name) + ": ", 0), 0U);
        EXPECT_EQ(entries(), 1U) << name;
        fs::remove_all(folder / name);
        fs::remove_all(folder / "deep");
    }
}

TEST_F(Outputs, CountThePicturesOfAnEarlierRun) {
    const std::vector<Pixel32> picture(4);
    for (const int first : {0, 2}) {
        const auto output = makePictureFolder(path("frames/"));
        for (int number = first; number < first + 3; ++number)
            output->frame({number, 0.0F, 1, picture.data(), 2, 2});
        output->finish();
        EXPECT_EQ(output->written(),
                  path("frames") + ": 3 pictures" + (first > 0 ? ", beside 2 of an earlier run" : ""));
    }
    EXPECT_EQ(entries("frames"), 5U);
}

TEST_F(Outputs, OfAFilmWithoutFramesStayAway) {
    put("sound.wav", "earlier");
    Options options;
    options.from = 5.0;
    Film film(options);
    film.add(makeWaveFile(path("sound.wav")));
    const std::vector<Pixel32> picture(4);
    film.frame(0, picture.data(), 2, 2);
    EXPECT_NE(errorOf([&] { film.finish(); }).find("no frame was made"), std::string::npos);
    EXPECT_EQ(contents("sound.wav"), "earlier");
}

std::string outputOf(const std::string& command) {
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::string text;
    char block[4096];
    for (std::size_t size = 0; (size = std::fread(block, 1, sizeof block, pipe)) > 0;)
        text.append(block, size);
    pclose(pipe);
    return text;
}

class Films : public Outputs {
  protected:
    void SetUp() override {
        if (!programExists("ffmpeg") || !programExists("ffprobe"))
            GTEST_SKIP() << "ffmpeg is not installed";
    }

    // Three frames of noise from each of some parts.
    void film(const Options& options, const std::string& name) {
        const auto output = makeEncodedFilm(options, path(name));
        std::vector<Pixel32> picture(std::size_t{frameInfo.width} * frameInfo.height);
        const std::vector<float> sound(2 * 800, 0.25F);
        std::uint32_t noise = 1;
        for (int number = 0; number < 9; ++number) {
            for (Pixel32& pixel : picture) {
                pixel = (noise = noise * 1664525 + 1013904223) >> 8;
                pixels += {static_cast<char>(pixel >> 16), static_cast<char>(pixel >> 8), static_cast<char>(pixel)};
            }
            const std::int32_t parts[] = {0, 4, 11};
            output->frame({number, 0.0F, parts[number / 3], picture.data(), frameInfo.width, frameInfo.height});
            output->sound(sound.data(), 800);
        }
        output->finish();
    }

    std::string probed(const std::string& name) {
        return outputOf("ffprobe -v error -of default=nw=1 -show_entries stream=width,height,sample_aspect_ratio:"
                        "chapter=start_time:chapter_tags=title:format_tags=title '" +
                        path(name) + "'");
    }

    std::string pixels; // as red, green, blue
};

TEST_F(Films, HaveTitleChaptersAndSquarePixels) {
    Options options;
    options.preset = Preset::Fast;
    options.scale = 2;
    for (const std::string name : {"film.mp4", "film.mkv", "film.webm"}) {
        film(options, name);
        const std::string text = probed(name);
        for (const std::string part :
             {"start_time=0.000000\nTAG:title=Part 4: twin tunnel\n", "TAG:title=End scroller\n", "start_time=0.100",
              "TAG:title=lumenfold\n", "width=1024\nheight=768\nsample_aspect_ratio=1:1\n"})
            EXPECT_NE(text.find(part), std::string::npos) << name << ": " << part << " is not in\n" << text;
    }
    EXPECT_EQ(entries(), 3U);
}

TEST_F(Films, OfTheArchiveKeepEveryPixel) {
    Options options;
    options.preset = Preset::Archive;
    film(options, "film.mkv");
    EXPECT_TRUE(outputOf("ffmpeg -v error -i '" + path("film.mkv") + "' -f rawvideo -pix_fmt rgb24 -") == pixels);
}

TEST(Progress, FitsAnyTerminal) {
    const ProgressState state{299, 600, 4, 10.0};
    EXPECT_EQ(progressLine(state, 80),
              "part  4  frame 299 of 600  30 frames/s  [#############             ]  0:10 left");
    EXPECT_EQ(progressLine(state, 50), "part  4  frame 299 of 600  30 frames/s  0:10 left");
    EXPECT_EQ(progressLine({7199, 0, 11, 60.0}, 80), "part 11  frame 7199  120 frames/s");
    EXPECT_EQ(progressLine({0, 1000000, 0, 1.0}, 200).substr(102), "]  277:46:39 left");
    for (int columns = 0; columns < 200; ++columns)
        EXPECT_LT(progressLine(state, columns).size(), static_cast<std::size_t>(std::max(columns, 1)));
}

} // namespace
} // namespace lumenfold::film
