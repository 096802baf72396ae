// lumenfold-bench: one table of what the demo's parts cost.

#include "bench/sections.h"
#include "programs/show_folder.h"

#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

namespace lumenfold::bench {

namespace {

struct Section {
    const char* name;
    void (*measure)(Report& report, bool peers);
};

// The JPEG reader first: one of its peers wants a process in which its library has not been used.
constexpr Section sections[] = {
    {"jpeg", measureJpeg},         {"kernels", measureKernels}, {"fillers", measureFillers},
    {"renderer", measureRenderer}, {"scenes", measureScenes},
};

struct Options {
    bool peers = false;
    Report::Format format = Report::Format::Table;
    std::filesystem::path show = std::filesystem::exists(LUMENFOLD_SHOW) ? LUMENFOLD_SHOW : installedShow();
    std::vector<std::string> wanted; // empty: all
    bool help = false;
};

void printUsage(std::FILE* stream) {
    std::fprintf(stream, "usage: lumenfold-bench [--peers] [--csv] [--show FOLDER] [SECTION...]\n"
                         "  --peers        set other programs' code beside the demo's\n"
                         "  --csv          name,value,unit,peer,peer value,ratio\n"
                         "  --show FOLDER  the demo's pictures and objects\n"
                         "  --help         print this\n"
                         "  sections:     ");
    for (const Section& section : sections)
        std::fprintf(stream, " %s", section.name);
    std::fprintf(stream, "\n");
}

bool isSection(const std::string& name) {
    for (const Section& section : sections) {
        if (name == section.name)
            return true;
    }
    return false;
}

bool parse(int count, char** arguments, Options& options) {
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (argument == "--peers")
            options.peers = true;
        else if (argument == "--csv")
            options.format = Report::Format::Csv;
        else if (argument == "--show" && i + 1 < count)
            options.show = arguments[++i];
        else if (argument == "--help")
            options.help = true;
        else if (isSection(argument))
            options.wanted.push_back(argument);
        else
            return false;
    }
    return true;
}

void measure(const Options& options) {
    std::filesystem::current_path(options.show);
    Report report(options.format);
    for (const Section& section : sections) {
        bool wanted = options.wanted.empty();
        for (const std::string& name : options.wanted)
            wanted = wanted || name == section.name;
        if (wanted)
            section.measure(report, options.peers);
    }
}

} // namespace

} // namespace lumenfold::bench

int main(int count, char** arguments) {
    lumenfold::bench::Options options;
    if (!lumenfold::bench::parse(count, arguments, options)) {
        lumenfold::bench::printUsage(stderr);
        return 2;
    }
    if (options.help) {
        lumenfold::bench::printUsage(stdout);
        return 0;
    }
    try {
        lumenfold::bench::measure(options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "lumenfold-bench: %s\n", error.what());
        return 1;
    }
    return 0;
}
