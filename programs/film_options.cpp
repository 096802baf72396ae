#include "programs/film_options.h"

#include "core/sync_values.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace lumenfold::film {

namespace {

double toNumber(const std::string& text, double least, double most) {
    std::size_t used = 0;
    double value = 0.0;
    try {
        value = std::stod(text, &used);
    } catch (const std::logic_error&) {
        used = 0;
    }
    if (used == 0 || used != text.size() || !(value >= least && value <= most))
        throw UsageError("\"" + text + "\" is not a number from " + std::to_string(least) + " to " +
                         std::to_string(most));
    return value;
}

std::int32_t toWhole(const std::string& text, std::int32_t least, std::int32_t most) {
    const double value = toNumber(text, least, most);
    if (value != std::floor(value))
        throw UsageError("\"" + text + "\" is not a whole number");
    return static_cast<std::int32_t>(value);
}

// VALUE@UNITS,VALUE@UNITS,...
std::vector<ScriptedSync> toSyncs(const std::string& text) {
    std::vector<ScriptedSync> syncs;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const std::string item = text.substr(begin, end - begin);
        const std::size_t at = item.find('@');
        if (at == std::string::npos)
            throw UsageError("\"" + item + "\" is not VALUE@UNITS");
        syncs.push_back(
            {static_cast<std::uint32_t>(toWhole(item.substr(0, at), 0, 255)), toNumber(item.substr(at + 1), 0.0, 1e6)});
        begin = end + 1;
    }
    return syncs;
}

constexpr double manySeconds = 100000.0;

struct Option {
    const char* name;
    const char* argument; // null: none
    const char* help;
    void (*apply)(Options& options, const std::string& argument);
};

const std::array<Option, 17> table{{
    {"--fps", "N", "frames a second, 1 to 1000 (60)",
     [](Options& o, const std::string& a) { o.fps = toWhole(a, 1, 1000); }},
    {"--from", "S", "leave out what comes before this second",
     [](Options& o, const std::string& a) { o.from = toNumber(a, 0.0, manySeconds); }},
    {"--to", "S", "end at this second (1800)",
     [](Options& o, const std::string& a) { o.to = toNumber(a, 0.0, manySeconds); }},
    {"--part", "N", "only this part of the show; the last one is the end scroller",
     [](Options& o, const std::string& a) { o.part = toWhole(a, 1, scrollerPart); }},
    {"--scale", "N", "enlarge the picture by a whole factor, 1 to 8 (1); with --object the object's scale",
     [](Options& o, const std::string& a) { o.scale = toNumber(a, 0.0, 1e6); }},
    {"--hash", nullptr,
     "print a line for every frame: number, demo time, part (0 loading), and the 64-bit FNV-1a hash of blue,\n"
     "green and red of all pixels",
     [](Options& o, const std::string&) { o.hash = true; }},
    {"--sheet", "FILE.png", "write a contact sheet with labelled moments of every part",
     [](Options& o, const std::string& a) { o.sheet = a; }},
    {"--timeline", nullptr, "print the parts with their times, frames and sync commands",
     [](Options& o, const std::string&) { o.timeline = true; }},
    {"--scene", "NAME", "one scene alone, after every scene has loaded; --scene list names them",
     [](Options& o, const std::string& a) { o.scene = a; }},
    {"--sync", "VALUE@UNITS,...", "sync values for the scene, in demo-time units (15.68 a second) from its first frame",
     [](Options& o, const std::string& a) { o.syncs = toSyncs(a); }},
    {"--seconds", "S", "length of the scene or turntable (10)",
     [](Options& o, const std::string& a) { o.seconds = toNumber(a, 0.0, manySeconds); }},
    {"--start", "UNITS", "demo time of the scene's first frame (0)",
     [](Options& o, const std::string& a) { o.start = toNumber(a, 0.0, 1e6); }},
    {"--object", "FILE[,TEXTURE[,TEXTURE]]", "an object on a turntable; with textures it is prepared for them",
     [](Options& o, const std::string& a) { o.object = a; }},
    {"--mode", "N", "drawing mode of the turntable's object, as 0x19 or 25",
     [](Options& o, const std::string& a) { o.mode = static_cast<std::uint32_t>(std::stoul(a, nullptr, 0)); }},
    {"--show", "FOLDER", "where the show's files are (./show, this folder, or where it was installed)",
     [](Options& o, const std::string& a) { o.showFolder = a; }},
    {"--plain", nullptr, "without the processor's vector instructions; the pictures are the same",
     [](Options& o, const std::string&) { o.plain = true; }},
    {"--help", nullptr, "print this", [](Options& o, const std::string&) { o.help = true; }},
}};

const Option* findOption(const std::string& name) {
    for (const Option& option : table)
        if (name == option.name)
            return &option;
    return nullptr;
}

void checkTogether(const Options& options) {
    const bool whole = options.scale == std::floor(options.scale);
    if (options.object.empty() && (!whole || options.scale < 1.0 || options.scale > 8.0))
        throw UsageError("--scale: the picture's factor is a whole number from 1 to 8");
    if (options.to <= options.from)
        throw UsageError("--to: ends before --from");
    const bool asksForNothing = options.output.empty() && !options.hash && options.sheet.empty() && !options.timeline;
    if (asksForNothing && !options.help && options.scene != "list")
        throw UsageError("nothing to make: name an output, --hash, --sheet or --timeline");
}

} // namespace

Options parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        if (word.rfind("--", 0) != 0) {
            if (!options.output.empty())
                throw UsageError(word + ": there is an output already, " + options.output);
            options.output = word;
            continue;
        }
        const Option* option = findOption(word);
        if (option == nullptr)
            throw UsageError(word + ": no such option");
        if (option->argument != nullptr && i + 1 == arguments.size())
            throw UsageError(word + ": needs " + option->argument);
        try {
            option->apply(options, option->argument != nullptr ? arguments[++i] : std::string());
        } catch (const std::logic_error&) {
            throw UsageError(word + ": \"" + arguments[i] + "\" is not a number");
        } catch (const UsageError& error) {
            throw UsageError(word + ": " + error.what());
        }
    }
    checkTogether(options);
    return options;
}

std::string helpText() {
    std::string text = "lumenfold-film [options] OUTPUT\n"
                       "\n"
                       "Films the show frame by frame, without window and sound device. OUTPUT is a film (.mp4, .mkv;\n"
                       "needs ffmpeg), its sound (.wav), or a folder for numbered PNG pictures.\n"
                       "\n";
    constexpr std::size_t helpColumn = 28;
    for (const Option& option : table) {
        std::string line = std::string("  ") + option.name + (option.argument != nullptr ? " " : "") +
                           (option.argument != nullptr ? option.argument : "");
        line +=
            line.size() < helpColumn ? std::string(helpColumn - line.size(), ' ') : "\n" + std::string(helpColumn, ' ');
        for (const char* c = option.help; *c != 0; ++c) {
            line += *c;
            if (*c == '\n')
                line += std::string(helpColumn, ' ');
        }
        text += line + "\n";
    }
    return text;
}

} // namespace lumenfold::film
