#include "programs/progress.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace lumenfold::film {

Progress::Progress() : terminal(isatty(STDERR_FILENO) != 0), begin(Clock::now()), last(begin) {}

void Progress::show(std::int64_t frame, std::int32_t part) {
    constexpr std::chrono::milliseconds interval{200};
    const Clock::time_point now = Clock::now();
    if (!terminal || now - last < interval)
        return;
    last = now;
    shown = true;
    const double seconds = std::chrono::duration<double>(now - begin).count();
    const double speed = static_cast<double>(frame + 1) / seconds;
    std::fprintf(stderr, "\rpart %2d  frame %6lld  %6.0f frames/s", part, static_cast<long long>(frame), speed);
    if (expected > 0) {
        constexpr std::int64_t cells = 30;
        const std::int64_t done = std::clamp<std::int64_t>((frame + 1) * cells / expected, 0, cells);
        const auto left = static_cast<int>(static_cast<double>(std::max<std::int64_t>(expected - frame, 0)) / speed);
        const std::string bar(static_cast<std::size_t>(done), '#');
        std::fprintf(stderr, "  [%-30s] %2d:%02d left", bar.c_str(), left / 60, left % 60);
    }
    std::fputs("\033[K", stderr);
}

void Progress::finish() {
    if (shown)
        std::fputc('\n', stderr);
    shown = false;
}

} // namespace lumenfold::film
