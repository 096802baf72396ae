#include "core/sync_state.h"
#include "driver/scene_table.h"
#include "tests/driver/fake_world.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace lumenfold::test {
namespace {

// The whole of a run that a key during loading ends: the key is noticed only when the music plays.
TEST(Run, LoadsBehindTheBarAndShutsDownInOrder) {
    EXPECT_EQ(runProgram({{5, loading, keyPress}}), 0);
    std::string inits;
    std::string releases;
    for (const SceneRow& row : sceneTable()) {
        const std::string label = row.part == noPart ? row.name : std::to_string(row.part);
        inits += (row.barWidth > 0 ? "show " : row.part == scrollerPart ? "clear " : "") + ("init-" + label) + " ";
        releases += row.released ? "release-" + label + " " : "";
    }
    EXPECT_EQ(world.trace,
              "console+ \"fullscreen output\" \"center nearest\" open:lumenfold  - vexa 2000:512x384:0 " + inits +
                  "MIDASstartup MIDASsetOption(3,150) MIDASsetOption(4,4) MIDASinit MIDASstartBackgroundPlay "
                  "MIDASopenChannels bzzzz.xm MIDASloadModule MIDASplayModule MIDASsetMusicSyncCallback " +
                  releases + "MIDASstopModule MIDASfreeModule MIDASstopBackgroundPlay MIDASclose console-");
    EXPECT_EQ(world.frames, "");
}

TEST(Run, TheBarGrowsInStripesFromRedTowardsYellow) {
    runProgram({{1, loading, keyPress}});
    std::size_t step = 0;
    for (const SceneRow& row : sceneTable()) {
        if (row.barWidth == 0)
            continue;
        ASSERT_LT(step, world.pictures.size());
        for (int y = 0; y < 384; ++y)
            for (int x = 0; x < 512; ++x) {
                const bool bar = y >= 178 && y <= 193 && x % 2 == 1 && x < row.barWidth;
                const Pixel32 expected = bar ? 0x00FF0000U | static_cast<Pixel32>(x >> 1) << 8 : 0U;
                ASSERT_EQ(world.pictures[step][static_cast<std::size_t>(y * 512 + x)], expected) << step << " " << x;
            }
        ++step;
    }
    EXPECT_EQ(step, world.pictures.size());
}

struct Case {
    const char* name;
    std::vector<Event> script;
    std::string frames; // "!": the depth buffer was not clear
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

// Every part lasts two frames; the scroller's events count on to the end.
std::vector<Event> wholeShow() {
    std::vector<Event> script{begin};
    for (int part = 1; part <= mainParts; ++part)
        script.push_back({part, 1, 5});
    for (int i = 0; i < finishedPart - scrollerPart; ++i)
        script.push_back({scrollerPart, i / 10, 0});
    return script;
}

// The buffer is clear at each part's first frame, but not at the scroller's.
std::string wholeFrames(int scrollerFrames) {
    std::string frames;
    for (int part = 1; part <= mainParts; ++part)
        frames += std::to_string(part) + " " + std::to_string(part) + "! ";
    for (int i = 0; i < scrollerFrames; ++i)
        frames += std::to_string(scrollerPart) + (i + 1 < scrollerFrames ? "! " : "!");
    return frames;
}

std::vector<Event> with(std::vector<Event> script, const std::vector<Event>& more) {
    script.insert(script.end(), more.begin(), more.end());
    return script;
}

INSTANTIATE_TEST_SUITE_P(
    , Timeline,
    testing::Values(Case{"WholeShow", wholeShow(), wholeFrames(3), 2, 31},
                    Case{"NothingBeforeTheMusic", {{waitingLoop, 3, keyPress}}, "", 2, 4},
                    // parts 2, 3 and 4 follow whatever was counted, and flags do not survive the change
                    Case{"CountedPastPart2", with({begin, {1, 0, 1}, {1, 0, 1}, {1, 0, 37}}, {{2, 0, keyPress}}), "1 2",
                         2, 4},
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
                    Case{"KeyInTheScroller", with(wholeShow(), {{scrollerPart, 1, keyPress}}), wholeFrames(2), 2, 31},
                    // the end is looked for at the head of the timeline only: here part 2 has been forced long since
                    Case{"CountedToTheEndWhileWaiting",
                         with(std::vector<Event>(31, {waitingLoop, 0, 0}), {{2, 1, keyPress}}), "2 2!", 2, 4}),
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
    script.resize(1 + mainParts); // up to the change to the scroller
    script.push_back({2, 2, 37});
    script.push_back({2, 3, keyPress});
    EXPECT_EQ(runProgram(script), 0);
    EXPECT_EQ(world.frames, wholeFrames(3) + " 2 2!");
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
