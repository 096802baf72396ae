#include "artwork/tunes/sync.h"

#include <cmath>
#include <stdexcept>

namespace lumenfold::art {
namespace {

constexpr double unitsPerSecond = 15.68; // demo time
constexpr int ticksPerRow = 6;

constexpr int slowTempo = 136;
constexpr int fastTempo = 140;

// Sync commands of one value at several rows of a bar, repeated over bars.
std::vector<SyncEvent> onBars(int value, int firstBar, int bars, int everyBars, const std::vector<int>& rows) {
    std::vector<SyncEvent> events;
    for (int bar = firstBar; bar < firstBar + bars; bar += everyBars) {
        for (const int row : rows) {
            events.push_back({bar * barRows + row, value});
        }
    }
    return events;
}

std::vector<SyncEvent> joined(std::initializer_list<std::vector<SyncEvent>> lists) {
    std::vector<SyncEvent> events;
    for (const auto& list : lists) {
        events.insert(events.end(), list.begin(), list.end());
    }
    return events;
}

std::vector<SyncEvent> single(int bar, int row, int value) {
    return {{bar * barRows + row, value}};
}

// The driver zeroes every flag when part 1, 2 or 3 ends and when part 4 switches, so no flag stands in those rows.
std::vector<Section> buildDemo() {
    using namespace sync;
    const auto next = single(0, 0, advance);
    std::vector<Section> sections;
    // Seven rows of breath and ten bars of drone until the dissolve, thirteen bars under the logo: black again just
    // before the hall, whose fourteen bars end on the picture.
    sections.push_back({"1 breath", 7, slowTempo, next});
    sections.push_back({"1 tunnel", 10 * barRows, slowTempo, {}});
    sections.push_back({"1 logo", 13 * barRows, slowTempo, single(0, 0, dissolve)});
    sections.push_back({"1 hall", 14 * barRows, slowTempo, single(0, 0, hall)});
    sections.push_back({"2 ring", 16 * barRows, slowTempo,
                        joined({next, onBars(pulse, 3, 4, 1, {0}), onBars(pulse, 7, 4, 1, {0, 10}),
                                onBars(pulse, 11, 4, 1, {0, 4, 8, 12}), single(15, 0, pulse), single(15, 6, pulse),
                                single(15, 12, pulse)})});
    sections.push_back({"2 cube", 4 * barRows, fastTempo, single(0, 0, swap)});
    sections.push_back(
        {"3 bodies", 20 * barRows, fastTempo,
         joined({next, onBars(hit, 0, 4, 1, {8}), single(4, 0, swap), onBars(hit, 4, 4, 1, {4, 12}), single(8, 0, swap),
                 onBars(hit, 8, 4, 1, {4, 12}), single(12, 0, swap), onBars(hit, 12, 4, 1, {4, 7, 12}),
                 single(16, 0, swap), onBars(hit, 16, 1, 1, {4, 12}), single(17, 4, fadeOut)})});
    sections.push_back(
        {"4 twin tunnels", 16 * barRows, fastTempo,
         joined({next, onBars(hit, 2, 6, 2, {0}), onBars(hit, 8, 4, 1, {0, 8}), onBars(hit, 12, 3, 1, {0, 4, 8, 12}),
                 single(15, 0, hit), single(15, 4, hit), single(15, 10, swap)})});
    sections.push_back({"4 ray tunnel", 14 * barRows, fastTempo, joined({single(0, 0, pulse), single(12, 4, swap)})});
    sections.push_back({"5 weld", 2 * barRows, fastTempo, next});
    sections.push_back({"5 film", 5 * barRows + 2, fastTempo, single(0, 0, swap)});
    sections.push_back({"6 water", 11 * barRows + beatRows, fastTempo,
                        joined({next, single(2, 0, hit), single(4, 0, hit), single(6, 0, hit), single(6, 8, hit),
                                single(7, 8, hit), single(8, 0, hit)})});
    sections.push_back({"7 slime", 16 * barRows, fastTempo, next});
    sections.push_back({"8 pane", 16 * barRows, fastTempo,
                        joined({next, onBars(hit, 0, 8, 1, {4, 12}), onBars(hit, 8, 7, 1, {4, 7, 12}),
                                single(15, 0, hit), single(15, 3, hit), single(15, 6, hit)})});
    sections.push_back({"9 tube", 16 * barRows, fastTempo,
                        joined({next, single(1, 0, hit), single(2, 0, hit), single(4, 0, hit), single(5, 8, hit),
                                single(6, 8, hit), single(7, 8, hit), single(8, 0, hit), single(10, 0, hit),
                                single(12, 0, hit), single(13, 0, hit), single(14, 0, hit), single(15, 0, hit)})});
    sections.push_back({"10 finale", 18 * barRows, fastTempo, next});
    sections.push_back({"ringing out", 4 * barRows, fastTempo, next});
    return sections;
}

std::vector<Section> buildEnd() {
    constexpr int tempo = 115;
    std::vector<SyncEvent> counts;
    for (int part = scrollerPart; part < finishedPart; ++part) {
        const int step = part - scrollerPart; // two bells in each bar from the third bar on
        counts.push_back({2 * barRows + step * barRows / 2, sync::advance});
    }
    return {{"counting", 16 * barRows, tempo, counts}, {"body", 64 * barRows, tempo, {}}};
}

int countEvents(const std::vector<Section>& sections, const std::string& prefix, int value) {
    int count = 0;
    for (const Section& section : sections) {
        if (section.name.compare(0, prefix.size(), prefix) == 0) {
            for (const SyncEvent& event : section.events) {
                const bool advances = value == sync::advance && event.value < sync::firstFlag;
                count += advances || event.value == value ? 1 : 0;
            }
        }
    }
    return count;
}

} // namespace

const std::vector<Section>& demoSections() {
    static const std::vector<Section> sections = buildDemo();
    return sections;
}

const std::vector<Section>& endSections() {
    static const std::vector<Section> sections = buildEnd();
    return sections;
}

int firstRow(const std::vector<Section>& sections, const std::string& name) {
    int row = 0;
    for (const Section& section : sections) {
        if (section.name == name) {
            return row;
        }
        row += section.rows;
    }
    throw std::out_of_range("no section named " + name);
}

const Section& sectionNamed(const std::vector<Section>& sections, const std::string& name) {
    for (const Section& section : sections) {
        if (section.name == name) {
            return section;
        }
    }
    throw std::out_of_range("no section named " + name);
}

double secondsAtRow(const std::vector<Section>& sections, int row, int outputRate) {
    double samples = 0.0;
    for (const Section& section : sections) {
        const int rows = row < section.rows ? row : section.rows;
        samples += static_cast<double>(rows) * ticksPerRow * (outputRate * 5 / (section.tempo * 2));
        row -= rows;
    }
    return samples / outputRate;
}

std::vector<TuneCheck> checkTimeline(int outputRate) {
    const auto& demo = demoSections();
    const auto& end = endSections();
    constexpr double frame = 1.0 / 60.0;
    constexpr double frameUnits = frame * unitsPerSecond;
    const auto start = [&](const char* name) { return secondsAtRow(demo, firstRow(demo, name), outputRate); };
    const auto seconds = [&](const char* from, const char* to) { return start(to) - start(from); };
    const auto units = [&](const char* from, const char* to) { return seconds(from, to) * unitsPerSecond; };
    const auto rowSeconds = [&](const char* name, int row) {
        return secondsAtRow(demo, firstRow(demo, name) + row, outputRate);
    };
    const auto count = [&](const char* prefix, int value) {
        return static_cast<double>(countEvents(demo, prefix, value));
    };
    const double fadeUnits = (start("4 twin tunnels") - rowSeconds("3 bodies", 17 * barRows + 4)) * unitsPerSecond;
    int endRows = 0;
    for (const Section& section : end) {
        endRows += section.rows;
    }
    return {
        {"part 1: dissolve", units("1 breath", "1 logo"), 287.0 + frameUnits, 290.0 - frameUnits, "units"},
        {"part 1: tunnel", units("1 breath", "1 hall"), 640.0, 650.0 - 2 * frameUnits, "units"},
        {"part 1: hall", units("1 hall", "2 ring"), 386.0 + frameUnits, 389.0 - frameUnits, "units"},
        {"part 2: ring", seconds("2 ring", "2 cube"), 27.0, 41.0, "s"},
        {"part 2: cube", seconds("2 cube", "3 bodies"), 6.0, 7.0, "s"},
        {"part 3", seconds("3 bodies", "4 twin tunnels"), 34.0, 41.0, "s"},
        {"part 3: swaps", count("3", sync::swap), 1, 4, ""},
        {"part 3: fade before the end", fadeUnits, 72.5, 75.0, "units"},
        {"part 4: twin tunnels", seconds("4 twin tunnels", "4 ray tunnel"), 26.5, 28.0, "s"},
        {"part 4: light before the switch", start("4 ray tunnel") - rowSeconds("4 twin tunnels", 15 * barRows + 10),
         0.6, 0.65, "s"},
        {"part 4: ray tunnel", seconds("4 ray tunnel", "5 weld"), 20.0, 27.0, "s"},
        {"part 5", seconds("5 weld", "6 water"), 12.0, 14.0, "s"},
        {"part 5: weld and split", units("5 weld", "5 film"), 40.0, 100.0, "units"},
        {"part 5: film and held picture", units("5 film", "6 water"), 90.0 + 2 * frameUnits, 140.0, "units"},
        {"part 5: hits", count("5", sync::hit), 0, 0, ""},
        {"part 6", seconds("6 water", "7 slime"), 17.0, 19.4, "s"},
        {"part 7", seconds("7 slime", "8 pane"), 27.0, 34.0, "s"},
        {"part 7: hits", count("7", sync::hit), 0, 0, ""},
        {"part 8", seconds("8 pane", "9 tube"), 27.0, 34.0, "s"},
        {"part 9", seconds("9 tube", "10 finale"), 27.0, 34.0, "s"},
        {"part 9: hits", count("9", sync::hit), 12, 12, ""},
        {"part 10", seconds("10 finale", "ringing out"), 27.0, 34.0, "s"},
        {"advances to the end", count("", sync::advance), scrollerPart, scrollerPart, ""},
        {"end tune", secondsAtRow(end, endRows, outputRate), 165.0, 169.0, "s"},
        {"end tune: advances in the opening", static_cast<double>(countEvents(end, "counting", sync::advance)),
         finishedPart - scrollerPart, finishedPart - scrollerPart, ""},
        {"end tune: advances in the body", static_cast<double>(countEvents(end, "body", sync::advance)), 0, 0, ""},
    };
}

} // namespace lumenfold::art
