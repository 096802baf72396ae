#include "forge/checks.h"

#include "forge/tune_listen.h"

#include <cstdio>

namespace lumenfold::art {

const std::vector<CheckFamily>& checkFamilies() {
    static const std::vector<CheckFamily> families = {
        {"pictures", checkPictures},
        {"objects", checkObjects},
        {"tunes", checkTuneFiles},
        {"rebuild", checkRebuild},
    };
    return families;
}

std::vector<Finding> checkTuneFiles(const std::string& folder) {
    std::vector<Finding> findings;
    for (const TuneCheck& check : checkTunes(folder)) {
        char text[96];
        std::snprintf(text, sizeof text, "%.3f, allowed %.3f to %.3f", check.measured, check.lowest, check.highest);
        findings.push_back({check.what, text, check.measured < check.lowest || check.measured > check.highest});
    }
    return findings;
}

int runChecks(const std::string& folder) {
    int faults = 0;
    for (const CheckFamily& family : checkFamilies()) {
        const std::vector<Finding> findings = family.check(folder);
        int familyFaults = 0;
        for (const Finding& finding : findings) {
            if (finding.fault) {
                std::printf("%s: %s: %s\n", family.name, finding.subject.c_str(), finding.text.c_str());
                ++familyFaults;
            }
        }
        std::printf("%-10s %3zu checked, %d at fault\n", family.name, findings.size(), familyFaults);
        faults += familyFaults;
    }
    return faults;
}

} // namespace lumenfold::art
