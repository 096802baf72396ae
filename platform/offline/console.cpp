#include "driver/clock.h"
#include "driver/error_text.h"
#include "driver/ptc.h"
#include "platform/offline/stage.h"

#include <algorithm>
#include <cstdio>

namespace lumenfold {

namespace ptc {

struct Console::Screen {};

Console::Console() = default;
Console::~Console() = default;

bool Console::option(const char*) {
    return true;
}

void Console::open(const char*, std::int32_t width, std::int32_t height, const Format&, std::int32_t) {
    stage().setSize(width, height);
}

bool Console::key() {
    return stage().keyWaiting();
}

void Console::load(const Pixel32* pixels) {
    std::vector<Pixel32>& picture = stage().picture();
    std::copy_n(pixels, picture.size(), picture.begin());
}

void Console::update() {
    stage().advance();
}

void Console::clear() {
    std::vector<Pixel32>& picture = stage().picture();
    std::fill(picture.begin(), picture.end(), 0);
}

void Console::close() {}

void report(const DynamicError& error) {
    std::fprintf(stderr, "lumenfold: %s\n", errorText(error).c_str());
}

} // namespace ptc

std::int64_t counterFrequency() {
    return Stage::frequency;
}

std::int64_t readCounter() {
    return stage().counter();
}

void idle() {
    stage().advance();
}

} // namespace lumenfold
