#pragma once

#include <cstdint>
#include <vector>

namespace lumenfold::test {

struct JpegFactors {
    int horizontal;
    int vertical;
};

// A file of random coefficients; codes of every length up to 16 bits occur, and values far outside 0 to 255.
struct JpegRecipe {
    int width = 16;
    int height = 16;
    std::vector<JpegFactors> components = {{1, 1}};
    unsigned seed = 1;
    int density = 20; // chance of an AC coefficient other than 0, of 100
    int restartInterval = 0;
    bool oneSegment = false;       // all tables of a kind in one segment
    bool wideQuantisation = false; // 16-bit entries
    bool extraSegments = false;    // application data and comments before, fill bytes before markers
};

std::vector<std::uint8_t> makeJpeg(const JpegRecipe& recipe);

// Where the entropy-coded data of such a file begins.
std::size_t entropyStart(const std::vector<std::uint8_t>& file);

} // namespace lumenfold::test
