#include "driver/clock.h"
#include "driver/error_text.h"
#include "driver/ptc.h"
#include "platform/sdl/message.h"
#include "platform/sdl/window.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace lumenfold {

namespace {
const std::uint64_t counterOrigin = SDL_GetPerformanceCounter();
} // namespace

namespace ptc {

struct Console::Screen {
    bool fullscreen = false;
    std::optional<Window> window;
};

Console::Console() : screen(std::make_unique<Screen>()) {}
Console::~Console() = default;

// The picture is always centred and enlarged to the nearest pixel; only the output can be chosen.
bool Console::option(const char* text) {
    const std::string name = text;
    if (name == "fullscreen output" || name == "windowed output")
        screen->fullscreen = name == "fullscreen output";
    return name == "fullscreen output" || name == "windowed output" || name == "center nearest";
}

void Console::open(const char* title, std::int32_t width, std::int32_t height, const Format&, std::int32_t) {
    const char* output = std::getenv("LUMENFOLD_OUTPUT"); // the viewer's wish comes before the demo's
    if (output != nullptr && std::string(output) == "fullscreen")
        screen->fullscreen = true;
    if (output != nullptr && std::string(output) == "windowed")
        screen->fullscreen = false;
    screen->window.emplace(title, width, height, screen->fullscreen);
}

bool Console::key() {
    return screen->window && screen->window->keyPressed();
}

void Console::load(const Pixel32* pixels) {
    std::vector<Pixel32>& picture = screen->window->picture();
    std::copy_n(pixels, picture.size(), picture.begin());
}

void Console::update() {
    screen->window->present();
}

void Console::clear() {
    std::vector<Pixel32>& picture = screen->window->picture();
    std::fill(picture.begin(), picture.end(), 0);
    screen->window->present(); // the next picture may be long in coming
}

void Console::close() {
    screen->window.reset();
}

void report(const DynamicError& error) {
    const std::string text = errorText(error);
    std::fprintf(stderr, "lumenfold: %s\n", text.c_str());
    showMessage(text);
}

} // namespace ptc

std::int64_t counterFrequency() {
    return static_cast<std::int64_t>(SDL_GetPerformanceFrequency());
}

std::int64_t readCounter() {
    return static_cast<std::int64_t>(SDL_GetPerformanceCounter() - counterOrigin);
}

void idle() {
    SDL_Delay(1);
}

} // namespace lumenfold
