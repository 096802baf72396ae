#include "driver/ptc.h"
#include "platform/sdl/window.h"
#include "tests/window/virtual_screen.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace lumenfold::test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int width = 512;
constexpr int height = 384;

// No two pixels are alike.
std::vector<Pixel32> testPicture() {
    std::vector<Pixel32> picture(width * height);
    for (std::size_t i = 0; i < picture.size(); ++i)
        picture[i] = static_cast<Pixel32>(i * 64 + 63) & 0x00FFFFFF;
    return picture;
}

TEST(PlacePicture, LargestWholeFactorCentred) {
    const struct {
        int windowWidth, windowHeight, x, y, w, h;
    } cases[] = {
        {512, 384, 0, 0, 512, 384},         {1023, 767, 255, 191, 512, 384},
        {1024, 768, 0, 0, 1024, 768},       {1920, 1080, 448, 156, 1024, 768},
        {3840, 2160, 640, 120, 2560, 1920}, {1025, 900, 0, 66, 1024, 768},
        {256, 384, 0, 96, 256, 192},        {1, 1, 0, 0, 1, 0},
    };
    for (const auto& c : cases) {
        const SDL_Rect place = placePicture(c.windowWidth, c.windowHeight, width, height);
        EXPECT_TRUE(place.x == c.x && place.y == c.y && place.w == c.w && place.h == c.h)
            << c.windowWidth << "x" << c.windowHeight << ": " << place.x << "," << place.y << " " << place.w << "x"
            << place.h;
    }
}

TEST(PlacePicture, AFullScreenIsFilled) {
    const SDL_Rect wide = placePicture(1920, 1080, width, height, Scaling::fill);
    EXPECT_TRUE(wide.x == 240 && wide.y == 0 && wide.w == 1440 && wide.h == 1080);
    const SDL_Rect tall = placePicture(800, 1280, width, height, Scaling::fill);
    EXPECT_TRUE(tall.x == 0 && tall.y == 340 && tall.w == 800 && tall.h == 600);
}

TEST(Keys, OnlyOrdinaryKeysEndTheShow) {
    for (const SDL_Keycode key : std::initializer_list<SDL_Keycode>{
             SDLK_SPACE, SDLK_RETURN, SDLK_ESCAPE, SDLK_a, SDLK_F1, SDLK_F12, SDLK_LEFT, SDLK_KP_0, SDLK_TAB,
             SDLK_DELETE, SDLK_BACKSPACE, SDL_SCANCODE_TO_KEYCODE(SDL_SCANCODE_HOME)})
        EXPECT_TRUE(isOrdinaryKey(key)) << SDL_GetKeyName(key);
    for (const SDL_Keycode key :
         {SDLK_LSHIFT,           SDLK_RCTRL,     SDLK_LALT,      SDLK_RGUI,         SDLK_CAPSLOCK,
          SDLK_NUMLOCKCLEAR,     SDLK_MODE,      SDLK_MUTE,      SDLK_VOLUMEUP,     SDLK_VOLUMEDOWN,
          SDLK_AUDIONEXT,        SDLK_AUDIOPLAY, SDLK_AUDIOMUTE, SDLK_BRIGHTNESSUP, SDLK_BRIGHTNESSDOWN,
          SDLK_KBDILLUMUP,       SDLK_EJECT,     SDLK_SLEEP,     SDLK_CALCULATOR,   SDLK_AC_HOME,
          SDLK_AUDIOFASTFORWARD, SDLK_POWER,     SDLK_F13,       SDLK_F20,          SDLK_F24})
        EXPECT_FALSE(isOrdinaryKey(key)) << SDL_GetKeyName(key);
}

class OnScreen : public testing::TestWithParam<bool> {
  protected:
    void SetUp() override {
        if (!screen.missing().empty())
            GTEST_SKIP() << screen.missing() << ": windows are not tested";
        if (GetParam())
            screen.manageWindows();
    }

    void open(const char* output) {
        setenv("LUMENFOLD_OUTPUT", output, 1);
        setenv("LUMENFOLD_SCALING", "whole", 1); // whose pixels can be told apart
        console.option("fullscreen output");
        console.option("center nearest");
        console.open("window test", width, height, {});
        unsetenv("LUMENFOLD_OUTPUT");
        show(0.2);
    }

    // Presents the picture for a while, as the demo does.
    void show(double seconds) {
        const std::vector<Pixel32> picture = testPicture();
        const auto end = Clock::now() + std::chrono::duration<double>(seconds);
        while (Clock::now() < end) {
            pressed = console.key();
            console.load(picture.data());
            console.update();
        }
    }

    void perform(const std::string& words) {
        VirtualScreen::perform(words);
        show(0.2);
    }

    // On a busy machine the window may take its time.
    void awaitPress() {
        for (int i = 0; i < 20 && !pressed; ++i)
            show(0.2);
        EXPECT_TRUE(pressed);
    }

    // The picture is enlarged by the factor with its top left corner at (left, top); around it the window is black.
    void expectPicture(int left, int top, int factor, int margin) {
        int wrong = 1;
        for (int i = 0; i < 10 && wrong != 0; ++i) {
            show(0.2);
            wrong = wrongPixels(left, top, factor, margin);
        }
        EXPECT_EQ(wrong, 0);
    }

    static int wrongPixels(int left, int top, int factor, int margin) {
        const std::vector<Pixel32> seen = VirtualScreen::photograph();
        const std::vector<Pixel32> picture = testPicture();
        int wrong = 0;
        for (int y = -margin; y < height * factor + margin; ++y)
            for (int x = -margin; x < width * factor + margin; ++x) {
                const bool inside = x >= 0 && y >= 0 && x < width * factor && y < height * factor;
                const auto index = static_cast<std::size_t>(y / factor * width + x / factor);
                const Pixel32 expected = inside ? picture[index] : 0;
                wrong += seen[static_cast<std::size_t>((top + y) * VirtualScreen::width + left + x)] != expected;
            }
        return wrong;
    }

    VirtualScreen screen;
    ptc::Console console;
    bool pressed = false;
};

INSTANTIATE_TEST_SUITE_P(, OnScreen, testing::Values(false, true), [](const testing::TestParamInfo<bool>& test) {
    return std::string(test.param ? "WithWindowManager" : "Bare");
});

TEST_P(OnScreen, FullScreenAndBack) {
    open("fullscreen");
    expectPicture(32, 24, 3, 24);
    const std::vector<Pixel32> fullScreen = VirtualScreen::photograph();
    EXPECT_EQ(std::count(fullScreen.begin(), fullScreen.end(), 0U), // black all around
              VirtualScreen::width * VirtualScreen::height - width * height * 9);
    perform("key F11");
    show(1.0);
    EXPECT_NE(wrongPixels(32, 24, 3, 24), 0);
    perform("key alt+Return");
    expectPicture(32, 24, 3, 24);
    EXPECT_FALSE(pressed);
    perform("key Return");
    awaitPress();
    show(0.1);
    EXPECT_TRUE(pressed); // the check has not consumed it
}

// The loading bar goes at once, though nothing is drawn until the music leads on.
TEST_P(OnScreen, ClearShowsBlack) {
    open("fullscreen");
    expectPicture(32, 24, 3, 24);
    console.clear();
    std::vector<Pixel32> seen;
    const std::vector<Pixel32> black(VirtualScreen::width * VirtualScreen::height);
    for (int i = 0; i < 10 && seen != black; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        seen = VirtualScreen::photograph();
    }
    EXPECT_EQ(seen, black);
}

TEST_P(OnScreen, SignalsAreKeyPresses) {
    for (const int signal : {SIGTERM, SIGINT}) { // SIGHUP arrives as SIGTERM
        open("windowed");
        EXPECT_FALSE(pressed);
        raise(signal);
        awaitPress();
        console.close();
    }
}

TEST_P(OnScreen, ModifiersAndRepeatsAreNoKeyPress) {
    open("windowed");
    perform("key shift key ctrl key super key Caps_Lock key Caps_Lock key XF86AudioRaiseVolume key XF86AudioPlay");
    EXPECT_FALSE(pressed);
    perform("key F11 key F11"); // there and back
    EXPECT_FALSE(pressed);
    perform("keydown a");
    awaitPress();
    perform("keyup a");
}

TEST_P(OnScreen, TheFilledScreenReachesItsEdges) {
    open("fullscreen");
    setenv("LUMENFOLD_SCALING", "fill", 1);
    std::vector<Pixel32> seen;
    bool full = false;
    for (int i = 0; i < 10 && !full; ++i) {
        show(0.2);
        seen = VirtualScreen::photograph();
        full = seen[VirtualScreen::width / 2] != 0 &&
               seen[static_cast<std::size_t>(VirtualScreen::width) * (VirtualScreen::height - 1) + 800] != 0;
    }
    EXPECT_TRUE(full); // 1600 x 1200 has the picture's shape
}

TEST_P(OnScreen, WindowSizes) {
    if (GetParam())
        return; // borders would move the window
    open("windowed");
    expectPicture(288, 216, 2, 100);
    const struct {
        const char* size;
        int left, top, factor;
    } cases[] = {{"512 384", 0, 0, 1}, {"700 500", 94, 58, 1}, {"1100 800", 38, 16, 2}, {"1599 1199", 31, 23, 3}};
    for (const auto& c : cases) {
        const std::string window = "search --sync --onlyvisible --name 'window test' ";
        perform(window + "windowmove 0 0");
        perform(window + "windowsize " + c.size);
        expectPicture(c.left, c.top, c.factor, std::min(c.left, c.top));
    }
    EXPECT_FALSE(pressed);
}

TEST_P(OnScreen, CloseButton) {
    if (!GetParam())
        return; // nobody draws one
    open("windowed");
    perform("search --sync --onlyvisible --name 'window test' windowactivate --sync");
    EXPECT_FALSE(pressed);
    perform("key alt+F4");
    awaitPress();
}

TEST_P(OnScreen, SixtyPicturesASecondAtMost) {
    open("windowed");
    const std::vector<Pixel32> picture = testPicture();
    std::vector<Clock::time_point> times;
    for (int i = 0; i < 150; ++i) {
        if (i == 60)
            std::this_thread::sleep_for(std::chrono::milliseconds(300)); // what is missed is not made up for
        console.load(picture.data());
        console.update();
        times.push_back(Clock::now());
    }
    for (std::size_t i = 0; i + 61 < times.size(); ++i)
        EXPECT_GT(std::chrono::duration<double>(times[i + 61] - times[i]).count(), 0.99) << i;
}

} // namespace
} // namespace lumenfold::test
