#include "driver/midas.h"
#include "platform/player/module_player.h"
#include "tests/platform/tiny_xm.h"
#include "tests/window/virtual_screen.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace lumenfold::test {
namespace {

using Clock = std::chrono::steady_clock;

struct Told {
    std::uint32_t value;
    double seconds; // since the tune was started
    std::thread::id thread;
};

std::mutex guard;
std::vector<Told> told;
Clock::time_point started;

void tell(std::uint32_t value, std::uint32_t, std::uint32_t) {
    const std::lock_guard lock(guard);
    told.push_back({value, std::chrono::duration<double>(Clock::now() - started).count(), std::this_thread::get_id()});
}

// Plays a tune with a command every 0.12 s until meanwhile() returns. Returns how long the end of the music took.
template <class Meanwhile>
double playTiny(Meanwhile meanwhile) {
    const std::string tune = testing::TempDir() + "sound_test.xm";
    TinyXm xm{2, 6, 125, 0, {0}, {16}, {}};
    for (int row = 0; row < 16; ++row)
        xm.commands.push_back({0, row, 0, 0x20, static_cast<std::uint8_t>(row)});
    xm.write(tune);
    told.clear();
    MIDASstartup();
    EXPECT_TRUE(MIDASinit() && MIDASstartBackgroundPlay(100) && MIDASopenChannels(32));
    const MIDASmodule module = MIDASloadModule(tune.c_str());
    started = Clock::now();
    const MIDASmodulePlayHandle handle = MIDASplayModule(module, true);
    EXPECT_TRUE(MIDASsetMusicSyncCallback(handle, tell));
    meanwhile();
    const auto end = Clock::now();
    EXPECT_TRUE(MIDASstopModule(handle) && MIDASfreeModule(module) && MIDASstopBackgroundPlay() && MIDASclose());
    return std::chrono::duration<double>(Clock::now() - end).count();
}

class Device : public testing::TestWithParam<const char*> {};

// Both drivers keep the time of a real device without making a sound.
INSTANTIATE_TEST_SUITE_P(, Device, testing::Values("dummy", "disk"),
                         [](const testing::TestParamInfo<const char*>& test) { return std::string(test.param); });

TEST_P(Device, TellsSyncsWhenTheyAreHeard) {
    setenv("SDL_AUDIODRIVER", GetParam(), 1);
    setenv("SDL_DISKAUDIOFILE", (testing::TempDir() + "sound_test.raw").c_str(), 1);
    playTiny([] { std::this_thread::sleep_for(std::chrono::milliseconds(2500)); });

    ASSERT_GE(told.size(), 18U); // over the loop
    for (std::size_t i = 0; i < told.size(); ++i) {
        constexpr double row = 0.12;
        constexpr double early = 0.1; // a busy machine starts late and makes up for it
        constexpr double late = 0.25;
        EXPECT_EQ(told[i].value, i % 16);
        EXPECT_NE(told[i].thread, std::this_thread::get_id());
        EXPECT_GT(told[i].seconds, static_cast<double>(i) * row - early);
        EXPECT_LT(told[i].seconds, static_cast<double>(i) * row + late);
    }
}

TEST(NoDevice, SaysSoAndNamesTheSilentWay) {
    setenv("SDL_AUDIODRIVER", "nonsense", 1);
    MIDASstartup();
    EXPECT_FALSE(MIDASinit());
    const std::string message = MIDASgetErrorMessage(MIDASgetLastError());
    EXPECT_EQ(message.rfind("no sound device (", 0), 0U) << message;
    EXPECT_NE(message.find("SDL_AUDIODRIVER=dummy"), std::string::npos) << message;
    EXPECT_TRUE(MIDASclose());
}

// Behind the others: what hangs stays so for the rest of the process.
class LostDevice : public testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(, LostDevice, testing::Values(SIGKILL, SIGSTOP));

TEST_P(LostDevice, LeavesTheTuneInSilence) {
    if (outputOf("command -v pulseaudio").empty())
        GTEST_SKIP() << "pulseaudio is not installed: lost devices are not tested";
    const std::string folder = testing::TempDir() + "sound_test_server";
    const pid_t server = std::stoi(outputOf(
        "rm -rf '" + folder + "' && mkdir -m 700 '" + folder + "' && cd '" + folder +
        "' && { HOME=$PWD XDG_RUNTIME_DIR=$PWD pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1 "
        "-L module-null-sink -L \"module-native-protocol-unix socket=$PWD/socket auth-anonymous=1\" "
        ">log 2>&1 & echo $!; sleep 1; }"));
    setenv("SDL_AUDIODRIVER", "pulseaudio", 1);
    setenv("PULSE_SERVER", ("unix:" + folder + "/socket").c_str(), 1);
    const double closing = playTiny([&] {
        std::this_thread::sleep_for(std::chrono::seconds(3)); // this sink begins late
        kill(server, GetParam());
        std::this_thread::sleep_for(std::chrono::seconds(6)); // a hang is noticed after three
    });
    kill(server, SIGKILL);
    const auto atLast =
        std::count_if(told.begin(), told.end(), [](const Told& t) { return t.seconds > 7.0 && t.seconds <= 9.0; });
    EXPECT_NEAR(static_cast<double>(atLast), 2.0 / 0.12, 2.0);
    EXPECT_LT(closing, 2.0);
}

} // namespace
} // namespace lumenfold::test
