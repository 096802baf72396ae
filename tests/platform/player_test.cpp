#include "platform/player/module_player.h"
#include "platform/player/xm_layout.h"
#include "tests/platform/tiny_xm.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace lumenfold {
namespace {

using test::TinyXm;

std::string tunePath() {
    return testing::TempDir() + "player_test.xm";
}

struct Heard {
    std::vector<float> samples;
    std::vector<SyncCommand> syncs;
};

// Plays so many seconds in pieces of the given size.
Heard play(const TinyXm& tune, double seconds, std::size_t piece) {
    tune.write(tunePath());
    ModulePlayer player(tunePath());
    Heard heard;
    const auto frames = static_cast<std::size_t>(seconds * soundRate);
    heard.samples.resize(frames * 2);
    for (std::size_t at = 0; at < frames; at += piece) {
        SyncCommand command;
        while (player.takeSync(player.position(), command))
            heard.syncs.push_back(command);
        player.render(heard.samples.data() + at * 2, std::min(piece, frames - at));
    }
    return heard;
}

// "position of the row:value" for every command, positions in rows of 120 ms.
std::string inRows(const std::vector<SyncCommand>& syncs) {
    constexpr double rowFrames = soundRate * 0.12;
    std::string text;
    for (const SyncCommand& sync : syncs) {
        const double row = static_cast<double>(sync.position) / rowFrames;
        EXPECT_NEAR(row, std::round(row), 1.0 / rowFrames);
        text += (text.empty() ? "" : " ") + std::to_string(std::lround(row)) + ":" + std::to_string(sync.value);
    }
    return text;
}

struct Case {
    const char* name;
    TinyXm tune;
    double seconds;
    const char* syncs;
};

class PlayerSyncs : public testing::TestWithParam<Case> {};

TEST_P(PlayerSyncs, ComeInOrderWithTheirRows) {
    EXPECT_EQ(inRows(play(GetParam().tune, GetParam().seconds, 64).syncs), GetParam().syncs);
    EXPECT_EQ(inRows(play(GetParam().tune, GetParam().seconds, 801).syncs), GetParam().syncs);
}

constexpr std::uint8_t sync = 0x20;

TinyXm tune(std::vector<std::uint8_t> order, std::vector<int> rows, std::vector<test::Command> commands) {
    return {4, 6, 125, 0, std::move(order), std::move(rows), std::move(commands)};
}

TinyXm restarting(TinyXm xm, std::uint16_t order) {
    xm.restart = order;
    return xm;
}

const Case cases[] = {
    // 8 rows, again and again; channel order within a row
    {"LoopAndChannels",
     tune({0}, {8}, {{0, 0, 1, sync, 1}, {0, 3, 2, sync, 37}, {0, 3, 0, sync, 59}, {0, 7, 3, sync, 255}}), 2.0,
     "0:1 3:59 3:37 7:255 8:1 11:59 11:37 15:255 16:1"},
    // patterns of 2 and 4 rows; the loop leaves the first one out
    {"Restart", restarting(tune({0, 1}, {2, 4}, {{0, 1, 0, sync, 5}, {1, 0, 0, sync, 36}}), 1), 1.5,
     "1:5 2:36 6:36 10:36"},
    // E6x plays rows 1 to 2 three times
    {"PatternLoop",
     tune({0}, {8}, {{0, 1, 0, 0xE, 0x60}, {0, 2, 0, 0xE, 0x62}, {0, 2, 1, sync, 32}, {0, 5, 0, sync, 33}}), 1.4,
     "2:32 4:32 6:32 9:33"},
    // one row that repeats itself
    {"OneRow", tune({0}, {1}, {{0, 0, 1, sync, 9}}), 0.4, "0:9 1:9 2:9 3:9"},
    // EE2 holds row 1 for three rows' time; its command counts once
    {"PatternDelay", tune({0}, {8}, {{0, 1, 0, 0xE, 0xE2}, {0, 1, 1, sync, 39}, {0, 2, 1, sync, 59}}), 0.8,
     "1:39 4:59"},
    // at speed 3 rows take half the time, at tempo 250 a quarter
    {"SpeedAndTempo", tune({0}, {16}, {{0, 2, 0, 0xF, 3}, {0, 4, 0, sync, 1}, {0, 4, 1, 0xF, 250}, {0, 8, 1, sync, 2}}),
     0.7, "3:1 4:2"},
    // jump over rows
    {"Break", tune({0, 1}, {8, 4}, {{0, 1, 0, 0xD, 2}, {0, 2, 0, sync, 7}, {1, 2, 0, sync, 8}, {1, 1, 0, sync, 6}}),
     0.9, "2:8 6:8"},
};

INSTANTIATE_TEST_SUITE_P(, PlayerSyncs, testing::ValuesIn(cases),
                         [](const testing::TestParamInfo<Case>& test) { return std::string(test.param.name); });

// The row's first sample is the click's first: 140 BPM, whose ticks are no whole number of samples.
TEST(Player, SyncAndSoundOfARowBeginTogether) {
    TinyXm tune{1, 6, 140, 0, {0}, {64}, {}};
    for (int row = 0; row < 64; row += 4)
        tune.commands.push_back({0, row, 0, sync, 32, true});
    const Heard heard = play(tune, 10.0, 800);
    ASSERT_GT(heard.syncs.size(), 20U);
    for (const SyncCommand& command : heard.syncs) {
        auto at = static_cast<std::size_t>(command.position);
        const std::size_t limit = at + 48; // a millisecond
        if (limit * 2 >= heard.samples.size())
            break;
        if (at >= 10) {
            EXPECT_LT(std::fabs(heard.samples[(at - 10) * 2]), 0.001F) << command.position;
        }
        while (at < limit && std::fabs(heard.samples[at * 2]) < 0.01F)
            ++at;
        EXPECT_LT(at, limit) << command.position;
    }
}

TEST(Player, WhatComesOutDependsOnTheFileAlone) {
    TinyXm tune{2, 5, 133, 0, {0}, {16}, {}};
    for (int row = 0; row < 16; row += 3)
        tune.commands.push_back({0, row, row % 2, sync, 32, true});
    const Heard small = play(tune, 3.0, 17);
    const Heard large = play(tune, 3.0, 4096);
    EXPECT_EQ(small.samples, large.samples);
}

// The pattern of a small tune ends here; after it comes the instrument, or its samples.
std::size_t patternEnd(const TinyXm& tune, const std::vector<std::uint8_t>& bytes) {
    constexpr std::size_t samples = 64;
    constexpr std::size_t instrument = 263 + 40;
    return bytes.size() - samples - (tune.version >= 0x0104 ? instrument : 0);
}

TEST(Player, RefusesWhatHasLostItsPatterns) {
    for (const std::uint16_t version : {0x0102, 0x0103, 0x0104}) {
        TinyXm tune{2, 6, 125, 0, {0}, {8}, {{0, 0, 0, sync, 1}}};
        tune.version = version;
        const std::vector<std::uint8_t> whole = tune.bytes();
        EXPECT_EQ(xmLayout(whole).fault, "");
        EXPECT_FALSE(xmLayout(whole).cutShort);
        for (std::size_t size = 60; size < whole.size(); ++size) {
            const XmLayout layout = xmLayout({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
            const bool patternsLost = size < patternEnd(tune, whole);
            EXPECT_EQ(layout.fault, patternsLost ? "the file ends before its patterns do" : "") << size;
            EXPECT_TRUE(layout.cutShort) << size;
        }
    }
    // Samples that are packed into half their bytes, and a table of 16.
    std::vector<std::uint8_t> packed = TinyXm{2, 6, 125, 0, {0}, {8}, {}}.bytes();
    packed[packed.size() - 64 - 40 + 17] = 0xAD;
    packed.resize(packed.size() - 64 + 16 + 32);
    EXPECT_FALSE(xmLayout(packed).cutShort);
    packed.pop_back();
    EXPECT_TRUE(xmLayout(packed).cutShort);
    EXPECT_EQ(xmLayout({}).fault, "not an XM module");
    EXPECT_EQ(xmLayout(std::vector<std::uint8_t>(100, 'x')).fault, "not an XM module");
}

// The same music and commands from files of older versions, and from one without the end of its samples.
TEST(Player, PlaysOlderAndShortenedTunes) {
    TinyXm tune{4, 6, 125, 0, {0, 1}, {8, 16}, {}};
    for (int row = 0; row < 16; row += 3)
        tune.commands.push_back({row % 2, row / 2, row % 3, sync, static_cast<std::uint8_t>(row), true});
    const Heard expected = play(tune, 4.0, 1000);
    ASSERT_GT(*std::max_element(expected.samples.begin(), expected.samples.end()), 0.01F);
    for (const std::uint16_t version : {0x0102, 0x0103}) {
        tune.version = version;
        const Heard heard = play(tune, 4.0, 1000);
        EXPECT_EQ(heard.samples, expected.samples) << version;
        EXPECT_EQ(inRows(heard.syncs), inRows(expected.syncs)) << version;
    }
    std::vector<std::uint8_t> bytes = tune.bytes();
    bytes.resize(bytes.size() - 9);
    testing::internal::CaptureStderr();
    ModulePlayer player(bytes, "short tune.xm");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "lumenfold: short tune.xm: the file ends early; some of its samples are missing\n");
    std::vector<float> samples(expected.samples.size());
    player.render(samples.data(), samples.size() / 2);
    EXPECT_GT(*std::max_element(samples.begin(), samples.end()), 0.01F);
}

TEST(Player, NamesTheFileAndTheCause) {
    for (const char* message :
         {"no-such-file.xm: cannot be opened: No such file or directory", ".: cannot be opened: Is a directory"})
        try {
            const std::string text = message;
            ModulePlayer player(text.substr(0, text.find(':')));
            FAIL();
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(std::string(error.what()), message);
        }
}

// Every tune of a game's package plays, whole and without the end of its samples.
TEST(Player, TunesOfAPackage) {
    const std::filesystem::path folder = "/usr/share/games/heroes/mod";
    if (!std::filesystem::exists(folder))
        GTEST_SKIP() << "heroes-sound-tracks is not installed";
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".xm")
            continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        EXPECT_FALSE(xmLayout(bytes).cutShort) << entry.path();
        for (const std::size_t removed : {std::size_t{0}, std::size_t{9}}) {
            bytes.resize(bytes.size() - removed);
            testing::internal::CaptureStderr();
            ModulePlayer player(bytes, entry.path().filename().string());
            EXPECT_EQ(testing::internal::GetCapturedStderr().empty(), removed == 0) << entry.path();
            std::vector<float> samples(std::size_t{soundRate} * 4);
            player.render(samples.data(), samples.size() / 2);
            EXPECT_GT(*std::max_element(samples.begin(), samples.end()), 0.05F) << entry.path();
            EXPECT_GT(player.duration(), 10.0);
        }
        ++count;
    }
    EXPECT_GE(count, 13);
}

// Sizes of 0 and of 4 billion, in every place of the header, neither hang nor read beyond the file.
TEST(Player, DamagedHeadersEndTheWalk) {
    const std::vector<std::uint8_t> whole = TinyXm{2, 6, 125, 0, {0}, {8}, {}}.bytes();
    for (std::size_t at = 58; at < whole.size(); ++at)
        for (const std::uint8_t byte : {0, 255}) {
            std::vector<std::uint8_t> damaged = whole;
            for (std::size_t i = at; i < std::min(at + 4, damaged.size()); ++i)
                damaged[i] = byte;
            xmLayout(damaged);
        }
}

} // namespace
} // namespace lumenfold
