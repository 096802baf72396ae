#include "programs/progress.h"

#include "programs/system.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace lumenfold::film {

namespace {

std::string clockTime(double seconds) {
    const auto whole = static_cast<long long>(std::min(seconds, 3.6e6));
    char text[32];
    if (whole < 3600)
        std::snprintf(text, sizeof text, "%lld:%02lld", whole / 60, whole % 60);
    else
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60, whole % 60);
    return text;
}

} // namespace

std::string progressLine(const ProgressState& state, int columns) {
    const double speed = static_cast<double>(state.frame + 1) / std::max(state.seconds, 1e-3);
    char start[64];
    std::snprintf(start, sizeof start, "part %2d  frame %lld", state.part, static_cast<long long>(state.frame));
    char rate[32];
    std::snprintf(rate, sizeof rate, "  %.0f frames/s", speed);
    std::string line = start;
    std::string tail;
    if (state.end > 0) {
        const auto left = static_cast<double>(std::max<std::int64_t>(state.end - state.frame - 1, 0));
        tail = "  " + clockTime(left / speed) + " left";
        line += " of " + std::to_string(state.end);
    }
    line += rate;
    const auto room = static_cast<std::size_t>(std::max(columns - 1, 0));
    constexpr std::size_t frameOfBar = 4; // two blanks, two brackets
    constexpr std::size_t leastBar = 8;
    constexpr std::size_t mostBar = 60;
    if (state.end > 0 && room >= line.size() + tail.size() + frameOfBar + leastBar) {
        const std::size_t cells = std::min(room - line.size() - tail.size() - frameOfBar, mostBar);
        const auto done = static_cast<std::size_t>(std::clamp<std::int64_t>(
            (state.frame + 1) * static_cast<std::int64_t>(cells) / state.end, 0, static_cast<std::int64_t>(cells)));
        line += "  [" + std::string(done, '#') + std::string(cells - done, ' ') + "]";
    }
    line += tail;
    return line.substr(0, room);
}

void Progress::show(std::int64_t frame, std::int32_t part) {
    constexpr std::chrono::milliseconds interval{200};
    const Clock::time_point now = Clock::now();
    if (frame == 0)
        begin = last = now; // what went before was preparation
    if (now - last < interval)
        return;
    last = now;
    const int columns = terminalColumns();
    if (columns == 0)
        return;
    shown = true;
    const double seconds = std::chrono::duration<double>(now - begin).count();
    std::fprintf(stderr, "\r%s\033[K", progressLine({frame, end, part, seconds}, columns).c_str());
}

void Progress::finish() {
    if (shown)
        std::fputs("\r\033[K", stderr);
    shown = false;
}

} // namespace lumenfold::film
