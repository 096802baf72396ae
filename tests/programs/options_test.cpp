// The film tool's command line: what it is taken for, and what is refused in which words.

#include "assets/draw_mode.h"
#include "programs/film_options.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace lumenfold::film {
namespace {

std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

// The message that refuses the line; empty: it is followed.
std::string refusal(const std::string& line) {
    try {
        parseOptions(wordsOf(line));
    } catch (const UsageError& error) {
        return error.what();
    }
    return {};
}

TEST(Options, AreRead) {
    const Options scene = parseOptions(
        wordsOf("--scene twinTunnel --sync 37@1.5,0x3b@20 --fps=30 out.MP4 --hash --scale 2 --seconds .5 --start 1e2"));
    EXPECT_EQ(scene.scene, "twinTunnel");
    EXPECT_EQ(scene.output, "out.MP4");
    EXPECT_EQ(outputKind(scene.output), OutputKind::Film);
    EXPECT_EQ(scene.fps, 30);
    EXPECT_EQ(scene.factor(), 2);
    EXPECT_EQ(frameCount(scene), 15);
    EXPECT_EQ(scene.start, 100.0);
    EXPECT_TRUE(scene.hash);
    ASSERT_EQ(scene.syncs.size(), 2U);
    EXPECT_EQ(scene.syncs[1].value, 59U);
    EXPECT_EQ(scene.syncs[0].units, 1.5);

    const Options object = parseOptions(wordsOf("--object a.lwo,b.jpg,c.jpg --mode 0x19 --scale 2.7 turn.d/"));
    EXPECT_EQ(object.object, "a.lwo");
    EXPECT_EQ(object.textures, (std::vector<std::string>{"b.jpg", "c.jpg"}));
    EXPECT_EQ(object.mode, 0x19U);
    EXPECT_EQ(parseOptions(wordsOf("--object a.lwo,b.jpg --mode affine-add turn.d/")).mode, DrawMode::AffineAdd);
    EXPECT_EQ(object.factor(), 1);
    EXPECT_EQ(outputKind(object.output), OutputKind::Pictures);

    EXPECT_EQ(parseOptions(wordsOf("--fps 010 x")).fps, 10);
    EXPECT_EQ(parseOptions(wordsOf("./-x")).output, "./-x");
    EXPECT_EQ(parseOptions(wordsOf("-- -x")).output, "./-x");
    const Options site = parseOptions(wordsOf("--for-video-site x.mp4"));
    EXPECT_EQ(site.factor(), 4);
    EXPECT_EQ(site.preset, Preset::VideoSite);
}

TEST(Options, ThatAskSomethingAreAnswered) {
    EXPECT_EQ(parseOptions({"--help"}).answer, parseOptions({"-h"}).answer);
    EXPECT_NE(parseOptions({"--help"}).answer.find("--for-video-site"), std::string::npos);
    EXPECT_EQ(parseOptions({"--version"}).answer.rfind("lumenfold-film ", 0), 0U);
    EXPECT_NE(parseOptions({"--scene", "list"}).answer.find("  waveWarp\n"), std::string::npos);
}

TEST(Options, ThatCannotBeFollowedAreRefused) {
    const struct {
        const char* line;
        const char* message; // how it begins
    } table[] = {
        {"", "nothing to make"},
        {"--fps", "--fps: needs one value"},
        {"--fps 0 x", "--fps: \"0\" is not a whole number from 1 to 1000"},
        {"--fps 1.5 x", "--fps: \"1.5\""},
        {"--fps 3x x", "--fps: \"3x\""},
        {"--fps= x", "--fps"},
        {"--to nan x", "--to: \"nan\""},
        {"--to inf x", "--to: \"inf\""},
        {"--from -1 x", "--from: \"-1\""},
        {"--from 5 --to 5 x", "--to: "},
        {"--part 12 x", "--part: \"12\""},
        {"--part 0 x", "--part: \"0\""},
        {"--scale 1.5 x", "--scale: "},
        {"--scale 9 x", "--scale: "},
        {"--object a.lwo --scale 0 x", "--scale: "},
        {"--object a.lwo --mode -1 x", "--mode: \"-1\""},
        {"--object a.lwo --mode 9z x", "--mode: \"9z\""},
        {"--object a.lwo --mode 1099511627776 x", "--mode: \"1099511627776\""},
        {"--object a,b,c,d x", "--object: \"a,b,c,d\" has more than two textures"},
        {"--object a,,c x", "--object: \"a,,c\" has an empty name"},
        {"--object a --scene twinTunnel x", "--"},
        {"--mode 1 x", "--mode requires --object"},
        {"--scene noSuch x", "--scene: no scene is called noSuch"},
        {"--scene twinTunnel --sync 37 x", "--sync: \"37\" is not VALUE@UNITS"},
        {"--scene twinTunnel --sync 300@1 x", "--sync: \"300\""},
        {"--scene twinTunnel --sync 37@z x", "--sync: \"z\""},
        {"--scene twinTunnel --seconds 0 x", "--seconds: shorter than one frame"},
        {"--scene twinTunnel --from 10 x", "--from: the film ends before that"},
        {"--scene twinTunnel --part 4 x", "--part: not together with --scene"},
        {"--sync 37@1 x", "--sync requires --scene"},
        {"--seconds 5 x", "--seconds: needs --scene or --object"},
        {"--sheet x.jpg", "--sheet: contact sheets are .png"},
        {"--preset best x.mp4", "--preset: best"},
        {"--preset archive x.mp4", "--preset: an archive is an .mkv"},
        {"--for-video-site frames/", "--for-video-site: name a film"},
        {"--for-video-site --scale 2 x.mp4", "--scale: not together with --for-video-site"},
        {"x.avi", "x.avi: films are"},
        {"-", "-: "},
        {"-x", "-x: no such option"},
        {"-5", "-5: no such option"},
        {"--nothing x", "--nothing: no such option"},
        {"--fps 30 --fps 60 x", "--fps: needs one value"},
        {"one two", "two: one word too many"},
    };
    for (const auto& row : table)
        EXPECT_EQ(refusal(row.line).rfind(row.message, 0), 0U) << row.line << " -> " << refusal(row.line);
}

} // namespace
} // namespace lumenfold::film
