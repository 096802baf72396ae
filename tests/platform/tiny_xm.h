#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lumenfold::test {

struct Command {
    int pattern;
    int row;
    int channel;
    std::uint8_t effect; // 0x20: sync command; 0xE: extended; 0xF: speed or tempo; 0xB, 0xD: jump, break
    std::uint8_t parameter;
    bool click = false; // play the instrument, a single click at the sample's start
};

// A module with one instrument. Patterns have the rows given; order lists them.
struct TinyXm {
    std::uint16_t channels = 4;
    std::uint16_t speed = 6;
    std::uint16_t tempo = 125;
    std::uint16_t restart = 0; // order that the loop goes back to
    std::vector<std::uint8_t> order;
    std::vector<int> rows; // of each pattern
    std::vector<Command> commands;
    std::uint16_t version = 0x0104; // 0x0103 and 0x0102 put the patterns between the instrument and its samples

    std::vector<std::uint8_t> bytes() const;
    void write(const std::string& fileName) const;
};

} // namespace lumenfold::test
