#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace lumenfold::film {

// What the line says.
struct ProgressState {
    std::int64_t frame; // that is being made
    std::int64_t end;   // the number after the last one; 0: unknown
    std::int32_t part;
    double seconds; // since the start
};

// A line of fewer characters than columns: the bar takes what is left, and what has no room is left out.
std::string progressLine(const ProgressState& state, int columns);

// That line on the terminal, again and again; silent where the errors do not go to a terminal.
class Progress {
  public:
    void expectEnd(std::int64_t frame) { end = frame; }
    void show(std::int64_t frame, std::int32_t part);
    void finish(); // leaves the terminal on an empty line

  private:
    using Clock = std::chrono::steady_clock;

    bool shown = false;
    std::int64_t end = 0;
    Clock::time_point begin = Clock::now();
    Clock::time_point last = begin;
};

} // namespace lumenfold::film
