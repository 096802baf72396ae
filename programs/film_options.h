#pragma once

#include "programs/command_line.h"

#include <cstdint>
#include <string>
#include <vector>

namespace lumenfold::film {

// A sync value for a scene that is filmed alone, due at demo-time units after its first frame.
struct ScriptedSync {
    std::uint32_t value;
    double units;
};

enum class Preset { Fast, Good, Archive, VideoSite };

struct Options {
    std::string output;           // film, sound file or folder; empty: none
    Preset preset = Preset::Good; // of a film
    bool hash = false;            // one line per frame
    std::string sheet;            // contact sheet; empty: none
    bool timeline = false;        // table of the parts
    std::int32_t fps = 60;        // frames a second
    double from = 0.0;            // seconds of the show
    double to = 1800.0;           // bounds a show whose music never moves it on
    std::int32_t part = 0;        // only this one; 0: all
    double scale = 1.0;           // whole factor of the picture; of the object with --object
    std::string scene;            // one scene alone; empty: the show
    std::vector<ScriptedSync> syncs;
    double seconds = 10.0;             // length of a scene or turntable
    double start = 0.0;                // demo time of a scene's first frame
    std::vector<std::string> textures; // of the object, at most two
    std::string object;                // turntable; empty: none
    std::uint32_t mode = 0;            // turntable: drawing mode, 0: the file's own
    std::string showFolder;            // where the assets are; empty: searched
    std::string target;                // vector instructions; empty: the best
    std::string answer;                // to --help, --version or --scene list: printed instead of filming

    // Whole factor by which the picture is enlarged.
    std::int32_t factor() const { return object.empty() ? static_cast<std::int32_t>(scale) : 1; }
};

// What an output's name asks for.
enum class OutputKind { Film, Sound, Pictures };

// Throws UsageError for the name of none of them.
OutputKind outputKind(const std::string& path);

// Frames of a scene or turntable.
std::int64_t frameCount(const Options& options);

// The ending of a file's name in small letters, with its dot.
std::string ending(const std::string& fileName);

// Throws UsageError.
Options parseOptions(const std::vector<std::string>& words);

} // namespace lumenfold::film
