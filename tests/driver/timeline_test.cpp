#include "core/sync_state.h"
#include "tests/driver/fake_world.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace lumenfold::test {
namespace {

// The whole of a run that a key during loading ends: the key is noticed only when the music plays.
TEST(Run, LoadsBehindTheBarAndShutsDownInOrder) {
    EXPECT_EQ(runProgram({{5, loading, keyPress}}), 0);
    EXPECT_EQ(world.trace,
              "console+ \"fullscreen output\" \"center nearest\" open:lumenfold  - vexa 2000:512x384:0 "
              "show init1 show init2 show init3 show init4 show init5 show init6 show init7 show init8 show init9 "
              "show init10 show init11 init12 clear init13 "
              "MIDASstartup MIDASsetOption(3,150) MIDASsetOption(4,4) MIDASinit MIDASstartBackgroundPlay "
              "MIDASopenChannels bzzzz.xm MIDASloadModule MIDASplayModule MIDASsetMusicSyncCallback "
              "release1 release2 release3 release4 release5 release6 release7 release8 release9 release10 "
              "MIDASstopModule MIDASfreeModule MIDASstopBackgroundPlay MIDASclose console-");
    EXPECT_EQ(world.frames, "");
}

TEST(Run, TheBarGrowsInStripesFromRedTowardsYellow) {
    runProgram({{1, loading, keyPress}});
    const int widths[] = {25, 50, 100, 150, 200, 250, 300, 350, 400, 450, 500};
    ASSERT_EQ(world.pictures.size(), std::size(widths));
    for (std::size_t step = 0; step < std::size(widths); ++step)
        for (int y = 0; y < 384; ++y)
            for (int x = 0; x < 512; ++x) {
                const bool bar = y >= 178 && y <= 193 && x % 2 == 1 && x < widths[step];
                const Pixel32 expected = bar ? 0x00FF0000U | static_cast<Pixel32>(x >> 1) << 8 : 0U;
                ASSERT_EQ(world.pictures[step][static_cast<std::size_t>(y * 512 + x)], expected) << step << " " << x;
            }
}

struct Case {
    const char* name;
    std::vector<Event> script;
    const char* frames; // "!": the depth buffer was not clear
    int tunes;
    int currentPart; // at the end
};

class Timeline : public testing::TestWithParam<Case> {};

TEST_P(Timeline, Frames) {
    EXPECT_EQ(runProgram(GetParam().script), 0);
    EXPECT_EQ(world.frames, GetParam().frames);
    EXPECT_EQ(world.tune, GetParam().tunes);
    EXPECT_EQ(static_cast<int>(syncState.currentPart), GetParam().currentPart);
}

const Event begin{waitingLoop, 1, 0};

// Events of the end scroller that count from part 11 to 31.
std::vector<Event> wholeShow() {
    std::vector<Event> script{begin};
    for (int scene = 1; scene <= 9; ++scene)
        script.push_back({scene, 1, 5});
    script.push_back({12, 1, 31});
    for (int i = 0; i < 20; ++i)
        script.push_back({13, i / 10, 0});
    return script;
}

std::vector<Event> with(std::vector<Event> script, const std::vector<Event>& more) {
    script.insert(script.end(), more.begin(), more.end());
    return script;
}

INSTANTIATE_TEST_SUITE_P(
    , Timeline,
    testing::Values(
        // every part shows two frames; the buffer is clear at each part's first, but not at the scroller's
        Case{"WholeShow", wholeShow(), "1 1! 2 2! 3 3! 4 4! 5 5! 6 6! 7 7! 8 8! 9 9! 12 12! 13! 13! 13!", 2, 31},
        Case{"NothingBeforeTheMusic", {{waitingLoop, 3, keyPress}}, "", 2, 4},
        // parts 2, 3 and 4 follow whatever was counted, and flags do not survive the change
        Case{"CountedPastPart2", with({begin, {1, 0, 1}, {1, 0, 1}, {1, 0, 37}}, {{2, 0, keyPress}}), "1 2", 2, 4},
        Case{"Part5Skipped",
             {begin, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 1, 0}, {4, 1, 0}, {6, 0, keyPress}},
             "1 2 3 4 4! 6",
             2,
             6},
        Case{"KeyInPart5",
             {begin, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 2, keyPress}},
             "1 2 3 4 5 5! 5!",
             2,
             5},
        Case{"KeyInTheScroller", with(wholeShow(), {{13, 1, keyPress}}),
             "1 1! 2 2! 3 3! 4 4! 5 5! 6 6! 7 7! 8 8! 9 9! 12 12! 13! 13!", 2, 31},
        // the end is looked for at the head of the timeline only: here part 2 has been forced long since
        Case{"CountedToTheEndWhileWaiting", with(std::vector<Event>(31, {waitingLoop, 0, 0}), {{2, 1, keyPress}}),
             "2 2!", 2, 4}),
    [](const testing::TestParamInfo<Case>& test) { return std::string(test.param.name); });

TEST(TimelineEnds, AtOnceWhenTheMusicCountedToTheEndWhileLoading) {
    // no callback is installed yet, but the bytes are the scenes' too
    EXPECT_EQ(runProgram(std::vector<Event>(31, {3, loading, 0})), 0);
    EXPECT_EQ(world.frames, "");
    EXPECT_EQ(world.tune, 1);
}

// Not counted to the end: parts 2 and on follow the end tune, the tune starts again, the scroller is not repeated.
TEST(TimelineEnds, NotBeforeASecondPass) {
    std::vector<Event> script = wholeShow();
    script.resize(11); // up to the change to part 11
    script.push_back({2, 2, 37});
    script.push_back({2, 3, keyPress});
    EXPECT_EQ(runProgram(script), 0);
    EXPECT_EQ(world.frames, "1 1! 2 2! 3 3! 4 4! 5 5! 6 6! 7 7! 8 8! 9 9! 12 12! 13! 13! 13! 2 2!");
    EXPECT_EQ(world.tune, 3);
}

TEST(TimelineEnds, AndTheProcessCanRunItAgainWithTheSameFramesAndTimes) {
    runProgram(wholeShow());
    const FakeWorld first = world;
    runProgramAgain();
    EXPECT_EQ(world.frames, first.frames);
    EXPECT_EQ(world.times, first.times);
    EXPECT_EQ(world.trace, first.trace);
}

} // namespace
} // namespace lumenfold::test
