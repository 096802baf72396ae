#include "golden_file.h"

#include "programs/film_hash.h"
#include "programs/png_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace lumenfold::test {

namespace {

std::uint64_t hashOf(const film::Frame& frame) {
    const auto count = static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height);
    std::array<const Pixel32*, film::hashLanes> pictures;
    pictures.fill(frame.pixels);
    return film::hashPictures(pictures, count)[0];
}

std::string hexadecimal(std::uint64_t hash) {
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
    return text;
}

std::string pictureName(std::string moment) {
    std::replace(moment.begin(), moment.end(), ' ', '-');
    return LUMENFOLD_TEST_OUTPUT "/golden-" + moment + ".png";
}

} // namespace

bool GoldenFile::updating = false;

GoldenFile::GoldenFile(const std::string& name) : path(LUMENFOLD_TEST_DATA "/" + name) {
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const std::size_t space = line.rfind(' ');
        if (space != std::string::npos)
            expected[line.substr(0, space)] = line.substr(space + 1);
    }
}

bool GoldenFile::matches(const std::string& moment, std::uint64_t hash) {
    lines.push_back(moment + " " + hexadecimal(hash));
    const auto found = expected.find(moment);
    const bool same = found != expected.end() && found->second == hexadecimal(hash);
    if (found != expected.end())
        expected.erase(found);
    return same || updating;
}

void GoldenFile::check(const std::string& moment, const film::Frame& frame) {
    if (matches(moment, hashOf(frame)))
        return;
    film::writePng(pictureName(moment), frame.pixels, frame.width, frame.height);
    ADD_FAILURE() << lines.back() << "\nsee " << pictureName(moment);
}

void GoldenFile::check(const std::string& moment, std::uint64_t hash) {
    if (!matches(moment, hash))
        ADD_FAILURE() << lines.back();
}

void GoldenFile::finish() {
    if (!updating) {
        for (const auto& [moment, hash] : expected)
            ADD_FAILURE() << path << ": never met: " << moment << " " << hash;
        return;
    }
    std::ofstream file(path);
    for (const std::string& line : lines)
        file << line << "\n";
    file.close();
    EXPECT_TRUE(file.good()) << path << " cannot be written";
}

} // namespace lumenfold::test
