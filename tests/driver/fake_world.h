#pragma once

#include "core/pixel.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

// A platform, and scenes in the places of the demo's own, that do as a script says and write down what the driver does
// with them.

namespace lumenfold::test {

constexpr int keyPress = -1;
constexpr int waitingLoop = 0; // as the part of an event: the driver waits for the music

// During the frame-th frame (from 0) that a part's scene renders, or its Init at frame loading, a sync command or a
// key.
constexpr int loading = -1;
struct Event {
    int part; // 1 to scrollerPart, or waitingLoop
    int frame;
    int value;
};

struct FakeWorld {
    std::vector<Event> script;
    std::set<std::string> failing; // calls that fail, as "MIDASinit" or, on the second tune, "MIDASinit 2"
    int missingPicture = 0;        // the part whose scene's Init throws

    std::string trace;  // everything that happened, in words
    std::string frames; // parts whose scenes rendered, "!" after one that found the depth buffer dirty
    std::vector<float> times;
    std::vector<std::vector<Pixel32>> pictures; // shown during loading
    bool key = false;
    std::int64_t counter = 0;   // 1000 a second, a frame takes 20
    std::map<int, int> renders; // frames of each part, turns of the waiting loop
    int tune = 0;               // how many have been started
};

extern FakeWorld world;

// Runs the program in a new world; returns its exit status and what it printed.
int runProgram(const std::vector<Event>& script, std::string* output = nullptr);
int runProgramAgain(std::string* output = nullptr); // with script and failures as they stand

} // namespace lumenfold::test
