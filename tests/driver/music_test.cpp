#include "core/sync_state.h"
#include "driver/music.h"
#include "tests/driver/fake_world.h"

#include <cctype>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace lumenfold::test {
namespace {

const std::string errorExit = "\nMIDAS error: the cause\n";

struct Failure {
    const char* call; // a number after it: only with that tune
    int status;
    std::string printed;
    const char* lastCalls; // the end of the trace
};

std::string nameOf(const testing::TestParamInfo<Failure>& info) {
    std::string name;
    for (const char letter : std::string(info.param.call))
        if (std::isalnum(static_cast<unsigned char>(letter)) != 0)
            name += letter;
    return name;
}

class MusicCall : public testing::TestWithParam<Failure> {};

// One music call fails; a key in part 1 sends everything else through the switch to the end.
TEST_P(MusicCall, Fails) {
    world = {};
    world.script = {{waitingLoop, 0, 0}, {1, 0, keyPress}};
    std::string call = GetParam().call;
    world.failing = {call};
    std::string printed;
    EXPECT_EQ(runProgramAgain(&printed), GetParam().status);
    EXPECT_EQ(printed, GetParam().printed);
    const std::string end = GetParam().lastCalls;
    ASSERT_GE(world.trace.size(), end.size());
    EXPECT_EQ(world.trace.substr(world.trace.size() - end.size()), end);
}

INSTANTIATE_TEST_SUITE_P(
    , MusicCall,
    testing::Values(
        Failure{"MIDASstartup", 0, "", "MIDASstopBackgroundPlay MIDASclose console-"}, // results that nobody reads
        Failure{"MIDASsetOption(3,150)", 0, "", "MIDASclose console-"},
        Failure{"MIDASinit 1", 1, errorExit, "MIDASsetOption(4,4) MIDASinit MIDASclose console-"},
        Failure{"MIDASinit 2", 1, errorExit, "MIDASsetOption(4,4) MIDASinit MIDASclose console-"},
        Failure{"MIDASstartBackgroundPlay 1", 1, errorExit, "MIDASstartBackgroundPlay MIDASclose console-"},
        Failure{"MIDASopenChannels 1", 1, errorExit, "MIDASopenChannels MIDASclose console-"},
        Failure{"MIDASloadModule 1", 1, errorExit, "bzzzz.xm MIDASloadModule MIDASclose console-"},
        Failure{"MIDASloadModule 2", 1, errorExit, "endtune.xm MIDASloadModule MIDASclose console-"},
        Failure{"MIDASplayModule 1", 1, errorExit, "MIDASplayModule MIDASclose console-"},
        Failure{"MIDASplayModule 2", 1, errorExit, "MIDASplayModule MIDASclose console-"},
        Failure{"MIDASsetMusicSyncCallback 1", 0, "No torvquil!\n",
                "MIDASsetMusicSyncCallback close report:Midas my ass!, somethings smelly.. console-"},
        Failure{"MIDASsetMusicSyncCallback 2", 0, "No torvquil!\n",
                "MIDASsetMusicSyncCallback close report:Midas my ass!, somethings smelly.. console-"},
        Failure{"MIDASstopModule 1", 1, errorExit, "MIDASstopModule MIDASclose console-"},
        Failure{"MIDASstopModule 2", 1, errorExit, "release-dormantSparkPlane MIDASstopModule MIDASclose console-"},
        Failure{"MIDASfreeModule 1", 0, "",
                "MIDASstopModule MIDASfreeModule MIDASstopBackgroundPlay MIDASclose console-"},
        Failure{"MIDASstopBackgroundPlay 1", 1, errorExit, "MIDASstopBackgroundPlay MIDASclose console-"},
        Failure{"MIDASclose 1", 1, errorExit + "\nBIG PANIC! MIDASclose Failed: the cause\n",
                "MIDASstopBackgroundPlay MIDASclose MIDASclose console-"}),
    nameOf);

TEST(MusicCallsTogether, AModuleThatIsNotFreedReportsNothingAnyMore) {
    world = {};
    world.script = {{1, loading, keyPress}};
    world.failing = {"MIDASfreeModule"};
    std::string printed;
    EXPECT_EQ(runProgramAgain(&printed), 0);
    EXPECT_NE(world.trace.find("MIDASfreeModule MIDASsetMusicSyncCallback(null) MIDASstopBackgroundPlay"),
              std::string::npos);
    world.failing.insert("MIDASsetMusicSyncCallback(null)");
    EXPECT_EQ(runProgramAgain(&printed), 1);
    EXPECT_EQ(printed, errorExit);
}

TEST(Pictures, AMissingOneIsReportedAndTheStatusIsNone) {
    world = {};
    world.missingPicture = 10;
    EXPECT_EQ(runProgramAgain(), 0);
    const std::string end = "init-dormantFlarePicture init-10 report:picture-10.jpg console-";
    EXPECT_EQ(world.trace.substr(world.trace.size() - end.size()), end);
}

TEST(SyncCallback, EveryValueWritesItsByteAndNoOther) {
    const std::map<std::uint32_t, std::size_t> flagBytes{{32, 1}, {33, 2}, {36, 4}, {37, 5}, {39, 7}, {59, 11}};
    for (std::uint32_t value = 0; value < 300; ++value) {
        syncState.zero();
        syncState.currentPart = 255;
        musicSyncCallback(value, 1, 1);
        EXPECT_EQ(static_cast<int>(syncState.currentPart), value < 32 ? 0 : 255) << value; // wraps
        const auto* bytes = reinterpret_cast<const SyncByte*>(&syncState);
        const auto flag = flagBytes.find(value);
        for (std::size_t byte = 1; byte < sizeof syncState; ++byte)
            EXPECT_EQ(static_cast<int>(bytes[byte]), flag != flagBytes.end() && flag->second == byte ? 1 : 0)
                << value << " " << byte;
    }
    syncState.zero();
}

} // namespace
} // namespace lumenfold::test
