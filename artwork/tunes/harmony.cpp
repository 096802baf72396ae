#include "artwork/tunes/harmony.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace lumenfold::art {
namespace {

int pitchClass(const std::string& name, std::size_t& position) {
    static const int steps[7] = {9, 11, 0, 2, 4, 5, 7};
    if (position >= name.size() || name[position] < 'A' || name[position] > 'G') {
        throw std::runtime_error("score: not a chord: " + name);
    }
    int pitch = steps[name[position++] - 'A'];
    if (position < name.size() && name[position] == 'b') {
        pitch += 11;
        ++position;
    } else if (position < name.size() && name[position] == '#') {
        ++pitch;
        ++position;
    }
    return pitch % 12;
}

std::vector<int> intervalsOf(const std::string& quality) {
    static const std::vector<std::pair<std::string, std::vector<int>>> table = {
        {"", {0, 4, 7, 12}},        {"m", {0, 3, 7, 12}},    {"maj7", {0, 4, 7, 11}}, {"m7", {0, 3, 7, 10}},
        {"7", {0, 4, 7, 10}},       {"maj9", {2, 4, 7, 11}}, {"m9", {2, 3, 7, 10}},   {"add9", {0, 2, 4, 7}},
        {"madd9", {0, 2, 3, 7}},    {"sus4", {0, 5, 7, 12}}, {"sus2", {0, 2, 7, 12}}, {"7sus4", {0, 5, 7, 10}},
        {"5", {0, 7, 12, 19}},      {"dim", {0, 3, 6, 9}},   {"m6", {0, 3, 7, 9}},    {"6", {0, 4, 7, 9}},
        {"maj7#11", {0, 4, 6, 11}}, {"7b9", {1, 4, 7, 10}},  {"m11", {0, 3, 5, 10}},
    };
    for (const auto& [name, intervals] : table) {
        if (name == quality) {
            return intervals;
        }
    }
    throw std::runtime_error("score: unknown chord quality " + quality);
}

} // namespace

Chord parseChord(const std::string& name) {
    std::size_t position = 0;
    const int root = pitchClass(name, position);
    const std::size_t slash = name.find('/', position);
    Chord chord;
    for (const int interval : intervalsOf(name.substr(position, slash - position))) {
        chord.tones.push_back((root + interval) % 12);
    }
    chord.bass = root;
    if (slash != std::string::npos) {
        std::size_t bassPosition = slash + 1;
        chord.bass = pitchClass(name, bassPosition);
    }
    return chord;
}

int noteFrom(int floor, int pitch) {
    return floor + ((pitch + 1 - floor) % 12 + 12) % 12;
}

std::vector<Chord> parseChords(const std::string& names) {
    std::istringstream words(names);
    std::vector<Chord> chords;
    for (std::string word; words >> word;) {
        chords.push_back(parseChord(word));
    }
    return chords;
}

std::vector<int> voicing(const Chord& chord, int floor) {
    std::vector<int> notes;
    for (const int tone : chord.tones) {
        int note = noteFrom(floor, tone % 12);
        while (std::find(notes.begin(), notes.end(), note) != notes.end()) {
            note += 12;
        }
        notes.push_back(note);
    }
    std::sort(notes.begin(), notes.end());
    for (std::size_t i = 0; i + 1 < notes.size(); ++i) {
        if (notes[i + 1] - notes[i] == 1) {
            notes[i] += 12;
            std::sort(notes.begin(), notes.end());
            break;
        }
    }
    return notes;
}

} // namespace lumenfold::art
