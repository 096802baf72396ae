#include "art/tune_stage.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace lumenfold::art {
namespace {

constexpr std::uint8_t kVolumeColumn = 0x10;
constexpr std::uint8_t kVolumeSlideUp = 0x70;
constexpr int kPanning = 0x08;
constexpr int kGlide = 0x03;
constexpr int kGlideSpeed = 0x40; // four semitones a tick: any leap arrives within its row
constexpr int kExtended = 0x0E;
constexpr int kRetrigger = 0x90;
constexpr int kEchoRows = 3;

std::uint8_t volumeByte(int volume) {
    return static_cast<std::uint8_t>(kVolumeColumn + std::max(0, std::min(64, volume)));
}

// The faders of the mixing desk, in percent: every note's volume passes through its sound's.
int fader(Sound sound) {
    switch (sound) {
    case Sound::kick:
        return 85;
    case Sound::hardKick:
        return 96;
    case Sound::snare:
    case Sound::clap:
    case Sound::tom:
        return 87;
    case Sound::crash:
        return 84;
    case Sound::impact:
        return 64;
    case Sound::hat:
    case Sound::openHat:
    case Sound::ride:
    case Sound::rim:
        return 112;
    case Sound::sub:
        return 105;
    case Sound::choir:
        return 112;
    case Sound::padLeft:
    case Sound::padRight:
    case Sound::growl:
        return 122;
    case Sound::bass:
    case Sound::lead:
    case Sound::solo:
    case Sound::bell:
        return 130;
    case Sound::stab:
    case Sound::glass:
        return 140;
    default:
        return 100;
    }
}

int faded(Sound sound, int volume) {
    return volume * fader(sound) / 100;
}

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

// The lowest note of the pitch class that is not below the floor.
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

// The chord's voices as ascending notes from the floor up. Of two that lie a half step apart the lower is raised by an
// octave, so that sevenths and ninths open the chord instead of clouding it.
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
                         colon == std::string::npos ? kBeat : std::stoi(word.substr(colon + 1))});
    }
    return words;
}

// Whether a sound loops until it is let go; the others end by themselves and a key off would cut their tails.
bool sustains(Sound sound) {
    return sound == Sound::sub || sound == Sound::bass || (sound >= Sound::padLeft && sound <= Sound::solo) ||
           sound == Sound::sea;
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

Stage::Stage(Score& target, const std::string& section)
    : score(target), events(sectionNamed(target.sections(), section).events),
      start(firstRow(target.sections(), section)), rowCount(sectionNamed(target.sections(), section).rows) {}

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
    cell.note = static_cast<std::uint8_t>(number);
    cell.instrument = static_cast<std::uint8_t>(sound);
    cell.volume = volumeByte(faded(sound, volume));
}

void Stage::off(int row, int channelNumber) {
    if (row >= 0 && row < rowCount) {
        XmCell& cell = score.cell(start + row, channelNumber);
        cell = XmCell{kXmKeyOff, 0, 0, cell.effect, cell.parameter};
    }
}

void Stage::hush(const std::vector<int>& kept) {
    std::vector<int> sustaining = {channel::sub,      channel::bass,         channel::stab,   channel::lead,
                                   channel::leadEcho, channel::leadEcho + 1, channel::texture};
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
    for (int row = 0; row < bars * kBar; ++row) {
        const char step = pattern[static_cast<std::size_t>(row) % pattern.size()];
        if (step != '.') {
            note(bar * kBar + row, channelNumber, sound, number, (step - '0') * scale / 9);
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
    play(channel::snare, kit.snareSound, kit.snare);
    play(channel::hat, Sound::hat, kit.hat);
    for (int row = bar * kBar; row < (bar + bars) * kBar && !kit.hat.empty(); row += 2) {
        effect(row, channel::hat, kPanning, row % 4 == 0 ? 0x60 : 0xA8);
    }
    play(channel::cymbal, Sound::openHat, kit.open);
}

void Stage::snareFill(int bar) {
    const std::string hits = "........4.4.5567";
    for (int row = 8; row < kBar; ++row) {
        clear(bar * kBar + row, 1, channel::snare);
    }
    for (int row = 0; row < kBar; ++row) {
        if (hits[static_cast<std::size_t>(row)] != '.') {
            note(bar * kBar + row, channel::snare, Sound::snare, 49, (hits[static_cast<std::size_t>(row)] - '0') * 7);
        }
    }
    flutter(bar * kBar + 13, channel::snare, 3);
}

void Stage::flutter(int row, int channelNumber, int everyTicks) {
    effect(row, channelNumber, kExtended, kRetrigger + everyTicks);
}

void Stage::tomFill(int bar) {
    const int rows[6] = {8, 10, 11, 12, 14, 15};
    const char* const pitches[6] = {"A4", "F4", "F4", "D4", "A3", "A3"};
    for (int i = 0; i < 6; ++i) {
        note(bar * kBar + rows[i], channel::perc, Sound::tom, pitches[i], 44 + 3 * i);
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

void Stage::pads(const Harmony& harmony, int bar, int volume, Sound left, Sound right, int floor) {
    int row = bar * kBar;
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
    const int full = faded(Sound::padLeft, volume);
    const int low = full * 3 / 8;
    const int slide = std::max(1, (full - low) / ((everyRows - 1) * ticksARow));
    for (int row = bar * kBar; row < std::min(rowCount, (bar + bars) * kBar); ++row) {
        for (int voice = channel::pad; voice < channel::pad + channel::padVoices; ++voice) {
            XmCell& cell = score.cell(start + row, voice);
            if (row % everyRows == 0) {
                cell.volume = volumeByte(low);
            } else if (cell.note == 0) {
                cell.volume = static_cast<std::uint8_t>(kVolumeSlideUp + slide);
            }
        }
    }
}

void Stage::stabs(const Harmony& harmony, const std::string& pattern, int bar, int bars, int volume, int floor) {
    const std::vector<Chord> chords = parseChords(harmony.chords);
    for (int row = 0; row < bars * kBar; ++row) {
        const char step = pattern[static_cast<std::size_t>(row) % pattern.size()];
        if (step == '.') {
            continue;
        }
        const Chord& chord = chords[static_cast<std::size_t>((bar * kBar + row) / harmony.rowsEach) % chords.size()];
        const std::vector<int> notes = voicing(chord, floor);
        const int channels[4] = {channel::stab, channel::pad + 1, channel::pad + 2, channel::pad + 3};
        const int places[4] = {0x60, 0x10, 0xF0, 0xA0};
        for (int voice = 0; voice < 4; ++voice) {
            note(bar * kBar + row, channels[voice], Sound::stab, notes[static_cast<std::size_t>(voice)],
                 volume * (step - '0') / 9);
            effect(bar * kBar + row, channels[voice], kPanning, places[voice]);
        }
    }
}

void Stage::bassLine(const Harmony& harmony, int channelNumber, Sound sound, const std::string& pattern, int bar,
                     int bars, int volume, int floor) {
    const std::vector<Chord> chords = parseChords(harmony.chords);
    for (int row = 0; row < bars * kBar; ++row) {
        const char step = pattern[static_cast<std::size_t>(row) % pattern.size()];
        const Chord& chord = chords[static_cast<std::size_t>((bar * kBar + row) / harmony.rowsEach) % chords.size()];
        const int target = bar * kBar + row;
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
    for (int row = 0; row < bars * kBar; ++row) {
        const char letter = figure[static_cast<std::size_t>(row) % figure.size()];
        if (letter == '.') {
            continue;
        }
        const Chord& chord = chords[static_cast<std::size_t>((bar * kBar + row) / harmony.rowsEach) % chords.size()];
        const std::vector<int> notes = voicing(chord, floor);
        const int index = letter - 'a';
        const int number = notes[static_cast<std::size_t>(index % 4)] + 12 * (index / 4);
        const int target = bar * kBar + row;
        const int loudness = volume * accents[row % 4] / 9;
        note(target, channel::glass, sound, number, loudness);
        effect(target, channel::glass, kPanning, row % 2 == 0 ? 0x50 : 0xB0);
        note(target + kEchoRows, channel::glassEcho, sound, number, loudness * 2 / 5);
        effect(target + kEchoRows, channel::glassEcho, kPanning, row % 2 == 0 ? 0xF0 : 0x10);
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
                effect(row, channelNumber, kGlide, kGlideSpeed);
            }
        }
        sounding = word.note != 0;
        row += word.rows;
    }
    if (sustains(sound)) {
        off(row, channelNumber);
    }
}

void Stage::line(const std::string& words, Sound sound, int row, int volume, bool echoes) {
    constexpr int left = 0x28;
    constexpr int right = 0xD8;
    voice(words, sound, channel::lead, row, volume);
    if (!echoes) {
        return;
    }
    for (int echo = 1; echo <= 2; ++echo) {
        const int channelNumber = channel::leadEcho + echo - 1;
        const int first = row + echo * kEchoRows;
        voice(words, sound, channelNumber, first, echo == 1 ? volume * 2 / 5 : volume / 4);
        int place = first;
        for (const Word& word : parseWords(words)) {
            effect(place, channelNumber, kPanning, echo == 1 ? right : left);
            place += word.rows;
        }
    }
}

std::string motif(const std::string& tonic, bool major, int octave) {
    static const char* const names[12] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    const int root = noteNumber(tonic + std::to_string(octave)) - 1;
    const int degrees[5] = {0, 7, major ? 9 : 8, 7, 2};
    const int lengths[5] = {6, 6, 4, 8, 8};
    std::string words;
    for (int i = 0; i < 5; ++i) {
        const int number = root + degrees[i];
        words += std::string(names[number % 12]) + std::to_string(number / 12) + ":" + std::to_string(lengths[i]) + " ";
    }
    return words;
}

} // namespace lumenfold::art
