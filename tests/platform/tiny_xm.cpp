#include "tests/platform/tiny_xm.h"

#include <fstream>

namespace lumenfold::test {

namespace {

struct Writer {
    std::vector<std::uint8_t> bytes;

    void number(std::uint32_t value, int size) {
        for (; size > 0; --size, value >>= 8)
            bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
    }
    void text(const std::string& value, std::size_t size) {
        for (std::size_t i = 0; i < size; ++i)
            bytes.push_back(i < value.size() ? static_cast<std::uint8_t>(value[i]) : 0);
    }
};

constexpr std::uint32_t clickLength = 64;

void writeInstrument(Writer& xm) {
    xm.number(263, 4); // bytes of the instrument's header
    xm.text("click", 22);
    xm.number(0, 1);
    xm.number(1, 2);  // samples
    xm.number(40, 4); // bytes of a sample's header
    xm.text("", 263 - 33);
    xm.number(clickLength, 4);
    xm.number(0, 8);   // no loop
    xm.number(64, 1);  // volume
    xm.number(0, 1);   // finetune
    xm.number(0, 1);   // 8 bits, no loop
    xm.number(128, 1); // panning
    xm.number(0, 1);   // relative note
    xm.number(0, 1);
    xm.text("click", 22);
}

void writeSamples(Writer& xm) {
    // differences: loud from the first sample to the last
    xm.number(127, 1);
    xm.text("", clickLength - 1);
}

} // namespace

std::vector<std::uint8_t> TinyXm::bytes() const {
    Writer xm;
    xm.text("Extended Module: tiny", 37);
    xm.number(0x1A, 1);
    xm.text("test", 20);
    xm.number(version, 2);
    xm.number(276, 4);
    xm.number(static_cast<std::uint32_t>(order.size()), 2);
    xm.number(restart, 2);
    xm.number(channels, 2);
    xm.number(static_cast<std::uint32_t>(rows.size()), 2);
    xm.number(1, 2); // instruments
    xm.number(1, 2); // linear frequencies
    xm.number(speed, 2);
    xm.number(tempo, 2);
    for (std::size_t i = 0; i < 256; ++i)
        xm.number(i < order.size() ? order[i] : 0, 1);
    const bool old = version < 0x0104;
    if (old)
        writeInstrument(xm);
    for (std::size_t pattern = 0; pattern < rows.size(); ++pattern) {
        Writer cells;
        for (int row = 0; row < rows[pattern]; ++row)
            for (int channel = 0; channel < channels; ++channel) {
                Command cell{0, 0, 0, 0, 0, false};
                for (const Command& command : commands)
                    if (command.pattern == static_cast<int>(pattern) && command.row == row &&
                        command.channel == channel)
                        cell = command;
                const std::uint8_t note = cell.click ? 49 : 0;
                for (const std::uint8_t byte : {note, static_cast<std::uint8_t>(cell.click ? 1 : 0), std::uint8_t{0},
                                                cell.effect, cell.parameter})
                    cells.bytes.push_back(byte);
            }
        const bool shortHeader = version == 0x0102;
        const int count = rows[pattern] - (shortHeader ? 1 : 0);
        xm.number(shortHeader ? 8 : 9, 4);
        xm.number(0, 1);
        xm.number(static_cast<std::uint32_t>(count), shortHeader ? 1 : 2);
        xm.number(static_cast<std::uint32_t>(cells.bytes.size()), 2);
        xm.bytes.insert(xm.bytes.end(), cells.bytes.begin(), cells.bytes.end());
    }
    if (!old)
        writeInstrument(xm);
    writeSamples(xm);
    return xm.bytes;
}

void TinyXm::write(const std::string& fileName) const {
    const std::vector<std::uint8_t> file = bytes();
    std::ofstream(fileName, std::ios::binary)
        .write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
}

} // namespace lumenfold::test
