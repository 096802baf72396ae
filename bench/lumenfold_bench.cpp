// lumenfold-bench: one table of what the demo's parts cost.

#include "bench/sections.h"
#include "core/vector_target.h"
#include "programs/command_line.h"
#include "programs/show_folder.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <fstream>
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
    std::string show = std::filesystem::exists(LUMENFOLD_SHOW) ? LUMENFOLD_SHOW : installedShow().string();
    std::vector<std::string> wanted; // empty: all
    std::string answer;              // to --help or --version: printed instead
};

std::vector<std::string> sectionNames() {
    std::vector<std::string> names;
    for (const Section& section : sections)
        names.emplace_back(section.name);
    return names;
}

Options parse(const std::vector<std::string>& words) {
    Options options;
    bool csv = false;
    CLI::App program("Prints what each part of the demo costs.", "lumenfold-bench");
    program.add_flag("--peers", options.peers, "set other programs' code beside the demo's");
    program.add_flag("--csv", csv, "name,value,unit,peer,peer value,ratio");
    program.add_option("--show", options.show, "the demo's pictures and objects")
        ->option_text("FOLDER")
        ->check(CLI::ExistingDirectory);
    program.add_option("section", options.wanted, "all unless named: " + CLI::detail::join(sectionNames(), ", "))
        ->option_text("SECTION...")
        ->check(CLI::IsMember(sectionNames()));
    options.answer = parseCommandLine(program, words);
    options.format = csv ? Report::Format::Csv : Report::Format::Table;
    return options;
}

// As the system gives it.
std::string processorName() {
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);)
        if (line.rfind("model name", 0) == 0 && line.find(": ") != std::string::npos)
            return line.substr(line.find(": ") + 2);
    return "processor without a name";
}

void measure(const Options& options) {
    std::filesystem::current_path(options.show);
    Report report(options.format);
    report.section((processorName() + ", " + vectorTarget()).c_str());
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
    return lumenfold::runTool("lumenfold-bench", [&] {
        const auto options = lumenfold::bench::parse({arguments + 1, arguments + count});
        if (options.answer.empty())
            lumenfold::bench::measure(options);
        std::fputs(options.answer.c_str(), stdout);
        return 0;
    });
}
