// test_golden                 compares every frame with the hashes of this folder
// test_golden --update        writes the hashes anew; a commit that changes them says what the eye should see
// test_golden --against REV   shows what the first different frame of each film looked like in that revision
// test_golden --list-targets  names the vector instructions that there are
// test_golden --target NAME   with these vector instructions (core/vector_target.h)

#include "core/vector_target.h"
#include "golden_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string>

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    char** const end = arguments + count;
    const auto find = [&](const char* option) {
        return std::find_if(arguments + 1, end, [&](const char* word) { return std::string(word) == option; });
    };
    if (find("--list-targets") != end) {
        for (const std::string& name : lumenfold::vectorTargets())
            std::cout << name << '\n';
        return 0;
    }
    using lumenfold::test::GoldenFile;
    GoldenFile::updating = find("--update") != end;
    if (char** const option = find("--against"); option != end) {
        if (option + 1 == end) {
            std::cerr << "--against needs a revision\n";
            return 2;
        }
        GoldenFile::against = option[1];
    }
    if (char** const option = find("--target"); option != end && option + 1 != end)
        lumenfold::useVectorTarget(option[1]);
    std::filesystem::current_path(LUMENFOLD_SHOW);
    std::cout.setstate(std::ios::failbit); // the object reader's commentary
    return RUN_ALL_TESTS();
}
