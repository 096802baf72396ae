// lumenfold-forge: makes the show's assets from their sources, or verifies those that are there.
#include "forge/checks.h"
#include "forge/manifest.h"
#include "programs/command_line.h"
#include "programs/pending_file.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>

using namespace lumenfold::art;

namespace {

struct Options {
    std::string directory = std::filesystem::exists(LUMENFOLD_SHOW) ? LUMENFOLD_SHOW : "show";
    bool list = false;
    bool check = false;
    bool quick = false;
    std::vector<std::string> names;
    std::string answer; // to --help or --version: printed instead
};

void writeWhole(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    lumenfold::film::PendingFile pending(path);
    std::ofstream file(pending.place(), std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw std::runtime_error("cannot be written");
    pending.rename();
}

// Makes the files whose names are given, all if none is. Returns the number of failures.
int make(const Options& options) {
    int failures = 0;
    const auto known = [](const std::string& name) {
        return std::any_of(manifest().begin(), manifest().end(), [&](const Asset& a) { return name == a.fileName; });
    };
    for (const std::string& name : options.names) {
        if (!known(name)) {
            std::fprintf(stderr, "lumenfold-forge: %s: no such asset (--list shows them)\n", name.c_str());
            ++failures;
        }
    }
    if (failures > 0)
        return failures; // before anything is made
    std::filesystem::create_directories(options.directory);
    for (const Asset& asset : manifest()) {
        const auto& names = options.names;
        if (!names.empty() && std::find(names.begin(), names.end(), asset.fileName) == names.end()) {
            continue;
        }
        const auto start = std::chrono::steady_clock::now();
        const std::filesystem::path path = std::filesystem::path(options.directory) / asset.fileName;
        try {
            writeWhole(path.string(), lumenfold::art::make(asset));
            const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
            std::printf("%-20s %8llu bytes %6.1f s\n", asset.fileName,
                        static_cast<unsigned long long>(std::filesystem::file_size(path)), taken.count());
        } catch (const std::exception& error) {
            std::fprintf(stderr, "lumenfold-forge: %s: %s\n", asset.fileName, error.what());
            ++failures;
        }
        std::fflush(stdout);
    }
    return failures;
}

Options optionsOf(const std::vector<std::string>& words) {
    Options options;
    CLI::App program("Makes the named files of the show, or all of them, or verifies those that are there.",
                     "lumenfold-forge");
    program.add_option("name", options.names, "files to make; --list shows them")->option_text("NAME...");
    program.add_option("--out", options.directory, "where they are, " + options.directory + " unless given")
        ->option_text("DIR");
    CLI::Option* quick = program.add_flag("--quick", options.quick, "pictures with few samples, for a fast look");
    CLI::Option* list = program.add_flag("--list", options.list, "list what can be made");
    program.add_flag("--check", options.check, "verify what lies in DIR")->excludes(quick)->excludes(list);
    options.answer = lumenfold::parseCommandLine(program, words);
    return options;
}

int work(const Options& options) {
    if (options.list) {
        for (const Asset& asset : manifest())
            std::puts(asset.fileName);
        return 0;
    }
    if (options.check)
        return runChecks(options.directory) == 0 ? 0 : 1;
    if (options.quick)
        renderQuickly();
    return make(options) == 0 ? 0 : 1;
}

} // namespace

int main(int count, char** arguments) {
    return lumenfold::runTool("lumenfold-forge", [&] {
        const Options options = optionsOf({arguments + 1, arguments + count});
        std::fputs(options.answer.c_str(), stdout);
        return options.answer.empty() ? work(options) : 0;
    });
}
