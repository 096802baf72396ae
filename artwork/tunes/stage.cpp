#include "artwork/tunes/stage.h"

#include "artwork/tunes/hook.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace lumenfold::art {
namespace {

constexpr std::uint8_t volumeColumn = 0x10;
constexpr std::uint8_t volumeSlideUp = 0x70;
constexpr int panningEffect = 0x08;
constexpr int glideEffect = 0x03;
constexpr int glideSpeed = 0x40; // four semitones a tick: any leap arrives within its row
constexpr int extendedEffect = 0x0E;
constexpr int retrigger = 0x90;
constexpr int echoRows = 3;

std::uint8_t volumeByte(int volume) {
    return static_cast<std::uint8_t>(volumeColumn + std::max(0, std::min(64, volume)));
}

int faded(Sound sound, int volume) {
    return volume * fader(sound) / 100;
}

struct Word {
    int note; // 0 is a rest
    int rows;
};

std::vector<Word> parseWords(const std::string& text) {
    std::istringstream stream(text);
    std::vector<Word> words;
    for (std::string word; stream >> word;) {
        const std::size_t colon = word.find(':');
        const std::string name = word.substr(0, colon);
        words.push_back({name == "-" ? 0 : noteNumber(name),
                         colon == std::string::npos ? beatRows : std::stoi(word.substr(colon + 1))});
    }
    return words;
}

// Whether a sound loops until it is let go; the others end by themselves and a key off would cut their tails.
bool sustains(Sound sound) {
    return sound == Sound::sub || sound == Sound::bass || (sound >= Sound::padLeft && sound <= Sound::solo) ||
           sound == Sound::sea;
}

// Snares and hats have three strokes on neighbouring keys; no two that follow each other are the same.
int strokeInTurn(Sound sound, int row) {
    return sound == Sound::snare ? row / 2 % 3 : sound == Sound::hat ? row % 3 : 0;
}

} // namespace

Stage::Stage(Score& target, const std::string& section, int level)
    : score(target), events(sectionNamed(target.sections(), section).events),
      start(firstRow(target.sections(), section)), rowCount(sectionNamed(target.sections(), section).rows),
      tempo(sectionNamed(target.sections(), section).tempo), levelPercent(level) {}

std::vector<int> Stage::rowsOf(int syncValue) const {
    std::vector<int> found;
    for (const SyncEvent& event : events) {
        if (event.value == syncValue) {
            found.push_back(event.row);
        }
    }
    return found;
}

void Stage::note(int row, int channelNumber, Sound sound, int number, int volume) {
    if (row < 0 || row >= rowCount) {
        return;
    }
    XmCell& cell = score.cell(start + row, channelNumber);
    cell.note = static_cast<std::uint8_t>(number + strokeInTurn(sound, row));
    cell.instrument = static_cast<std::uint8_t>(sound);
    cell.volume = volumeByte(faded(sound, volume) * levelPercent / 100);
}

void Stage::off(int row, int channelNumber) {
    if (row >= 0 && row < rowCount) {
        XmCell& cell = score.cell(start + row, channelNumber);
        cell = XmCell{xmKeyOff, 0, 0, cell.effect, cell.parameter};
    }
}

void Stage::hush(const std::vector<int>& kept) {
    std::vector<int> sustaining = {channel::sub,     channel::bass,     channel::stab,
                                   channel::lead,    channel::leadEcho, channel::leadEcho + 1,
                                   channel::texture, channel::breaks,   channel::second};
    for (int voice = 0; voice < channel::padVoices; ++voice) {
        sustaining.push_back(channel::pad + voice);
    }
    for (const int number : sustaining) {
        const bool keep = std::find(kept.begin(), kept.end(), number) != kept.end();
        if (!keep && score.cell(start, number).note == 0) {
            off(0, number);
        }
    }
}

void Stage::clear(int row, int rows, int channelNumber) {
    for (int i = row; i < std::min(row + rows, rowCount); ++i) {
        XmCell& cell = score.cell(start + i, channelNumber);
        cell = XmCell{0, 0, 0, cell.effect, cell.parameter};
    }
}

void Stage::breakOff(int row) {
    for (int number = 0; number < channel::count; ++number) {
        if (number != channel::rise) {
            clear(row, rowCount - row, number);
            off(row, number);
        }
    }
}

void Stage::effect(int row, int channelNumber, int number, int parameter) {
    if (row >= 0 && row < rowCount) {
        XmCell& cell = score.cell(start + row, channelNumber);
        cell.effect = static_cast<std::uint8_t>(number);
        cell.parameter = static_cast<std::uint8_t>(parameter);
    }
}

void Stage::steps(int channelNumber, Sound sound, const std::string& pattern, int bar, int bars, int number,
                  int scale) {
    for (int row = 0; row < bars * barRows; ++row) {
        const char step = pattern[static_cast<std::size_t>(row) % pattern.size()];
        if (step != '.') {
            note(bar * barRows + row, channelNumber, sound, number, (step - '0') * scale / 9);
        }
    }
}

void Stage::drums(const Kit& kit, int bar, int bars) {
    const auto play = [&](int channelNumber, Sound sound, const std::string& pattern) {
        if (!pattern.empty()) {
            steps(channelNumber, sound, pattern, bar, bars);
        }
    };
    play(channel::kick, kit.kickSound, kit.kick);
    play(channel::snare, Sound::snare, kit.snare);
    play(channel::hat, Sound::hat, kit.hat);
    for (int row = bar * barRows; row < (bar + bars) * barRows && !kit.hat.empty(); row += 2) {
        effect(row, channel::hat, panningEffect, row % 4 == 0 ? 0x60 : 0xA8);
    }
    play(channel::cymbal, Sound::openHat, kit.open);
}

void Stage::breaks(Sound first, Sound second, int bar, int bars, int volume) {
    static const char* const plans[8] = {"0123456789abcdef", "0123456289a5cdef", "0123456789abcdef",
                                         "01234567012cc4cc", "0123456789abcdef", "0123456a89ab4def",
                                         "0123056789abcdef", "01234567444cccce"};
    constexpr int offsetEffect = 0x09;
    int key = middleNote; // the highest at which a slice still fills its row
    for (double speed = breakTempo; speed > tempo; --key)
        speed /= 1.0594630943592953;
    for (int row = 0; row < bars * barRows; ++row) {
        const char slice = plans[row / barRows % 8][row % barRows];
        const int target = bar * barRows + row;
        note(target, channel::breaks, row / barRows % 2 == 0 ? first : second, key, volume);
        effect(target, channel::breaks, offsetEffect,
               (slice <= '9' ? slice - '0' : slice - 'a' + 10) * breakStep / 256);
    }
    off((bar + bars) * barRows, channel::breaks);
}

void Stage::snareFill(int bar) {
    const std::string hits = "........4.4.5567";
    for (int row = 8; row < barRows; ++row) {
        clear(bar * barRows + row, 1, channel::snare);
    }
    for (int row = 0; row < barRows; ++row) {
        if (hits[static_cast<std::size_t>(row)] != '.') {
            note(bar * barRows + row, channel::snare, Sound::snare, 49,
                 (hits[static_cast<std::size_t>(row)] - '0') * 7);
        }
    }
    flutter(bar * barRows + 13, channel::snare, 3);
}

void Stage::flutter(int row, int channelNumber, int everyTicks) {
    effect(row, channelNumber, extendedEffect, retrigger + everyTicks);
}

void Stage::tomFill(int bar) {
    const int rows[6] = {8, 10, 11, 12, 14, 15};
    const char* const pitches[6] = {"A4", "F4", "F4", "D4", "A3", "A3"};
    for (int i = 0; i < 6; ++i) {
        note(bar * barRows + rows[i], channel::perc, Sound::tom, pitches[i], 44 + 3 * i);
    }
}

void Stage::roll(int row, int rows, int every, int fromVolume, int toVolume) {
    for (int i = 0; i < rows; i += every) {
        note(row + i, channel::snare, Sound::snare, 49, fromVolume + (toVolume - fromVolume) * i / rows);
    }
}

void Stage::swellInto(int row, Sound sound, int lengthRows, int volume, int number) {
    note(row - lengthRows, channel::rise, sound, number, volume);
    off(row, channel::rise);
}

void Stage::strike(int row, int impactVolume, int crashVolume) {
    if (impactVolume > 0) {
        note(row, channel::impact, Sound::impact, "C4", impactVolume);
    }
    if (crashVolume > 0) {
        note(row, channel::cymbal, Sound::crash, "C4", crashVolume);
    }
}

void Stage::riff(const std::string& words, int row, int volume) {
    for (const Word& word : parseWords(words)) {
        if (word.note != 0) {
            note(row, channel::glass, Sound::glass, word.note, volume);
            effect(row, channel::glass, panningEffect, 0x58);
            note(row + echoRows, channel::glassEcho, Sound::glass, word.note, volume * 2 / 5);
            effect(row + echoRows, channel::glassEcho, panningEffect, 0xC8);
        }
        row += word.rows;
    }
}

void Stage::accent(int row, Accent weight, int stabNote) {
    // what the groove would play just before steps back
    for (const int number : {channel::kick, channel::snare, channel::hat, channel::cymbal, channel::perc,
                             channel::glass, channel::glassEcho, channel::stab})
        clear(row - 1, 1, number);
    for (int near = std::max(0, row - 3); near <= std::min(row + 3, rowCount - 1); ++near) {
        XmCell& cell = score.cell(start + near, channel::breaks);
        if (cell.volume > volumeColumn)
            cell.volume = volumeByte((cell.volume - volumeColumn) / 2);
    }
    clear(std::max(0, row - 1), row > 0 ? 3 : 2, channel::breaks); // the break waits until two rows later
    off(std::max(0, row - 1), channel::breaks);
    for (const int number : {channel::bass, channel::sub, channel::lead, channel::second, channel::texture}) {
        const int before = start + row - 1;
        if (row > 0 && score.cell(before, number).note == 0 && score.cell(before, number).volume == 0)
            score.cell(before, number).volume = volumeByte(14);
    }
    clear(row + 1, 1, channel::snare);
    clear(row + 1, 1, channel::perc);
    note(row, channel::kick, Sound::kick, 49, 64);
    note(row, channel::snare, Sound::clap, 49, weight == Accent::light ? 53 : 54);
    note(row, channel::cymbal, Sound::crash, 49, weight == Accent::light ? 48 : weight == Accent::strong ? 52 : 58);
    if (stabNote > 0)
        note(row, channel::stab, Sound::stab, stabNote, weight == Accent::light ? 46 : 58);
    if (weight != Accent::light)
        note(row, channel::impact, Sound::impact, 49, weight == Accent::strong ? 34 : 48);
}

void Stage::accents(int syncValue, Accent weight, int stabNote) {
    for (const int row : rowsOf(syncValue))
        accent(row, weight, stabNote);
}

void Stage::pads(const Harmony& harmony, int bar, int volume, Sound left, Sound right, int floor) {
    int row = bar * barRows;
    for (const Chord& chord : parseChords(harmony.chords)) {
        const std::vector<int> notes = voicing(chord, floor);
        for (int voice = 0; voice < channel::padVoices; ++voice) {
            note(row, channel::pad + voice, voice % 2 == 0 ? left : right, notes[static_cast<std::size_t>(voice)],
                 volume);
        }
        row += harmony.rowsEach;
    }
}

void Stage::pump(int bar, int bars, int volume, int everyRows) {
    constexpr int ticksARow = 5; // a slide skips the row's first tick
    const int full = faded(Sound::padLeft, volume) * levelPercent / 100;
    const int low = full * 3 / 8;
    const int slide = std::max(1, (full - low) / ((everyRows - 1) * ticksARow));
    for (int row = bar * barRows; row < std::min(rowCount, (bar + bars) * barRows); ++row) {
        for (int voice = channel::pad; voice < channel::pad + channel::padVoices; ++voice) {
            XmCell& cell = score.cell(start + row, voice);
            if (row % everyRows == 0) {
                cell.volume = volumeByte(low);
            } else if (cell.note == 0) {
                cell.volume = static_cast<std::uint8_t>(volumeSlideUp + slide);
            }
        }
    }
}

void Stage::stabs(const Harmony& harmony, const std::string& pattern, int bar, int bars, int volume, int floor) {
    const std::vector<Chord> chords = parseChords(harmony.chords);
    for (int row = 0; row < bars * barRows; ++row) {
        const char step = pattern[static_cast<std::size_t>(row) % pattern.size()];
        if (step == '.') {
            continue;
        }
        const Chord& chord = chords[static_cast<std::size_t>((bar * barRows + row) / harmony.rowsEach) % chords.size()];
        const std::vector<int> notes = voicing(chord, floor);
        const int channels[4] = {channel::stab, channel::pad + 1, channel::pad + 2, channel::pad + 3};
        const int places[4] = {0x78, 0x58, 0xA8, 0x88};
        for (int voice = 0; voice < 4; ++voice) {
            note(bar * barRows + row, channels[voice], Sound::stab, notes[static_cast<std::size_t>(voice)],
                 volume * (step - '0') / 9);
            effect(bar * barRows + row, channels[voice], panningEffect, places[voice]);
        }
    }
}

void Stage::bassLine(const Harmony& harmony, int channelNumber, Sound sound, const std::string& pattern, int bar,
                     int bars, int volume, int floor) {
    const std::vector<Chord> chords = parseChords(harmony.chords);
    for (int row = 0; row < bars * barRows; ++row) {
        const char step = pattern[static_cast<std::size_t>(row) % pattern.size()];
        const Chord& chord = chords[static_cast<std::size_t>((bar * barRows + row) / harmony.rowsEach) % chords.size()];
        const int target = bar * barRows + row;
        if (step == '=') {
            off(target, channelNumber);
        } else if (step != '.') {
            const int octave = step < '5' ? 12 : 0;
            note(target, channelNumber, sound, noteFrom(floor, chord.bass) + octave, volume * (step - '0') / 9);
        }
    }
}

void Stage::arpeggio(const Harmony& harmony, Sound sound, const std::string& figure, int bar, int bars, int volume,
                     int floor) {
    constexpr int accents[4] = {9, 6, 7, 5};
    const std::vector<Chord> chords = parseChords(harmony.chords);
    for (int row = 0; row < bars * barRows; ++row) {
        const char letter = figure[static_cast<std::size_t>(row) % figure.size()];
        if (letter == '.') {
            continue;
        }
        const Chord& chord = chords[static_cast<std::size_t>((bar * barRows + row) / harmony.rowsEach) % chords.size()];
        const std::vector<int> notes = voicing(chord, floor);
        const int index = letter - 'a';
        const int number = notes[static_cast<std::size_t>(index % 4)] + 12 * (index / 4);
        const int target = bar * barRows + row;
        const int loudness = volume * accents[row % 4] / 9;
        note(target, channel::glass, sound, number, loudness);
        effect(target, channel::glass, panningEffect, row % 2 == 0 ? 0x58 : 0xA8);
        note(target + echoRows, channel::glassEcho, sound, number, loudness * 2 / 5);
        effect(target + echoRows, channel::glassEcho, panningEffect, row % 2 == 0 ? 0xC8 : 0x38);
    }
}

void Stage::voice(const std::string& words, Sound sound, int channelNumber, int row, int volume) {
    bool sounding = false;
    for (const Word& word : parseWords(words)) {
        if (word.note == 0) {
            off(row, channelNumber);
        } else {
            note(row, channelNumber, sound, word.note, volume);
            if (sounding && sound == Sound::solo && channelNumber == channel::lead) {
                effect(row, channelNumber, glideEffect, glideSpeed);
            }
        }
        sounding = word.note != 0;
        row += word.rows;
    }
    if (sustains(sound)) {
        off(row, channelNumber);
    }
}

void Stage::line(const std::string& words, Sound sound, int row, int volume) {
    constexpr int left = 0x38;
    constexpr int right = 0xC8;
    voice(words, sound, channel::lead, row, volume);
    for (int echo = 1; echo <= 2; ++echo) {
        const int channelNumber = channel::leadEcho + echo - 1;
        const int first = row + echo * echoRows;
        voice(words, sound, channelNumber, first, echo == 1 ? volume * 2 / 5 : volume / 4);
        int place = first;
        for (const Word& word : parseWords(words)) {
            effect(place, channelNumber, panningEffect, echo == 1 ? right : left);
            place += word.rows;
        }
    }
}

namespace {

std::string nameOf(int number) {
    static const char* const names[12] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    return std::string(names[(number - 1) % 12]) + std::to_string((number - 1) / 12);
}

std::string mapped(const std::string& text, int semitones, int factor) {
    std::string words;
    for (const Word& word : parseWords(text))
        words += (word.note == 0 ? std::string("-") : nameOf(word.note + semitones)) + ":" +
                 std::to_string(word.rows * factor) + " ";
    return words;
}

} // namespace

std::string transposed(const std::string& words, int semitones) {
    return mapped(words, semitones, 1);
}

std::string stretched(const std::string& words, int factor) {
    return mapped(words, 0, factor);
}

std::string repeatedWords(const std::string& words, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += words;
    return all;
}

} // namespace lumenfold::art
