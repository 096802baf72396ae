// test_golden                 compares every frame with the hashes of this folder
// test_golden --update        writes the hashes anew; a commit that changes them says what the eye should see
// test_golden --against REV   shows what the first different frame of each film looked like in that revision
// test_golden --plain         without the processor's vector instructions

#include "core/kernels.h"
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
    using lumenfold::test::GoldenFile;
    GoldenFile::updating = find("--update") != end;
    if (char** const option = find("--against"); option != end) {
        if (option + 1 == end) {
            std::cerr << "--against needs a revision\n";
            return 2;
        }
        GoldenFile::against = option[1];
    }
    lumenfold::setVectorCode(find("--plain") == end);
    std::filesystem::current_path(LUMENFOLD_SHOW);
    std::cout.setstate(std::ios::failbit); // the object reader's commentary
    return RUN_ALL_TESTS();
}
