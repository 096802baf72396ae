#pragma once

#include <chrono>
#include <cstdint>

namespace lumenfold::film {

// A line on the terminal with frame, part, speed and time left; silent where the errors do not go to a terminal.
class Progress {
  public:
    Progress();

    void expect(std::int64_t frames) { expected = frames; }
    void show(std::int64_t frame, std::int32_t part);
    void finish(); // leaves the terminal on a fresh line

  private:
    using Clock = std::chrono::steady_clock;

    bool terminal;
    bool shown = false;
    std::int64_t expected = 0;
    Clock::time_point begin;
    Clock::time_point last;
};

} // namespace lumenfold::film
