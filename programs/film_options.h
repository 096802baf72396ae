#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace lumenfold::film {

// A command line that cannot be followed; the message names the option.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A sync value for a scene that is filmed alone, due at demo-time units after its first frame.
struct ScriptedSync {
    std::uint32_t value;
    double units;
};

struct Options {
    std::string output;    // film, sound file or folder; empty: none
    bool hash = false;     // one line per frame
    std::string sheet;     // contact sheet; empty: none
    bool timeline = false; // table of the parts
    std::int32_t fps = 60; // frames a second
    double from = 0.0;     // seconds of the show
    double to = 1800.0;    // bounds a show whose music never moves it on
    std::int32_t part = 0; // only this one; 0: all
    double scale = 1.0;    // whole factor of the picture; of the object with --object
    std::string scene;     // one scene alone; empty: the show
    std::vector<ScriptedSync> syncs;
    double seconds = 10.0;  // length of a scene or turntable
    double start = 0.0;     // demo time of a scene's first frame
    std::string object;     // turntable: FILE[,TEXTURE[,TEXTURE]]
    std::uint32_t mode = 0; // turntable: drawing mode, 0: the file's own
    std::string showFolder; // where the assets are; empty: searched
    bool plain = false;     // without vector code
    bool help = false;
};

// Throws UsageError.
Options parseOptions(const std::vector<std::string>& arguments);

// What --help prints: every option with its argument and meaning.
std::string helpText();

} // namespace lumenfold::film
