#include "forge/checks.h"
#include "forge/recipe.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

namespace lumenfold::art {

namespace {

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

std::vector<Finding> checkRebuild(const std::string& folder) {
    namespace fs = std::filesystem;
    const fs::path scratch = fs::temp_directory_path() /
                             ("lumenfold-forge-check-" + std::to_string(getpid())); // another check may be at work
    fs::create_directories(scratch);
    std::vector<Finding> findings;
    for (const Recipe& recipe : allRecipes()) {
        if (!recipe.cheap) {
            continue;
        }
        const fs::path again = scratch / recipe.fileName;
        Finding finding{recipe.fileName, "", false};
        try {
            recipe.make(again.string());
            finding.fault = contentOf(again) != contentOf(fs::path(folder) / recipe.fileName);
            finding.text = finding.fault ? "differs from what its sources make" : "";
        } catch (const std::exception& error) {
            finding = {recipe.fileName, error.what(), true};
        }
        findings.push_back(finding);
        fs::remove(again);
    }
    fs::remove(scratch);
    return findings;
}

} // namespace lumenfold::art
