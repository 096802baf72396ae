#include "programs/film_options.h"

#include "assets/draw_mode.h"
#include "core/sync_values.h"
#include "core/vector_target.h"
#include "driver/scene_table.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <map>

namespace lumenfold::film {

namespace {

constexpr double manySeconds = 100000.0;
constexpr double manyUnits = 1e6;
constexpr std::size_t mostTextures = 2;

const std::map<std::string, Preset> presets{
    {"fast", Preset::Fast}, {"good", Preset::Good}, {"archive", Preset::Archive}};

constexpr const char* description =
    "Films the show frame by frame and sample by sample, without window and sound device.\n\n"
    "OUTPUT is a film with sound (.mp4, .mkv, .webm; needs ffmpeg), its sound alone (.wav) or a folder for\n"
    "numbered PNG pictures, which is made if need be.\n\n"
    "Everything is written under another name beside OUTPUT and renamed at the end, so a run that fails leaves an\n"
    "earlier film as it was. Pictures move into the folder at the end: they replace those of the same numbers, and\n"
    "others that lie there stay and are reported. Ctrl-C, SIGTERM and SIGHUP end the film early; what was filmed\n"
    "until then is finished and gets the wanted name.\n";

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> items{""};
    for (const char letter : text) {
        if (letter == separator)
            items.emplace_back();
        else
            items.back() += letter;
    }
    return items;
}

// VALUE@UNITS,VALUE@UNITS,...
std::vector<ScriptedSync> toSyncs(const std::string& text) {
    std::vector<ScriptedSync> syncs;
    for (const std::string& item : split(text, ',')) {
        const std::vector<std::string> parts = split(item, '@');
        if (parts.size() != 2)
            throw CLI::ValidationError("--sync", "\"" + item + "\" is not VALUE@UNITS");
        std::string value = parts[0];
        std::string fault = wholeNumberFrom(0, 255)(value);
        std::string units = parts[1];
        if (fault.empty())
            fault = numberFrom(0, manyUnits)(units);
        if (!fault.empty())
            throw CLI::ValidationError("--sync", fault);
        syncs.push_back({static_cast<std::uint32_t>(std::stoul(value)), std::stod(units)});
    }
    return syncs;
}

// FILE[,TEXTURE[,TEXTURE]]
void takeObject(Options& options, const std::string& text) {
    options.textures = split(text, ',');
    if (options.textures.size() > 1 + mostTextures)
        throw CLI::ValidationError("--object", "\"" + text + "\" has more than two textures");
    for (const std::string& name : options.textures)
        if (name.empty())
            throw CLI::ValidationError("--object", "\"" + text + "\" has an empty name");
    options.object = options.textures.front();
    options.textures.erase(options.textures.begin());
}

std::string sceneNames() {
    std::string names;
    for (const SceneRow& row : sceneTable())
        names += std::string("  ") + row.name + "\n";
    return names;
}

void checkScene(const std::string& name) {
    for (const SceneRow& row : sceneTable())
        if (name == row.name)
            return;
    throw UsageError("--scene: no scene is called " + name + "; there are\n" + sceneNames());
}

void addOptions(CLI::App& program, Options& options) {
    program.add_option("output", options.output, "film, sound file or folder")->option_text("OUTPUT");
    CLI::Option* preset =
        program
            .add_option_function<std::string>(
                "--preset", [&options](const std::string& name) { options.preset = presets.at(name); },
                "fast: encoded in half the time, with less detail; good: unless given; archive: every pixel and sample "
                "as it was, .mkv only")
            ->option_text("fast|good|archive")
            ->check(CLI::IsMember(&presets));
    CLI::Option* scale = program
                             .add_option("--scale", options.scale,
                                         "enlarge the picture by a whole factor, 1 to 8 (1); with --object the "
                                         "object's scale")
                             ->option_text("N")
                             ->check(numberFrom(0, manyUnits));
    CLI::Option* object = program
                              .add_option_function<std::string>(
                                  "--object", [&options](const std::string& text) { takeObject(options, text); },
                                  "an object on a turntable; with textures it is prepared for them")
                              ->option_text("FILE[,TEXTURE[,TEXTURE]]");
    program
        .add_flag_function(
            "--for-video-site",
            [&options](std::int64_t) {
                options.preset = Preset::VideoSite;
                options.scale = 4.0;
            },
            "a film to upload: four times as large without blur, at a rate that survives being encoded again")
        ->excludes(preset)
        ->excludes(scale)
        ->excludes(object);
    program.add_option("--fps", options.fps, "frames a second, 1 to 1000 (60)")
        ->option_text("N")
        ->transform(wholeNumberFrom(1, 1000));
    program.add_option("--from", options.from, "leave out what comes before this second")
        ->option_text("S")
        ->check(numberFrom(0, manySeconds));
    program.add_option("--to", options.to, "end at this second (1800)")
        ->option_text("S")
        ->check(numberFrom(0, manySeconds));
    CLI::Option* part =
        program.add_option("--part", options.part, "only this part of the show, 1 to 10; 11 is the end scroller")
            ->option_text("N")
            ->transform(wholeNumberFrom(1, scrollerPart));
    program.add_flag("--hash", options.hash,
                     "print a line for every frame: number, demo time, part (0 loading), and the 64-bit FNV-1a hash "
                     "of blue, green and red of all pixels");
    program.add_option("--sheet", options.sheet, "write a contact sheet with labelled moments of every part")
        ->option_text("FILE.png");
    program.add_flag("--timeline", options.timeline, "print the parts with their times, frames and sync commands");
    CLI::Option* scene = program
                             .add_option("--scene", options.scene,
                                         "one scene alone, after every scene has loaded; --scene list names them")
                             ->option_text("NAME")
                             ->excludes(part)
                             ->excludes(object);
    program
        .add_option_function<std::string>(
            "--sync", [&options](const std::string& text) { options.syncs = toSyncs(text); },
            "sync values for the scene, in demo-time units (15.68 a second) from its first frame")
        ->option_text("VALUE@UNITS,...")
        ->needs(scene);
    program.add_option("--start", options.start, "demo time of the scene's first frame (0)")
        ->option_text("UNITS")
        ->check(numberFrom(0, manyUnits))
        ->needs(scene);
    program.add_option("--seconds", options.seconds, "length of the scene or turntable (10)")
        ->option_text("S")
        ->check(numberFrom(0, manySeconds));
    std::map<std::string, std::string> modes;
    std::string modeNames;
    for (const NamedDrawMode& named : drawModes) {
        modes[named.name] = std::to_string(named.mode);
        modeNames += (modeNames.empty() ? "" : ", ") + std::string(named.name);
    }
    program
        .add_option("--mode", options.mode, "drawing mode of the turntable's object: " + modeNames + ", or a number")
        ->option_text("MODE")
        ->transform(wholeNumberFrom(0, 0xFFFFFFFF))
        ->transform(CLI::Transformer(modes)) // before the other one
        ->needs(object);
    program
        .add_option("--show", options.showFolder,
                    "where the show's files are (./show, this folder, or where it was installed)")
        ->option_text("FOLDER");
    program.add_option("--target", options.target, "the vector instructions to use; the pictures are the same")
        ->option_text("NAME")
        ->check(CLI::IsMember(vectorTargets()));
    object->excludes(part);
}

void checkOutput(const Options& options) {
    const bool none = options.output.empty();
    if (none && !options.hash && options.sheet.empty() && !options.timeline)
        throw UsageError("nothing to make: name an output, --hash, --sheet or --timeline");
    const bool film = !none && outputKind(options.output) == OutputKind::Film;
    if (options.preset == Preset::VideoSite && !film)
        throw UsageError("--for-video-site: name a film (.mp4, .mkv or .webm)");
    if (options.preset == Preset::Archive && film && ending(options.output) != ".mkv")
        throw UsageError("--preset: an archive is an .mkv, not " + options.output);
    if (!options.sheet.empty() && ending(options.sheet) != ".png")
        throw UsageError("--sheet: contact sheets are .png, not " + options.sheet);
}

void checkTogether(const CLI::App& program, const Options& options) {
    const bool whole = options.scale == std::floor(options.scale);
    if (options.object.empty() && (!whole || options.scale < 1.0 || options.scale > 8.0))
        throw UsageError("--scale: the picture's factor is a whole number from 1 to 8");
    if (!options.object.empty() && options.scale == 0.0)
        throw UsageError("--scale: an object of size 0 cannot be seen");
    if (options.to <= options.from && program.count("--to") > 0)
        throw UsageError("--to: ends before --from");
    const bool show = options.scene.empty() && options.object.empty();
    if (show && program.count("--seconds") > 0)
        throw UsageError("--seconds: needs --scene or --object; a film of the show ends with --to");
    if (!show && frameCount(options) < 1)
        throw UsageError("--seconds: shorter than one frame");
    if (!show && options.from >= options.seconds)
        throw UsageError("--from: the film ends before that; --seconds says how long it is");
    if (!options.scene.empty())
        checkScene(options.scene);
    checkOutput(options);
}

} // namespace

std::int64_t frameCount(const Options& options) {
    return std::llround(options.seconds * options.fps);
}

std::string ending(const std::string& fileName) {
    return CLI::detail::to_lower(std::filesystem::path(fileName).extension().string());
}

OutputKind outputKind(const std::string& path) {
    if (path.front() == '-')
        throw UsageError(path + ": no such option, and nothing is filmed to standard output; write ./" + path +
                         " for a file or folder of that name");
    const std::string kind = ending(path);
    if (kind == ".mp4" || kind == ".mkv" || kind == ".webm")
        return OutputKind::Film;
    if (kind == ".wav")
        return OutputKind::Sound;
    if (!kind.empty())
        throw UsageError(path + ": films are .mp4, .mkv or .webm, sound is .wav, pictures go to a folder");
    return OutputKind::Pictures;
}

Options parseOptions(const std::vector<std::string>& words) {
    Options options;
    CLI::App program(description, "lumenfold-film");
    addOptions(program, options);
    options.answer = parseCommandLine(program, words);
    if (options.answer.empty() && options.scene == "list")
        options.answer = sceneNames();
    const bool plainWords = std::find(words.begin(), words.end(), "--") != words.end();
    if (plainWords && !options.output.empty() && options.output.front() == '-')
        options.output.insert(0, "./");
    if (options.answer.empty())
        checkTogether(program, options);
    return options;
}

} // namespace lumenfold::film
