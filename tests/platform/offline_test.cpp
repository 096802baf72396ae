#include "driver/clock.h"
#include "driver/demo_time.h"
#include "driver/midas.h"
#include "driver/ptc.h"
#include "platform/offline/stage.h"
#include "tests/platform/tiny_xm.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace lumenfold {
namespace {

struct Recorder : FrameSink {
    std::vector<Pixel32> firstPixels;
    std::size_t soundFrames = 0;
    std::vector<std::int64_t> syncFrames;

    void frame(std::int64_t number, const Pixel32* pixels, std::int32_t, std::int32_t) override {
        EXPECT_EQ(number, static_cast<std::int64_t>(firstPixels.size()));
        firstPixels.push_back(pixels[0]);
    }
    void sound(const float*, std::size_t frames) override { soundFrames += frames; }
    void sync(std::int64_t number, const SyncCommand&) override { syncFrames.push_back(number); }
};

std::vector<std::uint32_t> told;
void tell(std::uint32_t value, std::uint32_t, std::uint32_t) {
    told.push_back(value);
}

TEST(Offline, FramesSoundAndSyncsShareOneClock) {
    // rows of 120 ms, a command in rows 0, 1 and 3: at 25 frames a second exactly frames 0, 3 and 9 of the tune
    const std::string path = testing::TempDir() + "offline_test.xm";
    test::TinyXm{2, 6, 125, 0, {0}, {8}, {{0, 0, 0, 0x20, 1}, {0, 1, 0, 0x20, 2}, {0, 3, 0, 0x20, 3}}}.write(path);
    Recorder recorder;
    stage().begin(&recorder, 25);
    ptc::Console console;
    console.open("", 4, 2, {});
    std::vector<Pixel32> picture(8, 0x00123456);
    console.load(picture.data());
    console.update();
    console.clear();
    console.update();

    told.clear();
    MIDASstartup();
    ASSERT_TRUE(MIDASinit() && MIDASstartBackgroundPlay(100) && MIDASopenChannels(32));
    const MIDASmodule module = MIDASloadModule(path.c_str());
    const MIDASmodulePlayHandle handle = MIDASplayModule(module, true);
    ASSERT_TRUE(MIDASsetMusicSyncCallback(handle, tell));
    EXPECT_EQ(told, (std::vector<std::uint32_t>{1})); // the first row's is heard at once
    for (int frame = 0; frame < 10; ++frame)
        console.update();
    EXPECT_EQ(told, (std::vector<std::uint32_t>{1, 2, 3}));
    EXPECT_EQ(recorder.syncFrames, (std::vector<std::int64_t>{2, 5, 11}));
    EXPECT_TRUE(MIDASstopModule(handle) && MIDASfreeModule(module) && MIDASstopBackgroundPlay() && MIDASclose());
    console.update();

    EXPECT_EQ(recorder.firstPixels.size(), 13U);
    EXPECT_EQ(recorder.firstPixels[0], 0x00123456U);
    EXPECT_EQ(recorder.firstPixels[1], 0U);
    EXPECT_EQ(recorder.soundFrames, 13U * soundRate / 25);
}

TEST(Offline, DemoTimeOfAFrame) {
    const auto timeAt = [](double start, int fps, int frames) {
        stage().begin(nullptr, fps, start);
        for (int i = 0; i < frames; ++i)
            stage().advance();
        return DemoTime(counterFrequency()).at(readCounter());
    };
    EXPECT_EQ(timeAt(0.0, 60, 0), 0.0F);
    EXPECT_EQ(timeAt(0.0, 60, 60), 15.68F); // a whole second is neither short nor long
    EXPECT_EQ(timeAt(0.0, 50, 25), 7.84F);
    EXPECT_EQ(timeAt(0.0, 60, 3), 0.784F);
    EXPECT_EQ(timeAt(100.0, 60, 0), 100.0F);
    EXPECT_EQ(timeAt(100.0, 60, 60), static_cast<float>(115.68));
}

struct Misuse {
    const char* what;
    bool (*call)();
};

TEST(Music, RefusesWhatIsOutOfOrderWithAReason) {
    MIDASclose();
    const Misuse misuses[] = {
        {"the sound device is not open", [] { return MIDASstartBackgroundPlay(100); }},
        {"the sound device is not open", [] { return MIDASopenChannels(32); }},
        {"there is no module to play", [] { return MIDASplayModule(nullptr, true) != 0; }},
        {"this module is not playing", [] { return MIDASsetMusicSyncCallback(3, tell); }},
        {"this module is not playing", [] { return MIDASstopModule(3); }},
        {"the music is not running", [] { return MIDASstopBackgroundPlay(); }},
        {"none.xm: cannot be opened: No such file or directory", [] { return MIDASloadModule("none.xm") != nullptr; }},
    };
    for (const Misuse& misuse : misuses) {
        EXPECT_FALSE(misuse.call());
        EXPECT_STREQ(MIDASgetErrorMessage(MIDASgetLastError()), misuse.what);
    }
}

} // namespace
} // namespace lumenfold
