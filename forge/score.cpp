#include "forge/score.h"

#include <algorithm>
#include <stdexcept>

namespace lumenfold::art {
namespace {

constexpr int syncChannel = 0;
constexpr int tempoChannel = 1;
constexpr int patternRows = 4 * barRows;

int totalRows(const std::vector<Section>& sections) {
    int rows = 0;
    for (const Section& section : sections) {
        rows += section.rows;
    }
    return rows;
}

void setEffect(XmCell& cell, int effect, int parameter) {
    if (cell.effect != 0 || cell.parameter != 0) {
        throw std::runtime_error("score: a sync command or tempo meets another effect");
    }
    cell.effect = static_cast<std::uint8_t>(effect);
    cell.parameter = static_cast<std::uint8_t>(parameter);
}

} // namespace

Score::Score(const std::vector<Section>& sections, int channels)
    : parts(sections), channelCount(channels), rowCount(totalRows(sections)),
      cells(static_cast<std::size_t>(rowCount * channels)) {}

XmCell& Score::cell(int row, int channel) {
    if (row < 0 || row >= rowCount || channel < 0 || channel >= channelCount) {
        throw std::out_of_range("score: row " + std::to_string(row) + ", channel " + std::to_string(channel));
    }
    return cells[static_cast<std::size_t>(row * channelCount + channel)];
}

void Score::writeSections() {
    int start = 0;
    int tempo = 0;
    for (const Section& section : parts) {
        if (section.tempo != tempo) {
            tempo = section.tempo;
            setEffect(cell(start, tempoChannel), xmSetTempo, tempo);
        }
        for (const SyncEvent& event : section.events) {
            setEffect(cell(start + event.row, syncChannel), xmSync, event.value);
        }
        start += section.rows;
    }
}

// Numbers the played instruments anew, in their old order.
std::vector<XmInstrument> Score::keepPlayed(const std::vector<XmInstrument>& instruments) {
    std::vector<std::uint8_t> numbers(instruments.size() + 1, 0);
    for (const XmCell& entry : cells) {
        numbers.at(entry.instrument) = 1;
    }
    std::vector<XmInstrument> kept;
    for (std::size_t i = 1; i < numbers.size(); ++i) {
        if (numbers[i] != 0) {
            kept.push_back(instruments[i - 1]);
            numbers[i] = static_cast<std::uint8_t>(kept.size());
        }
    }
    numbers[0] = 0;
    for (XmCell& entry : cells) {
        entry.instrument = numbers[entry.instrument];
    }
    return kept;
}

XmSong Score::toSong(const std::string& name, const std::string& restartSection,
                     const std::vector<XmInstrument>& instruments) {
    writeSections();
    XmSong song;
    song.name = name;
    song.channels = channelCount;
    song.tempo = parts.front().tempo;
    song.instruments = keepPlayed(instruments);
    int row = 0;
    for (const Section& section : parts) {
        if (section.name == restartSection) {
            song.restart = static_cast<int>(song.order.size());
        }
        for (int done = 0; done < section.rows; done += patternRows) {
            XmPattern pattern;
            pattern.rows = std::min(patternRows, section.rows - done);
            const auto from = cells.begin() + static_cast<std::ptrdiff_t>((row + done) * channelCount);
            pattern.cells.assign(from, from + static_cast<std::ptrdiff_t>(pattern.rows * channelCount));
            const auto known = std::find_if(song.patterns.begin(), song.patterns.end(), [&](const XmPattern& other) {
                return other.rows == pattern.rows && other.cells == pattern.cells;
            });
            song.order.push_back(static_cast<std::uint8_t>(known - song.patterns.begin()));
            if (known == song.patterns.end()) {
                song.patterns.push_back(std::move(pattern));
            }
        }
        row += section.rows;
    }
    return song;
}

int noteNumber(const std::string& name) {
    static const int steps[7] = {9, 11, 0, 2, 4, 5, 7}; // A to G above C
    if (name.size() < 2 || name[0] < 'A' || name[0] > 'G') {
        throw std::runtime_error("score: not a note: " + name);
    }
    int semitone = steps[name[0] - 'A'];
    std::size_t i = 1;
    if (name[i] == '#') {
        ++semitone;
        ++i;
    } else if (name[i] == 'b') {
        --semitone;
        ++i;
    } else if (name[i] == '-') {
        ++i;
    }
    if (i + 1 != name.size() || name[i] < '0' || name[i] > '7') {
        throw std::runtime_error("score: not a note: " + name);
    }
    return semitone + 12 * (name[i] - '0') + 1;
}

} // namespace lumenfold::art
