#pragma once

#include <string>
#include <vector>

// Verification of the finished show by rule. Every family of assets gives one function; checkFamilies lists them.

namespace lumenfold::art {

struct Finding {
    std::string subject; // file, or what was measured
    std::string text;    // what was found; empty for "in order"
    bool fault = false;
};

struct CheckFamily {
    const char* name;
    std::vector<Finding> (*check)(const std::string& folder); // folder: where the finished files lie
};
const std::vector<CheckFamily>& checkFamilies();

// Runs every family over the folder and prints what is at fault, and a count for each family. Returns the number of
// faults.
int runChecks(const std::string& folder);

std::vector<Finding> checkPictures(const std::string& folder);  // form, size, seams, black borders
std::vector<Finding> checkObjects(const std::string& folder);   // form, bounds, closedness, views along camera ways
std::vector<Finding> checkTuneFiles(const std::string& folder); // choreography, level, gaps, length
std::vector<Finding> checkRebuild(const std::string& folder);   // files made again give the same bytes

} // namespace lumenfold::art
