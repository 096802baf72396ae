#include "forge/checks.h"
#include "forge/manifest.h"

#include <exception>
#include <fstream>
#include <iterator>

namespace lumenfold::art {

std::vector<Finding> checkRebuild(const std::string& folder) {
    std::vector<Finding> findings;
    for (const Asset& asset : manifest()) {
        if (!asset.rebuilt)
            continue;
        Finding finding{asset.fileName, "", false};
        try {
            std::ifstream file(folder + "/" + asset.fileName, std::ios::binary);
            const std::vector<std::uint8_t> present{std::istreambuf_iterator<char>(file), {}};
            finding.fault = make(asset) != present;
            finding.text = finding.fault ? "differs from what its sources make" : "";
        } catch (const std::exception& error) {
            finding = {asset.fileName, error.what(), true};
        }
        findings.push_back(finding);
    }
    return findings;
}

} // namespace lumenfold::art
