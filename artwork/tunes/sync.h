#pragma once

#include "core/sync_values.h"

#include <string>
#include <vector>

// The choreography: how long each section of the two tunes lasts and which sync commands it carries. The music is
// written around this table; the show's timing is changed here and nowhere else.

namespace lumenfold::art {

constexpr int barRows = 16; // rows
constexpr int beatRows = 4;

struct SyncEvent {
    int row; // in the section
    int value;
};

struct Section {
    std::string name;
    int rows;
    int tempo; // beats a minute at 6 ticks a row
    std::vector<SyncEvent> events;
};

// "bzzzz.xm": the ten parts, some in two sections, and the ending that rings out after the last advance.
const std::vector<Section>& demoSections();
// "endtune.xm": the opening that counts the parts up to 31, and the body to which the tune returns.
const std::vector<Section>& endSections();

// The first row of a section, counted from the start of the tune. Throws std::out_of_range for an unknown name.
int firstRow(const std::vector<Section>& sections, const std::string& name);
// The section of that name.
const Section& sectionNamed(const std::vector<Section>& sections, const std::string& name);

// Seconds from the start of the tune to a row, as played at an output rate in samples a second: players hold a tick
// to a whole number of samples, which is up to a thousandth shorter than the tempo says.
double secondsAtRow(const std::vector<Section>& sections, int row, int outputRate);

// One measured length of the timeline and what the scenes allow.
struct TuneCheck {
    std::string what;
    double measured;
    double lowest;
    double highest;
    const char* unit; // "s", "units" or "" for a count

    bool holds() const { return measured >= lowest && measured <= highest; }
};

// Every length and count that the scenes depend on, measured at the output rate. Local times may come up to one
// frame late against the music; their limits are narrowed by that frame.
std::vector<TuneCheck> checkTimeline(int outputRate);

} // namespace lumenfold::art
