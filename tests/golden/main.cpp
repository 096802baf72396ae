// test_golden            compares the pictures with the lines of this folder
// test_golden --update   writes the lines anew; a commit that changes them says what the eye should see
// test_golden --plain    without the processor's vector instructions

#include "core/kernels.h"
#include "golden_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string>

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    const auto asked = [&](const char* option) {
        return std::any_of(arguments + 1, arguments + count,
                           [&](const char* word) { return std::string(word) == option; });
    };
    lumenfold::test::GoldenFile::updating = asked("--update");
    lumenfold::setVectorCode(!asked("--plain"));
    std::filesystem::current_path(LUMENFOLD_SHOW);
    std::cout.setstate(std::ios::failbit); // the object reader's commentary
    return RUN_ALL_TESTS();
}
