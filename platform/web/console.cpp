#include "driver/clock.h"
#include "driver/error_text.h"
#include "driver/ptc.h"
#include "driver/show.h"
#include "platform/web/page.h"

#include <algorithm>
#include <emscripten.h>

EM_JS(void, stageOpen, (const char* title, int width, int height),
      { Module.stage.open(UTF8ToString(title), width, height); });
EM_JS(int, stageKey, (), { return Module.stage.ended ? 1 : 0; });
EM_JS(void, stageShow, (const void* pixels), { Module.stage.show(HEAPU8, pixels); });
EM_JS(void, stageWound, (int part), { Module.stage.wound(part); });
EM_JS(void, stageReport, (const char* text), { Module.stage.report(UTF8ToString(text)); });
EM_ASYNC_JS(void, stageTurn, (), { await Module.stage.turn(); });

namespace lumenfold {

namespace web {

Winding winding;

void report(const char* text) {
    stageReport(text);
}

} // namespace web

using web::winding;

namespace {

std::int64_t clockOrigin = 0; // of the page's clock where the show's began

std::int64_t pageClock() {
    return static_cast<std::int64_t>(emscripten_get_now() * 1000.0);
}

// One picture further towards the part that was asked for.
void windOn() {
    constexpr std::int64_t step = 100000; // microseconds
    constexpr std::int64_t stepsToATurn = 20;
    winding.clock += step;
    web::pageSound().wind(step);
    const SceneRow* scene = presentedFrame.scene;
    if (scene != nullptr && scene->part >= winding.part) {
        clockOrigin = pageClock() - winding.clock;
        winding.part = 0;
        web::pageSound().endWinding();
    } else if (winding.clock / step % stepsToATurn == 0) {
        stageWound(scene != nullptr ? scene->part : 0);
        stageTurn();
    }
}

void nextTurn() {
    if (winding.part != 0) {
        windOn();
        return;
    }
    stageTurn();
    web::pageSound().deliver();
}

} // namespace

namespace ptc {

struct Console::Screen {
    std::vector<Pixel32> picture;
};

Console::Console() : screen(std::make_unique<Screen>()) {}
Console::~Console() = default;

bool Console::option(const char*) {
    return true;
}

void Console::open(const char* title, std::int32_t width, std::int32_t height, const Format&, std::int32_t) {
    screen->picture.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    stageOpen(title, width, height);
}

bool Console::key() {
    return stageKey() != 0;
}

void Console::load(const Pixel32* pixels) {
    std::copy_n(pixels, screen->picture.size(), screen->picture.begin());
}

void Console::update() {
    if (winding.part == 0)
        stageShow(screen->picture.data());
    nextTurn();
}

void Console::clear() {
    std::fill(screen->picture.begin(), screen->picture.end(), 0);
    if (winding.part == 0)
        stageShow(screen->picture.data());
}

void Console::close() {}

void report(const DynamicError& error) {
    web::report(errorText(error).c_str());
}

} // namespace ptc

std::int64_t counterFrequency() {
    if (clockOrigin == 0)
        clockOrigin = pageClock();
    return 1000000;
}

std::int64_t readCounter() {
    return winding.part != 0 ? winding.clock : pageClock() - clockOrigin;
}

void idle() {
    nextTurn();
}

} // namespace lumenfold
