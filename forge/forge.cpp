// lumenfold-forge: makes the show's assets from their sources, or verifies those that are there.
#include "forge/checks.h"
#include "forge/picture.h"
#include "forge/recipe.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

using namespace lumenfold::art;

namespace {

constexpr const char* usage =
    "usage: lumenfold-forge [--out DIR] [--quick] [NAME...]   make the named files, or all of them\n"
    "       lumenfold-forge --list                  list what can be made\n"
    "       lumenfold-forge [--out DIR] --check     verify what lies in DIR\n"
    "--quick looks at pictures with few samples; DIR is show/ in the source tree, or here, unless given.\n";

struct Options {
    std::string directory = std::filesystem::exists(LUMENFOLD_SHOW) ? LUMENFOLD_SHOW : "show";
    bool list = false;
    bool check = false;
    std::vector<std::string> names;
};

// Makes the files whose names are given, all if none is. Returns the number of failures.
int make(const Options& options) {
    const std::vector<Recipe> all = allRecipes();
    int failures = 0;
    const auto known = [&all](const std::string& name) {
        return std::any_of(all.begin(), all.end(), [&](const Recipe& r) { return name == r.fileName; });
    };
    for (const std::string& name : options.names) {
        if (!known(name)) {
            std::fprintf(stderr, "lumenfold-forge: %s: no such asset (--list shows them)\n", name.c_str());
            ++failures;
        }
    }
    std::filesystem::create_directories(options.directory);
    for (const Recipe& recipe : all) {
        const auto& names = options.names;
        if (!names.empty() && std::find(names.begin(), names.end(), recipe.fileName) == names.end()) {
            continue;
        }
        const auto start = std::chrono::steady_clock::now();
        const std::filesystem::path path = std::filesystem::path(options.directory) / recipe.fileName;
        try {
            recipe.make(path.string());
            const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
            std::printf("%-20s %8llu bytes %6.1f s\n", recipe.fileName,
                        static_cast<unsigned long long>(std::filesystem::file_size(path)), taken.count());
        } catch (const std::exception& error) {
            std::fprintf(stderr, "lumenfold-forge: %s: %s\n", recipe.fileName, error.what());
            ++failures;
        }
        std::fflush(stdout);
    }
    return failures;
}

Options optionsOf(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (argument == "--out" && i + 1 < count) {
            options.directory = arguments[++i];
        } else if (argument == "--quick") { // few samples per pixel, for a fast look
            renderQuickly();
        } else if (argument == "--list") {
            options.list = true;
        } else if (argument == "--check") {
            options.check = true;
        } else if (argument.rfind("--", 0) == 0) {
            std::fputs(usage, argument == "--help" ? stdout : stderr);
            std::exit(argument == "--help" ? 0 : 2);
        } else {
            options.names.push_back(argument);
        }
    }
    return options;
}

} // namespace

int main(int count, char** arguments) {
    const Options options = optionsOf(count, arguments);
    if (options.list) {
        for (const Recipe& recipe : allRecipes()) {
            std::printf("%-20s %s\n", recipe.fileName, recipe.cheap ? "" : "slow");
        }
        return 0;
    }
    if (options.check) {
        return runChecks(options.directory) == 0 ? 0 : 1;
    }
    return make(options) == 0 ? 0 : 1;
}
